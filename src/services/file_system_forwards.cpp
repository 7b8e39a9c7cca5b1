// Forwards to the file system service, in the order of its operations. Those that do more stand with their families.
#include "kest/kernel/files.h"
#include "kest/shell_paths.h"
#include "support/forwarding.h"

using kest::forward;
using kest::forwardCheckedOnce;

namespace
{
constexpr auto service = &IPlatformServices::fileSystemService;
}

HANDLE FindFirstFileW(const wchar_t* lpFileName, WIN32_FIND_DATAW* lpFindFileData)
{
    return forward(service, &IFileSystemService::FindFirstFileW, lpFileName, lpFindFileData);
}

BOOL FindNextFileW(HANDLE hFindFile, WIN32_FIND_DATAW* lpFindFileData)
{
    return forward(service, &IFileSystemService::FindNextFileW, hFindFile, lpFindFileData);
}

BOOL FindClose(HANDLE hFindFile)
{
    return forward(service, &IFileSystemService::FindClose, hFindFile);
}

BOOL PathIsURLW(const wchar_t* pszPath)
{
    return forward(service, &IFileSystemService::PathIsURLW, pszPath);
}

wchar_t* PathAddBackslashW(wchar_t* pszPath)
{
    return forward(service, &IFileSystemService::PathAddBackslashW, pszPath);
}

HRESULT SHGetFolderPathW(HWND hwnd, int nFolder, HANDLE hToken, DWORD dwFlags, wchar_t* pszPath)
{
    return forward(service, &IFileSystemService::SHGetFolderPathW, hwnd, nFolder, hToken, dwFlags, pszPath);
}

BOOL PathRelativePathToW(wchar_t* pszPath, const wchar_t* pszFrom, DWORD dwAttrFrom, const wchar_t* pszTo,
                         DWORD dwAttrTo)
{
    return forward(service, &IFileSystemService::PathRelativePathToW, pszPath, pszFrom, dwAttrFrom, pszTo, dwAttrTo);
}

BOOL SetFileAttributesW(const wchar_t* lpFileName, DWORD dwFileAttributes)
{
    return forwardCheckedOnce(0, service, &IFileSystemService::SetFileAttributesW, lpFileName, dwFileAttributes);
}

BOOL PathIsRelativeW(const wchar_t* pszPath)
{
    return forward(service, &IFileSystemService::PathIsRelativeW, pszPath);
}

wchar_t* PathFindExtensionW(const wchar_t* pszPath)
{
    return forward(service, &IFileSystemService::PathFindExtensionW, pszPath);
}
