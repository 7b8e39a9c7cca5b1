#include "kest/crt/strings.h"
#include "kest/user_interface/strings.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdint>
#include <cwchar>
#include <cwctype>
#include <functional>

namespace
{

using LookUp = std::wint_t (*)(std::wint_t);

// One of the locale's mappings. Looking a character up costs more than everything else here, so what has been looked
// up is kept, each character in the slot of its low bits; code 0 maps to itself.
class Mapping
{
public:
    explicit Mapping(LookUp lookUp) : lookUp_(lookUp) {}

    wchar_t operator()(wchar_t character)
    {
        Entry& entry = seen_[static_cast<std::uint32_t>(character) % seen_.size()];
        if (entry.from != character)
        {
            entry = {character, static_cast<wchar_t>(lookUp_(static_cast<std::wint_t>(character)))};
        }
        return entry.to;
    }

private:
    struct Entry
    {
        wchar_t from;
        wchar_t to;
    };

    LookUp lookUp_;
    std::array<Entry, 64> seen_{};
};

wchar_t* mapString(wchar_t* string, LookUp lookUp)
{
    Mapping mapping(lookUp);
    for (wchar_t* p = string; *p != L'\0'; ++p)
    {
        *p = mapping(*p);
    }
    return string;
}

wchar_t* mapCharacters(wchar_t* string, std::size_t count, LookUp lookUp)
{
    Mapping mapping(lookUp);
    std::transform(string, string + count, string, std::ref(mapping));
    return string;
}

// The length counts as a signed 32-bit number.
wchar_t* mapMeasured(wchar_t* string, LookUp lookUp)
{
    const int length = static_cast<int>(std::wcslen(string));
    return length < 1 ? string : mapCharacters(string, static_cast<std::size_t>(length), lookUp);
}

// The C library's table has an entry for every signed char.
char mapByte(char byte, const __int32_t* table)
{
    return static_cast<char>(table[static_cast<signed char>(byte)]);
}

char* mapBytes(char* string, const __int32_t* table)
{
    for (char* p = string; *p != '\0'; ++p)
    {
        *p = mapByte(*p, table);
    }
    return string;
}

} // namespace

wchar_t* _wcsupr(wchar_t* string)
{
    return mapString(string, std::towupper);
}

wchar_t* _wcslwr(wchar_t* string)
{
    return mapString(string, std::towlower);
}

wchar_t* _wcsupr_s(wchar_t* string, size_t size)
{
    return mapCharacters(string, size, std::towupper);
}

LPWSTR CharUpperW(LPWSTR string)
{
    return mapMeasured(string, std::towupper);
}

LPWSTR CharLowerW(LPWSTR string)
{
    return mapMeasured(string, std::towlower);
}

char* _strupr(char* string)
{
    return mapBytes(string, *__ctype_toupper_loc());
}

char* _strlwr(char* string)
{
    return mapBytes(string, *__ctype_tolower_loc());
}

char* _strupr_s(char* string, int size)
{
    const __int32_t* const table = *__ctype_toupper_loc();
    for (int i = 0; i < size && string[i] != '\0'; ++i)
    {
        string[i] = mapByte(string[i], table);
    }
    return string;
}
