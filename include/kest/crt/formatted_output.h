/*
 * Kest Platform Base: formatted output, narrow and wide.
 *
 * Narrow formats are the C library's. Wide formats are the C library's as well, but for one thing: Windows code
 * passes wide text to a plain "%s" in a wide format, so every function here reads "%s" as "%ls". Exactly these two
 * characters are replaced, wherever they stand:
 *
 *     "%s", "%ls"                        wide text
 *     "%hs", "%10s", "%-5s", "%.*s"      narrow text: a flag, width, precision or size keeps them apart
 *     "%S", "%ws", "%c", "%C", "%I64d"   what the C library makes of them
 *     "%%s"                              prints "%ls"
 *
 * To give wide text a width write "%10ls". A "%n" in a wide format ends the process; so does one in a narrow format
 * that does not stand in read-only memory.
 *
 * Counts and sizes are characters of the function's own width, never bytes. The functions that count or write a whole
 * text in wide characters give up at 524288 characters, terminator included. Text that the locale cannot convert
 * makes the result -1. No function examines its buffer or size, none sets errno by itself. An argument list is left
 * in no defined state, as the C library leaves it.
 *
 * A null wide format throws std::logic_error with the text "basic_string::_M_construct null not valid".
 */
#ifndef KEST_CRT_FORMATTED_OUTPUT_H
#define KEST_CRT_FORMATTED_OUTPUT_H

#include "kest/base_types.h"
#include "kest/export.h"

#include <stdarg.h>
#include <stddef.h>
#include <stdio.h>
#include <wchar.h>

KEST_C_BEGIN

/* ---- Narrow ----------------------------------------------------------------------------------- */

/**
 * Counts the bytes that a narrow text would have.
 * @return the length without the terminator, or negative when the C library refuses the format.
 * @kind local
 * @differs{vscprintf.ReadsFormatsAsTheCLibraryDoes} Conversions of Windows only, "%I64d" among them, are not known.
 */
KEST_API int _vscprintf(const char* format, va_list arguments);

/**
 * Writes a narrow text, cut to size - 1 bytes and terminated; nothing when size is 0.
 * @param size  room in buffer, in bytes.
 * @return the length of the whole text, also when it was cut; negative when the C library refuses the format.
 * @kind local
 * @differs{vsprintfs.CutsTooLongTextAndAnswersItsLength} Text that does not fit is cut; on Windows it is an error
 * that empties the buffer.
 */
KEST_API int vsprintf_s(char* buffer, size_t size, const char* format, va_list arguments);

/* ---- Wide, to a stream ------------------------------------------------------------------------ */

/**
 * Prints to standard output.
 * @return the number of characters printed, or negative after a failure.
 * @null format: throws std::logic_error; nothing is printed.
 * @kind local
 */
KEST_API int _tarvwprintf(const wchar_t* format, va_list arguments);

/** As _tarvwprintf, with the arguments themselves. @kind local */
KEST_API int _tarwprintf(const wchar_t* format, ...);

/**
 * Prints to a stream.
 * @return the number of characters printed, or negative after a failure.
 * @null format: throws std::logic_error; nothing is printed.
 * @kind local
 */
KEST_API int _tarvfwprintf(FILE* stream, const wchar_t* format, va_list arguments);

/** As _tarvfwprintf, with the arguments themselves. @kind local */
KEST_API int _tarfwprintf(FILE* stream, const wchar_t* format, ...);

/* ---- Wide, to a buffer ------------------------------------------------------------------------ */

/**
 * Writes a text that fits, terminator included, into count characters.
 * @return the length without the terminator; -1 when it does not fit, with what the C library's vswprintf leaves in
 * the buffer then: on glibc the first count - 1 characters and no terminator (an empty text when count is 1).
 * @null format: throws std::logic_error; nothing is written.
 * @kind local
 */
KEST_API int _tarvswprintf(wchar_t* buffer, size_t count, const wchar_t* format, va_list arguments);

/** As _tarvswprintf, with the arguments themselves. @kind local */
KEST_API int _tarswprintf(wchar_t* buffer, size_t count, const wchar_t* format, ...);

