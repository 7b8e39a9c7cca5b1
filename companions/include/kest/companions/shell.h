/*
 * Kest Platform Base, companions: the shell's folders by identifier, command lines and texts.
 *
 * What these functions hand out is memory of the C library. CoTaskMemFree and LocalFree, which Windows code calls for
 * it, do nothing here: code for which a few hundred bytes a call matter gives it to free().
 */
#ifndef KEST_COMPANIONS_SHELL_H
#define KEST_COMPANIONS_SHELL_H

#include "kest/base_types.h"
#include "kest/export.h"

KEST_C_BEGIN

/**
 * Asks the host where a folder of the user or the system is, as SHGetFolderPathW does for the folder's number.
 * @param folder  FOLDERID_*.
 * @param flags  KF_FLAG_CREATE and the flags beside it that SHGetFolderPathW knows as CSIDL_FLAG_*; KF_FLAG_DEFAULT_PATH.
 * @param token  handed on.
 * @param path  receives the path; null when there is none.
 * @return S_OK; 0x80070002 for a folder that is not there or has no number (CSIDL_*); else what the service answers.
 * @lasterror what the service does with it.
 * @null path: answers E_INVALIDARG.
 * @kind checked forward: IFileSystemService::SHGetFolderPathW, E_NOTIMPL without hub or service
 * @differs{SHGetKnownFolderPath.KnowsFoldersWithANumberOnly} Downloads, Links, Contacts, SavedGames, UserProfiles, Public
 *     and LocalAppDataLow are not found, as no operation of the service names them.
 * @differs{SHGetKnownFolderPath.HandsOutWhatCoTaskMemFreeKeeps} Only free() releases the path.
 */
KEST_API HRESULT SHGetKnownFolderPath(REFGUID folder, DWORD flags, HANDLE token, PWSTR* path);

/**
 * Splits a command line into its arguments. The first is the program: up to the next quote when it begins with one, else
 * up to the next blank. In the others blanks within quotes separate nothing, 2n backslashes in front of a quote are n
 * backslashes and 2n + 1 are n and the quote itself; two quotes within quotes are one quote, and end them.
 * @param line  the command line; an empty one stands for the path of the running program.
 * @param count  receives the number of arguments.
 * @return the arguments, a null behind the last, in one block of memory; null on failure.
 * @lasterror 87 for a null argument, 8 without memory; else left as it is.
 * @null line, count: answers null.
 * @kind local
 * @differs{CommandLineToArgvW.HandsOutWhatLocalFreeKeeps} Only free() releases the arguments.
 */
KEST_API LPWSTR* CommandLineToArgvW(LPCWSTR line, int* count);

/**
 * Removes characters from both ends of a text, in place.
 * @param characters  those to remove.
 * @return 1 when one was removed, else 0.
 * @lasterror left as it is.
 * @null text, characters: answers 0.
 * @kind local
 */
KEST_API BOOL StrTrimW(PWSTR text, PCWSTR characters);

KEST_C_END

#endif
