/*
 * Kest Platform Base: dialogs. Every box is drawn by the host's IDialogService: arguments reach it as they are, null
 * included, and its result is handed back unchanged. Without hub or service nothing is shown. The last-error value is
 * left to the host.
 */
#ifndef KEST_USER_INTERFACE_DIALOGS_H
#define KEST_USER_INTERFACE_DIALOGS_H

#include "kest/base_types.h"
#include "kest/export.h"

/* ---- Message boxes: buttons, icon, default button, modality ------------------------------------ */

#define MB_OK 0x00000000
#define MB_OKCANCEL 0x00000001
#define MB_ABORTRETRYIGNORE 0x00000002
#define MB_YESNOCANCEL 0x00000003
#define MB_YESNO 0x00000004
#define MB_RETRYCANCEL 0x00000005
#define MB_CANCELTRYCONTINUE 0x00000006
#define MB_ICONHAND 0x00000010
#define MB_ICONSTOP MB_ICONHAND
#define MB_ICONERROR MB_ICONHAND
#define MB_ICONQUESTION 0x00000020
#define MB_ICONEXCLAMATION 0x00000030
#define MB_ICONWARNING MB_ICONEXCLAMATION
#define MB_ICONASTERISK 0x00000040
#define MB_ICONINFORMATION MB_ICONASTERISK
#define MB_USERICON 0x00000080
#define MB_DEFBUTTON1 0x00000000
#define MB_DEFBUTTON2 0x00000100
#define MB_DEFBUTTON3 0x00000200
#define MB_DEFBUTTON4 0x00000300
#define MB_APPLMODAL 0x00000000
#define MB_SYSTEMMODAL 0x00001000
#define MB_TASKMODAL 0x00002000
#define MB_HELP 0x00004000
#define MB_NOFOCUS 0x00008000
#define MB_SETFOREGROUND 0x00010000
#define MB_DEFAULT_DESKTOP_ONLY 0x00020000
#define MB_TOPMOST 0x00040000
#define MB_RIGHT 0x00080000
#define MB_RTLREADING 0x00100000
#define MB_TYPEMASK 0x0000000F
#define MB_ICONMASK 0x000000F0
#define MB_DEFMASK 0x00000F00
#define MB_MODEMASK 0x00003000
#define MB_MISCMASK 0x0000C000

/* ---- Buttons that dialogs answer with ---------------------------------------------------------- */

#define IDOK 1
#define IDCANCEL 2
#define IDABORT 3
#define IDRETRY 4
#define IDIGNORE 5
#define IDYES 6
#define IDNO 7
#define IDCLOSE 8
#define IDHELP 9
#define IDTRYAGAIN 10
#define IDCONTINUE 11

/* ---- Task dialogs: dwFlags, dwCommonButtons, icons, notifications ------------------------------- */

#define TDF_ENABLE_HYPERLINKS 0x0001
#define TDF_USE_HICON_MAIN 0x0002
#define TDF_USE_HICON_FOOTER 0x0004
#define TDF_ALLOW_DIALOG_CANCELLATION 0x0008
#define TDF_USE_COMMAND_LINKS 0x0010
#define TDF_USE_COMMAND_LINKS_NO_ICON 0x0020
#define TDF_EXPAND_FOOTER_AREA 0x0040
#define TDF_EXPANDED_BY_DEFAULT 0x0080
#define TDF_VERIFICATION_FLAG_CHECKED 0x0100
#define TDF_SHOW_PROGRESS_BAR 0x0200
#define TDF_SHOW_MARQUEE_PROGRESS_BAR 0x0400
#define TDF_CALLBACK_TIMER 0x0800
#define TDF_POSITION_RELATIVE_TO_WINDOW 0x1000
#define TDF_RTL_LAYOUT 0x2000
#define TDF_NO_DEFAULT_RADIO_BUTTON 0x4000
#define TDF_CAN_BE_MINIMIZED 0x8000
#define TDF_SIZE_TO_CONTENT 0x1000000
#define TDCBF_OK_BUTTON 0x0001
#define TDCBF_YES_BUTTON 0x0002
#define TDCBF_NO_BUTTON 0x0004
#define TDCBF_CANCEL_BUTTON 0x0008
#define TDCBF_RETRY_BUTTON 0x0010
#define TDCBF_CLOSE_BUTTON 0x0020
#define TD_WARNING_ICON ((LPWSTR)(ULONG_PTR)(WORD)-1)
#define TD_ERROR_ICON ((LPWSTR)(ULONG_PTR)(WORD)-2)
#define TD_INFORMATION_ICON ((LPWSTR)(ULONG_PTR)(WORD)-3)
#define TD_SHIELD_ICON ((LPWSTR)(ULONG_PTR)(WORD)-4)
#define TDN_CREATED 0
#define TDN_NAVIGATED 1
#define TDN_BUTTON_CLICKED 2
#define TDN_HYPERLINK_CLICKED 3
#define TDN_TIMER 4
#define TDN_DESTROYED 5
#define TDN_RADIO_BUTTON_CLICKED 6
#define TDN_DIALOG_CONSTRUCTED 7
#define TDN_VERIFICATION_CLICKED 8
#define TDN_HELP 9
#define TDN_EXPANDO_BUTTON_CLICKED 10

