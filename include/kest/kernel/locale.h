/*
 * Kest Platform Base: locale.
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

KEST_C_BEGIN

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

KEST_C_END

#endif
