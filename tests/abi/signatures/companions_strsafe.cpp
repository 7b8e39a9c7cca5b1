// Each function has the signature that modules built elsewhere call it by.
#include "abi/signature.h"
#include "kest/companions/strsafe.h"

#include <cstdarg>

using namespace kest::test;

static_assert(hasSignature<HRESULT(wchar_t*, unsigned long, const wchar_t*), StringCchCopyW>);
static_assert(hasSignature<HRESULT(char*, unsigned long, const char*), StringCchCopyA>);
static_assert(hasSignature<HRESULT(wchar_t*, unsigned long, const wchar_t*), StringCbCopyW>);
static_assert(hasSignature<HRESULT(char*, unsigned long, const char*), StringCbCopyA>);
static_assert(
    hasSignature<HRESULT(wchar_t*, unsigned long, const wchar_t*, wchar_t**, unsigned long*, DWORD), StringCchCopyExW>);
static_assert(
    hasSignature<HRESULT(char*, unsigned long, const char*, char**, unsigned long*, DWORD), StringCchCopyExA>);
static_assert(
    hasSignature<HRESULT(wchar_t*, unsigned long, const wchar_t*, wchar_t**, unsigned long*, DWORD), StringCbCopyExW>);
static_assert(hasSignature<HRESULT(char*, unsigned long, const char*, char**, unsigned long*, DWORD), StringCbCopyExA>);
static_assert(hasSignature<HRESULT(wchar_t*, unsigned long, const wchar_t*, unsigned long), StringCchCopyNW>);
static_assert(hasSignature<HRESULT(char*, unsigned long, const char*, unsigned long), StringCchCopyNA>);
static_assert(hasSignature<HRESULT(wchar_t*, unsigned long, const wchar_t*, unsigned long), StringCbCopyNW>);
static_assert(hasSignature<HRESULT(char*, unsigned long, const char*, unsigned long), StringCbCopyNA>);
static_assert(
    hasSignature<HRESULT(wchar_t*, unsigned long, const wchar_t*, unsigned long, wchar_t**, unsigned long*, DWORD),
                 StringCchCopyNExW>);
static_assert(hasSignature<HRESULT(char*, unsigned long, const char*, unsigned long, char**, unsigned long*, DWORD),
                           StringCchCopyNExA>);
static_assert(
    hasSignature<HRESULT(wchar_t*, unsigned long, const wchar_t*, unsigned long, wchar_t**, unsigned long*, DWORD),
                 StringCbCopyNExW>);
static_assert(hasSignature<HRESULT(char*, unsigned long, const char*, unsigned long, char**, unsigned long*, DWORD),
                           StringCbCopyNExA>);
static_assert(hasSignature<HRESULT(wchar_t*, unsigned long, const wchar_t*), StringCchCatW>);
static_assert(hasSignature<HRESULT(char*, unsigned long, const char*), StringCchCatA>);
static_assert(hasSignature<HRESULT(wchar_t*, unsigned long, const wchar_t*), StringCbCatW>);
static_assert(hasSignature<HRESULT(char*, unsigned long, const char*), StringCbCatA>);
static_assert(
    hasSignature<HRESULT(wchar_t*, unsigned long, const wchar_t*, wchar_t**, unsigned long*, DWORD), StringCchCatExW>);
static_assert(hasSignature<HRESULT(char*, unsigned long, const char*, char**, unsigned long*, DWORD), StringCchCatExA>);
static_assert(
    hasSignature<HRESULT(wchar_t*, unsigned long, const wchar_t*, wchar_t**, unsigned long*, DWORD), StringCbCatExW>);
