#include "kest/crt/strings.h"
#include "kest/kernel/strings.h"
#include "kest/shell_paths.h"

#include <cctype>
#include <cstdint>
#include <cwchar>
#include <cwctype>

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
    return const_cast<PWSTR>(std::wcsstr(string, part));
}

int _wcsicoll(const wchar_t* a, const wchar_t* b)
{
    return std::wcscoll(a, b);
}

size_t _wcscspn(const wchar_t* string, const wchar_t* set)
{
    return std::wcscspn(string, set);
}
