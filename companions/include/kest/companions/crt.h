/*
 * Kest Platform Base, companions: more of the Microsoft C runtime's names.
 *
 * Where Windows would call the invalid-parameter handler, these functions answer the error and go on. Functions with
 * an error code as their result answer 0, 22 (EINVAL) for an argument that cannot be, 34 (ERANGE) for a buffer that is
 * too small. Comparisons and case mapping follow the process's character-type locale; wide names are converted to its
 * encoding whole, and a name that it cannot encode is refused with errno EILSEQ.
 */
#ifndef KEST_COMPANIONS_CRT_H
#define KEST_COMPANIONS_CRT_H

#include "kest/base_types.h"
#include "kest/export.h"

#include <stdarg.h>
#include <stddef.h>
#include <stdio.h>
#include <sys/stat.h>
#include <time.h>
#include <wchar.h>

/* A count that asks for as much as fits. */
#define _TRUNCATE ((size_t)-1)

/* The result of a copy that was cut on request. */
#define STRUNCATE 80

KEST_C_BEGIN

/* ---- Comparing and copying -------------------------------------------------------------------- */

/** Compares two strings without regard to case: wcscasecmp. @null not tested. @kind local */
KEST_API int _wcsicmp(const wchar_t* first, const wchar_t* second);

/** Compares at most count characters of two strings without regard to case: wcsncasecmp. @null not tested. @kind local */
KEST_API int _wcsnicmp(const wchar_t* first, const wchar_t* second, size_t count);

/** Compares two strings, byte by byte, without regard to case: strcasecmp. @null not tested. @kind local */
KEST_API int _stricmp(const char* first, const char* second);

/** Compares at most count bytes of two strings without regard to case: strncasecmp. @null not tested. @kind local */
KEST_API int _strnicmp(const char* first, const char* second, size_t count);

/**
 * Compares size bytes without regard to the case of the ASCII letters.
 * @return negative, 0 or positive.
 * @null not tested, but untouched when size is 0.
 * @kind local
 */
KEST_API int _memicmp(const void* first, const void* second, size_t size);

/** A copy of a string, which the caller frees; null when there is no memory. @null string: answers null. @kind local */
KEST_API wchar_t* _wcsdup(const wchar_t* string);

/** A copy of a string, which the caller frees; null when there is no memory. @null string: answers null. @kind local */
KEST_API char* _strdup(const char* string);

/**
 * Maps a string to lower case, in place.
 * @param size  room at string in characters; a string without terminator within it is refused and emptied.
 * @return 0, or 22.
 * @null string: answers 22.
 * @kind local
 */
KEST_API int _wcslwr_s(wchar_t* string, size_t size);

/* ---- Tokens ----------------------------------------------------------------------------------- */

/**
 * The next token of a string: wcstok, with the position kept by the caller.
 * @param string  the string to begin with, changed; null to go on with the one of *position.
 * @param position  receives where to go on.
 * @return the token; null when there is none left.
 * @null delimiters, position, string with *position: answers null and sets errno to 22.
 * @kind local
 */
KEST_API wchar_t* wcstok_s(wchar_t* string, const wchar_t* delimiters, wchar_t** position);

/** As wcstok_s, for bytes: strtok_r. @kind local */
KEST_API char* strtok_s(char* string, const char* delimiters, char** position);

/* ---- Formatting ------------------------------------------------------------------------------- */

/**
 * Writes a narrow text that fits.
 * @param size  room at buffer in bytes, terminator included.
 * @return the length; -1 when the text does not fit or the C library refuses the format: buffer is then empty.
 * @null buffer, format: answers -1.
 * @kind local
 */
KEST_API int sprintf_s(char* buffer, size_t size, const char* format, ...);

/**
 * Writes a narrow text, cut without a terminator when it is longer than count bytes, and with none when it fills them.
 * @param count  room at buffer in bytes.
 * @return the length; -1 when the text was cut or the C library refuses the format.
 * @null buffer: with a count of 0 the length that the text would have, else -1. format: answers -1.
 * @kind local
 */
KEST_API int _snprintf(char* buffer, size_t count, const char* format, ...);

/** As _snprintf, with the arguments in a list. @kind local */
KEST_API int _vsnprintf(char* buffer, size_t count, const char* format, va_list arguments);

/**
 * Writes at most count characters of a wide text, terminated.
 * @param size  room at buffer in characters, terminator included.
 * @param count  how much of the text to write; _TRUNCATE for as much as fits.
 * @return the length; -1 when the text was cut to count, and when it does not fit: buffer is then empty.
 * @null buffer, format: answers -1.
 * @kind local
 * @differs{snwprintfs.ReadsFormatsAsSwprintfDoes} Only a bare "%s" means wide text: see
 *     kest/crt/formatted_output.h. Texts above 524287 characters answer -1.
 */
KEST_API int _snwprintf_s(wchar_t* buffer, size_t size, size_t count, const wchar_t* format, ...);

/** _snwprintf_s for a text that has to fit. @kind local */
KEST_API int swprintf_s(wchar_t* buffer, size_t size, const wchar_t* format, ...);

/* ---- Conversion between wide and narrow ------------------------------------------------------- */

