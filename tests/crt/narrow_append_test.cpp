// Both headers declare a wcsncat; each must stay callable by its plain name.
#include "kest/crt/strings.h"

#include "harness/scoped_locale.h"
#include "harness/sentinel_buffer.h"

#include <cerrno>
#include <csignal>
#include <cwchar>
#include <gtest/gtest.h>
#include <string>

using namespace std::string_literals;
using kest::test::ScopedLocale;
using kest::test::SentinelBuffer;

namespace
{

constexpr unsigned long noLimit = static_cast<unsigned long>(-1);

TEST(NarrowAppend, StandsBesideTheWideOne)
{
    using Buffer = SentinelBuffer<wchar_t, 8>;
    Buffer buffer(L"ab");
    EXPECT_EQ(wcsncat(buffer.data(), L"cdef", 2), buffer.data());
    EXPECT_EQ(std::wcsncat(buffer.data(), L"gh", 1), buffer.data());
    EXPECT_EQ(buffer.contents(), Buffer::startingWith(L"abcdg\0"s));
}

TEST(NarrowAppend, ChangesNothingAndReturnsAnAddress)
{
    using Buffer = SentinelBuffer<char, 8>;
    for (const char* name : {"C", "C.UTF-8"})
    {
        ScopedLocale locale(name);
        for (const unsigned long count : {0UL, 1UL, 3UL, noLimit})
        {
            Buffer buffer("ab");
            errno = 77;
            EXPECT_NE(wcsncat(buffer.data(), "cd", count), nullptr);
            EXPECT_NE(wcsncat(buffer.data(), "", count), nullptr);
            EXPECT_EQ(buffer.contents(), Buffer::startingWith("ab\0"s));
            EXPECT_EQ(errno, 77);
        }
    }
}

TEST(NarrowAppend, LivesThroughBytesThatTheLocaleCannotRead)
{
    ScopedLocale locale("C.UTF-8");
    char destination[] = "ab\xFF";
    errno = 77;
    EXPECT_NE(wcsncat(destination, "cd", 2), nullptr);
    EXPECT_EQ(errno, EILSEQ);
    EXPECT_STREQ(destination, "ab\xFF");
    EXPECT_NE(wcsncat(destination, "\x80", 2), nullptr);
}

TEST(NarrowAppend, TakesStringsOf1023Bytes)
{
    std::string longest(1023, 'x');
    EXPECT_NE(wcsncat(longest.data(), longest.c_str(), noLimit), nullptr);
    EXPECT_EQ(longest, std::string(1023, 'x'));
}

TEST(NarrowAppend, DiesOfLongerStrings)
{
    std::string tooLong(1024, 'x');
    std::string empty;
    for (const unsigned long count : {0UL, 1UL, noLimit})
    {
        EXPECT_EXIT(wcsncat(tooLong.data(), "", count), testing::KilledBySignal(SIGABRT), "");
        EXPECT_EXIT(wcsncat(empty.data(), tooLong.c_str(), count), testing::KilledBySignal(SIGABRT), "");
    }
    tooLong.assign(100'000, 'x');
    EXPECT_EXIT(wcsncat(tooLong.data(), "", 1), testing::KilledBySignal(SIGABRT), "");
}

// The limit is in bytes: characters of several do not stretch it.
TEST(NarrowAppend, DiesOfFewerButLongerCharacters)
{
    ScopedLocale locale("C.UTF-8");
    std::string text;
    for (int i = 0; i < 512; ++i)
    {
        text += "\xC3\xA4";
    }
    EXPECT_EXIT(wcsncat(text.data(), "", 1), testing::KilledBySignal(SIGABRT), "");
}

} // namespace
