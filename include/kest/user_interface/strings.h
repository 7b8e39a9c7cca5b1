/*
 * Kest Platform Base: the user interface's string functions.
 */
#ifndef KEST_USER_INTERFACE_STRINGS_H
#define KEST_USER_INTERFACE_STRINGS_H

#include "kest/base_types.h"
#include "kest/export.h"

KEST_C_BEGIN

/**
 * Formats a text into a buffer that has room for it: _vswprintf of kest/crt/formatted_output.h, with the arguments
 * themselves.
 * @return the length without the terminator; -1 when the text exceeds 524287 characters or cannot be converted, and
 * then nothing is written.
 * @null format: throws std::logic_error with the text "basic_string::_M_construct null not valid".
 * @kind local
 * @differs{wsprintfW.WritesMoreThan1024Characters} On Windows the text is cut to 1024 characters.
 * @differs{wsprintfW.ReadsFormatsAsSwprintfDoes} Formats are the C library's, with "%s" for wide text.
 */
KEST_API int wsprintfW(wchar_t* buffer, const wchar_t* format, ...);

/**
 * Maps a string to upper case, in place, by the process's character-type locale. The length is taken once, as a
 * signed 32-bit number: a string of 2^31 characters or more is mapped in part or not at all.
 * @return string.
 * @lasterror left as it is.
 * @null not tested: ends the process.
 * @kind local
 * @differs{CharUpperW.TakesNoSingleCharacter} The argument is always a string, so that a character in place of the
 *     pointer ends the process.
 */
KEST_API LPWSTR CharUpperW(LPWSTR string);

/**
 * Maps a string to lower case, otherwise as CharUpperW does.
 * @return string.
 * @lasterror left as it is.
 * @null not tested: ends the process.
 * @kind local
 * @differs{CharLowerW.TakesNoSingleCharacter} The argument is always a string, so that a character in place of the
 *     pointer ends the process.
 */
KEST_API LPWSTR CharLowerW(LPWSTR string);

/**
 * Steps to the next character.
 * @return lpsz advanced by one character.
 * @lasterror left as it is.
 * @null not tested.
 * @kind local
 * @differs{CharNextW.StepsOverTheTerminator} At the end of a string it goes on behind the terminator.
 */
KEST_API wchar_t* CharNextW(const wchar_t* lpsz);

KEST_C_END

#endif
