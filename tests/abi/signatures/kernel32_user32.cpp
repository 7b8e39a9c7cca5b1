// Each function has the signature that modules built elsewhere call it by.
#include "kest/kernel32_user32.h"
#include "abi/signature.h"

using namespace kest::test;

static_assert(hasSignature<HMODULE(const wchar_t*), KestKernel32::LoadLibraryW>);
static_assert(hasSignature<HMODULE(const wchar_t*), KestKernel32::GetModuleHandleW>);
static_assert(hasSignature<HMODULE(const wchar_t*, HANDLE, DWORD), KestKernel32::LoadLibraryExW>);
static_assert(hasSignature<DWORD(HMODULE, wchar_t*, DWORD), KestKernel32::GetModuleFileNameW>);
static_assert(hasSignature<BOOL(DWORD, const wchar_t*, HMODULE*), KestKernel32::GetModuleHandleExW>);
static_assert(hasSignature<FARPROC(HMODULE, const char*), KestKernel32::GetProcAddress>);
static_assert(hasSignature<BOOL(HMODULE), KestKernel32::FreeLibrary>);
static_assert(hasSignature<DWORD(HANDLE, DWORD*), KestKernel32::GetFileSize>);
static_assert(hasSignature<DWORD(const wchar_t*), KestKernel32::GetFileAttributesW>);
static_assert(hasSignature<DWORD(const char*), KestKernel32::GetFileAttributesA>);
static_assert(hasSignature<BOOL(HANDLE), KestKernel32::CloseHandle>);
static_assert(hasSignature<BOOL(HANDLE), KestKernel32::FindCloseChangeNotification>);
static_assert(hasSignature<BOOL(HANDLE), KestKernel32::FindNextChangeNotification>);
static_assert(hasSignature<DWORD(DWORD, wchar_t*), KestKernel32::GetCurrentDirectoryW>);
static_assert(hasSignature<BOOL(const wchar_t*), KestKernel32::SetCurrentDirectoryW>);
static_assert(hasSignature<void(DWORD), KestKernel32::SetLastError>);
static_assert(hasSignature<DWORD(), KestKernel32::GetLastError>);
static_assert(hasSignature<DWORD(), KestKernel32::GetTickCount>);
static_assert(hasSignature<BOOL(unsigned char), KestKernel32::IsDBCSLeadByte>);
static_assert(hasSignature<HANDLE(), KestKernel32::GetProcessHeap>);
static_assert(hasSignature<void*(HANDLE, DWORD, SIZE_T), KestKernel32::HeapAlloc>);
static_assert(hasSignature<BOOL(HANDLE, DWORD, void*), KestKernel32::HeapFree>);
static_assert(hasSignature<int(HDC, HRGN), KestKernel32::SelectClipRgn>);
static_assert(hasSignature<void*(HDC, void*), KestKernel32::SelectObject>);
static_assert(hasSignature<HANDLE(const wchar_t*, BOOL, DWORD), KestKernel32::FindFirstChangeNotificationW>);
static_assert(hasSignature<DWORD(HANDLE, DWORD), KestKernel32::WaitForSingleObject>);
static_assert(hasSignature<SHORT(int), KestUser32::GetKeyState>);
static_assert(hasSignature<HCURSOR(), KestUser32::GetCursor>);
static_assert(hasSignature<HCURSOR(HICON), KestUser32::SetCursor>);
static_assert(hasSignature<BOOL(HWND, BOOL), KestUser32::EnableWindow>);
static_assert(hasSignature<HWND(HWND), KestUser32::SetFocus>);
static_assert(hasSignature<HWND(), KestUser32::GetFocus>);
static_assert(hasSignature<HWND(), KestUser32::GetDesktopWindow>);
static_assert(hasSignature<HWND(HWND, int), KestUser32::GetDlgItem>);
static_assert(hasSignature<BOOL(HWND, RECT*), KestUser32::GetWindowRect>);
