// Each function has the signature that modules built elsewhere call it by.
#include "abi/signature.h"
#include "kest/user_interface/text_shaping.h"

using namespace kest::test;

static_assert(
    hasSignature<HRESULT(const wchar_t*, int, int, const void*, const void*, SCRIPT_ITEM*, int*), ScriptItemize>);
static_assert(hasSignature<HRESULT(int, const BYTE*, int*, int*), ScriptLayout>);
static_assert(hasSignature<HRESULT(const wchar_t*, int, const SCRIPT_ANALYSIS*, SCRIPT_LOGATTR*), ScriptBreak>);
static_assert(hasSignature<HRESULT(SCRIPT_CACHE*), ScriptFreeCache>);
static_assert(hasSignature<HRESULT(const SCRIPT_PROPERTIES***, int*), ScriptGetProperties>);
static_assert(hasSignature<HRESULT(HDC, const void*, int, int, int, DWORD, int, SCRIPT_CONTROL*, SCRIPT_STATE*,
                                   const int*, SCRIPT_TABDEF*, const BYTE*, SCRIPT_STRING_ANALYSIS*),
                           ScriptStringAnalyse>);
static_assert(hasSignature<HRESULT(SCRIPT_STRING_ANALYSIS*), ScriptStringFree>);
static_assert(
    hasSignature<HRESULT(SCRIPT_STRING_ANALYSIS, int, int, UINT, const RECT*, int, int, BOOL), ScriptStringOut>);
