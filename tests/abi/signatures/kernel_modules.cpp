// Each function has the signature that modules built elsewhere call it by.
#include "abi/signature.h"
#include "kest/kernel/modules.h"

#include <map>
#include <string>
#include <type_traits>

using namespace kest::test;

static_assert(hasSignature<HMODULE(const wchar_t*), LoadLibraryW>);
static_assert(hasSignature<HMODULE(const wchar_t*, HANDLE, DWORD), LoadLibraryExW>);
static_assert(hasSignature<HMODULE(const char*), LoadLibraryA>);
static_assert(hasSignature<BOOL(HMODULE), FreeLibrary>);
static_assert(hasSignature<FARPROC(HMODULE, const char*), GetProcAddress>);
static_assert(hasSignature<HMODULE(const wchar_t*), GetModuleHandleW>);
static_assert(hasSignature<BOOL(DWORD, const wchar_t*, HMODULE*), GetModuleHandleExW>);
static_assert(hasSignature<DWORD(HMODULE, wchar_t*, DWORD), GetModuleFileNameW>);
static_assert(hasSignature<BOOL(const wchar_t*), SetDllDirectoryW>);
static_assert(hasSignature<DWORD(const wchar_t*, wchar_t*, DWORD), GetLongPathNameW>);
static_assert(hasSignature<BOOL(HMODULE), DisableThreadLibraryCalls>);
static_assert(hasSignature<CStdStr<wchar_t>(const wchar_t*), ToPlatformModuleName>);

static_assert(std::is_same_v<decltype(g_loadedModuleMap), std::map<std::string, ModuleInfo>>);
static_assert(std::is_same_v<decltype(g_strDllPath), CStdStr<wchar_t>>);
