#include "kest/shell_paths.h"
#include "support/last_error.h"
#include "support/out_of_memory.h"
#include "support/text.h"

#include <cstddef>
#include <cwchar>
#include <fnmatch.h>
#include <string>
#include <string_view>

namespace
{

constexpr wchar_t separator = L'/';

// The library's formatted output gives up beyond this length and leaves its buffer alone; results of path
// functions keep the same limit.
constexpr std::size_t longestResult = 524287;

static_assert(FNM_CASEFOLD == 16);

// Bytes of a converted pattern, its terminator included.
constexpr std::size_t patternSize = 255;

void writeResult(wchar_t* buffer, std::wstring_view text)
{
    if (text.size() <= longestResult)
    {
        std::wmemmove(buffer, text.data(), text.size());
        buffer[text.size()] = L'\0';
    }
}

} // namespace

BOOL PathRemoveFileSpecW(wchar_t* path)
{
    wchar_t* const last = path != nullptr ? std::wcsrchr(path, separator) : nullptr;
    if (last == nullptr)
    {
        return 0;
    }
    writeResult(path, {path, static_cast<std::size_t>(last - path)});
    return 1;
}

wchar_t* PathFindFileNameW(wchar_t* path)
{
    if (path == nullptr)
    {
        return nullptr;
    }
    const std::wstring_view text = path;
    const std::size_t last = text.rfind(separator);
    if (last != std::wstring_view::npos)
    {
        // The separator's position is taken as the length of what stays.
        writeResult(path, text.substr(text.size() - last));
    }
    return path;
}

BOOL PathAppendW(wchar_t* path, const wchar_t* more)
{
    if (path == nullptr || more == nullptr)
    {
        return 0;
    }
    const std::wstring_view text = path;
    const std::wstring_view added = more;
    const bool separated = text.empty() || text.back() == separator;
    const std::size_t place = text.size() + (separated ? 0 : 1);
    if (place + added.size() <= longestResult)
    {
        // In this order, as more may be a part of the path.
        std::wmemmove(path + place, added.data(), added.size());
        if (!separated)
        {
            path[text.size()] = separator;
        }
        path[place + added.size()] = L'\0';
    }
    return 1;
}

wchar_t* PathCombineW(wchar_t* destination, const wchar_t* directory, const wchar_t* file)
{
    if (destination == nullptr || directory == nullptr || file == nullptr)
    {
        return nullptr;
    }
    return kest::answerWithoutMemory(static_cast<wchar_t*>(nullptr),
                                     [=]
                                     {
                                         // Composed apart from the destination, which may be one of the sources.
                                         writeResult(destination, std::wstring(directory).append(L"/").append(file));
                                         return destination;
                                     });
}

BOOL PathMatchSpecW(const wchar_t* file, const wchar_t* pattern)
{
    const kest::KeptLastError keep;
    const kest::NarrowText narrowFile(file);
    const kest::FixedNarrowText<patternSize> narrowPattern(pattern);
    return fnmatch(narrowPattern.c_str(), narrowFile.c_str(), FNM_CASEFOLD) == 0;
}
