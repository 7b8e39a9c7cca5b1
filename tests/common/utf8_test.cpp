#include "common/utf8.h"

#include <gtest/gtest.h>
#include <string>
#include <string_view>

using namespace kest::common;

namespace
{

TEST(Utf8, DecodesAndEncodesTheEndsOfEachLength)
{
    const std::string bytes = "\x01\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF\xF0\x90\x80\x80"
                              "\xF4\x8F\xBF\xBF";
    const std::wstring text = L"\x01\x7F\u0080\u07FF\u0800\uD7FF\uE000\uFFFF\U00010000\U0010FFFF";
    for (const Malformed replaced : {Malformed::byte, Malformed::beginning})
    {
        const DecodedText decoded = decodeUtf8(bytes, replaced);
        EXPECT_EQ(decoded.text, text);
        EXPECT_TRUE(decoded.valid());
    }
    const EncodedText encoded = encodeUtf8(text);
    EXPECT_EQ(encoded.bytes, bytes);
    EXPECT_TRUE(encoded.valid);
}

TEST(Utf8, ReplacesMalformedBytesOneByOneOrByTheBeginningsTheyMake)
{
    struct
    {
        std::string_view bytes;
        std::wstring byByte, byBeginning;
        std::size_t malformed;
    } const cases[] = {
        {"a\x80z", L"a\uFFFDz", L"a\uFFFDz", 1},
        {"ab\xE2\x82z", L"ab\uFFFD\uFFFDz", L"ab\uFFFDz", 2},
        {"\xF0\x9F\x98", L"\uFFFD\uFFFD\uFFFD", L"\uFFFD", 0},
        {"\xC3\xA9\xE2\x82\xC3\xA9\xFF", L"\u00E9\uFFFD\uFFFD\u00E9\uFFFD", L"\u00E9\uFFFD\u00E9\uFFFD", 2},
        // overlong, a surrogate, a code above the last: their second bytes begin nothing
        {"\xE0\x9F\xBF", L"\uFFFD\uFFFD\uFFFD", L"\uFFFD\uFFFD\uFFFD", 0},
        {"\xED\xA0\x80", L"\uFFFD\uFFFD\uFFFD", L"\uFFFD\uFFFD\uFFFD", 0},
        {"\xF4\x90\x80\x80", L"\uFFFD\uFFFD\uFFFD\uFFFD", L"\uFFFD\uFFFD\uFFFD\uFFFD", 0},
        {"\xC0\xAF", L"\uFFFD\uFFFD", L"\uFFFD\uFFFD", 0},
    };
    for (const auto& [bytes, byByte, byBeginning, malformed] : cases)
    {
        const DecodedText bytewise = decodeUtf8(bytes, Malformed::byte);
        EXPECT_EQ(bytewise.text, byByte) << bytes;
        EXPECT_EQ(bytewise.malformed, malformed) << bytes;
        const DecodedText beginnings = decodeUtf8(bytes, Malformed::beginning);
        EXPECT_EQ(beginnings.text, byBeginning) << bytes;
        EXPECT_EQ(beginnings.malformed, malformed) << bytes;
    }
}

TEST(Utf8, EncodesCodesThatAreNoCharactersAsReplacements)
{
    for (const unsigned code : {0xD800U, 0xDFFFU, 0x110000U, 0xFFFFFFFFU})
    {
        const EncodedText encoded = encodeUtf8(L"a" + std::wstring(1, static_cast<wchar_t>(code)) + L"z");
        EXPECT_EQ(encoded.bytes, "a\xEF\xBF\xBDz") << code;
        EXPECT_FALSE(encoded.valid) << code;
    }
}

} // namespace
