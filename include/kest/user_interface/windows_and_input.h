/*
 * Kest Platform Base: windows, messages, timers, keyboard, cursor, monitors and metrics. Forwards hand their arguments
 * to the host's service as they are, null included, and its result back unchanged; those not called checked need an
 * installed hub with that service. They leave the last-error value to the host.
 */
#ifndef KEST_USER_INTERFACE_WINDOWS_AND_INPUT_H
#define KEST_USER_INTERFACE_WINDOWS_AND_INPUT_H

#include "kest/base_types.h"
#include "kest/export.h"

/* ---- Virtual keys; digits and capital letters stand for themselves ----------------------------- */

#define VK_LBUTTON 0x01
#define VK_RBUTTON 0x02
#define VK_CANCEL 0x03
#define VK_MBUTTON 0x04
#define VK_XBUTTON1 0x05
#define VK_XBUTTON2 0x06
#define VK_BACK 0x08
#define VK_TAB 0x09
#define VK_CLEAR 0x0C
#define VK_RETURN 0x0D
#define VK_SHIFT 0x10
#define VK_CONTROL 0x11
#define VK_MENU 0x12
#define VK_PAUSE 0x13
#define VK_CAPITAL 0x14
#define VK_ESCAPE 0x1B
#define VK_SPACE 0x20
#define VK_PRIOR 0x21
#define VK_NEXT 0x22
#define VK_END 0x23
#define VK_HOME 0x24
#define VK_LEFT 0x25
#define VK_UP 0x26
#define VK_RIGHT 0x27
#define VK_DOWN 0x28
#define VK_SELECT 0x29
#define VK_PRINT 0x2A
#define VK_EXECUTE 0x2B
#define VK_SNAPSHOT 0x2C
#define VK_INSERT 0x2D
#define VK_DELETE 0x2E
#define VK_HELP 0x2F
#define VK_LWIN 0x5B
#define VK_RWIN 0x5C
#define VK_APPS 0x5D
#define VK_SLEEP 0x5F
#define VK_NUMPAD0 0x60
#define VK_NUMPAD1 0x61
#define VK_NUMPAD2 0x62
#define VK_NUMPAD3 0x63
#define VK_NUMPAD4 0x64
#define VK_NUMPAD5 0x65
#define VK_NUMPAD6 0x66
#define VK_NUMPAD7 0x67
#define VK_NUMPAD8 0x68
#define VK_NUMPAD9 0x69
#define VK_MULTIPLY 0x6A
#define VK_ADD 0x6B
#define VK_SEPARATOR 0x6C
#define VK_SUBTRACT 0x6D
#define VK_DECIMAL 0x6E
#define VK_DIVIDE 0x6F
#define VK_F1 0x70
#define VK_F2 0x71
#define VK_F3 0x72
#define VK_F4 0x73
#define VK_F5 0x74
#define VK_F6 0x75
#define VK_F7 0x76
#define VK_F8 0x77
#define VK_F9 0x78
#define VK_F10 0x79
#define VK_F11 0x7A
#define VK_F12 0x7B
#define VK_F13 0x7C
#define VK_F14 0x7D
#define VK_F15 0x7E
#define VK_F16 0x7F
#define VK_F17 0x80
#define VK_F18 0x81
#define VK_F19 0x82
#define VK_F20 0x83
#define VK_F21 0x84
#define VK_F22 0x85
#define VK_F23 0x86
#define VK_F24 0x87
#define VK_NUMLOCK 0x90
#define VK_SCROLL 0x91
#define VK_LSHIFT 0xA0
#define VK_RSHIFT 0xA1
#define VK_LCONTROL 0xA2
#define VK_RCONTROL 0xA3
#define VK_LMENU 0xA4
#define VK_RMENU 0xA5
#define VK_OEM_1 0xBA
#define VK_OEM_PLUS 0xBB
#define VK_OEM_COMMA 0xBC
#define VK_OEM_MINUS 0xBD
#define VK_OEM_PERIOD 0xBE
#define VK_OEM_2 0xBF
#define VK_OEM_3 0xC0
#define VK_OEM_4 0xDB
#define VK_OEM_5 0xDC
#define VK_OEM_6 0xDD
#define VK_OEM_7 0xDE
#define VK_OEM_8 0xDF
#define VK_OEM_102 0xE2
#define VK_PROCESSKEY 0xE5
#define VK_PACKET 0xE7

/* ---- Messages --------------------------------------------------------------------------------- */

