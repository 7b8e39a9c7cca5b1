/*
 * Kest Platform Base: the C runtime's strings and characters.
 *
 * Bounded copies, case mapping, reversal, tokens, comparison, and the multibyte family. Three habits hold
 * for all of them:
 *
 * - Failure is -1, never an error code, and success 0. No function here sets the last error and none knows
 *   an invalid-parameter handler.
 * - Null pointers are tested only where the contract says so; any other null pointer reaches the C library
 *   and ends the process.
 * - A multibyte string is a byte string, each byte one character, whatever the encoding.
 *
 * Sizes and counts are in characters of the string's own width. Case mapping follows the process's
 * character-type locale.
 */
#ifndef KEST_CRT_STRINGS_H
#define KEST_CRT_STRINGS_H

#include "kest/base_types.h"
#include "kest/export.h"

KEST_C_BEGIN

/* ---- Bounded copies --------------------------------------------------------------------------- */

/**
 * Copies at most count characters of a string, or nothing when they do not fit.
 * @param destination  receives the characters and a terminator; emptied when they do not fit.
 * @param size  the room at destination, terminator included; below 1 is a failure.
 * @param source  read up to its terminator, and never further than count or size characters.
 * @param count  the most characters to take from source.
 * @return 0; -1 when something is refused.
 * @lasterror left as it is.
 * @null destination, source: answers -1 and writes nothing.
 * @kind local
 * @differs{wcsncpys.EmptiesAndRefusesForCountZero} A count of 0 empties the destination and answers -1.
 * @differs{wcsncpys.KnowsNoTruncateCount} The count (size_t)-1 is a number like any other: a source that does
 *     not fit is refused, not cut.
 * @differs{wcsncpys.LeavesTheDestinationForANullSource} A null source leaves the destination as it was.
 */
KEST_API int wcsncpy_s(wchar_t* destination, int size, const wchar_t* source, unsigned long count);

/**
 * Copies a string, cut to the room there is.
 * @param destination  receives the string and a terminator.
 * @param size  the room at destination, terminator included; below 1 is a failure.
 * @param source  cut to its first size - 1 characters when it is longer.
 * @return 0, cut or not; -1 when something is refused, and, with an emptied destination, for a source that is
 *     not empty and a size of 1.
 * @lasterror left as it is.
 * @null destination, source: answers -1 and writes nothing.
 * @kind local
 * @differs{wcscpys.TruncatesTooLongSource} A source that does not fit is cut, and the result is 0.
 * @differs{wcscpys.LeavesTheDestinationForANullSource} A null source leaves the destination as it was.
 */
KEST_API int wcscpy_s(wchar_t* destination, int size, const wchar_t* source);

/**
 * Appends characters of a string.
 * @param destination  a string; receives the characters behind its own, and a terminator. The caller provides
 *     room: what the string already holds is not subtracted from size.
 * @param size  the most characters to append, as is count; the smaller one holds.
 * @param source  read up to its terminator, and never further than size or count characters.
 * @param count  see size. Negative values of both stand for 0.
 * @return 0; -1 for a null source.
 * @lasterror left as it is.
 * @null source: answers -1, whatever the count. destination: not tested, but untouched when count is 0.
 * @kind local
 * @differs{wcsncats.LimitsTheSourceAndNotTheResult} size limits how much of the source is taken, so that the
 *     result may be longer; nothing is ever refused for want of room.
 */
KEST_API int wcsncat_s(wchar_t* destination, int size, const wchar_t* source, int count);

/**
 * Copies a string with the C library's strncpy: cut at size without a terminator, padded to size with zeros.
 * @param destination  receives exactly size bytes; nothing for a negative size.
 * @param size  the room at destination in bytes.
 * @param source  read up to its terminator, and never further than size bytes.
 * @return destination.
 * @lasterror left as it is.
 * @null not tested.
 * @kind local
 * @differs{strcpys.AddsNoTerminatorWhenFull} A source of size bytes or more fills the destination and leaves no
 *     terminator.
 * @differs{strcpys.ReturnsTheDestination} The result is the destination pointer, not an error code.
 */
KEST_API char* strcpy_s(char* destination, int size, const char* source);

/**
 * Copies a string as strcpy_s does.
 * @param destination  receives exactly size bytes; nothing for a negative size.
 * @param size  the room at destination in bytes.
 * @param source  read up to its terminator, and never further than size bytes.
 * @param count  ignored: size is the only limit.
 * @return destination.
 * @lasterror left as it is.
 * @null not tested.
 * @kind local
 * @differs{strncpys.IgnoresTheCount} The count limits nothing.
 * @differs{strncpys.ReturnsTheDestination} The result is the destination pointer, not an error code.
 */
