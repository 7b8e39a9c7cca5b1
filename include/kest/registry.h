/*
 * Kest Platform Base: the registry. Every function here is a checked forward to the host's IRegistryService:
 * without an installed hub or without that service it answers 1 and, unless its contract says otherwise, leaves
 * everything as it was. With the service, arguments reach it as they are, null included, and its result (a Windows
 * error code, 0 for success) is handed back unchanged. Lengths of names are in characters, sizes of data in bytes.
 * The last-error value is left to the host. Which keys and values exist, and where they are kept, is the host's.
 */
#ifndef KEST_REGISTRY_H
#define KEST_REGISTRY_H

#include "kest/base_types.h"
#include "kest/export.h"

/* ---- Predefined keys -------------------------------------------------------------------------- */

#define HKEY_CLASSES_ROOT ((HKEY)(LONG_PTR)(LONG)0x80000000)
#define HKEY_CURRENT_USER ((HKEY)(LONG_PTR)(LONG)0x80000001)
#define HKEY_LOCAL_MACHINE ((HKEY)(LONG_PTR)(LONG)0x80000002)
#define HKEY_USERS ((HKEY)(LONG_PTR)(LONG)0x80000003)
#define HKEY_PERFORMANCE_DATA ((HKEY)(LONG_PTR)(LONG)0x80000004)
#define HKEY_CURRENT_CONFIG ((HKEY)(LONG_PTR)(LONG)0x80000005)
#define HKEY_DYN_DATA ((HKEY)(LONG_PTR)(LONG)0x80000006)
#define HKEY_CURRENT_USER_LOCAL_SETTINGS ((HKEY)(LONG_PTR)(LONG)0x80000007)

/* ---- Types of values -------------------------------------------------------------------------- */

#define REG_NONE 0
#define REG_SZ 1
#define REG_EXPAND_SZ 2
#define REG_BINARY 3
#define REG_DWORD 4
#define REG_DWORD_LITTLE_ENDIAN 4
#define REG_DWORD_BIG_ENDIAN 5
#define REG_LINK 6
#define REG_MULTI_SZ 7
#define REG_RESOURCE_LIST 8
#define REG_FULL_RESOURCE_DESCRIPTOR 9
#define REG_RESOURCE_REQUIREMENTS_LIST 10
#define REG_QWORD 11
#define REG_QWORD_LITTLE_ENDIAN 11

/* ---- Access rights ---------------------------------------------------------------------------- */

#define KEY_QUERY_VALUE 0x0001
#define KEY_SET_VALUE 0x0002
#define KEY_CREATE_SUB_KEY 0x0004
#define KEY_ENUMERATE_SUB_KEYS 0x0008
#define KEY_NOTIFY 0x0010
#define KEY_CREATE_LINK 0x0020
#define KEY_WOW64_64KEY 0x0100
#define KEY_WOW64_32KEY 0x0200
#define KEY_READ 0x20019
#define KEY_WRITE 0x20006
#define KEY_EXECUTE 0x20019
#define KEY_ALL_ACCESS 0xF003F

/* ---- Creation options and dispositions -------------------------------------------------------- */

#define REG_OPTION_RESERVED 0x00000000
#define REG_OPTION_NON_VOLATILE 0x00000000
#define REG_OPTION_VOLATILE 0x00000001
#define REG_OPTION_CREATE_LINK 0x00000002
#define REG_OPTION_BACKUP_RESTORE 0x00000004
#define REG_OPTION_OPEN_LINK 0x00000008
#define REG_CREATED_NEW_KEY 0x00000001
#define REG_OPENED_EXISTING_KEY 0x00000002

/* ---- Results ---------------------------------------------------------------------------------- */

#define ERROR_SUCCESS 0
#define ERROR_INVALID_FUNCTION 1
#define ERROR_FILE_NOT_FOUND 2
#define ERROR_ACCESS_DENIED 5
#define ERROR_INVALID_HANDLE 6
#define ERROR_NOT_ENOUGH_MEMORY 8
#define ERROR_OUTOFMEMORY 14
#define ERROR_INVALID_PARAMETER 87
#define ERROR_CALL_NOT_IMPLEMENTED 120
#define ERROR_INSUFFICIENT_BUFFER 122
#define ERROR_INVALID_NAME 123
#define ERROR_BAD_PATHNAME 161
#define ERROR_ALREADY_EXISTS 183
#define ERROR_MORE_DATA 234
#define ERROR_NO_MORE_ITEMS 259
#define ERROR_BADDB 1009
#define ERROR_BADKEY 1010
#define ERROR_CANTOPEN 1011
#define ERROR_CANTREAD 1012
#define ERROR_CANTWRITE 1013
#define ERROR_KEY_DELETED 1018
#define ERROR_KEY_HAS_CHILDREN 1020
#define ERROR_CHILD_MUST_BE_VOLATILE 1021

