// Each function has the signature that modules built elsewhere call it by.
#include "abi/signature.h"
#include "kest/user_interface/menus.h"

using namespace kest::test;

static_assert(hasSignature<BOOL(HACCEL), DestroyAcceleratorTable>);
static_assert(hasSignature<BOOL(HMENU), DestroyMenu>);
static_assert(hasSignature<HMENU(), CreatePopupMenu>);
static_assert(hasSignature<BOOL(HMENU, UINT, UINT_PTR, const wchar_t*), AppendMenuW>);
static_assert(hasSignature<int(HMENU), GetMenuItemCount>);
static_assert(hasSignature<BOOL(HMENU, UINT, BOOL, MENUITEMINFOW*), GetMenuItemInfoW>);
static_assert(hasSignature<BOOL(HMENU, UINT, UINT), EnableMenuItem>);
static_assert(hasSignature<DWORD(HMENU, UINT, UINT), CheckMenuItem>);
static_assert(hasSignature<HMENU(HMENU, int), GetSubMenu>);
