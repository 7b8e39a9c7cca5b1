// The path functions that work on strings, each against its rule written out plainly. Buffers are compared whole:
// what stands behind a result stays as it was.
#include "fuzzing.h"
#include "kest/kernel/files.h"
#include "kest/shell_paths.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <clocale>
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

// Stars, question marks and backslashes only: what stands in brackets is the C library's.
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
    const bool literal = *pattern == L'\\';
    pattern += literal ? 1 : 0;
    const auto lower = [](wchar_t character) { return std::towlower(static_cast<wint_t>(character)); };
    return ((*pattern == L'?' && !literal) || lower(*text) == lower(*pattern)) && matches(text + 1, pattern + 1);
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

// The bytes of a text's encoded form, those beyond ASCII as private characters, which have no case.
std::wstring encoded(const std::wstring& text)
{
    constexpr wchar_t firstByte = 0xF0000;
    std::wstring bytes;
    for (const wchar_t character : text)
    {
        char sequence[MB_LEN_MAX];
        const int length = std::wctomb(sequence, character);
        for (int index = 0; index < length; ++index)
        {
            const auto byte = static_cast<unsigned char>(sequence[index]);
            bytes += static_cast<wchar_t>(byte < 0x80 ? byte : firstByte + byte);
        }
    }
    return bytes;
}

// The characters in front whose encoded form has up to so many bytes together.
std::wstring cutToBytes(const std::wstring& text, std::size_t bytes)
{
    std::size_t end = 0;
    std::size_t used = 0;
    for (; end < text.size(); ++end)
    {
        used += encoded(text.substr(end, 1)).size();
        if (used > bytes)
        {
            break;
        }
    }
    return text.substr(0, end);
}

// What does not match by characters the C library tries by bytes.
bool matchesEncoded(const std::wstring& text, const std::wstring& pattern)
{
    return matches(text.c_str(), pattern.c_str()) || matches(encoded(text).c_str(), encoded(pattern).c_str());
}

// Lengths around and beyond those that are looked at, and characters of every kind. The C library takes exponential
// time for many stars: only some stay.
void checkLongMatch(FuzzedDataProvider& data)
{
    constexpr std::size_t longestPattern = 254;
    constexpr std::size_t longestFile = 4095;
    constexpr std::ptrdiff_t mostStars = 2;
    const std::wstring ordinary = L"aAb./!]\u00e9\u00c9\u6f22\U0001f600";
    std::wstring pattern = kest::fuzz::textOfRuns<wchar_t>(data, 300, ordinary + L"**???\\[");
    const bool hasStars = pattern.find(L'*') != std::wstring::npos;
    const std::wstring file = data.ConsumeBool()
                                  ? kest::fuzz::textOfRuns<wchar_t>(data, hasStars ? 320 : 1500, ordinary + L"[\\")
                                  : pattern + kest::fuzz::textOfRuns<wchar_t>(data, 3, ordinary);
    std::ptrdiff_t stars = 0;
    std::replace_if(
        pattern.begin(), pattern.end(), [&](wchar_t character) { return character == L'*' && ++stars > mostStars; },
        L'?');
    errno = 77;
    const BOOL result = PathMatchSpecW(file.c_str(), pattern.c_str());
    require(errno == 77, "PathMatchSpecW's last error");
    const std::wstring cutPattern = cutToBytes(pattern, longestPattern);
    if (cutPattern.find(L'[') == std::wstring::npos)
    {
        require(result == (matchesEncoded(cutToBytes(file, longestFile), cutPattern) ? 1 : 0),
                "PathMatchSpecW of long text");
    }
    require(result == 0 || result == 1, "PathMatchSpecW's result");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    [[maybe_unused]] static const char* const locale = std::setlocale(LC_ALL, "C.UTF-8");
    FuzzedDataProvider data(bytes, size);
    const std::wstring first = kest::fuzz::wideText(data, 48, L"///abc.\\");
    const std::wstring second = kest::fuzz::wideText(data, 48, L"///abc.\\");
    checkRemoveFileSpec(first);
    checkFindFileName(first);
    checkAppend(first, second, data.ConsumeIntegralInRange<std::size_t>(0, 96));
    checkCombine(first, second, data.ConsumeIntegralInRange<int>(0, 2));
    checkShortPath(first, data.ConsumeIntegralInRange<std::size_t>(0, 64));
    checkMatch(data);
    checkLongMatch(data);
    return 0;
}
