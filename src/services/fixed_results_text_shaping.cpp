// Fixed results of the shaping of complex scripts.
#include "kest/user_interface/text_shaping.h"

HRESULT ScriptBreak(const wchar_t*, int, const SCRIPT_ANALYSIS*, SCRIPT_LOGATTR*)
{
    return 0;
}

HRESULT ScriptFreeCache(SCRIPT_CACHE*)
{
    return 0;
}

HRESULT ScriptGetProperties(const SCRIPT_PROPERTIES***, int*)
{
    return 0;
}

HRESULT ScriptStringAnalyse(HDC, const void*, int, int, int, DWORD, int, SCRIPT_CONTROL*, SCRIPT_STATE*, const int*,
                            SCRIPT_TABDEF*, const BYTE*, SCRIPT_STRING_ANALYSIS*)
{
    return 0;
}

HRESULT ScriptStringFree(SCRIPT_STRING_ANALYSIS*)
{
    return 0;
}

HRESULT ScriptStringOut(SCRIPT_STRING_ANALYSIS, int, int, UINT, const RECT*, int, int, BOOL)
{
    return 0;
}
