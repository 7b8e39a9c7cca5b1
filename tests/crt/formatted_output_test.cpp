#include "kest/crt/formatted_output.h"
#include "kest/user_interface/strings.h"

#include "crt/formatting_calls.h"
#include "harness/sanitizers.h"
#include "harness/scoped_locale.h"
#include "harness/sentinel_buffer.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <vector>

namespace
{

using kest::test::encodedSwprintf;
using kest::test::fourArguments;
using kest::test::ScopedLocale;
using kest::test::scprintf;
using kest::test::scwprintf;
using kest::test::SentinelBuffer;
using kest::test::snwprintfS;
using kest::test::sprintfS;
using kest::test::swprintfS;
using kest::test::unbounded;
using kest::test::unlimitedWriters;
using namespace std::string_literals;

using Buffer = SentinelBuffer<wchar_t, 80>;
using NarrowBuffer = SentinelBuffer<char, 16>;

// ---- Counting ----------------------------------------------------------------------------------------------------

TEST(Counting, CountsNarrowTextWithoutTerminator)
{
    const ScopedLocale locale("C.UTF-8");
    EXPECT_EQ(scprintf("abc"), 3);
    EXPECT_EQ(scprintf(""), 0);
    EXPECT_EQ(scprintf("%s %5d", "ab", 7), 8);
    EXPECT_EQ(scprintf("%ls", L"\u00e9"), 2);
    EXPECT_EQ(scprintf("%600000d", 1), 600000);
}

TEST(Counting, RefusesNarrowTextThatTheLocaleCannotEncode)
{
    const ScopedLocale locale("C");
    EXPECT_EQ(scprintf("%ls", L"\u00e9"), -1);
}

TEST(Counting, CountsWideTextWithTerminator)
{
    errno = 77;
    EXPECT_EQ(scwprintf(L"abc"), 4);
    EXPECT_EQ(scwprintf(L""), 1);
    EXPECT_EQ(scwprintf(L"%s%d", L"ab", 7), 4);
    EXPECT_EQ(scwprintf(L"a%lcb", L'\0'), 4);
    EXPECT_EQ(errno, 77);
}

// Lengths around every size at which scratch grows, and around the largest.
TEST(Counting, CountsAndWritesTextsOfEveryLengthUpToTheLargest)
{
    for (const std::size_t length :
         {1022U,  1023U,  1024U,  1025U,  2048U,  4095U,   4096U,   4097U,   8191U,   8192U,  16384U,
          32767U, 32768U, 65535U, 65536U, 65537U, 131072U, 262143U, 262144U, 524286U, 524287U})
    {
        SCOPED_TRACE(length);
        const std::wstring text(length, L'x');
        const int expected = static_cast<int>(length);
        EXPECT_EQ(scwprintf(L"%s", text.c_str()), expected + 1);
        for (const auto& [name, write] : unlimitedWriters)
        {
            std::vector<wchar_t> buffer(length + 2, L'#');
            EXPECT_EQ(write(buffer.data(), L"%s", text.c_str()), expected) << name;
            EXPECT_TRUE(std::wstring(buffer.data(), buffer.size()) == text + L"\0#"s) << name;
        }
        std::vector<wchar_t> buffer(length + 2, L'#');
        EXPECT_EQ(swprintfS(buffer.data(), length + 1, L"%s", text.c_str()), expected);
        EXPECT_TRUE(std::wstring(buffer.data(), buffer.size()) == text + L"\0#"s);
        std::vector<wchar_t> cut(length + 2, L'#');
        EXPECT_EQ(swprintfS(cut.data(), length, L"%s", text.c_str()), expected - 1);
        EXPECT_TRUE(std::wstring(cut.data(), cut.size()) == text + L"\0#"s);
    }
}

TEST(Counting, RefusesLongerTexts)
{
    for (const std::size_t length : {524288U, 524289U, 1048576U})
    {
        SCOPED_TRACE(length);
        const std::wstring text(length, L'x');
        Buffer buffer;
        EXPECT_EQ(scwprintf(L"%s", text.c_str()), -1);
        EXPECT_EQ(swprintfS(buffer.data(), 3, L"%s", text.c_str()), -1);
        EXPECT_EQ(swprintfS(buffer.data(), length + 1, L"%s", text.c_str()), -1);
        EXPECT_EQ(snwprintfS(buffer.data(), 80, 3, L"%s", text.c_str()), -1);
        for (const auto& [name, write] : unlimitedWriters)
        {
            EXPECT_EQ(write(buffer.data(), L"%s", text.c_str()), -1) << name;
        }
        EXPECT_EQ(buffer.contents(), Buffer::untouched());

        // The bounded form has its limit from the caller alone.
        std::vector<wchar_t> large(length + 1);
        EXPECT_EQ(_tarswprintf(large.data(), large.size(), L"%s", text.c_str()), static_cast<int>(length));
        EXPECT_TRUE(std::wstring(large.data()) == text);
    }
}

TEST(Counting, RefusesTextThatCannotBeConverted)
{
    const ScopedLocale locale("C.UTF-8");
    Buffer buffer;
    EXPECT_EQ(scwprintf(L"ab%hs", "\xff"), -1);
    EXPECT_EQ(swprintfS(buffer.data(), 80, L"ab%hs", "\xff"), -1);
    EXPECT_EQ(snwprintfS(buffer.data(), 80, 80, L"ab%hs", "\xff"), -1);
    for (const auto& [name, write] : unlimitedWriters)
    {
        EXPECT_EQ(write(buffer.data(), L"ab%hs", "\xff"), -1) << name;
    }
    EXPECT_EQ(buffer.contents(), Buffer::untouched());
    EXPECT_EQ(_tarswprintf(buffer.data(), 80, L"ab%hs", "\xff"), -1);
}

// The small scratch holds less than these.
TEST(Counting, KeepsErrnoOverLongTexts)
{
    for (const std::size_t length : {5000U, 20000U})
    {
        SCOPED_TRACE(length);
        const std::wstring text(length, L'x');
        const int expected = static_cast<int>(length);
        std::vector<wchar_t> buffer(length + 1);
        errno = 77;
        EXPECT_EQ(scwprintf(L"%s", text.c_str()), expected + 1);
        EXPECT_EQ(errno, 77);
        EXPECT_EQ(swprintfS(buffer.data(), length + 1, L"%s", text.c_str()), expected);
        EXPECT_EQ(errno, 77);
        EXPECT_EQ(swprintfS(buffer.data(), 10, L"%s", text.c_str()), 9);
        EXPECT_EQ(errno, 77);
        EXPECT_EQ(snwprintfS(buffer.data(), 0, length + 1, L"%s", text.c_str()), expected);
        EXPECT_EQ(errno, 77);
        EXPECT_EQ(fourArguments(buffer.data(), length + 1, L"%s", text.c_str()), expected);
        EXPECT_EQ(errno, 77);
        for (const auto& [name, write] : unlimitedWriters)
        {
            EXPECT_EQ(write(buffer.data(), L"%s", text.c_str()), expected) << name;
            EXPECT_EQ(errno, 77) << name;
        }
    }
}

TEST(Counting, LeavesErrnoOfTooLongTextsToTheCLibrary)
{
    const std::wstring text(524288, L'x');
    Buffer buffer;
    errno = 77;
    EXPECT_EQ(std::swprintf(buffer.data(), 80, L"%ls", text.c_str()), -1);
    const int left = errno;
    const auto expectLeft = [&](const char* name, int result)
    {
        EXPECT_EQ(errno, left) << name;
        EXPECT_EQ(result, -1) << name;
        errno = 77;
    };
    errno = 77;
    expectLeft("_vscwprintf", scwprintf(L"%s", text.c_str()));
    expectLeft("vswprintf_s", swprintfS(buffer.data(), 3, L"%s", text.c_str()));
    expectLeft("_vsnwprintf_s", snwprintfS(buffer.data(), 80, 3, L"%s", text.c_str()));
    expectLeft("four-argument _tarvswprintf", fourArguments(buffer.data(), 80, L"%s", text.c_str()));
    for (const auto& [name, write] : unlimitedWriters)
    {
        expectLeft(name, write(buffer.data(), L"%s", text.c_str()));
    }
}

// ---- Writing -----------------------------------------------------------------------------------------------------

TEST(BoundedWriting, WritesWhatFitsAndRefusesWhatDoesNot)
{
    struct Row
    {
        std::size_t count;
        int result;
        std::wstring written;
    };
    const Row rows[] = {
        {0, -1, L""},     {1, -1, L"\0"s},     {2, -1, L"a"},        {4, -1, L"abc"},
        {5, -1, L"abcd"}, {6, 5, L"abcde\0"s}, {16, 5, L"abcde\0"s},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.count);
        Buffer list;
        EXPECT_EQ(fourArguments(list.data(), row.count, L"%s%ls", L"ab", L"cde"), row.result);
        EXPECT_EQ(list.contents(), Buffer::startingWith(row.written));
        Buffer direct;
        EXPECT_EQ(_tarswprintf(direct.data(), row.count, L"%s%ls", L"ab", L"cde"), row.result);
        EXPECT_EQ(direct.contents(), Buffer::startingWith(row.written));
    }
}

