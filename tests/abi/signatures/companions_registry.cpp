// Each function has the signature that modules built elsewhere call it by.
#include "abi/signature.h"
#include "kest/companions/registry.h"

using namespace kest::test;

static_assert(hasSignature<LONG(HKEY, const wchar_t*, const wchar_t*, DWORD, DWORD*, void*, DWORD*), RegGetValueW>);
static_assert(hasSignature<LONG(HKEY, const wchar_t*), RegDeleteTreeW>);
static_assert(hasSignature<LONG(HKEY, const wchar_t*, DWORD, const wchar_t*, DWORD), RegSetValueW>);
