/*
 * Kest Platform Base: the namespaces KestKernel32 and KestUser32, a second spelling of some functions for code that
 * calls them qualified. Most forward to the global function of their name; the others are said to be fixed.
 */
#ifndef KEST_KERNEL32_USER32_H
#define KEST_KERNEL32_USER32_H

#include "kest/base_types.h"
#include "kest/export.h"

namespace KestKernel32
{

/** As the global function of the same name, which it calls. @kind local */
KEST_API HMODULE LoadLibraryW(const wchar_t* lpLibFileName);
KEST_API HMODULE LoadLibraryExW(const wchar_t* lpLibFileName, HANDLE hFile, DWORD dwFlags);
KEST_API DWORD GetModuleFileNameW(HMODULE hModule, wchar_t* lpFilename, DWORD nSize);
KEST_API HMODULE GetModuleHandleW(const wchar_t* lpModuleName);
KEST_API BOOL GetModuleHandleExW(DWORD dwFlags, const wchar_t* lpModuleName, HMODULE* phModule);
KEST_API FARPROC GetProcAddress(HMODULE hModule, const char* lpProcName);
KEST_API BOOL FreeLibrary(HMODULE hLibModule);
KEST_API DWORD GetFileSize(HANDLE hFile, DWORD* lpFileSizeHigh);
KEST_API DWORD GetFileAttributesW(const wchar_t* lpFileName);
KEST_API DWORD GetFileAttributesA(const char* lpFileName);
KEST_API BOOL CloseHandle(HANDLE hObject);
KEST_API DWORD GetCurrentDirectoryW(DWORD nBufferLength, wchar_t* lpBuffer);
KEST_API BOOL SetCurrentDirectoryW(const wchar_t* lpPathName);
KEST_API void SetLastError(DWORD dwErrCode);
KEST_API DWORD GetLastError();
KEST_API DWORD GetTickCount();
KEST_API BOOL IsDBCSLeadByte(unsigned char TestChar);
KEST_API HANDLE GetProcessHeap();
KEST_API void* HeapAlloc(HANDLE hHeap, DWORD dwFlags, SIZE_T dwBytes);
KEST_API BOOL HeapFree(HANDLE hHeap, DWORD dwFlags, void* lpMem);
KEST_API int SelectClipRgn(HDC hdc, HRGN hrgn);
KEST_API HGDIOBJ SelectObject(HDC hdc, void* h);

/** Always 0: nothing is watched. @kind fixed result */
KEST_API BOOL FindCloseChangeNotification(HANDLE hChangeHandle);
KEST_API BOOL FindNextChangeNotification(HANDLE hChangeHandle);

/** Always INVALID_HANDLE_VALUE: nothing is watched. @kind fixed result */
KEST_API HANDLE FindFirstChangeNotificationW(const wchar_t* lpPathName, BOOL bWatchSubtree, DWORD dwNotifyFilter);

/** Always 0, WAIT_OBJECT_0, at once. @kind fixed result */
KEST_API DWORD WaitForSingleObject(HANDLE hHandle, DWORD dwMilliseconds);

} // namespace KestKernel32

namespace KestUser32
{

/** As the global function of the same name, which it calls. @kind local */
KEST_API SHORT GetKeyState(int nVirtKey);

/** Always null: unlike the global function it does not ask the host. @kind fixed result */
KEST_API HCURSOR GetCursor();

/** Always its argument: unlike the global function it does not ask the host. @kind fixed result */
KEST_API HCURSOR SetCursor(HCURSOR hCursor);

/** Always 0: nothing is changed. @kind fixed result */
KEST_API BOOL EnableWindow(HWND hWnd, BOOL bEnable);

/** Always null: no window is known. @kind fixed result */
KEST_API HWND SetFocus(HWND hWnd);
KEST_API HWND GetFocus();
KEST_API HWND GetDlgItem(HWND hDlg, int nIDDlgItem);
KEST_API HWND GetDesktopWindow();

/** Always 0: lpRect stays as it was. @kind fixed result */
KEST_API BOOL GetWindowRect(HWND hWnd, RECT* lpRect);

} // namespace KestUser32

#endif
