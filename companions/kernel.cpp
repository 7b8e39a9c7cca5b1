#include "kest/companions/kernel.h"

#include "failure.h"
#include "kest/companions/encodings.h"
#include "kest/kernel/directories.h"
#include "kest/kernel/files.h"
#include "kest/kernel/modules.h"
#include "narrow_text.h"
#include "services.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <exception>
#include <fstream>
#include <iterator>
#include <new>
#include <string>
#include <string_view>
#include <unistd.h>

using namespace kest::companions;

namespace
{

// Stores a text and its terminator when both fit, and answers its length; else the room that it needs.
template <class CharT>
unsigned int handOut(std::basic_string_view<CharT> text, CharT* buffer, unsigned int size)
{
    if (buffer == nullptr || size <= text.size())
        return static_cast<unsigned int>(text.size() + 1);
    text.copy(buffer, text.size());
    buffer[text.size()] = CharT();
    return static_cast<unsigned int>(text.size());
}

} // namespace

// ---- Modules -------------------------------------------------------------------------------------------------------

DWORD GetModuleFileNameA(HMODULE module, char* buffer, DWORD size)
{
    return reportingNoMemory(
        DWORD{0},
        [=]() -> DWORD
        {
            std::wstring name(MAX_PATH, L'\0');
            DWORD length = 0;
            while ((length = GetModuleFileNameW(module, name.data(), static_cast<DWORD>(name.size()))) == name.size())
                name.resize(2 * name.size());
            if (length == 0)
                return failWith(ERROR_MOD_NOT_FOUND, 0U);
            const auto bytes = narrowed(name.c_str());
            if (!bytes)
                return failWith(ERROR_NO_UNICODE_TRANSLATION, 0U);
            if (size > bytes->size())
                return handOut<char>(*bytes, buffer, size);
            if (size != 0)
                handOut(std::string_view(*bytes).substr(0, size - 1), buffer, size);
            return failWith(ERROR_INSUFFICIENT_BUFFER, size);
        });
}

namespace
{

// What the wide function answers for the name; null, with the last error set, where it knows no such module.
template <class Function>
HMODULE moduleOf(const char* name, Function wideFunction)
{
    return reportingNoMemory(HMODULE{},
                             [&]
                             {
                                 const auto wideName = widened(name);
                                 if (!wideName)
                                     return failWith(ERROR_NO_UNICODE_TRANSLATION, HMODULE{});
                                 const HMODULE module = wideFunction(wideName->c_str());
                                 return module == nullptr ? failWith(ERROR_MOD_NOT_FOUND, module) : module;
                             });
}

} // namespace

HMODULE GetModuleHandleA(const char* name)
{
    return name == nullptr ? nullptr : moduleOf(name, GetModuleHandleW);
}

HMODULE LoadLibraryExA(const char* name, HANDLE file, DWORD flags)
{
    if (name == nullptr || *name == '\0')
        return failWith(ERROR_INVALID_PARAMETER, HMODULE{});
    return moduleOf(name, [=](const wchar_t* wideName) { return LoadLibraryExW(wideName, file, flags); });
}

// ---- Environment ---------------------------------------------------------------------------------------------------

namespace
{

bool namesAVariable(const char* name)
{
    return name != nullptr && *name != '\0' && std::strchr(name, '=') == nullptr;
}

} // namespace

DWORD GetEnvironmentVariableA(const char* name, char* buffer, DWORD size)
{
    const char* const value = namesAVariable(name) ? std::getenv(name) : nullptr;
    if (value == nullptr)
        return failWith(ERROR_ENVVAR_NOT_FOUND, 0U);
    const DWORD length = handOut<char>(value, buffer, size);
    return length == 0 ? failWith(0, length) : length;
}

BOOL SetEnvironmentVariableA(const char* name, const char* value)
{
    if (!namesAVariable(name))
        return failWith(ERROR_INVALID_PARAMETER, FALSE);
    if (value != nullptr)
        return setenv(name, value, 1) == 0 ? TRUE : failWith(ERROR_NOT_ENOUGH_MEMORY, FALSE);
    if (std::getenv(name) == nullptr)
        return failWith(ERROR_ENVVAR_NOT_FOUND, FALSE);
    unsetenv(name);
    return TRUE;
}

// ---- Folders -------------------------------------------------------------------------------------------------------

DWORD GetTempPathA(DWORD size, char* buffer)
{
    return reportingNoMemory(
        DWORD{0},
        [=]() -> DWORD
        {
            std::wstring path(MAX_PATH + 1, L'\0');
            DWORD length = 0;
            while ((length = GetTempPathW(static_cast<DWORD>(path.size()), path.data())) >= path.size())
                path.resize(length + 1);
            if (length == 0)
                return 0;
            path[length] = L'\0';
            const auto bytes = narrowed(path.c_str());
            return bytes ? handOut<char>(*bytes, buffer, size) : failWith(ERROR_NO_UNICODE_TRANSLATION, 0U);
        });
}

UINT GetWindowsDirectoryW(wchar_t* buffer, UINT size)
{
    return handOut<wchar_t>(L"/", buffer, size);
}

// ---- Files ---------------------------------------------------------------------------------------------------------