KEST_C_BEGIN

/**
 * Shows a message box and waits for its answer.
 * @param hWnd  the owner; may be null.
 * @param uType  MB_*.
 * @return the button pressed (ID*).
 * @kind checked forward: IDialogService::MessageBoxW, 0 without hub or service
 */
KEST_API int MessageBoxW(HWND hWnd, const wchar_t* lpText, const wchar_t* lpCaption, UINT uType);

/**
 * Shows a task dialog and waits for its answer.
 * @param pTaskConfig  what to show.
 * @param pnButton  receives the button pressed; left as it was without hub or service. The others likewise.
 * @return S_OK, or a failure.
 * @kind checked forward: IDialogService::TaskDialogIndirect, 1 without hub or service
 * @differs{TaskDialogIndirect.AnswersSuccessWithNothingShown} Without hub or service the answer, 1, counts as success.
 */
KEST_API HRESULT TaskDialogIndirect(const TASKDIALOGCONFIG* pTaskConfig, int* pnButton, int* pnRadioButton,
                                    BOOL* pfVerificationFlagChecked);

KEST_C_END

#ifdef __cplusplus

/**
 * Shows a message box without owner, by MessageBoxW with four arguments.
 * @param uType  MB_*.
 * @return the button pressed (ID*).
 * @kind checked forward: IDialogService::MessageBoxW, 0 without hub or service
 */
KEST_API int MessageBoxW(const wchar_t* lpText, const wchar_t* lpCaption, UINT uType);

/**
 * Shows a message box without owner. Its caption is the file name of the running program, without directory and
 * extension: "editor" for /opt/app/bin/editor.bin; "MORVA" when the program's path cannot be found.
 * @param lpszText  the message.
 * @param nType  MB_*.
 * @param nIDHelp  not used.
 * @return the button pressed (ID*).
 * @null lpszText: handed to the service.
 * @kind checked forward: IDialogService::MessageBoxW, 0 without hub or service
 * @differs{AfxMessageBox.CaptionIsTheProgramsFileName} The application's title and name are not asked for.
 * @differs{AfxMessageBox.OffersNoHelp} The help context is ignored.
 */
KEST_API int AfxMessageBox(const wchar_t* lpszText, UINT nType = MB_OK, UINT nIDHelp = 0);

/**
 * Shows a message box with a string of the current resource handle, as AfxMessageBox shows a text. The string is
 * asked for by IGraphicsService::LoadStringW; without hub or that service it is empty.
 * @param nIDPrompt  the string's number.
 * @param nType  MB_*.
 * @param nIDHelp  not used.
 * @return the button pressed (ID*).
 * @kind checked forward: IDialogService::MessageBoxW, 0 without hub or service
 * @differs{AfxMessageBox.ShowsUnknownStringsAsEmpty} A string that is not found is shown as an empty message.
 * @differs{AfxMessageBox.LoadsStringsOf1024Characters} Longer strings are asked for, and shown, cut.
 */
KEST_API int AfxMessageBox(UINT nIDPrompt, UINT nType = MB_OK, UINT nIDHelp = static_cast<UINT>(-1));

#endif

#endif
