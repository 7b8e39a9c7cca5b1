/*
 * Kest Platform Base: the kernel's string functions.
 *
 * Most are thin names over the C library: they test no pointers (a null pointer ends the process) and set no last
 * error.
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

/**
 * Copies a string with its terminator; the caller provides room.
 * @return destination.
 * @lasterror left as it is.
 * @null not tested.
 * @kind local
 * @differs{lstrcpyW.DiesOnNull} A null pointer ends the process.
 */
KEST_API LPWSTR lstrcpyW(LPWSTR destination, LPCWSTR source);

/**
 * Copies a string with its terminator; the caller provides room.
 * @return destination.
 * @lasterror left as it is.
 * @null not tested.
 * @kind local
 * @differs{lstrcpyA.DiesOnNull} A null pointer ends the process.
 */
KEST_API LPSTR lstrcpyA(LPSTR destination, LPCSTR source);

/**
 * Copies a string, cut to size - 1 characters and always terminated.
 * @param destination  receives the characters and a terminator, nothing for a size of 0.
 * @param size  the room at destination in characters, terminator included; taken as an unsigned number, so that a
 *     negative one is no limit in practice.
 * @param source  read up to its terminator, and never further than size - 1 characters.
 * @return destination, in every case.
 * @lasterror left as it is.
 * @null not tested; with a size of 0 neither pointer is used, with 1 source is not.
 * @kind local
 * @differs{lstrcpynW.DiesOnNull} A null pointer that is used ends the process.
 */
KEST_API LPWSTR lstrcpynW(LPWSTR destination, LPCWSTR source, int size);

/**
 * Copies a string as lstrcpynW does; size is in bytes.
 * @return destination, in every case.
 * @lasterror left as it is.
 * @null not tested; with a size of 0 neither pointer is used, with 1 source is not.
 * @kind local
 * @differs{lstrcpynA.DiesOnNull} A null pointer that is used ends the process.
 */
KEST_API LPSTR lstrcpynA(LPSTR destination, LPCSTR source, int size);

/**
 * Appends a string with its terminator; the caller provides room.
 * @return destination.
 * @lasterror left as it is.
 * @null not tested.
 * @kind local
 * @differs{lstrcatW.DiesOnNull} A null pointer ends the process.
 */
KEST_API LPWSTR lstrcatW(LPWSTR destination, LPCWSTR source);

/**
 * Appends a string with its terminator; the caller provides room.
 * @return destination.
 * @lasterror left as it is.
 * @null not tested.
 * @kind local
 * @differs{lstrcatA.DiesOnNull} A null pointer ends the process.
 */
KEST_API LPSTR lstrcatA(LPSTR destination, LPCSTR source);

/**
 * Returns the string's length in characters.
 * @lasterror left as it is.
 * @null not tested.
 * @kind local
 * @differs{lstrlenW.DiesOnNull} A null pointer ends the process, where Windows answers 0.
 */
KEST_API int lstrlenW(LPCWSTR string);

/**
 * Returns the string's length in bytes.
 * @lasterror left as it is.
 * @null not tested.
 * @kind local
 * @differs{lstrlenA.DiesOnNull} A null pointer ends the process, where Windows answers 0.
 */
KEST_API int lstrlenA(LPCSTR string);

/**
 * Compares two strings without regard to case.
 *
 * Whether they are equal is decided by the locale's wide lower case, which of them comes first by something else:
 * at the first difference a character of code -128 to 255 counts as its entry in the C library's narrow lower-case
 * table, any other as its own code. Codes are signed 32-bit numbers here.
 * @return 0 when equal; else the first string's number less the second's.
 * @lasterror left as it is.
 * @null not tested.
 * @kind local
 * @differs{lstrcmpiW.OrdersByCode} The order is that of the codes, not the user's locale.
 * @differs{lstrcmpiW.DiesOnNull} A null pointer ends the process.
 */
KEST_API int lstrcmpiW(LPCWSTR a, LPCWSTR b);

KEST_C_END

#endif
