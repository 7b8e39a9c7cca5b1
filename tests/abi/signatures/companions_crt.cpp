// Each function has the signature that modules built elsewhere call it by.
#include "abi/signature.h"
#include "kest/companions/crt.h"

#include <cstdarg>
#include <cstdio>
#include <ctime>
#include <sys/stat.h>

using namespace kest::test;

static_assert(hasSignature<int(const wchar_t*, const wchar_t*), _wcsicmp>);
static_assert(hasSignature<int(const wchar_t*, const wchar_t*, unsigned long), _wcsnicmp>);
static_assert(hasSignature<int(const char*, const char*), _stricmp>);
static_assert(hasSignature<int(const char*, const char*, unsigned long), _strnicmp>);
static_assert(hasSignature<int(const void*, const void*, unsigned long), _memicmp>);
static_assert(hasSignature<wchar_t*(const wchar_t*), _wcsdup>);
static_assert(hasSignature<char*(const char*), _strdup>);
static_assert(hasSignature<int(wchar_t*, unsigned long), _wcslwr_s>);
static_assert(hasSignature<wchar_t*(wchar_t*, const wchar_t*, wchar_t**), wcstok_s>);
static_assert(hasSignature<char*(char*, const char*, char**), strtok_s>);
static_assert(hasSignature<int(char*, unsigned long, const char*, ...), sprintf_s>);
static_assert(hasSignature<int(char*, unsigned long, const char*, ...), _snprintf>);
static_assert(hasSignature<int(char*, unsigned long, const char*, va_list), _vsnprintf>);
static_assert(hasSignature<int(wchar_t*, unsigned long, unsigned long, const wchar_t*, ...), _snwprintf_s>);
static_assert(hasSignature<int(wchar_t*, unsigned long, const wchar_t*, ...), swprintf_s>);
static_assert(hasSignature<int(unsigned long*, char*, unsigned long, const wchar_t*, unsigned long), wcstombs_s>);
static_assert(hasSignature<int(unsigned long*, wchar_t*, unsigned long, const char*, unsigned long), mbstowcs_s>);
static_assert(hasSignature<int(FILE*), _fileno>);
static_assert(hasSignature<int(const wchar_t*, struct stat*), _wstat64i32>);
static_assert(hasSignature<int(const char*), _mkdir>);
static_assert(hasSignature<int(const char*), _rmdir>);
static_assert(hasSignature<int(const char*), _chdir>);
static_assert(hasSignature<int(const char*), _unlink>);
static_assert(hasSignature<int(const char*, int), _access>);
static_assert(hasSignature<char*(char*, int), _getcwd>);
static_assert(hasSignature<int(const wchar_t*), _wmkdir>);
static_assert(hasSignature<int(const wchar_t*), _wrmdir>);
static_assert(hasSignature<int(const wchar_t*), _wchdir>);
static_assert(hasSignature<int(const wchar_t*), _wunlink>);
static_assert(hasSignature<int(wchar_t**, unsigned long*, const wchar_t*), _wdupenv_s>);
static_assert(hasSignature<int(char**, unsigned long*, const char*), _dupenv_s>);
static_assert(hasSignature<long long(struct tm*), _mktime64>);
static_assert(hasSignature<long long(long long*), _time64>);
static_assert(hasSignature<int(struct tm*, const long long*), _localtime64_s>);
static_assert(hasSignature<int(struct tm*, const long long*), _gmtime64_s>);
static_assert(hasSignature<long long(const char*, char**, int), _strtoi64>);
static_assert(hasSignature<unsigned long long(const char*, char**, int), _strtoui64>);
static_assert(hasSignature<long long(const wchar_t*, wchar_t**, int), _wcstoi64>);
static_assert(hasSignature<unsigned long long(const wchar_t*, wchar_t**, int), _wcstoui64>);