static_assert(hasSignature<HRESULT(char*, unsigned long, const char*, char**, unsigned long*, DWORD), StringCbCatExA>);
static_assert(hasSignature<HRESULT(wchar_t*, unsigned long, const wchar_t*, unsigned long), StringCchCatNW>);
static_assert(hasSignature<HRESULT(char*, unsigned long, const char*, unsigned long), StringCchCatNA>);
static_assert(hasSignature<HRESULT(wchar_t*, unsigned long, const wchar_t*, unsigned long), StringCbCatNW>);
static_assert(hasSignature<HRESULT(char*, unsigned long, const char*, unsigned long), StringCbCatNA>);
static_assert(
    hasSignature<HRESULT(wchar_t*, unsigned long, const wchar_t*, unsigned long, wchar_t**, unsigned long*, DWORD),
                 StringCchCatNExW>);
static_assert(hasSignature<HRESULT(char*, unsigned long, const char*, unsigned long, char**, unsigned long*, DWORD),
                           StringCchCatNExA>);
static_assert(
    hasSignature<HRESULT(wchar_t*, unsigned long, const wchar_t*, unsigned long, wchar_t**, unsigned long*, DWORD),
                 StringCbCatNExW>);
static_assert(hasSignature<HRESULT(char*, unsigned long, const char*, unsigned long, char**, unsigned long*, DWORD),
                           StringCbCatNExA>);
static_assert(hasSignature<HRESULT(wchar_t*, unsigned long, const wchar_t*, ...), StringCchPrintfW>);
static_assert(hasSignature<HRESULT(char*, unsigned long, const char*, ...), StringCchPrintfA>);
static_assert(hasSignature<HRESULT(wchar_t*, unsigned long, const wchar_t*, ...), StringCbPrintfW>);
static_assert(hasSignature<HRESULT(char*, unsigned long, const char*, ...), StringCbPrintfA>);
static_assert(hasSignature<HRESULT(wchar_t*, unsigned long, wchar_t**, unsigned long*, DWORD, const wchar_t*, ...),
                           StringCchPrintfExW>);
static_assert(
    hasSignature<HRESULT(char*, unsigned long, char**, unsigned long*, DWORD, const char*, ...), StringCchPrintfExA>);
static_assert(hasSignature<HRESULT(wchar_t*, unsigned long, wchar_t**, unsigned long*, DWORD, const wchar_t*, ...),
                           StringCbPrintfExW>);
static_assert(
    hasSignature<HRESULT(char*, unsigned long, char**, unsigned long*, DWORD, const char*, ...), StringCbPrintfExA>);
static_assert(hasSignature<HRESULT(wchar_t*, unsigned long, const wchar_t*, va_list), StringCchVPrintfW>);
static_assert(hasSignature<HRESULT(char*, unsigned long, const char*, va_list), StringCchVPrintfA>);
static_assert(hasSignature<HRESULT(wchar_t*, unsigned long, const wchar_t*, va_list), StringCbVPrintfW>);
static_assert(hasSignature<HRESULT(char*, unsigned long, const char*, va_list), StringCbVPrintfA>);
static_assert(hasSignature<HRESULT(wchar_t*, unsigned long, wchar_t**, unsigned long*, DWORD, const wchar_t*, va_list),
                           StringCchVPrintfExW>);
static_assert(hasSignature<HRESULT(char*, unsigned long, char**, unsigned long*, DWORD, const char*, va_list),
                           StringCchVPrintfExA>);
static_assert(hasSignature<HRESULT(wchar_t*, unsigned long, wchar_t**, unsigned long*, DWORD, const wchar_t*, va_list),
                           StringCbVPrintfExW>);
static_assert(hasSignature<HRESULT(char*, unsigned long, char**, unsigned long*, DWORD, const char*, va_list),
                           StringCbVPrintfExA>);
static_assert(hasSignature<HRESULT(const wchar_t*, unsigned long, unsigned long*), StringCchLengthW>);
static_assert(hasSignature<HRESULT(const char*, unsigned long, unsigned long*), StringCchLengthA>);
static_assert(hasSignature<HRESULT(const wchar_t*, unsigned long, unsigned long*), StringCbLengthW>);
static_assert(hasSignature<HRESULT(const char*, unsigned long, unsigned long*), StringCbLengthA>);
