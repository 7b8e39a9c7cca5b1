/*
 * Kest Platform Base: files.
 *
 * A file handle is the C library's stream, FILE*: it is read, written and positioned through the stream's
 * buffer, and what is written reaches the file at the latest when the handle is closed. Handles are not tested
 * for null or INVALID_HANDLE_VALUE, except where a function says so.
 *
 * Every file time is a FILETIME that counts whole seconds since 1970-01-01 00:00 UTC. FileTimeToSystemTime and
 * FileTimeToLocalFileTime read the same count.
 *
 * Wide paths are converted to the process's multibyte encoding. A path is cut after 4095 bytes, and at the first
 * character that the locale cannot encode. The C library prepares a locale's encoding when it first needs it; if there
 * is no memory for that, the locale encodes ASCII alone as long as the process runs.
 *
 * Of the functions here only CreateFileW sets the last error; what the C library's calls leave there stays.
 *
 * Forwards hand their arguments on as they are, null included, and the service's result back unchanged; those not
 * called checked need an installed hub with a file system service. They leave the last-error value to the host.
 */
#ifndef KEST_KERNEL_FILES_H
#define KEST_KERNEL_FILES_H

#include "kest/base_types.h"
#include "kest/export.h"

/* Desired access. */
#define GENERIC_READ 0x80000000U
#define GENERIC_WRITE 0x40000000U

/* Share modes. */
#define FILE_SHARE_READ 0x00000001
#define FILE_SHARE_WRITE 0x00000002
#define FILE_SHARE_DELETE 0x00000004

/* Creation dispositions. */
#define CREATE_NEW 1
#define CREATE_ALWAYS 2
#define OPEN_EXISTING 3
#define OPEN_ALWAYS 4
#define TRUNCATE_EXISTING 5

/* Flags of CreateFileW. */
#define FILE_FLAG_WRITE_THROUGH 0x80000000U
#define FILE_FLAG_OVERLAPPED 0x40000000U
#define FILE_FLAG_NO_BUFFERING 0x20000000U
#define FILE_FLAG_RANDOM_ACCESS 0x10000000U
#define FILE_FLAG_SEQUENTIAL_SCAN 0x08000000U
#define FILE_FLAG_DELETE_ON_CLOSE 0x04000000U
#define FILE_FLAG_BACKUP_SEMANTICS 0x02000000U
#define FILE_FLAG_POSIX_SEMANTICS 0x01000000U

/* Origins of SetFilePointer. */
#define FILE_BEGIN 0
#define FILE_CURRENT 1
#define FILE_END 2

/* Protection and access of file mappings. */
#define PAGE_READONLY 0x02
#define PAGE_READWRITE 0x04
#define PAGE_WRITECOPY 0x08
#define FILE_MAP_COPY 0x0001
#define FILE_MAP_WRITE 0x0002
#define FILE_MAP_READ 0x0004

/* Results and last errors. */
#define INVALID_FILE_SIZE 0xFFFFFFFFU
#define INVALID_SET_FILE_POINTER 0xFFFFFFFFU
#define ERROR_SHARING_VIOLATION 32

KEST_C_BEGIN

/* ---- Handles ---------------------------------------------------------------------------------- */

