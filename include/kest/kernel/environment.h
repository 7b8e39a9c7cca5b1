/*
 * Kest Platform Base: the process's surroundings: environment variables, current directory, identity, the last-error
 * value, starting programs, the keyboard, random identifiers, the system, ends and diagnostics.
 *
 * Reading a variable and starting a program go through the shell: every command is a shell command line that has run
 * to its end before the call returns. ShellExecuteW stands in shell_paths.h.
 *
 * Wide arguments are converted to the process's multibyte encoding and cut after 4095 bytes; what the locale cannot
 * encode ends the text.
 */
#ifndef KEST_KERNEL_ENVIRONMENT_H
#define KEST_KERNEL_ENVIRONMENT_H

#include "kest/base_types.h"
#include "kest/export.h"

/* ---- Programs: what CreateProcessW takes ------------------------------------------------------ */

typedef struct _STARTUPINFOW
{
    DWORD cb;
    LPWSTR lpReserved;
    LPWSTR lpDesktop;
    LPWSTR lpTitle;
    DWORD dwX;
    DWORD dwY;
    DWORD dwXSize;
    DWORD dwYSize;
    DWORD dwXCountChars;
    DWORD dwYCountChars;
    DWORD dwFillAttribute;
    DWORD dwFlags;
    WORD wShowWindow;
    WORD cbReserved2;
    LPBYTE lpReserved2;
    HANDLE hStdInput;
    HANDLE hStdOutput;
    HANDLE hStdError;
} STARTUPINFOW, *LPSTARTUPINFOW;

typedef struct _PROCESS_INFORMATION
{
    HANDLE hProcess;
    HANDLE hThread;
    DWORD dwProcessId;
    DWORD dwThreadId;
} PROCESS_INFORMATION, *PPROCESS_INFORMATION, *LPPROCESS_INFORMATION;

typedef struct _OSVERSIONINFOW
{
    DWORD dwOSVersionInfoSize;
    DWORD dwMajorVersion;
    DWORD dwMinorVersion;
    DWORD dwBuildNumber;
    DWORD dwPlatformId;
    WCHAR szCSDVersion[128];
} OSVERSIONINFOW, *POSVERSIONINFOW, *LPOSVERSIONINFOW;

/* Passed to GetVersionExW in place of the shorter structure. */
typedef struct _OSVERSIONINFOEXW
{
    DWORD dwOSVersionInfoSize;
    DWORD dwMajorVersion;
    DWORD dwMinorVersion;
    DWORD dwBuildNumber;
    DWORD dwPlatformId;
    WCHAR szCSDVersion[128];
    WORD wServicePackMajor;
    WORD wServicePackMinor;
    WORD wSuiteMask;
    BYTE wProductType;
    BYTE wReserved;
} OSVERSIONINFOEXW, *POSVERSIONINFOEXW, *LPOSVERSIONINFOEXW;

/* dwPlatformId and wProductType */
#define VER_PLATFORM_WIN32s 0
#define VER_PLATFORM_WIN32_WINDOWS 1
#define VER_PLATFORM_WIN32_NT 2
#define VER_NT_WORKSTATION 1
#define VER_NT_DOMAIN_CONTROLLER 2
#define VER_NT_SERVER 3

__extension__ typedef struct _SYSTEM_INFO
{
    union
    {
        DWORD dwOemId;
        struct
        {
            WORD wProcessorArchitecture;
            WORD wReserved;
        };
    };
    DWORD dwPageSize;
    LPVOID lpMinimumApplicationAddress;
    LPVOID lpMaximumApplicationAddress;
    DWORD_PTR dwActiveProcessorMask;
    DWORD dwNumberOfProcessors;
    DWORD dwProcessorType;
    DWORD dwAllocationGranularity;
    WORD wProcessorLevel;
    WORD wProcessorRevision;
} SYSTEM_INFO, *LPSYSTEM_INFO;

