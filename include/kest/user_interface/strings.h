/*
 * Kest Platform Base: strings.
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

KEST_C_END

#endif
