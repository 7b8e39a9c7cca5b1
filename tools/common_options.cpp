#include "common_options.h"

#include <iostream>

namespace kest::tools
{

namespace
{

constexpr int usage_error = 2;

} // namespace

int wrongCommandLine(const Program& program, const std::string& what)
{
    std::cerr << program.name << ": " << what << "\n" << program.usage;
    return usage_error;
}

int answerCommonOption(const Program& program, int letter, const std::string& word)
{
    switch (letter)
    {
    case 'h':
        std::cout << program.usage << program.help;
        return 0;
    case 'V':
        std::cout << program.name << " " KEST_VERSION "\n";
        return 0;
    case ':':
        return wrongCommandLine(program, word + " needs an argument");
    default:
        return wrongCommandLine(program, word + " is no option");
    }
}

} // namespace kest::tools
