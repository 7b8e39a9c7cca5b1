// Each function has the signature that modules built elsewhere call it by.
#include "abi/signature.h"
#include "kest/crt/path_splitting.h"

using namespace kest::test;

static_assert(hasSignature<void(const char*, char*, char*, char*, char*), _splitpath>);
static_assert(hasSignature<int(const char*, char*, unsigned long, char*, unsigned long, char*, unsigned long, char*,
                               unsigned long),
                           _splitpath_s>);
static_assert(hasSignature<void(const wchar_t*, wchar_t*, wchar_t*, wchar_t*, wchar_t*), _wsplitpath>);
static_assert(hasSignature<int(const wchar_t*, wchar_t*, unsigned long, wchar_t*, unsigned long, wchar_t*,
                               unsigned long, wchar_t*, unsigned long),
                           _wsplitpath_s>);
static_assert(hasSignature<void(wchar_t*, const wchar_t*, const wchar_t*, const wchar_t*, const wchar_t*), _wmakepath>);
