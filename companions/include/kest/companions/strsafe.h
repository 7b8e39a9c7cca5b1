/*
 * Kest Platform Base, companions: string handling that never writes past its buffer and always terminates it.
 *
 * StringCch functions take sizes in characters, StringCb functions in bytes; A is narrow, W wide. All of them answer
 *
 *     S_OK
 *     STRSAFE_E_INVALID_PARAMETER    the size is 0 or above 2147483647 characters; a text to append to has no
 *                                    terminator within its size; a needed pointer is null: nothing is written
 *     STRSAFE_E_INSUFFICIENT_BUFFER  the text was cut to what fits, and terminated
 *
 * and leave the last error as it is. The Ex forms also tell where the text ends and how much room is left, terminator
 * included (either pointer may be null), and take flags:
 *
 *     STRSAFE_IGNORE_NULLS      null texts count as empty ones, and so does a null destination of size 0
 *     STRSAFE_FILL_BEHIND_NULL  after success, the bytes behind the terminator become the flags' low byte
 *     STRSAFE_FILL_ON_FAILURE   after failure, the whole buffer becomes the flags' low byte, its last character 0
 *     STRSAFE_NULL_ON_FAILURE   after failure, the buffer holds an empty text
 *     STRSAFE_NO_TRUNCATION     text that does not fit leaves the buffer as it was; copied or printed, as an empty text
 *
 * Other flags are refused. Wide formats read "%s" as wide text: see kest/crt/formatted_output.h, whose limit of 524287
 * characters holds here as well. A format that the C library refuses answers STRSAFE_E_INVALID_PARAMETER and an empty
 * text; without memory to format in, so does a printing function.
 */
#ifndef KEST_COMPANIONS_STRSAFE_H
#define KEST_COMPANIONS_STRSAFE_H

#include "kest/base_types.h"
#include "kest/export.h"

#include <stdarg.h>
#include <stddef.h>
#include <wchar.h>

#define STRSAFE_MAX_CCH 2147483647
#define STRSAFE_IGNORE_NULLS 0x00000100
#define STRSAFE_FILL_BEHIND_NULL 0x00000200
#define STRSAFE_FILL_ON_FAILURE 0x00000400
#define STRSAFE_NULL_ON_FAILURE 0x00000800
#define STRSAFE_NO_TRUNCATION 0x00001000
#define STRSAFE_E_INSUFFICIENT_BUFFER ((HRESULT)0x8007007A)
#define STRSAFE_E_INVALID_PARAMETER ((HRESULT)0x80070057)
#define STRSAFE_E_END_OF_FILE ((HRESULT)0x80070026)

KEST_C_BEGIN

/* ---- Copies a text -------------------------------------------------------------------------- */

/**
 * Copies a text, cut to the room there is.
 * @param size  room at destination in characters, terminator included.
 * @return as the head of this file says.
 * @lasterror left as it is.
 * @null destination, source: refused; nothing is written.
 * @kind local
 */
KEST_API HRESULT StringCchCopyW(wchar_t* destination, size_t size, const wchar_t* source);

/** As StringCchCopyW, for narrow text. @kind local */
KEST_API HRESULT StringCchCopyA(char* destination, size_t size, const char* source);

/** As StringCchCopyW, with sizes in bytes. @kind local */
KEST_API HRESULT StringCbCopyW(wchar_t* destination, size_t sizeInBytes, const wchar_t* source);

/** As StringCchCopyW, for narrow text, with sizes in bytes. @kind local */
KEST_API HRESULT StringCbCopyA(char* destination, size_t sizeInBytes, const char* source);

/** StringCchCopyW with flags, which also tells the text's end and the characters of room left there. @kind local */
KEST_API HRESULT StringCchCopyExW(wchar_t* destination, size_t size, const wchar_t* source, wchar_t** end, size_t* left,
                                  DWORD flags);

/** StringCchCopyA with flags, which also tells the text's end and the characters of room left there. @kind local */
KEST_API HRESULT StringCchCopyExA(char* destination, size_t size, const char* source, char** end, size_t* left,
                                  DWORD flags);

