// The layout of the structures: Windows's, with wide characters of four bytes.
#include "kest/user_interface/menus.h"

#include <cstddef>

static_assert(sizeof(MENUITEMINFOW) == 80);
static_assert(offsetof(MENUITEMINFOW, cbSize) == 0);
static_assert(offsetof(MENUITEMINFOW, fMask) == 4);
static_assert(offsetof(MENUITEMINFOW, fType) == 8);
static_assert(offsetof(MENUITEMINFOW, fState) == 12);
static_assert(offsetof(MENUITEMINFOW, wID) == 16);
static_assert(offsetof(MENUITEMINFOW, hSubMenu) == 24);
static_assert(offsetof(MENUITEMINFOW, hbmpChecked) == 32);
static_assert(offsetof(MENUITEMINFOW, hbmpUnchecked) == 40);
static_assert(offsetof(MENUITEMINFOW, dwItemData) == 48);
static_assert(offsetof(MENUITEMINFOW, dwTypeData) == 56);
static_assert(offsetof(MENUITEMINFOW, cch) == 64);
static_assert(offsetof(MENUITEMINFOW, hbmpItem) == 72);