KEST_API char* strncpy_s(char* destination, int size, const char* source, unsigned long count);

/**
 * Copies bytes.
 * @param destination  receives count bytes; size zeros when they are refused.
 * @param size  the room at destination in bytes.
 * @param source  at least count bytes; the two may overlap.
 * @param count  the bytes to copy. 0 copies nothing and succeeds.
 * @return 0; -1 when count exceeds size or source is null.
 * @lasterror left as it is.
 * @null source: answers -1, or 0 for a count of 0. destination: not tested, but untouched when count or size is 0.
 * @kind local
 * @differs{memcpys.AnswersMinusOne} Every refusal is -1, not an error code.
 */
KEST_API int memcpy_s(void* destination, size_t size, const void* source, size_t count);

/**
 * Copies a string into a zeroed buffer: never more than the string's own length, count notwithstanding.
 * @param destination  zeroed whole, first and always; then receives the characters. Ends without terminator when
 *     they fill it.
 * @param size  the room at destination.
 * @param source  a string; read up to its terminator, and never further than count or size + 1 characters.
 * @param count  the most characters to copy, if size allows as many; with a smaller size the whole string is copied.
 * @return 0; -1 for a null source, and when count exceeds size and the string is longer than size.
 * @lasterror left as it is.
 * @null source: answers -1. destination: not tested, unless size is 0.
 * @kind local
 * @differs{wmemcpys.TreatsTheSourceAsAString} Nothing behind the source's terminator is copied.
 * @differs{wmemcpys.ZeroesTheDestinationFirst} The whole destination is zeroed, even for a count of 0.
 */
KEST_API int wmemcpy_s(wchar_t* destination, size_t size, const wchar_t* source, size_t count);

/* ---- Case mapping ----------------------------------------------------------------------------- */

/**
 * Maps a string to upper case, in place.
 * @return string.
 * @lasterror left as it is.
 * @null not tested.
 * @kind local
 */
KEST_API wchar_t* _wcsupr(wchar_t* string);

/** Maps a string to lower case, otherwise as _wcsupr does. @kind local */
KEST_API wchar_t* _wcslwr(wchar_t* string);

/**
 * Maps exactly size characters to upper case, in place, also those behind the terminator.
 * @param string  at least size characters.
 * @param size  how many; 0 changes nothing.
 * @return string.
 * @lasterror left as it is.
 * @null not tested, but untouched when size is 0.
 * @kind local
 * @differs{wcsuprs.MapsBehindTheTerminator} The terminator does not stop the mapping.
 * @differs{wcsuprs.ReturnsTheString} The result is the string, not an error code.
 */
KEST_API wchar_t* _wcsupr_s(wchar_t* string, size_t size);

/**
 * Maps the bytes of a string to upper case, in place, each through the C library's table. In UTF-8 only ASCII
 * changes.
 * @return string.
 * @lasterror left as it is.
 * @null not tested.
 * @kind local
 */
KEST_API char* _strupr(char* string);

/** Maps the bytes of a string to lower case, otherwise as _strupr does. @kind local */
KEST_API char* _strlwr(char* string);

/**
 * Maps a string as _strupr does, but no more than its first size bytes.
 * @param string  a string, or at least size bytes.
 * @param size  below 1 changes nothing.
 * @return string.
 * @lasterror left as it is.
 * @null not tested, but untouched when size is below 1.
 * @kind local
 * @differs{struprs.StopsAtSize} A string without terminator within size is mapped as far as size goes.
 * @differs{struprs.ReturnsTheString} The result is the string, not an error code.
 */
KEST_API char* _strupr_s(char* string, int size);

/* ---- Reversal and tokens ---------------------------------------------------------------------- */

/**
 * Reverses a string in place; the terminator stays where it is.
 * @return string.
 * @lasterror left as it is.
 * @null not tested.
 * @kind local
 */
KEST_API wchar_t* _wcsrev(wchar_t* string);

/** Where the next _wcstok goes on: one for the whole process, null at the start. A non-null string resets it. */
extern KEST_API wchar_t* g_plast4wcstok;

/**
 * Cuts a string into tokens.
 * @param string  the string to cut, for the first token; written to, and it must live as long as tokens are
 *     fetched. Null for the following tokens.
 * @param delimiters  the characters that part tokens; may differ from call to call.
 * @return the next token, or null when there is none.
 * @lasterror left as it is.
 * @null string: goes on from g_plast4wcstok; null when that is null. delimiters: not tested.
 * @kind local
 * @differs{wcstok.SharesOnePositionAmongThreads} The position is one per process and unguarded, not one per thread.
 */
