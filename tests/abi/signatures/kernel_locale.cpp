// Each function has the signature that modules built elsewhere call it by.
#include "abi/signature.h"
#include "kest/kernel/locale.h"

using namespace kest::test;

static_assert(hasSignature<LCID(), GetSystemDefaultLCID>);
static_assert(hasSignature<LCID(), GetUserDefaultLCID>);
static_assert(hasSignature<LCID(), GetThreadLocale>);
static_assert(hasSignature<UINT(), GetACP>);
static_assert(hasSignature<BOOL(LCID), SetThreadLocale>);
static_assert(hasSignature<int(wchar_t*, int), GetUserDefaultLocaleName>);
static_assert(hasSignature<int(LCID, wchar_t*, int, DWORD), LCIDToLocaleName>);
static_assert(hasSignature<int(LCID, LCTYPE, wchar_t*, int), GetLocaleInfoW>);
static_assert(hasSignature<int(LCID, DWORD, const SYSTEMTIME*, const wchar_t*, wchar_t*, int), GetTimeFormatW>);
static_assert(hasSignature<int(LCID, DWORD, const SYSTEMTIME*, const wchar_t*, wchar_t*, int), GetDateFormatW>);
static_assert(hasSignature<int(LCID, DWORD, const wchar_t*, const NUMBERFMTW*, wchar_t*, int), GetNumberFormatW>);
static_assert(hasSignature<int(LCID, DWORD, const wchar_t*, int, wchar_t*, int), LCMapStringW>);
static_assert(hasSignature<BOOL(UINT), IsValidCodePage>);
static_assert(hasSignature<BOOL(BYTE), IsDBCSLeadByte>);
static_assert(hasSignature<BOOL(LCID, DWORD, const wchar_t*, int, WORD*), GetStringTypeExW>);
static_assert(hasSignature<int(LCID, DWORD, const wchar_t*, int, const wchar_t*, int), CompareStringW>);