#define WM_NULL 0x0000
#define WM_CREATE 0x0001
#define WM_DESTROY 0x0002
#define WM_MOVE 0x0003
#define WM_SIZE 0x0005
#define WM_ACTIVATE 0x0006
#define WM_SETFOCUS 0x0007
#define WM_KILLFOCUS 0x0008
#define WM_ENABLE 0x000A
#define WM_SETREDRAW 0x000B
#define WM_SETTEXT 0x000C
#define WM_GETTEXT 0x000D
#define WM_GETTEXTLENGTH 0x000E
#define WM_PAINT 0x000F
#define WM_CLOSE 0x0010
#define WM_QUERYENDSESSION 0x0011
#define WM_QUIT 0x0012
#define WM_ERASEBKGND 0x0014
#define WM_SYSCOLORCHANGE 0x0015
#define WM_ENDSESSION 0x0016
#define WM_SHOWWINDOW 0x0018
#define WM_SETTINGCHANGE 0x001A
#define WM_ACTIVATEAPP 0x001C
#define WM_FONTCHANGE 0x001D
#define WM_TIMECHANGE 0x001E
#define WM_CANCELMODE 0x001F
#define WM_SETCURSOR 0x0020
#define WM_MOUSEACTIVATE 0x0021
#define WM_GETMINMAXINFO 0x0024
#define WM_SETFONT 0x0030
#define WM_GETFONT 0x0031
#define WM_WINDOWPOSCHANGING 0x0046
#define WM_WINDOWPOSCHANGED 0x0047
#define WM_COPYDATA 0x004A
#define WM_NOTIFY 0x004E
#define WM_HELP 0x0053
#define WM_CONTEXTMENU 0x007B
#define WM_GETICON 0x007F
#define WM_SETICON 0x0080
#define WM_NCDESTROY 0x0082
#define WM_KEYDOWN 0x0100
#define WM_KEYUP 0x0101
#define WM_CHAR 0x0102
#define WM_SYSKEYDOWN 0x0104
#define WM_SYSKEYUP 0x0105
#define WM_SYSCHAR 0x0106
#define WM_INITDIALOG 0x0110
#define WM_COMMAND 0x0111
#define WM_SYSCOMMAND 0x0112
#define WM_TIMER 0x0113
#define WM_HSCROLL 0x0114
#define WM_VSCROLL 0x0115
#define WM_INITMENU 0x0116
#define WM_INITMENUPOPUP 0x0117
#define WM_MOUSEMOVE 0x0200
#define WM_LBUTTONDOWN 0x0201
#define WM_LBUTTONUP 0x0202
#define WM_LBUTTONDBLCLK 0x0203
#define WM_RBUTTONDOWN 0x0204
#define WM_RBUTTONUP 0x0205
#define WM_RBUTTONDBLCLK 0x0206
#define WM_MBUTTONDOWN 0x0207
#define WM_MBUTTONUP 0x0208
#define WM_MBUTTONDBLCLK 0x0209
#define WM_MOUSEWHEEL 0x020A
#define WM_DROPFILES 0x0233
#define WM_CUT 0x0300
#define WM_COPY 0x0301
#define WM_PASTE 0x0302
#define WM_CLEAR 0x0303
#define WM_UNDO 0x0304
#define WM_USER 0x0400
#define WM_APP 0x8000
#define HWND_BROADCAST ((HWND)(LONG_PTR)0xFFFF)

typedef struct tagMSG
{
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    DWORD time;
    POINT pt;
} MSG, *PMSG, *LPMSG;

/* Options of PeekMessageW */
#define PM_NOREMOVE 0x0000
#define PM_REMOVE 0x0001
#define PM_NOYIELD 0x0002

/* ---- Formats of GetClipboardData --------------------------------------------------------------- */

#define CF_TEXT 1
#define CF_BITMAP 2
#define CF_METAFILEPICT 3
#define CF_DIB 8
#define CF_PALETTE 9
#define CF_UNICODETEXT 13
#define CF_ENHMETAFILE 14
#define CF_HDROP 15
#define CF_LOCALE 16

/* ---- Metrics of GetSystemMetrics --------------------------------------------------------------- */

