// The path functions that work on strings, each against its rule written out plainly. Buffers are compared whole:
// what stands behind a result stays as it was.
#include "fuzzing.h"
#include "kest/kernel/files.h"
#include "kest/shell_paths.h"

#include <algorithm>
#include <cwctype>

namespace
{

using kest::fuzz::require;

constexpr wchar_t sentinel = L'\x5A';

// The text with its terminator, and sentinels behind it up to `size`.
std::wstring buffered(const std::wstring& text, std::size_t size)
{
    std::wstring buffer = text + L'\0';
    buffer.resize(std::max(size, buffer.size()), sentinel);
    return buffer;
}

// The buffer once `text` and a terminator have been written over its beginning.
std::wstring overwritten(std::wstring buffer, const std::wstring& text)
{
    return buffer.replace(0, text.size() + 1, text + L'\0');
}

std::size_t lastSlash(const std::wstring& path)
{
    for (std::size_t position = path.size(); position > 0; --position)
    {
        if (path[position - 1] == L'/')
        {
            return position - 1;
        }
    }
    return std::wstring::npos;
}

void checkRemoveFileSpec(const std::wstring& path)
{
    std::wstring buffer = buffered(path, path.size() + 3);
    const std::size_t slash = lastSlash(path);
    const bool found = slash != std::wstring::npos;
    const std::wstring expected = found ? overwritten(buffer, path.substr(0, slash)) : buffer;
    require(PathRemoveFileSpecW(buffer.data()) == (found ? 1 : 0), "PathRemoveFileSpecW's result");
    require(buffer == expected, "PathRemoveFileSpecW's text");
}

void checkFindFileName(const std::wstring& path)
{
    std::wstring buffer = buffered(path, path.size() + 3);
    const std::size_t slash = lastSlash(path);
    const std::wstring expected =
        slash == std::wstring::npos ? buffer : overwritten(buffer, path.substr(path.size() - slash));
    require(PathFindFileNameW(buffer.data()) == buffer.data(), "PathFindFileNameW's result");
    require(buffer == expected, "PathFindFileNameW's text");
}

// What is appended may be the end of the path itself.
void checkAppend(const std::wstring& path, const std::wstring& more, std::size_t ownEnd)
{
    const bool separated = path.empty() || path[path.size() - 1] == L'/';
    const bool own = ownEnd <= path.size();
    const std::wstring appended = own ? path.substr(ownEnd) : more;
    const std::wstring text = path + (separated ? L"" : L"/") + appended;
    std::wstring buffer = buffered(path, text.size() + 1);
    const std::wstring expected = overwritten(buffer, text);
    require(PathAppendW(buffer.data(), own ? buffer.data() + ownEnd : more.c_str()) == 1, "PathAppendW's result");
    require(buffer == expected, "PathAppendW's text");
}

// The destination may be the directory or the file.
void checkCombine(const std::wstring& directory, const std::wstring& file, int inPlace)
{
    const std::wstring text = directory + L"/" + file;
    std::wstring buffer = buffered(inPlace == 1 ? directory : inPlace == 2 ? file : L"", text.size() + 1);
    const std::wstring expected = overwritten(buffer, text);
    require(PathCombineW(buffer.data(), inPlace == 1 ? buffer.data() : directory.c_str(),
                         inPlace == 2 ? buffer.data() : file.c_str()) == buffer.data(),
            "PathCombineW's result");
    require(buffer == expected, "PathCombineW's text");
}

void checkShortPath(const std::wstring& path, std::size_t size)
{
    std::wstring buffer = buffered(L"", size + 3);
    std::wstring expected = buffer;
    std::size_t result = path.size() + 1;
    if (size > 0)
    {
        std::wstring kept = path.substr(0, size - 1);
        kept.resize(size, L'\0');
        expected.replace(0, size, kept);
        result = size - 1;
    }
    require(GetShortPathNameW(path.c_str(), buffer.data(), static_cast<DWORD>(size)) == result,
            "GetShortPathNameW's result");
    require(buffer == expected, "GetShortPathNameW's text");
}

// Stars and question marks only: what else patterns may hold is the C library's.
bool matches(const wchar_t* text, const wchar_t* pattern)
{
    if (*pattern == L'*')
    {
        return matches(text, pattern + 1) || (*text != L'\0' && matches(text + 1, pattern));
    }
    if (*text == L'\0' || *pattern == L'\0')
    {
        return *text == *pattern;
    }
    const auto lower = [](wchar_t character) { return std::towlower(static_cast<wint_t>(character)); };
    return (*pattern == L'?' || lower(*text) == lower(*pattern)) && matches(text + 1, pattern + 1);
}

void checkMatch(FuzzedDataProvider& data)
{
    std::wstring texts[2];
    for (std::wstring& text : texts)
    {
        text.resize(data.ConsumeIntegralInRange<std::size_t>(0, 12));
        for (wchar_t& character : text)
        {
            character = L"aAbB./*?"[data.ConsumeIntegralInRange<std::size_t>(0, &text == texts ? 5 : 7)];
        }
    }
    require(PathMatchSpecW(texts[0].c_str(), texts[1].c_str()) == (matches(texts[0].c_str(), texts[1].c_str()) ? 1 : 0),
            "PathMatchSpecW");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    FuzzedDataProvider data(bytes, size);
    const std::wstring first = kest::fuzz::wideText(data, 48, L"///abc.\\");
    const std::wstring second = kest::fuzz::wideText(data, 48, L"///abc.\\");
    checkRemoveFileSpec(first);
    checkFindFileName(first);
    checkAppend(first, second, data.ConsumeIntegralInRange<std::size_t>(0, 96));
    checkCombine(first, second, data.ConsumeIntegralInRange<int>(0, 2));
    checkShortPath(first, data.ConsumeIntegralInRange<std::size_t>(0, 64));
    checkMatch(data);
    return 0;
}
