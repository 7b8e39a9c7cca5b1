#include "kest/companions/encodings.h"

#include "harness/scoped_locale.h"
#include "harness/sentinel_buffer.h"

#include <cerrno>
#include <gtest/gtest.h>
#include <string>
#include <tuple>
#include <vector>

using namespace std::string_literals;
using kest::test::ScopedLocale;
using Narrow = kest::test::SentinelBuffer<char, 32>;
using Wide = kest::test::SentinelBuffer<wchar_t, 32>;

namespace
{

constexpr UINT ansi = 0;
constexpr UINT utf8 = 65001;
constexpr DWORD failOnInvalidBytes = 8;
constexpr DWORD failOnInvalidCodes = 0x80;

// What a conversion to wide text makes of bytes, the answer and the whole buffer checked.
void expectWide(UINT page, const std::string& bytes, const std::wstring& text)
{
    Wide buffer;
    errno = 7;
    const int length = static_cast<int>(text.size());
    const int size = static_cast<int>(bytes.size());
    EXPECT_EQ(MultiByteToWideChar(page, 0, bytes.data(), size, nullptr, 0), length) << testing::PrintToString(bytes);
    EXPECT_EQ(MultiByteToWideChar(page, 0, bytes.data(), size, buffer.data(), 32), length);
    EXPECT_EQ(buffer.contents(), Wide::startingWith(text)) << testing::PrintToString(bytes);
    EXPECT_EQ(errno, 7);
}

void expectBytes(UINT page, const std::wstring& text, const std::string& bytes)
{
    Narrow buffer;
    errno = 7;
    const int length = static_cast<int>(bytes.size());
    const int size = static_cast<int>(text.size());
    EXPECT_EQ(WideCharToMultiByte(page, 0, text.data(), size, nullptr, 0, nullptr, nullptr), length);
    EXPECT_EQ(WideCharToMultiByte(page, 0, text.data(), size, buffer.data(), 32, nullptr, nullptr), length);
    EXPECT_EQ(buffer.contents(), Narrow::startingWith(bytes)) << testing::PrintToString(text);
    EXPECT_EQ(errno, 7);
}

TEST(Encodings, ConvertUtf8BothWays)
{
    const std::vector<std::pair<std::string, std::wstring>> pairs = {
        {"a", L"a"},
        {"\x7F\xC2\x80\xDF\xBF", L"\x7F\x80\x7FF"},
        {"\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF", L"\x800\xD7FF\xE000\xFFFF"},
    };
    for (const auto& [bytes, text] : pairs)
    {
        expectWide(utf8, bytes, text);
        expectBytes(utf8, text, bytes);
    }
    expectWide(utf8, "a\0b\0"s, L"a\0b\0"s);
    expectBytes(utf8, L"a\0b\0"s, "a\0b\0"s);
}

TEST(Encodings, ReplaceEachBrokenBeginningOfACharacterInUtf8)
{
    const std::vector<std::pair<std::string, std::wstring>> rows = {
        {"\x80", L"\xFFFD"},
        {"a\xFFz", L"a\xFFFDz"},
        {"\xC0\x80", L"\xFFFD\xFFFD"},                     // overlong
        {"\xE0\x80\x80", L"\xFFFD\xFFFD\xFFFD"},           // overlong
        {"\xED\xA0\x80", L"\xFFFD\xFFFD\xFFFD"},           // a surrogate
        {"\xF4\x90\x80\x80", L"\xFFFD\xFFFD\xFFFD\xFFFD"}, // too large
        {"\xE2\x82", L"\xFFFD"},                           // cut: one beginning
        {"\xF0\x9F\x98z", L"\xFFFDz"},
        {"\xE2\x82\xE2\x82\xAC", L"\xFFFD\x20AC"},
    };
    for (const auto& [bytes, text] : rows)
    {
        expectWide(utf8, bytes, text);
        errno = 0;
        EXPECT_EQ(
            MultiByteToWideChar(utf8, failOnInvalidBytes, bytes.data(), static_cast<int>(bytes.size()), nullptr, 0), 0);
        EXPECT_EQ(errno, 1113) << testing::PrintToString(bytes);
    }
}

TEST(Encodings, CountTheTerminatorOfTextsWithoutASize)
{
    Wide wide;
    EXPECT_EQ(MultiByteToWideChar(utf8, 0, "\xC3\xA9", -1, wide.data(), 32), 2);
    EXPECT_EQ(wide.contents(), Wide::startingWith(L"\xE9\0"s));
    Narrow narrow;
    EXPECT_EQ(WideCharToMultiByte(utf8, 0, L"\xE9", -1, narrow.data(), 32, nullptr, nullptr), 3);
    EXPECT_EQ(narrow.contents(), Narrow::startingWith("\xC3\xA9\0"s));
}

TEST(Encodings, FillATooSmallBufferAndReportIt)
{
    Wide wide;
    errno = 0;
    EXPECT_EQ(MultiByteToWideChar(utf8, 0, "abc", 3, wide.data(), 2), 0);
    EXPECT_EQ(errno, 122);
    EXPECT_EQ(wide.contents(), Wide::startingWith(L"ab"));
    Narrow narrow;
    errno = 0;
    EXPECT_EQ(WideCharToMultiByte(utf8, 0, L"abc", 3, narrow.data(), 2, nullptr, nullptr), 0);
    EXPECT_EQ(errno, 122);
    EXPECT_EQ(narrow.contents(), Narrow::startingWith("ab"));
}

TEST(Encodings, RefuseArgumentsThatCannotBe)
{
    Wide wide;
    Narrow narrow;
    BOOL used = 5;
    const auto expectRefused = [](DWORD error, const auto& call)
    {
        errno = 0;
        EXPECT_EQ(call(), 0);
        EXPECT_EQ(static_cast<DWORD>(errno), error);
    };
    expectRefused(87, [&] { return MultiByteToWideChar(utf8, 0, nullptr, 1, wide.data(), 1); });
    expectRefused(87, [&] { return MultiByteToWideChar(utf8, 0, "a", 0, wide.data(), 1); });
    expectRefused(87, [&] { return MultiByteToWideChar(utf8, 0, "a", 1, nullptr, 1); });
    expectRefused(87, [&] { return MultiByteToWideChar(utf8, 0, "a", 1, wide.data(), -1); });
    expectRefused(87, [&] { return MultiByteToWideChar(61234, 0, "a", 1, wide.data(), 1); });
    expectRefused(1004, [&] { return MultiByteToWideChar(utf8, 1, "a", 1, wide.data(), 1); });
    expectRefused(1004, [&] { return MultiByteToWideChar(1252, 0x10, "a", 1, wide.data(), 1); });
    expectRefused(87, [&] { return WideCharToMultiByte(utf8, 0, L"a", 1, narrow.data(), 1, "?", nullptr); });
    expectRefused(87, [&] { return WideCharToMultiByte(utf8, 0, L"a", 1, narrow.data(), 1, nullptr, &used); });
    expectRefused(1004, [&] { return WideCharToMultiByte(utf8, 1, L"a", 1, narrow.data(), 1, nullptr, nullptr); });
    expectRefused(1004, [&] { return WideCharToMultiByte(1252, 0x80, L"a", 1, narrow.data(), 1, nullptr, nullptr); });
    EXPECT_EQ(used, 5);
    EXPECT_EQ(wide.contents(), Wide::untouched());
    EXPECT_EQ(narrow.contents(), Narrow::untouched());
}

TEST(Encodings, ConvertOtherCodePages)
{
    const std::vector<std::tuple<UINT, std::string, std::wstring>> rows = {
        {1252, "\x80\xE9", L"\x20AC\xE9"},    {1251, "\xCF\xF0", L"\x41F\x440"}, {437, "\x82", L"\xE9"},
        {28591, "\xE9\xFF", L"\xE9\xFF"},     {932, "\x82\xA0", L"\x3042"},      {936, "\xC4\xE3", L"\x4F60"},
        {54936, "\x81\x30\x81\x30", L"\x80"}, {20866, "\xC1", L"\x430"},
    };
    for (const auto& [page, bytes, text] : rows)
    {
        SCOPED_TRACE(page);
        expectWide(page, bytes, text);
        expectBytes(page, text, bytes);
    }
}

TEST(Encodings, PutTheDefaultCharacterForWhatAPageLacks)
{
    Narrow buffer;
    BOOL used = 5;
    EXPECT_EQ(WideCharToMultiByte(1252, 0, L"a\x3042z", 3, buffer.data(), 32, "<>", &used), 4);
    EXPECT_EQ(buffer.contents(), Narrow::startingWith("a<>z"));
    EXPECT_EQ(used, TRUE);
    EXPECT_EQ(WideCharToMultiByte(1252, 0, L"az", 2, buffer.data(), 32, "<>", &used), 2);
    EXPECT_EQ(used, FALSE);
    expectBytes(1252, L"\x3042", "?");
}

TEST(Encodings, ReplaceInvalidBytesOfOtherPages)
{
    expectWide(932, "a\x82", L"a\xFFFD");
    expectWide(20127, "\x80z", L"\xFFFDz");
    errno = 0;
    EXPECT_EQ(MultiByteToWideChar(20127, failOnInvalidBytes, "\x80", 1, nullptr, 0), 0);
    EXPECT_EQ(errno, 1113);
}

TEST(Encodings, FollowTheLocaleForTheAnsiPage)
{
    {
        const ScopedLocale utf8Locale("C.UTF-8");
        expectWide(ansi, "\xC3\xA9", L"\xE9");
        expectBytes(ansi, L"\xE9", "\xC3\xA9");
        BOOL used = 5;
        Narrow buffer;
        EXPECT_EQ(WideCharToMultiByte(ansi, 0, L"a", 1, buffer.data(), 32, "?", &used), 1);
        EXPECT_EQ(used, FALSE);
    }
    const ScopedLocale classic("C");
    expectWide(ansi, "a\xC3", L"a\xFFFD");
    expectBytes(ansi, L"a\xE9", "a?");
}

TEST(MultiByteToWideChar, MakesOneCharacterOfACodePoint)
{
    expectWide(utf8, "\xF0\x9F\x98\x80\xF4\x8F\xBF\xBF", L"\x1F600\x10FFFF");
    expectBytes(utf8, L"\x1F600\x10FFFF", "\xF0\x9F\x98\x80\xF4\x8F\xBF\xBF");
}

TEST(WideCharToMultiByte, TakesASurrogateForAnInvalidCode)
{
    const wchar_t codes[] = {0xD83D, 0xDE00, 0x110000, static_cast<wchar_t>(-1)};
    expectBytes(utf8, std::wstring(codes, 4), "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD");
    for (const wchar_t code : codes)
    {
        errno = 0;
        EXPECT_EQ(WideCharToMultiByte(utf8, failOnInvalidCodes, &code, 1, nullptr, 0, nullptr, nullptr), 0);
        EXPECT_EQ(errno, 1113);
    }
}

TEST(WideCharToMultiByte, FitsNothingBest)
{
    // A fullwidth letter, which Windows gives its plain shape.
    expectBytes(1252, L"\xFF21", "?");
}

} // namespace