/* wProcessorArchitecture */
#define PROCESSOR_ARCHITECTURE_INTEL 0
#define PROCESSOR_ARCHITECTURE_ARM 5
#define PROCESSOR_ARCHITECTURE_AMD64 9
#define PROCESSOR_ARCHITECTURE_ARM64 12
#define PROCESSOR_ARCHITECTURE_UNKNOWN 0xFFFF

/* Flags and limits of RaiseException */
#define EXCEPTION_NONCONTINUABLE 0x01
#define EXCEPTION_MAXIMUM_PARAMETERS 15

KEST_C_BEGIN

/* ---- Environment variables -------------------------------------------------------------------- */

/**
 * Reads a variable by the first line that the shell prints for "echo $name".
 * @param name  the variable's name. It is not quoted: the shell reads what stands there.
 * @param out   receives the line with its newline and a terminator, 4096 characters at most: up to 4094 characters
 *              and the newline, or the first 4095 characters of a longer line. A line that the locale cannot convert
 *              ends after what it can. Empty when the shell printed nothing.
 * @param size  ignored.
 * @return 1; 0 with out untouched when the shell could not be started.
 * @lasterror whatever starting the shell left.
 * @null neither name nor out may be null.
 * @kind local
 * @differs{GetEnvironmentVariableW.KeepsTheNewlineOfTheShellsAnswer} A variable of value abc reads as abc and a
 *     newline.
 * @differs{GetEnvironmentVariableW.AnswersOneInsteadOfTheLength} The result does not count characters.
 * @differs{GetEnvironmentVariableW.WritesPastTheGivenSize} out must have room for 4096 characters.
 * @differs{GetEnvironmentVariableW.FindsAnUnsetVariableAsEmptyLine} A variable that does not exist reads as a newline
 *     and counts as success.
 * @differs{GetEnvironmentVariableW.LetsTheShellReadNameAndValue} Shell syntax in the name is carried out; blanks and
 *     patterns in the value are treated as in any unquoted word of the shell.
 */
KEST_API DWORD GetEnvironmentVariableW(const wchar_t* name, wchar_t* out, DWORD size);

/**
 * Has a shell of its own set a variable, by the command export name="value". The shell ends with the command.
 * @param name   the variable's name.
 * @param value  the value; the shell carries out what it finds between double quotes.
 * @return 1 always.
 * @lasterror whatever starting the shell left.
 * @null name: must not be null; value: an empty value.
 * @kind local
 * @differs{SetEnvironmentVariableW.LeavesTheEnvironmentAsItIs} Neither the caller nor a program that it starts later
 *     sees the value; use setenv for that.
 * @differs{SetEnvironmentVariableW.LetsTheShellReadTheValue} Substitutions in the value are carried out.
 */
KEST_API BOOL SetEnvironmentVariableW(const wchar_t* name, const wchar_t* value);

/**
 * Expands the variables in a text by the host's system service, whose syntax it is.
 * @param src   the text.
 * @param out   receives the expanded text and its terminator if size is larger than its length; else left as it is.
 * @param size  of out, in characters.
 * @return the length of the expanded text, in characters, without the terminator; 0 without memory for it, also when
 * the service lets std::bad_alloc out.
 * @lasterror left as it is.
 * @null src: answers 0; out: the length is answered all the same.
 * @kind local
 * @differs{ExpandEnvironmentStringsW.ExpandsNothingWithoutService} Without hub or service the text stays as given.
 * @differs{ExpandEnvironmentStringsW.DoesNotCountTheTerminator} The result is one less than Windows answers.
 */
KEST_API DWORD ExpandEnvironmentStringsW(const wchar_t* src, wchar_t* out, DWORD size);

/* ---- Directories ------------------------------------------------------------------------------ */

