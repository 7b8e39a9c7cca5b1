/*
 * Kest Platform Base, porting kit: the registry: the keys, rights and types of kest/registry.h, the flags of
 * RegGetValueW, and the generic names.
 */
#ifndef KEST_WINDOWS_WINREG_H
#define KEST_WINDOWS_WINREG_H

#include "winnt.h"

#include "kest/registry.h"

#if __has_include("kest/companions/registry.h")
#include "kest/companions/registry.h"
#endif

typedef ACCESS_MASK* PREGSAM;

typedef struct value_entW
{
    LPWSTR ve_valuename;
    DWORD ve_valuelen;
    DWORD_PTR ve_valueptr;
    DWORD ve_type;
} VALENTW, *PVALENTW;

#ifdef UNICODE
typedef VALENTW VALENT;
typedef PVALENTW PVALENT;
#endif

/* ---- dwFlags of RegGetValueW ------------------------------------------------------------------ */

#define RRF_RT_REG_NONE 0x00000001
#define RRF_RT_REG_SZ 0x00000002
#define RRF_RT_REG_EXPAND_SZ 0x00000004
#define RRF_RT_REG_BINARY 0x00000008
#define RRF_RT_REG_DWORD 0x00000010
#define RRF_RT_REG_MULTI_SZ 0x00000020
#define RRF_RT_REG_QWORD 0x00000040
#define RRF_RT_DWORD 0x00000018
#define RRF_RT_QWORD 0x00000048
#define RRF_RT_ANY 0x0000FFFF
#define RRF_NOEXPAND 0x10000000
#define RRF_ZEROONFAILURE 0x20000000

/* ---- Predefined keys beside the common ones --------------------------------------------------- */

#define HKEY_PERFORMANCE_TEXT ((HKEY)(ULONG_PTR)0x80000050)
#define HKEY_PERFORMANCE_NLSTEXT ((HKEY)(ULONG_PTR)0x80000060)

/* ---- Generic names ----------------------------------------------------------------------------- */

#ifdef UNICODE
#define RegCreateKeyEx RegCreateKeyExW
#define RegCreateKey RegCreateKeyW
#define RegOpenKeyEx RegOpenKeyExW
#define RegOpenKey RegOpenKeyW
#define RegDeleteKey RegDeleteKeyW
#define RegDeleteKeyEx RegDeleteKeyExW
#define RegDeleteTree RegDeleteTreeW
#define RegQueryValueEx RegQueryValueExW
#define RegQueryValue RegQueryValueW
#define RegGetValue RegGetValueW
#define RegSetValueEx RegSetValueExW
#define RegSetValue RegSetValueW
#define RegDeleteValue RegDeleteValueW
#define RegQueryInfoKey RegQueryInfoKeyW
#define RegEnumKey RegEnumKeyW
#define RegEnumKeyEx RegEnumKeyExW
#define RegEnumValue RegEnumValueW
#endif

#endif
