#include "kest/companions/strsafe.h"

#include "harness/scoped_locale.h"
#include "harness/sentinel_buffer.h"

#include <cerrno>
#include <gtest/gtest.h>
#include <string>
#include <vector>

using namespace std::string_literals;
using Narrow = kest::test::SentinelBuffer<char, 8>;
using Wide = kest::test::SentinelBuffer<wchar_t, 8>;

namespace
{

constexpr HRESULT cut = STRSAFE_E_INSUFFICIENT_BUFFER;
constexpr HRESULT refused = STRSAFE_E_INVALID_PARAMETER;

TEST(SafeStrings, CopyWhatFits)
{
    struct Row
    {
        std::size_t size;
        const wchar_t* source;
        HRESULT result;
        std::wstring written; // with its terminator
    };
    const std::vector<Row> rows = {
        {4, L"abc", S_OK, L"abc\0"s}, {3, L"abc", cut, L"ab\0"s},
        {1, L"a", cut, L"\0"s},       {1, L"", S_OK, L"\0"s},
        {0, L"a", refused, L""},      {std::size_t{STRSAFE_MAX_CCH} + 1, L"a", refused, L""},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.size);
        errno = 7;
        Wide wide;
        EXPECT_EQ(StringCchCopyW(wide.data(), row.size, row.source), row.result);
        EXPECT_EQ(wide.contents(), Wide::startingWith(row.written));
        Wide bytes;
        EXPECT_EQ(StringCbCopyW(bytes.data(), row.size * sizeof(wchar_t), row.source), row.result);
        EXPECT_EQ(bytes.contents(), wide.contents());
        Narrow narrow;
        const std::string source(row.source, row.source + std::wcslen(row.source));
        EXPECT_EQ(StringCchCopyA(narrow.data(), row.size, source.c_str()), row.result);
        EXPECT_EQ(narrow.contents(), Narrow::startingWith({row.written.begin(), row.written.end()}));
        EXPECT_EQ(errno, 7);
    }
}

TEST(SafeStrings, NeedWholeCharactersOfASizeInBytes)
{
    Wide buffer;
    EXPECT_EQ(StringCbCopyW(buffer.data(), 3, L"a"), refused);
    EXPECT_EQ(StringCbCopyW(buffer.data(), 11, L"ab"), cut);
    EXPECT_EQ(buffer.contents(), Wide::startingWith(L"a\0"s));
}

TEST(SafeStrings, CopyAtMostACount)
{
    Narrow buffer;
    const char unterminated[] = {'a', 'b', 'c'};
    EXPECT_EQ(StringCchCopyNA(buffer.data(), 8, unterminated, 3), S_OK);
    EXPECT_EQ(buffer.contents(), Narrow::startingWith("abc\0"s));
    EXPECT_EQ(StringCchCopyNA(buffer.data(), 3, unterminated, 3), cut);
    EXPECT_EQ(buffer.contents(), Narrow::startingWith("ab\0\0"s));
    EXPECT_EQ(StringCchCopyNA(buffer.data(), 3, unterminated, STRSAFE_MAX_CCH), refused);
    Wide wide;
    EXPECT_EQ(StringCbCopyNW(wide.data(), 32, L"abc", 9), S_OK); // two whole characters
    EXPECT_EQ(wide.contents(), Wide::startingWith(L"ab\0"s));
}

TEST(SafeStrings, AppendBehindTheText)
{
    Wide buffer(L"ab");
    EXPECT_EQ(StringCchCatW(buffer.data(), 8, L"cd"), S_OK);
    EXPECT_EQ(buffer.contents(), Wide::startingWith(L"abcd\0"s));
    EXPECT_EQ(StringCchCatNW(buffer.data(), 8, L"efgh", 1), S_OK);
    EXPECT_EQ(buffer.contents(), Wide::startingWith(L"abcde\0"s));
    EXPECT_EQ(StringCchCatW(buffer.data(), 7, L"fgh"), cut);
    EXPECT_EQ(buffer.contents(), Wide::startingWith(L"abcdef\0"s));
    EXPECT_EQ(StringCchCatW(buffer.data(), 6, L""), refused); // no terminator within 6
    EXPECT_EQ(buffer.contents(), Wide::startingWith(L"abcdef\0"s));
}

