#include "terminal_question.h"

#include "text.h"
#include "unicode.h"

#include <cstdio>
#include <optional>
#include <string_view>
#include <unistd.h>

namespace kest::host
{

namespace
{

std::wstring shown(const std::wstring& label)
{
    std::wstring text;
    for (std::size_t at = 0; at < label.size(); ++at)
    {
        if (label[at] == L'&' && at + 1 < label.size())
        {
            ++at;
        }
        text += label[at];
    }
    return text;
}

void print(const std::wstring& text)
{
    std::fputs(toUtf8(text).c_str(), stderr);
}

void printChoices(const Question& question)
{
    std::wstring line;
    for (std::size_t index = 0; index < question.choices.size(); ++index)
    {
        const std::wstring label = shown(question.choices[index].label);
        line += (index == 0 ? L"" : L"  ") + std::to_wstring(index + 1) + L") ";
        line += index == question.preferred ? L'[' + label + L']' : label;
    }
    print(line + L": ");
    std::fflush(stderr);
}

// A line without its end; nothing at the end of the input.
std::optional<std::wstring> readLine()
{
    std::string line;
    int character = 0;
    while ((character = std::getchar()) != EOF && character != '\n')
    {
        line += static_cast<char>(character);
    }
    return character == EOF && line.empty() ? std::nullopt : std::optional(fromUtf8(line));
}

// The one choice that an answer means.
std::optional<std::size_t> meaning(const Question& question, std::wstring_view answer)
{
    if (answer.empty())
    {
        return question.preferred;
    }
    const std::wstring wanted = folded(answer);
    std::optional<std::size_t> found;
    for (std::size_t index = 0; index < question.choices.size(); ++index)
    {
        const std::wstring label = folded(shown(question.choices[index].label));
        if (label == wanted || std::to_wstring(index + 1) == wanted)
        {
            return index;
        }
        if (wanted.size() == 1 && label.starts_with(wanted))
        {
            if (found)
            {
                return std::nullopt;
            }
            found = index;
        }
    }
    return found;
}

// Index of the choice that is made where nobody can be asked.
std::size_t unattendedChoice(const Question& question, int unattended)
{
    for (std::size_t index = 0; index < question.choices.size(); ++index)
    {
        if (question.choices[index].id == unattended)
        {
            return index;
        }
    }
    return question.preferred;
}

} // namespace

int ask(const Question& question, int unattended)
{
    print(question.prompt);
    const bool attended = isatty(STDIN_FILENO) == 1;
    while (true)
    {
        printChoices(question);
        if (!attended)
        {
            const Choice& chosen = question.choices[unattendedChoice(question, unattended)];
            print(shown(chosen.label) + L"\n");
            return chosen.id;
        }
        const std::optional<std::wstring> line = readLine();
        if (!line)
        {
            return question.cancel != 0 ? question.cancel : question.choices[question.preferred].id;
        }
        if (const std::optional<std::size_t> index = meaning(question, trimmed(*line)))
        {
            return question.choices[*index].id;
        }
        print(L"\"" + std::wstring(trimmed(*line)) + L"\" is none of these.\n");
    }
}

} // namespace kest::host
