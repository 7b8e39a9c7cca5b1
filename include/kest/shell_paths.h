/*
 * Kest Platform Base: shell paths.
 *
 * The functions that work on the string itself know one separator, "/"; a backslash is a character like any
 * other. They write their result over the caller's buffer, terminator included, without knowing its size: it
 * must have room. A result of more than 524287 characters is not written at all. Arguments may overlap.
 *
 * Forwards hand their arguments to the host's IFileSystemService as they are, null included, and the service's
 * result back unchanged; those not called checked need an installed hub with that service. They leave the
 * last-error value to the host.
 */
#ifndef KEST_SHELL_PATHS_H
#define KEST_SHELL_PATHS_H

#include "kest/base_types.h"
#include "kest/export.h"

/* ---- Folders of SHGetFolderPathW -------------------------------------------------------------- */

#define CSIDL_DESKTOP 0x0000
#define CSIDL_INTERNET 0x0001
#define CSIDL_PROGRAMS 0x0002
#define CSIDL_CONTROLS 0x0003
#define CSIDL_PRINTERS 0x0004
#define CSIDL_PERSONAL 0x0005
#define CSIDL_MYDOCUMENTS CSIDL_PERSONAL
#define CSIDL_FAVORITES 0x0006
#define CSIDL_STARTUP 0x0007
#define CSIDL_RECENT 0x0008
#define CSIDL_SENDTO 0x0009
#define CSIDL_BITBUCKET 0x000A
#define CSIDL_STARTMENU 0x000B
#define CSIDL_MYMUSIC 0x000D
#define CSIDL_MYVIDEO 0x000E
#define CSIDL_DESKTOPDIRECTORY 0x0010
#define CSIDL_DRIVES 0x0011
#define CSIDL_NETWORK 0x0012
#define CSIDL_NETHOOD 0x0013
#define CSIDL_FONTS 0x0014
#define CSIDL_TEMPLATES 0x0015
#define CSIDL_COMMON_STARTMENU 0x0016
#define CSIDL_COMMON_PROGRAMS 0x0017
#define CSIDL_COMMON_STARTUP 0x0018
#define CSIDL_COMMON_DESKTOPDIRECTORY 0x0019
#define CSIDL_APPDATA 0x001A
#define CSIDL_PRINTHOOD 0x001B
#define CSIDL_LOCAL_APPDATA 0x001C
#define CSIDL_COMMON_FAVORITES 0x001F
#define CSIDL_INTERNET_CACHE 0x0020
#define CSIDL_COOKIES 0x0021
#define CSIDL_HISTORY 0x0022
#define CSIDL_COMMON_APPDATA 0x0023
#define CSIDL_WINDOWS 0x0024
#define CSIDL_SYSTEM 0x0025
#define CSIDL_PROGRAM_FILES 0x0026
#define CSIDL_MYPICTURES 0x0027
#define CSIDL_PROFILE 0x0028
#define CSIDL_SYSTEMX86 0x0029
#define CSIDL_PROGRAM_FILESX86 0x002A
#define CSIDL_PROGRAM_FILES_COMMON 0x002B
#define CSIDL_PROGRAM_FILES_COMMONX86 0x002C
#define CSIDL_COMMON_TEMPLATES 0x002D
#define CSIDL_COMMON_DOCUMENTS 0x002E
#define CSIDL_COMMON_ADMINTOOLS 0x002F
#define CSIDL_ADMINTOOLS 0x0030
#define CSIDL_COMMON_MUSIC 0x0035
#define CSIDL_COMMON_PICTURES 0x0036
#define CSIDL_COMMON_VIDEO 0x0037
#define CSIDL_FLAG_CREATE 0x8000
#define SHGFP_TYPE_CURRENT 0
#define SHGFP_TYPE_DEFAULT 1

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
 * @return destination, or null for a null argument and without memory.
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
 * a leading "." needs no "." in the pattern. What does not match by characters is tried by bytes: "????" matches two
 * characters of two bytes each.
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

/* ---- Directories ------------------------------------------------------------------------------ */

/**
 * Tells whether a path is a directory that can be opened. Its descriptor stays open.
 * @param path  cut after 4095 bytes of its multibyte form, and at the first character that the locale cannot encode.
 * @return 1 when it is, else 0.
 * @lasterror what the C library's calls left.
 * @null path: answers 0.
 * @kind local
 * @differs{PathIsDirectoryW.LeavesADescriptorOpen} One for each call that answers 1; when the process can open no more,
 * the answer is 0.
 * @differs{PathIsDirectoryW.NeedsReadPermission} A directory that cannot be read answers 0.
 */
KEST_API BOOL PathIsDirectoryW(const wchar_t* path);

/**
 * Makes a directory as CreateDirectoryW does.
 * @param window    ignored.
 * @param security  ignored.
 * @return 0 on success, else E_FAIL.
 * @lasterror what the C library's calls left.
 * @null path: answers E_FAIL.
 * @kind local
 * @differs{SHCreateDirectoryExW.TakesWhatExistsForSuccess} A directory or file that exists answers 0.
 * @differs{SHCreateDirectoryExW.AnswersOneFailureOnly} Windows answers a system error code.
 */
KEST_API int SHCreateDirectoryExW(HWND window, const wchar_t* path, const SECURITY_ATTRIBUTES* security);

/* ---- Paths that the host knows about ----------------------------------------------------------- */

