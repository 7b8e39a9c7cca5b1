#include "kest/kernel/environment.h"
#include "kest/shell_paths.h"
#include "system/shell_command.h"

#include <cstdint>

namespace
{

// What ShellExecuteW answers: above 32 is success.
constexpr std::uintptr_t fileNotFound = 2;
constexpr std::uintptr_t noVerb = 29;
constexpr std::uintptr_t started = 33;

HINSTANCE shellAnswer(std::uintptr_t value)
{
    return reinterpret_cast<HINSTANCE>(value);
}

} // namespace

BOOL CreateProcessW(const wchar_t* application, const wchar_t* commandLine, SECURITY_ATTRIBUTES*, SECURITY_ATTRIBUTES*,
                    BOOL, DWORD, void*, const wchar_t*, STARTUPINFOW*, PROCESS_INFORMATION*)
{
    kest::ShellCommand<2> command;
    if (application != nullptr)
    {
        command.append(application);
        command.append(" ");
    }
    if (commandLine != nullptr)
    {
        command.append(commandLine);
    }
    if (command.empty())
    {
        return 0;
    }
    command.run();
    return 1;
}

HINSTANCE ShellExecuteW(HWND, const wchar_t* operation, const wchar_t* file, const wchar_t* parameters,
                        const wchar_t* directory, int)
{
    if (operation == nullptr)
    {
        return shellAnswer(noVerb);
    }
    if (file == nullptr)
    {
        return shellAnswer(fileNotFound);
    }
    kest::ShellCommand<4> command;
    command.append(operation);
    command.append(" ");
    if (directory != nullptr)
    {
        command.append(directory);
        command.append("/");
    }
    command.append(file);
    command.append(" ");
    if (parameters != nullptr)
    {
        command.append(parameters);
    }
    command.run();
    return shellAnswer(started);
}
