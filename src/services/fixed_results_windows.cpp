// Fixed results of windows, menus, messages, timers and input methods.
#include "kest/user_interface/input_method.h"
#include "kest/user_interface/menus.h"
#include "kest/user_interface/windows_and_input.h"

// ---- Window procedures, system parameters, messages --------------------------------------------------------------

LRESULT CallWindowProcW(WNDPROC, HWND, UINT, WPARAM, LPARAM)
{
    return 0;
}

BOOL SystemParametersInfoW(UINT, UINT, PVOID, UINT)
{
    return 0;
}

UINT RegisterWindowMessageW(const wchar_t*)
{
    return 0;
}

// ---- Menus -------------------------------------------------------------------------------------------------------

BOOL DestroyAcceleratorTable(HACCEL)
{
    return 0;
}

BOOL DestroyMenu(HMENU)
{
    return 0;
}

HMENU CreatePopupMenu()
{
    return nullptr;
}

BOOL AppendMenuW(HMENU, UINT, UINT_PTR, const wchar_t*)
{
    return 0;
}

int GetMenuItemCount(HMENU)
{
    return 0;
}

BOOL GetMenuItemInfoW(HMENU, UINT, BOOL, LPMENUITEMINFOW)
{
    return 0;
}

BOOL EnableMenuItem(HMENU, UINT, UINT)
{
    return 0;
}

DWORD CheckMenuItem(HMENU, UINT, UINT)
{
    return 0;
}

HMENU GetSubMenu(HMENU, int)
{
    return nullptr;
}

// ---- Timers, windows and keyboard layouts ------------------------------------------------------------------------

UINT_PTR SetTimer(HWND, UINT_PTR, UINT, TIMERPROC)
{
    return 0;
}

BOOL KillTimer(HWND, UINT_PTR)
{
    return 0;
}

BOOL IsWindow(HWND)
{
    return 1;
}

HKL GetKeyboardLayout(DWORD)
{
    return nullptr;
}

// ---- Input methods -----------------------------------------------------------------------------------------------

HIMC ImmGetContext(HWND)
{
    return nullptr;
}

HIMC ImmAssociateContext(HWND, HIMC)
{
    return nullptr;
}

BOOL ImmReleaseContext(HWND, HIMC)
{
    return 0;
}

BOOL ImmSetCompositionWindow(HIMC, LPCOMPOSITIONFORM)
{
    return 0;
}

BOOL ImmSetCandidateWindow(HIMC, LPCANDIDATEFORM)
{
    return 0;
}

LONG ImmGetCompositionStringW(HIMC, DWORD, LPVOID, DWORD)
{
    return 0;
}