/**
 * Counts the characters that a wide text needs.
 * @return the length plus one for the terminator; -1 when that exceeds 524288, when the text cannot be converted, or
 * when there is no memory to format it in.
 * @null format: throws std::logic_error.
 * @kind local
 * @differs{vscwprintf.CountsTheTerminator} The terminator is counted.
 * @differs{vscwprintf.GivesUpBeyond524287Characters} Longer texts answer -1.
 * @differs{vscwprintf.ReadsFormatsAsSwprintfDoes} Only a bare "%s" means wide text: see the head of this file.
 */
KEST_API int _vscwprintf(const wchar_t* format, va_list arguments);

/**
 * Writes a text of up to 524287 characters and its terminator into a buffer that has room for it.
 * @return the length without the terminator; -1 where _vscwprintf answers it, and then nothing is written.
 * @null format: throws std::logic_error; nothing is written.
 * @kind local
 * @differs{vswprintf.GivesUpBeyond524287Characters} Longer texts answer -1 and are not written.
 * @differs{vswprintf.ReadsFormatsAsSwprintfDoes} Only a bare "%s" means wide text: see the head of this file.
 */
KEST_API int _vswprintf(wchar_t* buffer, const wchar_t* format, va_list arguments);

/**
 * Writes a text, cut when it is too long. A text of size characters or more is cut to size characters and terminated
 * at index size: one place past the given size, so the buffer must have room for size + 1 characters.
 * @return the length without the terminator; size - 1 (as an int) when the text was cut; -1 where _vscwprintf
 * answers it, and then nothing is written.
 * @null format: throws std::logic_error; nothing is written.
 * @kind local
 * @differs{vswprintfs.CutsTooLongTextAndTerminatesPastTheSize} On Windows such a text is an error that empties the
 * buffer, and nothing past the size is written.
 * @differs{vswprintfs.GivesUpBeyond524287Characters} Longer texts answer -1 and are not written, not even cut.
 * @differs{vswprintfs.ReadsFormatsAsSwprintfDoes} Only a bare "%s" means wide text: see the head of this file.
 */
KEST_API int vswprintf_s(wchar_t* buffer, size_t size, const wchar_t* format, va_list arguments);

/**
 * vswprintf_s(buffer, count, format, arguments).
 * @param bufferSize  not used: the buffer must have room for count + 1 characters, or for the whole text.
 * @kind local
 * @differs{vsnwprintfs.IgnoresTheBufferSize} The buffer's size limits nothing.
 * @differs{vsnwprintfs.CutsToCountAndAnswersOneLess} A text of count characters or more answers count - 1; on Windows
 * longer ones answer -1.
 * @differs{vsnwprintfs.ReadsFormatsAsSwprintfDoes} Only a bare "%s" means wide text: see the head of this file.
 */
KEST_API int _vsnwprintf_s(wchar_t* buffer, size_t bufferSize, size_t count, const wchar_t* format, va_list arguments);

KEST_C_END

#ifdef __cplusplus

/** _vswprintf(buffer, format, arguments). @kind local */
KEST_API int _tarvswprintf(wchar_t* buffer, const wchar_t* format, va_list arguments);

/**
 * The form without a count: _vswprintf, with the arguments themselves. The C library's form with a count stays what
 * it is.
 * @kind local
 * @differs{swprintf.ReadsPaddedStringsAsNarrow} "%10s" takes narrow text; on Windows it takes wide text.
 * @differs{swprintf.ReadsCapitalSAsWide} "%S" takes wide text; on Windows it takes narrow text.
 * @differs{swprintf.ReadsCAsAByte} "%c" takes a byte; on Windows it takes a wide character. Write "%lc".
 * @differs{swprintf.TurnsPercentPercentSIntoPercentLs} "%%s" prints "%ls"; on Windows it prints "%s".
 * @differs{swprintf.GivesUpBeyond524287Characters} Longer texts answer -1 and are not written.
 */
KEST_API int swprintf(wchar_t* buffer, const wchar_t* format, ...);

#endif

#endif
