/*
 * Kest Platform Base: modules.
 *
 * Windows names find shared objects: LoadLibraryW(L"Tools.dll") loads libTools.so through the dynamic loader,
 * calls its exported DllMain and counts how often it was loaded; FreeLibrary undoes it. A module's handle is the
 * loader's own. Null and 1 stand for the main program in GetModuleFileNameW, and for the loader's global scope (the
 * program and what it is linked against, not the modules loaded here) in GetProcAddress.
 *
 * DllMain is `BOOL DllMain(HMODULE module, DWORD reason, LPVOID reserved)` under its plain name. It is called with
 * reason DLL_PROCESS_ATTACH after the first load and DLL_PROCESS_DETACH before unloading, reserved null; it may
 * load and free modules itself. An entry point is looked up as every symbol is, in the module and then in what it
 * is linked against.
 *
 * Without memory for a name, LoadLibraryW, LoadLibraryExW, LoadLibraryA, GetModuleHandleW, GetModuleHandleExW,
 * SetDllDirectoryW and ToPlatformModuleName let std::bad_alloc out, C linkage or not. Nothing has been loaded, counted
 * or changed then, except that LoadLibraryA has shortened its argument. When it is the loader that finds no memory, a
 * load fails.
 *
 * The tables are unguarded: the caller serialises loading and freeing. At process exit they are destroyed; no
 * DllMain is called and nothing is unloaded then.
 */
#ifndef KEST_KERNEL_MODULES_H
#define KEST_KERNEL_MODULES_H

#include "kest/base_types.h"
#include "kest/export.h"

/* Flags of LoadLibraryExW and GetModuleHandleExW, which ignore them. */
#define DONT_RESOLVE_DLL_REFERENCES 0x00000001
#define LOAD_LIBRARY_AS_DATAFILE 0x00000002
#define LOAD_WITH_ALTERED_SEARCH_PATH 0x00000008
#define LOAD_IGNORE_CODE_AUTHZ_LEVEL 0x00000010
#define LOAD_LIBRARY_AS_IMAGE_RESOURCE 0x00000020
#define LOAD_LIBRARY_AS_DATAFILE_EXCLUSIVE 0x00000040
#define LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR 0x00000100
#define LOAD_LIBRARY_SEARCH_APPLICATION_DIR 0x00000200
#define LOAD_LIBRARY_SEARCH_USER_DIRS 0x00000400
#define LOAD_LIBRARY_SEARCH_SYSTEM32 0x00000800
#define LOAD_LIBRARY_SEARCH_DEFAULT_DIRS 0x00001000
#define GET_MODULE_HANDLE_EX_FLAG_PIN 0x00000001
#define GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT 0x00000002
#define GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS 0x00000004

KEST_C_BEGIN

/**
 * Loads a module by its Windows name, or counts one more reference to it. The name is translated by
 * ToPlatformModuleName. A module already loaded under the same file name is taken, whatever its directory, without
 * asking the loader. Otherwise the loader is asked for the translated name (lazy and deep binding), then for
 * the DLL directory, "/" and the whole translated name, its own directory included; without a DLL directory the
 * second attempt is thus "/" and the name. On the first load the module's DllMain is called with reason
 * DLL_PROCESS_ATTACH. Each call asks for the character-type locale "UTF-8" for the whole process.
 * @param name  the name as Windows code spells it ("Tools.dll", with or without directory), in characters; not kept.
 * @return the module's handle; null when it cannot be loaded or the locale cannot encode its name. Every success
 * needs one FreeLibrary.
 * @lasterror left as it is, except for what DllMain does with it.
 * @null name: stands for the main program, as an empty name does.
 * @kind local
 * @differs{LoadLibraryW.TranslatesTheName} The file that is loaded has the shared object's name.
 * @differs{LoadLibraryW.KeepsModuleWhoseDllMainRefuses} A module whose DllMain answers 0 stays loaded.
 * @differs{LoadLibraryW.TellsModulesApartByFileNameAlone} A module of the same file name in another directory is
 * taken for the loaded one.
 * @differs{LoadLibraryW.TriesDllDirectoryLast} The DLL directory is searched after the loader's own search, and for
 * names with a directory too.
 * @differs{LoadLibraryW.TriesTheRootWithoutDllDirectory} Without a DLL directory a name that is not found is looked
 * for under "/".
 * @differs{LoadLibraryW.TakesEmptyNameForTheMainProgram} An empty name is the main program's.
 * @differs{LoadLibraryW.AsksForCharacterTypeLocale} The process's character-type locale is set.
 * @differs{LoadLibraryW.LeavesLastErrorAlone} A failure is reported by the result alone.
 * @differs{LoadLibraryW.CallsNoDllMainOfDependencies} Modules that the module is linked against see no DllMain call,
 * unless the module has none of its own: then the first that has one is called with the module's handle.
 * @differs{LoadLibraryW.CallsNoDllMainForThreads} DllMain does not hear of threads.
 * @differs{LoadLibraryW.CallsNoDllMainAtProcessExit} DllMain does not hear of the process's end.
 */