HANDLE FindFirstFileExW(const wchar_t* name, FINDEX_INFO_LEVELS level, void* data, FINDEX_SEARCH_OPS operation,
                        void* filter, DWORD flags)
{
    constexpr DWORD knownFlags =
        FIND_FIRST_EX_CASE_SENSITIVE | FIND_FIRST_EX_LARGE_FETCH | FIND_FIRST_EX_ON_DISK_ENTRIES_ONLY;
    if (name == nullptr || data == nullptr || (level != FindExInfoStandard && level != FindExInfoBasic) ||
        operation >= FindExSearchMaxSearchOp || (flags & ~knownFlags) != 0)
        return failWith(ERROR_INVALID_PARAMETER, INVALID_HANDLE_VALUE);
    if (operation == FindExSearchLimitToDevices || filter != nullptr)
        return failWith(ERROR_NOT_SUPPORTED, INVALID_HANDLE_VALUE);
    if (!hasFileSystemService())
        return failWith(ERROR_CALL_NOT_IMPLEMENTED, INVALID_HANDLE_VALUE);
    auto* const find = static_cast<WIN32_FIND_DATAW*>(data);
    const HANDLE search = FindFirstFileW(name, find);
    if (search != INVALID_HANDLE_VALUE && level == FindExInfoBasic)
        find->cAlternateFileName[0] = L'\0';
    return search;
}

// ---- The system and the command line -------------------------------------------------------------------------------

void GetNativeSystemInfo(LPSYSTEM_INFO info)
{
    if (info == nullptr)
        return;
    constexpr long countable = CHAR_BIT * sizeof(DWORD_PTR);
    const int lastError = errno;
    const auto pageSize = static_cast<DWORD>(sysconf(_SC_PAGESIZE));
    const long processors = std::clamp(sysconf(_SC_NPROCESSORS_ONLN), 1L, countable);
    errno = lastError;

    *info = {};
#if defined(__x86_64__)
    constexpr int addressBits = 47;
    info->wProcessorArchitecture = PROCESSOR_ARCHITECTURE_AMD64;
    info->dwProcessorType = PROCESSOR_AMD_X8664;
#else
    constexpr int addressBits = 48;
    info->wProcessorArchitecture = PROCESSOR_ARCHITECTURE_ARM64;
#endif
    info->dwPageSize = pageSize;
    info->lpMinimumApplicationAddress = reinterpret_cast<void*>(DWORD_PTR{0x10000});
    info->lpMaximumApplicationAddress = reinterpret_cast<void*>((DWORD_PTR{1} << addressBits) - pageSize - 1);
    info->dwActiveProcessorMask = ~DWORD_PTR{0} >> (countable - processors);
    info->dwNumberOfProcessors = static_cast<DWORD>(processors);
    info->dwAllocationGranularity = pageSize;
}

namespace
{

std::wstring textOf(std::string_view bytes)
{
    const auto size = static_cast<int>(bytes.size());
    std::wstring text(bytes.size(), L'\0'); // no byte becomes more than a character
    const int length = size == 0 ? 0 : MultiByteToWideChar(0, 0, bytes.data(), size, text.data(), size);
    if (length == 0 && size != 0)
        throw std::bad_alloc();
    text.resize(static_cast<std::size_t>(length));
    return text;
}

// The program's name is read up to a quote or a blank: in it nothing can be masked.
void appendProgram(std::wstring& line, const std::wstring& name)
{
    const bool plain = !name.empty() && name.find_first_of(L" \t") == std::wstring::npos;
    line += plain ? name : L'"' + name + L'"';
}

// In other arguments a quote is masked by a backslash, and so are the backslashes in front of one.
void appendArgument(std::wstring& line, const std::wstring& argument)
{
    line += L' ';
    if (!argument.empty() && argument.find_first_of(L" \t\n\v\"") == std::wstring::npos)
    {
        line += argument;
        return;
    }
    line += L'"';
    std::size_t backslashes = 0;
    for (const wchar_t character : argument)
    {
        if (character == L'"')
            line.append(backslashes + 1, L'\\');
        backslashes = character == L'\\' ? backslashes + 1 : 0;
        line += character;
    }
    line.append(backslashes, L'\\');
    line += L'"';
}

std::wstring commandLine()
{
    std::ifstream file;
    file.exceptions(std::ios::failbit | std::ios::badbit);
    file.open("/proc/self/cmdline", std::ios::binary);
    // The end of the file is no failure; an argument without memory is, and must not end the line.
    file.exceptions(std::ios::badbit);
    std::wstring line;
    std::string argument;
    for (bool first = true; std::getline(file, argument, '\0'); first = false)
    {
        if (first)
            appendProgram(line, textOf(argument));
        else
            appendArgument(line, textOf(argument));
    }
    return line;
}

} // namespace

wchar_t* GetCommandLineW()
{
    static wchar_t empty[] = L"";
    const int lastError = errno;
    wchar_t* text = empty;
    try
    {
        // Never destroyed: what runs at the process's end may still read it. Not kept unless it is whole.
        static std::wstring& line = *new std::wstring(commandLine());
        text = line.data();
    }
    catch (const std::exception&)
    {
    }
    errno = lastError;
    return text;
}
