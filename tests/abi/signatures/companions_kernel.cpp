// Each function has the signature that modules built elsewhere call it by.
#include "abi/signature.h"
#include "kest/companions/kernel.h"

using namespace kest::test;

static_assert(hasSignature<DWORD(HMODULE, char*, DWORD), GetModuleFileNameA>);
static_assert(hasSignature<HMODULE(const char*), GetModuleHandleA>);
static_assert(hasSignature<HMODULE(const char*, HANDLE, DWORD), LoadLibraryExA>);
static_assert(hasSignature<DWORD(const char*, char*, DWORD), GetEnvironmentVariableA>);
static_assert(hasSignature<BOOL(const char*, const char*), SetEnvironmentVariableA>);
static_assert(hasSignature<DWORD(DWORD, char*), GetTempPathA>);
static_assert(hasSignature<UINT(wchar_t*, UINT), GetWindowsDirectoryW>);
static_assert(hasSignature<BOOL(const wchar_t*, const wchar_t*), MoveFileW>);
static_assert(
    hasSignature<HANDLE(const wchar_t*, FINDEX_INFO_LEVELS, void*, FINDEX_SEARCH_OPS, void*, DWORD), FindFirstFileExW>);
static_assert(hasSignature<void(LPSYSTEM_INFO), GetNativeSystemInfo>);
static_assert(hasSignature<wchar_t*(), GetCommandLineW>);
