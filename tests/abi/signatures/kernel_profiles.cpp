// Each function has the signature that modules built elsewhere call it by.
#include "abi/signature.h"
#include "kest/kernel/profiles.h"

using namespace kest::test;

static_assert(hasSignature<DWORD(const wchar_t*, const wchar_t*, const wchar_t*, wchar_t*, DWORD, const wchar_t*),
                           GetPrivateProfileStringW>);
static_assert(
    hasSignature<DWORD(const char*, const char*, const char*, char*, DWORD, const char*), GetPrivateProfileStringA>);
static_assert(hasSignature<UINT(const wchar_t*, const wchar_t*, INT, const wchar_t*), GetPrivateProfileIntW>);
static_assert(hasSignature<UINT(const char*, const char*, INT, const char*), GetPrivateProfileIntA>);
static_assert(hasSignature<DWORD(const wchar_t*, wchar_t*, DWORD, const wchar_t*), GetPrivateProfileSectionW>);
static_assert(hasSignature<DWORD(wchar_t*, DWORD, const wchar_t*), GetPrivateProfileSectionNamesW>);
static_assert(
    hasSignature<BOOL(const wchar_t*, const wchar_t*, const wchar_t*, const wchar_t*), WritePrivateProfileStringW>);
static_assert(hasSignature<BOOL(const char*, const char*, const char*, const char*), WritePrivateProfileStringA>);
static_assert(hasSignature<int(char*, char*, char*, char*, int, char*), read_profile_string>);
