/*
 * Kest Platform Base, companions: conversion between wide text and the encodings of Windows's code pages.
 *
 * A wide character is a whole code point here, so that lengths differ from Windows's for text outside the basic plane.
 * UTF-8 (65001) is converted exactly. CP_ACP, CP_OEMCP and CP_THREAD_ACP stand for the encoding of the process's
 * character-type locale. Other code pages are those that the C library's iconv knows under "CP" and their number, and
 * the common ones that it knows by name (20127, 20866, 21866, 28591 and so on, 51932, 51949, 54936, 65000). A page
 * whose module iconv cannot load, for want of memory or descriptors, is unknown to it that time. If its list of modules
 * cannot be read at the first conversion of the process, for want of descriptors, it knows no module from then on.
 */
#ifndef KEST_COMPANIONS_ENCODINGS_H
#define KEST_COMPANIONS_ENCODINGS_H

#include "kest/base_types.h"
#include "kest/export.h"

KEST_C_BEGIN

/**
 * Converts bytes of a code page to wide text.
 * @param flags  0 or MB_ERR_INVALID_CHARS; other pages than UTF-8 take MB_PRECOMPOSED, MB_COMPOSITE and
 *     MB_USEGLYPHCHARS as well, without effect.
 * @param text  size bytes, not kept; not the same address as buffer.
 * @param size  in bytes; negative: up to and with the terminator.
 * @param buffer  receives the text, terminated only when the converted bytes hold the terminator.
 * @param capacity  room at buffer in characters; 0 asks for the number needed and leaves buffer alone.
 * @return the number of characters written or needed; 0 after a failure. Invalid bytes become U+FFFD, one for each
 *     longest beginning of a character.
 * @lasterror left as it is after success; else 87 for an invalid argument or an unknown code page, 122 when buffer is
 *     too small (it is filled as far as it goes), 1004 for a wrong flag, 1113 for invalid bytes under
 *     MB_ERR_INVALID_CHARS, 8 when there is no memory. GetLastError translates 8 to 193.
 * @null text; buffer with a capacity: answers 0.
 * @kind local
 * @differs{MultiByteToWideChar.MakesOneCharacterOfACodePoint} Text outside the basic plane has no surrogates.
 */
KEST_API int MultiByteToWideChar(UINT codePage, DWORD flags, const char* text, int size, wchar_t* buffer, int capacity);

/**
 * Converts wide text to bytes of a code page.
 * @param flags  0 or WC_ERR_INVALID_CHARS; other pages than UTF-8 take WC_COMPOSITECHECK, WC_DISCARDNS, WC_SEPCHARS,
 *     WC_DEFAULTCHAR and WC_NO_BEST_FIT_CHARS, without effect, and not WC_ERR_INVALID_CHARS.
 * @param text  size characters, not kept; not the same address as buffer.
 * @param size  in characters; negative: up to and with the terminator.
 * @param buffer  receives the bytes, terminated only when the converted text holds the terminator.
 * @param capacity  room at buffer in bytes; 0 asks for the number needed and leaves buffer alone.
 * @param defaultCharacter  a string that stands for what the page does not have; null: "?". Must be null for UTF-8.
 * @param usedDefault  may be null; receives whether the default character was needed. Must be null for UTF-8.
 * @return the number of bytes written or needed; 0 after a failure. In UTF-8, codes that are no characters become
 *     U+FFFD.
 * @lasterror left as it is after success; else as MultiByteToWideChar sets it, 1113 for invalid codes under
 *     WC_ERR_INVALID_CHARS.
 * @null text; buffer with a capacity: answers 0.
 * @kind local
 * @differs{WideCharToMultiByte.TakesASurrogateForAnInvalidCode} Two surrogates are two invalid codes, not a character.
 * @differs{WideCharToMultiByte.FitsNothingBest} What a page does not have becomes the default character, never one of
 *     similar shape.
 */
KEST_API int WideCharToMultiByte(UINT codePage, DWORD flags, const wchar_t* text, int size, char* buffer, int capacity,
                                 const char* defaultCharacter, BOOL* usedDefault);

KEST_C_END

#endif
