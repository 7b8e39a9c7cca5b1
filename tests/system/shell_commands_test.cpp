// The functions that work through the shell. popen, pclose and system are this program's own: the library reaches
// them by name, as it reaches those of any program that replaces them.
#include "harness/scoped_locale.h"
#include "harness/scoped_variable.h"
#include "harness/scratch_folder.h"
#include "harness/sentinel_buffer.h"
#include "kest/kernel/environment.h"
#include "kest/shell_paths.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

using kest::test::ScopedLocale;
using kest::test::ScopedVariable;
using kest::test::ScratchFolder;
using kest::test::SentinelBuffer;
using namespace std::string_literals;

namespace
{

// Records what the library hands to the shell, as long as it lives.
class RecordedShell
{
public:
    RecordedShell() { current = this; }
    ~RecordedShell() { current = nullptr; }
    RecordedShell(const RecordedShell&) = delete;
    RecordedShell& operator=(const RecordedShell&) = delete;

    static RecordedShell* current;

    std::vector<std::string> pipes; // mode:command
    std::vector<std::FILE*> opened;
    std::vector<std::FILE*> closed;
    bool refusePipes = false;

    std::vector<std::string> commands; // recorded, not run
    int status = 0;
};

RecordedShell* RecordedShell::current = nullptr;

template <class Function>
Function* next(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

} // namespace

extern "C"
{
    KEST_API std::FILE* popen(const char* command, const char* mode)
    {
        static const auto real = next<std::FILE*(const char*, const char*)>("popen");
        RecordedShell* const shell = RecordedShell::current;
        if (shell == nullptr)
        {
            return real(command, mode);
        }
        shell->pipes.push_back(std::string(mode) + ":" + command);
        if (shell->refusePipes)
        {
            errno = EMFILE;
            return nullptr;
        }
        shell->opened.push_back(real(command, mode));
        return shell->opened.back();
    }

    KEST_API int pclose(std::FILE* stream)
    {
        static const auto real = next<int(std::FILE*)>("pclose");
        if (RecordedShell::current != nullptr)
        {
            RecordedShell::current->closed.push_back(stream);
        }
        return real(stream);
    }

    KEST_API int system(const char* command)
    {
        static const auto real = next<int(const char*)>("system");
        if (RecordedShell::current == nullptr)
        {
            return real(command);
        }
        RecordedShell::current->commands.emplace_back(command);
        return RecordedShell::current->status;
    }
}

namespace
{

constexpr const char* variable = "KEST_TEST_VARIABLE";
constexpr const wchar_t* wideVariable = L"KEST_TEST_VARIABLE";

using Line = SentinelBuffer<wchar_t, 4200>;

// What reading a variable, by default the tests' own, leaves in a buffer.
std::wstring bufferAfterReading(const wchar_t* name = wideVariable, DWORD size = 4096)
{
    Line out;
    EXPECT_EQ(GetEnvironmentVariableW(name, out.data(), size), 1U);
    return out.contents();
}

// ---- GetEnvironmentVariableW

TEST(GetEnvironmentVariableW, KeepsTheNewlineOfTheShellsAnswer)
{
    const ScopedVariable set(variable, "abc");
    EXPECT_EQ(bufferAfterReading(), Line::startingWith(L"abc\n\0"s));
}

TEST(GetEnvironmentVariableW, AnswersOneInsteadOfTheLength)
{
    const ScopedVariable set(variable, "twelve chars");
    Line out;
    EXPECT_EQ(GetEnvironmentVariableW(wideVariable, out.data(), 4096), 1U);
    EXPECT_EQ(GetEnvironmentVariableW(wideVariable, out.data(), 0), 1U);
}

TEST(GetEnvironmentVariableW, WritesPastTheGivenSize)
{
    const ScopedVariable set(variable, "abc");
    for (const DWORD size : {0U, 1U, 3U, 4U})
    {
        EXPECT_EQ(bufferAfterReading(wideVariable, size), Line::startingWith(L"abc\n\0"s)) << size;
    }
}

TEST(GetEnvironmentVariableW, FindsAnUnsetVariableAsEmptyLine)
{
    const ScopedVariable unset(variable, nullptr);
    EXPECT_EQ(bufferAfterReading(), Line::startingWith(L"\n\0"s));
}

TEST(GetEnvironmentVariableW, LetsTheShellReadNameAndValue)
{
    const ScratchFolder folder;
    folder.write("x", "");
    folder.write("y", "");
    ScopedVariable set(variable, "a  b\tc\nd");
    EXPECT_EQ(bufferAfterReading(), Line::startingWith(L"a b c d\n\0"s));
    set.set("*");
    EXPECT_EQ(bufferAfterReading(), Line::startingWith(L"x y\n\0"s));
    set.set("$HOME $(echo no) \"'");
    EXPECT_EQ(bufferAfterReading(), Line::startingWith(L"$HOME $(echo no) \"'\n\0"s));
    EXPECT_EQ(bufferAfterReading(L"(echo done)"), Line::startingWith(L"done\n\0"s));
    EXPECT_EQ(bufferAfterReading(L"{KEST_TEST_VARIABLE:+is set}"), Line::startingWith(L"is set\n\0"s));
}

// What the shell at hand prints: shells differ in what their echo makes of backslashes and options.
std::wstring firstLineOfTheShell(const std::string& command)
{
    std::FILE* const pipe = popen(command.c_str(), "r");
    std::wstring line;
    for (int character = std::fgetc(pipe); character != EOF; character = std::fgetc(pipe))
    {
        line += static_cast<wchar_t>(character);
        if (character == '\n')
        {
            break;
        }
    }
    pclose(pipe);
    return line;
}

TEST(EnvironmentReading, AnswersWhatTheShellPrints)
{
    const ScratchFolder folder;
    folder.write("one", "");
    for (const char* value :
         {"plain",          "",     " ",  " edge ", "-n",  "-n x", "-e x",    "a\\tb",  "a\\nb", "a\\\\b", "a\\cb",
          "C:\\new\\table", "a\nb", "\n", "o*",     "[x]", "~",    "a;b|c&d", "`date`", "#x",    "x #y"})
    {
        const ScopedVariable set(variable, value);
        const std::wstring expected = firstLineOfTheShell("echo $"s + variable) + L'\0';
        EXPECT_EQ(bufferAfterReading(), Line::startingWith(expected)) << value;
    }
}

TEST(EnvironmentReading, ConvertsByTheLocale)
{
    const ScopedLocale utf8("C.UTF-8");
    const ScopedVariable set(variable, "\xC3\xA4\xE6\xBC\xA2\xF0\x9F\x98\x80");
    EXPECT_EQ(bufferAfterReading(), Line::startingWith(L"\u00E4\u6F22\U0001F600\n\0"s));
}

TEST(EnvironmentReading, EndsTheLineBeforeWhatTheLocaleCannotConvert)
{
    ScopedVariable set(variable, "ab\xC3\xA4 cd");
    EXPECT_EQ(bufferAfterReading(), Line::startingWith(L"ab\0"s));
    const ScopedLocale utf8("C.UTF-8");
    set.set("\xC3\xA4 b\xE6\xBC cd");
    EXPECT_EQ(bufferAfterReading(), Line::startingWith(L"\u00E4 b\0"s));
}

TEST(EnvironmentReading, ReadsAtMost4095CharactersOfALine)
{
    for (const std::size_t length : {4093U, 4094U, 4095U, 4096U, 9000U})
    {
        const ScopedVariable set(variable, std::string(length, 'p').c_str());
        std::wstring written(std::min<std::size_t>(length, 4095), L'p');
        if (length < 4095)
        {
            written += L'\n';
        }
        EXPECT_EQ(bufferAfterReading(), Line::startingWith(written + L'\0')) << length;
    }
}

TEST(EnvironmentReading, ReadsALongSearchPath)
{
    std::string path = "/usr/bin:/bin";
    while (path.size() < 5000)
    {
        path += ":/opt/some/folder/bin";
    }
    const ScopedVariable set("PATH", path.c_str());
    const std::wstring written(path.begin(), path.begin() + 4095);
    EXPECT_EQ(bufferAfterReading(L"PATH"), Line::startingWith(written + L'\0'));
}

TEST(EnvironmentReading, AsksTheShellOnceAndClosesThePipe)
{
    RecordedShell shell;
    bufferAfterReading(L"HOME");
    EXPECT_EQ(shell.pipes, std::vector<std::string>{"r:echo $HOME"});
    EXPECT_EQ(shell.closed, shell.opened);
    EXPECT_TRUE(shell.commands.empty());
}

TEST(EnvironmentReading, CutsLongNamesAndWhatTheLocaleCannotEncode)
{
    RecordedShell shell;
    shell.refusePipes = true;
    wchar_t unused[1];
    GetEnvironmentVariableW(std::wstring(4095, L'n').c_str(), unused, 1);
    GetEnvironmentVariableW(std::wstring(5000, L'n').c_str(), unused, 1);
    GetEnvironmentVariableW(L"NAM\u00C9_X", unused, 1);
    const std::string cut = "r:echo $" + std::string(4095, 'n');
    EXPECT_EQ(shell.pipes, (std::vector<std::string>{cut, cut, "r:echo $NAM"}));
}

TEST(EnvironmentReading, LeavesTheBufferAloneWithoutAPipe)
{
    RecordedShell shell;
    shell.refusePipes = true;
    Line out;
    EXPECT_EQ(GetEnvironmentVariableW(L"HOME", out.data(), 4096), 0U);
    EXPECT_EQ(out.contents(), Line::untouched());
    EXPECT_TRUE(shell.closed.empty());
}

TEST(EnvironmentReading, IsEmptyWhenTheShellPrintsNothing)
{
    EXPECT_EQ(bufferAfterReading(L"HOME > /dev/null"), Line::startingWith(L"\0"s));
}

// ---- SetEnvironmentVariableW

TEST(SetEnvironmentVariableW, LeavesTheEnvironmentAsItIs)
{
    ScopedVariable set(variable, "before");
    EXPECT_EQ(SetEnvironmentVariableW(wideVariable, L"after"), 1);
    EXPECT_STREQ(std::getenv(variable), "before");
    EXPECT_EQ(bufferAfterReading(), Line::startingWith(L"before\n\0"s));
    EXPECT_EQ(SetEnvironmentVariableW(wideVariable, nullptr), 1);
    EXPECT_STREQ(std::getenv(variable), "before");
    set.set(nullptr);
    EXPECT_EQ(SetEnvironmentVariableW(wideVariable, L"after"), 1);
    EXPECT_EQ(std::getenv(variable), nullptr);
}

TEST(SetEnvironmentVariableW, LetsTheShellReadTheValue)
{
    const ScratchFolder folder;
    EXPECT_EQ(SetEnvironmentVariableW(wideVariable, L"$(echo ran > marker)"), 1);
    EXPECT_EQ(folder.read("marker"), "ran\n");
}

TEST(EnvironmentWriting, ExportsTheQuotedValueInAShell)
{
    const ScopedLocale utf8("C.UTF-8");
    RecordedShell shell;
    EXPECT_EQ(SetEnvironmentVariableW(L"NAME", L"some value"), 1);
    EXPECT_EQ(SetEnvironmentVariableW(L"NAME", L""), 1);
    EXPECT_EQ(SetEnvironmentVariableW(L"NAME", nullptr), 1);
    EXPECT_EQ(SetEnvironmentVariableW(L"", L"\u00E4\"$x"), 1);
    EXPECT_EQ(shell.commands, (std::vector<std::string>{"export NAME=\"some value\"", "export NAME=\"\"",
                                                        "export NAME=\"\"", "export =\"\xC3\xA4\"$x\""}));
    EXPECT_TRUE(shell.pipes.empty());
}

TEST(EnvironmentWriting, HasRoomForTheLongestNameAndValue)
{
    RecordedShell shell;
    EXPECT_EQ(SetEnvironmentVariableW(std::wstring(5000, L'n').c_str(), std::wstring(5000, L'v').c_str()), 1);
    EXPECT_EQ(shell.commands,
              (std::vector<std::string>{"export " + std::string(4095, 'n') + "=\"" + std::string(4095, 'v') + "\""}));
}

TEST(EnvironmentWriting, AnswersOneWhateverTheShellDid)
{
    RecordedShell shell;
    for (const int status : {-1, 0x7F00, 9})
    {
        shell.status = status;
        EXPECT_EQ(SetEnvironmentVariableW(L"NAME", L"value"), 1);
    }
}

// ---- CreateProcessW

BOOL createProcess(const wchar_t* application, const wchar_t* commandLine, const wchar_t* directory = nullptr)
{
    return CreateProcessW(application, commandLine, nullptr, nullptr, 0, 0, nullptr, directory, nullptr, nullptr);
}

TEST(CreateProcessW, WaitsUntilTheCommandEnds)
{
    const ScratchFolder folder;
    EXPECT_EQ(createProcess(nullptr, L"sleep 0.2; echo ended > result"), 1);
    EXPECT_EQ(folder.read("result"), "ended\n");
}

TEST(CreateProcessW, RunsAShellCommandLine)
{
    const ScratchFolder folder;
    EXPECT_EQ(createProcess(L"echo", L"echo \"a b\" $((1 + 2)) > result"), 1);
    EXPECT_EQ(folder.read("result"), "echo a b 3\n");
}

TEST(CreateProcessW, RunsInTheCallersDirectory)
{
    const ScratchFolder folder;
    folder.write("inner/file", "");
    EXPECT_EQ(createProcess(nullptr, L"pwd > result", L"inner"), 1);
    EXPECT_EQ(folder.read("result"), folder.path().string() + "\n");
}

TEST(CreateProcessW, LeavesTheProcessInformationUnwritten)
{
    SentinelBuffer<char, sizeof(PROCESS_INFORMATION)> information;
    EXPECT_EQ(CreateProcessW(L"true", nullptr, nullptr, nullptr, 1, 4, nullptr, nullptr, nullptr,
                             reinterpret_cast<PROCESS_INFORMATION*>(information.data())),
              1);
    EXPECT_EQ(information.contents(), information.untouched());
}

TEST(CreateProcessW, ReportsSuccessForWhateverWasTried)
{
    EXPECT_EQ(createProcess(L"exit", L"3"), 1);
    EXPECT_EQ(createProcess(L"/no/such/program", L"2> /dev/null"), 1);
    RecordedShell shell;
    shell.status = -1;
    EXPECT_EQ(createProcess(L"program", nullptr), 1);
}

struct ProcessRow
{
    const wchar_t* application;
    const wchar_t* commandLine;
    std::vector<std::string> commands;
    BOOL result;
};

TEST(StartingPrograms, PutsTheCommandTogether)
{
    const ScopedLocale utf8("C.UTF-8");
    const ProcessRow rows[] = {
        {L"tool", L"-a -b", {"tool -a -b"}, 1},
        {L"tool", nullptr, {"tool "}, 1},
        {L"tool", L"", {"tool "}, 1},
        {nullptr, L"tool -a", {"tool -a"}, 1},
        {L"", L"tool", {" tool"}, 1},
        {L"", nullptr, {" "}, 1},
        {nullptr, L" ", {" "}, 1},
        {L"\u00E4", L"\u6F22", {"\xC3\xA4 \xE6\xBC\xA2"}, 1},
        {nullptr, L"", {}, 0},
        {nullptr, nullptr, {}, 0},
    };
    for (const ProcessRow& row : rows)
    {
        RecordedShell shell;
        EXPECT_EQ(createProcess(row.application, row.commandLine), row.result);
        EXPECT_EQ(shell.commands, row.commands);
    }
}

TEST(StartingPrograms, CutsEachTextOfACommand)
{
    const std::wstring longText(5000, L'w');
    const wchar_t* const text = longText.c_str();
    const std::string cut(4095, 'w');
    RecordedShell shell;
    EXPECT_EQ(createProcess(text, text), 1);
    ShellExecuteW(nullptr, text, text, text, text, 0);
    EXPECT_EQ(shell.commands, (std::vector<std::string>{cut + " " + cut, cut + " " + cut + "/" + cut + " " + cut}));
}

TEST(StartingPrograms, EndsATextBeforeWhatTheLocaleCannotEncode)
{
    RecordedShell shell;
    EXPECT_EQ(createProcess(L"to\u00F6l", L"-\u6F22"), 1);
    EXPECT_EQ(shell.commands, std::vector<std::string>{"to -"});
}

// ---- ShellExecuteW

std::intptr_t shellExecute(const wchar_t* operation, const wchar_t* file, const wchar_t* parameters = nullptr,
                           const wchar_t* directory = nullptr)
{
    return reinterpret_cast<std::intptr_t>(ShellExecuteW(nullptr, operation, file, parameters, directory, 1));
}

TEST(ShellExecuteW, TakesTheOperationAsACommand)
{
    const ScratchFolder folder;
    folder.write("source", "content");
    EXPECT_EQ(shellExecute(L"cp", L"source", L"target"), 33);
    EXPECT_EQ(folder.read("target"), "content");
}

TEST(ShellExecuteW, RefusesAMissingOperation)
{
    RecordedShell shell;
    EXPECT_EQ(shellExecute(nullptr, L"file"), 29);
    EXPECT_EQ(shellExecute(nullptr, nullptr), 29);
    EXPECT_TRUE(shell.commands.empty());
}

TEST(ShellExecuteW, PutsTheDirectoryBeforeTheFile)
{
    const ScratchFolder folder;
    folder.write("inner/source", "content");
    EXPECT_EQ(shellExecute(L"cat", L"source", L"> result", L"inner"), 33);
    EXPECT_EQ(folder.read("result"), "content");
}

TEST(ShellExecuteW, WaitsUntilTheCommandEnds)
{
    const ScratchFolder folder;
    EXPECT_EQ(shellExecute(L"sleep", L"0.2", L"; echo ended > result"), 33);
    EXPECT_EQ(folder.read("result"), "ended\n");
}

TEST(ShellExecuteW, ReportsSuccessForWhateverWasTried)
{
    EXPECT_EQ(shellExecute(L"exit", L"3"), 33);
    EXPECT_EQ(shellExecute(L"/no/such/program", L"file", L"2> /dev/null"), 33);
    RecordedShell shell;
    shell.status = -1;
    EXPECT_EQ(shellExecute(L"program", L"file"), 33);
}

struct ShellRow
{
    const wchar_t* operation;
    const wchar_t* file;
    const wchar_t* parameters;
    const wchar_t* directory;
    std::vector<std::string> commands;
    std::intptr_t result;
};

TEST(StartingPrograms, PutsTheShellCommandTogether)
{
    const ScopedLocale utf8("C.UTF-8");
    const ShellRow rows[] = {
        {L"xdg-open", L"a.txt", nullptr, L"/tmp", {"xdg-open /tmp/a.txt "}, 33},
        {L"xdg-open", L"a.txt", nullptr, nullptr, {"xdg-open a.txt "}, 33},
        {L"xdg-open", L"a.txt", L"-p q", L"/tmp/", {"xdg-open /tmp//a.txt -p q"}, 33},
        {L"", L"", L"", L"", {" / "}, 33},
        {L"op", L"", nullptr, nullptr, {"op  "}, 33},
        {L"\u00E4", L"\u00F6", L"\u00FC", L"\u6F22", {"\xC3\xA4 \xE6\xBC\xA2/\xC3\xB6 \xC3\xBC"}, 33},
        {L"op", nullptr, L"p", L"d", {}, 2},
    };
    for (const ShellRow& row : rows)
    {
        RecordedShell shell;
        EXPECT_EQ(shellExecute(row.operation, row.file, row.parameters, row.directory), row.result);
        EXPECT_EQ(shell.commands, row.commands);
    }
}

} // namespace
