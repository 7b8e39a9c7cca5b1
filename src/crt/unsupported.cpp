// Functions that exist for linking only. std::terminate and not a rethrow: called from somebody's catch block, that
// would let the process live.
#include "kest/crt/strings.h"

#include <exception>

unsigned char* _mbsdec(const unsigned char*, const unsigned char*)
{
    std::terminate();
}

int _ismbclower(unsigned int)
{
    std::terminate();
}

int _ismbcupper(unsigned int)
{
    std::terminate();
}

int _ismbcdigit(unsigned int)
{
    std::terminate();
}

unsigned int _mbctolower(unsigned int)
{
    std::terminate();
}

unsigned int _mbctoupper(unsigned int)
{
    std::terminate();
}

unsigned char* _mbslwr(unsigned char*)
{
    std::terminate();
}

unsigned char* _mbsupr(unsigned char*)
{
    std::terminate();
}

int _mbsncmp(const unsigned char*, const unsigned char*, size_t)
{
    std::terminate();
}

size_t _mbsspn(const unsigned char*, const unsigned char*)
{
    std::terminate();
}

size_t _mbscspn(const unsigned char*, const unsigned char*)
{
    std::terminate();
}

unsigned char* _mbsrev(unsigned char*)
{
    std::terminate();
}

int _wcsncoll(const wchar_t*, const wchar_t*, size_t)
{
    std::terminate();
}

int _wcsnicoll(const wchar_t*, const wchar_t*, size_t)
{
    std::terminate();
}
