#include "kest/crt/strings.h"
#include "kest/kernel/strings.h"
#include "support/second_name.h"

#include <algorithm>
#include <cstring>
#include <cwchar>
#include <string>

namespace
{

constexpr int refused = -1;

std::size_t boundedLength(const wchar_t* text, std::size_t limit)
{
    return wcsnlen(text, limit);
}

std::size_t boundedLength(const char* text, std::size_t limit)
{
    return strnlen(text, limit);
}

// Moves, so that overlapping arguments come out whole.
template <class CharT>
void store(CharT* destination, const CharT* text, std::size_t length)
{
    std::char_traits<CharT>::move(destination, text, length);
    destination[length] = CharT();
}

std::size_t zeroIfNegative(int number)
{
    return static_cast<std::size_t>(std::max(number, 0));
}

template <class CharT>
CharT* copyTerminated(CharT* destination, const CharT* source, std::size_t size)
{
    if (size > 0)
    {
        store(destination, source, size == 1 ? 0 : boundedLength(source, size - 1));
    }
    return destination;
}

} // namespace

int wcsncpy_s(wchar_t* destination, int size, const wchar_t* source, unsigned long count)
{
    if (destination == nullptr || size < 1 || source == nullptr)
    {
        return refused;
    }
    const auto room = static_cast<std::size_t>(size);
    const std::size_t length = wcsnlen(source, std::min(count, room));
    if (count == 0 || length == room)
    {
        destination[0] = L'\0';
        return refused;
    }
    store(destination, source, length);
    return 0;
}

int wcscpy_s(wchar_t* destination, int size, const wchar_t* source)
{
    if (destination == nullptr || size < 1 || source == nullptr)
    {
        return refused;
    }
    const auto room = static_cast<std::size_t>(size);
    const std::size_t length = wcsnlen(source, room);
    if (length == room)
    {
        return wcsncpy_s(destination, size, source, room - 1);
    }
    store(destination, source, length);
    return 0;
}

int wcscpy_s(wchar_t* destination, const wchar_t* source)
{
    std::wcscpy(destination, source);
    return 0;
}

int wcsncpy_s(wchar_t* destination, const wchar_t* source, unsigned long count)
{
    return wcscpy_s(destination, static_cast<int>(count), source);
}

int wcsncat_s(wchar_t* destination, int size, const wchar_t* source, int count)
{
    if (source == nullptr)
    {
        return refused;
    }
    const std::size_t limit = std::min(zeroIfNegative(size), zeroIfNegative(count));
    if (limit > 0)
    {
        const std::size_t length = wcsnlen(source, limit);
        store(destination + std::wcslen(destination), source, length);
    }
    return 0;
}

char* strcpy_s(char* destination, int size, const char* source)
{
    return std::strncpy(destination, source, zeroIfNegative(size));
}

char* strcpy_s(char* destination, const char* source)
{
    return lstrcpyA(destination, source);
}

char* strncpy_s(char* destination, int size, const char* source, unsigned long)
{
    return std::strncpy(destination, source, zeroIfNegative(size));
}

char* strncpy_s(char* destination, const char* source, unsigned long count)
{
    return std::strncpy(destination, source, count);
}

int memcpy_s(void* destination, size_t size, const void* source, size_t count)
{
    if (count == 0)
    {
        return 0;
    }
    if (source == nullptr || count > size)
    {
        std::fill_n(static_cast<unsigned char*>(destination), size, static_cast<unsigned char>(0));
        return refused;
    }
    std::memmove(destination, source, count);
    return 0;
}

int wmemcpy_s(wchar_t* destination, size_t size, const wchar_t* source, size_t count)
{
    std::fill_n(destination, size, L'\0');
    if (source == nullptr)
    {
        return refused;
    }
    // With a size below count the string is copied whole or refused: one character more tells which.
    const std::size_t length = wcsnlen(source, count > size ? size + 1 : count);
    if (length > size)
    {
        return refused;
    }
    std::char_traits<wchar_t>::move(destination, source, length);
    return 0;
}

LPWSTR lstrcpynW(LPWSTR destination, LPCWSTR source, int size)
{
    return copyTerminated(destination, source, static_cast<unsigned int>(size));
}

LPSTR lstrcpynA(LPSTR destination, LPCSTR source, int size)
{
    return copyTerminated(destination, source, static_cast<unsigned int>(size));
}

KEST_SECOND_NAME(int encodedWcsncpyS(wchar_t*, int, const wchar_t*, unsigned long), "wcsncpy_s", "_Z9wcsncpy_sPwiPKwm");
KEST_SECOND_NAME(int encodedWcscpyS(wchar_t*, int, const wchar_t*), "wcscpy_s", "_Z8wcscpy_sPwiPKw");
KEST_SECOND_NAME(char* encodedStrcpyS(char*, int, const char*), "strcpy_s", "_Z8strcpy_sPciPKc");
KEST_SECOND_NAME(char* encodedStrncpyS(char*, int, const char*, unsigned long), "strncpy_s", "_Z9strncpy_sPciPKcm");
