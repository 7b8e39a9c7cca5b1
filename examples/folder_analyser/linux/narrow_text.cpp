#include "linux/narrow_text.h"

#include <climits>
#include <cstring>
#include <cwchar>

std::string narrowed(const std::wstring& text)
{
    std::string result;
    std::mbstate_t state = {};
    char bytes[MB_LEN_MAX];
    for (const wchar_t character : text)
    {
        const std::size_t length = std::wcrtomb(bytes, character, &state);
        if (length == static_cast<std::size_t>(-1))
        {
            state = {};
            result += '?';
            continue;
        }
        result.append(bytes, length);
    }
    return result;
}

std::wstring widened(const char* text)
{
    std::wstring result;
    std::mbstate_t state = {};
    for (const char* const end = text + std::strlen(text); text != end;)
    {
        wchar_t character = 0;
        const std::size_t length = std::mbrtowc(&character, text, static_cast<std::size_t>(end - text), &state);
        const bool bad = length == static_cast<std::size_t>(-1) || length == static_cast<std::size_t>(-2);
        result += bad ? L'\xFFFD' : character;
        text += bad ? 1 : length;
        if (bad)
        {
            state = {};
        }
    }
    return result;
}
