// The second spelling of some functions: forwards first, then the fixed results.
#include "kest/kernel32_user32.h"
#include "kest/kernel.h"
#include "kest/user_interface.h"

namespace KestKernel32
{

// ---- Modules ------------------------------------------------------------------------------------------------------

HMODULE LoadLibraryW(const wchar_t* lpLibFileName)
{
    return ::LoadLibraryW(lpLibFileName);
}

HMODULE LoadLibraryExW(const wchar_t* lpLibFileName, HANDLE hFile, DWORD dwFlags)
{
    return ::LoadLibraryExW(lpLibFileName, hFile, dwFlags);
}

DWORD GetModuleFileNameW(HMODULE hModule, wchar_t* lpFilename, DWORD nSize)
{
    return ::GetModuleFileNameW(hModule, lpFilename, nSize);
}

HMODULE GetModuleHandleW(const wchar_t* lpModuleName)
{
    return ::GetModuleHandleW(lpModuleName);
}

BOOL GetModuleHandleExW(DWORD dwFlags, const wchar_t* lpModuleName, HMODULE* phModule)
{
    return ::GetModuleHandleExW(dwFlags, lpModuleName, phModule);
}

FARPROC GetProcAddress(HMODULE hModule, const char* lpProcName)
{
    return ::GetProcAddress(hModule, lpProcName);
}

BOOL FreeLibrary(HMODULE hLibModule)
{
    return ::FreeLibrary(hLibModule);
}

// ---- Files and directories ----------------------------------------------------------------------------------------

DWORD GetFileSize(HANDLE hFile, DWORD* lpFileSizeHigh)
{
    return ::GetFileSize(hFile, lpFileSizeHigh);
}

DWORD GetFileAttributesW(const wchar_t* lpFileName)
{
    return ::GetFileAttributesW(lpFileName);
}

DWORD GetFileAttributesA(const char* lpFileName)
{
    return ::GetFileAttributesA(lpFileName);
}

BOOL CloseHandle(HANDLE hObject)
{
    return ::CloseHandle(hObject);
}

DWORD GetCurrentDirectoryW(DWORD nBufferLength, wchar_t* lpBuffer)
{
    return ::GetCurrentDirectoryW(nBufferLength, lpBuffer);
}

BOOL SetCurrentDirectoryW(const wchar_t* lpPathName)
{
    return ::SetCurrentDirectoryW(lpPathName);
}

// ---- Last error, time, text, memory, drawing ----------------------------------------------------------------------

void SetLastError(DWORD dwErrCode)
{
    ::SetLastError(dwErrCode);
}

DWORD GetLastError()
{
    return ::GetLastError();
}

DWORD GetTickCount()
{
    return ::GetTickCount();
}

BOOL IsDBCSLeadByte(unsigned char TestChar)
{
    return ::IsDBCSLeadByte(TestChar);
}

HANDLE GetProcessHeap()
{
    return ::GetProcessHeap();
}

void* HeapAlloc(HANDLE hHeap, DWORD dwFlags, SIZE_T dwBytes)
{
    return ::HeapAlloc(hHeap, dwFlags, dwBytes);
}

BOOL HeapFree(HANDLE hHeap, DWORD dwFlags, void* lpMem)
{
    return ::HeapFree(hHeap, dwFlags, lpMem);
}

int SelectClipRgn(HDC hdc, HRGN hrgn)
{
    return ::SelectClipRgn(hdc, hrgn);
}

HGDIOBJ SelectObject(HDC hdc, void* h)
{
    return ::SelectObject(hdc, h);
}

// ---- Fixed results ------------------------------------------------------------------------------------------------

BOOL FindCloseChangeNotification(HANDLE)
{
    return 0;
}

BOOL FindNextChangeNotification(HANDLE)
{
    return 0;
}

HANDLE FindFirstChangeNotificationW(const wchar_t*, BOOL, DWORD)
{
    return INVALID_HANDLE_VALUE;
}

DWORD WaitForSingleObject(HANDLE, DWORD)
{
    return 0;
}

} // namespace KestKernel32

namespace KestUser32
{

SHORT GetKeyState(int nVirtKey)
{
    return ::GetKeyState(nVirtKey);
}

// ---- Fixed results ------------------------------------------------------------------------------------------------

HCURSOR GetCursor()
{
    return nullptr;
}

HCURSOR SetCursor(HCURSOR hCursor)
{
    return hCursor;
}

BOOL EnableWindow(HWND, BOOL)
{
    return 0;
}

HWND SetFocus(HWND)
{
    return nullptr;
}

HWND GetFocus()
{
    return nullptr;
}

HWND GetDlgItem(HWND, int)
{
    return nullptr;
}

HWND GetDesktopWindow()
{
    return nullptr;
}

BOOL GetWindowRect(HWND, RECT*)
{
    return 0;
}

} // namespace KestUser32
