// From a path as Windows code spells it to the name on disk.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kest::host
{

// The path in UTF-8 with "/" for every backslash, otherwise as it is.
std::string posixPath(std::wstring_view path);

// The entry of a folder (a path in UTF-8, empty for the working directory) that bears a name: exactly, else
// without case, then the first in byte order. Nothing, with errno set, if there is none (ENOENT) or the folder cannot be
// looked through.
std::optional<std::string> findEntry(const std::string& folder, const std::string& name);

// The name on disk of what a path names, each component found as findEntry does; nothing, with errno set, likewise.
std::optional<std::string> existingPath(std::wstring_view path);

// The same for what may have to be made: components that do not exist stay as they are spelled. Nothing, with errno
// set, where that cannot be known: what is made might stand beside what was meant.
std::optional<std::string> intendedPath(std::wstring_view path);

} // namespace kest::host
