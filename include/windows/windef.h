/*
 * Kest Platform Base, porting kit: the words that Windows declarations are written with. Types, calling conventions,
 * __declspec, generic text, and the macros that take words and numbers apart.
 *
 * The lower-case near and far are not defined: other headers use them as names. min and max are defined only for
 * sources that define KEST_WINDOWS_MIN_MAX, which then include the standard headers first.
 */
#ifndef KEST_WINDOWS_WINDEF_H
#define KEST_WINDOWS_WINDEF_H

#include "basetsd.h"
#include "sal.h"

#include "kest/base_types.h"
#include "kest/export.h"

/* ---- Calling conventions: there is one ---------------------------------------------------------- */

#define WINAPI
#define WINAPIV
#define WINBASEAPI
#define WINUSERAPI
#define WINGDIAPI
#ifndef APIENTRY /* the graphics library's headers have it too */
#define APIENTRY
#endif
#define APIPRIVATE
#define CALLBACK
#define PASCAL
#define CDECL
#define FAR
#define NEAR
#ifndef __cdecl
#define __cdecl
#endif
#ifndef __stdcall
#define __stdcall
#endif
#ifndef __fastcall
#define __fastcall
#endif
#ifndef __thiscall
#define __thiscall
#endif
#ifndef __vectorcall
#define __vectorcall
#endif
#define _cdecl
#define _stdcall
#define _fastcall

/* ---- Words of the language ---------------------------------------------------------------------- */

#define CONST const
#define VOID void
#ifndef IN
#define IN
#endif
#ifndef OUT
#define OUT
#endif
#ifndef OPTIONAL
#define OPTIONAL
#endif
#define STRICT 1
#ifndef __int8
#define __int8 char
#define __int16 short
#define __int32 int
#define __int64 long long
#endif
#define __forceinline inline __attribute__((always_inline))
#define FORCEINLINE static __forceinline
#define __unaligned
#define __ptr32
#define __ptr64
#define __w64
#ifdef __cplusplus
#define EXTERN_C extern "C"
#define EXTERN_C_START KEST_C_BEGIN
#define EXTERN_C_END KEST_C_END
#else
#define EXTERN_C extern
#define EXTERN_C_START
#define EXTERN_C_END
#endif

/* ---- __declspec: exported names, alignment, what the compiler may assume -------------------------- */

#ifndef __declspec
#define __declspec(attribute) KEST_DECLSPEC_##attribute
#endif
#define KEST_DECLSPEC_dllexport __attribute__((visibility("default")))
#define KEST_DECLSPEC_dllimport __attribute__((visibility("default")))
#define KEST_DECLSPEC_align(bytes) __attribute__((aligned(bytes)))
#define KEST_DECLSPEC_deprecated __attribute__((deprecated))
#define KEST_DECLSPEC_noalias
#define KEST_DECLSPEC_noinline __attribute__((noinline))
#define KEST_DECLSPEC_noreturn __attribute__((noreturn))
#define KEST_DECLSPEC_nothrow __attribute__((nothrow))
#define KEST_DECLSPEC_novtable
#define KEST_DECLSPEC_restrict
#define KEST_DECLSPEC_selectany __attribute__((weak))
#define KEST_DECLSPEC_thread __thread
#define KEST_DECLSPEC_uuid(text)
#define DECLSPEC_IMPORT __declspec(dllimport)
#define DECLSPEC_EXPORT __declspec(dllexport)
#define DECLSPEC_NORETURN __declspec(noreturn)
#define DECLSPEC_NOVTABLE __declspec(novtable)
#define DECLSPEC_SELECTANY __declspec(selectany)
#define DECLSPEC_DEPRECATED __declspec(deprecated)
#define DECLSPEC_ALIGN(bytes) __attribute__((aligned(bytes)))
#define DECLSPEC_UUID(text)

/* ---- Words and numbers -------------------------------------------------------------------------- */

#define MAKEWORD(low, high) ((WORD)(((BYTE)((DWORD_PTR)(low)&0xFF)) | ((WORD)((BYTE)((DWORD_PTR)(high)&0xFF))) << 8))
#define MAKELONG(low, high)                                                                                            \
    ((LONG)(((WORD)((DWORD_PTR)(low)&0xFFFF)) | ((DWORD)((WORD)((DWORD_PTR)(high)&0xFFFF))) << 16))
