/*
 * Kest Platform Base, companions: modules, environment, folders, files, the system and the command line.
 *
 * Narrow text is in the process's multibyte encoding; texts are converted whole. Where a function sets the last error it
 * sets Windows's code. GetLastError translates the codes 2 and 8: they read as 126 and 193.
 */
#ifndef KEST_COMPANIONS_KERNEL_H
#define KEST_COMPANIONS_KERNEL_H

#include "kest/base_types.h"
#include "kest/export.h"
#include "kest/kernel/environment.h"

typedef enum _FINDEX_INFO_LEVELS
{
    FindExInfoStandard,
    FindExInfoBasic,
    FindExInfoMaxInfoLevel
} FINDEX_INFO_LEVELS;

typedef enum _FINDEX_SEARCH_OPS
{
    FindExSearchNameMatch,
    FindExSearchLimitToDirectories,
    FindExSearchLimitToDevices,
    FindExSearchMaxSearchOp
} FINDEX_SEARCH_OPS;

/* Flags of FindFirstFileExW. */
#define FIND_FIRST_EX_CASE_SENSITIVE 0x00000001
#define FIND_FIRST_EX_LARGE_FETCH 0x00000002
#define FIND_FIRST_EX_ON_DISK_ENTRIES_ONLY 0x00000004

/* dwProcessorType of SYSTEM_INFO. */
#define PROCESSOR_AMD_X8664 8664

KEST_C_BEGIN

/* ---- Modules ---------------------------------------------------------------------------------- */

/**
 * The file name of a module, as GetModuleFileNameW finds it.
 * @param module  the module's handle; null or 1: the main program.
 * @param buffer  receives the name, terminated; what does not fit is cut.
 * @param size  room at buffer in bytes, terminator included.
 * @return the length in bytes, without the terminator; size for a name that was cut; 0 for one that cannot be found.
 * @lasterror 122 for a name that was cut, 126 for one that cannot be found, 1113 for one that the locale cannot encode,
 *     8 without memory; else left as it is.
 * @null buffer: with a size of 0 only, which cuts every name.
 * @kind local
 * @differs{GetModuleFileNameA.NeedsDllMain} A module without DllMain has no name.
 */
KEST_API DWORD GetModuleFileNameA(HMODULE module, char* buffer, DWORD size);

/**
 * Finds a module that LoadLibraryW or LoadLibraryExA has loaded, as GetModuleHandleW does.
 * @param name  the name as Windows code spells it ("Tools.dll").
 * @return the module's handle, or null.
 * @lasterror 126 when there is no such module, 1113 for a name that is no text of the locale, 8 without memory; else left
 *     as it is.
 * @null name: answers null.
 * @kind local
 * @differs{GetModuleHandleA.AnswersNullForTheMainProgram} A null name gives null, which the module functions take for
 *     the main program; the last error stays as it is.
 * @differs{GetModuleHandleA.KnowsOnlyWhatLoadLibraryWLoaded} Modules that were linked, or loaded by LoadLibraryA or the
 *     loader directly, are not found.
 */
KEST_API HMODULE GetModuleHandleA(const char* name);

/**
 * Loads a module as LoadLibraryW does, its DllMain called: not as LoadLibraryA.
 * @param name  the name as Windows code spells it ("Tools.dll"); not kept, not written to.
 * @param file  ignored.
 * @param flags  ignored.
 * @return the module's handle, which needs one FreeLibrary; null when it cannot be loaded.
 * @lasterror 126 for a module that cannot be loaded, 87 for an empty name, 1113 for a name that is no text of the
 *     locale, 8 without memory; else what DllMain does with it.
 * @null name: answers null, last error 87.
 * @kind local
 * @differs{LoadLibraryExA.IgnoresFlags} Every load is a full one.
 */
KEST_API HMODULE LoadLibraryExA(const char* name, HANDLE file, DWORD flags);

/* ---- Environment ------------------------------------------------------------------------------ */

/**
 * Reads a variable of the process's own environment: getenv, without a shell.
 * @param buffer  receives the value, terminated, when it fits; else left as it is.
 * @param size  room at buffer in bytes, terminator included.
 * @return the value's length in bytes; with the terminator counted, the room needed when it does not fit; 0 without such
 *     a variable and for an empty value.
 * @lasterror 203 without such a variable, 0 for an empty value that fits; else left as it is.
 * @null name: no such variable. buffer: nothing fits.
 * @kind local
 * @differs{GetEnvironmentVariableA.TellsCaseApart} "Path" is not "PATH".
 */
KEST_API DWORD GetEnvironmentVariableA(const char* name, char* buffer, DWORD size);

/**
 * Sets or removes a variable of the process's own environment: setenv and unsetenv, without a shell. Programs started
 * later see it.
 * @param value  null removes the variable.
 * @return 1, or 0.
 * @lasterror 87 for a name that is empty or holds "=", 203 for the removal of what is not there, 8 without memory; else
 *     left as it is.
 * @null name: answers 0, last error 87.
 * @kind local
 * @differs{SetEnvironmentVariableA.TellsCaseApart} Setting "Path" leaves "PATH" as it is.
 * @differs{SetEnvironmentVariableA.RefusesEveryEqualsSign} Windows takes names that begin with "=".
 */
