// Each function has the signature that modules built elsewhere call it by.
#include "abi/signature.h"
#include "kest/user_interface/windows_and_input.h"

using namespace kest::test;

static_assert(hasSignature<SHORT(int), GetKeyState>);
static_assert(hasSignature<SHORT(int), GetAsyncKeyState>);
static_assert(hasSignature<HKL(DWORD), GetKeyboardLayout>);
static_assert(hasSignature<HWND(const wchar_t*, const wchar_t*), FindWindowW>);
static_assert(hasSignature<BOOL(HWND, UINT, WPARAM, LPARAM), PostMessageW>);
static_assert(hasSignature<LRESULT(HWND, UINT, WPARAM, LPARAM), SendMessageW>);
static_assert(hasSignature<HWND(), GetForegroundWindow>);
static_assert(hasSignature<BOOL(HWND), IsWindow>);
static_assert(hasSignature<LRESULT(WNDPROC, HWND, UINT, WPARAM, LPARAM), CallWindowProcW>);
static_assert(hasSignature<UINT(const wchar_t*), RegisterWindowMessageW>);
static_assert(hasSignature<UINT_PTR(HWND, UINT_PTR, UINT, TIMERPROC), SetTimer>);
static_assert(hasSignature<BOOL(HWND, UINT_PTR), KillTimer>);
static_assert(hasSignature<BOOL(MSG*, HWND, UINT, UINT, UINT), PeekMessageW>);
static_assert(hasSignature<BOOL(const MSG*), TranslateMessage>);
static_assert(hasSignature<LRESULT(const MSG*), DispatchMessageW>);
static_assert(hasSignature<BOOL(HWND), OpenClipboard>);
static_assert(hasSignature<BOOL(), CloseClipboard>);
static_assert(hasSignature<HANDLE(UINT), GetClipboardData>);
static_assert(hasSignature<BOOL(POINT*), GetCursorPos>);
static_assert(hasSignature<BOOL(HWND, POINT*), ScreenToClient>);
static_assert(hasSignature<HCURSOR(), GetCursor>);
static_assert(hasSignature<HCURSOR(HCURSOR), SetCursor>);
static_assert(hasSignature<int(int), GetSystemMetrics>);
static_assert(hasSignature<BOOL(UINT, UINT, void*, UINT), SystemParametersInfoW>);
static_assert(hasSignature<HMONITOR(POINT, DWORD), MonitorFromPoint>);
static_assert(hasSignature<BOOL(HMONITOR, MONITORINFO*), GetMonitorInfoW>);
