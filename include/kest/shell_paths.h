/*
 * Kest Platform Base: shell paths.
 *
 * The functions that work on the string itself know one separator, "/"; a backslash is a character like any
 * other. They write their result over the caller's buffer, terminator included, without knowing its size: it
 * must have room. A result of more than 524287 characters is not written at all. Arguments may overlap.
 */
#ifndef KEST_SHELL_PATHS_H
#define KEST_SHELL_PATHS_H

#include "kest/base_types.h"
#include "kest/export.h"

KEST_C_BEGIN

/* ---- Paths as strings ------------------------------------------------------------------------- */

/**
 * Cuts a path before its last "/".
 * @param path  the path; cut in place.
 * @return 1 when there was a "/", else 0 with the path as it was.
 * @lasterror left as it is.
 * @null path: answers 0.
 * @kind local
 * @differs{PathRemoveFileSpecW.KeepsNoRoot} The root is not kept: "/a" and "/" become the empty string, with 1.
 * @differs{PathRemoveFileSpecW.KnowsOnlyTheSlash} A backslash separates nothing.
 */
KEST_API BOOL PathRemoveFileSpecW(wchar_t* path);

/**
 * Rewrites a path to its last p characters, p being the position of its last "/" counted from 0:
 * "/usr/lib/a.so" (p = 8) becomes "lib/a.so", "ab/c" becomes "/c", "/x" the empty string. A path without
 * "/" stays as it is.
 * @param path  the path; rewritten in place, so it cannot be a constant.
 * @return path itself.
 * @lasterror left as it is.
 * @null path: answers null.
 * @kind local
 * @differs{PathFindFileNameW.RewritesItsArgument} The buffer is rewritten and returned, where Windows answers a
 * pointer to the name inside it.
 * @differs{PathFindFileNameW.CountsByTheSeparatorsPosition} What is kept is as long as the separator's position,
 * not as long as the name behind it.
 */
KEST_API wchar_t* PathFindFileNameW(wchar_t* path);

/**
 * Appends more to a path, with a "/" between them unless the path is empty or ends in one.
 * @param path  the path; extended in place.
 * @param more  what to append.
 * @return 1, or 0 for a null argument.
 * @lasterror left as it is.
 * @null either: answers 0, nothing is written.
 * @kind local
 * @differs{PathAppendW.AppendsAbsolutePaths} A "/" that more starts with is kept: "a/" and "/b" give "a//b", and an
 * absolute path does not replace the other.
 * @differs{PathAppendW.ResolvesNoDots} "." and ".." stay as they are.
 * @differs{PathAppendW.KnowsOnlyTheSlash} Behind a backslash a "/" is added.
 */
KEST_API BOOL PathAppendW(wchar_t* path, const wchar_t* more);

/**
 * Writes directory, "/" and file to destination.
 * @param destination  receives the path; may be one of the sources.
 * @return destination, or null for a null argument.
 * @lasterror left as it is.
 * @null any: answers null, nothing is written.
 * @kind local
 * @differs{PathCombineW.AlwaysAddsASeparator} "a/" and "b" give "a//b", "a" and "/b" give "a//b", two empty strings
 * give "/"; "." and ".." stay as they are.
 * @differs{PathCombineW.RequiresBothParts} Windows takes a null directory or a null file for an absent one.
 */
KEST_API wchar_t* PathCombineW(wchar_t* destination, const wchar_t* directory, const wchar_t* file);

/**
 * Matches a name with a pattern as the shell does, upper and lower case being the same. "*" also matches "/", and
 * a leading "." needs no "." in the pattern.
 * @param file     the name; its multibyte form is cut after 4095 bytes.
 * @param pattern  the pattern; its multibyte form is cut after 254 bytes.
 * @return 1 for a match, else 0.
 * @lasterror left as it is.
 * @null neither may be null.
 * @kind local
 * @differs{PathMatchSpecW.TakesOnePatternOnly} A ";" is a character of the pattern; it separates nothing.
 * @differs{PathMatchSpecW.FollowsTheShell} "[...]" stands for one character out of a set, a backslash takes the next
 * character literally, and "*.*" demands a dot.
 */
KEST_API BOOL PathMatchSpecW(const wchar_t* file, const wchar_t* pattern);

KEST_C_END

#endif
