#include "kest/kernel/directories.h"
#include "kest/shell_paths.h"
#include "support/text.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <cwchar>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

constexpr mode_t directoryMode = 0755;
constexpr std::wstring_view systemDirectory = L"/sys/";

bool exists(const char* path)
{
    return access(path, F_OK) == 0;
}

// Makes one directory, unless something of that name exists.
bool makeDirectory(const char* path)
{
    return mkdir(path, directoryMode) == 0 || exists(path);
}

// Makes the directories on the way to the last component. What cannot be made shows at the end.
void makeParents(char* path)
{
    for (char* separator = std::strchr(path + 1, '/'); separator != nullptr;
         separator = std::strchr(separator + 1, '/'))
    {
        *separator = '\0';
        mkdir(path, directoryMode);
        *separator = '/';
    }
}

} // namespace

BOOL DeleteFileW(const wchar_t* path)
{
    if (path == nullptr)
    {
        return 0;
    }
    const kest::NarrowText narrowPath(path);
    return exists(narrowPath.c_str()) && std::remove(narrowPath.c_str()) == 0;
}

BOOL CreateDirectoryW(const wchar_t* path, SECURITY_ATTRIBUTES*)
{
    if (path == nullptr)
    {
        return 0;
    }
    kest::NarrowText narrowPath(path);
    if (*narrowPath.c_str() == '\0' || makeDirectory(narrowPath.c_str()))
    {
        return 1;
    }
    makeParents(narrowPath.data());
    return makeDirectory(narrowPath.c_str());
}

int SHCreateDirectoryExW(HWND, const wchar_t* path, const SECURITY_ATTRIBUTES*)
{
    return CreateDirectoryW(path, nullptr) != 0 ? S_OK : E_FAIL;
}

BOOL RemoveDirectoryW(const wchar_t* path)
{
    if (path == nullptr)
    {
        return 0;
    }
    kest::NarrowText narrowPath(path);
    std::replace(narrowPath.data(), narrowPath.data() + std::strlen(narrowPath.c_str()), '\\', '/');
    return rmdir(narrowPath.c_str()) == 0;
}

BOOL PathIsDirectoryW(const wchar_t* path)
{
    // Opened as opendir() does it, and left open.
    return path != nullptr &&
           open(kest::NarrowText(path).c_str(), O_RDONLY | O_NONBLOCK | O_DIRECTORY | O_CLOEXEC) != -1;
}

UINT GetSystemDirectoryW(wchar_t* buffer, UINT size)
{
    if (size <= systemDirectory.size())
    {
        return 0;
    }
    std::wmemcpy(buffer, systemDirectory.data(), systemDirectory.size());
    return systemDirectory.size();
}
