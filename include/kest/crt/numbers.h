/*
 * Kest Platform Base: the C runtime's conversions between numbers and text.
 *
 * None reports an error of its own and none tests its pointers: a null pointer ends the process. The last error
 * is what the C library makes of it: ERANGE for a number out of range, EILSEQ for text that the locale cannot encode.
 *
 * In number to text the radix is the last argument, and only 16 is ever honoured; digits above 9 are lower case, and
 * a negative number in radix 16 is its 32-bit pattern. The narrow functions without size write up to 21 bytes,
 * terminator included; the wide ones assume room for 256 characters and write up to 21.
 */
#ifndef KEST_CRT_NUMBERS_H
#define KEST_CRT_NUMBERS_H

#include "kest/base_types.h"
#include "kest/export.h"

KEST_C_BEGIN

/* ---- Text to number --------------------------------------------------------------------------- */

/**
 * Reads a decimal number: white space, a sign and digits, as far as they go. The text is read through the process's
 * multibyte encoding and ends at its first character that has none.
 * @return the number; 0 when there is none, or no memory for a long text.
 * @lasterror left as it is; ERANGE when the number does not fit in 64 bits, EILSEQ when text could not be encoded.
 * @null not tested.
 * @kind local
 * @differs{wtoi.CutsToThirtyTwoBits} Of a larger number the low 32 bits are returned, and of one out of 64-bit range
 *     those of the nearest 64-bit number.
 */
KEST_API int _wtoi(const wchar_t* text);

/**
 * Reads a number whose prefix tells its base: "0x" hexadecimal, "0" octal, else decimal.
 * @return the number, the nearest 64-bit one when it does not fit; 0 when there is none.
 * @lasterror left as it is; ERANGE when the number does not fit.
 * @null not tested.
 * @kind local
 * @differs{wtol.ReadsPrefixes} The prefixes "0x" and "0" tell the base; Windows reads decimal only.
 * @differs{wtol.AnswersSixtyFourBits} long has 64 bits here.
 */
KEST_API long _wtol(const wchar_t* text);

/**
 * Reads an unsigned number whose prefix tells its base, as with _wtol; a minus sign negates it.
 * @return the number's bits as a signed number; -1 when it does not fit in 64 bits; 0 when there is none.
 * @lasterror left as it is; ERANGE when the number does not fit.
 * @null not tested.
 * @kind local
 * @differs{wtoi64.ReadsPrefixes} The prefixes "0x" and "0" tell the base; Windows reads decimal only.
 * @differs{wtoi64.ReadsUnsigned} Numbers above the largest signed one wrap to negative ones.
 */
KEST_API long long _wtoi64(const wchar_t* text);

/**
 * Reads a floating-point number: the C library's wcstod.
 * @return the number; 0 when there is none.
 * @lasterror left as it is; ERANGE when the number does not fit.
 * @null not tested.
 * @kind local
 */
KEST_API double _wtof(const wchar_t* text);

/* ---- Number to text --------------------------------------------------------------------------- */

/**
 * Writes a number, hexadecimal for radix 16, else decimal.
 * @return destination.
 * @lasterror left as it is.
 * @null not tested.
 * @kind local
 * @differs{itoa.KnowsRadixSixteenOnly} Every radix but 16 gives decimal.
 */
KEST_API char* _itoa(int value, char* destination, int radix);

/**
 * Writes a number as _itoa does, cut to size - 1 bytes and terminated; a size of 0 writes nothing.
 * @return destination.
 * @lasterror left as it is.
 * @null not tested, unless size is 0.
 * @kind local
 * @differs{itoas.KnowsRadixSixteenOnly} Every radix but 16 gives decimal.
 * @differs{itoas.TruncatesTooLongText} Text that does not fit is cut.
 * @differs{itoas.ReturnsTheDestination} The result is the destination pointer, not an error code.
 */
KEST_API char* _itoa_s(int value, char* destination, size_t size, int radix);

/**
 * Writes a number, hexadecimal for radix 16, else decimal.
 * @return destination.
 * @lasterror left as it is.
 * @null not tested.
 * @kind local
 * @differs{itow.KnowsRadixSixteenOnly} Every radix but 16 gives decimal.
 */
KEST_API wchar_t* _itow(int value, wchar_t* destination, int radix);

/**
 * Writes a number as _itow does, if it fits.
 * @param size  the room at destination in characters, terminator included. Text that does not fit leaves there what
 *     the C library's swprintf leaves: cut text, perhaps without terminator; a size of 0 leaves all as it was.
 * @return the length of the text that now stands at destination, up to the first terminator. Where the text did not
 *     fit that terminator may be one of the caller's, behind size: there must be one.
 * @lasterror left as it is, but as swprintf leaves it for text that does not fit.
 * @null not tested.
 * @kind local
 * @differs{itows.KnowsRadixSixteenOnly} Every radix but 16 gives decimal.
 * @differs{itows.LeavesCutText} Text that does not fit is left in part.
 * @differs{itows.ReturnsTheLength} The result is a length, not an error code.
 * @differs{itows.MeasuresCutTextBeyondTheSize} The size does not end the text whose length is returned.
 */