KEST_API HMODULE LoadLibraryW(const wchar_t* name);

/**
 * Loads a module as LoadLibraryW does.
 * @param name   the name as Windows code spells it, in characters; not kept.
 * @param hFile  ignored.
 * @param flags  ignored.
 * @return what LoadLibraryW returns.
 * @lasterror as LoadLibraryW.
 * @null name: as LoadLibraryW.
 * @kind local
 * @differs{LoadLibraryExW.IgnoresFlags} Every load is a full one.
 */
KEST_API HMODULE LoadLibraryExW(const wchar_t* name, HANDLE hFile, DWORD flags);

/**
 * Loads a module by its narrow name, or counts one more reference to it. The file loaded is directory + "lib" + file
 * name + ".so", after a ".dll" at the end is cut off; a name that ends in ".qlx" is loaded as it is. Both extensions
 * are known in any case of letters; any other stays in front of ".so" (foo.so loads libfoo.so.so), and "lib" is put
 * even before "lib" (libz.dll loads liblibz.so). No DllMain is called, no DLL directory searched, no deep binding used.
 * @param name  the name in the process's multibyte encoding, shorter than 512 bytes: a longer one ends the process.
 * Not kept. When it ends in ".dll" the dot is overwritten by a terminator: the text must be writable then.
 * @return the module's handle, or null when it cannot be loaded. Every success needs one FreeLibrary.
 * @lasterror left as it is.
 * @null name: must not be null.
 * @kind local
 * @differs{LoadLibraryA.CutsTheExtensionOffTheCallersText} ".dll" disappears from the caller's own string.
 * @differs{LoadLibraryA.PutsPrefixAndSuffixAroundEveryName} Only ".dll" and ".qlx" are recognised.
 * @differs{LoadLibraryA.LoadsPlugInUnderItsOwnName} ".qlx" files carry no prefix and no ".so".
 * @differs{LoadLibraryA.CountsApartFromLoadLibraryW} A module's table entry bears its path here and its file name
 * there: a module loaded through both has two entries.
 * @differs{LoadLibraryA.CallsNoDllMain} DllMain does not hear of the load, though FreeLibrary calls it.
 * @differs{LoadLibraryA.SearchesNoDllDirectory} Only the loader's own search is made.
 * @differs{LoadLibraryA.EndsTheProcessOnLongNames} A name of 512 bytes or more ends the process.
 * @differs{LoadLibraryA.LeavesLastErrorAlone} A failure is reported by the result alone.
 */
KEST_API HMODULE LoadLibraryA(const char* name);

