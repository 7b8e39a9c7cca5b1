// A question with a few answers, asked on the terminal.
#pragma once

#include <string>
#include <vector>

namespace kest::host
{

struct Choice
{
    int id;
    std::wstring label; // an ampersand before a letter is not shown
};

struct Question
{
    std::wstring prompt; // above the choices, may have several lines
    std::vector<Choice> choices;
    std::size_t preferred = 0; // index of the default choice
    int cancel = 0;            // the choice that the end of the input makes; 0 for none
};

// Prints the question on standard error and reads the answer from standard input. Where that is no terminal, the
// answer is `unattended` if there is such a choice, else the preferred one.
int ask(const Question& question, int unattended);

} // namespace kest::host