/** StringCbCopyW with flags, which also tells the text's end and the bytes of room left there. @kind local */
KEST_API HRESULT StringCbCopyExW(wchar_t* destination, size_t sizeInBytes, const wchar_t* source, wchar_t** end,
                                 size_t* leftInBytes, DWORD flags);

/** StringCbCopyA with flags, which also tells the text's end and the bytes of room left there. @kind local */
KEST_API HRESULT StringCbCopyExA(char* destination, size_t sizeInBytes, const char* source, char** end,
                                 size_t* leftInBytes, DWORD flags);

/* ---- Copies at most count characters of a text ---------------------------------------------- */

/**
 * Copies at most count characters of a text, cut to the room there is.
 * @param size  room at destination in characters, terminator included.
 * @param source  read up to its terminator, and never further than count characters.
 * @return as the head of this file says; a count above 2147483646 is refused.
 * @lasterror left as it is.
 * @null destination, source: refused; nothing is written.
 * @kind local
 */
KEST_API HRESULT StringCchCopyNW(wchar_t* destination, size_t size, const wchar_t* source, size_t count);

/** As StringCchCopyNW, for narrow text. @kind local */
KEST_API HRESULT StringCchCopyNA(char* destination, size_t size, const char* source, size_t count);

/** As StringCchCopyNW, with sizes in bytes. @kind local */
KEST_API HRESULT StringCbCopyNW(wchar_t* destination, size_t sizeInBytes, const wchar_t* source, size_t countInBytes);

/** As StringCchCopyNW, for narrow text, with sizes in bytes. @kind local */
KEST_API HRESULT StringCbCopyNA(char* destination, size_t sizeInBytes, const char* source, size_t countInBytes);

/** StringCchCopyNW with flags, which also tells the text's end and the characters of room left there. @kind local */
KEST_API HRESULT StringCchCopyNExW(wchar_t* destination, size_t size, const wchar_t* source, size_t count,
                                   wchar_t** end, size_t* left, DWORD flags);

/** StringCchCopyNA with flags, which also tells the text's end and the characters of room left there. @kind local */
KEST_API HRESULT StringCchCopyNExA(char* destination, size_t size, const char* source, size_t count, char** end,
                                   size_t* left, DWORD flags);

/** StringCbCopyNW with flags, which also tells the text's end and the bytes of room left there. @kind local */
KEST_API HRESULT StringCbCopyNExW(wchar_t* destination, size_t sizeInBytes, const wchar_t* source, size_t countInBytes,
                                  wchar_t** end, size_t* leftInBytes, DWORD flags);

/** StringCbCopyNA with flags, which also tells the text's end and the bytes of room left there. @kind local */
KEST_API HRESULT StringCbCopyNExA(char* destination, size_t sizeInBytes, const char* source, size_t countInBytes,
                                  char** end, size_t* leftInBytes, DWORD flags);

/* ---- Appends a text to the one in the buffer ------------------------------------------------ */

/**
 * Appends a text to the one that destination holds, cut to the room there is.
 * @param size  room at destination in characters, the text there and the terminator included.
 * @return as the head of this file says.
 * @lasterror left as it is.
 * @null destination, source: refused; nothing is written.
 * @kind local
 */
KEST_API HRESULT StringCchCatW(wchar_t* destination, size_t size, const wchar_t* source);

/** As StringCchCatW, for narrow text. @kind local */
KEST_API HRESULT StringCchCatA(char* destination, size_t size, const char* source);

/** As StringCchCatW, with sizes in bytes. @kind local */
KEST_API HRESULT StringCbCatW(wchar_t* destination, size_t sizeInBytes, const wchar_t* source);

/** As StringCchCatW, for narrow text, with sizes in bytes. @kind local */
KEST_API HRESULT StringCbCatA(char* destination, size_t sizeInBytes, const char* source);

/** StringCchCatW with flags, which also tells the text's end and the characters of room left there. @kind local */
KEST_API HRESULT StringCchCatExW(wchar_t* destination, size_t size, const wchar_t* source, wchar_t** end, size_t* left,
                                 DWORD flags);

/** StringCchCatA with flags, which also tells the text's end and the characters of room left there. @kind local */
KEST_API HRESULT StringCchCatExA(char* destination, size_t size, const char* source, char** end, size_t* left,
                                 DWORD flags);

