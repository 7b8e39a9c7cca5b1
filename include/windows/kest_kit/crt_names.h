/*
 * Kest Platform Base, porting kit: what sources get from the Microsoft C runtime's <stdlib.h>, <stdio.h> and
 * <string.h>.
 */
#ifndef KEST_WINDOWS_KIT_CRT_NAMES_H
#define KEST_WINDOWS_KIT_CRT_NAMES_H

#include "kest/crt.h"

#if __has_include("kest/companions/crt.h")
#include "kest/companions/crt.h"
#endif

#define _countof(array) (sizeof(array) / sizeof((array)[0]))
#ifndef _TRUNCATE
#define _TRUNCATE ((size_t)-1)
#endif
#define _MAX_PATH 260
#define _MAX_DRIVE 3
#define _MAX_DIR 256
#define _MAX_FNAME 256
#define _MAX_EXT 256
#ifndef _I8_MIN
#define _I8_MIN (-127 - 1)
#define _I8_MAX 127
#define _UI8_MAX 0xffu
#define _I16_MIN (-32767 - 1)
#define _I16_MAX 32767
#define _UI16_MAX 0xffffu
#define _I32_MIN (-2147483647 - 1)
#define _I32_MAX 2147483647
#define _UI32_MAX 0xffffffffu
#define _I64_MIN (-9223372036854775807LL - 1)
#define _I64_MAX 9223372036854775807LL
#define _UI64_MAX 0xffffffffffffffffULL
#endif

typedef int errno_t;

#endif
