/*
 * Kest Platform Base: profile (INI) files. Narrow text is in the process's multibyte encoding and reaches the host's
 * IProfileService unconverted. Forwards hand their arguments on as they are, null included, and the service's result
 * back unchanged; those not called checked need an installed hub with a profile service. The last-error value is left
 * to the host.
 */
#ifndef KEST_KERNEL_PROFILES_H
#define KEST_KERNEL_PROFILES_H

#include "kest/base_types.h"
#include "kest/export.h"

KEST_C_BEGIN

/**
 * Reads a string in narrow text.
 * @param lpReturnedString  receives the string; left as it was without hub or service.
 * @param nSize  the size of lpReturnedString in bytes.
 * @return the service's count.
 * @kind checked forward: IProfileService::GetPrivateProfileStringA, 0 without hub or service
 * @differs{GetPrivateProfileStringA.WritesNoDefaultWithoutHost} Without hub or service the default is not copied.
 */
KEST_API DWORD GetPrivateProfileStringA(const char* lpAppName, const char* lpKeyName, const char* lpDefault,
                                        char* lpReturnedString, DWORD nSize, const char* lpFileName);

/**
 * Reads a number.
 * @return the number, or nDefault where the service finds none.
 * @kind forward: IProfileService::GetPrivateProfileIntW
 */
KEST_API UINT GetPrivateProfileIntW(const wchar_t* lpAppName, const wchar_t* lpKeyName, INT nDefault,
                                    const wchar_t* lpFileName);

/**
 * Reads a number, named in narrow text.
 * @return the number, or nDefault where the service finds none.
 * @kind forward: IProfileService::GetPrivateProfileIntA
 */
KEST_API UINT GetPrivateProfileIntA(const char* lpAppName, const char* lpKeyName, INT nDefault, const char* lpFileName);

/**
 * Reads the lines of a section.
 * @param lpReturnedString  receives the lines, each terminated, with another terminator behind the last; left as it
 *                          was without hub or service.
 * @param nSize  the size of lpReturnedString in characters.
 * @return the service's count; nSize - 2 without hub or service, which is the answer for too small a buffer.
 * @kind checked forward: IProfileService::GetPrivateProfileSectionW, nSize - 2 without hub or service
 * @differs{GetPrivateProfileSectionW.WrapsAroundForSizesBelowTwo} Without hub or service the subtraction is unsigned:
 *          sizes 0 and 1 answer 0xFFFFFFFE and 0xFFFFFFFF.
 */
KEST_API DWORD GetPrivateProfileSectionW(const wchar_t* lpAppName, wchar_t* lpReturnedString, DWORD nSize,
                                         const wchar_t* lpFileName);

/**
 * Writes a string; a null lpString deletes the key, a null lpKeyName the section.
 * @return not 0 on success.
 * @kind forward: IProfileService::WritePrivateProfileStringW
 */
KEST_API BOOL WritePrivateProfileStringW(const wchar_t* lpAppName, const wchar_t* lpKeyName, const wchar_t* lpString,
                                         const wchar_t* lpFileName);

/**
 * Writes a string in narrow text; a null lpString deletes the key, a null lpKeyName the section.
 * @return not 0 on success.
 * @kind forward: IProfileService::WritePrivateProfileStringA
 */
KEST_API BOOL WritePrivateProfileStringA(const char* lpAppName, const char* lpKeyName, const char* lpString,
                                         const char* lpFileName);

KEST_C_END

#endif
