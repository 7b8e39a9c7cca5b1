#include "linux/host.h"
#include "linux/narrow_text.h"

#include <cerrno>
#include <cwchar>
#include <dirent.h>
#include <fcntl.h>
#include <fnmatch.h>
#include <memory>
#include <sys/stat.h>

namespace
{

struct FolderCloser
{
    void operator()(DIR* folder) const { closedir(folder); }
};

// A running search: an open folder, and the pattern that its names must match.
struct Search
{
    std::unique_ptr<DIR, FolderCloser> folder;
    std::string pattern;
};

// File times hold whole Unix seconds, as everywhere in the library.
FILETIME fileTime(const timespec& time)
{
    const auto seconds = static_cast<unsigned long long>(time.tv_sec);
    return {static_cast<DWORD>(seconds), static_cast<DWORD>(seconds >> 32)};
}

DWORD attributesOf(const struct stat& status)
{
    const DWORD readOnly = (status.st_mode & S_IWUSR) == 0 ? FILE_ATTRIBUTE_READONLY : 0;
    switch (status.st_mode & S_IFMT)
    {
    case S_IFDIR:
        return FILE_ATTRIBUTE_DIRECTORY;
    case S_IFLNK:
        return FILE_ATTRIBUTE_REPARSE_POINT;
    case S_IFREG:
        return readOnly != 0 ? readOnly : FILE_ATTRIBUTE_NORMAL;
    default:
        return FILE_ATTRIBUTE_DEVICE;
    }
}

void fill(WIN32_FIND_DATAW& data, const char* name, const struct stat& status)
{
    data = {};
    data.dwFileAttributes = attributesOf(status);
    data.ftCreationTime = fileTime(status.st_ctim);
    data.ftLastAccessTime = fileTime(status.st_atim);
    data.ftLastWriteTime = fileTime(status.st_mtim);
    const auto size = static_cast<unsigned long long>(status.st_size);
    data.nFileSizeHigh = static_cast<DWORD>(size >> 32);
    data.nFileSizeLow = static_cast<DWORD>(size);
    // A name has at most 255 bytes here, so it always fits.
    widened(name).copy(data.cFileName, MAX_PATH - 1);
}

// The next entry that matches; false at the end. An entry that has gone meanwhile is passed over.
bool readNext(const Search& search, WIN32_FIND_DATAW& data)
{
    while (const dirent* const entry = readdir(search.folder.get()))
    {
        struct stat status;
        if (fnmatch(search.pattern.c_str(), entry->d_name, FNM_NOESCAPE) == 0 &&
            fstatat(dirfd(search.folder.get()), entry->d_name, &status, AT_SYMLINK_NOFOLLOW) == 0)
        {
            fill(data, entry->d_name, status);
            return true;
        }
    }
    return false;
}

// Windows knows "*" and "?" as wildcards; fnmatch knows brackets as well, which are plain characters here.
std::string matcherPattern(const std::string& windowsPattern)
{
    std::string result;
    for (const char character : windowsPattern)
    {
        result += character == '[' ? std::string("[[]") : std::string(1, character);
    }
    return result;
}

} // namespace

HANDLE FileSystemService::FindFirstFileW(const wchar_t* pattern, WIN32_FIND_DATAW* data)
{
    const std::string path = narrowed(pattern);
    const std::size_t nameStart = path.rfind('/') + 1;
    const std::string folder = nameStart == 0 ? "." : path.substr(0, nameStart);
    auto search = std::make_unique<Search>();
    search->folder.reset(opendir(folder.c_str()));
    search->pattern = matcherPattern(path.substr(nameStart));
    if (!search->folder || !readNext(*search, *data))
    {
        return INVALID_HANDLE_VALUE;
    }
    return search.release();
}

BOOL FileSystemService::FindNextFileW(HANDLE search, WIN32_FIND_DATAW* data)
{
    return readNext(*static_cast<Search*>(search), *data) ? TRUE : FALSE;
}

BOOL FileSystemService::FindClose(HANDLE search)
{
    delete static_cast<Search*>(search);
    return TRUE;
}

BOOL FileSystemService::PathFileExistsW(const wchar_t* path, std::wstring& actualPath)
{
    struct stat status;
    if (stat(narrowed(path).c_str(), &status) != 0)
    {
        return FALSE;
    }
    actualPath = path;
    return TRUE;
}

DWORD FileSystemService::GetFileAttributesW(const wchar_t* path)
{
    struct stat status;
    return stat(narrowed(path).c_str(), &status) == 0 ? attributesOf(status) : INVALID_FILE_ATTRIBUTES;
}

wchar_t* FileSystemService::PathFindExtensionW(const wchar_t* path)
{
    const wchar_t* const slash = std::wcsrchr(path, L'/');
    const wchar_t* const name = slash == nullptr ? path : slash + 1;
    const wchar_t* const dot = std::wcsrchr(name, L'.');
    return const_cast<wchar_t*>(dot == nullptr ? name + std::wcslen(name) : dot);
}
