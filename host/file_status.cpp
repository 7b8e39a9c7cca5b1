#include "file_status.h"

#include <cstdint>
#include <fcntl.h>

namespace kest::host
{

bool statusAt(int folder, const char* name, struct stat& status, bool& isLink)
{
    if (fstatat(folder, name, &status, AT_SYMLINK_NOFOLLOW) != 0)
    {
        return false;
    }
    isLink = S_ISLNK(status.st_mode);
    struct stat target;
    if (isLink && fstatat(folder, name, &target, 0) == 0)
    {
        status = target;
    }
    return true;
}

DWORD attributesOf(std::string_view name, const struct stat& status, bool isLink)
{
    DWORD attributes = S_ISDIR(status.st_mode)                              ? FILE_ATTRIBUTE_DIRECTORY
                       : S_ISREG(status.st_mode) || S_ISLNK(status.st_mode) ? FILE_ATTRIBUTE_ARCHIVE
                                                                            : FILE_ATTRIBUTE_DEVICE;
    attributes |= (status.st_mode & 0222) == 0 ? FILE_ATTRIBUTE_READONLY : 0;
    attributes |= name.starts_with('.') && name != "." && name != ".." ? FILE_ATTRIBUTE_HIDDEN : 0;
    attributes |= isLink ? FILE_ATTRIBUTE_REPARSE_POINT : 0;
    return attributes;
}

FILETIME fileTime(std::time_t seconds)
{
    const auto count = static_cast<std::uint64_t>(seconds);
    return {static_cast<DWORD>(count), static_cast<DWORD>(count >> 32)};
}

} // namespace kest::host
