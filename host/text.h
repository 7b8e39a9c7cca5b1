// Small steps with text that several services share.
#pragma once

#include <cstddef>
#include <string_view>

namespace kest::host
{

inline std::wstring_view textOrEmpty(const wchar_t* text)
{
    return text == nullptr ? std::wstring_view() : std::wstring_view(text);
}

// The text without blanks and line ends around it.
inline std::wstring_view trimmed(std::wstring_view text)
{
    constexpr std::wstring_view blanks = L" \t\n\v\f\r";
    const std::size_t first = text.find_first_not_of(blanks);
    return first == text.npos ? std::wstring_view() : text.substr(first, text.find_last_not_of(blanks) + 1 - first);
}

} // namespace kest::host
