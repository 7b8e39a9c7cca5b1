#include "kest/kernel/files.h"
#include "kest/platform_services.h"
#include "kest/shell_paths.h"
#include "support/out_of_memory.h"

#include <cstddef>
#include <cwchar>
#include <exception>
#include <string>
#include <sys/stat.h>

DWORD GetFileAttributesW(const wchar_t* path)
{
    IPlatformServices* const hub = platformServices();
    IFileSystemService* const service = hub != nullptr ? hub->fileSystemService() : nullptr;
    if (service == nullptr)
    {
        return INVALID_FILE_ATTRIBUTES;
    }
    return kest::answerWithoutMemory(INVALID_FILE_ATTRIBUTES,
                                     [=]() -> DWORD
                                     {
                                         std::wstring actualPath = path != nullptr ? path : L"";
                                         if (service->PathFileExistsW(path, actualPath) == 0)
                                         {
                                             return INVALID_FILE_ATTRIBUTES;
                                         }
                                         return service->GetFileAttributesW(actualPath.c_str());
                                     });
}

DWORD GetFileAttributesA(const char* path)
{
    struct stat status;
    return stat(path, &status) == 0 ? status.st_mode : INVALID_FILE_ATTRIBUTES;
}

BOOL SetFileAttributesA(const char* path, DWORD attributes)
{
    return SetFileAttributesW(reinterpret_cast<const wchar_t*>(path), attributes);
}

DWORD GetShortPathNameW(const wchar_t* longPath, wchar_t* shortPath, DWORD size)
{
    if (shortPath == nullptr || size == 0)
    {
        return static_cast<DWORD>(std::wcslen(longPath) + 1);
    }
    const std::size_t kept = wcsnlen(longPath, size - 1);
    std::wmemmove(shortPath, longPath, kept);
    std::wmemset(shortPath + kept, L'\0', size - kept);
    return size - 1;
}

BOOL GetVolumeInformationW(const wchar_t*, wchar_t*, DWORD, DWORD*, DWORD*, DWORD*, wchar_t*, DWORD)
{
    std::terminate();
}

BOOL SHGetSpecialFolderPathW(HWND window, wchar_t* path, int folder, BOOL)
{
    return SHGetFolderPathW(window, folder, nullptr, 0, path) == 0;
}
