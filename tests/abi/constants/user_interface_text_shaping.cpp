// The values of the constants, as Windows has them.
#include "kest/user_interface/text_shaping.h"

// ---- Analysis of strings -----------------------------------------------------------------------------------------

static_assert(SCRIPT_UNDEFINED == 0);
static_assert(SSA_PASSWORD == 0x1);
static_assert(SSA_TAB == 0x2);
static_assert(SSA_CLIP == 0x4);
static_assert(SSA_FIT == 0x8);
static_assert(SSA_DZWG == 0x10);
static_assert(SSA_FALLBACK == 0x20);
static_assert(SSA_BREAK == 0x40);
static_assert(SSA_GLYPHS == 0x80);
static_assert(SSA_RTL == 0x100);
static_assert(SSA_GCP == 0x200);
static_assert(SSA_HOTKEY == 0x400);
static_assert(SSA_METAFILE == 0x800);
static_assert(SSA_LINK == 0x1000);
static_assert(SSA_HIDEHOTKEY == 0x2000);
static_assert(SSA_HOTKEYONLY == 0x2400);
static_assert(SSA_FULLMEASURE == 0x4000000);
static_assert(SSA_LPKANSIFALLBACK == 0x8000000);
static_assert(SSA_PIDX == 0x10000000);
static_assert(SSA_LAYOUTRTL == 0x20000000);
static_assert(SSA_DONTGLYPH == 0x40000000);
static_assert(SSA_NOKASHIDA == 0x80000000);