KEST_API int _itow_s(int value, wchar_t* destination, size_t size, int radix);

/**
 * Writes a number in decimal.
 * @return destination.
 * @lasterror left as it is.
 * @null not tested.
 * @kind local
 * @differs{i64toa.IgnoresTheRadix} Every radix gives decimal.
 */
KEST_API char* _i64toa(long long value, char* destination, int radix);

/**
 * Writes an unsigned number in decimal.
 * @return destination.
 * @lasterror left as it is.
 * @null not tested.
 * @kind local
 * @differs{ui64toa.IgnoresTheRadix} Every radix gives decimal.
 */
KEST_API char* _ui64toa(unsigned long long value, char* destination, int radix);

/**
 * Writes a number in decimal.
 * @return destination.
 * @lasterror left as it is.
 * @null not tested.
 * @kind local
 * @differs{i64tow.IgnoresTheRadix} Every radix gives decimal.
 */
KEST_API wchar_t* _i64tow(long long value, wchar_t* destination, int radix);

/**
 * Writes a number in decimal, if it fits.
 * @param size  the room at destination in characters, terminator included. Text that does not fit leaves there what
 *     the C library's swprintf leaves: cut text, perhaps without terminator.
 * @return destination.
 * @lasterror left as it is, but as swprintf leaves it for text that does not fit.
 * @null not tested, unless size is 0.
 * @kind local
 * @differs{i64tows.IgnoresTheRadix} Every radix gives decimal.
 * @differs{i64tows.LeavesCutText} Text that does not fit is left in part.
 * @differs{i64tows.ReturnsTheDestination} The result is the destination pointer, not an error code.
 */
KEST_API wchar_t* _i64tow_s(long long value, wchar_t* destination, size_t size, int radix);

/**
 * Writes an unsigned number in decimal.
 * @return destination.
 * @lasterror left as it is.
 * @null not tested.
 * @kind local
 * @differs{ui64tow.IgnoresTheRadix} Every radix gives decimal.
 */
KEST_API wchar_t* _ui64tow(unsigned long long value, wchar_t* destination, int radix);

/**
 * Writes a number in decimal, as an unsigned one.
 * @return destination.
 * @lasterror left as it is.
 * @null not tested.
 * @kind local
 * @differs{ltoa.IgnoresTheRadix} Every radix gives decimal.
 * @differs{ltoa.PrintsNegativesUnsigned} -1 gives "4294967295".
 */
KEST_API char* _ltoa(int value, char* destination, int radix);

/**
 * Writes a number as _ltoa does, cut to size - 1 bytes and terminated; a size of 0 writes nothing.
 * @return destination.
 * @lasterror left as it is.
 * @null not tested, unless size is 0.
 * @kind local
 * @differs{ltoas.IgnoresTheRadix} Every radix gives decimal.
 * @differs{ltoas.PrintsNegativesUnsigned} -1 gives "4294967295".
 * @differs{ltoas.TruncatesTooLongText} Text that does not fit is cut.
 * @differs{ltoas.ReturnsTheDestination} The result is the destination pointer, not an error code.
 */
KEST_API char* _ltoa_s(int value, char* destination, size_t size, int radix);

/**
 * Writes a number in decimal, as an unsigned one.
 * @return destination.
 * @lasterror left as it is.
 * @null not tested.
 * @kind local
 * @differs{ltow.IgnoresTheRadix} Every radix gives decimal.
 * @differs{ltow.PrintsNegativesUnsigned} -1 gives "4294967295".
 */
KEST_API wchar_t* _ltow(int value, wchar_t* destination, int radix);

/**
 * Writes a number as _ltow does, if it fits.
 * @param size  the room at destination in characters, terminator included. Text that does not fit leaves there what
 *     the C library's swprintf leaves: cut text, perhaps without terminator; a size of 0 leaves all as it was.
 * @return the length of the text that now stands at destination, up to the first terminator. Where the text did not
 *     fit that terminator may be one of the caller's, behind size: there must be one.
 * @lasterror left as it is, but as swprintf leaves it for text that does not fit.
 * @null not tested.
 * @kind local
 * @differs{ltows.IgnoresTheRadix} Every radix gives decimal.
 * @differs{ltows.PrintsNegativesUnsigned} -1 gives "4294967295".
 * @differs{ltows.LeavesCutText} Text that does not fit is left in part.
 * @differs{ltows.ReturnsTheLength} The result is a length, not an error code.
 * @differs{ltows.MeasuresCutTextBeyondTheSize} The size does not end the text whose length is returned.
 */
KEST_API int _ltow_s(int value, wchar_t* destination, size_t size, int radix);

/**
 * Writes a number's digits, rounded to count of them behind the decimal point: the C library's fcvt.
 * @param decimalPoint  receives the decimal point's position from the first digit.
 * @param sign  receives whether the number is negative.
 * @return the digits; without memory for a long number only the first of them. They stand in the C library's own
 * buffer until the next call in any thread.
 * @lasterror left as it is.
 * @null not tested.
 * @kind local
 */
KEST_API char* _fcvt(double value, int count, int* decimalPoint, int* sign);

KEST_C_END

#endif
