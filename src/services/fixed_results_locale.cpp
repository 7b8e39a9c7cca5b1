// Fixed results of languages, code pages and formats.
#include "kest/crt/strings.h"
#include "kest/kernel/locale.h"
#include "support/second_name.h"

// ---- Languages and code pages ------------------------------------------------------------------------------------

LCID GetSystemDefaultLCID()
{
    return 0x804;
}

UINT GetACP()
{
    return 936;
}

LCID GetUserDefaultLCID()
{
    return 0;
}

LCID GetThreadLocale()
{
    return 0;
}

BOOL SetThreadLocale(LCID)
{
    return 0;
}

int GetUserDefaultLocaleName(wchar_t*, int)
{
    return 0;
}

int LCIDToLocaleName(LCID, wchar_t*, int, DWORD)
{
    return 0;
}

int GetLocaleInfoW(LCID, LCTYPE, wchar_t*, int)
{
    return 0;
}

// ---- Formats and mappings ----------------------------------------------------------------------------------------

int GetTimeFormatW(LCID, DWORD, const SYSTEMTIME*, const wchar_t*, wchar_t*, int)
{
    return 0;
}

int GetDateFormatW(LCID, DWORD, const SYSTEMTIME*, const wchar_t*, wchar_t*, int)
{
    return 0;
}

int LCMapStringW(LCID, DWORD, const wchar_t*, int, wchar_t*, int)
{
    return 0;
}

// ---- Lead bytes --------------------------------------------------------------------------------------------------

BOOL IsDBCSLeadByte(BYTE)
{
    return 0;
}

KEST_SECOND_NAME(BOOL encodedIsDBCSLeadByte(BYTE), "IsDBCSLeadByte", "_Z14IsDBCSLeadByteh");

int isleadbyte(int)
{
    return 0;
}