/**
 * Tells whether text is an URL.
 * @return not 0 when it is.
 * @kind forward: IFileSystemService::PathIsURLW
 */
KEST_API BOOL PathIsURLW(const wchar_t* pszPath);

/**
 * Ends a path with a separator, unless it has one. Which separator that is, is the service's choice.
 * @param pszPath  room for MAX_PATH characters.
 * @return the service's answer: where the path ends, or null.
 * @kind forward: IFileSystemService::PathAddBackslashW
 */
KEST_API wchar_t* PathAddBackslashW(wchar_t* pszPath);

/**
 * Tells whether a path exists. The name under which it does, which the service tells as well, is dropped.
 * @return the service's result.
 * @kind forward: IFileSystemService::PathFileExistsW
 */
KEST_API BOOL PathFileExistsW(const wchar_t* path);

/**
 * Asks where a folder of the user or the system is.
 * @param nFolder  CSIDL_*.
 * @param dwFlags  SHGFP_TYPE_*.
 * @param pszPath  receives the path; room for MAX_PATH characters.
 * @return S_OK, or a failure.
 * @kind forward: IFileSystemService::SHGetFolderPathW
 */
KEST_API HRESULT SHGetFolderPathW(HWND hwnd, int nFolder, HANDLE hToken, DWORD dwFlags, wchar_t* pszPath);

/**
 * Asks where a folder is, as SHGetFolderPathW does without token and flags.
 * @param path    receives the path; room for MAX_PATH characters.
 * @param folder  CSIDL_*.
 * @param create  ignored.
 * @return 1 when SHGetFolderPathW answers S_OK, else 0.
 * @kind forward: IFileSystemService::SHGetFolderPathW
 * @differs{SHGetSpecialFolderPathW.IgnoresCreate} Whether the folder is made is the service's choice.
 */
KEST_API BOOL SHGetSpecialFolderPathW(HWND window, wchar_t* path, int folder, BOOL create);

/**
 * Makes the relative path that leads from one path to another.
 * @param pszPath  receives the relative path; room for MAX_PATH characters.
 * @param dwAttrFrom  FILE_ATTRIBUTE_DIRECTORY when pszFrom is a folder.
 * @param dwAttrTo  FILE_ATTRIBUTE_DIRECTORY when pszTo is a folder.
 * @return not 0 on success.
 * @kind forward: IFileSystemService::PathRelativePathToW
 */
KEST_API BOOL PathRelativePathToW(wchar_t* pszPath, const wchar_t* pszFrom, DWORD dwAttrFrom, const wchar_t* pszTo,
                                  DWORD dwAttrTo);

/**
 * Tells whether a path is relative.
 * @return not 0 when it is.
 * @kind forward: IFileSystemService::PathIsRelativeW
 */
KEST_API BOOL PathIsRelativeW(const wchar_t* pszPath);

/**
 * Finds the extension of a path.
 * @return the extension's dot inside pszPath, or the terminator when there is none.
 * @kind forward: IFileSystemService::PathFindExtensionW
 */
KEST_API wchar_t* PathFindExtensionW(const wchar_t* pszPath);

/* ---- Programs --------------------------------------------------------------------------------- */

/**
 * Runs a shell command line and waits until it ends: the operation, a space, the directory and "/" if a directory is
 * given, the file, a space, and the parameters if they are given. The operation "xdg-open", the directory "/tmp" and
 * the file "a.txt" run "xdg-open /tmp/a.txt ". Every text is cut after 4095 bytes.
 * @param hwnd        ignored.
 * @param operation   the first word of the command.
 * @param file        what it works on.
 * @param parameters  more of the command.
 * @param directory   stands before the file.
 * @param show        ignored.
 * @return 33; 29 without an operation and 2 without a file, with nothing run.
 * @lasterror whatever starting the shell left.
 * @null operation, file, parameters, directory: not given; an empty text is given.
 * @kind local
 * @differs{ShellExecuteW.TakesTheOperationAsACommand} The operation is not a verb such as "open" that is looked up.
 * @differs{ShellExecuteW.RefusesAMissingOperation} There is no default verb.
 * @differs{ShellExecuteW.PutsTheDirectoryBeforeTheFile} The directory is part of the path, not where the command runs.
 * @differs{ShellExecuteW.WaitsUntilTheCommandEnds} The program has ended when the call returns.
 * @differs{ShellExecuteW.ReportsSuccessForWhateverWasTried} A command that cannot be started or fails counts as
 *     success.
 */
KEST_API HINSTANCE ShellExecuteW(HWND hwnd, const wchar_t* operation, const wchar_t* file, const wchar_t* parameters,
                                 const wchar_t* directory, int show);

/* ---- Strings ---------------------------------------------------------------------------------- */

/**
 * Compares two strings by their codes: the C library's wcscmp.
 * @return negative, 0 or positive.
 * @lasterror left as it is.
 * @null not tested: ends the process.
 * @kind local
 * @differs{StrCmpI.ComparesCaseSensitively} Case counts, despite the name.
 */
KEST_API int StrCmpI(PCWSTR a, PCWSTR b);

/**
 * Finds a string in another: the C library's wcsstr.
 * @return the first occurrence of part in string, or null; string itself for an empty part.
 * @lasterror left as it is.
 * @null not tested: ends the process.
 * @kind local
 * @differs{StrStrIW.SearchesCaseSensitively} Case counts, despite the name.
 */
KEST_API PWSTR StrStrIW(PCWSTR string, PCWSTR part);

KEST_C_END

#endif