#define SM_CXSCREEN 0
#define SM_CYSCREEN 1
#define SM_CXVSCROLL 2
#define SM_CYHSCROLL 3
#define SM_CYCAPTION 4
#define SM_CXBORDER 5
#define SM_CYBORDER 6
#define SM_CXDLGFRAME 7
#define SM_CXFIXEDFRAME SM_CXDLGFRAME
#define SM_CYDLGFRAME 8
#define SM_CYFIXEDFRAME SM_CYDLGFRAME
#define SM_CYVTHUMB 9
#define SM_CXHTHUMB 10
#define SM_CXICON 11
#define SM_CYICON 12
#define SM_CXCURSOR 13
#define SM_CYCURSOR 14
#define SM_CYMENU 15
#define SM_CXFULLSCREEN 16
#define SM_CYFULLSCREEN 17
#define SM_CYKANJIWINDOW 18
#define SM_MOUSEPRESENT 19
#define SM_CYVSCROLL 20
#define SM_CXHSCROLL 21
#define SM_DEBUG 22
#define SM_SWAPBUTTON 23
#define SM_CXMIN 28
#define SM_CYMIN 29
#define SM_CXSIZE 30
#define SM_CYSIZE 31
#define SM_CXFRAME 32
#define SM_CXSIZEFRAME SM_CXFRAME
#define SM_CYFRAME 33
#define SM_CYSIZEFRAME SM_CYFRAME
#define SM_CXMINTRACK 34
#define SM_CYMINTRACK 35
#define SM_CXDOUBLECLK 36
#define SM_CYDOUBLECLK 37
#define SM_CXICONSPACING 38
#define SM_CYICONSPACING 39
#define SM_MENUDROPALIGNMENT 40
#define SM_PENWINDOWS 41
#define SM_DBCSENABLED 42
#define SM_CMOUSEBUTTONS 43
#define SM_SECURE 44
#define SM_CXEDGE 45
#define SM_CYEDGE 46
#define SM_CXMINSPACING 47
#define SM_CYMINSPACING 48
#define SM_CXSMICON 49
#define SM_CYSMICON 50
#define SM_CYSMCAPTION 51
#define SM_CXSMSIZE 52
#define SM_CYSMSIZE 53
#define SM_CXMENUSIZE 54
#define SM_CYMENUSIZE 55
#define SM_ARRANGE 56
#define SM_CXMINIMIZED 57
#define SM_CYMINIMIZED 58
#define SM_CXMAXTRACK 59
#define SM_CYMAXTRACK 60
#define SM_CXMAXIMIZED 61
#define SM_CYMAXIMIZED 62
#define SM_NETWORK 63
#define SM_CLEANBOOT 67
#define SM_CXDRAG 68
#define SM_CYDRAG 69
#define SM_SHOWSOUNDS 70
#define SM_CXMENUCHECK 71
#define SM_CYMENUCHECK 72
#define SM_SLOWMACHINE 73
#define SM_MIDEASTENABLED 74
#define SM_MOUSEWHEELPRESENT 75
#define SM_XVIRTUALSCREEN 76
#define SM_YVIRTUALSCREEN 77
#define SM_CXVIRTUALSCREEN 78
#define SM_CYVIRTUALSCREEN 79
#define SM_CMONITORS 80
#define SM_SAMEDISPLAYFORMAT 81
#define SM_REMOTESESSION 0x1000

/* ---- Actions of SystemParametersInfoW -------------------------------------------------------------------- */

#define SPI_GETBEEP 0x0001
#define SPI_GETKEYBOARDSPEED 0x000A
#define SPI_GETSCREENSAVEACTIVE 0x0010
#define SPI_GETICONTITLELOGFONT 0x001F
#define SPI_GETDRAGFULLWINDOWS 0x0026
#define SPI_GETNONCLIENTMETRICS 0x0029
#define SPI_GETWORKAREA 0x0030
#define SPI_SETWORKAREA 0x002F
#define SPI_GETHIGHCONTRAST 0x0042
#define SPI_GETFONTSMOOTHING 0x004A
#define SPI_GETWHEELSCROLLLINES 0x0068
#define SPI_GETMOUSEHOVERTIME 0x0066
#define SPIF_UPDATEINIFILE 0x0001
#define SPIF_SENDCHANGE 0x0002

KEST_C_BEGIN

/* ---- Keyboard --------------------------------------------------------------------------------- */

/**
 * Asks for the state of a key.
 * @param nVirtKey  VK_*, a digit or a capital letter.
 * @return highest bit set: down; lowest bit set: toggled on.
 * @kind forward: IWindowService::GetKeyState
 */
KEST_API SHORT GetKeyState(int nVirtKey);

/**
 * Asks for the state of a key, with the operation that serves GetKeyState.
 * @param nVirtKey  VK_*, a digit or a capital letter.
 * @return as GetKeyState.
 * @kind forward: IWindowService::GetKeyState
 * @differs{GetAsyncKeyState.AsksForTheStateThatGetKeyStateReports} The lowest bit means toggled on, not pressed since
 *          the last call.
 */
KEST_API SHORT GetAsyncKeyState(int nVirtKey);

/** Always null: no layout is known. @kind fixed result */
KEST_API HKL GetKeyboardLayout(DWORD idThread);

/* ---- Windows and messages --------------------------------------------------------------------- */

/**
 * Finds a top-level window.
 * @param lpClassName  its class; null for any.
 * @param lpWindowName  its title; null for any.
 * @return the window, or null.
 * @kind checked forward: IWindowService::FindWindowW, null without hub or service
 */
KEST_API HWND FindWindowW(const wchar_t* lpClassName, const wchar_t* lpWindowName);

