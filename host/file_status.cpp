#include "file_status.h"

#include <cstdint>
#include <fcntl.h>

namespace kest::host
{

namespace
{

constexpr DWORD readOnly = 0x1;
constexpr DWORD hidden = 0x2;
constexpr DWORD directory = 0x10;
constexpr DWORD archive = 0x20;
constexpr DWORD device = 0x40;
constexpr DWORD reparsePoint = 0x400;

} // namespace

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
    DWORD attributes = S_ISDIR(status.st_mode)                              ? directory
                       : S_ISREG(status.st_mode) || S_ISLNK(status.st_mode) ? archive
                                                                            : device;
    attributes |= (status.st_mode & 0222) == 0 ? readOnly : 0;
    attributes |= name.starts_with('.') && name != "." && name != ".." ? hidden : 0;
    attributes |= isLink ? reparsePoint : 0;
    return attributes;
}

FILETIME fileTime(std::time_t seconds)
{
    const auto count = static_cast<std::uint64_t>(seconds);
    return {static_cast<DWORD>(count), static_cast<DWORD>(count >> 32)};
}

} // namespace kest::host
