// The path functions that work on strings, each against its rule written out plainly. Buffers are as small as
// the result allows, so that the address sanitizer sees every byte too many.
#include "fuzzing.h"
#include "kest/shell_paths.h"

#include <algorithm>
#include <cwctype>
#include <vector>

namespace
{

using kest::fuzz::require;

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

// The text in a buffer of exactly `room` characters.
std::vector<wchar_t> inBuffer(const std::wstring& text, std::size_t room)
{
    std::vector<wchar_t> buffer(text.begin(), text.end());
    buffer.resize(std::max(room, text.size()) + 1, L'\0');
    return buffer;
}

void checkRemoveFileSpec(const std::wstring& path)
{
    std::vector<wchar_t> buffer = inBuffer(path, 0);
    const std::size_t slash = lastSlash(path);
    const bool found = slash != std::wstring::npos;
    require(PathRemoveFileSpecW(buffer.data()) == (found ? 1 : 0), "PathRemoveFileSpecW's result");
    require(buffer.data() == path.substr(0, found ? slash : path.size()), "PathRemoveFileSpecW's text");
}

void checkFindFileName(const std::wstring& path)
{
    std::vector<wchar_t> buffer = inBuffer(path, 0);
    const std::size_t slash = lastSlash(path);
    require(PathFindFileNameW(buffer.data()) == buffer.data(), "PathFindFileNameW's result");
    require(buffer.data() == (slash == std::wstring::npos ? path : path.substr(path.size() - slash)),
            "PathFindFileNameW's text");
}

void checkAppend(const std::wstring& path, const std::wstring& more)
{
    const bool separated = path.empty() || path[path.size() - 1] == L'/';
    const std::wstring expected = path + (separated ? L"" : L"/") + more;
    std::vector<wchar_t> buffer = inBuffer(path, expected.size());
    require(PathAppendW(buffer.data(), more.c_str()) == 1, "PathAppendW's result");
    require(buffer.data() == expected, "PathAppendW's text");
}

void checkCombine(const std::wstring& directory, const std::wstring& file)
{
    const std::wstring expected = directory + L"/" + file;
    std::vector<wchar_t> buffer = inBuffer({}, expected.size());
    require(PathCombineW(buffer.data(), directory.c_str(), file.c_str()) == buffer.data(), "PathCombineW's result");
    require(buffer.data() == expected, "PathCombineW's text");
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
    checkAppend(first, second);
    checkCombine(first, second);
    checkMatch(data);
    return 0;
}