TEST(SafeStrings, RefuseNullPointers)
{
    Wide buffer;
    EXPECT_EQ(StringCchCopyW(nullptr, 1, L""), refused);
    EXPECT_EQ(StringCchCopyW(buffer.data(), 1, nullptr), refused);
    EXPECT_EQ(StringCchPrintfW(buffer.data(), 1, nullptr), refused);
    EXPECT_EQ(buffer.contents(), Wide::untouched());
}

TEST(SafeStrings, PrintWhatFits)
{
    Wide wide;
    EXPECT_EQ(StringCchPrintfW(wide.data(), 8, L"%s-%d", L"ab", 12), S_OK);
    EXPECT_EQ(wide.contents(), Wide::startingWith(L"ab-12\0"s));
    EXPECT_EQ(StringCbPrintfW(wide.data(), 16, L"%s", L"xyz!"), cut);
    EXPECT_EQ(wide.contents(), Wide::startingWith(L"xyz\0002\0"s));
    Narrow narrow;
    EXPECT_EQ(StringCchPrintfA(narrow.data(), 8, "%s", "abc"), S_OK);
    EXPECT_EQ(narrow.contents(), Narrow::startingWith("abc\0"s));
    EXPECT_EQ(StringCbPrintfA(narrow.data(), 3, "%s", "xyz"), cut);
    EXPECT_EQ(narrow.contents(), Narrow::startingWith("xy\0\0"s));
}

TEST(SafeStrings, PrintNothingThatTheCLibraryRefuses)
{
    const kest::test::ScopedLocale classic("C");
    Narrow buffer;
    errno = 7;
    EXPECT_EQ(StringCchPrintfA(buffer.data(), 8, "%ls", L"\xE9"), refused);
    EXPECT_EQ(buffer.contents(), Narrow::startingWith("\0"s));
    EXPECT_EQ(errno, 7);
}

TEST(SafeStrings, TellWhereTheTextEnds)
{
    Wide wide;
    wchar_t* end = nullptr;
    std::size_t left = 0;
    EXPECT_EQ(StringCchCopyExW(wide.data(), 8, L"abc", &end, &left, 0), S_OK);
    EXPECT_EQ(end, wide.data() + 3);
    EXPECT_EQ(left, 5U);
    EXPECT_EQ(StringCbCatExW(wide.data(), 32, L"d", &end, &left, 0), S_OK);
    EXPECT_EQ(end, wide.data() + 4);
    EXPECT_EQ(left, 16U);
    EXPECT_EQ(StringCchPrintfExW(end, 4, &end, &left, 0, L"%d", 12345), cut);
    EXPECT_EQ(end, wide.data() + 7);
    EXPECT_EQ(left, 1U);
    EXPECT_EQ(wide.contents(), Wide::startingWith(L"abcd123\0"s));
    EXPECT_EQ(StringCchCopyExW(wide.data(), 8, L"", nullptr, nullptr, 0), S_OK);
}

TEST(SafeStrings, TakeNullsForEmptyTextsOnRequest)
{
    Narrow buffer("x");
    EXPECT_EQ(StringCchCopyExA(buffer.data(), 8, nullptr, nullptr, nullptr, STRSAFE_IGNORE_NULLS), S_OK);
    EXPECT_EQ(buffer.contents(), Narrow::startingWith("\0\0"s));
    EXPECT_EQ(StringCchCopyExA(nullptr, 0, nullptr, nullptr, nullptr, STRSAFE_IGNORE_NULLS), S_OK);
    EXPECT_EQ(StringCchCopyExA(nullptr, 0, "a", nullptr, nullptr, STRSAFE_IGNORE_NULLS), cut);
    EXPECT_EQ(StringCchCatExA(nullptr, 0, nullptr, nullptr, nullptr, STRSAFE_IGNORE_NULLS), S_OK);
    EXPECT_EQ(StringCchPrintfExA(nullptr, 0, nullptr, nullptr, STRSAFE_IGNORE_NULLS, nullptr), S_OK);
    EXPECT_EQ(StringCchCopyExA(nullptr, 1, "", nullptr, nullptr, STRSAFE_IGNORE_NULLS), refused);
}

