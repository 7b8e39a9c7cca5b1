// The values of the constants, as Windows has them.
#include "kest/user_interface/input_method.h"

// ---- Places of windows -------------------------------------------------------------------------------------------

static_assert(CFS_DEFAULT == 0);
static_assert(CFS_RECT == 0x1);
static_assert(CFS_POINT == 0x2);
static_assert(CFS_FORCE_POSITION == 0x20);
static_assert(CFS_CANDIDATEPOS == 0x40);
static_assert(CFS_EXCLUDE == 0x80);

// ---- Parts of a composition --------------------------------------------------------------------------------------

static_assert(GCS_COMPREADSTR == 0x1);
static_assert(GCS_COMPREADATTR == 0x2);
static_assert(GCS_COMPREADCLAUSE == 0x4);
static_assert(GCS_COMPSTR == 0x8);
static_assert(GCS_COMPATTR == 0x10);
static_assert(GCS_COMPCLAUSE == 0x20);
static_assert(GCS_CURSORPOS == 0x80);
static_assert(GCS_DELTASTART == 0x100);
static_assert(GCS_RESULTREADSTR == 0x200);
static_assert(GCS_RESULTREADCLAUSE == 0x400);
static_assert(GCS_RESULTSTR == 0x800);
static_assert(GCS_RESULTCLAUSE == 0x1000);
