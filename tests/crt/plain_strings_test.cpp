#include "kest/crt/strings.h"
#include "kest/kernel/strings.h"

#include "harness/sentinel_buffer.h"

#include <cerrno>
#include <gtest/gtest.h>
#include <string>

using namespace std::string_literals;
using kest::test::SentinelBuffer;

namespace
{

using Wide = SentinelBuffer<wchar_t, 10>;
using Narrow = SentinelBuffer<char, 10>;

TEST(PlainStrings, AreCopiedWithTheirTerminator)
{
    errno = 77;
    for (const std::string& text : {""s, "a"s, "abcdefghi"s})
    {
        const std::wstring wideText(text.begin(), text.end());
        Wide wide;
        EXPECT_EQ(lstrcpyW(wide.data(), wideText.c_str()), wide.data());
        EXPECT_EQ(wide.contents(), Wide::startingWith(wideText + L'\0'));
        Narrow narrow;
        EXPECT_EQ(lstrcpyA(narrow.data(), text.c_str()), narrow.data());
        EXPECT_EQ(narrow.contents(), Narrow::startingWith(text + '\0'));
    }
    EXPECT_EQ(errno, 77);
}

TEST(PlainStrings, AreAppended)
{
    errno = 77;
    const std::vector<std::pair<std::string, std::string>> rows = {{"", ""}, {"ab", ""}, {"", "cd"}, {"ab", "cdefghi"}};
    for (const auto& [first, second] : rows)
    {
        const std::wstring wideFirst(first.begin(), first.end());
        const std::wstring wideSecond(second.begin(), second.end());
        Wide wide(wideFirst);
        EXPECT_EQ(lstrcatW(wide.data(), wideSecond.c_str()), wide.data());
        EXPECT_EQ(wide.contents(), Wide::startingWith(wideFirst + wideSecond + L'\0'));
        Narrow narrow(first);
        EXPECT_EQ(lstrcatA(narrow.data(), second.c_str()), narrow.data());
        EXPECT_EQ(narrow.contents(), Narrow::startingWith(first + second + '\0'));
    }
    EXPECT_EQ(errno, 77);
}

TEST(PlainStrings, HaveALength)
{
    EXPECT_EQ(lstrlenW(L""), 0);
    EXPECT_EQ(lstrlenW(L"abc\0def"), 3);
    EXPECT_EQ(lstrlenW(L"\U0001F600x"), 2);
    EXPECT_EQ(lstrlenA(""), 0);
    EXPECT_EQ(lstrlenA("abc\0def"), 3);
    EXPECT_EQ(lstrlenA("\xC3\xA4x"), 3);
}

TEST(PlainStrings, AreSteppedThrough)
{
    const wchar_t text[] = L"abcd";
    EXPECT_EQ(_wcsinc(text), text + 1);
    EXPECT_EQ(_wcsinc(text + 4), text + 5);
    EXPECT_EQ(_wcsninc(text, 0), text);
    EXPECT_EQ(_wcsninc(text, 3), text + 3);
}

TEST(PlainStrings, TellTheCharacterAfterTheFirst)
{
    EXPECT_EQ(_wcsnextc(L"xy"), static_cast<unsigned int>(L'y'));
    EXPECT_EQ(_wcsnextc(L"x"), 0U);
    const wchar_t highest[] = {L'x', static_cast<wchar_t>(0xFFFFFFFFU), L'\0'};
    EXPECT_EQ(_wcsnextc(highest), 0xFFFFFFFFU);
}

TEST(wcsnextc, ReturnsTheSecondCharacter)
{
    EXPECT_EQ(_wcsnextc(L"xy"), static_cast<unsigned int>(L'y'));
}

TEST(lstrcpyW, DiesOnNull)
{
    Wide buffer;
    EXPECT_DEATH(lstrcpyW(buffer.data(), nullptr), "");
    EXPECT_DEATH(lstrcpyW(nullptr, L"abc"), "");
}

TEST(lstrcpyA, DiesOnNull)
{
    Narrow buffer;
    EXPECT_DEATH(lstrcpyA(buffer.data(), nullptr), "");
    EXPECT_DEATH(lstrcpyA(nullptr, "abc"), "");
}

TEST(lstrcatW, DiesOnNull)
{
    Wide buffer(L"abc");
    EXPECT_DEATH(lstrcatW(buffer.data(), nullptr), "");
    EXPECT_DEATH(lstrcatW(nullptr, L"abc"), "");
}

TEST(lstrcatA, DiesOnNull)
{
    Narrow buffer("abc");
    EXPECT_DEATH(lstrcatA(buffer.data(), nullptr), "");
    EXPECT_DEATH(lstrcatA(nullptr, "abc"), "");
}

TEST(lstrlenW, DiesOnNull)
{
    EXPECT_DEATH(lstrlenW(nullptr), "");
}

TEST(lstrlenA, DiesOnNull)
{
    EXPECT_DEATH(lstrlenA(nullptr), "");
}

} // namespace
