#include "kest/crt/strings.h"
#include "kest/kernel/strings.h"
#include "kest/shell_paths.h"
#include "support/last_error.h"

#include <cctype>
#include <cstddef>
#include <cstdint>
#include <cwchar>
#include <cwctype>
#include <memory>
#include <new>
#include <string_view>

namespace
{

// Codes are signed here, whatever wchar_t is: the narrow table has entries for -128 to 255.
std::int32_t orderOf(wchar_t character)
{
    const auto code = static_cast<std::int32_t>(character);
    return code >= -128 && code <= 255 ? (*__ctype_tolower_loc())[code] : code;
}

// Wraps, as codes far apart must not overflow.
int difference(std::int32_t a, std::int32_t b)
{
    return static_cast<int>(static_cast<std::uint32_t>(a) - static_cast<std::uint32_t>(b));
}

bool sameLetter(wchar_t a, wchar_t b)
{
    return a == b || std::towlower(static_cast<std::wint_t>(a)) == std::towlower(static_cast<std::wint_t>(b));
}

// From this length on a part is searched for in one pass. The C library compares it anew at every place where it might
// begin: faster for short parts, but for long ones up to the product of both lengths.
constexpr std::size_t longPart = 32;

bool isLong(const wchar_t* part)
{
    std::size_t length = 0;
    while (length < longPart && part[length] != L'\0')
    {
        ++length;
    }
    return length == longPart;
}

// Of each beginning of a text the length of the longest shorter beginning that also ends it; null without memory.
std::unique_ptr<std::size_t[]> bordersOf(std::wstring_view text)
{
    std::unique_ptr<std::size_t[]> borders(new (std::nothrow) std::size_t[text.size()]);
    if (borders == nullptr)
    {
        return nullptr;
    }
    borders[0] = 0;
    for (std::size_t index = 1, length = 0; index < text.size(); ++index)
    {
        while (length > 0 && text[index] != text[length])
        {
            length = borders[length - 1];
        }
        length += text[index] == text[length] ? 1 : 0;
        borders[index] = length;
    }
    return borders;
}

// Never steps back in the string: what has matched so far tells where the part might begin next.
const wchar_t* findInOnePass(const wchar_t* string, std::wstring_view part, const std::size_t* borders)
{
    std::size_t matched = 0;
    while (matched < part.size())
    {
        if (matched == 0)
        {
            string = std::wcschr(string, part[0]);
            if (string == nullptr)
            {
                return nullptr;
            }
        }
        if (*string == part[matched])
        {
            ++string;
            ++matched;
        }
        else if (*string == L'\0')
        {
            return nullptr;
        }
        else
        {
            matched = borders[matched - 1];
        }
    }
    return string - matched;
}

// Without memory the C library finds it as well. Never inlined, so that a short part costs no stack frame.
[[gnu::noinline]] const wchar_t* findLong(const wchar_t* string, const wchar_t* part)
{
    const kest::KeptLastError kept;
    const std::wstring_view whole = part;
    const std::unique_ptr<std::size_t[]> borders = bordersOf(whole);
    return borders == nullptr ? std::wcsstr(string, part) : findInOnePass(string, whole, borders.get());
}

} // namespace

int lstrcmpiW(LPCWSTR a, LPCWSTR b)
{
    for (; sameLetter(*a, *b); ++a, ++b)
    {
        if (*a == L'\0')
        {
            return 0;
        }
    }
    return difference(orderOf(*a), orderOf(*b));
}

int StrCmpI(PCWSTR a, PCWSTR b)
{
    return std::wcscmp(a, b);
}

PWSTR StrStrIW(PCWSTR string, PCWSTR part)
{
    return const_cast<PWSTR>(isLong(part) ? findLong(string, part) : std::wcsstr(string, part));
}

int _wcsicoll(const wchar_t* a, const wchar_t* b)
{
    return std::wcscoll(a, b);
}

size_t _wcscspn(const wchar_t* string, const wchar_t* set)
{
    return std::wcscspn(string, set);
}
