// Copies, appends, lengths and steps that go straight to the C library.
#include "kest/crt/strings.h"
#include "kest/kernel/strings.h"

#include <cstring>
#include <cwchar>

LPWSTR lstrcpyW(LPWSTR destination, LPCWSTR source)
{
    return std::wcscpy(destination, source);
}

LPSTR lstrcpyA(LPSTR destination, LPCSTR source)
{
    return std::strcpy(destination, source);
}

LPWSTR lstrcatW(LPWSTR destination, LPCWSTR source)
{
    return std::wcscat(destination, source);
}

LPSTR lstrcatA(LPSTR destination, LPCSTR source)
{
    return std::strcat(destination, source);
}

int lstrlenW(LPCWSTR string)
{
    return static_cast<int>(std::wcslen(string));
}

int lstrlenA(LPCSTR string)
{
    return static_cast<int>(std::strlen(string));
}

wchar_t* _wcsinc(const wchar_t* p)
{
    return const_cast<wchar_t*>(p + 1);
}

wchar_t* _wcsninc(const wchar_t* p, size_t n)
{
    return const_cast<wchar_t*>(p + n);
}

unsigned int _wcsnextc(const wchar_t* p)
{
    return static_cast<unsigned int>(p[1]);
}