TEST(UnlimitedWriting, WritesTextAndTerminatorAndNothingElse)
{
    errno = 77;
    for (const auto& [name, write] : unlimitedWriters)
    {
        SCOPED_TRACE(name);
        Buffer text;
        EXPECT_EQ(write(text.data(), L"%s-%d", L"ab", 42), 5);
        EXPECT_EQ(text.contents(), Buffer::startingWith(L"ab-42\0"s));
        Buffer empty;
        EXPECT_EQ(write(empty.data(), L""), 0);
        EXPECT_EQ(empty.contents(), Buffer::startingWith(L"\0"s));
        Buffer holdsNull;
        EXPECT_EQ(write(holdsNull.data(), L"a%lcb", L'\0'), 3);
        EXPECT_EQ(holdsNull.contents(), Buffer::startingWith(L"a\0b\0"s));
    }
    EXPECT_EQ(errno, 77);
}

TEST(UnlimitedWriting, StandsBesideTheCLibrarysForm)
{
    Buffer buffer;
    EXPECT_EQ(swprintf(buffer.data(), 4, L"%d", 123), 3);
    EXPECT_EQ(std::swprintf(buffer.data(), 3, L"%d", 123), -1);
    EXPECT_EQ(swprintf(buffer.data(), L"%s", L"12345"), 5);
    EXPECT_STREQ(buffer.data(), L"12345");
}

