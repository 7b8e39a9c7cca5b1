/*
 * Kest Platform Base: menus and accelerators. None exist here: the functions answer that there are none.
 */
#ifndef KEST_USER_INTERFACE_MENUS_H
#define KEST_USER_INTERFACE_MENUS_H

#include "kest/base_types.h"
#include "kest/export.h"

typedef struct tagMENUITEMINFOW
{
    UINT cbSize;
    UINT fMask;
    UINT fType;
    UINT fState;
    UINT wID;
    HMENU hSubMenu;
    HBITMAP hbmpChecked;
    HBITMAP hbmpUnchecked;
    ULONG_PTR dwItemData;
    LPWSTR dwTypeData;
    UINT cch;
    HBITMAP hbmpItem;
} MENUITEMINFOW, *LPMENUITEMINFOW;
typedef const MENUITEMINFOW* LPCMENUITEMINFOW;

/* Flags of AppendMenuW, EnableMenuItem and CheckMenuItem */
#define MF_BYCOMMAND 0x00000000
#define MF_BYPOSITION 0x00000400
#define MF_SEPARATOR 0x00000800
#define MF_ENABLED 0x00000000
#define MF_GRAYED 0x00000001
#define MF_DISABLED 0x00000002
#define MF_UNCHECKED 0x00000000
#define MF_CHECKED 0x00000008
#define MF_STRING 0x00000000
#define MF_BITMAP 0x00000004
#define MF_OWNERDRAW 0x00000100
#define MF_POPUP 0x00000010
#define MF_MENUBARBREAK 0x00000020
#define MF_MENUBREAK 0x00000040

/* fMask of MENUITEMINFOW */
#define MIIM_STATE 0x00000001
#define MIIM_ID 0x00000002
#define MIIM_SUBMENU 0x00000004
#define MIIM_CHECKMARKS 0x00000008
#define MIIM_TYPE 0x00000010
#define MIIM_DATA 0x00000020
#define MIIM_STRING 0x00000040
#define MIIM_BITMAP 0x00000080
#define MIIM_FTYPE 0x00000100

/* fType and fState of MENUITEMINFOW */
#define MFT_STRING MF_STRING
#define MFT_BITMAP MF_BITMAP
#define MFT_MENUBARBREAK MF_MENUBARBREAK
#define MFT_MENUBREAK MF_MENUBREAK
#define MFT_OWNERDRAW MF_OWNERDRAW
#define MFT_RADIOCHECK 0x00000200
#define MFT_SEPARATOR MF_SEPARATOR
#define MFS_GRAYED 0x00000003
#define MFS_DISABLED MFS_GRAYED
#define MFS_CHECKED MF_CHECKED
#define MFS_HILITE 0x00000080
#define MFS_ENABLED MF_ENABLED
#define MFS_UNCHECKED MF_UNCHECKED
#define MFS_DEFAULT 0x00001000

KEST_C_BEGIN

/** Always 0: nothing to destroy. @kind fixed result */
KEST_API BOOL DestroyAcceleratorTable(HACCEL hAccel);
KEST_API BOOL DestroyMenu(HMENU hMenu);

/** Always null: there are no menus. @kind fixed result */
KEST_API HMENU CreatePopupMenu(void);

/** Always 0: nothing is appended. @kind fixed result */
KEST_API BOOL AppendMenuW(HMENU hMenu, UINT uFlags, UINT_PTR uIDNewItem, const wchar_t* lpNewItem);

/** Always 0: a menu without items. @kind fixed result */
KEST_API int GetMenuItemCount(HMENU hMenu);

/** Always 0: lpmii stays as it was. @kind fixed result */
KEST_API BOOL GetMenuItemInfoW(HMENU hMenu, UINT item, BOOL fByPosition, LPMENUITEMINFOW lpmii);

/** Always 0: the item was enabled, was not checked. @kind fixed result */
KEST_API BOOL EnableMenuItem(HMENU hMenu, UINT uIDEnableItem, UINT uEnable);
KEST_API DWORD CheckMenuItem(HMENU hMenu, UINT uIDCheckItem, UINT uCheck);

/** Always null: there are no submenus. @kind fixed result */
KEST_API HMENU GetSubMenu(HMENU hMenu, int nPos);

KEST_C_END

#endif
