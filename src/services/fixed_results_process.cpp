// Fixed results of COM, of the process and of diagnostics.
#include "kest/kernel/com.h"
#include "kest/kernel/environment.h"
#include "kest/kernel/memory.h"
#include "kest/kernel/modules.h"

// ---- COM ---------------------------------------------------------------------------------------------------------

HRESULT CoCreateGuid(GUID*)
{
    return 0;
}

HRESULT StringFromCLSID(REFCLSID, LPOLESTR*)
{
    return 0;
}

void CoTaskMemFree(LPVOID)
{
}

// ---- Versions and sound ------------------------------------------------------------------------------------------

DWORD GetVersion()
{
    return 0;
}

BOOL GetVersionExW(LPOSVERSIONINFOW)
{
    return 0;
}

BOOL Beep(DWORD, DWORD)
{
    return 0;
}

// ---- Process and diagnostics -------------------------------------------------------------------------------------

BOOL DisableThreadLibraryCalls(HMODULE)
{
    return 0;
}

void ExitProcess(UINT)
{
}

BOOL IsBadReadPtr(const void*, UINT_PTR)
{
    return 0;
}

BOOL IsWow64Process(HANDLE, BOOL*)
{
    return 1;
}

void GetSystemInfo(LPSYSTEM_INFO)
{
}

void RaiseException(DWORD, DWORD, DWORD, const ULONG_PTR*)
{
}

void OutputDebugStringW(const wchar_t*)
{
}

void DebugBreak()
{
}
