// Each function has the signature that modules built elsewhere call it by.
#include "abi/signature.h"
#include "kest/kernel/synchronisation.h"

using namespace kest::test;

static_assert(hasSignature<void(CRITICAL_SECTION*), InitializeCriticalSection>);
static_assert(hasSignature<void(CRITICAL_SECTION*), DeleteCriticalSection>);
static_assert(hasSignature<void(CRITICAL_SECTION*), EnterCriticalSection>);
static_assert(hasSignature<void(CRITICAL_SECTION*), LeaveCriticalSection>);
static_assert(hasSignature<HANDLE(SECURITY_ATTRIBUTES*, LONG, LONG, const wchar_t*), CreateSemaphoreW>);
static_assert(hasSignature<HANDLE(SECURITY_ATTRIBUTES*, BOOL, BOOL, const wchar_t*), CreateEventW>);
static_assert(hasSignature<BOOL(HANDLE), SetEvent>);
static_assert(hasSignature<BOOL(HANDLE), FindCloseChangeNotification>);
static_assert(hasSignature<BOOL(HANDLE), FindNextChangeNotification>);
static_assert(hasSignature<BOOL(HANDLE, LONG, LONG*), ReleaseSemaphore>);
static_assert(hasSignature<DWORD(HANDLE, DWORD), WaitForSingleObject>);
static_assert(hasSignature<DWORD(DWORD, const HANDLE*, BOOL, DWORD), WaitForMultipleObjects>);
static_assert(hasSignature<HANDLE(SECURITY_ATTRIBUTES*, SIZE_T, DWORD (*)(void*), void*, DWORD, DWORD*), CreateThread>);
static_assert(hasSignature<BOOL(HANDLE, int), SetThreadPriority>);
static_assert(hasSignature<DWORD(HANDLE), ResumeThread>);
static_assert(hasSignature<void(DWORD), Sleep>);
