/*
 * Kest Platform Base, porting kit: types, calling conventions and the words that Windows declarations are written with.
 */
#ifndef KEST_WINDOWS_WINDEF_H
#define KEST_WINDOWS_WINDEF_H

#include "kest/base_types.h"
#include "kest/export.h"

/* ---- Calling conventions: there is one ---------------------------------------------------------- */

#define WINAPI
#define APIENTRY
#define CALLBACK
#ifndef __cdecl
#define __cdecl
#endif
#ifndef __stdcall
#define __stdcall
#endif

/* ---- Exported and imported names ---------------------------------------------------------------- */

#ifndef __declspec
#define __declspec(attribute) KEST_DECLSPEC_##attribute
#endif
#define KEST_DECLSPEC_dllexport __attribute__((visibility("default")))
#define KEST_DECLSPEC_dllimport __attribute__((visibility("default")))

KEST_C_BEGIN

/**
 * A module's entry, called by LoadLibraryW and FreeLibrary. Declared here so that a module's own definition has the
 * plain, visible name under which the loader looks for it, as on Windows.
 */
KEST_API BOOL DllMain(HINSTANCE module, DWORD reason, LPVOID reserved);

KEST_C_END

/* ---- Generic text ------------------------------------------------------------------------------- */

#ifdef UNICODE
typedef wchar_t TCHAR;
#define TEXT(literal) KEST_WIDE_LITERAL(literal)
#define KEST_WIDE_LITERAL(literal) L##literal
#else
typedef char TCHAR;
#define TEXT(literal) literal
#endif
typedef TCHAR* LPTSTR;
typedef const TCHAR* LPCTSTR;

#endif
