/*
 * Kest Platform Base: directories, copying and temporary files.
 *
 * The separator is "/"; a backslash is a character like any other, except for RemoveDirectoryW. Wide paths are
 * converted to the process's multibyte encoding. A path is cut after 4095 bytes, and at the first character that the
 * locale cannot encode. No function sets the last error; what the C library's calls leave there stays.
 */
#ifndef KEST_KERNEL_DIRECTORIES_H
#define KEST_KERNEL_DIRECTORIES_H

#include "kest/base_types.h"
#include "kest/export.h"

KEST_C_BEGIN

/* ---- Files ------------------------------------------------------------------------------------ */

/**
 * Deletes a file.
 * @return 1, or 0 when the path is empty, does not lead to anything, or cannot be removed.
 * @null path: answers 0.
 * @kind local
 * @differs{DeleteFileW.RemovesEmptyDirectories} An empty directory is removed as well.
 * @differs{DeleteFileW.RefusesDanglingLinks} A symbolic link that leads nowhere stays and answers 0; any other is
 * removed itself, not what it leads to.
 */
KEST_API BOOL DeleteFileW(const wchar_t* path);

/**
 * Copies the content of a file byte for byte. A file that is missing is made with the mode of a new file, an existing
 * one is emptied first and keeps its mode; times and attributes are not copied. Paths are converted whole; without
 * memory for that nothing is opened.
 * @param failIfExists  ignored.
 * @return 1, whatever happened.
 * @null neither path may be null.
 * @kind local
 * @differs{CopyFileW.AlwaysReportsSuccess} The result says nothing.
 * @differs{CopyFileW.EmptiesTheDestinationFirst} A source that is missing, unreadable or a directory leaves an empty
 * destination; so does a destination that is the source.
 * @differs{CopyFileW.OverwritesInEveryCase} failIfExists protects nothing.
 * @differs{CopyFileW.CopiesTheContentOnly} Neither attributes nor times go along.
 */
KEST_API BOOL CopyFileW(const wchar_t* source, const wchar_t* destination, BOOL failIfExists);

/* ---- Directories ------------------------------------------------------------------------------ */

/**
 * Makes a directory, and every missing directory on the way to it, each with mode 0755 less the process's mask.
 * @param security  ignored.
 * @return 1 when the path exists afterwards, else 0.
 * @null path: answers 0.
 * @kind local
 * @differs{CreateDirectoryW.MakesWhatIsMissingOnTheWay} Windows demands that the parent exists.
 * @differs{CreateDirectoryW.TakesWhatExistsForSuccess} A directory that exists answers 1; so do a file of that name and
 * the empty path.
 */
KEST_API BOOL CreateDirectoryW(const wchar_t* path, SECURITY_ATTRIBUTES* security);

/**
 * Removes an empty directory. Every backslash of the path counts as "/".
 * @return 1, or 0 when it cannot be removed.
 * @null path: answers 0.
 * @kind local
 */
KEST_API BOOL RemoveDirectoryW(const wchar_t* path);

/**
 * Copies "/sys/", without a terminator: whoever reads it as text has terminated buffer beforehand.
 * @param size  characters in buffer; more than 5.
 * @return 5, or 0 when size is 5 or less.
 * @null buffer must not be null unless size is 5 or less.
 * @kind local
 * @differs{GetSystemDirectoryW.WritesNoTerminator} Exactly five characters are written.
 * @differs{GetSystemDirectoryW.RefusesSmallBuffers} The size needed is not told.
 */
KEST_API UINT GetSystemDirectoryW(wchar_t* buffer, UINT size);

/* ---- Temporary files -------------------------------------------------------------------------- */

/**
 * Asks the host for the folder of temporary files, after zeroing the first size bytes of the buffer.
 * @param size    characters in buffer, as far as the service is concerned.
 * @return the service's result.
 * @null buffer may be null when size is 0; the service gets it as it is.
 * @kind checked forward: IFileSystemService::GetTempPathW, 0 without hub or service
 * @differs{GetTempPathW.ZeroesBytesNotCharacters} A quarter of the buffer is zeroed, also without hub.
 */
KEST_API DWORD GetTempPathW(DWORD size, wchar_t* buffer);

/**
 * Makes a file's name from directory, prefix, a number or six random letters and digits, and ".tmp", with nothing
 * between them. Makes no file.
 * @param directory  with a "/" at its end; null prints as "(null)".
 * @param prefix     likewise.
 * @param unique     printed as a signed number of at most six characters, the sign included: one that needs more ends
 *                   the process. 0 asks for letters and digits of a name that does not exist in the current directory;
 *                   they are left out when that directory cannot be searched.
 * @param out        receives the name; must have room. May be directory or prefix.
 * @return the name's length in bytes, or 0 when that does not fit 31 bits; 0 with nothing written without memory.
 * @null out must not be null.
 * @kind local
 * @differs{GetTempFileNameA.AddsNoSeparator} The directory's last character is not looked at.
 * @differs{GetTempFileNameA.MakesNoFile} With unique 0, Windows makes the file, and makes sure in its own directory
 * that the name is new.
 * @differs{GetTempFileNameA.AnswersTheLength} Windows answers the number.
 * @differs{GetTempFileNameA.TakesNumbersOfSixCharacters} Windows takes the low 16 bits, in hexadecimal.
 */
