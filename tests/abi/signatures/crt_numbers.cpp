// Each function has the signature that modules built elsewhere call it by.
#include "abi/signature.h"
#include "kest/crt/numbers.h"

using namespace kest::test;

static_assert(hasSignature<int(const wchar_t*), _wtoi>);
static_assert(hasSignature<long(const wchar_t*), _wtol>);
static_assert(hasSignature<long long(const wchar_t*), _wtoi64>);
static_assert(hasSignature<double(const wchar_t*), _wtof>);
static_assert(hasSignature<char*(int, char*, int), _itoa>);
static_assert(hasSignature<char*(int, char*, int), _ltoa>);
static_assert(hasSignature<char*(int, char*, unsigned long, int), _itoa_s>);
static_assert(hasSignature<char*(int, char*, unsigned long, int), _ltoa_s>);
static_assert(hasSignature<wchar_t*(int, wchar_t*, int), _itow>);
static_assert(hasSignature<wchar_t*(int, wchar_t*, int), _ltow>);
static_assert(hasSignature<int(int, wchar_t*, unsigned long, int), _itow_s>);
static_assert(hasSignature<int(int, wchar_t*, unsigned long, int), _ltow_s>);
static_assert(hasSignature<char*(long long, char*, int), _i64toa>);
static_assert(hasSignature<char*(unsigned long long, char*, int), _ui64toa>);
static_assert(hasSignature<wchar_t*(long long, wchar_t*, int), _i64tow>);
static_assert(hasSignature<wchar_t*(unsigned long long, wchar_t*, int), _ui64tow>);
static_assert(hasSignature<wchar_t*(long long, wchar_t*, unsigned long, int), _i64tow_s>);
static_assert(hasSignature<char*(double, int, int*, int*), _fcvt>);
