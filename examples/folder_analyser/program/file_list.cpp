#include "program/file_list.h"

#include <shlwapi.h>

#include <algorithm>

namespace
{

std::wstring joined(const std::wstring& folder, const std::wstring& name)
{
    const bool needsSeparator = !folder.empty() && folder.back() != L'/' && folder.back() != L'\\';
    return folder + (needsSeparator ? L"/" : L"") + name;
}

std::wstring folderOf(const std::wstring& path)
{
    const std::size_t separator = path.find_last_of(L"/\\");
    return separator == std::wstring::npos ? L"" : path.substr(0, separator + 1);
}

bool isFolder(const WIN32_FIND_DATAW& entry)
{
    return (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

// All that the pattern finds, in the order of the names; false when it finds nothing or the folder cannot be read.
bool find(const std::wstring& pattern, std::vector<WIN32_FIND_DATAW>& found)
{
    WIN32_FIND_DATAW entry;
    const HANDLE search = FindFirstFileW(pattern.c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE)
    {
        return false;
    }
    do
    {
        const std::wstring name = entry.cFileName;
        if (name != L"." && name != L"..")
        {
            found.push_back(entry);
        }
    } while (FindNextFileW(search, &entry));
    FindClose(search);
    std::sort(found.begin(), found.end(),
              [](const WIN32_FIND_DATAW& left, const WIN32_FIND_DATAW& right)
              { return std::wstring(left.cFileName) < right.cFileName; });
    return true;
}

class Lister
{
public:
    Lister(const std::vector<std::wstring>& skippedFolders, Problems& problems)
        : skippedFolders_(skippedFolders), problems_(problems)
    {
    }

    // `shown` is what stands before the names in the report.
    void addPath(const std::wstring& path, const std::wstring& shown)
    {
        std::vector<WIN32_FIND_DATAW> found;
        if (find(joined(path, L"*"), found))
        {
            addFolder(found, path, shown);
            return;
        }
        if (!find(path, found))
        {
            problems_.add(L"\"" + path + L"\" is not there");
        }
        for (const WIN32_FIND_DATAW& entry : found)
        {
            const std::wstring name = folderOf(path) + entry.cFileName;
            if (isFolder(entry))
            {
                problems_.add(L"folder \"" + name + L"\" cannot be read");
            }
            else if (entry.dwFileAttributes & FILE_ATTRIBUTE_DEVICE)
            {
                problems_.add(L"\"" + name + L"\" is no file");
            }
            else
            {
                list_.files.push_back({name, name, entry.ftLastWriteTime});
            }
        }
    }

    FileList take() { return std::move(list_); }

private:
    void addFolder(const std::vector<WIN32_FIND_DATAW>& entries, const std::wstring& folder, const std::wstring& shown)
    {
        ++list_.folders;
        for (const WIN32_FIND_DATAW& entry : entries)
        {
            if (entry.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT)
            {
                ++list_.links;
            }
            else if (entry.dwFileAttributes & FILE_ATTRIBUTE_DEVICE)
            {
                ++list_.devices;
            }
            else if (isFolder(entry))
            {
                enter(entry.cFileName, folder, shown);
            }
            else
            {
                list_.files.push_back(
                    {joined(folder, entry.cFileName), joined(shown, entry.cFileName), entry.ftLastWriteTime});
            }
        }
    }

    void enter(const wchar_t* name, const std::wstring& folder, const std::wstring& shown)
    {
        const auto matches = [&](const std::wstring& pattern)
        { return PathMatchSpecW(name, pattern.c_str()) != FALSE; };
        if (std::any_of(skippedFolders_.begin(), skippedFolders_.end(), matches))
        {
            return;
        }
        std::vector<WIN32_FIND_DATAW> found;
        if (find(joined(joined(folder, name), L"*"), found))
        {
            addFolder(found, joined(folder, name), joined(shown, name));
        }
        else
        {
            problems_.add(L"folder \"" + joined(shown, name) + L"\" cannot be read");
        }
    }

    const std::vector<std::wstring>& skippedFolders_;
    Problems& problems_;
    FileList list_;
};

} // namespace

FileList listFiles(const std::vector<std::wstring>& paths, const std::vector<std::wstring>& skippedFolders,
                   Problems& problems)
{
    Lister lister(skippedFolders, problems);
    for (const std::wstring& path : paths)
    {
        // One folder needs no naming before each of its files.
        lister.addPath(path, paths.size() == 1 ? L"" : path);
    }
    return lister.take();
}
