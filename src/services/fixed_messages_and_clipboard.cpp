// Fixed results: the message loop, message texts and the clipboard. The host runs the loop of the desktop's toolkit.
#include "kest/kernel/strings.h"
#include "kest/user_interface/windows_and_input.h"

// ---- Message loop ---------------------------------------------------------------------------------------------------

HWND GetForegroundWindow()
{
    return nullptr;
}

BOOL PeekMessageW(MSG*, HWND, UINT, UINT, UINT)
{
    return 0;
}

BOOL TranslateMessage(const MSG*)
{
    return 1;
}

LRESULT DispatchMessageW(const MSG*)
{
    return 0;
}

// ---- Clipboard ------------------------------------------------------------------------------------------------------

BOOL OpenClipboard(HWND)
{
    return 0;
}

BOOL CloseClipboard()
{
    return 0;
}

HANDLE GetClipboardData(UINT)
{
    return nullptr;
}

// ---- Message texts --------------------------------------------------------------------------------------------------

DWORD FormatMessageW(DWORD, const void*, DWORD, DWORD, wchar_t*, DWORD, va_list*)
{
    return 0;
}
