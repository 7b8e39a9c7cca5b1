#include "command_line.h"

#include "failure.h"

#include <algorithm>

namespace
{

bool isOption(const std::wstring& word, const Option& option)
{
    return kest::host::folded(word) == kest::host::folded(option.name);
}

} // namespace

Arguments::Arguments(std::span<const std::wstring> words, std::span<const std::wstring_view> operands,
                     std::span<const Option> options)
{
    for (const std::wstring_view operand : operands)
    {
        if (words.empty() || words.front().empty())
        {
            throw Failure(std::wstring(operand) + L" is missing", statusBadCommandLine);
        }
        operands_.push_back(words.front());
        words = words.subspan(1);
    }
    while (!words.empty())
    {
        const std::wstring& word = words.front();
        words = words.subspan(1);
        const auto option =
            std::find_if(options.begin(), options.end(), [&](const Option& known) { return isOption(word, known); });
        if (option == options.end())
        {
            throw Failure(L"unknown option \"" + word + L"\"", statusBadCommandLine);
        }
        if (has(option->name))
        {
            throw Failure(L"option " + word + L" is given twice", statusBadCommandLine);
        }
        if (option->hasValue && words.empty())
        {
            throw Failure(L"option " + word + L" needs a value", statusBadCommandLine);
        }
        options_.emplace(option->name, option->hasValue ? words.front() : std::wstring());
        words = words.subspan(option->hasValue ? 1 : 0);
    }
}

std::optional<std::wstring> Arguments::value(std::wstring_view option) const
{
    const auto found = options_.find(option);
    return found == options_.end() ? std::nullopt : std::optional(found->second);
}

void Arguments::allowOneOf(std::initializer_list<std::wstring_view> options) const
{
    std::wstring_view first;
    for (const std::wstring_view option : options)
    {
        if (has(option) && !first.empty())
        {
            throw Failure(L"options " + std::wstring(first) + L" and " + std::wstring(option) + L" exclude each other",
                          statusBadCommandLine);
        }
        first = has(option) ? option : first;
    }
}
