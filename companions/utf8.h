// UTF-8 to code points and back, strictly by the Unicode standard.
#pragma once

#include <string>
#include <string_view>

namespace kest::companions
{

inline constexpr wchar_t replacementCharacter = 0xFFFD;

struct DecodedText
{
    std::wstring text; // U+FFFD for each longest beginning of a character that does not go on as one
    bool valid = true;
};

struct EncodedText
{
    std::string bytes; // U+FFFD for each code that is no character
    bool valid = true;
};

DecodedText decodeUtf8(std::string_view bytes);
EncodedText encodeUtf8(std::wstring_view text);

} // namespace kest::companions
