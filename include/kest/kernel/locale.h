/*
 * Kest Platform Base: languages, code pages, dates, and the classes and order of characters.
 *
 * The user has no Windows locale: what asks for one answers that there is none. The system's language is fixed.
 */
#ifndef KEST_KERNEL_LOCALE_H
#define KEST_KERNEL_LOCALE_H

#include "kest/base_types.h"
#include "kest/export.h"

/* Code pages */
#define CP_ACP 0
#define CP_OEMCP 1
#define CP_MACCP 2
#define CP_THREAD_ACP 3
#define CP_SYMBOL 42
#define CP_UTF7 65000
#define CP_UTF8 65001

/* Types of GetStringTypeExW, and the classes of type 1 */
#define CT_CTYPE1 0x00000001
#define CT_CTYPE2 0x00000002
#define CT_CTYPE3 0x00000004
#define C1_UPPER 0x0001
#define C1_LOWER 0x0002
#define C1_DIGIT 0x0004
#define C1_SPACE 0x0008
#define C1_PUNCT 0x0010
#define C1_CNTRL 0x0020
#define C1_BLANK 0x0040
#define C1_XDIGIT 0x0080
#define C1_ALPHA 0x0100
#define C1_DEFINED 0x0200

/* Flags and results of CompareStringW */
#define NORM_IGNORECASE 0x00000001
#define NORM_IGNORENONSPACE 0x00000002
#define NORM_IGNORESYMBOLS 0x00000004
#define NORM_IGNOREKANATYPE 0x00010000
#define NORM_IGNOREWIDTH 0x00020000
#define CSTR_LESS_THAN 1
#define CSTR_EQUAL 2
#define CSTR_GREATER_THAN 3

/* Flags of LCMapStringW */
#define LCMAP_LOWERCASE 0x00000100
#define LCMAP_UPPERCASE 0x00000200
#define LCMAP_SORTKEY 0x00000400
#define LCMAP_HALFWIDTH 0x00400000
#define LCMAP_FULLWIDTH 0x00800000
#define LCMAP_SIMPLIFIED_CHINESE 0x02000000
#define LCMAP_TRADITIONAL_CHINESE 0x04000000

/* Languages and locales */
#define LANG_NEUTRAL 0x00
#define LANG_CHINESE 0x04
#define LANG_ENGLISH 0x09
#define SUBLANG_NEUTRAL 0x00
#define SUBLANG_DEFAULT 0x01
#define SUBLANG_SYS_DEFAULT 0x02
#define SORT_DEFAULT 0x0
#define MAKELANGID(primary, sub) ((WORD)(((WORD)(sub) << 10) | (WORD)(primary)))
#define MAKELCID(language, sort) ((DWORD)(((DWORD)(WORD)(sort) << 16) | (DWORD)(WORD)(language)))
#define LANGIDFROMLCID(lcid) ((WORD)(lcid))
#define PRIMARYLANGID(language) ((WORD)((WORD)(language)&0x3FF))
#define SUBLANGID(language) ((WORD)((WORD)(language) >> 10))
#define LOCALE_NEUTRAL 0x0000
#define LOCALE_USER_DEFAULT 0x0400
#define LOCALE_SYSTEM_DEFAULT 0x0800
#define LOCALE_INVARIANT 0x007F
#define LOCALE_NAME_MAX_LENGTH 85

/* What GetLocaleInfoW is asked for */
#define LOCALE_ILANGUAGE 0x0001
#define LOCALE_SLANGUAGE 0x0002
#define LOCALE_SABBREVLANGNAME 0x0003
#define LOCALE_ICOUNTRY 0x0005
#define LOCALE_SCOUNTRY 0x0006
#define LOCALE_SLIST 0x000C
#define LOCALE_IMEASURE 0x000D
#define LOCALE_SDECIMAL 0x000E
#define LOCALE_STHOUSAND 0x000F
#define LOCALE_SGROUPING 0x0010
#define LOCALE_IDIGITS 0x0011
#define LOCALE_SCURRENCY 0x0014
#define LOCALE_SDATE 0x001D
#define LOCALE_STIME 0x001E
#define LOCALE_SSHORTDATE 0x001F
#define LOCALE_SLONGDATE 0x0020
#define LOCALE_SISO639LANGNAME 0x0059
#define LOCALE_SISO3166CTRYNAME 0x005A
#define LOCALE_STIMEFORMAT 0x1003
#define LOCALE_IDEFAULTANSICODEPAGE 0x1004

/* Flags of GetDateFormatW and GetTimeFormatW */
#define DATE_SHORTDATE 0x00000001
#define DATE_LONGDATE 0x00000002
#define TIME_NOMINUTESORSECONDS 0x00000001
#define TIME_NOSECONDS 0x00000002
#define TIME_NOTIMEMARKER 0x00000004
#define TIME_FORCE24HOURFORMAT 0x00000008

KEST_C_BEGIN

/* ---- Asked of the host ------------------------------------------------------------------------- */

