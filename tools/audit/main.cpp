// kest-audit: tells how the Windows functions that files need are answered.
#include "audit/audit.h"
#include "audit/reports.h"
#include "common_options.h"

#include <getopt.h>
#include <iostream>
#include <string>
#include <vector>

namespace
{

using kest::audit::Answer;
using kest::audit::Audit;

constexpr int unreadable_file = 1;

constexpr const char* usage = "usage: kest-audit [--json] [--with FILE ...] FILE ...\n";

constexpr const char* help =
    "\n"
    "Tells for every Windows function that the files need how libKestPlatformBase.so and its companions answer it,\n"
    "with totals, and lists the service operations that a host must supply. Files are object files, archives, shared\n"
    "objects and executables for Linux, object files and import libraries for Windows, Windows programs and DLLs.\n"
    "\n"
    "  -j, --json       report as JSON\n"
    "  -w, --with FILE  what this file defines is provided; the file is not audited itself (may be repeated)\n"
    "  -h, --help       this text\n"
    "  -V, --version    the version\n"
    "\n"
    "What counts as a Windows function: of a Windows program or DLL, all that it imports, at once or delayed, from\n"
    "other DLLs than the given files; of any other file, each undefined symbol that no given file defines, nor the C\n"
    "and C++ libraries of Linux, nor a library that the loader would load with the file. Symbols that may stay\n"
    "undefined count only when the libraries have them. Give third-party libraries that object files need by --with.\n"
    "\n"
    "Answers, from the worst, and the exit status when it is the worst one found:\n"
    "  not provided      6  no library has it\n"
    "  ends the process  5  calling it ends the program\n"
    "  fixed result      4  always the same answer\n"
    "  forwarded         3  the host answers, through a service operation\n"
    "  local             0  implemented\n"
    "  companion         0  implemented by the companions\n"
    "  C library         0  imported from a Windows C runtime; Linux's C or C++ library has it\n"
    "  compiler          0  brought in by the Windows compiler and its headers; gone when compiled for Linux\n"
    "The exit status is 1 when a file cannot be read (the others are reported), 2 for a wrong command line.\n";

constexpr kest::tools::Program program = {"kest-audit", usage, help};

int statusFor(const Audit& audit)
{
    if (audit.hasProblems())
    {
        return unreadable_file;
    }
    switch (audit.worst())
    {
    case Answer::not_provided:
        return 6;
    case Answer::ends_the_process:
        return 5;
    case Answer::fixed_result:
        return 4;
    case Answer::forwarded:
        return 3;
    case Answer::local:
    case Answer::companion:
    case Answer::c_library:
    case Answer::compiler:
        break;
    }
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    const option long_options[] = {{"json", no_argument, nullptr, 'j'},
                                   {"with", required_argument, nullptr, 'w'},
                                   {"help", no_argument, nullptr, 'h'},
                                   {"version", no_argument, nullptr, 'V'},
                                   {nullptr, 0, nullptr, 0}};
    bool as_json = false;
    std::vector<std::string> definers;
    opterr = 0;
    // ":": a missing argument is told apart.
    for (int letter; (letter = getopt_long(argc, argv, ":jw:hV", long_options, nullptr)) != -1;)
    {
        switch (letter)
        {
        case 'j':
            as_json = true;
            break;
        case 'w':
            definers.emplace_back(optarg);
            break;
        default:
            return kest::tools::answerCommonOption(program, letter, argv[optind - 1]);
        }
    }
    if (optind == argc)
    {
        return kest::tools::wrongCommandLine(program, "no file is given");
    }
    const Audit audit = kest::audit::audit({argv + optind, argv + argc}, definers);
    std::cout << (as_json ? jsonReport(audit) : textReport(audit)) << std::flush;
    for (const kest::audit::FileContents& file : audit.files)
    {
        for (const std::string& problem : file.problems)
        {
            std::cerr << "kest-audit: " << problem << "\n";
        }
    }
    for (const auto& [library, file] : audit.missing_libraries)
    {
        std::cerr << "kest-audit: " << file << ": " << library
                  << ", which it is linked with, is not found; what that defines counts as not provided\n";
    }
    if (!std::cout)
    {
        std::cerr << "kest-audit: the report cannot be written\n";
        return unreadable_file;
    }
    return statusFor(audit);
}