/**
 * Fetches the current directory.
 * @param size  of out, in characters.
 * @param out   receives the path; it has a terminator only if the path is shorter than size.
 * @return the characters written, without the terminator; with size 0 and out null the path's length in bytes of the
 *         multibyte encoding plus 1; 0 when there is no current directory; 0xFFFFFFFF, with as much written as could
 *         be converted, for a path that the locale cannot convert.
 * @lasterror set when there is no current directory or it cannot be converted.
 * @null out: with another size than 0, answers the path's length in characters.
 * @kind local
 * @differs{GetCurrentDirectoryW.AsksForBytesNotCharacters} The size asked for by size 0 counts bytes.
 * @differs{GetCurrentDirectoryW.CutsAPathThatDoesNotFit} A path of size or more characters fills out, without a
 *     terminator, and size is answered.
 */
KEST_API DWORD GetCurrentDirectoryW(DWORD size, wchar_t* out);

/**
 * Changes the current directory.
 * @param path  the directory, with "/" between names.
 * @return 1, or 0 when there is no such directory or the locale cannot encode its name.
 * @lasterror set on failure.
 * @null path: must not be null.
 * @kind local
 * @differs{SetCurrentDirectoryW.TakesBackslashesAsOrdinaryCharacters} A backslash separates nothing.
 */
KEST_API BOOL SetCurrentDirectoryW(const wchar_t* path);

/* ---- Identity --------------------------------------------------------------------------------- */

/**
 * Fetches the login name of the process's real user.
 * @param out   receives the name, without a terminator; a name that has more bytes than characters gets one.
 * @param size  receives the number of characters written, without a terminator; 0xFFFFFFFF for a name that the locale
 *              cannot convert, of which out receives what comes before. What it held is not read.
 * @return 1; 0 with nothing written when the user is unknown to the system.
 * @lasterror whatever looking the user up left.
 * @null neither out nor size may be null.
 * @kind local
 * @differs{GetUserNameW.WritesNoTerminator} out ends with the last character of a name in ASCII, and *size does not
 *     count a terminator.
 * @differs{GetUserNameW.IgnoresTheGivenSize} out must have room for the whole name.
 */
KEST_API BOOL GetUserNameW(wchar_t* out, DWORD* size);

/**
 * Fetches the host's name.
 * @param out   receives the name and a terminator, 256 characters at most; of a name that cannot be told or converted
 *              what comes before, if anything.
 * @param size  neither read nor written.
 * @return 1 always.
 * @lasterror left as it is.
 * @null out: must not be null; size: may be.
 * @kind local
 * @differs{GetComputerNameW.IgnoresTheGivenSize} out must have room for the whole name.
 * @differs{GetComputerNameW.LeavesTheSizeUnwritten} *size does not receive the length.
 */
KEST_API BOOL GetComputerNameW(wchar_t* out, DWORD* size);

/** Returns the kernel's number of the calling thread. Last error left as it is. @kind local */
KEST_API DWORD GetCurrentThreadId(void);

/** Always 0. @kind fixed result */
KEST_API DWORD GetCurrentProcessId(void);

/** Always 0; *sessionId stays unwritten. @kind fixed result */
KEST_API BOOL ProcessIdToSessionId(DWORD processId, DWORD* sessionId);

/* ---- Last error ------------------------------------------------------------------------------- */

/**
 * Returns the calling thread's last error: the C library's errno, with three values translated: 2 (no such file) to
 * 126 (module not found), 8 (exec format error) and 9 (bad descriptor) to 193 (bad executable).
 * @lasterror left as it is.
 * @kind local
 * @differs{GetLastError.ReportsErrnoValues} All other values are errno's own and not Windows error codes.
 * @differs{GetLastError.TranslatesWhatSetLastErrorStored} A stored 2, 8 or 9 comes back as 126 or 193.
 */
KEST_API DWORD GetLastError(void);

/**
 * Stores a code, as it is, into the calling thread's errno.
 * @kind local
 */
KEST_API void SetLastError(DWORD code);

/* ---- Programs --------------------------------------------------------------------------------- */

