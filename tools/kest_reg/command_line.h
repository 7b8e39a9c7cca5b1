// A verb's arguments: what must come first, and options in any order behind it.
#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

struct Option
{
    std::wstring_view name; // in lower case, with its slash
    bool hasValue;
};

class Arguments
{
public:
    // `operands` names the arguments that must come first, whatever they look like. Throws Failure for words that
    // make no sense.
    Arguments(std::span<const std::wstring> words, std::span<const std::wstring_view> operands,
              std::span<const Option> options);

    const std::wstring& operand(std::size_t index) const { return operands_[index]; }
    bool has(std::wstring_view option) const { return options_.contains(option); }
    std::optional<std::wstring> value(std::wstring_view option) const;
    // Throws Failure where more than one of the options is given.
    void allowOneOf(std::initializer_list<std::wstring_view> options) const;

private:
    std::vector<std::wstring> operands_;
    std::map<std::wstring, std::wstring, std::less<>> options_;
};
