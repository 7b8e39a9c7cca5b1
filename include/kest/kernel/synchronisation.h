/*
 * Kest Platform Base: threads, waiting and synchronisation.
 *
 * Nothing here synchronises anything: there are no kernel objects, critical sections exclude nobody, and every wait
 * ends at once as if the first object had been signalled. Code that runs on several threads uses the language's own
 * threads and locks.
 */
#ifndef KEST_KERNEL_SYNCHRONISATION_H
#define KEST_KERNEL_SYNCHRONISATION_H

#include "kest/base_types.h"
#include "kest/export.h"

struct _RTL_CRITICAL_SECTION_DEBUG;

typedef struct _RTL_CRITICAL_SECTION
{
    struct _RTL_CRITICAL_SECTION_DEBUG* DebugInfo;
    LONG LockCount;
    LONG RecursionCount;
    HANDLE OwningThread;
    HANDLE LockSemaphore;
    ULONG_PTR SpinCount;
} RTL_CRITICAL_SECTION, *PRTL_CRITICAL_SECTION;
typedef RTL_CRITICAL_SECTION CRITICAL_SECTION;
typedef PRTL_CRITICAL_SECTION PCRITICAL_SECTION;
typedef PRTL_CRITICAL_SECTION LPCRITICAL_SECTION;

typedef DWORD (*PTHREAD_START_ROUTINE)(LPVOID);
typedef PTHREAD_START_ROUTINE LPTHREAD_START_ROUTINE;

/* Times and results of the wait functions */
#define INFINITE 0xFFFFFFFF
#define WAIT_OBJECT_0 0
#define WAIT_ABANDONED 0x00000080
#define WAIT_ABANDONED_0 0x00000080
#define WAIT_TIMEOUT 258
#define WAIT_FAILED 0xFFFFFFFF
#define MAXIMUM_WAIT_OBJECTS 64

/* Flags of CreateThread */
#define CREATE_SUSPENDED 0x00000004
#define STACK_SIZE_PARAM_IS_A_RESERVATION 0x00010000

/* Priorities of SetThreadPriority */
#define THREAD_PRIORITY_IDLE (-15)
#define THREAD_PRIORITY_LOWEST (-2)
#define THREAD_PRIORITY_BELOW_NORMAL (-1)
#define THREAD_PRIORITY_NORMAL 0
#define THREAD_PRIORITY_ABOVE_NORMAL 1
#define THREAD_PRIORITY_HIGHEST 2
#define THREAD_PRIORITY_TIME_CRITICAL 15

/* What FindFirstChangeNotificationW watches */
#define FILE_NOTIFY_CHANGE_FILE_NAME 0x00000001
#define FILE_NOTIFY_CHANGE_DIR_NAME 0x00000002
#define FILE_NOTIFY_CHANGE_ATTRIBUTES 0x00000004
#define FILE_NOTIFY_CHANGE_SIZE 0x00000008
#define FILE_NOTIFY_CHANGE_LAST_WRITE 0x00000010
#define FILE_NOTIFY_CHANGE_SECURITY 0x00000100

KEST_C_BEGIN

/* ---- Critical sections ------------------------------------------------------------------------ */

/** Does nothing: the section excludes nobody and stays as it was. @kind fixed result */
KEST_API void InitializeCriticalSection(LPCRITICAL_SECTION lpCriticalSection);
KEST_API void DeleteCriticalSection(LPCRITICAL_SECTION lpCriticalSection);
KEST_API void EnterCriticalSection(LPCRITICAL_SECTION lpCriticalSection);
KEST_API void LeaveCriticalSection(LPCRITICAL_SECTION lpCriticalSection);

/* ---- Semaphores and events -------------------------------------------------------------------- */

/** Always null: there are no such objects. @kind fixed result */
KEST_API HANDLE CreateSemaphoreW(LPSECURITY_ATTRIBUTES lpSemaphoreAttributes, LONG lInitialCount, LONG lMaximumCount,
                                 const wchar_t* lpName);
KEST_API HANDLE CreateEventW(LPSECURITY_ATTRIBUTES lpEventAttributes, BOOL bManualReset, BOOL bInitialState,
                             const wchar_t* lpName);

/** Always 0: nothing is signalled, lpPreviousCount stays as it was. @kind fixed result */
KEST_API BOOL SetEvent(HANDLE hEvent);
KEST_API BOOL ReleaseSemaphore(HANDLE hSemaphore, LONG lReleaseCount, LPLONG lpPreviousCount);

/* ---- Waiting ---------------------------------------------------------------------------------- */

/** Always 0, WAIT_OBJECT_0, at once: as if the (first) object had been signalled. @kind fixed result */
KEST_API DWORD WaitForSingleObject(HANDLE hHandle, DWORD dwMilliseconds);
KEST_API DWORD WaitForMultipleObjects(DWORD nCount, const HANDLE* lpHandles, BOOL bWaitAll, DWORD dwMilliseconds);

/**
 * Suspends the calling thread with usleep(ms * 1000).
 * @param ms  milliseconds.
 * @lasterror as usleep leaves it.
 * @kind local
 * @differs{Sleep.WrapsAroundAfter4294967Milliseconds} The microseconds are a 32-bit number that wraps around: longer
 * times, INFINITE among them, become shorter ones.
 * @differs{Sleep.EndsWhenASignalIsHandled} A signal handler that runs meanwhile ends the sleep.
 */
KEST_API void Sleep(DWORD ms);

/* ---- Threads ---------------------------------------------------------------------------------- */

/** Always null: no thread is started, lpStartAddress is never called. @kind fixed result */
KEST_API HANDLE CreateThread(LPSECURITY_ATTRIBUTES lpThreadAttributes, SIZE_T dwStackSize,
                             LPTHREAD_START_ROUTINE lpStartAddress, LPVOID lpParameter, DWORD dwCreationFlags,
                             LPDWORD lpThreadId);

/** Always 0: there are no threads to change. @kind fixed result */
KEST_API BOOL SetThreadPriority(HANDLE hThread, int nPriority);
KEST_API DWORD ResumeThread(HANDLE hThread);

/* ---- Watching directories --------------------------------------------------------------------- */

/** Always 0: nothing is watched. @kind fixed result */
KEST_API BOOL FindCloseChangeNotification(HANDLE hChangeHandle);
KEST_API BOOL FindNextChangeNotification(HANDLE hChangeHandle);

KEST_C_END

#endif
