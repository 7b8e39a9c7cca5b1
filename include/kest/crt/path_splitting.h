/*
 * Kest Platform Base: path splitting and making.
 *
 * No drive letters exist here, and the four splitting functions do not agree: each has its own view of where the
 * directory ends and of what the drive is. For the path "/usr/lib/libx.so.2":
 *
 *     function        drive    directory     name        extension
 *     _splitpath      ""       "/usr/lib"    "libx.so"   ".2"
 *     _wsplitpath     ""       "/usr/lib/"   "libx.so"   ".2"
 *     _splitpath_s    "usr"    "/lib"        "libx"      ".2"
 *     _wsplitpath_s   "usr"    "/lib"        "libx"      ".2"
 *
 * All of them keep their state to themselves and may be called on any thread. None sets the last error.
 */
#ifndef KEST_CRT_PATH_SPLITTING_H
#define KEST_CRT_PATH_SPLITTING_H

#include "kest/base_types.h"
#include "kest/export.h"

#include <stddef.h>
#include <wchar.h>

KEST_C_BEGIN

/**
 * Splits a narrow path at its last "/" and the component behind it at its last ".".
 * @param path   the path; a backslash is an ordinary character.
 * @param drive  always becomes empty.
 * @param dir    receives the text before the last "/", without it; empty when there is none.
 * @param fname  receives the last component up to its last dot.
 * @param ext    receives the rest, dot included.
 * Every output must have room for its part: the path's length plus one is always enough.
 * @null path: every output becomes empty.
 * @kind local
 * @differs{splitpath.LeavesTheSeparatorOutOfTheDirectory} On Windows the directory ends in its separator.
 * @differs{splitpath.KnowsNeitherDrivesNorBackslashes} "C:\a.b" is a name with an extension.
 * @differs{splitpath.NeedsEveryOutput} On Windows an output that is not wanted may be null.
 */
KEST_API void _splitpath(const char* path, char* drive, char* dir, char* fname, char* ext);

/**
 * Splits a narrow path into its first component, directory, name and extension. Backslashes count as "/"; several
 * "/" in a row count as one, and those at the end of the path do not count.
 *
 * A path without "/": name and extension are split at the last dot. An output that is null or has size 0 is passed
 * over. Without a dot the name is written only where it fits, and the result is 0 in any case; with one, the first
 * of name and extension that does not fit makes the result 1. Drive and directory are left as they are.
 *
 * A path with "/":
 *  - drive receives the first component.
 *  - Each further component that holds a dot is taken as the name, and ext receives the part from its last dot.
 *  - The others make up the directory, each with a "/" in front, but for the last component of the path, which is
 *    taken as the name.
 *  - dir receives the directory, then fname the name up to its first dot.
 * Parts are cut to size - 1 bytes and terminated; a size of 0 writes nothing.
 * @return 0; 1 when the path is null, empty, only slashes or a single component with slashes around it, when the name
 * consists of dots only, or when an output is null though its size is not 0. What was written until then stays.
 * @null path: answers 1. Outputs: see above.
 * @kind local
 * @differs{splitpaths.PutsTheFirstComponentIntoDrive} On Windows it belongs to the directory.
 * @differs{splitpaths.CutsTheNameAtItsFirstDot} "/a/b.c.d" gives "b" and ".d"; on Windows "b.c" and ".d".
 * @differs{splitpaths.TakesTheExtensionOfAnyComponent} "/a/b.c/d" gives the extension ".c" and no directory.
 * @differs{splitpaths.LeavesOutputsThatThePathDoesNotReach} On Windows they become empty.
 * @differs{splitpaths.CutsTooLongPartsAndSucceeds} On Windows these are an error that empties all outputs.
 * @differs{splitpaths.AnswersOneForEveryError} On Windows EINVAL or ERANGE.
 * @differs{splitpaths.PrintsFailedForSlashesOnly} "failed!" and a line feed appear on standard output.
 * @differs{splitpaths.EndsTheProcessOnPathsOf1024Bytes} So does every longer path.
 * @differs{splitpaths.EndsTheProcessOnDirectorySizesBeyond4096} As soon as a component is added to the directory.
 */
