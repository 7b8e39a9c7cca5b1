// Each function has the signature that modules built elsewhere call it by.
#include "abi/signature.h"
#include "kest/kernel/strings.h"

#include <cstdarg>

using namespace kest::test;

static_assert(hasSignature<wchar_t*(wchar_t*, const wchar_t*), lstrcpyW>);
static_assert(hasSignature<wchar_t*(wchar_t*, const wchar_t*), lstrcatW>);
static_assert(hasSignature<char*(char*, const char*), lstrcpyA>);
static_assert(hasSignature<char*(char*, const char*), lstrcatA>);
static_assert(hasSignature<wchar_t*(wchar_t*, const wchar_t*, int), lstrcpynW>);
static_assert(hasSignature<char*(char*, const char*, int), lstrcpynA>);
static_assert(hasSignature<int(const wchar_t*), lstrlenW>);
static_assert(hasSignature<int(const char*), lstrlenA>);
static_assert(hasSignature<int(const wchar_t*, const wchar_t*), lstrcmpiW>);
static_assert(hasSignature<DWORD(DWORD, const void*, DWORD, DWORD, wchar_t*, DWORD, va_list*), FormatMessageW>);
