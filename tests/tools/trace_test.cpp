#include "tools/tool_runner.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <string>

namespace
{

using kest::test::emulatorPrefix;
using kest::test::Outcome;
using kest::test::quoted;
using kest::test::runTool;
using kest::test::words;

const std::string not_counted = "\nNot counted: calls inside the library, calls compiled without a PLT, and calls "
                                "through the address of a function.\n";
const std::string no_addresses = not_counted + "No module holds the address of an exported function.\n";

class TraceTool : public testing::Test
{
protected:
    // Traces one of the programs; `arguments` are the program's, in the shell's notation.
    Outcome trace(const std::string& program, const std::string& arguments, const std::string& options = "") const
    {
        return command(options + emulatorOption() + quoted(KEST_TOOLS_PROGRAMS + program) + " " + arguments);
    }

    Outcome command(const std::string& arguments) const { return runTool(scratch_, KEST_TRACE, arguments); }

    static std::string emulatorOption()
    {
        return emulatorPrefix().empty() ? " " : " --emulator " + quoted(emulatorPrefix()) + " ";
    }

    const kest::test::ScratchFolder& scratch() const { return scratch_; }

private:
    kest::test::ScratchFolder scratch_;
};

TEST_F(TraceTool, TellsWhatTheProgramCalledFixedResultsFirst)
{
    const Outcome outcome = trace("traced_now", "fixed arguments fixed");
    EXPECT_EQ(outcome.out, "936\n17 1 2 3 4 5 6 seven 1250 2 1 21 77\n936\n");
    EXPECT_EQ(outcome.err, "kest-trace: the program ended with status 3\n"
                           "6 functions reached in 7 calls\n"
                           "\n"
                           "fixed result: 1 function, 2 calls\n"
                           "         2  GetACP        traced_now  always 936\n"
                           "\n"
                           "local: 5 functions, 5 calls\n"
                           "         1  GetLastError  traced_now\n"
                           "         1  MulDiv        traced_now\n"
                           "         1  SetLastError  traced_now\n"
                           "         1  _fcvt         traced_now\n"
                           "         1  wsprintfW     traced_now\n" +
                               no_addresses);
    EXPECT_EQ(outcome.status, 3);
}

TEST_F(TraceTool, CountsTheSameWhetherTheLoaderBindsAtOnceOrLate)
{
    for (const std::string program : {"traced_now", "traced_lazy"})
    {
        const Outcome outcome = trace(program, "fixed");
        EXPECT_EQ(outcome.err, "kest-trace: the program ended with status 3\n"
                               "1 function reached in 1 call\n"
                               "\n"
                               "fixed result: 1 function, 1 call\n"
                               "         1  GetACP  " +
                                   program + "  always 936\n" + no_addresses);
    }
}

TEST_F(TraceTool, CountsBothNamesOfAFunctionAsOneAndNamesTheOperationBehindAForward)
{
    const Outcome outcome = trace("traced_now", "encoded");
    EXPECT_EQ(outcome.out, "encoded 0 0 1\n");
    EXPECT_EQ(outcome.err, "kest-trace: the program ended with status 3\n"
                           "3 functions reached in 4 calls\n"
                           "\n"
                           "fixed result: 1 function, 2 calls\n"
                           "         2  IsDBCSLeadByte                      traced_now  always 0\n"
                           "\n"
                           "checked forward: 1 function, 1 call\n"
                           "         1  RegCloseKey                         traced_now  "
                           "IRegistryService::RegCloseKey, 1 without hub or service\n"
                           "\n"
                           "local: 1 function, 1 call\n"
                           "         1  wcscpy_s(wchar_t*, wchar_t const*)  traced_now\n" +
                               no_addresses);
}

TEST_F(TraceTool, CountsCallsOfSeveralThreads)
{
    const Outcome outcome = trace("traced_lazy", "threads");
    EXPECT_NE(outcome.err.find("      1000  GetTickCount  traced_lazy\n"), std::string::npos) << outcome.err;
}

TEST_F(TraceTool, SeesModulesOpenedLateWithDeepBinding)
{
    const Outcome outcome = trace("traced_lazy", "fixed module " + quoted(KEST_TOOLS_MODULE));
    EXPECT_EQ(outcome.out, "936\n936\n");
    EXPECT_EQ(outcome.err, "kest-trace: the program ended with status 3\n"
                           "1 function reached in 2 calls\n"
                           "\n"
                           "fixed result: 1 function, 2 calls\n"
                           "         1  GetACP  libkest_tools_module.so  always 936\n"
                           "         1  GetACP  traced_lazy              always 936\n" +
                               no_addresses);
}

TEST_F(TraceTool, SeesFunctionsLookedUpByName)
{
    const Outcome outcome = trace("traced_now", "lookup");
    EXPECT_EQ(outcome.out, "936\n");
    EXPECT_NE(outcome.err.find("         1  GetACP  traced_now (looked up by name)  always 936\n"), std::string::npos)
        << outcome.err;
}

TEST_F(TraceTool, CountsForkedAndStartedProcessesToo)
{
    const Outcome outcome =
        trace("traced_now", "fixed child started " + quoted(emulatorPrefix()), "--output report.txt");
    EXPECT_EQ(outcome.out, "936\n936\n");
    EXPECT_EQ(scratch().read("report.txt"), "kest-trace: the program ended with status 3; 2 programs traced\n"
                                            "1 function reached in 3 calls\n"
                                            "\n"
                                            "fixed result: 1 function, 3 calls\n"
                                            "         3  GetACP  traced_now  always 936\n" +
                                                no_addresses);
}

TEST_F(TraceTool, ReportsWhenTheLibraryEndsTheProcess)
{
    const Outcome outcome = trace("traced_now", "fixed unsupported", "--output report.txt");
    EXPECT_EQ(scratch().read("report.txt"), "kest-trace: the program ended by signal 6 (SIGABRT)\n"
                                            "2 functions reached in 2 calls\n"
                                            "\n"
                                            "ends the process: 1 function, 1 call\n"
                                            "         1  _mbsrev  traced_now\n"
                                            "\n"
                                            "fixed result: 1 function, 1 call\n"
                                            "         1  GetACP   traced_now  always 936\n" +
                                                no_addresses);
    EXPECT_EQ(outcome.status, 128 + 6);
}

TEST_F(TraceTool, ReportsWhenTheProgramLeavesWithoutCleaningUp)
{
    const Outcome outcome = trace("traced_now", "fixed leave 42");
    EXPECT_EQ(outcome.err.substr(0, outcome.err.find('\n')), "kest-trace: the program ended with status 42");
    EXPECT_NE(outcome.err.find("         1  GetACP  traced_now  always 936\n"), std::string::npos) << outcome.err;
    EXPECT_EQ(outcome.status, 42);
}

TEST_F(TraceTool, HandsARequestToEndOnToTheProgram)
{
    const Outcome outcome = trace("traced_now", "fixed end-tracer");
    EXPECT_EQ(outcome.err.substr(0, outcome.err.find('\n')), "kest-trace: the program ended by signal 15 (SIGTERM)");
    EXPECT_EQ(outcome.status, 128 + 15);
}

TEST_F(TraceTool, PrintsEachCallAsItHappens)
{
    const Outcome outcome = trace("traced_now", "arguments fixed", "--calls --output report.txt");
    std::string report = scratch().read("report.txt");
    const std::string process = report.substr(0, report.find(' ') + 1);
    for (std::size_t place; (place = report.find(process)) != std::string::npos;)
    {
        report.erase(place, process.size());
    }
    EXPECT_EQ(report.substr(0, report.find("kest-trace")), "wsprintfW (local) from traced_now\n"
                                                           "SetLastError (local) from traced_now\n"
                                                           "_fcvt (local) from traced_now\n"
                                                           "MulDiv (local) from traced_now\n"
                                                           "GetLastError (local) from traced_now\n"
                                                           "GetACP (fixed result: 936) from traced_now\n");
    EXPECT_EQ(outcome.out, "17 1 2 3 4 5 6 seven 1250 2 1 21 77\n936\n");
    EXPECT_EQ(outcome.err, "");
}

TEST_F(TraceTool, SaysWhichCountsMayBeTooLow)
{
    const std::string held = not_counted + "Modules that hold addresses, so that these counts may be too low:\n";
    const Outcome outcome = trace("traced_address", "address");
    EXPECT_EQ(outcome.out, "2052\n2052\n");
    // Linkers for x86-64 join the calls with the address, those for Arm keep them apart.
    EXPECT_EQ(outcome.err.substr(outcome.err.find(not_counted)), held + "    traced_address: GetSystemDefaultLCID\n");
    const Outcome without_plt = trace("traced_without_plt", "fixed");
    EXPECT_EQ(without_plt.out, "936\n");
    EXPECT_EQ(without_plt.err, "kest-trace: the program ended with status 3\n"
                               "0 functions reached in 0 calls\n" +
                                   held +
                                   "    traced_without_plt: GetACP, GetLastError, GetTickCount, "
                                   "IsDBCSLeadByte, MulDiv, RegCloseKey, SetLastError, _fcvt, _mbsrev, "
                                   "wcscpy_s(wchar_t*, wchar_t const*), wsprintfW\n");
}

TEST_F(TraceTool, SaysWhenTheLibraryWasNotLoaded)
{
    const Outcome outcome = trace("traced_plain", "");
    EXPECT_EQ(outcome.err, "kest-trace: the program ended with status 5\n"
                           "libKestPlatformBase.so was not loaded.\n");
    EXPECT_EQ(outcome.status, 5);
}

TEST_F(TraceTool, SaysWhenNothingCouldBeTraced)
{
    const Outcome outcome = trace("traced_static", "");
    EXPECT_EQ(outcome.err, "kest-trace: the program ended with status 5\n"
                           "Nothing was traced: the program is linked statically, runs with another user's rights, or "
                           "its loader has no audit interface.\n");
}

TEST_F(TraceTool, RefusesWrongCommandLines)
{
    const std::string usage =
        "usage: kest-trace [--calls] [--output FILE] [--emulator COMMAND] PROGRAM [ARGUMENT ...]\n";
    const struct
    {
        std::string arguments;
        std::string message;
    } rows[] = {
        {"", "kest-trace: no program is given\n"},
        {"--colour true", "kest-trace: --colour is no option\n"},
        {"-x true", "kest-trace: -x is no option\n"},
        {"--output", "kest-trace: --output needs an argument\n"},
        {"--calls=yes true", "kest-trace: --calls=yes is no option\n"},
    };
    for (const auto& row : rows)
    {
        const Outcome outcome = command(row.arguments);
        EXPECT_EQ(outcome.err, row.message + usage) << row.arguments;
        EXPECT_EQ(outcome.out, "") << row.arguments;
        EXPECT_EQ(outcome.status, 2) << row.arguments;
    }
}

TEST_F(TraceTool, SaysWhatItCannotStart)
{
    scratch().write("data", "no program");
    const Outcome missing = command("./missing");
    EXPECT_EQ(missing.err, "kest-trace: ./missing: No such file or directory\n");
    EXPECT_EQ(missing.status, 127);
    const Outcome data = command("./data");
    EXPECT_EQ(data.err, "kest-trace: ./data: Permission denied\n");
    EXPECT_EQ(data.status, 126);
    const Outcome output = command("--output missing/report.txt true");
    EXPECT_EQ(output.err, "kest-trace: missing/report.txt: No such file or directory\n");
    EXPECT_EQ(output.status, 125);
}

TEST_F(TraceTool, ExplainsItself)
{
    const Outcome outcome = command("--help");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.out.substr(0, 17), "usage: kest-trace");
    EXPECT_EQ(command("--version").out, "kest-trace 1.0.0\n");
}

} // namespace
