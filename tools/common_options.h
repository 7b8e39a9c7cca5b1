// The end of a command line's options: those that every tool has, and those that are none.
#pragma once

#include <string>

namespace kest::tools
{

struct Program
{
    const char* name;
    const char* usage; // one line
    const char* help;  // what follows it
};

// Complains and shows the usage; the exit status.
int wrongCommandLine(const Program& program, const std::string& what);

// Answers a letter of getopt_long that is no option of the program's own: "help" ('h'), "version" ('V'), a missing
// argument (':'), an unknown word. The exit status.
int answerCommonOption(const Program& program, int letter, const std::string& word);

} // namespace kest::tools
