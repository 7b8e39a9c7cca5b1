// Each function has the signature that modules built elsewhere call it by.
#include "abi/signature.h"
#include "kest/kernel/environment.h"

using namespace kest::test;

static_assert(hasSignature<DWORD(const wchar_t*, wchar_t*, DWORD), GetEnvironmentVariableW>);
static_assert(hasSignature<BOOL(const wchar_t*, const wchar_t*), SetEnvironmentVariableW>);
static_assert(hasSignature<DWORD(const wchar_t*, wchar_t*, DWORD), ExpandEnvironmentStringsW>);
static_assert(hasSignature<DWORD(DWORD, wchar_t*), GetCurrentDirectoryW>);
static_assert(hasSignature<BOOL(const wchar_t*), SetCurrentDirectoryW>);
static_assert(hasSignature<BOOL(wchar_t*, DWORD*), GetUserNameW>);
static_assert(hasSignature<BOOL(wchar_t*, DWORD*), GetComputerNameW>);
static_assert(hasSignature<DWORD(), GetCurrentThreadId>);
static_assert(hasSignature<DWORD(), GetCurrentProcessId>);
static_assert(hasSignature<BOOL(DWORD, DWORD*), ProcessIdToSessionId>);
static_assert(hasSignature<DWORD(), GetLastError>);
static_assert(hasSignature<void(DWORD), SetLastError>);
static_assert(hasSignature<BOOL(const wchar_t*, const wchar_t*, SECURITY_ATTRIBUTES*, SECURITY_ATTRIBUTES*, BOOL, DWORD,
                                void*, const wchar_t*, STARTUPINFOW*, PROCESS_INFORMATION*),
                           CreateProcessW>);
static_assert(hasSignature<DWORD(), GetVersion>);
static_assert(hasSignature<BOOL(OSVERSIONINFOW*), GetVersionExW>);
static_assert(hasSignature<void(SYSTEM_INFO*), GetSystemInfo>);
static_assert(hasSignature<BOOL(HANDLE, BOOL*), IsWow64Process>);
static_assert(hasSignature<BOOL(DWORD, DWORD), Beep>);
static_assert(hasSignature<void(UINT), ExitProcess>);
static_assert(hasSignature<void(DWORD, DWORD, DWORD, const ULONG_PTR*), RaiseException>);
static_assert(hasSignature<void(const wchar_t*), OutputDebugStringW>);
static_assert(hasSignature<void(), DebugBreak>);
static_assert(hasSignature<int(), kbhit>);
static_assert(hasSignature<char*(char*, unsigned int), random_uuid>);
