/*
 * Kest Platform Base, porting kit: the shell's path and string functions, with their generic names.
 */
#ifndef KEST_WINDOWS_SHLWAPI_H
#define KEST_WINDOWS_SHLWAPI_H

#include "winbase.h"

#include "kest/shell_paths.h"

#if __has_include("kest/companions/shell.h")
#include "kest/companions/shell.h"
#endif

/* ---- Kinds of a path's or address's characters ------------------------------------------------ */

#define GCT_INVALID 0x0000
#define GCT_LFNCHAR 0x0001
#define GCT_SHORTCHAR 0x0002
#define GCT_WILD 0x0004
#define GCT_SEPARATOR 0x0008
#define URL_UNESCAPE 0x10000000
#define URL_ESCAPE_UNSAFE 0x20000000
#define URL_PLUGGABLE_PROTOCOL 0x40000000
#define URL_DONT_ESCAPE_EXTRA_INFO 0x02000000
#define URL_ESCAPE_SPACES_ONLY 0x04000000
#define URL_DONT_SIMPLIFY 0x08000000
#define URL_UNESCAPE_INPLACE 0x00100000
#define URL_ESCAPE_SEGMENT_ONLY 0x00002000
#define URL_ESCAPE_PERCENT 0x00001000
#define URL_WININET_COMPATIBILITY 0x80000000

/* ---- Registry values through the shell -------------------------------------------------------- */

#define SRRF_RT_REG_NONE 0x00000001
#define SRRF_RT_REG_SZ 0x00000002
#define SRRF_RT_REG_EXPAND_SZ 0x00000004
#define SRRF_RT_REG_BINARY 0x00000008
#define SRRF_RT_REG_DWORD 0x00000010
#define SRRF_RT_REG_MULTI_SZ 0x00000020
#define SRRF_RT_REG_QWORD 0x00000040
#define SRRF_RT_DWORD 0x00000018
#define SRRF_RT_QWORD 0x00000048
#define SRRF_RT_ANY 0x0000FFFF
#define SRRF_NOEXPAND 0x10000000
#define SRRF_ZEROONFAILURE 0x20000000
#define SHREGSET_HKCU 0x00000001
#define SHREGSET_FORCE_HKCU 0x00000002
#define SHREGSET_HKLM 0x00000004
#define SHREGSET_FORCE_HKLM 0x00000008

/* ---- Generic names ----------------------------------------------------------------------------- */

#ifdef UNICODE
#define PathRemoveFileSpec PathRemoveFileSpecW
#define PathFindFileName PathFindFileNameW
#define PathAppend PathAppendW
#define PathCombine PathCombineW
#define PathMatchSpec PathMatchSpecW
#define PathIsURL PathIsURLW
#define PathAddBackslash PathAddBackslashW
#define PathRelativePathTo PathRelativePathToW
#define PathIsRelative PathIsRelativeW
#define PathFindExtension PathFindExtensionW
#define PathIsDirectory PathIsDirectoryW
#define PathFileExists PathFileExistsW
#define StrStrI StrStrIW
#define StrTrim StrTrimW
#endif

#endif