/**
 * Runs a shell command line made of the application, a space and the command line, and waits until it ends.
 * @param application       the program, as the shell is to read it.
 * @param commandLine       more of the command; not written to.
 * @param currentDirectory  ignored.
 * @return 1; 0, and nothing run, when the command is empty: no application, and no command line or an empty one.
 * @lasterror whatever starting the shell left.
 * @null every pointer may be null: application and commandLine are then not given. All other arguments are ignored.
 * @kind local
 * @differs{CreateProcessW.WaitsUntilTheCommandEnds} The program has ended when the call returns.
 * @differs{CreateProcessW.RunsAShellCommandLine} The application is not quoted and not left out when the command line
 *     names it again.
 * @differs{CreateProcessW.RunsInTheCallersDirectory} currentDirectory has no effect.
 * @differs{CreateProcessW.LeavesTheProcessInformationUnwritten} There are no process or thread handles.
 * @differs{CreateProcessW.ReportsSuccessForWhateverWasTried} A command that cannot be started or fails counts as
 *     success.
 */
KEST_API BOOL CreateProcessW(const wchar_t* application, const wchar_t* commandLine,
                             SECURITY_ATTRIBUTES* processAttributes, SECURITY_ATTRIBUTES* threadAttributes,
                             BOOL inheritHandles, DWORD creationFlags, void* environment,
                             const wchar_t* currentDirectory, STARTUPINFOW* startupInfo,
                             PROCESS_INFORMATION* processInformation);

/* ---- Versions, system and sound --------------------------------------------------------------- */

/** Always 0: there is no Windows version. The structure stays as it was. @kind fixed result */
KEST_API DWORD GetVersion(void);
KEST_API BOOL GetVersionExW(LPOSVERSIONINFOW lpVersionInformation);

/** Does nothing: the structure stays as it was, so clear it before. @kind fixed result */
KEST_API void GetSystemInfo(LPSYSTEM_INFO lpSystemInfo);

/** Always 1, with Wow64Process left as it was. @kind fixed result */
KEST_API BOOL IsWow64Process(HANDLE hProcess, BOOL* Wow64Process);

/** Always 0: no sound is made. @kind fixed result */
KEST_API BOOL Beep(DWORD dwFreq, DWORD dwDuration);

/* ---- Ends, exceptions and debugging ----------------------------------------------------------- */

/** Does nothing: returns to the caller, and the process goes on. Call exit to end it. @kind fixed result */
KEST_API void ExitProcess(UINT uExitCode);

/** Does nothing: returns to the caller, nothing is raised. @kind fixed result */
KEST_API void RaiseException(DWORD dwExceptionCode, DWORD dwExceptionFlags, DWORD nNumberOfArguments,
                             const ULONG_PTR* lpArguments);

/** Does nothing: no debugger hears of it. @kind fixed result */
KEST_API void OutputDebugStringW(const wchar_t* lpOutputString);
KEST_API void DebugBreak(void);

KEST_C_END

#ifdef __cplusplus

/* ---- The library's own helpers ---------------------------------------------------------------- */

/**
 * Tells whether a character waits on standard input, without waiting for one. A terminal is switched to single
 * characters without echo for the duration of the call; its attributes and the descriptor's flags are put back. The
 * character stays readable. The end of the input does not count as a character. Not safe against another thread that
 * reads standard input at the same time.
 * @return 1 when a character waits, else 0.
 * @lasterror may change.
 * @kind local
 */
KEST_API int kbhit();

/**
 * Writes a random identifier of 36 characters and a terminator: lower-case hexadecimal digits in groups of 8, 4, 4, 4
 * and 12, with version digit 4. The randomness is the C library's rand, which the library never seeds: without srand
 * the identifiers repeat from run to run. The pair ff never occurs.
 * @param buffer  receives the identifier.
 * @param size    of buffer, in bytes.
 * @return buffer; null with nothing written when size is below 37.
 * @lasterror left as it is.
 * @null buffer: answers null.
 * @kind local
 */
KEST_API char* random_uuid(char* buffer, unsigned int size);

#endif

#endif
