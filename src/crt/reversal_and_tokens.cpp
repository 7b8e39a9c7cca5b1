#include "kest/crt/strings.h"

#include <algorithm>
#include <cwchar>

constinit wchar_t* g_plast4wcstok = nullptr;

wchar_t* _wcsrev(wchar_t* string)
{
    std::reverse(string, string + std::wcslen(string));
    return string;
}

wchar_t* _wcstok(wchar_t* string, const wchar_t* delimiters)
{
    if (string != nullptr)
    {
        g_plast4wcstok = nullptr;
    }
    return std::wcstok(string, delimiters, &g_plast4wcstok);
}
