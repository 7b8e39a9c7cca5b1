// Each function has the signature that modules built elsewhere call it by.
#include "kest/shell_paths.h"
#include "abi/signature.h"

using namespace kest::test;

static_assert(hasSignature<BOOL(wchar_t*), PathRemoveFileSpecW>);
static_assert(hasSignature<wchar_t*(wchar_t*), PathFindFileNameW>);
static_assert(hasSignature<BOOL(wchar_t*, const wchar_t*), PathAppendW>);
static_assert(hasSignature<wchar_t*(wchar_t*, const wchar_t*, const wchar_t*), PathCombineW>);
static_assert(hasSignature<BOOL(const wchar_t*, const wchar_t*), PathMatchSpecW>);
static_assert(hasSignature<BOOL(const wchar_t*), PathIsURLW>);
static_assert(hasSignature<BOOL(const wchar_t*), PathIsRelativeW>);
static_assert(hasSignature<BOOL(const wchar_t*), PathFileExistsW>);
static_assert(hasSignature<BOOL(const wchar_t*), PathIsDirectoryW>);
static_assert(hasSignature<wchar_t*(wchar_t*), PathAddBackslashW>);
static_assert(hasSignature<BOOL(wchar_t*, const wchar_t*, DWORD, const wchar_t*, DWORD), PathRelativePathToW>);
static_assert(hasSignature<wchar_t*(const wchar_t*), PathFindExtensionW>);
static_assert(hasSignature<HRESULT(HWND, int, HANDLE, DWORD, wchar_t*), SHGetFolderPathW>);
static_assert(hasSignature<BOOL(HWND, wchar_t*, int, BOOL), SHGetSpecialFolderPathW>);
static_assert(hasSignature<int(HWND, const wchar_t*, const SECURITY_ATTRIBUTES*), SHCreateDirectoryExW>);
static_assert(
    hasSignature<HINSTANCE(HWND, const wchar_t*, const wchar_t*, const wchar_t*, const wchar_t*, int), ShellExecuteW>);
static_assert(hasSignature<int(const wchar_t*, const wchar_t*), StrCmpI>);
static_assert(hasSignature<wchar_t*(const wchar_t*, const wchar_t*), StrStrIW>);
