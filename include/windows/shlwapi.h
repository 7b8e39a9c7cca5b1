/*
 * Kest Platform Base, porting kit: the shell's path functions and their generic names.
 */
#ifndef KEST_WINDOWS_SHLWAPI_H
#define KEST_WINDOWS_SHLWAPI_H

#include "windef.h"

#include "kest/shell_paths.h"

#ifdef UNICODE
#define PathFindExtension PathFindExtensionW
#define PathFindFileName PathFindFileNameW
#define PathMatchSpec PathMatchSpecW
#define PathRemoveFileSpec PathRemoveFileSpecW
#endif

#endif
