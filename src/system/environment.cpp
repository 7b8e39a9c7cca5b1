#include "kest/kernel/environment.h"

#include "support/forwarding.h"
#include "support/last_error.h"
#include "support/out_of_memory.h"
#include "support/text.h"
#include "system/shell_command.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <memory>
#include <string>
#include <unistd.h>

using kest::NarrowText;
using kest::scratchSize;

namespace
{

// Copies a text if it fits with its terminator; returns its length either way. The caller's text and buffer may be
// one and the same.
DWORD copyIfItFits(const wchar_t* text, std::size_t length, wchar_t* out, DWORD size)
{
    if (out != nullptr && size > length)
    {
        std::wmemmove(out, text, length);
        out[length] = L'\0';
    }
    return static_cast<DWORD>(length);
}

// Reads a line as fgets does, except that a signal that interrupts the reading loses nothing of it. Empty when there is
// none or it cannot be read.
void readLine(std::FILE* stream, char* line, std::size_t size)
{
    const kest::KeptLastError kept;
    std::size_t length = 0;
    while (length < size - 1 && (length == 0 || line[length - 1] != '\n'))
    {
        const int character = std::getc(stream);
        if (character != EOF)
        {
            line[length++] = static_cast<char>(character);
        }
        else if (std::ferror(stream) == 0)
        {
            break;
        }
        else if (errno == EINTR)
        {
            std::clearerr(stream);
        }
        else
        {
            length = 0;
            break;
        }
    }
    line[length] = '\0';
}

} // namespace

DWORD GetEnvironmentVariableW(const wchar_t* name, wchar_t* out, DWORD)
{
    char command[2 * scratchSize];
    std::snprintf(command, sizeof command, "echo $%s", NarrowText(name).c_str());
    std::FILE* const pipe = popen(command, "r");
    if (pipe == nullptr)
    {
        return 0;
    }
    char line[scratchSize];
    readLine(pipe, line, sizeof line);
    kest::widenTerminated(out, line, scratchSize);
    pclose(pipe);
    return 1;
}

BOOL SetEnvironmentVariableW(const wchar_t* name, const wchar_t* value)
{
    kest::ShellCommand<2> command;
    command.append("export ");
    command.append(name);
    command.append("=\"");
    command.append(value == nullptr ? L"" : value);
    command.append("\"");
    command.run();
    return 1;
}

DWORD ExpandEnvironmentStringsW(const wchar_t* src, wchar_t* out, DWORD size)
{
    if (src == nullptr)
    {
        return 0;
    }
    if (!kest::hasService(&IPlatformServices::systemService))
    {
        return copyIfItFits(src, std::wcslen(src), out, size);
    }
    return kest::answerWithoutMemory(DWORD{0},
                                     [=]
                                     {
                                         const std::wstring expanded = kest::forward(
                                             &IPlatformServices::systemService,
                                             &ISystemService::ExpandEnvironmentStringsW, std::wstring(src));
                                         return copyIfItFits(expanded.data(), expanded.size(), out, size);
                                     });
}

DWORD GetCurrentDirectoryW(DWORD size, wchar_t* out)
{
    const std::unique_ptr<char, decltype(&std::free)> path(getcwd(nullptr, 0), std::free);
    if (path == nullptr)
    {
        return 0;
    }
    if (size == 0 && out == nullptr)
    {
        return static_cast<DWORD>(std::strlen(path.get()) + 1);
    }
    return static_cast<DWORD>(kest::widen(out, path.get(), size));
}

BOOL SetCurrentDirectoryW(const wchar_t* path)
{
    const NarrowText narrowPath(path);
    return narrowPath.converted() != kest::conversionFailed && chdir(narrowPath.c_str()) == 0;
}