/** StringCbCatW with flags, which also tells the text's end and the bytes of room left there. @kind local */
KEST_API HRESULT StringCbCatExW(wchar_t* destination, size_t sizeInBytes, const wchar_t* source, wchar_t** end,
                                size_t* leftInBytes, DWORD flags);

/** StringCbCatA with flags, which also tells the text's end and the bytes of room left there. @kind local */
KEST_API HRESULT StringCbCatExA(char* destination, size_t sizeInBytes, const char* source, char** end,
                                size_t* leftInBytes, DWORD flags);

/* ---- Appends at most count characters of a text to the one in the buffer -------------------- */

/**
 * Appends at most count characters of a text to the one that destination holds, cut to the room there is.
 * @param size  room at destination in characters, the text there and the terminator included.
 * @param source  read up to its terminator, and never further than count characters.
 * @return as the head of this file says; a count above 2147483646 is refused.
 * @lasterror left as it is.
 * @null destination, source: refused; nothing is written.
 * @kind local
 */
KEST_API HRESULT StringCchCatNW(wchar_t* destination, size_t size, const wchar_t* source, size_t count);

/** As StringCchCatNW, for narrow text. @kind local */
KEST_API HRESULT StringCchCatNA(char* destination, size_t size, const char* source, size_t count);

/** As StringCchCatNW, with sizes in bytes. @kind local */
KEST_API HRESULT StringCbCatNW(wchar_t* destination, size_t sizeInBytes, const wchar_t* source, size_t countInBytes);

/** As StringCchCatNW, for narrow text, with sizes in bytes. @kind local */
KEST_API HRESULT StringCbCatNA(char* destination, size_t sizeInBytes, const char* source, size_t countInBytes);

/** StringCchCatNW with flags, which also tells the text's end and the characters of room left there. @kind local */
KEST_API HRESULT StringCchCatNExW(wchar_t* destination, size_t size, const wchar_t* source, size_t count, wchar_t** end,
                                  size_t* left, DWORD flags);

/** StringCchCatNA with flags, which also tells the text's end and the characters of room left there. @kind local */
KEST_API HRESULT StringCchCatNExA(char* destination, size_t size, const char* source, size_t count, char** end,
                                  size_t* left, DWORD flags);

/** StringCbCatNW with flags, which also tells the text's end and the bytes of room left there. @kind local */
KEST_API HRESULT StringCbCatNExW(wchar_t* destination, size_t sizeInBytes, const wchar_t* source, size_t countInBytes,
                                 wchar_t** end, size_t* leftInBytes, DWORD flags);

/** StringCbCatNA with flags, which also tells the text's end and the bytes of room left there. @kind local */
KEST_API HRESULT StringCbCatNExA(char* destination, size_t sizeInBytes, const char* source, size_t countInBytes,
                                 char** end, size_t* leftInBytes, DWORD flags);

/* ---- Writes a formatted text ---------------------------------------------------------------- */

/**
 * Formats a text into a buffer, cut to the room there is.
 * @param size  room at destination in characters, terminator included.
 * @return as the head of this file says.
 * @lasterror left as it is.
 * @null destination, format: refused; nothing is written.
 * @kind local
 */
KEST_API HRESULT StringCchPrintfW(wchar_t* destination, size_t size, const wchar_t* format, ...);

/** As StringCchPrintfW, for narrow text. @kind local */
KEST_API HRESULT StringCchPrintfA(char* destination, size_t size, const char* format, ...);

/** As StringCchPrintfW, with sizes in bytes. @kind local */
KEST_API HRESULT StringCbPrintfW(wchar_t* destination, size_t sizeInBytes, const wchar_t* format, ...);

/** As StringCchPrintfW, for narrow text, with sizes in bytes. @kind local */
KEST_API HRESULT StringCbPrintfA(char* destination, size_t sizeInBytes, const char* format, ...);

/** StringCchPrintfW with flags, which also tells the text's end and the characters of room left there. @kind local */
KEST_API HRESULT StringCchPrintfExW(wchar_t* destination, size_t size, wchar_t** end, size_t* left, DWORD flags,
                                    const wchar_t* format, ...);

