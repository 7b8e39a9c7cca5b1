#include "kest/crt/path_splitting.h"
#include "kest/kernel/directories.h"
#include "support/text.h"

#include <climits>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <sys/stat.h>

namespace
{

// What realpath finds. What it leaves when it fails counts as well: as far as the path exists, and one component more.
class ResolvedPath
{
public:
    explicit ResolvedPath(const char* path)
    {
        text_[0] = '\0';
        [[maybe_unused]] const char* const result = realpath(path, text_);
        length_ = std::strlen(text_);
    }

    const char* text() const { return text_; }
    std::size_t length() const { return length_; }

    // Whether it is used instead of a name of `nameLength` characters, in a buffer with room for `room` bytes.
    bool replaces(std::size_t nameLength, std::size_t room) const { return length_ >= nameLength && length_ <= room; }

private:
    char text_[PATH_MAX];
    std::size_t length_;
};

bool isDirectory(const char* path)
{
    struct stat status;
    return stat(path, &status) == 0 && S_ISDIR(status.st_mode);
}

// The first place where the last component's text occurs.
wchar_t* filePartOf(wchar_t* path)
{
    // Room for two components of the splitter's longest.
    wchar_t name[512];
    wchar_t extension[256];
    _wsplitpath(path, nullptr, nullptr, name, extension);
    std::wcscat(name, extension);
    return std::wcsstr(path, name);
}

char* filePartOf(char* path)
{
    const char* const separator = std::strrchr(path, '/');
    return std::strstr(path, separator != nullptr ? separator + 1 : path);
}

} // namespace

DWORD GetFullPathNameW(const wchar_t* name, DWORD size, wchar_t* buffer, wchar_t** filePart)
{
    if (name == nullptr || size == 0)
    {
        return 0;
    }
    const std::size_t length = std::wcslen(name);
    const std::size_t room = size - 1;
    if (length == 0 || length > room)
    {
        return 0;
    }
    const kest::NarrowText narrowName(name);
    // A failed conversion counts as longer than any room.
    if (narrowName.converted() > room)
    {
        return 0;
    }
    const ResolvedPath resolved(narrowName.c_str());
    const char* text = resolved.replaces(length, room) ? resolved.text() : narrowName.c_str();
    std::size_t written = kest::widen(buffer, text, size);
    if (written == kest::conversionFailed)
    {
        text = narrowName.c_str();
        written = kest::widen(buffer, text, size);
    }
    if (filePart != nullptr && !isDirectory(text))
    {
        *filePart = filePartOf(buffer);
    }
    return static_cast<DWORD>(written);
}

DWORD GetFullPathNameA(const char* name, DWORD size, char* buffer, char** filePart)
{
    if (name == nullptr || size == 0)
    {
        return 0;
    }
    std::size_t length = std::strlen(name);
    const std::size_t room = size - 1;
    if (length == 0 || length > room)
    {
        return 0;
    }
    const ResolvedPath resolved(name);
    if (resolved.replaces(length, room))
    {
        length = resolved.length();
        std::memcpy(buffer, resolved.text(), length + 1);
    }
    else
    {
        // The name may stand in the buffer.
        std::memmove(buffer, name, length);
        std::memset(buffer + length, '\0', size - length);
    }
    if (filePart != nullptr && !isDirectory(buffer))
    {
        *filePart = filePartOf(buffer);
    }
    return static_cast<DWORD>(length);
}
