/*
 * Kest Platform Base: files. Forwards hand their arguments on as they are, null included, and the service's result back
 * unchanged; those not called checked need an installed hub with a file system service. They leave the last-error value
 * to the host.
 */
#ifndef KEST_KERNEL_FILES_H
#define KEST_KERNEL_FILES_H

#include "kest/base_types.h"
#include "kest/export.h"

KEST_C_BEGIN

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

/* ---- Attributes ------------------------------------------------------------------------------- */

/**
 * Sets a file's attributes. What they mean is the service's.
 * @param dwFileAttributes  FILE_ATTRIBUTE_*.
 * @return not 0 on success.
 * @kind checked forward: IFileSystemService::SetFileAttributesW, 0 without hub or service; asks for the service once
 */
KEST_API BOOL SetFileAttributesW(const wchar_t* lpFileName, DWORD dwFileAttributes);

KEST_C_END

#endif