KEST_API BOOL SetEnvironmentVariableA(const char* name, const char* value);

/* ---- Folders ---------------------------------------------------------------------------------- */

/**
 * The folder of temporary files, as GetTempPathW asks the host for it.
 * @param size  room at buffer in bytes, terminator included.
 * @param buffer  receives the path, terminated, when it fits; else left as it is.
 * @return the length in bytes; with the terminator counted, the room needed when it does not fit; 0 on failure.
 * @lasterror 1113 for a path that the locale cannot encode, 8 without memory; else what the service does with it.
 * @null buffer: nothing fits.
 * @kind checked forward: IFileSystemService::GetTempPathW, 0 without hub or service
 */
KEST_API DWORD GetTempPathA(DWORD size, char* buffer);

/**
 * The folder that the system directory stands in: "/".
 * @param buffer  receives the path, terminated, when it fits; else left as it is.
 * @param size  room at buffer in characters, terminator included.
 * @return the length in characters; with the terminator counted, the room needed when it does not fit.
 * @lasterror left as it is.
 * @null buffer: nothing fits.
 * @kind local
 * @differs{GetWindowsDirectoryW.AnswersTheRoot} GetSystemDirectoryW's "/sys/" stands there. A program cannot write its
 *     own files to it, and should not.
 */
KEST_API UINT GetWindowsDirectoryW(wchar_t* buffer, UINT size);

/* ---- Files ------------------------------------------------------------------------------------ */

/**
 * Renames or moves a file or folder; never onto one that exists. A symbolic link is moved itself. A file also moves to
 * another file system, by copying its content, permissions and times and removing it; when that fails, nothing is left at
 * the new place.
 * @param from, to  paths, with "/" between names.
 * @return 1, or 0.
 * @lasterror 2 or 3 for a file or a folder on the way that does not exist, 5 where permissions do not allow it and for
 *     all but files between file systems, 19 on a write-protected file system, 32 for a folder into itself, 112 on a full
 *     one, 123 for a name that the locale cannot encode, 183 when the new name exists, 206 for one too long, 8 without
 *     memory, 31 for what else the system reports; left as it is on success.
 * @null from, to: answers 0, last error 87.
 * @kind local
 * @differs{MoveFileW.MovesOpenFiles} A file that is open moves, and stays open.
 */
KEST_API BOOL MoveFileW(const wchar_t* from, const wchar_t* to);

/**
 * Starts a search as FindFirstFileW does.
 * @param level  FindExInfoStandard, or FindExInfoBasic, which leaves the first find without a short name.
 * @param data  a WIN32_FIND_DATAW, which receives the first find.
 * @param operation  FindExSearchNameMatch; FindExSearchLimitToDirectories is advice that changes nothing.
 * @param filter  null.
 * @param flags  FIND_FIRST_EX_*.
 * @return the search, to be closed with FindClose; INVALID_HANDLE_VALUE when nothing is found or an argument is wrong.
 * @lasterror 87 for a wrong argument, 50 for FindExSearchLimitToDevices and for a filter, 120 without hub or service;
 *     else what the service does with it.
 * @null name, data: refused, last error 87.
 * @kind checked forward: IFileSystemService::FindFirstFileW, INVALID_HANDLE_VALUE without hub or service
 * @differs{FindFirstFileExW.LeavesCaseToTheService} FIND_FIRST_EX_CASE_SENSITIVE changes nothing.
 */
KEST_API HANDLE FindFirstFileExW(const wchar_t* name, FINDEX_INFO_LEVELS level, void* data, FINDEX_SEARCH_OPS operation,
                                 void* filter, DWORD flags);

/* ---- The system and the command line ---------------------------------------------------------- */

/**
 * Describes the machine: the processor's architecture, the size of its pages, the addresses that programs get, and its
 * processors, 64 at most.
 * @null info: nothing happens.
 * @lasterror left as it is.
 * @kind local
 * @differs{GetNativeSystemInfo.AllocatesByPages} dwAllocationGranularity is the size of a page.
 * @differs{GetNativeSystemInfo.TellsNoLevelOrRevision} wProcessorLevel and wProcessorRevision are 0.
 */
KEST_API void GetNativeSystemInfo(LPSYSTEM_INFO info);

/**
 * The process's command line, quoted so that CommandLineToArgvW finds the arguments again. Built on the first call, in
 * the locale of that moment; bytes that it cannot convert become U+FFFD.
 * @return the text, the same on every call; an empty one without memory, without a descriptor to read it with, or in a
 *     locale whose encoding is not known, and then the next call tries again.
 * @lasterror left as it is.
 * @kind local
 */
KEST_API wchar_t* GetCommandLineW(void);

KEST_C_END

#endif
