/*
 * Kest Platform Base: strings.
 */
#ifndef KEST_KERNEL_STRINGS_H
#define KEST_KERNEL_STRINGS_H

#include "kest/base_types.h"
#include "kest/export.h"

#include <stdarg.h>

/* Flags of FormatMessageW */
#define FORMAT_MESSAGE_ALLOCATE_BUFFER 0x00000100
#define FORMAT_MESSAGE_IGNORE_INSERTS 0x00000200
#define FORMAT_MESSAGE_FROM_STRING 0x00000400
#define FORMAT_MESSAGE_FROM_HMODULE 0x00000800
#define FORMAT_MESSAGE_FROM_SYSTEM 0x00001000
#define FORMAT_MESSAGE_ARGUMENT_ARRAY 0x00002000
#define FORMAT_MESSAGE_MAX_WIDTH_MASK 0x000000FF

KEST_C_BEGIN

/** Always 0: no message texts exist here; lpBuffer is left as it was. @kind fixed result */
KEST_API DWORD FormatMessageW(DWORD dwFlags, const void* lpSource, DWORD dwMessageId, DWORD dwLanguageId,
                              wchar_t* lpBuffer, DWORD nSize, va_list* Arguments);

KEST_C_END

#endif