/**
 * Opens a file as a stream. "Readable and writable" below is what access() says of the process's real user.
 *
 * A path that grants the desired access and is a directory is refused. Then, by disposition:
 *
 * - CREATE_NEW: refused when the file is readable and writable; else opened new, that is with mode "w+b" when
 *   reading is asked for and "wb" when not.
 * - CREATE_ALWAYS: opened new.
 * - OPEN_EXISTING: refused when the path does not grant the desired access (or, with none desired, does not exist);
 *   else "rb" when share is not 0 and writing is not asked for, and "r+b" otherwise.
 * - OPEN_ALWAYS: opened new unless the file is readable and writable; else "rb" when share is exactly 0x40 and writing
 *   is not asked for, and "r+b" otherwise.
 * - TRUNCATE_EXISTING: refused unless the file is readable and writable and writing is asked for; else opened new.
 * - any other: refused.
 *
 * When any access is desired and another process holds a record lock on any part of the file, or anybody a lock by
 * flock(), the stream is closed again and the file refused. The file may have been emptied by then.
 *
 * @param name         the path.
 * @param access       GENERIC_READ, GENERIC_WRITE, both or neither; other bits count as "any access".
 * @param share        looked at only as told above.
 * @param security     ignored.
 * @param disposition  CREATE_NEW to TRUNCATE_EXISTING.
 * @param flags        ignored.
 * @param templateFile ignored.
 * @return the handle, to be closed by CloseHandle, or INVALID_HANDLE_VALUE.
 * @lasterror ERROR_SHARING_VIOLATION for a locked file; else what the C library's calls left.
 * @null name: refused, as the empty name is.
 * @kind local
 * @differs{CreateFileW.HoldsNoLock} Share modes keep nobody from opening the file while the handle is open; a file is
 * refused only for locks that others took by fcntl() or flock().
 * @differs{CreateFileW.EmptiesLockedFiles} The lock is looked for after the file was opened new.
 * @differs{CreateFileW.EmptiesFilesThatAreNotReadableAndWritable} CREATE_NEW and OPEN_ALWAYS empty an existing file
 * that access() does not call readable and writable, if fopen() can.
 * @differs{CreateFileW.OpensForWritingWithoutBeingAsked} OPEN_EXISTING without sharing and OPEN_ALWAYS without the
 * share value 0x40 open for reading and writing, and fail where writing is not permitted.
 * @differs{CreateFileW.IgnoresSecurityFlagsAndTemplate} No flag or attribute has an effect; FILE_FLAG_BACKUP_SEMANTICS
 * opens no directory.
 */
KEST_API HANDLE CreateFileW(const wchar_t* name, DWORD access, DWORD share, SECURITY_ATTRIBUTES* security,
                            DWORD disposition, DWORD flags, HANDLE templateFile);

/**
 * Reads exactly so many bytes at the handle's position.
 * @param buffer      receives the bytes; fewer may have been stored when it fails.
 * @param count       bytes to read.
 * @param read        receives count on success, else untouched.
 * @param overlapped  ignored.
 * @return 1 when all bytes were read; 0 at the end of the file, for an error and for a count of 0.
 * @null handle, buffer and read must not be null.
 * @kind local
 * @differs{ReadFile.IsAllOrNothing} A read that meets the end of the file answers 0 and leaves the count alone; so does
 * one of 0 bytes.
 */
KEST_API BOOL ReadFile(HANDLE handle, void* buffer, DWORD count, DWORD* read, OVERLAPPED* overlapped);

/**
 * Writes bytes at the handle's position.
 * @param count       bytes to write.
 * @param written     receives count on success, else untouched.
 * @param overlapped  ignored.
 * @return 1 when the stream took all bytes; 0 for an error and for a count of 0.
 * @null handle, buffer and written must not be null.
 * @kind local
 * @differs{WriteFile.IsAllOrNothing} A write of 0 bytes answers 0 and leaves the count alone.
 * @differs{WriteFile.GoesThroughABuffer} Others may see the bytes only when the handle is closed, positioned or read.
 */
KEST_API BOOL WriteFile(HANDLE handle, const void* buffer, DWORD count, DWORD* written, OVERLAPPED* overlapped);

/**
 * Moves the handle's position.
 * @param low     the distance in bytes: signed when high is null, unsigned when it is not.
 * @param high    only tested for null; what it points to is neither read nor written.
 * @param method  FILE_BEGIN, FILE_CURRENT or FILE_END.
 * @return 0 on success, INVALID_SET_FILE_POINTER on failure.
 * @null handle must not be null.
 * @kind local
 * @differs{SetFilePointer.AnswersZeroInsteadOfThePosition} The new position is not told.
 * @differs{SetFilePointer.DoesNotReadTheHighPart} No distance beyond 32 bits can be given.
 */
