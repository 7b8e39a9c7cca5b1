// Each function has the signature that modules built elsewhere call it by.
#include "abi/signature.h"
#include "kest/kernel/directories.h"

using namespace kest::test;

static_assert(hasSignature<BOOL(const wchar_t*), DeleteFileW>);
static_assert(hasSignature<BOOL(const wchar_t*, const wchar_t*, BOOL), CopyFileW>);
static_assert(hasSignature<UINT(wchar_t*, UINT), GetSystemDirectoryW>);
static_assert(hasSignature<DWORD(DWORD, wchar_t*), GetTempPathW>);
static_assert(hasSignature<UINT(const char*, const char*, UINT, char*), GetTempFileNameA>);
static_assert(hasSignature<UINT(const wchar_t*, const wchar_t*, UINT, wchar_t*), GetTempFileNameW>);
static_assert(hasSignature<BOOL(const wchar_t*, SECURITY_ATTRIBUTES*), CreateDirectoryW>);
static_assert(hasSignature<BOOL(const wchar_t*), RemoveDirectoryW>);
static_assert(hasSignature<int(const char*), DeleteDirectory>);
static_assert(hasSignature<DWORD(const wchar_t*, DWORD, wchar_t*, wchar_t**), GetFullPathNameW>);
static_assert(hasSignature<DWORD(const char*, DWORD, char*, char**), GetFullPathNameA>);
