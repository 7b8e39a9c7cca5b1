#include "kest/companions/crt.h"

#include "harness/scoped_locale.h"
#include "harness/scoped_variable.h"
#include "harness/scratch_folder.h"
#include "harness/sentinel_buffer.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>

using namespace std::string_literals;
using kest::test::ScopedLocale;
using kest::test::ScopedVariable;
using kest::test::ScratchFolder;
using Narrow = kest::test::SentinelBuffer<char, 8>;
using Wide = kest::test::SentinelBuffer<wchar_t, 8>;

namespace
{

TEST(CaselessComparison, OrdersByTheLowerCase)
{
    EXPECT_EQ(_wcsicmp(L"Ab", L"aB"), 0);
    EXPECT_LT(_wcsicmp(L"a", L"B"), 0);
    EXPECT_GT(_wcsicmp(L"ab", L"A"), 0);
    EXPECT_EQ(_wcsnicmp(L"Abx", L"aBy", 2), 0);
    EXPECT_LT(_wcsnicmp(L"Abx", L"aBy", 3), 0);
    EXPECT_EQ(_stricmp("Ab", "aB"), 0);
    EXPECT_LT(_stricmp("a", "B"), 0);
    EXPECT_EQ(_strnicmp("Abx", "aBy", 2), 0);
    EXPECT_GT(_strnicmp("Aby", "aBx", 3), 0);
}

TEST(CaselessComparison, ComparesBytesBehindZeros)
{
    EXPECT_EQ(_memicmp("A\0b", "a\0B", 3), 0);
    EXPECT_LT(_memicmp("a\0b", "a\0C", 3), 0);
    EXPECT_GT(_memicmp("\xE9", "a", 1), 0);
    EXPECT_EQ(_memicmp(nullptr, nullptr, 0), 0);
}

TEST(Copies, BelongToTheCaller)
{
    wchar_t* const wide = _wcsdup(L"abc");
    EXPECT_STREQ(wide, L"abc");
    std::free(wide);
    char* const narrow = _strdup("abc");
    EXPECT_STREQ(narrow, "abc");
    std::free(narrow);
    EXPECT_EQ(_wcsdup(nullptr), nullptr);
    EXPECT_EQ(_strdup(nullptr), nullptr);
}

TEST(LowerCase, IsMadeOfStringsThatEndWithinTheSize)
{
    Wide buffer(L"AbC");
    EXPECT_EQ(_wcslwr_s(buffer.data(), 4), 0);
    EXPECT_EQ(buffer.contents(), Wide::startingWith(L"abc\0"s));
    Wide endless(L"AbC");
    EXPECT_EQ(_wcslwr_s(endless.data(), 3), EINVAL);
    EXPECT_EQ(endless.contents(), Wide::startingWith(L"\0bC\0"s));
    EXPECT_EQ(_wcslwr_s(nullptr, 3), EINVAL);
    EXPECT_EQ(_wcslwr_s(endless.data(), 0), EINVAL);
}

TEST(Tokens, AreFoundWithAPositionOfTheCallers)
{
    wchar_t wide[] = L",a,,b";
    wchar_t* widePosition = nullptr;
    EXPECT_STREQ(wcstok_s(wide, L",", &widePosition), L"a");
    EXPECT_STREQ(wcstok_s(nullptr, L",", &widePosition), L"b");
    EXPECT_EQ(wcstok_s(nullptr, L",", &widePosition), nullptr);
    char narrow[] = "a;b";
    char* position = nullptr;
    EXPECT_STREQ(strtok_s(narrow, ";", &position), "a");
    EXPECT_STREQ(strtok_s(nullptr, ";", &position), "b");
    EXPECT_EQ(strtok_s(nullptr, ";", &position), nullptr);
}

TEST(Tokens, AreNotLookedForWithoutAnArgument)
{
    wchar_t text[] = L"a";
    wchar_t* position = nullptr;
    for (wchar_t* const token :
         {wcstok_s(nullptr, L",", &position), wcstok_s(text, nullptr, &position), wcstok_s(text, L",", nullptr)})
        EXPECT_EQ(token, nullptr);
    errno = 0;
    EXPECT_EQ(strtok_s(nullptr, ",", nullptr), nullptr);
    EXPECT_EQ(errno, EINVAL);
}

TEST(SizedPrinting, EmptiesTheBufferOfATextThatDoesNotFit)
{
    Narrow buffer;
    EXPECT_EQ(sprintf_s(buffer.data(), 4, "%d", 123), 3);
    EXPECT_EQ(buffer.contents(), Narrow::startingWith("123\0"s));
    EXPECT_EQ(sprintf_s(buffer.data(), 4, "%d", 4567), -1);
    EXPECT_EQ(buffer.data()[0], '\0');
    EXPECT_EQ(std::string(buffer.contents(), 4), std::string(4, kest::test::sentinel<char>));
    EXPECT_EQ(sprintf_s(nullptr, 4, "x"), -1);
    Wide wide;
    EXPECT_EQ(swprintf_s(wide.data(), 4, L"%s", L"abc"), 3);
    EXPECT_EQ(wide.contents(), Wide::startingWith(L"abc\0"s));
    EXPECT_EQ(swprintf_s(wide.data(), 4, L"%s", L"wxyz"), -1);
    EXPECT_EQ(wide.contents(), Wide::startingWith(L"\0bc\0"s));
    EXPECT_EQ(swprintf_s(wide.data(), 0, L"x"), -1);
}

TEST(BoundedPrinting, TerminatesOnlyWhatIsShorter)
{
    Narrow buffer;
    EXPECT_EQ(_snprintf(buffer.data(), 4, "%s", "abc"), 3);
    EXPECT_EQ(buffer.contents(), Narrow::startingWith("abc\0"s));
    Narrow full;
    EXPECT_EQ(_snprintf(full.data(), 3, "%s", "abc"), 3);
    EXPECT_EQ(full.contents(), Narrow::startingWith("abc"));
    Narrow cut;
    EXPECT_EQ(_snprintf(cut.data(), 2, "%s", "abc"), -1);
    EXPECT_EQ(cut.contents(), Narrow::startingWith("ab"));
    EXPECT_EQ(_snprintf(nullptr, 0, "%s", "abc"), 3);
    EXPECT_EQ(_snprintf(nullptr, 1, "%s", "abc"), -1);
}

TEST(CountedPrinting, CutsToTheCountAndTellsSo)
{
    Wide buffer;
    EXPECT_EQ(_snwprintf_s(buffer.data(), 8, 3, L"%s", L"abc"), 3);
    EXPECT_EQ(_snwprintf_s(buffer.data(), 8, 2, L"%s", L"xyz"), -1);
    EXPECT_EQ(buffer.contents(), Wide::startingWith(L"xy\0\0"s));
    Wide truncated;
    EXPECT_EQ(_snwprintf_s(truncated.data(), 3, _TRUNCATE, L"%d", 1234), -1);
    EXPECT_EQ(truncated.contents(), Wide::startingWith(L"12\0"s));
    EXPECT_EQ(_snwprintf_s(truncated.data(), 3, 5, L"%d", 123456), -1); // neither count nor text fits
    EXPECT_EQ(truncated.contents(), Wide::startingWith(L"\0002\0"s));
}

TEST(snwprintfs, ReadsFormatsAsSwprintfDoes)
{
    Wide buffer;
    EXPECT_EQ(_snwprintf_s(buffer.data(), 8, 7, L"%s%hs", L"ab", "cd"), 4);
    EXPECT_EQ(buffer.contents(), Wide::startingWith(L"abcd\0"s));
}

TEST(Conversions, CutNoCharacterInTwo)
{
    const ScopedLocale utf8("C.UTF-8");
    std::size_t converted = 9;
    Narrow buffer;
    EXPECT_EQ(wcstombs_s(&converted, buffer.data(), 8, L"a\xE9", _TRUNCATE), 0);
    EXPECT_EQ(buffer.contents(), Narrow::startingWith("a\xC3\xA9\0"s));
    EXPECT_EQ(converted, 4U);
    Narrow cut;
    EXPECT_EQ(wcstombs_s(&converted, cut.data(), 3, L"a\xE9", _TRUNCATE), STRUNCATE);
    EXPECT_EQ(cut.contents(), Narrow::startingWith("a\0"s));
    EXPECT_EQ(converted, 2U);
    Narrow counted;
    EXPECT_EQ(wcstombs_s(&converted, counted.data(), 8, L"a\xE9", 2), 0);
    EXPECT_EQ(counted.contents(), Narrow::startingWith("a\0"s));
    EXPECT_EQ(wcstombs_s(&converted, nullptr, 0, L"a\xE9", 0), 0);
    Wide wide;
    EXPECT_EQ(mbstowcs_s(&converted, wide.data(), 8, "a\xC3\xA9", _TRUNCATE), 0);
    EXPECT_EQ(wide.contents(), Wide::startingWith(L"a\xE9\0"s));
    EXPECT_EQ(converted, 3U);
}

TEST(Conversions, TellTheRoomNeeded)
{
    std::size_t converted = 9;
    EXPECT_EQ(wcstombs_s(&converted, nullptr, 0, L"abc", _TRUNCATE), 0);
    EXPECT_EQ(converted, 4U);
    EXPECT_EQ(mbstowcs_s(&converted, nullptr, 0, "abc", 100), 0);
    EXPECT_EQ(converted, 4U);
}

TEST(Conversions, EmptyTheBufferOfATextThatDoesNotFit)
{
    std::size_t converted = 9;
    Wide wide;
    EXPECT_EQ(mbstowcs_s(&converted, wide.data(), 3, "abc", 5), ERANGE);
    EXPECT_EQ(wide.data()[0], L'\0');
    EXPECT_EQ(converted, 0U);
    Narrow exact;
    EXPECT_EQ(wcstombs_s(nullptr, exact.data(), 4, L"abc", 3), 0);
    EXPECT_EQ(exact.contents(), Narrow::startingWith("abc\0"s));
}

TEST(Conversions, RefuseArgumentsThatCannotBe)
{
    Narrow buffer;
    EXPECT_EQ(wcstombs_s(nullptr, nullptr, 4, L"a", 1), EINVAL);
    EXPECT_EQ(wcstombs_s(nullptr, buffer.data(), 0, L"a", 1), EINVAL);
    EXPECT_EQ(buffer.contents(), Narrow::untouched());
    EXPECT_EQ(wcstombs_s(nullptr, buffer.data(), 4, nullptr, 1), EINVAL);
    EXPECT_EQ(buffer.contents(), Narrow::startingWith("\0"s));
}

TEST(wcstombss, ReportsTheSystemsEILSEQ)
{
    const ScopedLocale classic("C");
    Narrow buffer;
    EXPECT_EQ(wcstombs_s(nullptr, buffer.data(), 8, L"a\xE9", _TRUNCATE), EILSEQ);
    EXPECT_EQ(buffer.data()[0], '\0');
    Wide wide;
    const ScopedLocale utf8("C.UTF-8");
    EXPECT_EQ(mbstowcs_s(nullptr, wide.data(), 8, "a\xFF", _TRUNCATE), EILSEQ);
    EXPECT_EQ(wide.data()[0], L'\0');
}

TEST(Descriptors, AreThoseOfTheStream)
{
    EXPECT_EQ(_fileno(stderr), 2);
    errno = 0;
    EXPECT_EQ(_fileno(nullptr), -1);
    EXPECT_EQ(errno, EINVAL);
}

TEST(Folders, AreMadeEnteredAndRemoved)
{
    const ScratchFolder scratch;
    const ScopedLocale utf8("C.UTF-8");
    EXPECT_EQ(_mkdir("narrow"), 0);
    EXPECT_EQ(_wmkdir(L"w\xEF"), 0);
    EXPECT_TRUE(std::filesystem::is_directory("w\xC3\xAF"));
    EXPECT_EQ(_wchdir(L"w\xEF"), 0);
    char buffer[4096];
    EXPECT_EQ(_getcwd(buffer, sizeof buffer), buffer);
    EXPECT_EQ(std::filesystem::path(buffer).filename(), "w\xC3\xAF");
    EXPECT_EQ(_chdir(".."), 0);
    EXPECT_EQ(_wrmdir(L"w\xEF"), 0);
    EXPECT_EQ(_rmdir("narrow"), 0);
    EXPECT_TRUE(std::filesystem::is_empty("."));
    errno = 0;
    EXPECT_EQ(_wrmdir(nullptr), -1);
    EXPECT_EQ(errno, EINVAL);
}

TEST(Folders, NeedANameThatTheLocaleHas)
{
    const ScratchFolder scratch;
    const ScopedLocale classic("C");
    errno = 0;
    EXPECT_EQ(_wmkdir(L"w\xEF"), -1);
    EXPECT_EQ(errno, EILSEQ);
    EXPECT_TRUE(std::filesystem::is_empty("."));
}

TEST(Files, AreAskedForAndRemoved)
{
    const ScratchFolder scratch;
    std::ofstream("a") << "12345";
    std::ofstream("b");
    EXPECT_EQ(_access("a", 0), 0);
    EXPECT_EQ(_unlink("a"), 0);
    EXPECT_EQ(_access("a", 0), -1);
    EXPECT_EQ(_wunlink(L"b"), 0);
    EXPECT_EQ(_wunlink(L"b"), -1);
    EXPECT_EQ(errno, ENOENT);
}

TEST(wstat64i32, FillsTheSystemsRecord)
{
    const ScratchFolder scratch;
    std::ofstream("a") << "12345";
    struct _stat64i32 record = {};
    EXPECT_EQ(_wstat64i32(L"a", &record), 0);
    EXPECT_EQ(record.st_size, 5);
    EXPECT_EQ(record.st_uid, geteuid());
    EXPECT_EQ(_wstat64i32(L"b", &record), -1);
}

TEST(EnvironmentCopies, BelongToTheCaller)
{
    const ScopedLocale utf8("C.UTF-8");
    const ScopedVariable variable("KEST_COPIED", "v\xC3\xA9");
    wchar_t* wide = nullptr;
    std::size_t size = 9;
    EXPECT_EQ(_wdupenv_s(&wide, &size, L"KEST_COPIED"), 0);
    EXPECT_STREQ(wide, L"v\xE9");
    EXPECT_EQ(size, 3U);
    std::free(wide);
    char* narrow = nullptr;
    EXPECT_EQ(_dupenv_s(&narrow, &size, "KEST_COPIED"), 0);
    EXPECT_STREQ(narrow, "v\xC3\xA9");
    EXPECT_EQ(size, 4U);
    std::free(narrow);
}

TEST(EnvironmentCopies, AreNullForWhatIsNotThere)
{
    wchar_t filler = 0;
    wchar_t* wide = &filler;
    std::size_t size = 9;
    EXPECT_EQ(_wdupenv_s(&wide, &size, L"KEST_NOT_SET"), 0);
    EXPECT_EQ(wide, nullptr);
    EXPECT_EQ(size, 0U);
    EXPECT_EQ(_wdupenv_s(nullptr, nullptr, L"X"), EINVAL);
    EXPECT_EQ(_wdupenv_s(&wide, nullptr, nullptr), EINVAL);
    const ScopedLocale utf8("C.UTF-8");
    const ScopedVariable broken("KEST_COPIED", "\xFF");
    EXPECT_EQ(_wdupenv_s(&wide, nullptr, L"KEST_COPIED"), EILSEQ);
    EXPECT_EQ(wide, nullptr);
}

TEST(SixtyFourBitTimes, AreBrokenDownAndPutTogether)
{
    const ScopedVariable zone("TZ", "EST5EDT");
    const long long seconds = 1720000000; // 3 July 2024, 09:46:40 universal time
    struct tm parts = {};
    EXPECT_EQ(_gmtime64_s(&parts, &seconds), 0);
    EXPECT_EQ(parts.tm_hour, 9);
    EXPECT_EQ(_localtime64_s(&parts, &seconds), 0);
    EXPECT_EQ(parts.tm_hour, 5);
    EXPECT_EQ(_mktime64(&parts), seconds);
    long long now = 0;
    const long long answer = _time64(&now);
    EXPECT_EQ(answer, now);
    EXPECT_GT(_time64(nullptr), seconds);
    errno = 0;
    EXPECT_EQ(_mktime64(nullptr), -1);
    EXPECT_EQ(errno, EINVAL);
}

TEST(SixtyFourBitTimes, BeginIn1970AndEndIn3000)
{
    for (const long long seconds : {-1LL, 32535216000LL})
    {
        struct tm parts = {};
        EXPECT_EQ(_gmtime64_s(&parts, &seconds), EINVAL);
        EXPECT_EQ(parts.tm_year, -1);
        EXPECT_EQ(parts.tm_isdst, -1);
    }
    struct tm parts = {};
    const long long last = 32535215999;
    EXPECT_EQ(_gmtime64_s(&parts, &last), 0);
    EXPECT_EQ(parts.tm_year, 1100);
    EXPECT_EQ(_gmtime64_s(nullptr, &last), EINVAL);
    EXPECT_EQ(_gmtime64_s(&parts, nullptr), EINVAL);
}

TEST(SixtyFourBitNumbers, AreRead)
{
    char* end = nullptr;
    EXPECT_EQ(_strtoi64("-9223372036854775808x", &end, 10), INT64_MIN);
    EXPECT_STREQ(end, "x");
    EXPECT_EQ(_strtoui64("0xffffffffffffffff", nullptr, 16), UINT64_MAX);
    EXPECT_EQ(_wcstoi64(L"-12", nullptr, 10), -12);
    EXPECT_EQ(_wcstoui64(L"777", nullptr, 8), 511U);
}

} // namespace
