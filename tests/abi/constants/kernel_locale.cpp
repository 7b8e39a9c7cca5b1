// The values of the constants, as Windows has them.
#include "kest/kernel/locale.h"

// ---- Code pages --------------------------------------------------------------------------------------------------

static_assert(CP_ACP == 0);
static_assert(CP_OEMCP == 1);
static_assert(CP_MACCP == 2);
static_assert(CP_THREAD_ACP == 3);
static_assert(CP_SYMBOL == 42);
static_assert(CP_UTF7 == 65000);
static_assert(CP_UTF8 == 65001);

// ---- Classes of characters ---------------------------------------------------------------------------------------

static_assert(CT_CTYPE1 == 1);
static_assert(CT_CTYPE2 == 2);
static_assert(CT_CTYPE3 == 4);
static_assert(C1_UPPER == 0x1);
static_assert(C1_LOWER == 0x2);
static_assert(C1_DIGIT == 0x4);
static_assert(C1_SPACE == 0x8);
static_assert(C1_PUNCT == 0x10);
static_assert(C1_CNTRL == 0x20);
static_assert(C1_BLANK == 0x40);
static_assert(C1_XDIGIT == 0x80);
static_assert(C1_ALPHA == 0x100);
static_assert(C1_DEFINED == 0x200);

// ---- Comparing ---------------------------------------------------------------------------------------------------

static_assert(NORM_IGNORECASE == 0x1);
static_assert(NORM_IGNORENONSPACE == 0x2);
static_assert(NORM_IGNORESYMBOLS == 0x4);
static_assert(NORM_IGNOREKANATYPE == 0x10000);
static_assert(NORM_IGNOREWIDTH == 0x20000);
static_assert(CSTR_LESS_THAN == 1);
static_assert(CSTR_EQUAL == 2);
static_assert(CSTR_GREATER_THAN == 3);

// ---- Mapping -----------------------------------------------------------------------------------------------------

static_assert(LCMAP_LOWERCASE == 0x100);
static_assert(LCMAP_UPPERCASE == 0x200);
static_assert(LCMAP_SORTKEY == 0x400);
static_assert(LCMAP_HALFWIDTH == 0x400000);
static_assert(LCMAP_FULLWIDTH == 0x800000);
static_assert(LCMAP_SIMPLIFIED_CHINESE == 0x2000000);
static_assert(LCMAP_TRADITIONAL_CHINESE == 0x4000000);

// ---- Languages ---------------------------------------------------------------------------------------------------

static_assert(LANG_NEUTRAL == 0);
static_assert(LANG_CHINESE == 0x04);
static_assert(LANG_ENGLISH == 0x09);
static_assert(SUBLANG_NEUTRAL == 0);
static_assert(SUBLANG_DEFAULT == 1);
static_assert(SUBLANG_SYS_DEFAULT == 2);
static_assert(SORT_DEFAULT == 0);
static_assert(MAKELANGID(LANG_CHINESE, SUBLANG_SYS_DEFAULT) == 0x0804);
static_assert(MAKELCID(0x0804, 0x1) == 0x10804);
static_assert(LANGIDFROMLCID(0x10804) == 0x0804);
static_assert(PRIMARYLANGID(0x0804) == 0x04);
static_assert(SUBLANGID(0x0804) == 0x02);
static_assert(LOCALE_NEUTRAL == 0);
static_assert(LOCALE_USER_DEFAULT == 0x400);
static_assert(LOCALE_SYSTEM_DEFAULT == 0x800);
static_assert(LOCALE_INVARIANT == 0x7F);
static_assert(LOCALE_NAME_MAX_LENGTH == 85);

// ---- What a locale tells -----------------------------------------------------------------------------------------

static_assert(LOCALE_ILANGUAGE == 0x1);
static_assert(LOCALE_SLANGUAGE == 0x2);
static_assert(LOCALE_SABBREVLANGNAME == 0x3);
static_assert(LOCALE_ICOUNTRY == 0x5);
static_assert(LOCALE_SCOUNTRY == 0x6);
static_assert(LOCALE_SLIST == 0xC);
static_assert(LOCALE_IMEASURE == 0xD);
static_assert(LOCALE_SDECIMAL == 0xE);
static_assert(LOCALE_STHOUSAND == 0xF);
static_assert(LOCALE_SGROUPING == 0x10);
static_assert(LOCALE_IDIGITS == 0x11);
static_assert(LOCALE_SCURRENCY == 0x14);
static_assert(LOCALE_SDATE == 0x1D);
static_assert(LOCALE_STIME == 0x1E);
static_assert(LOCALE_SSHORTDATE == 0x1F);
static_assert(LOCALE_SLONGDATE == 0x20);
static_assert(LOCALE_SISO639LANGNAME == 0x59);
static_assert(LOCALE_SISO3166CTRYNAME == 0x5A);
static_assert(LOCALE_STIMEFORMAT == 0x1003);
static_assert(LOCALE_IDEFAULTANSICODEPAGE == 0x1004);

// ---- Dates and times ---------------------------------------------------------------------------------------------

static_assert(DATE_SHORTDATE == 0x1);
static_assert(DATE_LONGDATE == 0x2);
static_assert(TIME_NOMINUTESORSECONDS == 0x1);
static_assert(TIME_NOSECONDS == 0x2);
static_assert(TIME_NOTIMEMARKER == 0x4);
static_assert(TIME_FORCE24HOURFORMAT == 0x8);
