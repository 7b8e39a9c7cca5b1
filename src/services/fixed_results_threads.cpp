// Fixed results of threads, waiting and synchronisation.
#include "kest/kernel/synchronisation.h"

// ---- Critical sections -------------------------------------------------------------------------------------------

void InitializeCriticalSection(LPCRITICAL_SECTION)
{
}

void DeleteCriticalSection(LPCRITICAL_SECTION)
{
}

void EnterCriticalSection(LPCRITICAL_SECTION)
{
}

void LeaveCriticalSection(LPCRITICAL_SECTION)
{
}

// ---- Semaphores and events ---------------------------------------------------------------------------------------

HANDLE CreateSemaphoreW(LPSECURITY_ATTRIBUTES, LONG, LONG, const wchar_t*)
{
    return nullptr;
}

HANDLE CreateEventW(LPSECURITY_ATTRIBUTES, BOOL, BOOL, const wchar_t*)
{
    return nullptr;
}

BOOL SetEvent(HANDLE)
{
    return 0;
}

BOOL ReleaseSemaphore(HANDLE, LONG, LPLONG)
{
    return 0;
}

// ---- Waiting -----------------------------------------------------------------------------------------------------

DWORD WaitForSingleObject(HANDLE, DWORD)
{
    return 0;
}

DWORD WaitForMultipleObjects(DWORD, const HANDLE*, BOOL, DWORD)
{
    return 0;
}

// ---- Threads -----------------------------------------------------------------------------------------------------

HANDLE CreateThread(LPSECURITY_ATTRIBUTES, SIZE_T, LPTHREAD_START_ROUTINE, LPVOID, DWORD, LPDWORD)
{
    return nullptr;
}

BOOL SetThreadPriority(HANDLE, int)
{
    return 0;
}

DWORD ResumeThread(HANDLE)
{
    return 0;
}

// ---- Watching directories ----------------------------------------------------------------------------------------

BOOL FindCloseChangeNotification(HANDLE)
{
    return 0;
}

BOOL FindNextChangeNotification(HANDLE)
{
    return 0;
}
