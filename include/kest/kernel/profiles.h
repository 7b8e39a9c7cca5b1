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
 * Reads a string: by the host's profile service, or without hub or service from the file itself, as
 * read_profile_string does it. What follows holds for reading the file.
 * @param section       the section's name.
 * @param key           the key's name.
 * @param defaultValue  the text for a key that is not found.
 * @param out           receives the text and a terminator. What the locale cannot convert ends it.
 * @param size          of out, in characters, and of the text, in bytes: the text is cut after size - 1 bytes. Of 0,
 *                      nothing is written; above 2147483647, out becomes empty.
 * @param path          the file.
 * @return the length of the text in bytes; 0 for the sizes just named and without memory.
 * @lasterror whatever opening and converting left.
 * @null section, key: empty names; an empty key is never found. defaultValue: the empty text. path: a missing file.
 *     out: only the length is answered.
 * @kind checked forward: IProfileService::GetPrivateProfileStringW, reads the file without hub or service
 * @differs{GetPrivateProfileStringW.CountsBytesNotCharacters} The result counts bytes of the multibyte encoding.
 * @differs{GetPrivateProfileStringW.CountsTheQuotesThatItRemoves} Quotes around the value are in the count and not in
 *     the text.
 * @differs{GetPrivateProfileStringW.RemovesUnpairedQuotes} All quotes at either end are removed, even one alone.
 * @differs{GetPrivateProfileStringW.ComparesNamesExactly} Upper and lower case differ.
 * @differs{GetPrivateProfileStringW.SearchesTheSectionsBehind} A key that the section lacks is looked for in all
 *     sections behind it.
 * @differs{GetPrivateProfileStringW.TakesCommentsForKeys} A line that begins with a semicolon and contains "=" is a
 *     key.
 * @differs{GetPrivateProfileStringW.ListsNoNames} A null section or key lists nothing.
 * @differs{GetPrivateProfileStringW.NeedsAFileThatCanBeWritten} A read-only file counts as missing.
 * @differs{GetPrivateProfileStringW.EndsTheProcessOnLongNames} A section or key of more than 1024 bytes in the file
 *     ends the process.
 */
KEST_API DWORD GetPrivateProfileStringW(const wchar_t* section, const wchar_t* key, const wchar_t* defaultValue,
                                        wchar_t* out, DWORD size, const wchar_t* path);

/** Always 0; nothing is written. @kind fixed result */
KEST_API DWORD GetPrivateProfileSectionNamesW(wchar_t* names, DWORD size, const wchar_t* path);

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

#ifdef __cplusplus

/**
 * Reads a value, or a list of names, from a profile file. The file is read anew by every call; nothing is cached.
 *
 * The file, in bytes:
 *   - A line ends with LF; behind the last LF of the file it ends with CR. Blanks around it do not count; blank is
 *     what the locale's isspace says. The file ends at its first NUL.
 *   - A line that begins with "[" and contains "]" is a header: the section's name is all that stands between "[" and
 *     the first "]", blanks included.
 *   - Any other line that contains "=" is a key, the text before the first "=", and its value, the text behind it, each
 *     without blanks around it. Keys of no length are ignored, as are all other lines. There are no comments.
 *   - Names are compared exactly. A name of more than 1024 bytes ends the process; a key only inside the section.
 *
 * The search begins at the first header of the section and goes on to the end of the file, through whatever sections
 * follow. The first line with the key wins.
 *
 * @param section       the section's name; blanks around it do not count. Null: out receives all section names.
 * @param key           the key's name, likewise. Null: out receives the names of the keys up to the next header.
 * @param defaultValue  the text for a key or section that is not found. Spaces at its end do not count, except for the
 *                      first of a text of nothing but spaces.
 * @param out           receives the text, and zeros to its end. A text that does not fit is cut. Of a list, each name
 *                      is followed by a tab; the last one that fits may be cut or have none, and the list is cut to
 *                      size - 2 bytes.
 *                      Quotes (") at either end are removed, all of them, except from the default of a file that is
 *                      missing or empty.
 * @param size          of out, in bytes.
 * @param path          the file, which must be readable and writable, or counts as missing.
 * @return the length of the text in bytes, as it was before quotes were removed. 0 for a list from a missing file,
 *         with out all zeros; likewise for a file without a length, such as a pipe, or one that cannot be read, and
 *         without memory. An empty file, or one of exactly 4294967295 bytes, answers the default even for a list of
 *         sections. With size 1, 0, and out receives a terminator; with a smaller size, 0, and nothing is written.
 * @lasterror whatever reading the file left.
 * @null section, key: see there; defaultValue: the empty text; out: answers 0, but must not be null with size 1; path:
 *     a missing file.
 * @kind local
 */
KEST_API int read_profile_string(char* section, char* key, char* defaultValue, char* out, int size, char* path);

#endif

#endif
