/*
 * Kest Platform Base, porting kit: the registry functions and their generic names.
 */
#ifndef KEST_WINDOWS_WINREG_H
#define KEST_WINDOWS_WINREG_H

#include "windef.h"

#include "kest/registry.h"

#ifdef UNICODE
#define RegCreateKey RegCreateKeyW
#define RegCreateKeyEx RegCreateKeyExW
#define RegDeleteKey RegDeleteKeyW
#define RegDeleteKeyEx RegDeleteKeyExW
#define RegDeleteValue RegDeleteValueW
#define RegEnumKey RegEnumKeyW
#define RegEnumKeyEx RegEnumKeyExW
#define RegEnumValue RegEnumValueW
#define RegOpenKey RegOpenKeyW
#define RegOpenKeyEx RegOpenKeyExW
#define RegQueryInfoKey RegQueryInfoKeyW
#define RegQueryValue RegQueryValueW
#define RegQueryValueEx RegQueryValueExW
#define RegSetValueEx RegSetValueExW
#endif

#endif
