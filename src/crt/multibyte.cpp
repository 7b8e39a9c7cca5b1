// Multibyte strings are byte strings: no encoding has lead bytes here.
#include "kest/crt/strings.h"

#include <cctype>
#include <cstring>
#include <strings.h>

namespace
{

const char* bytes(const unsigned char* string)
{
    return reinterpret_cast<const char*>(string);
}

} // namespace

unsigned char* _mbsinc(const unsigned char* p)
{
    return const_cast<unsigned char*>(p + 1);
}

unsigned char* _mbsninc(const unsigned char* p, size_t n)
{
    return const_cast<unsigned char*>(p + n);
}

int _ismbblead(unsigned int)
{
    return 0;
}

int _ismbbtrail(unsigned int)
{
    return 0;
}

int _ismbcspace(unsigned int c)
{
    // The C library's table has entries for -128 to 255.
    const auto index = static_cast<int>(c);
    return index >= -128 && index <= 255 ? (*__ctype_b_loc())[index] & _ISspace : 0;
}

size_t _mbslen(const unsigned char* string)
{
    return std::strlen(bytes(string));
}

int _mbscmp(const unsigned char* a, const unsigned char* b)
{
    return std::strcmp(bytes(a), bytes(b));
}

int _mbsicmp(const unsigned char* a, const unsigned char* b)
{
    return strcasecmp(bytes(a), bytes(b));
}

int _mbsnicmp(const unsigned char* a, const unsigned char* b, size_t count)
{
    return strncasecmp(bytes(a), bytes(b), count);
}

int _mbscoll(const unsigned char* a, const unsigned char* b)
{
    return std::strcmp(bytes(a), bytes(b));
}

int _mbsicoll(const unsigned char* a, const unsigned char* b)
{
    return strcasecmp(bytes(a), bytes(b));
}

int _mbsncoll(const unsigned char* a, const unsigned char* b, size_t count)
{
    return std::strncmp(bytes(a), bytes(b), count);
}

int _mbsnicoll(const unsigned char* a, const unsigned char* b, size_t count)
{
    return strncasecmp(bytes(a), bytes(b), count);
}

unsigned char* _mbsstr(const unsigned char* string, const unsigned char* part)
{
    return reinterpret_cast<unsigned char*>(const_cast<char*>(std::strstr(bytes(string), bytes(part))));
}
