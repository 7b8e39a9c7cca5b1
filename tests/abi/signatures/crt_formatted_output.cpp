// Each function has the signature that modules built elsewhere call it by.
#include "abi/signature.h"
#include "kest/crt/formatted_output.h"

#include <cstdarg>
#include <cstdio>

using namespace kest::test;

static_assert(hasSignature<int(const char*, va_list), _vscprintf>);
static_assert(hasSignature<int(char*, unsigned long, const char*, va_list), vsprintf_s>);
static_assert(hasSignature<int(const wchar_t*, va_list), _tarvwprintf>);
static_assert(hasSignature<int(const wchar_t*, va_list), _vscwprintf>);
static_assert(hasSignature<int(const wchar_t*, ...), _tarwprintf>);
static_assert(hasSignature<int(FILE*, const wchar_t*, va_list), _tarvfwprintf>);
static_assert(hasSignature<int(FILE*, const wchar_t*, ...), _tarfwprintf>);
static_assert(hasSignature<int(wchar_t*, unsigned long, const wchar_t*, va_list), _tarvswprintf>);
static_assert(hasSignature<int(wchar_t*, const wchar_t*, va_list), _tarvswprintf>);
static_assert(hasSignature<int(wchar_t*, unsigned long, const wchar_t*, ...), _tarswprintf>);
static_assert(hasSignature<int(wchar_t*, const wchar_t*, va_list), _vswprintf>);
static_assert(hasSignature<int(wchar_t*, const wchar_t*, ...), swprintf>);
static_assert(hasSignature<int(wchar_t*, unsigned long, const wchar_t*, va_list), vswprintf_s>);
static_assert(hasSignature<int(wchar_t*, unsigned long, unsigned long, const wchar_t*, va_list), _vsnwprintf_s>);
