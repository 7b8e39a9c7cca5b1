#include "kest/crt/strings.h"

#include "harness/sentinel_buffer.h"

#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <utility>
#include <vector>

using namespace std::string_literals;
using kest::test::SentinelBuffer;

namespace
{

const wchar_t* const positionAtStart = g_plast4wcstok;

TEST(Reversal, SwapsFromBothEnds)
{
    using Buffer = SentinelBuffer<wchar_t, 8>;
    const std::vector<std::pair<std::wstring, std::wstring>> rows = {
        {L"", L""},       {L"a", L"a"},       {L"ab", L"ba"},
        {L"abc", L"cba"}, {L"abcd", L"dcba"}, {L"\U0001F600\u00E4", L"\u00E4\U0001F600"},
    };
    for (const auto& [text, reversed] : rows)
    {
        Buffer buffer(text);
        EXPECT_EQ(_wcsrev(buffer.data()), buffer.data());
        EXPECT_EQ(buffer.contents(), Buffer::startingWith(reversed + L'\0'));
    }
}

TEST(Reversal, OfALongStringIsOnePass)
{
    std::wstring text(1 << 20, L'a');
    text.front() = L'b';
    _wcsrev(text.data());
    EXPECT_EQ(text.find(L'b'), text.size() - 1);
}

// Every test starts and ends without a position.
class Tokens : public testing::Test
{
protected:
    Tokens() { g_plast4wcstok = nullptr; }
    ~Tokens() override { g_plast4wcstok = nullptr; }
};

// All tokens of a text; null follows the last one, again and again.
std::vector<std::wstring> tokens(std::wstring text, const wchar_t* delimiters)
{
    std::vector<std::wstring> result;
    for (const wchar_t* token = _wcstok(text.data(), delimiters); token != nullptr;
         token = _wcstok(nullptr, delimiters))
    {
        result.emplace_back(token);
    }
    EXPECT_EQ(_wcstok(nullptr, delimiters), nullptr);
    return result;
}

TEST_F(Tokens, HaveNoPositionAtTheStart)
{
    EXPECT_EQ(positionAtStart, nullptr);
    EXPECT_EQ(_wcstok(nullptr, L","), nullptr);
}

TEST_F(Tokens, AreCutAtTheDelimiters)
{
    using Result = std::vector<std::wstring>;
    EXPECT_EQ(tokens(L"a,b", L","), (Result{L"a", L"b"}));
    EXPECT_EQ(tokens(L",,a;b,,c;", L",;"), (Result{L"a", L"b", L"c"}));
    EXPECT_EQ(tokens(L"abc", L","), (Result{L"abc"}));
    EXPECT_EQ(tokens(L"abc", L""), (Result{L"abc"}));
    EXPECT_EQ(tokens(L",,", L","), Result{});
    EXPECT_EQ(tokens(L"", L","), Result{});
}

TEST_F(Tokens, StandInTheStringItself)
{
    using Buffer = SentinelBuffer<wchar_t, 8>;
    Buffer buffer(L",ab,c");
    EXPECT_EQ(_wcstok(buffer.data(), L","), buffer.data() + 1);
    EXPECT_EQ(buffer.contents(), Buffer::startingWith(L",ab\0c\0"s));
    EXPECT_EQ(g_plast4wcstok, buffer.data() + 4);
}

TEST_F(Tokens, MayChangeTheirDelimiters)
{
    wchar_t text[] = L"a,b;c";
    EXPECT_STREQ(_wcstok(text, L","), L"a");
    EXPECT_STREQ(_wcstok(nullptr, L";"), L"b");
    EXPECT_STREQ(_wcstok(nullptr, L","), L"c");
    EXPECT_EQ(_wcstok(nullptr, L","), nullptr);
}

TEST_F(Tokens, OfAnotherStringEndThoseOfTheFirst)
{
    wchar_t first[] = L"a,b,c";
    wchar_t second[] = L"x,y";
    EXPECT_STREQ(_wcstok(first, L","), L"a");
    EXPECT_STREQ(_wcstok(second, L","), L"x");
    EXPECT_STREQ(_wcstok(nullptr, L","), L"y");
    EXPECT_EQ(_wcstok(nullptr, L","), nullptr);
    // An empty string does so too.
    wchar_t third[] = L"1,2";
    wchar_t empty[] = L"";
    EXPECT_STREQ(_wcstok(third, L","), L"1");
    EXPECT_EQ(_wcstok(empty, L","), nullptr);
    EXPECT_EQ(_wcstok(nullptr, L","), nullptr);
}

TEST_F(Tokens, OfTwoStringsInterleaveWhenThePositionIsKept)
{
    wchar_t first[] = L"a,b";
    wchar_t second[] = L"x,y";
    EXPECT_STREQ(_wcstok(first, L","), L"a");
    wchar_t* position = g_plast4wcstok;
    EXPECT_STREQ(_wcstok(second, L","), L"x");
    std::swap(g_plast4wcstok, position);
    EXPECT_STREQ(_wcstok(nullptr, L","), L"b");
    g_plast4wcstok = position;
    EXPECT_STREQ(_wcstok(nullptr, L","), L"y");
}

TEST(wcstok, SharesOnePositionAmongThreads)
{
    wchar_t text[] = L"a,b,c";
    EXPECT_STREQ(_wcstok(text, L","), L"a");
    std::thread([] { EXPECT_STREQ(_wcstok(nullptr, L","), L"b"); }).join();
    EXPECT_STREQ(_wcstok(nullptr, L","), L"c");
    EXPECT_EQ(_wcstok(nullptr, L","), nullptr);
}

} // namespace
