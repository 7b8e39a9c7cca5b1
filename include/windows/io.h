/*
 * Kest Platform Base, porting kit: files by descriptor and by name, as far as the library serves them: _setmode,
 * _waccess, _filelength, _wfindfirst.
 */
#ifndef KEST_WINDOWS_IO_H
#define KEST_WINDOWS_IO_H

#include "kest/crt/file_wrappers.h"

#if __has_include("kest/companions/crt.h")
#include "kest/companions/crt.h"
#endif

/* The attributes of a file that was found. */
#define _A_NORMAL 0x00
#define _A_RDONLY 0x01
#define _A_HIDDEN 0x02
#define _A_SYSTEM 0x04
#define _A_SUBDIR 0x10
#define _A_ARCH 0x20

/* The modes that _setmode is given. */
#define _O_TEXT 0x4000
#define _O_BINARY 0x8000
#define _O_WTEXT 0x10000
#define _O_U16TEXT 0x20000
#define _O_U8TEXT 0x40000

#endif
