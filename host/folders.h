// Where a user's files stand.
#pragma once

#include <string>

namespace kest::host
{

// The user's home folder; empty if there is none.
std::string homeFolder();

// A base directory: the variable's value if it is an absolute path, else a folder below home.
std::string baseFolder(const char* variable, const char* belowHome);

// Makes a folder and those on its way, for the user alone. False, with errno set, when that fails.
bool makeFolders(const std::string& folder);

} // namespace kest::host
