// kest-trace: runs a program and tells which exports it called.
#include "common/descriptor.h"
#include "common_options.h"
#include "trace/report.h"
#include "trace/traced_run.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <getopt.h>
#include <iostream>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace
{

namespace fs = std::filesystem;
using kest::trace::Run;

constexpr int own_failure = 125;
constexpr int cannot_execute = 126;
constexpr int not_found = 127;
constexpr int signal_base = 128;

constexpr const char* usage =
    "usage: kest-trace [--calls] [--output FILE] [--emulator COMMAND] PROGRAM [ARGUMENT ...]\n";

constexpr const char* help =
    "\n"
    "Runs an unmodified program and reports at its end which functions of libKestPlatformBase.so and its companions "
    "it\n"
    "called: how often, from which module, and how the library answers, those that end the process and the fixed\n"
    "results first.\n"
    "\n"
    "  -c, --calls             print each call as it happens, too\n"
    "  -o, --output FILE       write there instead of to the standard error output\n"
    "  -e, --emulator COMMAND  run the program under this user-mode emulator, which is given the program's "
    "environment\n"
    "                          by -E NAME=VALUE (words are separated by spaces)\n"
    "  -h, --help              this text\n"
    "  -V, --version           the version\n"
    "\n"
    "Counted are calls through the loader's binding, immediate binding and functions looked up by name included, from\n"
    "the program, its libraries and modules loaded later, with whatever flags, and from the processes it starts. Not\n"
    "counted are calls inside the library, calls compiled without a PLT and calls through the address of a function;\n"
    "the report names the modules that have such addresses.\n"
    "\n"
    "The exit status is the program's, or 128 and the number of the signal that ended it; 2 for a wrong command line,\n"
    "125 when kest-trace itself fails, 126 for a program that cannot be executed, 127 for one that is not found.\n";

constexpr kest::tools::Program program = {"kest-trace", usage, help};

struct Options
{
    Run run;
    bool calls = false;
    std::string output;
};

// Beside the program in the build folder, in the library folder of an installation.
std::string auditLibrary()
{
    const fs::path folder = fs::read_symlink("/proc/self/exe").parent_path();
    for (const char* candidate : {KEST_TRACE_INSTALLED_LIBRARY, KEST_TRACE_BUILT_LIBRARY})
    {
        const fs::path path = (folder / candidate).lexically_normal();
        if (fs::exists(path))
        {
            return path;
        }
    }
    throw std::runtime_error("kest-trace-audit.so is not where it was installed, at " +
                             (folder / KEST_TRACE_INSTALLED_LIBRARY).lexically_normal().string());
}

int execute(Options options)
{
    int output = STDERR_FILENO;
    if (!options.output.empty())
    {
        output = open(options.output.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_APPEND | O_CLOEXEC, 0666);
        if (output == -1)
        {
            throw std::system_error(errno, std::generic_category(), options.output);
        }
    }
    options.run.audit_library = auditLibrary();
    if (options.calls)
    {
        options.run.calls = options.output.empty() ? "" : fs::absolute(options.output).string();
    }
    const kest::trace::SharedTable table;
    const int status = run(options.run, table);
    const std::string text = kest::trace::report(*table, status);
    if (!kest::common::writeAll(output, text))
    {
        throw std::system_error(errno, std::generic_category(), "the report");
    }
    return WIFSIGNALED(status) ? signal_base + WTERMSIG(status) : WEXITSTATUS(status);
}

int start(const Options& options)
{
    try
    {
        return execute(options);
    }
    catch (const kest::trace::StartFailure& failure)
    {
        const Run& run = options.run;
        std::cerr << "kest-trace: " << (run.emulator.empty() ? run.command.front() : run.emulator.front()) << ": "
                  << std::strerror(failure.error) << "\n";
        return failure.error == ENOENT ? not_found : cannot_execute;
    }
    catch (const std::exception& failure)
    {
        std::cerr << "kest-trace: " << failure.what() << "\n";
        return own_failure;
    }
}

} // namespace

int main(int argc, char** argv)
{
    const option long_options[] = {
        {"calls", no_argument, nullptr, 'c'},          {"output", required_argument, nullptr, 'o'},
        {"emulator", required_argument, nullptr, 'e'}, {"help", no_argument, nullptr, 'h'},
        {"version", no_argument, nullptr, 'V'},        {nullptr, 0, nullptr, 0}};
    Options options;
    opterr = 0;
    // "+": options behind the program's name are the program's. ":": a missing argument is told apart.
    for (int letter; (letter = getopt_long(argc, argv, "+:co:e:hV", long_options, nullptr)) != -1;)
    {
        switch (letter)
        {
        case 'c':
            options.calls = true;
            break;
        case 'o':
            options.output = optarg;
            break;
        case 'e':
        {
            std::istringstream words(optarg);
            for (std::string word; words >> word;)
            {
                options.run.emulator.push_back(word);
            }
            break;
        }
        default:
            return kest::tools::answerCommonOption(program, letter, argv[optind - 1]);
        }
    }
    if (optind == argc)
    {
        return kest::tools::wrongCommandLine(program, "no program is given");
    }
    options.run.command.assign(argv + optind, argv + argc);
    return start(options);
}
