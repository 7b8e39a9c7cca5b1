// The porting team's tools, run as they run them: from a shell, in a scratch folder.
#pragma once

#include "harness/child_program.h"
#include "harness/scratch_folder.h"

#include <cstdlib>
#include <initializer_list>
#include <string>
#include <sys/wait.h>

namespace kest::test
{

struct Outcome
{
    int status; // -1 for a shell that a signal ended
    std::string out;
    std::string err;
};

inline std::string quoted(const std::string& word)
{
    std::string result = "'";
    for (const char character : word)
    {
        result += character == '\'' ? std::string("'\\''") : std::string(1, character);
    }
    return result + "'";
}

// Words of a command, each taken literally.
inline std::string words(std::initializer_list<std::string> list)
{
    std::string result;
    for (const std::string& word : list)
    {
        result += " " + quoted(word);
    }
    return result;
}

// Runs a program built for the target with arguments in the shell's notation and a file as its standard input.
inline Outcome runTool(const ScratchFolder& scratch, const std::string& program, const std::string& arguments,
                       const std::string& input = "/dev/null")
{
    const int status = std::system(("env LC_ALL=C " + emulatorPrefix() + quoted(program) + " " + arguments +
                                    " >out.txt 2>err.txt <" + quoted(input))
                                       .c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, scratch.read("out.txt"), scratch.read("err.txt")};
}

} // namespace kest::test
