// Each function has the signature that modules built elsewhere call it by.
#include "abi/signature.h"
#include "kest/crt/strings.h"

#include <type_traits>

using namespace kest::test;

static_assert(hasSignature<int(wchar_t*, int, const wchar_t*), wcscpy_s>);
static_assert(hasSignature<int(wchar_t*, const wchar_t*), wcscpy_s>);
static_assert(hasSignature<int(wchar_t*, int, const wchar_t*, unsigned long), wcsncpy_s>);
static_assert(hasSignature<int(wchar_t*, const wchar_t*, unsigned long), wcsncpy_s>);
static_assert(hasSignature<int(wchar_t*, int, const wchar_t*, int), wcsncat_s>);
static_assert(hasSignature<char*(char*, int, const char*), strcpy_s>);
static_assert(hasSignature<char*(char*, const char*), strcpy_s>);
static_assert(hasSignature<char*(char*, int, const char*, unsigned long), strncpy_s>);
static_assert(hasSignature<char*(char*, const char*, unsigned long), strncpy_s>);
static_assert(hasSignature<int(void*, unsigned long, const void*, unsigned long), memcpy_s>);
static_assert(hasSignature<int(wchar_t*, unsigned long, const wchar_t*, unsigned long), wmemcpy_s>);
static_assert(hasSignature<wchar_t*(char*, const char*, unsigned long), wcsncat>);
static_assert(hasSignature<wchar_t*(wchar_t*), _wcsupr>);
static_assert(hasSignature<wchar_t*(wchar_t*), _wcslwr>);
static_assert(hasSignature<wchar_t*(wchar_t*), _wcsrev>);
static_assert(hasSignature<wchar_t*(wchar_t*, unsigned long), _wcsupr_s>);
static_assert(hasSignature<char*(char*), _strupr>);
static_assert(hasSignature<char*(char*), _strlwr>);
static_assert(hasSignature<char*(char*, int), _strupr_s>);
static_assert(hasSignature<wchar_t*(wchar_t*, const wchar_t*), _wcstok>);
static_assert(hasSignature<wchar_t*(const wchar_t*), _wcsinc>);
static_assert(hasSignature<wchar_t*(const wchar_t*, unsigned long), _wcsninc>);
static_assert(hasSignature<unsigned int(const wchar_t*), _wcsnextc>);
static_assert(hasSignature<int(const wchar_t*, const wchar_t*), _wcsicoll>);
static_assert(hasSignature<unsigned long(const wchar_t*, const wchar_t*), _wcscspn>);
static_assert(hasSignature<unsigned char*(const unsigned char*), _mbsinc>);
static_assert(hasSignature<unsigned char*(const unsigned char*, unsigned long), _mbsninc>);
static_assert(hasSignature<int(unsigned int), _ismbblead>);
static_assert(hasSignature<int(unsigned int), _ismbbtrail>);
static_assert(hasSignature<int(unsigned int), _ismbcspace>);
static_assert(hasSignature<int(unsigned int), _ismbclower>);
static_assert(hasSignature<int(unsigned int), _ismbcupper>);
static_assert(hasSignature<int(unsigned int), _ismbcdigit>);
static_assert(hasSignature<unsigned long(const unsigned char*), _mbslen>);
static_assert(hasSignature<int(const unsigned char*, const unsigned char*), _mbscmp>);
static_assert(hasSignature<int(const unsigned char*, const unsigned char*), _mbsicmp>);
static_assert(hasSignature<int(const unsigned char*, const unsigned char*), _mbscoll>);
static_assert(hasSignature<int(const unsigned char*, const unsigned char*), _mbsicoll>);
static_assert(hasSignature<int(const unsigned char*, const unsigned char*, unsigned long), _mbsnicmp>);
static_assert(hasSignature<int(const unsigned char*, const unsigned char*, unsigned long), _mbsncoll>);
static_assert(hasSignature<int(const unsigned char*, const unsigned char*, unsigned long), _mbsnicoll>);
static_assert(hasSignature<int(const unsigned char*, const unsigned char*, unsigned long), _mbsncmp>);
static_assert(hasSignature<unsigned char*(const unsigned char*, const unsigned char*), _mbsstr>);
static_assert(hasSignature<unsigned char*(const unsigned char*, const unsigned char*), _mbsdec>);
static_assert(hasSignature<unsigned int(unsigned int), _mbctolower>);
static_assert(hasSignature<unsigned int(unsigned int), _mbctoupper>);
static_assert(hasSignature<unsigned char*(unsigned char*), _mbslwr>);
static_assert(hasSignature<unsigned char*(unsigned char*), _mbsupr>);
static_assert(hasSignature<unsigned char*(unsigned char*), _mbsrev>);
static_assert(hasSignature<unsigned long(const unsigned char*, const unsigned char*), _mbsspn>);
static_assert(hasSignature<unsigned long(const unsigned char*, const unsigned char*), _mbscspn>);
static_assert(hasSignature<int(const wchar_t*, const wchar_t*, unsigned long), _wcsncoll>);
static_assert(hasSignature<int(const wchar_t*, const wchar_t*, unsigned long), _wcsnicoll>);
static_assert(hasSignature<int(int), isleadbyte>);

static_assert(std::is_same_v<decltype(g_plast4wcstok), wchar_t*>);
