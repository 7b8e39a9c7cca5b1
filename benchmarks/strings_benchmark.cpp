// String functions beside the C library's.
#include "families.h"
#include "kest/crt/strings.h"
#include "kest/kernel/locale.h"
#include "kest/kernel/strings.h"
#include "kest/shell_paths.h"
#include "kest/user_interface/strings.h"
#include "kest/user_interface/text_shaping.h"
#include "pairs.h"
#include "surroundings.h"

#include <cctype>
#include <cstring>
#include <cwchar>
#include <cwctype>
#include <string>
#include <utility>
#include <vector>

namespace kest::benchmarks
{

namespace
{

constexpr double target = 1.1;
constexpr long shortLength = 64;
constexpr long growthLength = 100;

wchar_t* mapped(wchar_t* text, std::wint_t (*mapping)(std::wint_t))
{
    for (wchar_t* p = text; *p != L'\0'; ++p)
    {
        *p = static_cast<wchar_t>(mapping(static_cast<std::wint_t>(*p)));
    }
    return text;
}

char* mapped(char* text, int (*mapping)(int))
{
    for (char* p = text; *p != '\0'; ++p)
    {
        *p = static_cast<char>(mapping(static_cast<unsigned char>(*p)));
    }
    return text;
}

// The C library does not reverse.
wchar_t* reversed(wchar_t* text)
{
    wchar_t* end = text + std::wcslen(text);
    for (wchar_t* begin = text; begin < end;)
    {
        std::swap(*begin++, *--end);
    }
    return text;
}

void addPairsOfLength(long length)
{
    const std::string suffix = ", " + std::to_string(length) + " characters";
    const std::wstring text = wideText(length);
    const std::string bytes = narrowText(length);
    const std::wstring room(text.size() + 1, L'\0');
    const int size = static_cast<int>(room.size());
    // The same but for its case.
    std::wstring lowered = text;
    mapped(lowered.data(), std::towlower);

    addPair(
        "strings/lstrlenW" + suffix, target, "wcslen", [=] { return lstrlenW(text.c_str()); },
        [=] { return std::wcslen(text.c_str()); });
    addPair(
        "strings/lstrcmpiW" + suffix, target, "wcscasecmp", [=] { return lstrcmpiW(text.c_str(), lowered.c_str()); },
        [=] { return wcscasecmp(text.c_str(), lowered.c_str()); });
    addPair(
        "strings/wcscpy_s" + suffix, target, "wcsnlen, wmemcpy",
        [=, out = room]() mutable { return wcscpy_s(out.data(), size, text.c_str()); },
        [=, out = room]() mutable
        { return std::wmemcpy(out.data(), text.c_str(), wcsnlen(text.c_str(), out.size()) + 1); });
    addPair(
        "strings/wcsncat_s" + suffix, target, "wcsncat",
        [=, out = room]() mutable
        {
            out[0] = L'\0';
            return wcsncat_s(out.data(), size, text.c_str(), size);
        },
        [=, out = room]() mutable
        {
            out[0] = L'\0';
            return std::wcsncat(out.data(), text.c_str(), out.size());
        });
    addPair(
        "strings/_wcsupr" + suffix, target, "towupper a character",
        [out = text]() mutable { return _wcsupr(out.data()); },
        [out = text]() mutable { return mapped(out.data(), std::towupper); });
    addPair(
        "strings/CharLowerW" + suffix, target, "towlower a character",
        [out = text]() mutable { return CharLowerW(out.data()); },
        [out = text]() mutable { return mapped(out.data(), std::towlower); });
    addPair(
        "strings/_strupr" + suffix, target, "toupper a character",
        [out = bytes]() mutable { return _strupr(out.data()); },
        [out = bytes]() mutable { return mapped(out.data(), std::toupper); });
    addPair(
        "strings/_wcsrev" + suffix, target, "wcslen and swaps", [out = text]() mutable { return _wcsrev(out.data()); },
        [out = text]() mutable { return reversed(out.data()); });
    addPair(
        "strings/StrStrIW" + suffix, target, "wcsstr", [=] { return StrStrIW(text.c_str(), L"nowhere"); },
        [=] { return std::wcsstr(text.c_str(), L"nowhere"); });
    addPair(
        "strings/_mbscmp" + suffix, target, "strcmp",
        [=, other = bytes]
        {
            return _mbscmp(reinterpret_cast<const unsigned char*>(bytes.c_str()),
                           reinterpret_cast<const unsigned char*>(other.c_str()));
        },
        [=, other = bytes] { return std::strcmp(bytes.c_str(), other.c_str()); });
}

// `function` gets a buffer, a text of the same length and the size of either.
template <class Function>
void growText(const std::string& name, Function function)
{
    addGrowth(name, "characters", growthLength,
              [=](long length)
              {
                  return [=, text = wideText(length), out = wideText(length)]() mutable
                  { return function(out.data(), text.c_str(), static_cast<int>(text.size()) + 1); };
              });
}

template <class Function>
void growBytes(const std::string& name, long size, Function function)
{
    addGrowth(name, "bytes", size,
              [=](long length)
              {
                  return [=, text = narrowText(length), out = narrowText(length)]() mutable
                  { return function(out.data(), text.c_str(), static_cast<int>(text.size()) + 1); };
              });
}

const unsigned char* multibyte(const char* text)
{
    return reinterpret_cast<const unsigned char*>(text);
}

void growWideTexts()
{
    using Out = wchar_t*;
    using In = const wchar_t*;
    growText("lstrlenW", [](Out, In text, int) { return lstrlenW(text); });
    addGrowth(
        "lstrcmpiW", "characters", growthLength,
        [](long length)
        {
            // The same but for its case.
            std::wstring lowered = wideText(length);
            mapped(lowered.data(), std::towlower);
            return [=, text = wideText(length)] { return lstrcmpiW(text.c_str(), lowered.c_str()); };
        },
        {}, [](int result) { return result == 0; });
    growText("CompareStringW", [](Out out, In text, int size) { return CompareStringW(0, 0, out, size, text, size); });
    growText("CompareStringW, ignoring case",
             [](Out out, In text, int size) { return CompareStringW(0, NORM_IGNORECASE, out, size, text, size); });
    growText("_wcsicoll", [](Out out, In text, int) { return _wcsicoll(out, text); });
    growText("wcscpy_s", [](Out out, In text, int size) { return wcscpy_s(out, size, text); });
    growText("wcscpy_s, refused", [](Out out, In text, int size) { return wcscpy_s(out, size - 1, text); });
    growText("wcsncpy_s",
             [](Out out, In text, int size) { return wcsncpy_s(out, size, text, static_cast<unsigned long>(size)); });
    growText("wcsncat_s",
             [](Out out, In text, int size)
             {
                 *out = L'\0';
                 return wcsncat_s(out, size, text, size);
             });
    growText("lstrcpyW", [](Out out, In text, int) { return lstrcpyW(out, text); });
    growText("lstrcatW",
             [](Out out, In text, int)
             {
                 *out = L'\0';
                 return lstrcatW(out, text);
             });
    growText("lstrcpynW", [](Out out, In text, int size) { return lstrcpynW(out, text, size); });
    growText("wmemcpy_s", [](Out out, In text, int size)
             { return wmemcpy_s(out, static_cast<size_t>(size), text, static_cast<size_t>(size)); });
    growText("_wcslwr", [](Out out, In, int) { return _wcslwr(out); });
    growText("_wcsupr_s", [](Out out, In, int size) { return _wcsupr_s(out, static_cast<size_t>(size)); });
    growText("CharUpperW", [](Out out, In, int) { return CharUpperW(out); });
    growText("_wcsrev", [](Out out, In, int) { return _wcsrev(out); });
    growText("StrStrIW", [](Out, In text, int) { return StrStrIW(text, L"nowhere"); });
    addGrowth("StrStrIW, a part half as long that nearly occurs everywhere", "characters", growthLength,
              [](long length)
              {
                  const auto half = static_cast<std::size_t>(length / 2);
                  return [text = std::wstring(2 * half, L'a'), part = std::wstring(half, L'a') + L'b']
                  { return StrStrIW(text.c_str(), part.c_str()); };
              });
    growText("StrCmpI", [](Out, In text, int) { return StrCmpI(text, text); });
    growText("_wcscspn", [](Out, In text, int) { return _wcscspn(text, L"#?"); });
    growText("_wcstok, all tokens",
             [](Out out, In text, int)
             {
                 std::wcscpy(out, text);
                 long tokens = 0;
                 for (wchar_t* token = _wcstok(out, L" "); token != nullptr; token = _wcstok(nullptr, L" "))
                 {
                     ++tokens;
                 }
                 return tokens;
             });
    // Up to a Mi character.
    addGrowth("_wcsupr", "characters", (1 << 20) / 100,
              [](long length) { return [out = wideText(length)]() mutable { return _wcsupr(out.data()); }; });
    addGrowth("GetStringTypeExW", "characters", growthLength,
              [](long length)
              {
                  return
                      [text = wideText(length), types = std::vector<WORD>(static_cast<std::size_t>(length))]() mutable
                  { return GetStringTypeExW(0, CT_CTYPE1, text.c_str(), static_cast<int>(text.size()), types.data()); };
              });
    addGrowth("ScriptLayout", "runs", growthLength,
              [](long runs)
              {
                  const std::vector<int> places(static_cast<std::size_t>(runs));
                  return [runs = static_cast<int>(runs), visual = places, logical = places]() mutable
                  { return ScriptLayout(runs, nullptr, visual.data(), logical.data()); };
              });
}

void growNarrowTexts()
{
    using Out = char*;
    using In = const char*;
    growBytes("lstrlenA", growthLength, [](Out, In text, int) { return lstrlenA(text); });
    growBytes("lstrcpyA", growthLength, [](Out out, In text, int) { return lstrcpyA(out, text); });
    growBytes("lstrcatA", growthLength,
              [](Out out, In text, int)
              {
                  *out = '\0';
                  return lstrcatA(out, text);
              });
    growBytes("lstrcpynA", growthLength, [](Out out, In text, int size) { return lstrcpynA(out, text, size); });
    growBytes("strcpy_s", growthLength, [](Out out, In text, int size) { return strcpy_s(out, size, text); });
    growBytes("strncpy_s", growthLength, [](Out out, In text, int size) { return strncpy_s(out, size, text, 1); });
    growBytes("memcpy_s", growthLength,
              [](Out out, In text, int size)
              { return memcpy_s(out, static_cast<size_t>(size), text, static_cast<size_t>(size)); });
    // Both texts can have 1023 bytes.
    growBytes("wcsncat of narrow texts", 10,
              [](Out out, In text, int size) { return wcsncat(out, text, static_cast<unsigned long>(size)); });
    growBytes("_strupr", growthLength, [](Out out, In, int) { return _strupr(out); });
    growBytes("_strupr_s", growthLength, [](Out out, In, int size) { return _strupr_s(out, size); });
    growBytes("_mbslen", growthLength, [](Out, In text, int) { return _mbslen(multibyte(text)); });
    growBytes("_mbscmp", growthLength, [](Out out, In text, int) { return _mbscmp(multibyte(out), multibyte(text)); });
    growBytes("_mbsicmp", growthLength,
              [](Out out, In text, int) { return _mbsicmp(multibyte(out), multibyte(text)); });
    growBytes("_mbsnicmp", growthLength,
              [](Out out, In text, int size)
              { return _mbsnicmp(multibyte(out), multibyte(text), static_cast<size_t>(size)); });
    growBytes("_mbsncoll", growthLength,
              [](Out out, In text, int size)
              { return _mbsncoll(multibyte(out), multibyte(text), static_cast<size_t>(size)); });
    growBytes("_mbsstr", growthLength,
              [](Out, In text, int) { return _mbsstr(multibyte(text), multibyte("nowhere")); });
}

} // namespace

void addStrings()
{
    addPairsOfLength(shortLength);
    addPairsOfLength(shortLength * 64);
    const std::wstring greek = greekText(shortLength);
    std::wstring loweredGreek = greek;
    mapped(loweredGreek.data(), std::towlower);
    addPair(
        "strings/_wcsupr, 64 Greek characters", target, "towupper a character",
        [out = greek]() mutable { return _wcsupr(out.data()); },
        [out = greek]() mutable { return mapped(out.data(), std::towupper); });
    addPair(
        "strings/lstrcmpiW, 64 Greek characters", target, "wcscasecmp",
        [=] { return lstrcmpiW(greek.c_str(), loweredGreek.c_str()); },
        [=] { return wcscasecmp(greek.c_str(), loweredGreek.c_str()); });

    growWideTexts();
    growNarrowTexts();
}

} // namespace kest::benchmarks
