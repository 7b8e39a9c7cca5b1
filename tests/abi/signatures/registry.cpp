// Each function has the signature that modules built elsewhere call it by.
#include "kest/registry.h"
#include "abi/signature.h"

using namespace kest::test;

static_assert(
    hasSignature<LONG(HKEY, const wchar_t*, DWORD, wchar_t*, DWORD, REGSAM, SECURITY_ATTRIBUTES*, HKEY*, DWORD*),
                 RegCreateKeyExW>);
static_assert(hasSignature<LONG(HKEY, const wchar_t*, HKEY*), RegCreateKeyW>);
static_assert(hasSignature<LONG(HKEY, const wchar_t*, DWORD, REGSAM, HKEY*), RegOpenKeyExW>);
static_assert(hasSignature<LONG(HKEY, const wchar_t*, HKEY*), RegOpenKeyW>);
static_assert(hasSignature<LONG(HKEY), RegCloseKey>);
static_assert(hasSignature<LONG(HKEY, const wchar_t*), RegDeleteKeyW>);
static_assert(hasSignature<LONG(HKEY, const wchar_t*, REGSAM, DWORD), RegDeleteKeyExW>);
static_assert(hasSignature<LONG(HKEY, const wchar_t*, DWORD*, DWORD*, BYTE*, DWORD*), RegQueryValueExW>);
static_assert(hasSignature<LONG(HKEY, const wchar_t*, wchar_t*, LONG*), RegQueryValueW>);
static_assert(hasSignature<LONG(HKEY, const wchar_t*, DWORD, DWORD, const BYTE*, DWORD), RegSetValueExW>);
static_assert(hasSignature<LONG(HKEY, const wchar_t*), RegDeleteValueW>);
static_assert(hasSignature<LONG(HKEY, wchar_t*, DWORD*, DWORD*, DWORD*, DWORD*, DWORD*, DWORD*, DWORD*, DWORD*, DWORD*,
                                FILETIME*),
                           RegQueryInfoKeyW>);
static_assert(hasSignature<LONG(HKEY, DWORD, wchar_t*, DWORD), RegEnumKeyW>);
static_assert(hasSignature<LONG(HKEY, DWORD, wchar_t*, DWORD*, DWORD*, wchar_t*, DWORD*, FILETIME*), RegEnumKeyExW>);
static_assert(hasSignature<LONG(HKEY, DWORD, wchar_t*, DWORD*, DWORD*, DWORD*, BYTE*, DWORD*), RegEnumValueW>);