KEST_C_BEGIN

/* ---- Opening, creating and closing keys ------------------------------------------------------- */

/**
 * Opens a key, or creates it and the keys on its way.
 * @param hKey  an open key or a predefined one.
 * @param lpSubKey  the key's path below hKey.
 * @param Reserved  handed on.
 * @param lpClass  the class of a new key.
 * @param dwOptions  REG_OPTION_*.
 * @param samDesired  KEY_*.
 * @param lpSecurityAttributes  handed on.
 * @param phkResult  receives the key on success and is left as it was otherwise; close it with RegCloseKey.
 * @param lpdwDisposition  handed on: the service tells REG_CREATED_NEW_KEY from REG_OPENED_EXISTING_KEY.
 * @return 0, or an error code.
 * @null phkResult: must be valid, success writes to it untested.
 * @kind checked forward: IRegistryService::RegCreateKeyExW, 1 without hub or service
 * @differs{RegCreateKeyExW.RequiresKeyVariable} A null phkResult ends in a write to it, not in an error code.
 */
KEST_API LONG RegCreateKeyExW(HKEY hKey, const wchar_t* lpSubKey, DWORD Reserved, wchar_t* lpClass, DWORD dwOptions,
                              REGSAM samDesired, SECURITY_ATTRIBUTES* lpSecurityAttributes, HKEY* phkResult,
                              DWORD* lpdwDisposition);

/**
 * Opens a key, or creates it, without options.
 * @param hKey  an open key or a predefined one.
 * @param lpSubKey  the key's path below hKey.
 * @param phkResult  receives the key on success and is left as it was otherwise.
 * @return 0, or an error code.
 * @null phkResult: must be valid, success writes to it untested.
 * @kind checked forward: IRegistryService::RegCreateKeyW, 1 without hub or service
 * @differs{RegCreateKeyW.RequiresKeyVariable} A null phkResult ends in a write to it, not in an error code.
 */
KEST_API LONG RegCreateKeyW(HKEY hKey, const wchar_t* lpSubKey, HKEY* phkResult);

/**
 * Opens a key that exists.
 * @param hKey  an open key or a predefined one.
 * @param lpSubKey  the key's path below hKey.
 * @param ulOptions  REG_OPTION_*.
 * @param samDesired  KEY_*.
 * @param phkResult  receives the key; null when the service refuses, left as it was without hub or service.
 * @return 0, or an error code.
 * @null phkResult: allowed where the service refuses; success writes to it untested.
 * @kind checked forward: IRegistryService::RegOpenKeyExW, 1 without hub or service
 * @differs{RegOpenKeyExW.RequiresKeyVariable} A null phkResult ends in a write to it, not in an error code.
 */
KEST_API LONG RegOpenKeyExW(HKEY hKey, const wchar_t* lpSubKey, DWORD ulOptions, REGSAM samDesired, HKEY* phkResult);

/**
 * Opens a key that exists, without options.
 * @param hKey  an open key or a predefined one.
 * @param lpSubKey  the key's path below hKey.
 * @param phkResult  receives the key; null whenever the call fails, without hub or service as well.
 * @return 0, or an error code.
 * @null phkResult: allowed where the call fails; success writes to it untested.
 * @kind checked forward: IRegistryService::RegOpenKeyW, 1 without hub or service
 * @differs{RegOpenKeyW.RequiresKeyVariable} A null phkResult ends in a write to it, not in an error code.
 */
KEST_API LONG RegOpenKeyW(HKEY hKey, const wchar_t* lpSubKey, HKEY* phkResult);

/**
 * Closes a key.
 * @kind checked forward: IRegistryService::RegCloseKey, 1 without hub or service
 */
KEST_API LONG RegCloseKey(HKEY hKey);

/**
 * Deletes a key that has no keys below it.
 * @kind checked forward: IRegistryService::RegDeleteKeyW, 1 without hub or service
 */
KEST_API LONG RegDeleteKeyW(HKEY hKey, const wchar_t* lpSubKey);

/**
 * Deletes a key of one registry view.
 * @param samDesired  KEY_WOW64_32KEY or KEY_WOW64_64KEY.
 * @kind checked forward: IRegistryService::RegDeleteKeyExW, 1 without hub or service
 */