/**
 * Converts wide text to the process's encoding, terminated.
 * @param converted  may be null; receives the bytes written or needed, terminator included; 0 after a failure.
 * @param buffer  null, with a size of 0, to ask for the room needed.
 * @param size  room at buffer in bytes.
 * @param source  read up to its terminator.
 * @param count  the most bytes to write without the terminator; _TRUNCATE for as much as fits. Characters are not
 *     cut in two.
 * @return 0; 80 when the text was cut by _TRUNCATE; 34 with an empty buffer when it does not fit; 84 (EILSEQ)
 *     with an empty buffer for a character that the encoding lacks; 22 for arguments that cannot be.
 * @kind local
 * @differs{wcstombss.ReportsTheSystemsEILSEQ} On Windows the error of such a character is 42.
 */
KEST_API int wcstombs_s(size_t* converted, char* buffer, size_t size, const wchar_t* source, size_t count);

/** Converts bytes of the process's encoding to wide text, as wcstombs_s does; sizes in characters. @kind local */
KEST_API int mbstowcs_s(size_t* converted, wchar_t* buffer, size_t size, const char* source, size_t count);

/* ---- Files ------------------------------------------------------------------------------------ */

/** The descriptor of a stream: fileno. @null stream: answers -1 and sets errno to 22. @kind local */
KEST_API int _fileno(FILE* stream);

/* Windows's name for the record of a file with a 32-bit size: here the system's own, whose size has 64 bits. */
#ifndef _stat64i32
#define _stat64i32 stat
#endif

/**
 * Queries a file's status, following symbolic links: _wstat.
 * @return 0; -1 when stat fails.
 * @kind local
 * @differs{wstat64i32.FillsTheSystemsRecord} Inode numbers and owners are real, and sizes have 64 bits.
 */
KEST_API int _wstat64i32(const wchar_t* path, struct stat* record);

/** Makes a folder: mkdir, with all permissions that the process's mask leaves. @kind local */
KEST_API int _mkdir(const char* path);

/** Removes an empty folder: rmdir. @kind local */
KEST_API int _rmdir(const char* path);

/** Changes the working folder: chdir. @kind local */
KEST_API int _chdir(const char* path);

/** Removes a file: unlink. @kind local */
KEST_API int _unlink(const char* path);

/** Asks whether the process may use a file: access. @kind local */
KEST_API int _access(const char* path, int mode);

/** The working folder: getcwd. @null buffer: memory that the caller frees. @kind local */
KEST_API char* _getcwd(char* buffer, int size);

/** As _mkdir, with a wide name. @null path: answers -1 and sets errno to 22. @kind local */
KEST_API int _wmkdir(const wchar_t* path);

/** As _rmdir, with a wide name. @null path: answers -1 and sets errno to 22. @kind local */
KEST_API int _wrmdir(const wchar_t* path);

/** As _chdir, with a wide name. @null path: answers -1 and sets errno to 22. @kind local */
KEST_API int _wchdir(const wchar_t* path);

/** As _unlink, with a wide name. @null path: answers -1 and sets errno to 22. @kind local */
KEST_API int _wunlink(const wchar_t* path);

/* ---- Environment and time --------------------------------------------------------------------- */

/**
 * A copy of an environment variable's value.
 * @param buffer  receives the copy, which the caller frees; null when there is no such variable.
 * @param size  may be null; receives the copy's characters, terminator included; 0 when there is none.
 * @return 0, also without such a variable; 12 (ENOMEM) without memory; 22 for a null buffer or name; 84 (EILSEQ) for a
 *     name or value that the process's encoding cannot convert.
 * @kind local
 */
KEST_API int _wdupenv_s(wchar_t** buffer, size_t* size, const wchar_t* name);

/** As _wdupenv_s, narrow. @kind local */
KEST_API int _dupenv_s(char** buffer, size_t* size, const char* name);

/** The time of a broken-down local time: mktime. @null parts: answers -1 and sets errno to 22. @kind local */
KEST_API long long _mktime64(struct tm* parts);

/** The seconds since 1970. @param seconds  may be null; receives them as well. @kind local */
KEST_API long long _time64(long long* seconds);

/**
 * Breaks a time down in local time.
 * @param parts  receives the parts; all of them -1 after a failure.
 * @return 0; 22 for a null pointer and for a time before 1970 or past the year 3000.
 * @kind local
 */
KEST_API int _localtime64_s(struct tm* parts, const long long* seconds);

/** As _localtime64_s, in universal time. @kind local */
KEST_API int _gmtime64_s(struct tm* parts, const long long* seconds);

/* ---- Numbers ---------------------------------------------------------------------------------- */

/** Reads a whole number: strtoll. @null string: not tested. @kind local */
KEST_API long long _strtoi64(const char* string, char** end, int base);

/** Reads a whole number without sign: strtoull. @null string: not tested. @kind local */
KEST_API unsigned long long _strtoui64(const char* string, char** end, int base);

/** Reads a whole number: wcstoll. @null string: not tested. @kind local */
KEST_API long long _wcstoi64(const wchar_t* string, wchar_t** end, int base);

/** Reads a whole number without sign: wcstoull. @null string: not tested. @kind local */
KEST_API unsigned long long _wcstoui64(const wchar_t* string, wchar_t** end, int base);

KEST_C_END

#endif