KEST_API wchar_t* _wcstok(wchar_t* string, const wchar_t* delimiters);

/* ---- Steps ------------------------------------------------------------------------------------ */

/**
 * Returns p + 1.
 * @null not tested, nothing is read.
 * @kind local
 */
KEST_API wchar_t* _wcsinc(const wchar_t* p);

/**
 * Returns p + n.
 * @null not tested, nothing is read.
 * @kind local
 */
KEST_API wchar_t* _wcsninc(const wchar_t* p, size_t n);

/**
 * Returns the code of the character after the first one.
 * @null not tested.
 * @kind local
 * @differs{wcsnextc.ReturnsTheSecondCharacter} The result is p[1], not p[0].
 */
KEST_API unsigned int _wcsnextc(const wchar_t* p);

/* ---- Comparison and search -------------------------------------------------------------------- */

/**
 * Compares two strings by the locale's collation, case-sensitively.
 * @return the C library's wcscoll: negative, 0 or positive.
 * @null not tested.
 * @kind local
 * @differs{wcsicoll.ComparesCaseSensitively} Case counts, despite the name.
 */
KEST_API int _wcsicoll(const wchar_t* a, const wchar_t* b);

/**
 * Returns how many leading characters of string are not in set.
 * @null not tested.
 * @kind local
 */
KEST_API size_t _wcscspn(const wchar_t* string, const wchar_t* set);

/* ---- Multibyte strings: bytes ----------------------------------------------------------------- */

/**
 * Returns p + 1.
 * @null not tested, nothing is read.
 * @kind local
 * @differs{mbsinc.StepsOneByte} One byte is one character in every encoding.
 */
KEST_API unsigned char* _mbsinc(const unsigned char* p);

/**
 * Returns p + n.
 * @null not tested, nothing is read.
 * @kind local
 * @differs{mbsninc.StepsBytes} n counts bytes, and a terminator among them does not stop the step.
 */
KEST_API unsigned char* _mbsninc(const unsigned char* p, size_t n);

/**
 * Always 0.
 * @kind fixed result
 * @differs{ismbblead.KnowsNoLeadBytes} No byte is a lead byte, in no encoding.
 */
KEST_API int _ismbblead(unsigned int c);

/**
 * Always 0.
 * @kind fixed result
 * @differs{ismbbtrail.KnowsNoTrailBytes} No byte is a trail byte, in no encoding.
 */
KEST_API int _ismbbtrail(unsigned int c);

/**
 * Tells white space in the locale.
 * @param c  a byte, or a byte taken as a signed char. Other codes have no entry in the C library's table and are not
 *     white space.
 * @return 8192 for white space, else 0.
 * @kind local
 * @differs{ismbcspace.KnowsSingleBytesOnly} No character of two bytes is white space.
 */
KEST_API int _ismbcspace(unsigned int c);

/**
 * Returns the string's length in bytes.
 * @null not tested.
 * @kind local
 * @differs{mbslen.CountsBytes} A character of several bytes counts as many.
 */
KEST_API size_t _mbslen(const unsigned char* string);

/**
 * Compares two strings byte by byte: the C library's strcmp.
 * @null not tested.
 * @kind local
 */
KEST_API int _mbscmp(const unsigned char* a, const unsigned char* b);

/**
 * Compares two strings byte by byte without regard to case: the C library's strcasecmp.
 * @null not tested.
 * @kind local
 * @differs{mbsicmp.FoldsSingleBytesOnly} A character of several bytes differs from its other case.
 */
KEST_API int _mbsicmp(const unsigned char* a, const unsigned char* b);

/**
 * Compares the first count bytes of two strings without regard to case: the C library's strncasecmp.
 * @null not tested.
 * @kind local
 * @differs{mbsnicmp.CountsBytes} count is in bytes, and may part a character.
 */
KEST_API int _mbsnicmp(const unsigned char* a, const unsigned char* b, size_t count);

/**
 * Compares two strings byte by byte: the C library's strcmp.
 * @null not tested.
 * @kind local
 * @differs{mbscoll.ComparesBytes} The locale's collation plays no part.
 */
KEST_API int _mbscoll(const unsigned char* a, const unsigned char* b);

/**
 * Compares two strings byte by byte without regard to case: the C library's strcasecmp.
 * @null not tested.
 * @kind local
 * @differs{mbsicoll.ComparesBytes} The locale's collation plays no part.
 */
KEST_API int _mbsicoll(const unsigned char* a, const unsigned char* b);

