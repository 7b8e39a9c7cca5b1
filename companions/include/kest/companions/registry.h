/*
 * Kest Platform Base, companions: the registry, by calls of the functions of kest/registry.h.
 *
 * Results are Windows's error codes, 0 for success, and what the host's service answers; 1 without hub or service. Sizes
 * of data are bytes: a character has four.
 */
#ifndef KEST_COMPANIONS_REGISTRY_H
#define KEST_COMPANIONS_REGISTRY_H

#include "kest/base_types.h"
#include "kest/export.h"

/* Types that RegGetValueW accepts, and its other flags. */
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
#define RRF_SUBKEY_WOW6464KEY 0x00010000
#define RRF_SUBKEY_WOW6432KEY 0x00020000
#define RRF_NOEXPAND 0x10000000
#define RRF_ZEROONFAILURE 0x20000000

KEST_C_BEGIN

/**
 * Reads a value of one of the types asked for. Texts are terminated, lists by two terminators, also when the registry
 * holds them without; characters that are not whole are left out. A text with variables (REG_EXPAND_SZ) is expanded by
 * ExpandEnvironmentStringsW, and then its type is REG_SZ.
 * @param key  an open key or a predefined one.
 * @param subKey  the key's path below it; null or empty for the key itself.
 * @param value  the value's name; null or empty for the key's own value.
 * @param flags  RRF_RT_*: the types accepted. RRF_RT_DWORD and RRF_RT_QWORD accept binary data of 4 and 8 bytes.
 *     RRF_NOEXPAND keeps variables; RRF_ZEROONFAILURE fills data with zeros on failure.
 * @param type  may be null; receives the type.
 * @param data  receives the value; null asks for its size.
 * @param size  may be null when data is; room at data in bytes, then the size of the value, terminators included.
 * @return 0; 234 when data is too small; 1629 for binary data of another size; 1630 for another type; 87 for no type, for
 *     RRF_RT_REG_EXPAND_SZ without RRF_NOEXPAND among chosen types, for both RRF_SUBKEY_*, and for data without size;
 *     14 without memory; else what the service answers.
 * @kind checked forward: IRegistryService::RegQueryValueExW, 1 without hub or service
 * @differs{RegGetValueW.KeepsVariablesWithoutService} Without a system service the text of REG_EXPAND_SZ stays as it is.
 */
KEST_API LONG RegGetValueW(HKEY key, const wchar_t* subKey, const wchar_t* value, DWORD flags, DWORD* type, void* data,
                           DWORD* size);

/**
 * Deletes a key with all below it; without subKey, all values of the key and all below it, and the key stays.
 * @param key  an open key or a predefined one.
 * @param subKey  the key's path below it; null or empty for the key itself.
 * @return 0; 14 without memory; else what the service answers: what was deleted until then stays deleted.
 * @kind checked forward: IRegistryService::RegDeleteKeyW, 1 without hub or service
 */
KEST_API LONG RegDeleteTreeW(HKEY key, const wchar_t* subKey);

/**
 * Sets a key's own value, one without a name, to a text. The key is made when it does not exist.
 * @param key  an open key or a predefined one.
 * @param subKey  the key's path below it; null or empty for the key itself.
 * @param type  REG_SZ.
 * @param text  the text, up to its terminator.
 * @param size  ignored.
 * @return 0; 87 for another type; else what the service answers.
 * @null text: answers 87.
 * @kind checked forward: IRegistryService::RegSetValueExW, 1 without hub or service
 */
KEST_API LONG RegSetValueW(HKEY key, const wchar_t* subKey, DWORD type, const wchar_t* text, DWORD size);

KEST_C_END

#endif