KEST_API DWORD SetFilePointer(HANDLE handle, LONG low, LONG* high, DWORD method);

/**
 * Answers the size of a file, and leaves its position at the end.
 * @param high  receives 0 unless it is null or the call fails.
 * @return the low 32 bits of the size, or INVALID_FILE_SIZE.
 * @null handle: answers INVALID_FILE_SIZE.
 * @kind local
 * @differs{GetFileSize.MovesToTheEnd} The position is not restored.
 * @differs{GetFileSize.AnswersTheLowPartOnly} The high part is 0 for any size.
 */
KEST_API DWORD GetFileSize(HANDLE handle, DWORD* high);

/**
 * Closes a file handle.
 * @return 1, or 0 when what was still buffered could not be written.
 * @null handle: answers 0, as INVALID_HANDLE_VALUE does.
 * @kind local
 * @differs{CloseHandle.TakesFileHandlesOnly} Every other value is taken for a stream.
 */
KEST_API BOOL CloseHandle(HANDLE handle);

/**
 * Answers the times of a file, in whole seconds since 1970. What a write still keeps in the stream's buffer has not
 * touched them.
 * @param creation  receives the time of the last status change; may be null.
 * @param access    receives the time of the last access; may be null.
 * @param write     receives the time of the last modification; may be null.
 * @return 1, or 0 when the file cannot be queried; then nothing is written.
 * @null handle must not be null.
 * @kind local
 * @differs{GetFileTime.CountsSecondsSince1970} Windows counts 100 nanoseconds since 1601.
 * @differs{GetFileTime.AnswersTheStatusChangeForTheCreation} Changing permissions changes the time of creation.
 */
KEST_API BOOL GetFileTime(HANDLE handle, FILETIME* creation, FILETIME* access, FILETIME* write);

/**
 * Fills a record about a file: the times as GetFileTime does, the size as GetFileSize does, the number of links, and
 * the low 32 bits of the device and of the inode as volume serial number and file index.
 * @param info  receives the record; untouched on failure.
 * @return 1, or 0 when the file cannot be queried.
 * @null info: answers 0. handle must not be null.
 * @kind local
 * @differs{GetFileInformationByHandle.MovesToTheEnd} The position is not restored.
 * @differs{GetFileInformationByHandle.TellsNoAttributes} The attributes are 0.
 * @differs{GetFileInformationByHandle.CountsSecondsSince1970} Windows counts 100 nanoseconds since 1601.
 * @differs{GetFileInformationByHandle.TellsLowPartsOnly} The high parts of size and index are 0.
 */
KEST_API BOOL GetFileInformationByHandle(HANDLE handle, BY_HANDLE_FILE_INFORMATION* info);

/** Always 0, nothing is written. @kind fixed result */
KEST_API BOOL GetFileInformationByHandleEx(HANDLE handle, FILE_INFO_BY_HANDLE_CLASS infoClass, void* info, DWORD size);

/* ---- Attributes and names --------------------------------------------------------------------- */

/**
 * Answers the attributes of a file as the host tells them. The host is asked for the name under which the path exists
 * (IFileSystemService::PathFileExistsW, with a copy of the path as actualPath) and then for that name's attributes.
 * @return the service's result; INVALID_FILE_ATTRIBUTES for a path that does not exist.
 * @lasterror left as it is.
 * @null path: handed to the service as it is, with an empty actualPath.
 * @kind checked forward: IFileSystemService::GetFileAttributesW, INVALID_FILE_ATTRIBUTES without hub or service
 */
KEST_API DWORD GetFileAttributesW(const wchar_t* path);

/**
 * Answers the type and permission bits of a file, symbolic links followed. The host is not asked.
 * @param path  in the process's multibyte encoding.
 * @return st_mode, or INVALID_FILE_ATTRIBUTES for a path that cannot be queried.
 * @null path must not be null.
 * @kind local
 * @differs{GetFileAttributesA.AnswersThePosixMode} No FILE_ATTRIBUTE_* bits: a directory has the bits 0x4000 set.
 */