TEST(CuttingWriting, CutsAtTheSizeAndTerminatesBehindIt)
{
    struct Row
    {
        std::size_t size;
        int result;
        std::wstring written;
    };
    const Row rows[] = {
        {0, -1, L"\0"s},      {1, 0, L"a\0"s},
        {3, 2, L"abc\0"s},    {5, 4, L"abcde\0"s},
        {6, 5, L"abcdef\0"s}, {7, 6, L"abcdef\0"s},
        {8, 6, L"abcdef\0"s}, {static_cast<std::size_t>(-1), 6, L"abcdef\0"s},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.size);
        errno = 77;
        Buffer plain;
        EXPECT_EQ(swprintfS(plain.data(), row.size, L"%sf", L"abcde"), row.result);
        EXPECT_EQ(plain.contents(), Buffer::startingWith(row.written));
        for (const std::size_t bufferSize : {0U, 3U, 100U})
        {
            Buffer byCount;
            EXPECT_EQ(snwprintfS(byCount.data(), bufferSize, row.size, L"abcdef"), row.result);
            EXPECT_EQ(byCount.contents(), Buffer::startingWith(row.written));
        }
        EXPECT_EQ(errno, 77);
    }
}

TEST(CuttingWriting, WritesEmptyTexts)
{
    Buffer none;
    EXPECT_EQ(swprintfS(none.data(), 0, L""), -1);
    EXPECT_EQ(none.contents(), Buffer::startingWith(L"\0"s));
    Buffer one;
    EXPECT_EQ(swprintfS(one.data(), 1, L""), 0);
    EXPECT_EQ(one.contents(), Buffer::startingWith(L"\0"s));
}

TEST(CuttingWriting, CutsNarrowTextAsTheCLibraryDoes)
{
    struct Row
    {
        std::size_t size;
        std::string written;
    };
    const Row rows[] = {
        {0, ""}, {1, "\0"s}, {3, "ab\0"s}, {6, "abcde\0"s}, {7, "abcdef\0"s}, {16, "abcdef\0"s},
    };
    for (const Row& row : rows)
    {
        NarrowBuffer buffer;
        EXPECT_EQ(sprintfS(buffer.data(), row.size, "%s%c", "abcde", 'f'), 6) << row.size;
        EXPECT_EQ(buffer.contents(), NarrowBuffer::startingWith(row.written)) << row.size;
    }
}

TEST(CuttingWriting, RefusesNarrowTextThatTheLocaleCannotEncode)
{
    const ScopedLocale locale("C");
    NarrowBuffer buffer;
    EXPECT_EQ(sprintfS(buffer.data(), 16, "ab%ls", L"\u00e9"), -1);
    EXPECT_EQ(sprintfS(buffer.data(), 2, "ab%ls", L"\u00e9"), -1);
    EXPECT_EQ(sprintfS(nullptr, 0, "ab%ls", L"\u00e9"), -1);
}

