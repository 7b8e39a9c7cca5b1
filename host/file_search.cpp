// The find operations of the file system service.
#include "file_status.h"
#include "folders.h"
#include "kest/host/file_system_service.h"
#include "path_resolution.h"
#include "unicode.h"
#include "wildcard.h"
#include "windows_errors.h"

#include <algorithm>
#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <mutex>
#include <string>
#include <sys/stat.h>
#include <unordered_map>
#include <vector>

namespace kest::host
{

namespace
{

struct Closer
{
    void operator()(DIR* folder) const { closedir(folder); }
};
using Folder = std::unique_ptr<DIR, Closer>;

// The entries found, and how far they have been handed out.
struct Search
{
    Folder folder;
    std::vector<std::string> names;
    std::size_t next = 0;
};

std::mutex searchesMutex;
std::unordered_map<HANDLE, std::unique_ptr<Search>> searches;

std::vector<std::string> matchingNames(DIR* folder, const std::wstring& pattern)
{
    struct Entry
    {
        std::wstring key;
        std::string name;
    };
    std::vector<Entry> entries;
    while (const dirent* const entry = readdir(folder))
    {
        std::wstring key = folded(fromUtf8(entry->d_name));
        if (matchesWildcard(key, pattern))
        {
            entries.push_back({std::move(key), entry->d_name});
        }
    }
    std::sort(entries.begin(), entries.end(),
              [](const Entry& a, const Entry& b) { return a.key != b.key ? a.key < b.key : a.name < b.name; });
    std::vector<std::string> names;
    names.reserve(entries.size());
    for (Entry& entry : entries)
    {
        names.push_back(std::move(entry.name));
    }
    return names;
}

void describe(const std::string& name, const struct stat& status, bool isLink, WIN32_FIND_DATAW& data)
{
    data = {};
    data.dwFileAttributes = attributesOf(name, status, isLink);
    data.ftCreationTime = fileTime(status.st_ctime);
    data.ftLastAccessTime = fileTime(status.st_atime);
    data.ftLastWriteTime = fileTime(status.st_mtime);
    data.nFileSizeHigh = static_cast<DWORD>(static_cast<std::uint64_t>(status.st_size) >> 32);
    data.nFileSizeLow = static_cast<DWORD>(status.st_size);
    fromUtf8(name).copy(data.cFileName, MAX_PATH - 1);
}

// Hands out the next entry that still exists.
bool handOut(Search& search, WIN32_FIND_DATAW& data)
{
    while (search.next < search.names.size())
    {
        const std::string& name = search.names[search.next++];
        struct stat status;
        bool isLink = false;
        if (statusAt(dirfd(search.folder.get()), name, status, isLink))
        {
            describe(name, status, isLink, data);
            return true;
        }
    }
    return false;
}

} // namespace

HANDLE FileSystemService::FindFirstFileW(const wchar_t* lpFileName, WIN32_FIND_DATAW* lpFindFileData)
{
    if (lpFileName == nullptr || lpFindFileData == nullptr)
    {
        errno = errorInvalidParameter;
        return INVALID_HANDLE_VALUE;
    }
    const std::wstring_view path = lpFileName;
    const std::size_t separator = path.find_last_of(L"/\\");
    const std::wstring_view folderPath = separator == path.npos ? L"." : path.substr(0, separator + 1);
    const std::optional<std::string> folderName = existingPath(folderPath);
    auto search = std::make_unique<Search>();
    search->folder.reset(folderName ? opendir(folderName->c_str()) : nullptr);
    if (search->folder == nullptr)
    {
        errno = errorPathNotFound;
        return INVALID_HANDLE_VALUE;
    }
    const std::wstring pattern = folded(path.substr(separator == path.npos ? 0 : separator + 1));
    search->names = matchingNames(search->folder.get(), pattern);
    if (!handOut(*search, *lpFindFileData))
    {
        errno = errorFileNotFound;
        return INVALID_HANDLE_VALUE;
    }
    const HANDLE handle = search.get();
    const std::lock_guard lock(searchesMutex);
    searches[handle] = std::move(search);
    return handle;
}

BOOL FileSystemService::FindNextFileW(HANDLE hFindFile, WIN32_FIND_DATAW* lpFindFileData)
{
    Search* search = nullptr;
    {
        const std::lock_guard lock(searchesMutex);
        const auto found = searches.find(hFindFile);
        search = found == searches.end() ? nullptr : found->second.get();
    }
    if (search == nullptr || lpFindFileData == nullptr)
    {
        errno = search == nullptr ? errorInvalidHandle : errorInvalidParameter;
        return 0;
    }
    if (!handOut(*search, *lpFindFileData))
    {
        errno = errorNoMoreFiles;
        return 0;
    }
    return 1;
}

BOOL FileSystemService::FindClose(HANDLE hFindFile)
{
    const std::lock_guard lock(searchesMutex);
    if (searches.erase(hFindFile) == 0)
    {
        errno = errorInvalidHandle;
        return 0;
    }
    return 1;
}

} // namespace kest::host