KEST_API UINT GetTempFileNameA(const char* directory, const char* prefix, UINT unique, char* out);

/**
 * Makes a file's name as GetTempFileNameA does, with a "/" behind the directory unless it ends in one, and makes the
 * file, with mode 0644 less the process's mask; one that exists is emptied. A failure is not reported. The file's
 * descriptor stays open. Sets the process's character-type locale to "UTF-8", which most systems do not know and
 * ignore.
 * @param directory  null prints as "(null)".
 * @param prefix     likewise.
 * @param unique     as for GetTempFileNameA.
 * @param out        receives the name; must have room. May be directory or prefix.
 * @return the name's length in characters; 0 with nothing written or made without memory.
 * @null out: answers 0 and does nothing.
 * @kind local
 * @differs{GetTempFileNameW.MakesTheFileForEveryNumber} Windows makes it for unique 0 only.
 * @differs{GetTempFileNameW.LeavesADescriptorOpen} One for each call that made a file.
 * @differs{GetTempFileNameW.AnswersTheLength} Windows answers the number.
 * @differs{GetTempFileNameW.TakesNumbersOfSixCharacters} Windows takes the low 16 bits, in hexadecimal.
 */
KEST_API UINT GetTempFileNameW(const wchar_t* directory, const wchar_t* prefix, UINT unique, wchar_t* out);

/* ---- Full paths ------------------------------------------------------------------------------- */

/**
 * Makes a path absolute, with its symbolic links resolved. The result is what realpath() finds: for a path whose last
 * component does not exist yet, that component in the resolved directory; when an earlier component is missing, the
 * path up to that one. The name itself is the result when realpath() finds nothing, something shorter than the name's
 * number of characters, more bytes than fit the buffer's number of characters, or what cannot be widened.
 * @param size      characters in buffer.
 * @param buffer    receives the result and its terminator; may be name.
 * @param filePart  unless null, receives the first place in buffer where the text of the last component occurs, as
 *                  _wsplitpath finds it; untouched when the result is an existing directory.
 * @return the length of the result in characters; 0, with nothing written, when the name is empty, cannot be encoded,
 * or has as many characters or bytes as the buffer has characters.
 * @null name: answers 0. buffer must not be null.
 * @kind local
 * @differs{GetFullPathNameW.ResolvesSymbolicLinks} Windows looks at the text only.
 * @differs{GetFullPathNameW.KeepsNamesLongerThanTheirResult} "/tmp/../usr" stays as it is.
 * @differs{GetFullPathNameW.StopsAtAMissingDirectory} "missing/name" can become the path of "missing".
 * @differs{GetFullPathNameW.FindsTheFirstPlaceOfTheFilePart} In "/x/y/x" it is the first "x".
 * @differs{GetFullPathNameW.RefusesSmallBuffers} The size needed is not told; size 0 answers 0.
 */
KEST_API DWORD GetFullPathNameW(const wchar_t* name, DWORD size, wchar_t* buffer, wchar_t** filePart);

/**
 * The same on narrow text; sizes and lengths are in bytes, and the last component is what follows the last "/". When
 * the result is the name itself, the rest of the buffer is filled with zeros.
 * @null name: answers 0. buffer must not be null.
 * @kind local
 * @differs{GetFullPathNameA.ResolvesSymbolicLinks} Windows looks at the text only.
 * @differs{GetFullPathNameA.KeepsNamesLongerThanTheirResult} "/tmp/../usr" stays as it is.
 * @differs{GetFullPathNameA.StopsAtAMissingDirectory} "missing/name" can become the path of "missing".
 * @differs{GetFullPathNameA.FindsTheFirstPlaceOfTheFilePart} In "/x/y/x" it is the first "x".
 * @differs{GetFullPathNameA.RefusesSmallBuffers} The size needed is not told; size 0 answers 0.
 */
KEST_API DWORD GetFullPathNameA(const char* name, DWORD size, char* buffer, char** filePart);

KEST_C_END

#ifdef __cplusplus

/**
 * Removes a file, or a directory with everything in it. Symbolic links are followed: one that leads to a file is
 * removed, one that leads to a directory loses that directory's content and stays itself, as does one that leads
 * nowhere. What is neither file nor directory stays, with "unknow file type!" printed by perror(). So does what lies
 * under a path of more than 4095 bytes. A directory's content is removed once, through however many links it can be
 * reached. What there is no memory to look at stays. The path itself must be reachable for the real user of the
 * process, what lies in it for the effective one.
 * @param path  in the process's multibyte encoding.
 * @return 0, also when nothing could be removed; -1, with "get directory stat error" printed by perror(), when the path
 * exists and cannot be queried.
 * @null path must not be null.
 * @kind local
 */
KEST_API int DeleteDirectory(const char* path);

#endif

#endif