// No writer makes a failure of it.
TEST(Writing, NeedsABuffer)
{
    EXPECT_DEATH(sprintfS(nullptr, 8, "abc"), "");
    EXPECT_DEATH(fourArguments(nullptr, 8, L"abc"), "");
    EXPECT_DEATH(_tarswprintf(nullptr, 8, L"abc"), "");
    EXPECT_DEATH(swprintfS(nullptr, 8, L"abc"), "");
    EXPECT_DEATH(swprintfS(nullptr, 2, L"abc"), "");
    EXPECT_DEATH(swprintfS(nullptr, 0, L"abc"), "");
    EXPECT_DEATH(snwprintfS(nullptr, 8, 8, L"abc"), "");
    EXPECT_DEATH(snwprintfS(nullptr, 8, 2, L"abc"), "");
    for (const auto& [name, write] : unlimitedWriters)
    {
        EXPECT_DEATH(write(nullptr, L"abc"), "") << name;
        EXPECT_DEATH(write(nullptr, L""), "") << name;
    }
}

TEST(NarrowFormats, AllowPercentNInReadOnlyMemory)
{
    int counted = 0;
    EXPECT_EQ(scprintf("ab%nc", &counted), 3);
    EXPECT_EQ(counted, 2);
    NarrowBuffer buffer;
    EXPECT_EQ(sprintfS(buffer.data(), 16, "abc%n", &counted), 3);
    EXPECT_EQ(counted, 3);
}

#ifndef KEST_TEST_OWN_C_LIBRARY
TEST(NarrowFormats, EndTheProcessOverPercentNInWritableMemory)
{
    int counted = 0;
    NarrowBuffer buffer;
    const std::string writable = "ab%nc";
    EXPECT_EXIT(scprintf(writable.c_str(), &counted), testing::KilledBySignal(SIGABRT), "");
    EXPECT_EXIT(sprintfS(buffer.data(), 16, writable.c_str(), &counted), testing::KilledBySignal(SIGABRT), "");
}
#endif

// The thread sanitizer watches this one.
TEST(UnlimitedWriting, SharesNothingBetweenThreads)
{
    std::array<std::thread, 4> threads;
    std::array<bool, 4> good = {};
    for (std::size_t index = 0; index < threads.size(); ++index)
    {
        threads[index] = std::thread(
            [index, &good]
            {
                const std::wstring text(600 * (index + 1), static_cast<wchar_t>(L'a' + index));
                std::vector<wchar_t> buffer(text.size() + 1);
                good[index] = true;
                for (int round = 0; round < 100; ++round)
                {
                    good[index] &= encodedSwprintf(buffer.data(), L"%s", text.c_str()) == static_cast<int>(text.size());
                    good[index] &= text == buffer.data();
                }
            });
    }
    for (std::thread& thread : threads)
    {
        thread.join();
    }
    EXPECT_EQ(good, (std::array<bool, 4>{true, true, true, true}));
}

// ---- Deviations --------------------------------------------------------------------------------------------------

// The wide format language, as any of its functions shows it.
template <class Write>
void expectFormatLanguageOfSwprintf(Write write)
{
    EXPECT_EQ(write(L"%s|%4s|%%s", L"ab", "cd"), L"ab|  cd|%ls");
}

TEST(vscprintf, ReadsFormatsAsTheCLibraryDoes)
{
    // A flag, a width and a conversion to the C library.
    EXPECT_EQ(scprintf("%I64d", 5), 64);
}

TEST(vsprintfs, CutsTooLongTextAndAnswersItsLength)
{
    NarrowBuffer buffer;
    EXPECT_EQ(sprintfS(buffer.data(), 3, "abcdef"), 6);
    EXPECT_EQ(buffer.contents(), NarrowBuffer::startingWith("ab\0"s));
}

TEST(vscwprintf, CountsTheTerminator)
{
    EXPECT_EQ(scwprintf(L"abc"), 4);
}

TEST(vscwprintf, GivesUpBeyond524287Characters)
{
    EXPECT_EQ(scwprintf(L"%524287d", 1), 524288);
    EXPECT_EQ(scwprintf(L"%524288d", 1), -1);
}

TEST(vscwprintf, ReadsFormatsAsSwprintfDoes)
{
    EXPECT_EQ(scwprintf(L"%s|%4s|%%s", L"ab", "cd"), 12);
}

TEST(vswprintf, GivesUpBeyond524287Characters)
{
    Buffer buffer;
    EXPECT_EQ(unbounded(buffer.data(), L"%524288d", 1), -1);
    EXPECT_EQ(buffer.contents(), Buffer::untouched());
}

