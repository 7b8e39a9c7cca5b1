/*
 * Kest Platform Base, porting kit: image lists, task dialogs, and the notifications and messages of the common
 * controls.
 */
#ifndef KEST_WINDOWS_COMMCTRL_H
#define KEST_WINDOWS_COMMCTRL_H

#include "winuser.h"

#include "kest/user_interface/dialogs.h"
#include "kest/user_interface/drawing.h"

typedef struct tagINITCOMMONCONTROLSEX
{
    DWORD dwSize;
    DWORD dwICC;
} INITCOMMONCONTROLSEX, *LPINITCOMMONCONTROLSEX;

typedef struct
{
    int iLow;
    int iHigh;
} PBRANGE, *PPBRANGE;

/* ---- Image lists ------------------------------------------------------------------------------ */

#define ILC_PALETTE 0x00000800
#define ILC_MIRROR 0x00002000
#define ILC_PERITEMMIRROR 0x00008000
#define ILD_ROP 0x00000040
#define ILD_OVERLAYMASK 0x00000F00
#define ILD_PRESERVEALPHA 0x00001000
#define ILD_SCALE 0x00002000
#define ILD_DPISCALE 0x00004000
#define ILD_SELECTED 0x00000004
#define ILD_FOCUS 0x00000002
#define ILD_BLEND 0x00000004
#define ILS_NORMAL 0x00000000
#define ILS_GLOW 0x00000001
#define ILS_SHADOW 0x00000002
#define ILS_SATURATE 0x00000004
#define ILS_ALPHA 0x00000008
#define ILCF_MOVE 0x00000000
#define ILCF_SWAP 0x00000001
#define CLR_NONE 0xFFFFFFFF
#define CLR_DEFAULT 0xFF000000

/* ---- Classes of controls that a program asks for ---------------------------------------------- */

#define ICC_LISTVIEW_CLASSES 0x00000001
#define ICC_TREEVIEW_CLASSES 0x00000002
#define ICC_BAR_CLASSES 0x00000004
#define ICC_TAB_CLASSES 0x00000008
#define ICC_UPDOWN_CLASS 0x00000010
#define ICC_PROGRESS_CLASS 0x00000020
#define ICC_HOTKEY_CLASS 0x00000040
#define ICC_ANIMATE_CLASS 0x00000080
#define ICC_WIN95_CLASSES 0x000000FF
#define ICC_DATE_CLASSES 0x00000100
#define ICC_USEREX_CLASSES 0x00000200
#define ICC_COOL_CLASSES 0x00000400
#define ICC_INTERNET_CLASSES 0x00000800
#define ICC_PAGESCROLLER_CLASS 0x00001000
#define ICC_NATIVEFNTCTL_CLASS 0x00002000
#define ICC_STANDARD_CLASSES 0x00004000
#define ICC_LINK_CLASS 0x00008000

/* ---- Notifications that every control sends --------------------------------------------------- */

#define NM_FIRST 0U
#define NM_OUTOFMEMORY (NM_FIRST - 1)
#define NM_CLICK (NM_FIRST - 2)
#define NM_DBLCLK (NM_FIRST - 3)
#define NM_RETURN (NM_FIRST - 4)
#define NM_RCLICK (NM_FIRST - 5)
#define NM_RDBLCLK (NM_FIRST - 6)
#define NM_SETFOCUS (NM_FIRST - 7)
#define NM_KILLFOCUS (NM_FIRST - 8)
#define NM_CUSTOMDRAW (NM_FIRST - 12)
#define NM_HOVER (NM_FIRST - 13)
#define NM_NCHITTEST (NM_FIRST - 14)
#define NM_KEYDOWN (NM_FIRST - 15)
#define NM_RELEASEDCAPTURE (NM_FIRST - 16)
#define NM_SETCURSOR (NM_FIRST - 17)
#define NM_CHAR (NM_FIRST - 18)
#define NM_TOOLTIPSCREATED (NM_FIRST - 19)
#define NM_LDOWN (NM_FIRST - 20)
#define NM_RDOWN (NM_FIRST - 21)
#define LVN_FIRST (0U - 100U)
#define HDN_FIRST (0U - 300U)
#define TVN_FIRST (0U - 400U)
#define TTN_FIRST (0U - 520U)
#define TCN_FIRST (0U - 550U)
#define CDN_FIRST (0U - 601U)
#define TBN_FIRST (0U - 700U)
#define UDN_FIRST (0U - 721U)

/* ---- Messages of progress bars ---------------------------------------------------------------- */

#define PBM_SETRANGE 0x0401
#define PBM_SETPOS 0x0402
#define PBM_DELTAPOS 0x0403
#define PBM_SETSTEP 0x0404
#define PBM_STEPIT 0x0405
#define PBM_SETRANGE32 0x0406
#define PBM_GETRANGE 0x0407
#define PBM_GETPOS 0x0408
#define PBM_SETBARCOLOR 0x0409
#define PBM_SETMARQUEE 0x040A
#define PBM_SETSTATE 0x0410
#define PBST_NORMAL 0x0001
#define PBST_ERROR 0x0002
#define PBST_PAUSED 0x0003

/* ---- Messages of task dialogs ----------------------------------------------------------------- */

#define TDM_NAVIGATE_PAGE 0x0465
#define TDM_CLICK_BUTTON 0x0466
#define TDM_SET_MARQUEE_PROGRESS_BAR 0x0467
#define TDM_SET_PROGRESS_BAR_STATE 0x0468
#define TDM_SET_PROGRESS_BAR_RANGE 0x0469
#define TDM_SET_PROGRESS_BAR_POS 0x046A
#define TDM_SET_PROGRESS_BAR_MARQUEE 0x046B
#define TDM_SET_ELEMENT_TEXT 0x046C
#define TDM_CLICK_RADIO_BUTTON 0x046E
#define TDM_ENABLE_BUTTON 0x046F
#define TDM_ENABLE_RADIO_BUTTON 0x0470
#define TDM_CLICK_VERIFICATION 0x0471
#define TDM_UPDATE_ELEMENT_TEXT 0x0472
#define TDM_SET_BUTTON_ELEVATION_REQUIRED_STATE 0x0473
#define TDM_UPDATE_ICON 0x0474
#define TDE_CONTENT 0
#define TDE_EXPANDED_INFORMATION 1
#define TDE_FOOTER 2
#define TDE_MAIN_INSTRUCTION 3
#define TDIE_ICON_MAIN 0
#define TDIE_ICON_FOOTER 1

#endif