KEST_API int _splitpath_s(const char* path, char* drive, size_t driveSize, char* dir, size_t dirSize, char* fname,
                          size_t fnameSize, char* ext, size_t extSize);

/**
 * Splits a wide path behind its last "/" (only where it has none, behind its last "\") and the component behind that
 * at its last dot.
 * @param path   the path.
 * @param drive  always becomes empty.
 * @param dir    receives the text up to the separator, which is included; empty beyond 1025 characters.
 * @param fname  receives the last component up to its last dot; empty when that exceeds 255 characters, in a path
 *               with a separator also when the whole component does.
 * @param ext    receives the rest, dot included; empty beyond 255 characters.
 * @null path: every output becomes empty. Outputs: left out.
 * @kind local
 * @differs{wsplitpath.KnowsNoDrives} "C:\a.b" has the directory "C:\" and no drive.
 * @differs{wsplitpath.TakesBackslashesOnlyWithoutSlashes} "a/b\c" has the name "b\c".
 * @differs{wsplitpath.TakesDirectoriesOf1025Characters} On Windows no directory exceeds 255 characters.
 */
KEST_API void _wsplitpath(const wchar_t* path, wchar_t* drive, wchar_t* dir, wchar_t* fname, wchar_t* ext);

/**
 * _splitpath_s for wide text, sizes in characters, but for one thing: a part that does not fit is cut as the C
 * library's swprintf cuts it, and so is the directory whenever a component is added. On glibc the first size - 1
 * characters are written and no terminator is (with size 1 only a terminator). The result does not tell.
 * @kind local
 * @differs{wsplitpaths.PutsTheFirstComponentIntoDrive} On Windows it belongs to the directory.
 * @differs{wsplitpaths.CutsTheNameAtItsFirstDot} "/a/b.c.d" gives "b" and ".d"; on Windows "b.c" and ".d".
 * @differs{wsplitpaths.TakesTheExtensionOfAnyComponent} "/a/b.c/d" gives the extension ".c" and no directory.
 * @differs{wsplitpaths.LeavesOutputsThatThePathDoesNotReach} On Windows they become empty.
 * @differs{wsplitpaths.CutsTooLongPartsWithoutTerminatorAndSucceeds} On Windows these are an error that empties all
 * outputs.
 * @differs{wsplitpaths.AnswersOneForEveryError} On Windows EINVAL or ERANGE.
 * @differs{wsplitpaths.PrintsFailedForSlashesOnly} "failed!" and a line feed appear on standard output.
 * @differs{wsplitpaths.EndsTheProcessOnPathsOf1024Characters} So does every longer path.
 * @differs{wsplitpaths.EndsTheProcessOnDirectorySizesBeyond4096} As soon as a component is added to the directory.
 */
KEST_API int _wsplitpath_s(const wchar_t* path, wchar_t* drive, size_t driveSize, wchar_t* dir, size_t dirSize,
                           wchar_t* fname, size_t fnameSize, wchar_t* ext, size_t extSize);

/**
 * Appends drive, directory, name and extension to a text.
 * @param destination  the text to extend, normally empty; must have room for the result.
 * @param drive, dir   appended as they are.
 * @param fname        appended as it is.
 * @param ext          appended behind a ".", unless it is empty or starts with one.
 * @null fname, ext: left out. The others must not be null.
 * @kind local
 * @differs{wmakepath.AppendsToTheDestination} On Windows the destination's earlier text is lost.
 * @differs{wmakepath.InsertsNoSeparators} On Windows a ":" follows the drive and a "\" the directory.
 * @differs{wmakepath.NeedsDriveAndDirectory} On Windows they may be null.
 */
KEST_API void _wmakepath(wchar_t* destination, const wchar_t* drive, const wchar_t* dir, const wchar_t* fname,
                         const wchar_t* ext);

KEST_C_END

#endif