TEST(vswprintf, ReadsFormatsAsSwprintfDoes)
{
    expectFormatLanguageOfSwprintf(
        [](const wchar_t* format, const wchar_t* wide, const char* narrow)
        {
            Buffer buffer;
            unbounded(buffer.data(), format, wide, narrow);
            return std::wstring(buffer.data());
        });
}

TEST(vswprintfs, CutsTooLongTextAndTerminatesPastTheSize)
{
    Buffer buffer;
    EXPECT_EQ(swprintfS(buffer.data(), 3, L"abcdef"), 2);
    EXPECT_EQ(buffer.contents(), Buffer::startingWith(L"abc\0"s));
}

TEST(vswprintfs, GivesUpBeyond524287Characters)
{
    Buffer buffer;
    EXPECT_EQ(swprintfS(buffer.data(), 3, L"%524288d", 1), -1);
    EXPECT_EQ(buffer.contents(), Buffer::untouched());
}

TEST(vswprintfs, ReadsFormatsAsSwprintfDoes)
{
    expectFormatLanguageOfSwprintf(
        [](const wchar_t* format, const wchar_t* wide, const char* narrow)
        {
            Buffer buffer;
            swprintfS(buffer.data(), Buffer::size(), format, wide, narrow);
            return std::wstring(buffer.data());
        });
}

TEST(vsnwprintfs, IgnoresTheBufferSize)
{
    Buffer buffer;
    EXPECT_EQ(snwprintfS(buffer.data(), 2, 7, L"abcdef"), 6);
    EXPECT_EQ(buffer.contents(), Buffer::startingWith(L"abcdef\0"s));
}

TEST(vsnwprintfs, CutsToCountAndAnswersOneLess)
{
    Buffer buffer;
    EXPECT_EQ(snwprintfS(buffer.data(), 100, 3, L"abcdef"), 2);
    EXPECT_EQ(buffer.contents(), Buffer::startingWith(L"abc\0"s));
}

TEST(vsnwprintfs, ReadsFormatsAsSwprintfDoes)
{
    expectFormatLanguageOfSwprintf(
        [](const wchar_t* format, const wchar_t* wide, const char* narrow)
        {
            Buffer buffer;
            snwprintfS(buffer.data(), Buffer::size(), Buffer::size(), format, wide, narrow);
            return std::wstring(buffer.data());
        });
}

TEST(swprintf, ReadsPaddedStringsAsNarrow)
{
    Buffer buffer;
    EXPECT_EQ(swprintf(buffer.data(), L"%10s", "ab"), 10);
    EXPECT_STREQ(buffer.data(), L"        ab");
}

TEST(swprintf, ReadsCapitalSAsWide)
{
    Buffer buffer;
    EXPECT_EQ(swprintf(buffer.data(), L"%S", L"ab"), 2);
    EXPECT_STREQ(buffer.data(), L"ab");
}

TEST(swprintf, ReadsCAsAByte)
{
    Buffer buffer;
    EXPECT_EQ(swprintf(buffer.data(), L"%c%lc", L'\u0141', L'\u0141'), 2);
    EXPECT_STREQ(buffer.data(), L"A\u0141");
}

TEST(swprintf, TurnsPercentPercentSIntoPercentLs)
{
    Buffer buffer;
    EXPECT_EQ(swprintf(buffer.data(), L"%%s"), 3);
    EXPECT_STREQ(buffer.data(), L"%ls");
}

TEST(swprintf, GivesUpBeyond524287Characters)
{
    Buffer buffer;
    EXPECT_EQ(swprintf(buffer.data(), L"%524288d", 1), -1);
    EXPECT_EQ(buffer.contents(), Buffer::untouched());
}

TEST(wsprintfW, WritesMoreThan1024Characters)
{
    std::vector<wchar_t> buffer(2001, L'#');
    EXPECT_EQ(wsprintfW(buffer.data(), L"%2000d", 1), 2000);
    EXPECT_EQ(std::wstring(buffer.data()), std::wstring(1999, L' ') + L"1");
}

TEST(wsprintfW, ReadsFormatsAsSwprintfDoes)
{
    expectFormatLanguageOfSwprintf(
        [](const wchar_t* format, const wchar_t* wide, const char* narrow)
        {
            Buffer buffer;
            wsprintfW(buffer.data(), format, wide, narrow);
            return std::wstring(buffer.data());
        });
}

} // namespace