#define LOWORD(value) ((WORD)((DWORD_PTR)(value)&0xFFFF))
#define HIWORD(value) ((WORD)((DWORD_PTR)(value) >> 16 & 0xFFFF))
#define LOBYTE(value) ((BYTE)((DWORD_PTR)(value)&0xFF))
#define HIBYTE(value) ((BYTE)((DWORD_PTR)(value) >> 8 & 0xFF))
#define UNREFERENCED_PARAMETER(parameter) ((void)(parameter))
#define DBG_UNREFERENCED_PARAMETER(parameter) ((void)(parameter))
#define DBG_UNREFERENCED_LOCAL_VARIABLE(variable) ((void)(variable))
#if defined(KEST_WINDOWS_MIN_MAX) && !defined(NOMINMAX)
#define max(a, b) (((a) > (b)) ? (a) : (b))
#define min(a, b) (((a) < (b)) ? (a) : (b))
#endif

/* ---- More types --------------------------------------------------------------------------------- */

/** An opaque handle type of its own. */
#define DECLARE_HANDLE(name)                                                                                           \
    struct name##__                                                                                                    \
    {                                                                                                                  \
        int unused;                                                                                                    \
    };                                                                                                                 \
    typedef struct name##__* name

typedef float* PFLOAT;
typedef BOOL* PBOOL;
typedef BOOLEAN* PBOOLEAN;
typedef CHAR* PCHAR;
typedef CHAR* LPCH;
typedef CHAR* PCH;
typedef CHAR* PSTR;
typedef CHAR* NPSTR;
typedef const CHAR* PCSTR;
typedef WCHAR* PWCHAR;
typedef WCHAR* LPWCH;
typedef WCHAR* PWCH;
typedef const WCHAR* LPCWCH;
typedef const WCHAR* PCWCH;
typedef PWSTR PZZWSTR;
typedef PCWSTR PCZZWSTR;
typedef UCHAR* PUCHAR;
typedef SHORT* PSHORT;
typedef USHORT* PUSHORT;
typedef WORD* PWORD;
typedef INT* PINT;
typedef ULONG* PULONG;
typedef LONGLONG* PLONGLONG;
typedef ULONGLONG* PULONGLONG;
typedef double DOUBLE;
typedef HANDLE* PHANDLE;
typedef WORD* SPHANDLE;
typedef int HFILE;
typedef HANDLE GLOBALHANDLE;
typedef HANDLE LOCALHANDLE;
typedef DWORD* LPCOLORREF;
typedef LCID* PLCID;
typedef INT_PTR (*NEARPROC)(void);
typedef INT_PTR (*PROC)(void);
typedef struct HCOLORSPACE__* HCOLORSPACE;
typedef struct HDESK__* HDESK;
typedef struct HGLRC__* HGLRC;
typedef struct HHOOK__* HHOOK;
typedef struct HMETAFILE__* HMETAFILE;
typedef struct HPEN__* HPEN;
typedef struct HRAWINPUT__* HRAWINPUT;
typedef struct HTASK__* HTASK;
typedef struct HWINSTA__* HWINSTA;

typedef struct tagPOINTS
{
    SHORT x;
    SHORT y;
} POINTS, *PPOINTS, *LPPOINTS;

KEST_C_BEGIN

/**
 * A module's entry, called by LoadLibraryW and FreeLibrary. Declared here so that a module's own definition has the
 * plain, visible name under which the loader looks for it, as on Windows.
 */
KEST_API BOOL DllMain(HINSTANCE module, DWORD reason, LPVOID reserved);

KEST_C_END

/* ---- Generic text ------------------------------------------------------------------------------- */

#define KEST_WIDE_TEXT(literal) L##literal
#ifdef UNICODE
typedef wchar_t TCHAR;
#define TEXT(literal) KEST_WIDE_TEXT(literal)
#define __TEXT(literal) KEST_WIDE_TEXT(literal)
#else
typedef char TCHAR;
#define TEXT(literal) literal
#define __TEXT(literal) literal
#endif
typedef TCHAR* PTCHAR;
typedef TCHAR* LPTCH;
typedef TCHAR* PTSTR;
typedef TCHAR* LPTSTR;
typedef const TCHAR* PCTSTR;
typedef const TCHAR* LPCTSTR;

#endif