/**
 * Tells whether the host knows a code page.
 * @return not 0 when it does.
 * @lasterror left to the host.
 * @kind checked forward: IFontService::IsValidCodePage, 0 without hub or service
 */
KEST_API BOOL IsValidCodePage(UINT CodePage);

/**
 * Formats a number given as text ("-1234.5") for a locale.
 * @param lpFormat  the format; null asks for the locale's own, with dwFlags.
 * @param lpNumberStr  receives the text; left as it was without hub or service.
 * @param cchNumber  its size in characters; 0 asks for the size needed.
 * @return characters written, terminator included; 0 on failure.
 * @lasterror left to the host.
 * @kind checked forward: ISystemService::GetNumberFormatW, 0 without hub or service
 */
KEST_API int GetNumberFormatW(LCID Locale, DWORD dwFlags, const wchar_t* lpValue, const NUMBERFMTW* lpFormat,
                              wchar_t* lpNumberStr, int cchNumber);

/* ---- Languages, code pages and formats -------------------------------------------------------- */

/** Always 0x804 (2052), simplified Chinese. @kind fixed result */
KEST_API LCID GetSystemDefaultLCID(void);

/** Always 0x3A8 (936), the code page of simplified Chinese; narrow text is UTF-8 all the same. @kind fixed result */
KEST_API UINT GetACP(void);

/** Always 0: the user and the thread have no locale. @kind fixed result */
KEST_API LCID GetUserDefaultLCID(void);
KEST_API LCID GetThreadLocale(void);
KEST_API BOOL SetThreadLocale(LCID Locale);

/** Always 0: buffers stay as they were, also when asked for a size. @kind fixed result */
KEST_API int GetUserDefaultLocaleName(wchar_t* lpLocaleName, int cchLocaleName);
KEST_API int LCIDToLocaleName(LCID Locale, wchar_t* lpName, int cchName, DWORD dwFlags);
KEST_API int GetLocaleInfoW(LCID Locale, LCTYPE LCType, wchar_t* lpLCData, int cchData);
KEST_API int GetTimeFormatW(LCID Locale, DWORD dwFlags, const SYSTEMTIME* lpTime, const wchar_t* lpFormat,
                            wchar_t* lpTimeStr, int cchTime);
KEST_API int GetDateFormatW(LCID Locale, DWORD dwFlags, const SYSTEMTIME* lpDate, const wchar_t* lpFormat,
                            wchar_t* lpDateStr, int cchDate);
KEST_API int LCMapStringW(LCID Locale, DWORD dwMapFlags, const wchar_t* lpSrcStr, int cchSrc, wchar_t* lpDestStr,
                          int cchDest);

/** Always 0: no byte is ever a lead byte. @kind fixed result */
KEST_API BOOL IsDBCSLeadByte(BYTE TestChar);

/* ---- Classes and order of characters ---------------------------------------------------------- */

/**
 * Stores the class word of each character: 0x284 for a digit, 0x302 for a letter a to z, 0x301 for a letter A to Z,
 * 0x248 for a space, 0x300 (alphabetic, defined) for every other character.
 * @param Locale    not looked at.
 * @param dwInfoType  CT_CTYPE1; for any other type nothing is stored.
 * @param lpSrcStr  the characters; no terminator is looked for.
 * @param cchSrc    their number; below 1 nothing is stored.
 * @param lpCharType  receives cchSrc words.
 * @return 1.
 * @lasterror left as it is.
 * @null not tested.
 * @kind local
 * @differs{GetStringTypeExW.TakesOtherCharactersForLetters} Punctuation, control characters, tabs and everything
 * outside ASCII count as alphabetic.
 * @differs{GetStringTypeExW.MarksNoHexadecimalLetters} The letters a to f are not marked as hexadecimal digits.
 * @differs{GetStringTypeExW.StoresNothingForOtherTypes} Types 2 and 3 succeed with nothing stored.
 * @differs{GetStringTypeExW.KnowsNoTerminatedStrings} A count of -1 does not stand for a terminated string.
 */
KEST_API BOOL GetStringTypeExW(LCID Locale, DWORD dwInfoType, const wchar_t* lpSrcStr, int cchSrc, WORD* lpCharType);

/**
 * Compares two terminated strings with wcscmp or, where NORM_IGNORECASE is set, with wcscasecmp.
 * @param Locale    not looked at.
 * @param dwCmpFlags  only NORM_IGNORECASE counts.
 * @param cchCount1, cchCount2  not looked at: both strings must be terminated.
 * @return 1 when the first sorts first, 2 when they are equal, 3 when the first sorts last.
 * @lasterror left as it is.
 * @null not tested.
 * @kind local
 * @differs{CompareStringW.ReadsUpToTheTerminators} The lengths are ignored.
 * @differs{CompareStringW.OrdersByCode} The order is that of the codes, not the locale's.
 */
KEST_API int CompareStringW(LCID Locale, DWORD dwCmpFlags, const wchar_t* lpString1, int cchCount1,
                            const wchar_t* lpString2, int cchCount2);

KEST_C_END

#endif
