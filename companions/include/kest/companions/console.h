/*
 * Kest Platform Base, companions: the console.
 */
#ifndef KEST_COMPANIONS_CONSOLE_H
#define KEST_COMPANIONS_CONSOLE_H

#include "kest/base_types.h"
#include "kest/export.h"

/* The standard streams. */
#define STD_INPUT_HANDLE ((DWORD)-10)
#define STD_OUTPUT_HANDLE ((DWORD)-11)
#define STD_ERROR_HANDLE ((DWORD)-12)

KEST_C_BEGIN

/**
 * A standard stream as a file handle: stdin, stdout or stderr, as ReadFile and WriteFile take it. It stays the
 * process's: CloseHandle closes it for everyone.
 * @param stream  STD_INPUT_HANDLE, STD_OUTPUT_HANDLE or STD_ERROR_HANDLE.
 * @return the handle; null for a stream whose descriptor is closed; INVALID_HANDLE_VALUE for any other number.
 * @lasterror 6 for another number, else left as it is.
 * @kind local
 * @differs{GetStdHandle.AnswersTheCLibrarysStream} What WriteFile is given stands in the stream's buffer, in one order
 *     with what printf writes.
 */
KEST_API HANDLE GetStdHandle(DWORD stream);

KEST_C_END

#endif