/**
 * Queues a message.
 * @return not 0 on success.
 * @kind checked forward: IDialogService::PostMessageW, 0 without hub or service
 */
KEST_API BOOL PostMessageW(HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam);

/**
 * Sends a message and waits for its result.
 * @return the message's result.
 * @kind checked forward: IDialogService::SendMessageW, 0 without hub or service
 */
KEST_API LRESULT SendMessageW(HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam);

/** Always null: no window is known to be in front. @kind fixed result */
KEST_API HWND GetForegroundWindow(void);

/** Always 1, for any handle, null included. @kind fixed result */
KEST_API BOOL IsWindow(HWND hWnd);

/** Always 0: lpPrevWndFunc is never called. @kind fixed result */
KEST_API LRESULT CallWindowProcW(WNDPROC lpPrevWndFunc, HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam);

/** Always 0: no message is registered. @kind fixed result */
KEST_API UINT RegisterWindowMessageW(const wchar_t* lpString);

/* ---- Timers ----------------------------------------------------------------------------------- */

/** Always 0: there are no timers, and lpTimerFunc is never called. @kind fixed result */
KEST_API UINT_PTR SetTimer(HWND hWnd, UINT_PTR nIDEvent, UINT uElapse, TIMERPROC lpTimerFunc);
KEST_API BOOL KillTimer(HWND hWnd, UINT_PTR uIDEvent);

/* ---- Message loop ----------------------------------------------------------------------------- */

/** Always 0: the queue is empty; lpMsg is left as it was. @kind fixed result */
KEST_API BOOL PeekMessageW(MSG* lpMsg, HWND hWnd, UINT wMsgFilterMin, UINT wMsgFilterMax, UINT wRemoveMsg);

/** Always 1. @kind fixed result */
KEST_API BOOL TranslateMessage(const MSG* lpMsg);

/** Always 0: no window procedure is called. @kind fixed result */
KEST_API LRESULT DispatchMessageW(const MSG* lpMsg);

/* ---- Clipboard -------------------------------------------------------------------------------- */

/** Always 0: the clipboard cannot be opened. @kind fixed result */
KEST_API BOOL OpenClipboard(HWND hWndNewOwner);

/** Always 0. @kind fixed result */
KEST_API BOOL CloseClipboard(void);

/** Always null: the clipboard is empty. @kind fixed result */
KEST_API HANDLE GetClipboardData(UINT uFormat);

/* ---- Cursor ----------------------------------------------------------------------------------- */

/**
 * Asks where the cursor is.
 * @param lpPoint  receives the position in screen coordinates.
 * @return not 0 on success.
 * @kind forward: ICursorService::GetCursorPos
 */
KEST_API BOOL GetCursorPos(POINT* lpPoint);

/**
 * Turns screen coordinates into those of a window.
 * @param lpPoint  the position, replaced.
 * @return not 0 on success.
 * @kind forward: ICursorService::ScreenToClient
 */
KEST_API BOOL ScreenToClient(HWND hWnd, POINT* lpPoint);

/**
 * Asks for the current cursor.
 * @return the cursor; it stays the host's.
 * @kind forward: ICursorService::GetCursor
 */
KEST_API HCURSOR GetCursor(void);

/**
 * Sets the cursor.
 * @param hCursor  the cursor; null for none.
 * @return the cursor before.
 * @kind forward: ICursorService::SetCursor
 */
KEST_API HCURSOR SetCursor(HCURSOR hCursor);

/* ---- Metrics and monitors --------------------------------------------------------------------- */

/**
 * Asks for a measure of the desktop.
 * @param nIndex  SM_*.
 * @return the measure, pixels mostly.
 * @kind forward: IGraphicsService::GetSystemMetrics
 */
KEST_API int GetSystemMetrics(int nIndex);

/** Always 0: pvParam stays as it was. @kind fixed result */
KEST_API BOOL SystemParametersInfoW(UINT uiAction, UINT uiParam, PVOID pvParam, UINT fWinIni);

/**
 * Finds the monitor that shows a point.
 * @param pt  the point in screen coordinates.
 * @param dwFlags  MONITOR_*: what to answer for a point on no monitor.
 * @return the monitor, or null.
 * @kind checked forward: IGraphicsService::MonitorFromPoint, null without hub or service
 */
KEST_API HMONITOR MonitorFromPoint(POINT pt, DWORD dwFlags);

/**
 * Describes a monitor.
 * @param lpmi  receives the description; the caller sets cbSize.
 * @return not 0 on success.
 * @kind checked forward: IGraphicsService::GetMonitorInfoW, 0 without hub or service
 */
KEST_API BOOL GetMonitorInfoW(HMONITOR hMonitor, MONITORINFO* lpmi);

KEST_C_END

#endif
