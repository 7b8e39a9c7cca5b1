// Windows's view of a file's status.
#pragma once

#include "kest/base_types.h"

#include <ctime>
#include <string_view>
#include <sys/stat.h>

namespace kest::host
{

// The status of a folder's entry: of what a link leads to, or of the link where that is nothing.
bool statusAt(int folder, const char* name, struct stat& status, bool& isLink);

// FILE_ATTRIBUTE_* of a file; the name decides whether it is hidden.
DWORD attributesOf(std::string_view name, const struct stat& status, bool isLink);

// Whole seconds since 1970.
FILETIME fileTime(std::time_t seconds);

} // namespace kest::host
