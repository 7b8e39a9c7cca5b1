// The layout of the structures: Windows's, with wide characters of four bytes.
#include "kest/kernel/environment.h"

#include <cstddef>

static_assert(sizeof(STARTUPINFOW) == 104);
static_assert(offsetof(STARTUPINFOW, cb) == 0);
static_assert(offsetof(STARTUPINFOW, lpReserved) == 8);
static_assert(offsetof(STARTUPINFOW, lpDesktop) == 16);
static_assert(offsetof(STARTUPINFOW, lpTitle) == 24);
static_assert(offsetof(STARTUPINFOW, dwX) == 32);
static_assert(offsetof(STARTUPINFOW, dwY) == 36);
static_assert(offsetof(STARTUPINFOW, dwXSize) == 40);
static_assert(offsetof(STARTUPINFOW, dwYSize) == 44);
static_assert(offsetof(STARTUPINFOW, dwXCountChars) == 48);
static_assert(offsetof(STARTUPINFOW, dwYCountChars) == 52);
static_assert(offsetof(STARTUPINFOW, dwFillAttribute) == 56);
static_assert(offsetof(STARTUPINFOW, dwFlags) == 60);
static_assert(offsetof(STARTUPINFOW, wShowWindow) == 64);
static_assert(offsetof(STARTUPINFOW, cbReserved2) == 66);
static_assert(offsetof(STARTUPINFOW, lpReserved2) == 72);
static_assert(offsetof(STARTUPINFOW, hStdInput) == 80);
static_assert(offsetof(STARTUPINFOW, hStdOutput) == 88);
static_assert(offsetof(STARTUPINFOW, hStdError) == 96);

static_assert(sizeof(PROCESS_INFORMATION) == 24);
static_assert(offsetof(PROCESS_INFORMATION, hProcess) == 0);
static_assert(offsetof(PROCESS_INFORMATION, hThread) == 8);
static_assert(offsetof(PROCESS_INFORMATION, dwProcessId) == 16);
static_assert(offsetof(PROCESS_INFORMATION, dwThreadId) == 20);

static_assert(sizeof(OSVERSIONINFOW) == 532);
static_assert(offsetof(OSVERSIONINFOW, dwOSVersionInfoSize) == 0);
static_assert(offsetof(OSVERSIONINFOW, dwMajorVersion) == 4);
static_assert(offsetof(OSVERSIONINFOW, dwMinorVersion) == 8);
static_assert(offsetof(OSVERSIONINFOW, dwBuildNumber) == 12);
static_assert(offsetof(OSVERSIONINFOW, dwPlatformId) == 16);
static_assert(offsetof(OSVERSIONINFOW, szCSDVersion) == 20);

static_assert(sizeof(OSVERSIONINFOEXW) == 540);
static_assert(offsetof(OSVERSIONINFOEXW, dwOSVersionInfoSize) == 0);
static_assert(offsetof(OSVERSIONINFOEXW, dwMajorVersion) == 4);
static_assert(offsetof(OSVERSIONINFOEXW, dwMinorVersion) == 8);
static_assert(offsetof(OSVERSIONINFOEXW, dwBuildNumber) == 12);
static_assert(offsetof(OSVERSIONINFOEXW, dwPlatformId) == 16);
static_assert(offsetof(OSVERSIONINFOEXW, szCSDVersion) == 20);
static_assert(offsetof(OSVERSIONINFOEXW, wServicePackMajor) == 532);
static_assert(offsetof(OSVERSIONINFOEXW, wServicePackMinor) == 534);
static_assert(offsetof(OSVERSIONINFOEXW, wSuiteMask) == 536);
static_assert(offsetof(OSVERSIONINFOEXW, wProductType) == 538);
static_assert(offsetof(OSVERSIONINFOEXW, wReserved) == 539);

static_assert(sizeof(SYSTEM_INFO) == 48);
static_assert(offsetof(SYSTEM_INFO, dwOemId) == 0);
static_assert(offsetof(SYSTEM_INFO, wProcessorArchitecture) == 0);
static_assert(offsetof(SYSTEM_INFO, wReserved) == 2);
static_assert(offsetof(SYSTEM_INFO, dwPageSize) == 4);
static_assert(offsetof(SYSTEM_INFO, lpMinimumApplicationAddress) == 8);
static_assert(offsetof(SYSTEM_INFO, lpMaximumApplicationAddress) == 16);
static_assert(offsetof(SYSTEM_INFO, dwActiveProcessorMask) == 24);
static_assert(offsetof(SYSTEM_INFO, dwNumberOfProcessors) == 32);
static_assert(offsetof(SYSTEM_INFO, dwProcessorType) == 36);
static_assert(offsetof(SYSTEM_INFO, dwAllocationGranularity) == 40);
static_assert(offsetof(SYSTEM_INFO, wProcessorLevel) == 44);
static_assert(offsetof(SYSTEM_INFO, wProcessorRevision) == 46);