/** StringCchPrintfA with flags, which also tells the text's end and the characters of room left there. @kind local */
KEST_API HRESULT StringCchPrintfExA(char* destination, size_t size, char** end, size_t* left, DWORD flags,
                                    const char* format, ...);

/** StringCbPrintfW with flags, which also tells the text's end and the bytes of room left there. @kind local */
KEST_API HRESULT StringCbPrintfExW(wchar_t* destination, size_t sizeInBytes, wchar_t** end, size_t* leftInBytes,
                                   DWORD flags, const wchar_t* format, ...);

/** StringCbPrintfA with flags, which also tells the text's end and the bytes of room left there. @kind local */
KEST_API HRESULT StringCbPrintfExA(char* destination, size_t sizeInBytes, char** end, size_t* leftInBytes, DWORD flags,
                                   const char* format, ...);

/* ---- Writes a formatted text, the arguments in a list --------------------------------------- */

/**
 * StringCchPrintfW with its arguments in a list, which is left in no defined state.
 * @return as the head of this file says.
 * @lasterror left as it is.
 * @null destination, format: refused; nothing is written.
 * @kind local
 */
KEST_API HRESULT StringCchVPrintfW(wchar_t* destination, size_t size, const wchar_t* format, va_list arguments);

/** As StringCchVPrintfW, for narrow text. @kind local */
KEST_API HRESULT StringCchVPrintfA(char* destination, size_t size, const char* format, va_list arguments);

/** As StringCchVPrintfW, with sizes in bytes. @kind local */
KEST_API HRESULT StringCbVPrintfW(wchar_t* destination, size_t sizeInBytes, const wchar_t* format, va_list arguments);

/** As StringCchVPrintfW, for narrow text, with sizes in bytes. @kind local */
KEST_API HRESULT StringCbVPrintfA(char* destination, size_t sizeInBytes, const char* format, va_list arguments);

/** StringCchVPrintfW with flags, which also tells the text's end and the characters of room left there. @kind local */
KEST_API HRESULT StringCchVPrintfExW(wchar_t* destination, size_t size, wchar_t** end, size_t* left, DWORD flags,
                                     const wchar_t* format, va_list arguments);

/** StringCchVPrintfA with flags, which also tells the text's end and the characters of room left there. @kind local */
KEST_API HRESULT StringCchVPrintfExA(char* destination, size_t size, char** end, size_t* left, DWORD flags,
                                     const char* format, va_list arguments);

/** StringCbVPrintfW with flags, which also tells the text's end and the bytes of room left there. @kind local */
KEST_API HRESULT StringCbVPrintfExW(wchar_t* destination, size_t sizeInBytes, wchar_t** end, size_t* leftInBytes,
                                    DWORD flags, const wchar_t* format, va_list arguments);

/** StringCbVPrintfA with flags, which also tells the text's end and the bytes of room left there. @kind local */
KEST_API HRESULT StringCbVPrintfExA(char* destination, size_t sizeInBytes, char** end, size_t* leftInBytes, DWORD flags,
                                    const char* format, va_list arguments);

/* ---- Length ---------------------------------------------------------------------------- */

/**
 * Measures a text that ought to end within a size.
 * @param size  in characters, terminator included.
 * @param length  may be null; receives the length in characters, or 0 after a failure.
 * @return S_OK; STRSAFE_E_INVALID_PARAMETER for a null text, a size of 0 or above 2147483647 characters, and for text
 *     that has no terminator within the size.
 * @lasterror left as it is.
 * @null text: refused.
 * @kind local
 */
KEST_API HRESULT StringCchLengthW(const wchar_t* text, size_t size, size_t* length);

/** As StringCchLengthW, for narrow text. @kind local */
KEST_API HRESULT StringCchLengthA(const char* text, size_t size, size_t* length);

/** As StringCchLengthW, with size and length in bytes. @kind local */
KEST_API HRESULT StringCbLengthW(const wchar_t* text, size_t sizeInBytes, size_t* lengthInBytes);

/** As StringCchLengthW, for narrow text, with size and length in bytes. @kind local */
KEST_API HRESULT StringCbLengthA(const char* text, size_t sizeInBytes, size_t* lengthInBytes);

KEST_C_END

#endif
