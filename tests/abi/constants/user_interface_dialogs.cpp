// The values of the constants, as Windows has them.
#include "kest/user_interface/dialogs.h"

// ---- Message boxes -----------------------------------------------------------------------------------------------

static_assert(MB_OK == 0);
static_assert(MB_OKCANCEL == 1);
static_assert(MB_ABORTRETRYIGNORE == 2);
static_assert(MB_YESNOCANCEL == 3);
static_assert(MB_YESNO == 4);
static_assert(MB_RETRYCANCEL == 5);
static_assert(MB_CANCELTRYCONTINUE == 6);
static_assert(MB_ICONHAND == 0x10);
static_assert(MB_ICONSTOP == 0x10);
static_assert(MB_ICONERROR == 0x10);
static_assert(MB_ICONQUESTION == 0x20);
static_assert(MB_ICONEXCLAMATION == 0x30);
static_assert(MB_ICONWARNING == 0x30);
static_assert(MB_ICONASTERISK == 0x40);
static_assert(MB_ICONINFORMATION == 0x40);
static_assert(MB_USERICON == 0x80);
static_assert(MB_DEFBUTTON1 == 0);
static_assert(MB_DEFBUTTON2 == 0x100);
static_assert(MB_DEFBUTTON3 == 0x200);
static_assert(MB_DEFBUTTON4 == 0x300);
static_assert(MB_APPLMODAL == 0);
static_assert(MB_SYSTEMMODAL == 0x1000);
static_assert(MB_TASKMODAL == 0x2000);
static_assert(MB_HELP == 0x4000);
static_assert(MB_NOFOCUS == 0x8000);
static_assert(MB_SETFOREGROUND == 0x10000);
static_assert(MB_DEFAULT_DESKTOP_ONLY == 0x20000);
static_assert(MB_TOPMOST == 0x40000);
static_assert(MB_RIGHT == 0x80000);
static_assert(MB_RTLREADING == 0x100000);
static_assert(MB_TYPEMASK == 0xF);
static_assert(MB_ICONMASK == 0xF0);
static_assert(MB_DEFMASK == 0xF00);
static_assert(MB_MODEMASK == 0x3000);
static_assert(MB_MISCMASK == 0xC000);

// ---- Buttons -----------------------------------------------------------------------------------------------------

static_assert(IDOK == 1);
static_assert(IDCANCEL == 2);
static_assert(IDABORT == 3);
static_assert(IDRETRY == 4);
static_assert(IDIGNORE == 5);
static_assert(IDYES == 6);
static_assert(IDNO == 7);
static_assert(IDCLOSE == 8);
static_assert(IDHELP == 9);
static_assert(IDTRYAGAIN == 10);
static_assert(IDCONTINUE == 11);

// ---- Task dialogs ------------------------------------------------------------------------------------------------

static_assert(TDF_ENABLE_HYPERLINKS == 0x1);
static_assert(TDF_USE_HICON_MAIN == 0x2);
static_assert(TDF_USE_HICON_FOOTER == 0x4);
static_assert(TDF_ALLOW_DIALOG_CANCELLATION == 0x8);
static_assert(TDF_USE_COMMAND_LINKS == 0x10);
static_assert(TDF_USE_COMMAND_LINKS_NO_ICON == 0x20);
static_assert(TDF_EXPAND_FOOTER_AREA == 0x40);
static_assert(TDF_EXPANDED_BY_DEFAULT == 0x80);
static_assert(TDF_VERIFICATION_FLAG_CHECKED == 0x100);
static_assert(TDF_SHOW_PROGRESS_BAR == 0x200);
static_assert(TDF_SHOW_MARQUEE_PROGRESS_BAR == 0x400);
static_assert(TDF_CALLBACK_TIMER == 0x800);
static_assert(TDF_POSITION_RELATIVE_TO_WINDOW == 0x1000);
static_assert(TDF_RTL_LAYOUT == 0x2000);
static_assert(TDF_NO_DEFAULT_RADIO_BUTTON == 0x4000);
static_assert(TDF_CAN_BE_MINIMIZED == 0x8000);
static_assert(TDF_SIZE_TO_CONTENT == 0x1000000);
static_assert(TDCBF_OK_BUTTON == 0x1);
static_assert(TDCBF_YES_BUTTON == 0x2);
static_assert(TDCBF_NO_BUTTON == 0x4);
static_assert(TDCBF_CANCEL_BUTTON == 0x8);
static_assert(TDCBF_RETRY_BUTTON == 0x10);
static_assert(TDCBF_CLOSE_BUTTON == 0x20);
static_assert(TDN_CREATED == 0);
static_assert(TDN_NAVIGATED == 1);
static_assert(TDN_BUTTON_CLICKED == 2);
static_assert(TDN_HYPERLINK_CLICKED == 3);
static_assert(TDN_TIMER == 4);
static_assert(TDN_DESTROYED == 5);
static_assert(TDN_RADIO_BUTTON_CLICKED == 6);
static_assert(TDN_DIALOG_CONSTRUCTED == 7);
static_assert(TDN_VERIFICATION_CLICKED == 8);
static_assert(TDN_HELP == 9);
static_assert(TDN_EXPANDO_BUTTON_CLICKED == 10);