/**
 * Gives back a reference to a module. While others remain that is all. The last one removes the module from the
 * table, calls its DllMain with reason DLL_PROCESS_DETACH and closes it. A module loaded under several names gives
 * back the reference of the bytewise first of them. A handle that is in no table (opened by the loader directly, say)
 * gets its DllMain call and is closed as well; it must be a handle that the loader knows.
 * @param module  the handle.
 * @return 1 while references remain; otherwise what dlclose answers, 0 for success.
 * @lasterror left as it is, except for what DllMain does with it.
 * @null module: answers -1 and does nothing, as for the value 1.
 * @kind local
 * @differs{FreeLibrary.AnswersZeroForTheLastReference} Success of the last release is 0.
 * @differs{FreeLibrary.AnswersMinusOneForTheMainProgram} The handles null and 1 give -1.
 * @differs{FreeLibrary.DetachesModulesItDidNotLoad} DllMain is called for a handle that is in no table.
 * @differs{FreeLibrary.DetachesOnceAnEntry} A module loaded through both LoadLibraryW and LoadLibraryA hears of its
 * detachment twice.
 */
KEST_API BOOL FreeLibrary(HMODULE module);

/**
 * Looks up a symbol in a module, then in what the module is linked against.
 * @param module  the module's handle; 1 or null: the loader's default search, over its global scope.
 * @param name    the symbol, terminated; a value below 65536 is an ordinal and never found.
 * @return the symbol's address, or null when there is none.
 * @lasterror left as it is.
 * @null name: counts as an ordinal, null.
 * @kind local
 * @differs{GetProcAddress.FindsNoOrdinals} Shared objects number no symbols.
 * @differs{GetProcAddress.TakesOneForTheWholeProcess} The handle 1 searches the global scope; null does too.
 * @differs{GetProcAddress.SearchesDependencies} A symbol that the module is linked against counts as its own.
 * @differs{GetProcAddress.LeavesLastErrorAlone} A failure is reported by the result alone.
 */
KEST_API FARPROC GetProcAddress(HMODULE module, LPCSTR name);

/**
 * Finds a module that LoadLibraryW has loaded. The name is translated as there, and its directory is left out of
 * account. No reference is counted and the loader is not asked. Each call with a name asks for the character-type
 * locale "UTF-8" for the whole process.
 * @param name  the name as Windows code spells it, in characters; not kept.
 * @return the module's handle, or null when no module of that file name is in the table or the locale cannot encode it.
 * @lasterror left as it is.
 * @null name: answers null, as for an empty name.
 * @kind local
 * @differs{GetModuleHandleW.AnswersNullForTheMainProgram} A null name gives null; the functions here take that for
 * the main program.
 * @differs{GetModuleHandleW.KnowsOnlyWhatLoadLibraryWLoaded} Modules that were linked, loaded by LoadLibraryA or by
 * the loader directly are not found.
 * @differs{GetModuleHandleW.IgnoresTheDirectory} Only the file name counts.
 * @differs{GetModuleHandleW.AsksForCharacterTypeLocale} The process's character-type locale is set.
 * @differs{GetModuleHandleW.LeavesLastErrorAlone} A failure is reported by the result alone.
 */
KEST_API HMODULE GetModuleHandleW(const wchar_t* name);

/**
 * Calls GetModuleHandleW for its effect on the locale and reports success.
 * @param flags  ignored.
 * @param name   handed to GetModuleHandleW.
 * @param out    never written.
 * @return always 1.
 * @lasterror left as it is.
 * @null name: allowed. out: allowed.
 * @kind local
 * @differs{GetModuleHandleExW.AlwaysSucceedsAndWritesNothing} The handle is not handed out.
 */
KEST_API BOOL GetModuleHandleExW(DWORD flags, const wchar_t* name, HMODULE* out);

/**
 * Stores a module's file name, as the loader reports it: the path under which it was loaded. It is found through the
 * module's DllMain. The main program's is read from /proc/self/exe. A name that the locale cannot decode is cut in
 * front of the byte in question.
 * @param module  the module's handle; null or 1: the main program.
 * @param buffer  receives the name; buffer[0] is set to zero first, whatever nSize says, so there must be room for one
 * character. A name of nSize or more characters is cut and has no terminator.
 * @param nSize   the buffer's size in characters.
 * @return the number of characters stored, without the terminator: nSize when the name fills the buffer; 0 with an
 * empty buffer when the name cannot be found.
 * @lasterror left as it is.
 * @null buffer: must not be null.
 * @kind local
 * @differs{GetModuleFileNameW.NeedsDllMain} A module without DllMain has no name, one that is linked against a module
 * with DllMain that module's.
 * @differs{GetModuleFileNameW.StoresNoTerminatorInAFullBuffer} A name that is cut or just fits has no terminator.
 * @differs{GetModuleFileNameW.ClearsTheFirstCharacterOfEveryBuffer} A size of 0 does not keep buffer[0] from being
 * cleared.
 * @differs{GetModuleFileNameW.LeavesLastErrorAlone} A failure or a cut name is reported by the result alone.
 */
