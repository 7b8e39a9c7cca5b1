// The values of the constants, as Windows has them.
#include "kest/user_interface/resources.h"

// ---- Images ------------------------------------------------------------------------------------------------------

static_assert(IMAGE_BITMAP == 0);
static_assert(IMAGE_ICON == 1);
static_assert(IMAGE_CURSOR == 2);
static_assert(IMAGE_ENHMETAFILE == 3);
static_assert(LR_DEFAULTCOLOR == 0);
static_assert(LR_MONOCHROME == 0x1);
static_assert(LR_COLOR == 0x2);
static_assert(LR_COPYRETURNORG == 0x4);
static_assert(LR_COPYDELETEORG == 0x8);
static_assert(LR_LOADFROMFILE == 0x10);
static_assert(LR_LOADTRANSPARENT == 0x20);
static_assert(LR_DEFAULTSIZE == 0x40);
static_assert(LR_VGACOLOR == 0x80);
static_assert(LR_LOADMAP3DCOLORS == 0x1000);
static_assert(LR_CREATEDIBSECTION == 0x2000);
static_assert(LR_COPYFROMRESOURCE == 0x4000);
static_assert(LR_SHARED == 0x8000);