KEST_API DWORD GetFileAttributesA(const char* path);

/**
 * Sets a file's attributes. What they mean is the service's.
 * @param dwFileAttributes  FILE_ATTRIBUTE_*.
 * @return not 0 on success.
 * @kind checked forward: IFileSystemService::SetFileAttributesW, 0 without hub or service; asks for the service once
 */
KEST_API BOOL SetFileAttributesW(const wchar_t* lpFileName, DWORD dwFileAttributes);

/**
 * Hands its pointer to SetFileAttributesW as it is. The host reads it as wide text: wide text, cast, is what callers
 * must pass.
 * @return the result of SetFileAttributesW.
 * @kind checked forward: IFileSystemService::SetFileAttributesW, 0 without hub or service
 * @differs{SetFileAttributesA.ConvertsNothing} Narrow text is not widened.
 */
KEST_API BOOL SetFileAttributesA(const char* path, DWORD attributes);

/**
 * Copies a path: there are no short names.
 * @param longPath   the path.
 * @param shortPath  receives the path, cut to size - 1 characters; everything behind it up to size is filled with
 *                   zeros. May be longPath.
 * @param size       characters in shortPath.
 * @return size - 1 when something was copied; the length of longPath plus 1 when shortPath is null or size is 0.
 * @lasterror left as it is.
 * @null shortPath: answers the size needed. longPath must not be null.
 * @kind local
 * @differs{GetShortPathNameW.AnswersOneLessThanTheSize} The result does not depend on the path's length.
 * @differs{GetShortPathNameW.CutsWhatDoesNotFit} Windows writes nothing and answers the size needed.
 */
KEST_API DWORD GetShortPathNameW(const wchar_t* longPath, wchar_t* shortPath, DWORD size);

/** Unsupported. @kind ends the process */
KEST_API BOOL GetVolumeInformationW(const wchar_t* rootPath, wchar_t* volumeName, DWORD volumeNameSize,
                                    DWORD* serialNumber, DWORD* longestComponent, DWORD* flags, wchar_t* fileSystemName,
                                    DWORD fileSystemNameSize);

/* ---- Finding files ---------------------------------------------------------------------------- */

/**
 * Starts a search.
 * @param lpFileName  the path, with wildcards in its last component.
 * @param lpFindFileData  receives the first find.
 * @return the search, to be closed with FindClose; INVALID_HANDLE_VALUE when nothing is found.
 * @kind forward: IFileSystemService::FindFirstFileW
 */
KEST_API HANDLE FindFirstFileW(const wchar_t* lpFileName, WIN32_FIND_DATAW* lpFindFileData);

/**
 * Goes on with a search.
 * @return not 0 while there are more finds.
 * @kind forward: IFileSystemService::FindNextFileW
 */
KEST_API BOOL FindNextFileW(HANDLE hFindFile, WIN32_FIND_DATAW* lpFindFileData);

/**
 * Ends a search.
 * @return not 0 on success.
 * @kind forward: IFileSystemService::FindClose
 */
KEST_API BOOL FindClose(HANDLE hFindFile);

/* ---- File mappings ---------------------------------------------------------------------------- */

/** Always null: no file mappings exist. @kind fixed result */
KEST_API HANDLE CreateFileMappingW(HANDLE file, SECURITY_ATTRIBUTES* security, DWORD protection, DWORD sizeHigh,
                                   DWORD sizeLow, const wchar_t* name);

/** Always null. @kind fixed result */
KEST_API void* MapViewOfFile(HANDLE mapping, DWORD access, DWORD offsetHigh, DWORD offsetLow, SIZE_T count);

/** Always 0. @kind fixed result */
KEST_API BOOL UnmapViewOfFile(const void* address);

KEST_C_END

#endif