KEST_API DWORD GetModuleFileNameW(HMODULE module, wchar_t* buffer, DWORD nSize);

/**
 * Sets the directory that LoadLibraryW searches last. Nothing about it is checked.
 * @param path  the directory, in characters; copied. It may point into g_strDllPath.
 * @return always 1.
 * @lasterror left as it is.
 * @null path: no directory, as for an empty path.
 * @kind local
 * @differs{SetDllDirectoryW.ChecksNothing} Every text is accepted.
 */
KEST_API BOOL SetDllDirectoryW(const wchar_t* path);

/**
 * Copies a path; nothing is looked up and no name expanded.
 * @param shortPath  the path, in characters; it may overlap longPath.
 * @param longPath   receives the path and its terminator.
 * @param cchBuffer  the size of longPath in characters. A path of exactly this length is copied as well: its
 * terminator needs one character more.
 * @return the length copied, without the terminator; 0, with nothing written, when cchBuffer is less than the length.
 * @lasterror left as it is.
 * @null neither may be null.
 * @kind local
 * @differs{GetLongPathNameW.ExpandsNothing} A path that does not exist is copied like any other.
 * @differs{GetLongPathNameW.AnswersZeroForASmallBuffer} The size needed is not told.
 * @differs{GetLongPathNameW.LeavesTheTerminatorOutOfTheSize} A size equal to the length is accepted.
 */
KEST_API DWORD GetLongPathNameW(const wchar_t* shortPath, wchar_t* longPath, DWORD cchBuffer);

/** Always 0: threads are never reported to modules. @kind fixed result */
KEST_API BOOL DisableThreadLibraryCalls(HMODULE hLibModule);

KEST_C_END

#ifdef __cplusplus

#include "kest/wide_string.h"

#include <map>
#include <string>

/**
 * Turns a module's Windows name into the name of the shared object: the directory is kept, "lib" is put in
 * front of the file name unless that begins with "lib" and goes on, and ".dll" or no extension becomes ".so".
 *
 *     foo.dll -> libfoo.so     libfoo.dll -> libfoo.so     /opt/app/foo -> /opt/app/libfoo.so
 *     lib.dll -> liblib.so     foo.qlx    -> libfoo.qlx    libfoo.so.1  -> libfoo.so.1
 *
 * Only "/" ends a directory; a backslash is an ordinary character. ".dll" and "lib" are recognised in any case
 * of their ASCII letters; nothing else is looked at, and no case is changed. Every string that the translation
 * builds, the result last, is reported to the string-object registry.
 * @param name  the name as Windows code spells it, in characters; not kept.
 * @return the new name, by value.
 * @lasterror left as it is.
 * @null name: answers an empty string, as for an empty name.
 * @kind local
 */
KEST_API CStdStr<wchar_t> ToPlatformModuleName(const wchar_t* name);

/** An entry of the table of loaded modules. */
struct ModuleInfo
{
    unsigned int count; /**< references: loads under the entry's key that no FreeLibrary has given back */
    HMODULE handle;     /**< the loader's handle */
};

extern "C"
{
    /**
     * The loaded modules. LoadLibraryW enters a module under the file name of its translated name, LoadLibraryA under
     * the whole path given to the loader, both in the process's multibyte encoding. Empty when the library is loaded,
     * destroyed at process exit.
     */
    extern KEST_API std::map<std::string, ModuleInfo> g_loadedModuleMap;

    /** The directory set by SetDllDirectoryW. Empty when the library is loaded, destroyed at process exit. */
    extern KEST_API CStdStr<wchar_t> g_strDllPath;
}

#endif

#endif
