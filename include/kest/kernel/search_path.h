/*
 * Kest Platform Base: finding files, and the place of the running program.
 *
 * Directories and paths are CStdStr<wchar_t>, which reports its constructions to the string-object registry. No
 * function sets the last error; what the C library's calls leave there stays.
 */
#ifndef KEST_KERNEL_SEARCH_PATH_H
#define KEST_KERNEL_SEARCH_PATH_H

#include "kest/base_types.h"
#include "kest/export.h"

KEST_C_BEGIN

/**
 * Finds a file in a directory or, without one, in the directory of the running program, the current directory and the
 * directories of PATH, in this order. The first directory that holds the name is taken; then the path is
 * "directory/name". PATH is asked for last, through getEnvPATH; for that the hub must be installed.
 * @param path          the directory to search in; null for those above.
 * @param fileName      the name, spelled as the directory has it, without "/".
 * @param extension     ignored.
 * @param bufferLength  characters in buffer.
 * @param buffer        receives the path, without a terminator: whoever reads it as text has zeroed it beforehand.
 * @param filePart      never written.
 * @return the path's length in characters; 0 when nothing is found and without memory. When bufferLength is not
 * greater than the result, nothing is written.
 * @null fileName must not be null; buffer may be null when bufferLength is 0.
 * @kind local
 * @differs{SearchPathW.WritesNoTerminator} Exactly as many characters are written as the result says.
 * @differs{SearchPathW.AsksForNoTerminator} The size needed does not count one, though a buffer of that size is
 * refused.
 * @differs{SearchPathW.FindsNothingInDirectoriesOfOneCharacter} When the directory taken is "/" or ".", the answer is
 * 0.
 * @differs{SearchPathW.IgnoresTheExtension} None is added or tried.
 * @differs{SearchPathW.WritesNoFilePart} It stays as it is.
 * @differs{SearchPathW.SearchesOneDirectoryNotAList} A ";" in path is a character like any other.
 * @differs{SearchPathW.TakesBareNamesOnly} A name with a "/" is not found.
 */
KEST_API DWORD SearchPathW(const wchar_t* path, const wchar_t* fileName, const wchar_t* extension, DWORD bufferLength,
                           wchar_t* buffer, wchar_t** filePart);

KEST_C_END

#ifdef __cplusplus

#include "kest/wide_string.h"

#include <vector>

/**
 * Finds out the path of the running program, as "/proc/self/exe" tells it.
 * @param path  receives the path, in a locale that cannot widen it as far as it can; as it was when the result is false
 * for a path of more than 1023 bytes, or one that cannot be read.
 * @return true when path is not empty.
 * @kind local
 */
KEST_API bool getCurProcessFilePath(CStdStr<wchar_t>& path);

/**
 * Finds out the directory of the running program.
 * @param dir  receives the path up to its last "/", which is included; as it was when the result is false.
 * @return true when it was found.
 * @kind local
 */
KEST_API bool getCurProcessDirPath(CStdStr<wchar_t>& dir);

/**
 * Lists the directories of PATH, in their order, each with a separator behind it (PathAddBackslashW: the hub must be
 * installed). PATH is what a shell prints for it, a line of at most 4095 bytes. Empty entries stay, as what
 * PathAddBackslashW makes of them; so do entries that come twice.
 * @param dirs  receives the directories; as it was when no shell can be started.
 * @return true; false when no shell can be started, and at an entry of more than 1023 characters or one that there is
 * no memory for, which together with everything behind it is missing then.
 * @kind local
 */
KEST_API bool getEnvPATH(std::vector<CStdStr<wchar_t>>& dirs);

/**
 * Tells whether a directory has an entry of exactly this name. Both are cut after 1024 bytes of their multibyte form,
 * and at the first character that the locale cannot encode.
 * @param dir   the directory; it must be readable.
 * @param name  the bare name; one with a "/" is never found.
 * @return true when it has.
 * @null neither may be null.
 * @kind local
 */
KEST_API bool findFile(const wchar_t* dir, const wchar_t* name);

#endif

#endif
