#include "program/settings.h"

#include <windows.h>

#include <cstdlib>

namespace
{

constexpr DWORD longestValue = 1024;

std::wstring readValue(const std::wstring& file, const wchar_t* section, const wchar_t* key, const wchar_t* otherwise)
{
    std::vector<wchar_t> value(longestValue);
    GetPrivateProfileStringW(section, key, otherwise, value.data(), longestValue, file.c_str());
    return value.data();
}

// The items between the semicolons, blanks around them removed.
std::vector<std::wstring> splitList(const std::wstring& text)
{
    std::vector<std::wstring> items;
    for (std::size_t start = 0; start < text.size();)
    {
        const std::size_t end = text.find(L';', start);
        const std::wstring part = text.substr(start, end == std::wstring::npos ? end : end - start);
        const std::size_t first = part.find_first_not_of(L' ');
        if (first != std::wstring::npos)
        {
            items.push_back(part.substr(first, part.find_last_not_of(L' ') - first + 1));
        }
        start = end == std::wstring::npos ? text.size() : end + 1;
    }
    return items;
}

} // namespace

Settings readSettings(const std::wstring& file)
{
    Settings settings;
    settings.plugins = splitList(readValue(file, L"Plugins", L"Load",
                                           L"FileTypes.dll;WordCount.dll;LineEndings.qlx;TextEncoding.dll;"
                                           L"LongLines.dll;LargestFiles.dll;NewestFiles.dll;Duplicates.dll"));
    settings.skippedFolders = splitList(readValue(file, L"Folders", L"Skip", L".git;.svn;build;node_modules"));
    const int topEntries = _wtoi(readValue(file, L"Report", L"TopEntries", L"10").c_str());
    settings.topEntries = topEntries > 0 ? static_cast<std::size_t>(topEntries) : 10;
    return settings;
}
