#include "kest/host/file_system_service.h"

#include "common/windows_errors.h"
#include "file_status.h"
#include "out_of_memory.h"
#include "path_resolution.h"
#include "unicode.h"

#include <cerrno>
#include <cstdlib>
#include <cwchar>
#include <fcntl.h>
#include <kest_kit/system_errors.h>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <vector>

namespace kest::host
{

namespace
{

bool isSeparator(wchar_t character)
{
    return character == L'/' || character == L'\\';
}

bool isLetter(wchar_t character)
{
    return (character >= L'a' && character <= L'z') || (character >= L'A' && character <= L'Z');
}

// The file on disk; nothing, with the last error set, if there is none or it cannot be looked for.
std::optional<std::string> fileOnDisk(const wchar_t* path)
{
    std::optional<std::string> found;
    if (path == nullptr)
    {
        errno = ERROR_FILE_NOT_FOUND;
    }
    else if (!(found = existingPath(path)))
    {
        errno = common::windowsErrorOf(errno);
    }
    return found;
}

std::string lastComponent(const std::string& path)
{
    return path.substr(path.rfind('/') + 1);
}

std::vector<std::wstring_view> componentsOf(std::wstring_view path)
{
    std::vector<std::wstring_view> components;
    while (!path.empty())
    {
        const std::size_t end = std::min(path.find_first_of(L"/\\"), path.size());
        if (end > 0)
        {
            components.push_back(path.substr(0, end));
        }
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return components;
}

} // namespace

BOOL FileSystemService::PathFileExistsW(const wchar_t* path, std::wstring& actualPath)
try
{
    const std::optional<std::string> found = fileOnDisk(path);
    if (!found)
    {
        return 0;
    }
    actualPath = fromUtf8(*found);
    return 1;
}
catch (const std::bad_alloc&)
{
    return withoutMemory(0);
}

DWORD FileSystemService::GetFileAttributesW(const wchar_t* lpFileName)
try
{
    const std::optional<std::string> path = fileOnDisk(lpFileName);
    if (!path)
    {
        return INVALID_FILE_ATTRIBUTES;
    }
    struct stat status;
    bool isLink = false;
    if (!statusAt(AT_FDCWD, path->c_str(), status, isLink))
    {
        errno = ERROR_FILE_NOT_FOUND;
        return INVALID_FILE_ATTRIBUTES;
    }
    return attributesOf(lastComponent(*path), status, isLink);
}
catch (const std::bad_alloc&)
{
    return withoutMemory<DWORD>(INVALID_FILE_ATTRIBUTES);
}

BOOL FileSystemService::SetFileAttributesW(const wchar_t* lpFileName, DWORD dwFileAttributes)
try
{
    const std::optional<std::string> path = fileOnDisk(lpFileName);
    if (!path)
    {
        return 0;
    }
    struct stat status;
    if (stat(path->c_str(), &status) != 0)
    {
        errno = ERROR_FILE_NOT_FOUND;
        return 0;
    }
    const mode_t mode = status.st_mode & 07777;
    const bool readOnly = (dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0;
    const mode_t wanted = readOnly ? mode & ~0222U : (mode & 0222) == 0 ? mode | 0200 : mode;
    if (wanted != mode && chmod(path->c_str(), wanted) != 0)
    {
        errno = common::windowsErrorOf(errno);
        return 0;
    }
    return 1;
}
catch (const std::bad_alloc&)
{
    return withoutMemory(0);
}

BOOL FileSystemService::PathIsURLW(const wchar_t* pszPath)
{
    const std::wstring_view text = pszPath == nullptr ? L"" : pszPath;
    const std::size_t colon = text.find(L':');
    if (colon == text.npos || colon < 2 || !isLetter(text.front()))
    {
        return 0;
    }
    for (const wchar_t character : text.substr(0, colon))
    {
        const bool allowed = isLetter(character) || (character >= L'0' && character <= L'9') || character == L'+' ||
                             character == L'-' || character == L'.';
        if (!allowed)
        {
            return 0;
        }
    }
    return 1;
}

wchar_t* FileSystemService::PathAddBackslashW(wchar_t* pszPath)
{
    if (pszPath == nullptr)
    {
        return nullptr;
    }
    wchar_t* end = pszPath + std::wcslen(pszPath);
    if (end != pszPath && !isSeparator(end[-1]))
    {
        *end++ = L'/';
        *end = L'\0';
    }
    return end;
}

BOOL FileSystemService::PathRelativePathToW(wchar_t* pszPath, const wchar_t* pszFrom, DWORD dwAttrFrom,
                                            const wchar_t* pszTo, DWORD)
try
{
    if (pszPath == nullptr || pszFrom == nullptr || pszTo == nullptr || isSeparator(*pszFrom) != isSeparator(*pszTo))
    {
        return 0;
    }
    std::vector<std::wstring_view> from = componentsOf(pszFrom);
    const std::vector<std::wstring_view> to = componentsOf(pszTo);
    if ((dwAttrFrom & FILE_ATTRIBUTE_DIRECTORY) == 0 && !from.empty())
    {
        from.pop_back();
    }
    std::size_t common = 0;
    while (common < from.size() && common < to.size() && from[common] == to[common])
    {
        ++common;
    }
    std::wstring result = common == from.size() ? L"." : L"..";
    for (std::size_t index = common + 1; index < from.size(); ++index)
    {
        result += L"/..";
    }
    for (std::size_t index = common; index < to.size(); ++index)
    {
        result.append(L"/").append(to[index]);
    }
    if (result.size() >= MAX_PATH)
    {
        *pszPath = L'\0';
        return 0;
    }
    std::wmemcpy(pszPath, result.c_str(), result.size() + 1);
    return 1;
}
catch (const std::bad_alloc&)
{
    return withoutMemory(0);
}

DWORD FileSystemService::GetTempPathW(DWORD nBufferLength, wchar_t* lpBuffer)
try
{
    std::wstring path = L"/tmp";
    for (const char* const variable : {"TMPDIR", "TMP", "TEMP"})
    {
        if (const char* const value = std::getenv(variable); value != nullptr && *value != '\0')
        {
            path = fromUtf8(value);
            break;
        }
    }
    if (path.back() != L'/')
    {
        path += L'/';
    }
    const auto length = static_cast<DWORD>(path.size());
    if (lpBuffer == nullptr || nBufferLength <= length)
    {
        return length + 1;
    }
    std::wmemcpy(lpBuffer, path.c_str(), path.size() + 1);
    return length;
}
catch (const std::bad_alloc&)
{
    return withoutMemory(0U);
}

BOOL FileSystemService::PathIsRelativeW(const wchar_t* pszPath)
{
    return pszPath == nullptr || (!isSeparator(*pszPath) && !(isLetter(*pszPath) && pszPath[1] == L':'));
}

wchar_t* FileSystemService::PathFindExtensionW(const wchar_t* pszPath)
{
    if (pszPath == nullptr)
    {
        return nullptr;
    }
    const wchar_t* dot = nullptr;
    const wchar_t* at = pszPath;
    for (; *at != L'\0'; ++at)
    {
        if (*at == L'.')
        {
            dot = at;
        }
        else if (isSeparator(*at) || *at == L' ')
        {
            dot = nullptr;
        }
    }
    return const_cast<wchar_t*>(dot != nullptr ? dot : at);
}

} // namespace kest::host
