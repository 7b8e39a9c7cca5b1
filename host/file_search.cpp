// The find operations of the file system service.
#include "common/windows_errors.h"
#include "file_status.h"
#include "folders.h"
#include "kest/host/file_system_service.h"
#include "out_of_memory.h"
#include "path_resolution.h"
#include "unicode.h"
#include "wildcard.h"

#include <algorithm>
#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <kest_kit/system_errors.h>
#include <memory>
#include <mutex>
#include <new>
#include <string>
#include <string_view>
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

// The entries found, in order, and how far they have been handed out. Their texts stand behind one another in one
// piece of memory: a folder may have a great many.
struct Search
{
    struct Entry
    {
        std::size_t key;  // where the folded name begins, in UTF-8; it ends where the name begins
        std::size_t name; // where the name begins, with a terminator
        std::size_t length;
    };

    Folder folder;
    std::string texts;
    std::vector<Entry> entries;
    std::size_t next = 0;

    std::string_view key(const Entry& entry) const
    {
        return std::string_view(texts).substr(entry.key, entry.name - entry.key);
    }
    std::string_view name(const Entry& entry) const { return std::string_view(texts).substr(entry.name, entry.length); }
};

std::mutex searchesMutex;
std::unordered_map<HANDLE, std::unique_ptr<Search>> searches;

bool isAscii(std::string_view text)
{
    return std::all_of(text.begin(), text.end(),
                       [](char character) { return static_cast<unsigned char>(character) < 0x80; });
}

void appendFolded(std::string& texts, std::string_view name)
{
    if (!isAscii(name))
    {
        texts += toUtf8(folded(fromUtf8(name)));
        return;
    }
    for (const char character : name)
    {
        texts += character >= 'a' && character <= 'z' ? static_cast<char>(character - ('a' - 'A')) : character;
    }
}

// Names are ordered by their folded characters; UTF-8 keeps that order among its bytes.
void findEntries(Search& search, const std::wstring& pattern)
{
    const bool all = matchesEverything(pattern);
    while (const dirent* const entry = readdir(search.folder.get()))
    {
        const std::string_view name = entry->d_name;
        if (all || matchesWildcard(folded(fromUtf8(name)), pattern))
        {
            const std::size_t key = search.texts.size();
            appendFolded(search.texts, name);
            search.entries.push_back({key, search.texts.size(), name.size()});
            search.texts.append(name).push_back('\0');
        }
    }
    std::sort(search.entries.begin(), search.entries.end(),
              [&search](const Search::Entry& a, const Search::Entry& b)
              {
                  const int order = search.key(a).compare(search.key(b));
                  return order != 0 ? order < 0 : search.name(a) < search.name(b);
              });
}

void storeName(std::string_view name, wchar_t (&out)[MAX_PATH])
{
    if (name.size() < MAX_PATH && isAscii(name))
    {
        std::copy(name.begin(), name.end(), out);
        return;
    }
    fromUtf8(name).copy(out, MAX_PATH - 1);
}

void describe(std::string_view name, const struct stat& status, bool isLink, WIN32_FIND_DATAW& data)
{
    data = {};
    data.dwFileAttributes = attributesOf(name, status, isLink);
    data.ftCreationTime = fileTime(status.st_ctime);
    data.ftLastAccessTime = fileTime(status.st_atime);
    data.ftLastWriteTime = fileTime(status.st_mtime);
    data.nFileSizeHigh = static_cast<DWORD>(static_cast<std::uint64_t>(status.st_size) >> 32);
    data.nFileSizeLow = static_cast<DWORD>(status.st_size);
    storeName(name, data.cFileName);
}

// Hands out the next entry that still exists.
bool handOut(Search& search, WIN32_FIND_DATAW& data)
{
    for (; search.next < search.entries.size(); ++search.next)
    {
        const std::string_view name = search.name(search.entries[search.next]);
        struct stat status;
        bool isLink = false;
        if (statusAt(dirfd(search.folder.get()), name.data(), status, isLink))
        {
            describe(name, status, isLink, data);
            // Only now: without memory the entry is not lost, but the next call's.
            ++search.next;
            return true;
        }
    }
    return false;
}

} // namespace

HANDLE FileSystemService::FindFirstFileW(const wchar_t* lpFileName, WIN32_FIND_DATAW* lpFindFileData)
try
{
    if (lpFileName == nullptr || lpFindFileData == nullptr)
    {
        errno = ERROR_INVALID_PARAMETER;
        return INVALID_HANDLE_VALUE;
    }
    const std::wstring_view path = lpFileName;
    const std::size_t separator = path.find_last_of(L"/\\");
    const std::wstring_view folderPath = separator == path.npos ? L"." : path.substr(0, separator + 1);
    auto search = std::make_unique<Search>();
    const std::optional<std::string> folderName = existingPath(folderPath);
    search->folder.reset(folderName ? opendir(folderName->c_str()) : nullptr);
    if (search->folder == nullptr)
    {
        errno = errno == ENOENT || errno == ENOTDIR ? ERROR_PATH_NOT_FOUND : common::windowsErrorOf(errno);
        return INVALID_HANDLE_VALUE;
    }
    const std::wstring pattern = folded(path.substr(separator == path.npos ? 0 : separator + 1));
    findEntries(*search, pattern);
    if (!handOut(*search, *lpFindFileData))
    {
        errno = ERROR_FILE_NOT_FOUND;
        return INVALID_HANDLE_VALUE;
    }
    const HANDLE handle = search.get();
    const std::lock_guard lock(searchesMutex);
    searches[handle] = std::move(search);
    return handle;
}
catch (const std::bad_alloc&)
{
    return withoutMemory(INVALID_HANDLE_VALUE);
}

BOOL FileSystemService::FindNextFileW(HANDLE hFindFile, WIN32_FIND_DATAW* lpFindFileData)
try
{
    Search* search = nullptr;
    {
        const std::lock_guard lock(searchesMutex);
        const auto found = searches.find(hFindFile);
        search = found == searches.end() ? nullptr : found->second.get();
    }
    if (search == nullptr || lpFindFileData == nullptr)
    {
        errno = search == nullptr ? ERROR_INVALID_HANDLE : ERROR_INVALID_PARAMETER;
        return 0;
    }
    if (!handOut(*search, *lpFindFileData))
    {
        errno = ERROR_NO_MORE_FILES;
        return 0;
    }
    return 1;
}
catch (const std::bad_alloc&)
{
    return withoutMemory(0);
}

BOOL FileSystemService::FindClose(HANDLE hFindFile)
{
    const std::lock_guard lock(searchesMutex);
    if (searches.erase(hFindFile) == 0)
    {
        errno = ERROR_INVALID_HANDLE;
        return 0;
    }
    return 1;
}

} // namespace kest::host
