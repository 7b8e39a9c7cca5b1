// UTF-8 to code points and back, strictly by the Unicode standard.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kest::common
{

inline constexpr wchar_t replacementCharacter = 0xFFFD;

// What of malformed text becomes one U+FFFD.
enum class Malformed
{
    byte,
    beginning, // the longest beginning of a character that does not go on as one
};

struct DecodedText
{
    std::wstring text;
    std::size_t malformed = std::string_view::npos; // offset of the first bytes that are no character

    bool valid() const { return malformed == std::string_view::npos; }
};

struct EncodedText
{
    std::string bytes; // U+FFFD for each code that is no character
    bool valid = true;
};

DecodedText decodeUtf8(std::string_view bytes, Malformed replaced);
EncodedText encodeUtf8(std::wstring_view text);

} // namespace kest::common