TEST(SafeStrings, FillBuffersOnRequest)
{
    char* end = nullptr;
    std::size_t left = 0;
    Narrow behind;
    EXPECT_EQ(StringCchCopyExA(behind.data(), 6, "ab", nullptr, nullptr, STRSAFE_FILL_BEHIND_NULL | 'f'), S_OK);
    EXPECT_EQ(behind.contents(), Narrow::startingWith("ab\0fff"s));
    Narrow failed;
    EXPECT_EQ(StringCchCopyExA(failed.data(), 6, "abcdef", &end, &left, STRSAFE_FILL_ON_FAILURE | 'f'), cut);
    EXPECT_EQ(failed.contents(), Narrow::startingWith("fffff\0"s));
    EXPECT_EQ(end, failed.data() + 5);
    EXPECT_EQ(left, 1U);
    Narrow zeroed;
    EXPECT_EQ(StringCchCopyExA(zeroed.data(), 6, "abcdef", &end, &left, STRSAFE_FILL_ON_FAILURE), cut);
    EXPECT_EQ(zeroed.contents(), Narrow::startingWith("\0\0\0\0\0\0"s));
    EXPECT_EQ(end, zeroed.data());
    EXPECT_EQ(left, 6U);
}

TEST(SafeStrings, EmptyBuffersOfFailuresOnRequest)
{
    Wide buffer;
    EXPECT_EQ(StringCchCopyExW(buffer.data(), 3, L"abc", nullptr, nullptr, STRSAFE_NULL_ON_FAILURE), cut);
    EXPECT_EQ(buffer.contents(), Wide::startingWith(L"\0b\0"s));
    Wide null(L"x");
    EXPECT_EQ(StringCchCopyExW(null.data(), 3, nullptr, nullptr, nullptr, STRSAFE_NULL_ON_FAILURE), refused);
    EXPECT_EQ(null.contents(), Wide::startingWith(L"\0\0"s));
}

TEST(SafeStrings, CutNothingOnRequest)
{
    Wide buffer(L"ab");
    EXPECT_EQ(StringCchCatExW(buffer.data(), 4, L"cde", nullptr, nullptr, STRSAFE_NO_TRUNCATION), cut);
    EXPECT_EQ(buffer.contents(), Wide::startingWith(L"ab\0"s));
    EXPECT_EQ(StringCchCopyExW(buffer.data(), 2, L"xyz", nullptr, nullptr, STRSAFE_NO_TRUNCATION), cut);
    EXPECT_EQ(buffer.contents(), Wide::startingWith(L"\0b\0"s));
}

TEST(SafeStrings, RefuseUnknownFlags)
{
    Wide buffer;
    EXPECT_EQ(StringCchCopyExW(buffer.data(), 4, L"a", nullptr, nullptr, 0x2000), refused);
    EXPECT_EQ(buffer.contents(), Wide::untouched());
}

TEST(SafeStrings, MeasureTextsThatEnd)
{
    std::size_t length = 9;
    EXPECT_EQ(StringCchLengthW(L"abc", 4, &length), S_OK);
    EXPECT_EQ(length, 3U);
    EXPECT_EQ(StringCbLengthW(L"abc", 16, &length), S_OK);
    EXPECT_EQ(length, 12U);
    EXPECT_EQ(StringCbLengthA("abc", 4, &length), S_OK);
    EXPECT_EQ(length, 3U);
    EXPECT_EQ(StringCchLengthA("abc", 4, nullptr), S_OK);
    const std::vector<std::pair<const wchar_t*, std::size_t>> endless = {
        {L"abc", 3}, {nullptr, 4}, {L"abc", 0}, {L"abc", std::size_t{STRSAFE_MAX_CCH} + 1}};
    for (const auto& [text, size] : endless)
    {
        length = 9;
        EXPECT_EQ(StringCchLengthW(text, size, &length), refused);
        EXPECT_EQ(length, 0U);
    }
}

} // namespace
