/*
 * Kest Platform Base, porting kit: the safe string functions, their flags and results.
 */
#ifndef KEST_WINDOWS_STRSAFE_H
#define KEST_WINDOWS_STRSAFE_H

#include "windef.h"
#include "winerror.h"

#if __has_include("kest/companions/strsafe.h")
#include "kest/companions/strsafe.h"
#endif

typedef wchar_t* STRSAFE_LPWSTR;
typedef const wchar_t* STRSAFE_LPCWSTR;
typedef char* STRSAFE_LPSTR;
typedef const char* STRSAFE_LPCSTR;
#ifdef UNICODE
typedef STRSAFE_LPWSTR STRSAFE_LPTSTR;
typedef STRSAFE_LPCWSTR STRSAFE_LPCTSTR;
#else
typedef STRSAFE_LPSTR STRSAFE_LPTSTR;
typedef STRSAFE_LPCSTR STRSAFE_LPCTSTR;
#endif

/* ---- Generic names ----------------------------------------------------------------------------- */

#ifdef UNICODE
#define StringCchCopy StringCchCopyW
#define StringCchCopyEx StringCchCopyExW
#define StringCchCopyN StringCchCopyNW
#define StringCchCopyNEx StringCchCopyNExW
#define StringCchCat StringCchCatW
#define StringCchCatEx StringCchCatExW
#define StringCchCatN StringCchCatNW
#define StringCchCatNEx StringCchCatNExW
#define StringCchPrintf StringCchPrintfW
#define StringCchPrintfEx StringCchPrintfExW
#define StringCchVPrintf StringCchVPrintfW
#define StringCchVPrintfEx StringCchVPrintfExW
#define StringCchLength StringCchLengthW
#define StringCbCopy StringCbCopyW
#define StringCbCopyEx StringCbCopyExW
#define StringCbCopyN StringCbCopyNW
#define StringCbCopyNEx StringCbCopyNExW
#define StringCbCat StringCbCatW
#define StringCbCatEx StringCbCatExW
#define StringCbCatN StringCbCatNW
#define StringCbCatNEx StringCbCatNExW
#define StringCbPrintf StringCbPrintfW
#define StringCbPrintfEx StringCbPrintfExW
#define StringCbVPrintf StringCbVPrintfW
#define StringCbVPrintfEx StringCbVPrintfExW
#define StringCbLength StringCbLengthW
#else
#define StringCchCopy StringCchCopyA
#define StringCchCopyEx StringCchCopyExA
#define StringCchCopyN StringCchCopyNA
#define StringCchCopyNEx StringCchCopyNExA
#define StringCchCat StringCchCatA
#define StringCchCatEx StringCchCatExA
#define StringCchCatN StringCchCatNA
#define StringCchCatNEx StringCchCatNExA
#define StringCchPrintf StringCchPrintfA
#define StringCchPrintfEx StringCchPrintfExA
#define StringCchVPrintf StringCchVPrintfA
#define StringCchVPrintfEx StringCchVPrintfExA
#define StringCchLength StringCchLengthA
#define StringCbCopy StringCbCopyA
#define StringCbCopyEx StringCbCopyExA
#define StringCbCopyN StringCbCopyNA
#define StringCbCopyNEx StringCbCopyNExA
#define StringCbCat StringCbCatA
#define StringCbCatEx StringCbCatExA
#define StringCbCatN StringCbCatNA
#define StringCbCatNEx StringCbCatNExA
#define StringCbPrintf StringCbPrintfA
#define StringCbPrintfEx StringCbPrintfExA
#define StringCbVPrintf StringCbVPrintfA
#define StringCbVPrintfEx StringCbVPrintfExA
#define StringCbLength StringCbLengthA
#endif

#endif
