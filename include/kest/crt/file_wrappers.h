/*
 * Kest Platform Base: the C runtime's files, folders, environment and locale by wide names.
 *
 * Wide arguments are re-encoded, nothing else: backslashes stay backslashes, and no drives exist. They are converted
 * to the process's multibyte encoding as the current character-type locale has it, and cut in front of the first
 * character that the locale cannot encode; no function reports that. (Without memory when the C library first needs the
 * locale's encoding, that is ASCII alone as long as the process runs.) How much of a long argument counts differs:
 *
 *     at most 4095 bytes         _wfopen, _wfopen_s, _wrename, _wputenv, _wgetenv, _wfindfirst
 *     as many bytes as it has
 *     characters                 _wremove
 *     all of it                  _waccess, _wstat, _wsetlocale, _wfullpath
 *
 * Characters that would be cut in two are left out. Arguments must not be null, except where a function says so.
 * Where no other word is given, errno is what the C library's call left. Without memory for the last two kinds of
 * scratch the answer is that for a null path: failure, with EFAULT; only setlocale takes it for a query.
 */
#ifndef KEST_CRT_FILE_WRAPPERS_H
#define KEST_CRT_FILE_WRAPPERS_H

#include "kest/base_types.h"
#include "kest/export.h"

#include <stdio.h>
#include <sys/stat.h>
#include <wchar.h>

KEST_C_BEGIN

/* ---- Files ------------------------------------------------------------------------------------ */

/**
 * Opens a file.
 * @param path, mode  as fopen takes them, wide.
 * @return the stream, which the caller closes; null when it cannot be opened.
 * @lasterror as fopen leaves it.
 * @kind local
 * @differs{wfopen.TakesPathsAsTheyAre} L"C:\\x.txt" is a file of that name in the working directory.
 * @differs{wfopen.CutsPathsAt4095Bytes} What is left of a longer path is opened.
 */
KEST_API FILE* _wfopen(const wchar_t* path, const wchar_t* mode);

/**
 * Opens a file and stores the stream.
 * @param out  receives the stream, or null when the file cannot be opened.
 * @return 0 when the file is open, else errno as fopen left it.
 * @null out: nothing is opened; answers errno as it stands.
 * @kind local
 * @differs{wfopens.AnswersErrnoAsItStandsForANullOut} On Windows EINVAL.
 * @differs{wfopens.CutsPathsAt4095Bytes} What is left of a longer path is opened.
 */
KEST_API int _wfopen_s(FILE** out, const wchar_t* path, const wchar_t* mode);

/**
 * _wfopen_s for narrow arguments, which go to fopen as they are.
 * @return 0 when the file is open, else errno as fopen left it.
 * @null out: nothing is opened; answers errno as it stands. path, mode: as fopen takes them.
 * @kind local
 * @differs{fopens.AnswersErrnoAsItStandsForANullOut} On Windows EINVAL.
 */
KEST_API int fopen_s(FILE** out, const char* path, const char* mode);

/**
 * Renames a file or folder.
 * @return 0; -1 when rename fails.
 * @kind local
 * @differs{wrename.ReplacesAnExistingFile} On Windows an existing new name is an error.
 * @differs{wrename.CutsPathsAt4095Bytes} What is left of a longer path is used.
 */
KEST_API int _wrename(const wchar_t* oldName, const wchar_t* newName);

/**
 * Removes a file or an empty folder.
 * @param path  only as many bytes of its encoding count as it has characters.
 * @return 0; -1 when remove fails.
 * @kind local
 * @differs{wremove.CutsNamesThatTakeSeveralBytesACharacter} With UTF-8, "x\u00e9" removes "x".
 * @differs{wremove.RemovesEmptyFolders} On Windows it removes files only.
 */
KEST_API int _wremove(const wchar_t* path);

/**
 * Asks whether the process may use a file. Every call first sets the character-type locale of the whole process to
 * "UTF-8" (most systems have none of that name and keep the one they had).
 * @param mode  as access takes it: 0 existence, 2 writing, 4 reading, 1 execution.
 * @return 0; -1 when access fails.
 * @kind local
 * @differs{waccess.SetsTheCharacterTypeLocale} On Windows the locale is left alone.
 * @differs{waccess.KnowsExecution} Mode 1 asks whether the file may be executed.
 */
KEST_API int _waccess(const wchar_t* path, int mode);

/* Windows's name for the record that _wstat fills: here the system's own. */
#ifndef _stat
#define _stat stat
#endif

/**
 * Queries a file's status, following symbolic links.
 * @param record  receives what stat writes.
 * @return 0; -1 when stat fails.
 * @kind local
 * @differs{wstat.FillsTheSystemsRecord} Inode numbers, owners and the time of the last change of status are real.
 */
KEST_API int _wstat(const wchar_t* path, struct stat* record);

/**
 * Returns the size of an open file.
 * @return bytes; 0 when fd cannot be queried.
 * @kind local
 * @differs{filelength.AnswersZeroForABadDescriptor} On Windows -1.
 */
KEST_API long _filelength(int fd);

/** Always 0: a descriptor has no text mode. @kind fixed result */
KEST_API int _setmode(int descriptor, int mode);