KEST_API LONG RegDeleteKeyExW(HKEY hKey, const wchar_t* lpSubKey, REGSAM samDesired, DWORD Reserved);

/* ---- Values ----------------------------------------------------------------------------------- */

/**
 * Reads a value of a key.
 * @param lpValueName  the value's name; null or empty names the key's default value.
 * @param lpType  receives REG_*; may be null.
 * @param lpData  receives the data; null asks for its size only.
 * @param lpcbData  the size of lpData in bytes, then the size of the data.
 * @return 0, or an error code.
 * @kind checked forward: IRegistryService::RegQueryValueExW, 1 without hub or service
 */
KEST_API LONG RegQueryValueExW(HKEY hKey, const wchar_t* lpValueName, DWORD* lpReserved, DWORD* lpType, BYTE* lpData,
                               DWORD* lpcbData);

/**
 * Reads the default value of a key as text.
 * @param lpcbData  the size of lpData in bytes, then the size of the text.
 * @kind checked forward: IRegistryService::RegQueryValueW, 1 without hub or service
 */
KEST_API LONG RegQueryValueW(HKEY hKey, const wchar_t* lpSubKey, wchar_t* lpData, LONG* lpcbData);

/**
 * Writes a value of a key. Text and its size include the terminator; a character is 4 bytes.
 * @param dwType  REG_*.
 * @param cbData  the size of lpData in bytes.
 * @kind checked forward: IRegistryService::RegSetValueExW, 1 without hub or service
 */
KEST_API LONG RegSetValueExW(HKEY hKey, const wchar_t* lpValueName, DWORD Reserved, DWORD dwType, const BYTE* lpData,
                             DWORD cbData);

/**
 * Deletes a value of a key.
 * @kind checked forward: IRegistryService::RegDeleteValueW, 1 without hub or service
 */
KEST_API LONG RegDeleteValueW(HKEY hKey, const wchar_t* lpValueName);

/* ---- Enumeration ------------------------------------------------------------------------------ */

/**
 * Counts the keys and values of a key and measures the longest; every output may be null.
 * @kind checked forward: IRegistryService::RegQueryInfoKeyW, 1 without hub or service
 */
KEST_API LONG RegQueryInfoKeyW(HKEY hKey, wchar_t* lpClass, DWORD* lpcchClass, DWORD* lpReserved, DWORD* lpcSubKeys,
                               DWORD* lpcbMaxSubKeyLen, DWORD* lpcbMaxClassLen, DWORD* lpcValues,
                               DWORD* lpcbMaxValueNameLen, DWORD* lpcbMaxValueLen, DWORD* lpcbSecurityDescriptor,
                               FILETIME* lpftLastWriteTime);

/**
 * Names the key below hKey at an index, counted from 0; ERROR_NO_MORE_ITEMS behind the last.
 * @param cchName  the size of lpName in characters.
 * @kind checked forward: IRegistryService::RegEnumKeyW, 1 without hub or service
 */
KEST_API LONG RegEnumKeyW(HKEY hKey, DWORD dwIndex, wchar_t* lpName, DWORD cchName);

/**
 * Names the key below hKey at an index, with its class and time; ERROR_NO_MORE_ITEMS behind the last.
 * @param lpcchName  the size of lpName in characters, then the name's length.
 * @param lpcchClass  the size of lpClass in characters, then the class's length.
 * @kind checked forward: IRegistryService::RegEnumKeyExW, 1 without hub or service
 */
KEST_API LONG RegEnumKeyExW(HKEY hKey, DWORD dwIndex, wchar_t* lpName, DWORD* lpcchName, DWORD* lpReserved,
                            wchar_t* lpClass, DWORD* lpcchClass, FILETIME* lpftLastWriteTime);

/**
 * Names the value of a key at an index, with its type and data; ERROR_NO_MORE_ITEMS behind the last.
 * @param lpcchValueName  the size of lpValueName in characters, then the name's length.
 * @param lpcbData  the size of lpData in bytes, then the size of the data.
 * @kind checked forward: IRegistryService::RegEnumValueW, 1 without hub or service
 */
KEST_API LONG RegEnumValueW(HKEY hKey, DWORD dwIndex, wchar_t* lpValueName, DWORD* lpcchValueName, DWORD* lpReserved,
                            DWORD* lpType, BYTE* lpData, DWORD* lpcbData);

KEST_C_END

#endif
