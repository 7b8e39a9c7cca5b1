#include "kest/kernel/locale.h"

#include <cwchar>

namespace
{

WORD classOf(wchar_t character)
{
    if (character >= L'0' && character <= L'9')
    {
        return C1_DIGIT | C1_XDIGIT | C1_DEFINED;
    }
    if (character >= L'a' && character <= L'z')
    {
        return C1_LOWER | C1_ALPHA | C1_DEFINED;
    }
    if (character >= L'A' && character <= L'Z')
    {
        return C1_UPPER | C1_ALPHA | C1_DEFINED;
    }
    if (character == L' ')
    {
        return C1_SPACE | C1_BLANK | C1_DEFINED;
    }
    return C1_ALPHA | C1_DEFINED;
}

} // namespace

BOOL GetStringTypeExW(LCID, DWORD dwInfoType, const wchar_t* lpSrcStr, int cchSrc, WORD* lpCharType)
{
    if (dwInfoType == CT_CTYPE1)
    {
        for (int index = 0; index < cchSrc; ++index)
        {
            lpCharType[index] = classOf(lpSrcStr[index]);
        }
    }
    return TRUE;
}

int CompareStringW(LCID, DWORD dwCmpFlags, const wchar_t* lpString1, int, const wchar_t* lpString2, int)
{
    const bool ignoreCase = (dwCmpFlags & NORM_IGNORECASE) != 0;
    const int order = ignoreCase ? wcscasecmp(lpString1, lpString2) : std::wcscmp(lpString1, lpString2);
    return order < 0 ? CSTR_LESS_THAN : order > 0 ? CSTR_GREATER_THAN : CSTR_EQUAL;
}