/**
 * Compares the first count bytes of two strings: the C library's strncmp.
 * @null not tested.
 * @kind local
 * @differs{mbsncoll.ComparesBytes} The locale's collation plays no part; count is in bytes.
 */
KEST_API int _mbsncoll(const unsigned char* a, const unsigned char* b, size_t count);

/**
 * Compares the first count bytes of two strings without regard to case: the C library's strncasecmp.
 * @null not tested.
 * @kind local
 * @differs{mbsnicoll.ComparesBytes} The locale's collation plays no part; count is in bytes.
 */
KEST_API int _mbsnicoll(const unsigned char* a, const unsigned char* b, size_t count);

/**
 * Returns the first occurrence of part in string, or null: the C library's strstr.
 * @null not tested.
 * @kind local
 */
KEST_API unsigned char* _mbsstr(const unsigned char* string, const unsigned char* part);

/* ---- Not supported: for linking only, a call ends the process --------------------------------- */

/** Ends the process through std::terminate; never returns. @kind ends the process */
KEST_API unsigned char* _mbsdec(const unsigned char* start, const unsigned char* current);
KEST_API int _ismbclower(unsigned int c);
KEST_API int _ismbcupper(unsigned int c);
KEST_API int _ismbcdigit(unsigned int c);
KEST_API unsigned int _mbctolower(unsigned int c);
KEST_API unsigned int _mbctoupper(unsigned int c);
KEST_API unsigned char* _mbslwr(unsigned char* string);
KEST_API unsigned char* _mbsupr(unsigned char* string);
KEST_API int _mbsncmp(const unsigned char* a, const unsigned char* b, size_t count);
KEST_API size_t _mbsspn(const unsigned char* string, const unsigned char* set);
KEST_API size_t _mbscspn(const unsigned char* string, const unsigned char* set);
KEST_API unsigned char* _mbsrev(unsigned char* string);
KEST_API int _wcsncoll(const wchar_t* a, const wchar_t* b, size_t count);
KEST_API int _wcsnicoll(const wchar_t* a, const wchar_t* b, size_t count);

/* ---- Lead bytes ------------------------------------------------------------------------------- */

/** Always 0: no byte is ever a lead byte. @kind fixed result */
KEST_API int isleadbyte(int c);

KEST_C_END

/* ---- Overloads, C++ only ---------------------------------------------------------------------- */

#ifdef __cplusplus

/**
 * Copies a whole string.
 * @param destination  receives the string and its terminator; the caller provides room.
 * @return 0.
 * @lasterror left as it is.
 * @null not tested.
 * @kind local
 * @differs{wcscpys.KnowsNoSizeOfAnArray} Without a size the whole string is copied; the array's size plays no part.
 */
KEST_API int wcscpy_s(wchar_t* destination, const wchar_t* source);

/**
 * wcscpy_s with count for its size: a longer source is cut to count - 1 characters.
 * @param count  the room at destination; its low 32 bits, as a signed number, are the size.
 * @return 0; -1 as wcscpy_s does.
 * @lasterror left as it is.
 * @null destination, source: answers -1 and writes nothing.
 * @kind local
 * @differs{wcsncpys.TakesTheCountForTheSize} Without a size the count is the destination's room, so that one
 *     character less is copied.
 */
KEST_API int wcsncpy_s(wchar_t* destination, const wchar_t* source, unsigned long count);

/**
 * Copies a whole string.
 * @param destination  receives the string and its terminator; the caller provides room.
 * @return destination.
 * @lasterror left as it is.
 * @null not tested.
 * @kind local
 * @differs{strcpys.KnowsNoSizeOfAnArray} Without a size the whole string is copied; the array's size plays no part.
 */
KEST_API char* strcpy_s(char* destination, const char* source);

/**
 * Copies a string with the C library's strncpy: cut at count without a terminator, padded to count with zeros.
 * @param destination  receives exactly count bytes.
 * @return destination.
 * @lasterror left as it is.
 * @null not tested.
 * @kind local
 * @differs{strncpys.AddsNoTerminatorWhenFull} Without a size a source of count bytes or more leaves no terminator.
 */
KEST_API char* strncpy_s(char* destination, const char* source, unsigned long count);

/**
 * Appends nothing to anything: exists so that calls with narrow strings build and run.
 * @param destination  read only, and unchanged.
 * @param source  read only. More than 1023 bytes in either string end the process through the C library's check.
 * @param count  has no effect that can be seen.
 * @return an address that is not null and must not be read through.
 * @lasterror left as it is, but set to EILSEQ by bytes that the locale cannot read.
 * @null not tested.
 * @kind local
 */
KEST_API wchar_t* wcsncat(char* destination, const char* source, unsigned long count);

#endif

#endif
