// The values of the constants, as Windows has them.
#include "kest/user_interface/menus.h"

// ---- Items -------------------------------------------------------------------------------------------------------

static_assert(MF_BYCOMMAND == 0);
static_assert(MF_BYPOSITION == 0x400);
static_assert(MF_SEPARATOR == 0x800);
static_assert(MF_ENABLED == 0);
static_assert(MF_GRAYED == 0x1);
static_assert(MF_DISABLED == 0x2);
static_assert(MF_UNCHECKED == 0);
static_assert(MF_CHECKED == 0x8);
static_assert(MF_STRING == 0);
static_assert(MF_BITMAP == 0x4);
static_assert(MF_OWNERDRAW == 0x100);
static_assert(MF_POPUP == 0x10);
static_assert(MF_MENUBARBREAK == 0x20);
static_assert(MF_MENUBREAK == 0x40);

// ---- What describes an item --------------------------------------------------------------------------------------

static_assert(MIIM_STATE == 0x1);
static_assert(MIIM_ID == 0x2);
static_assert(MIIM_SUBMENU == 0x4);
static_assert(MIIM_CHECKMARKS == 0x8);
static_assert(MIIM_TYPE == 0x10);
static_assert(MIIM_DATA == 0x20);
static_assert(MIIM_STRING == 0x40);
static_assert(MIIM_BITMAP == 0x80);
static_assert(MIIM_FTYPE == 0x100);
static_assert(MFT_STRING == 0);
static_assert(MFT_BITMAP == 0x4);
static_assert(MFT_MENUBARBREAK == 0x20);
static_assert(MFT_MENUBREAK == 0x40);
static_assert(MFT_OWNERDRAW == 0x100);
static_assert(MFT_RADIOCHECK == 0x200);
static_assert(MFT_SEPARATOR == 0x800);
static_assert(MFS_GRAYED == 0x3);
static_assert(MFS_DISABLED == 0x3);
static_assert(MFS_CHECKED == 0x8);
static_assert(MFS_HILITE == 0x80);
static_assert(MFS_ENABLED == 0);
static_assert(MFS_UNCHECKED == 0);
static_assert(MFS_DEFAULT == 0x1000);