/** What _wfindfirst fills. Times are seconds since 1970-01-01 00:00 UTC. */
struct _wfinddata_t
{
    LONGLONG attrib;        /**< always -1, all bits set */
    LONGLONG time_access;   /**< of the last access */
    LONGLONG time_write;    /**< of the last modification */
    LONGLONG size;          /**< in bytes */
    wchar_t name[MAX_PATH]; /**< never written */
};

/**
 * Queries the status of the path itself. It does not search: "*" and "?" are ordinary characters, no name is handed
 * out, and there is nothing to continue or to close.
 * @param record  receives access time, modification time and size, also after a failure: unspecified values then.
 * @return 0; -1 when stat fails.
 * @null record: nothing is written; the result tells whether the path exists.
 * @kind local
 * @differs{wfindfirst.MatchesNoWildcards} L"*.txt" finds only a file of exactly that name.
 * @differs{wfindfirst.AnswersZeroInsteadOfAHandle} On Windows a handle for the next search.
 * @differs{wfindfirst.WritesNeitherNameNorAttributes} The name is left alone, the attributes are all bits.
 * @differs{wfindfirst.CutsPathsAt4095Bytes} What is left of a longer path is queried.
 */
KEST_API long _wfindfirst(const wchar_t* path, struct _wfinddata_t* record);

/* ---- Folders ---------------------------------------------------------------------------------- */

/**
 * Returns the working directory.
 * @param buffer  receives the text; null allocates one, which the caller releases with free.
 * @param size    room in buffer, in characters: at most so many are written, and only a text that leaves room for it
 *                gets a terminator. Not used when buffer is null.
 * An allocated text has room for its terminator, but when every character takes one byte the terminator is not
 * written and the last place holds whatever it held: do not rely on it.
 * @return buffer or the allocation; null when the directory cannot be determined or the locale cannot convert it.
 * @kind local
 * @differs{wgetcwd.LeavesTheTerminatorOutOfAllocatedAsciiText} On Windows every result is terminated.
 * @differs{wgetcwd.CutsTextThatDoesNotFit} On Windows that is an error, and null.
 */
KEST_API wchar_t* _wgetcwd(wchar_t* buffer, int size);

/**
 * Makes a path absolute and resolves its symbolic links, "." and "..".
 * @param buffer  receives the text as wcsncpy copies it: the places behind a shorter text become zero, a text of size
 *                characters or more is cut and not terminated.
 * @param path    the path. Where it does not exist the text is what the C library's realpath leaves in its buffer:
 *                on glibc the path up to the first component that is missing; empty when it leaves nothing.
 * @param size    room in buffer, in characters.
 * @return buffer, always. Text that the locale cannot convert back is cut there.
 * @null buffer: nothing is written; answers null.
 * @kind local
 * @differs{wfullpath.ResolvesSymbolicLinks} On Windows the text alone is worked on.
 * @differs{wfullpath.StopsAtMissingComponents} On Windows nothing needs to exist.
 * @differs{wfullpath.CutsTextThatDoesNotFit} On Windows that is an error, and null.
 * @differs{wfullpath.AllocatesNoBuffer} On Windows a null buffer makes it allocate one.
 */
KEST_API wchar_t* _wfullpath(wchar_t* buffer, const wchar_t* path, unsigned long size);

/* ---- Environment and locale ------------------------------------------------------------------- */

/**
 * Sets an environment variable.
 * @param text  "name=value"; "name" alone removes the variable. A copy becomes part of the environment and is never
 *              released. Not guarded against other threads that use the environment.
 * @return 0; not 0 when putenv fails or there is no memory.
 * @kind local
 * @differs{wputenv.KeepsVariablesWithEmptyValues} "name=" sets an empty value; on Windows it removes the variable.
 * @differs{wputenv.RemovesVariablesNamedAlone} "name" removes the variable; on Windows it is an error.
 * @differs{wputenv.CutsTextAt4095Bytes} What is left of a longer text is set.
 */
KEST_API int _wputenv(const wchar_t* text);

/**
 * Returns the value of an environment variable.
 * @return a new copy at every call, which the caller releases with free; null when the variable is not set. A value
 * that the locale cannot convert is cut there.
 * @kind local
 * @differs{wgetenv.AnswersANewCopy} On Windows the text belongs to the environment.
 * @differs{wgetenv.TellsUpperFromLowerCase} On Windows names that differ in case only are one.
 */
KEST_API wchar_t* _wgetenv(const wchar_t* name);

/**
 * Sets a category of the process's locale.
 * @param category  LC_ALL and so on, as setlocale takes it.
 * @param locale    the system's name of it ("C.UTF-8"); an empty one takes the environment's.
 * @return the C library's name of the locale, narrow, which stays the C library's; null when there is none of that
 * name.
 * @kind local
 * @differs{wsetlocale.AnswersNarrowText} On Windows wide text.
 * @differs{wsetlocale.NeedsAName} On Windows null queries the locale.
 * @differs{wsetlocale.KnowsTheSystemsNamesOnly} "English_United States.1252" is none of them.
 */
KEST_API char* _wsetlocale(int category, const wchar_t* locale);

KEST_C_END

#ifdef __cplusplus

/** As the other _wfopen, for a path in memory that may be written to. @kind local */
KEST_API FILE* _wfopen(wchar_t* path, const wchar_t* mode);

#endif

#endif
