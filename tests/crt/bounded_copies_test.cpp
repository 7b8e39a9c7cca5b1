#include "kest/crt/strings.h"
#include "kest/kernel/strings.h"

#include "harness/guarded_text.h"
#include "harness/sentinel_buffer.h"

#include <cerrno>
#include <climits>
#include <cstring>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

using namespace std::string_literals;
using kest::test::GuardedText;
using kest::test::SentinelBuffer;

namespace
{

constexpr int untouchedErrno = 77;
constexpr wchar_t* noWide = nullptr;
constexpr std::size_t noLimit = static_cast<std::size_t>(-1);

using Wide = SentinelBuffer<wchar_t, 12>;
using Narrow = SentinelBuffer<char, 12>;

// ---- wcsncpy_s -----------------------------------------------------------------------------------------------------

struct CountedCopy
{
    int size;
    const wchar_t* source;
    unsigned long count;
    int result;
    std::wstring written;
};

TEST(BoundedCopies, CountedCopyTakesAllOrNothing)
{
    const std::vector<CountedCopy> rows = {
        {10, L"abc", 3, 0, L"abc\0"s},
        {10, L"abc", 4, 0, L"abc\0"s},
        {10, L"abc", noLimit, 0, L"abc\0"s},
        {10, L"abc", 2, 0, L"ab\0"s},
        {4, L"abc", 3, 0, L"abc\0"s},
        {3, L"abc", 2, 0, L"ab\0"s},
        {10, L"", 5, 0, L"\0"s},
        {1, L"", 5, 0, L"\0"s},
        // Too small: emptied.
        {3, L"abc", 3, -1, L"\0"s},
        {3, L"abc", 100, -1, L"\0"s},
        {3, L"abcdef", 100, -1, L"\0"s},
        {1, L"a", 1, -1, L"\0"s},
        // Count 0: emptied.
        {10, L"abc", 0, -1, L"\0"s},
        {10, L"", 0, -1, L"\0"s},
        {1, L"abc", 0, -1, L"\0"s},
        // No size, no source: untouched.
        {0, L"abc", 3, -1, L""},
        {0, L"abc", 0, -1, L""},
        {-1, L"abc", 3, -1, L""},
        {INT_MIN, L"abc", 3, -1, L""},
        {10, nullptr, 3, -1, L""},
        {10, nullptr, 0, -1, L""},
    };
    for (const CountedCopy& row : rows)
    {
        Wide buffer;
        errno = untouchedErrno;
        EXPECT_EQ(wcsncpy_s(buffer.data(), row.size, row.source, row.count), row.result);
        EXPECT_EQ(buffer.contents(), Wide::startingWith(row.written))
            << row.size << ", " << (row.source == nullptr ? L"null" : row.source) << ", " << row.count;
        EXPECT_EQ(errno, untouchedErrno);
    }
}

TEST(BoundedCopies, CountedCopyRefusesANullDestination)
{
    EXPECT_EQ(wcsncpy_s(noWide, 10, L"abc", 3), -1);
    EXPECT_EQ(wcsncpy_s(noWide, 10, L"abc", 0), -1);
}

TEST(BoundedCopies, CountedCopyReadsNoFurtherThanItMust)
{
    GuardedText<wchar_t> source(L"abcd");
    Wide buffer;
    EXPECT_EQ(wcsncpy_s(buffer.data(), 10, source.data(), 4), 0);
    EXPECT_EQ(buffer.contents(), Wide::startingWith(L"abcd\0"s));
    EXPECT_EQ(wcsncpy_s(buffer.data(), 4, source.data(), 100), -1);
    EXPECT_EQ(buffer.contents(), Wide::startingWith(L"\0bcd\0"s));
}

TEST(BoundedCopies, CountedCopyWithoutSizeCopiesOneLess)
{
    const std::vector<CountedCopy> rows = {
        {0, L"abcdef", 7, 0, L"abcdef\0"s},
        {0, L"abcdef", 100, 0, L"abcdef\0"s},
        {0, L"abcdef", 6, 0, L"abcde\0"s},
        {0, L"abcdef", 2, 0, L"a\0"s},
        {0, L"abcdef", 1, -1, L"\0"s},
        {0, L"", 1, 0, L"\0"s},
        {0, L"abcdef", 0, -1, L""},
        {0, nullptr, 5, -1, L""},
        // The count is a 32-bit signed size.
        {0, L"abcdef", 0xFFFFFFFFUL, -1, L""},
        {0, L"abcdef", noLimit, -1, L""},
        {0, L"abcdef", 0x100000004UL, 0, L"abc\0"s},
    };
    for (const CountedCopy& row : rows)
    {
        Wide buffer;
        errno = untouchedErrno;
        EXPECT_EQ(wcsncpy_s(buffer.data(), row.source, row.count), row.result);
        EXPECT_EQ(buffer.contents(), Wide::startingWith(row.written)) << row.count;
        EXPECT_EQ(errno, untouchedErrno);
    }
    EXPECT_EQ(wcsncpy_s(noWide, L"abc", 3), -1);
}

TEST(wcsncpys, EmptiesAndRefusesForCountZero)
{
    Wide buffer;
    EXPECT_EQ(wcsncpy_s(buffer.data(), 10, L"abc", 0), -1);
    EXPECT_EQ(buffer.contents(), Wide::startingWith(L"\0"s));
}

TEST(wcsncpys, KnowsNoTruncateCount)
{
    Wide buffer;
    EXPECT_EQ(wcsncpy_s(buffer.data(), 4, L"abcdef", noLimit), -1);
    EXPECT_EQ(buffer.contents(), Wide::startingWith(L"\0"s));
}

TEST(wcsncpys, LeavesTheDestinationForANullSource)
{
    Wide buffer;
    EXPECT_EQ(wcsncpy_s(buffer.data(), 10, nullptr, 3), -1);
    EXPECT_EQ(buffer.contents(), Wide::untouched());
}

TEST(wcsncpys, TakesTheCountForTheSize)
{
    Wide buffer;
    EXPECT_EQ(wcsncpy_s(buffer.data(), L"abcdef", 4), 0);
    EXPECT_EQ(buffer.contents(), Wide::startingWith(L"abc\0"s));
}

// ---- wcscpy_s ------------------------------------------------------------------------------------------------------

struct SizedCopy
{
    int size;
    const wchar_t* source;
    int result;
    std::wstring written;
};

TEST(BoundedCopies, SizedCopyCutsWhatDoesNotFit)
{
    const std::vector<SizedCopy> rows = {
        {7, L"abcdef", 0, L"abcdef\0"s},
        {12, L"abcdef", 0, L"abcdef\0"s},
        {6, L"abcdef", 0, L"abcde\0"s},
        {4, L"abcdef", 0, L"abc\0"s},
        {2, L"abcdef", 0, L"a\0"s},
        {1, L"a", -1, L"\0"s},
        {1, L"abcdef", -1, L"\0"s},
        {1, L"", 0, L"\0"s},
        {12, L"", 0, L"\0"s},
        {0, L"a", -1, L""},
        {0, L"", -1, L""},
        {-1, L"a", -1, L""},
        {INT_MIN, L"a", -1, L""},
        {4, nullptr, -1, L""},
        {1, nullptr, -1, L""},
    };
    for (const SizedCopy& row : rows)
    {
        Wide buffer;
        errno = untouchedErrno;
        EXPECT_EQ(wcscpy_s(buffer.data(), row.size, row.source), row.result);
        EXPECT_EQ(buffer.contents(), Wide::startingWith(row.written))
            << row.size << ", " << (row.source == nullptr ? L"null" : row.source);
        EXPECT_EQ(errno, untouchedErrno);
    }
    EXPECT_EQ(wcscpy_s(noWide, 4, L"a"), -1);
}

TEST(BoundedCopies, SizedCopyReadsNoFurtherThanItsSize)
{
    GuardedText<wchar_t> source(L"abcd");
    Wide buffer;
    EXPECT_EQ(wcscpy_s(buffer.data(), 4, source.data()), 0);
    EXPECT_EQ(buffer.contents(), Wide::startingWith(L"abc\0"s));
}

TEST(BoundedCopies, PlainCopyTakesTheWholeString)
{
    for (const std::wstring& source : {L""s, L"a"s, L"abcdef"s})
    {
        Wide buffer;
        EXPECT_EQ(wcscpy_s(buffer.data(), source.c_str()), 0);
        EXPECT_EQ(buffer.contents(), Wide::startingWith(source + L'\0'));
    }
}

TEST(wcscpys, TruncatesTooLongSource)
{
    Wide buffer;
    EXPECT_EQ(wcscpy_s(buffer.data(), 4, L"abcdef"), 0);
    EXPECT_EQ(buffer.contents(), Wide::startingWith(L"abc\0"s));
}

TEST(wcscpys, LeavesTheDestinationForANullSource)
{
    Wide buffer;
    EXPECT_EQ(wcscpy_s(buffer.data(), 4, nullptr), -1);
    EXPECT_EQ(buffer.contents(), Wide::untouched());
}

TEST(wcscpys, KnowsNoSizeOfAnArray)
{
    struct
    {
        wchar_t array[2];
        wchar_t behind[6];
    } memory = {};
    wchar_t* volatile destination = memory.array;
    EXPECT_EQ(wcscpy_s(destination, L"abcd"), 0);
    EXPECT_EQ(memory.behind[1], L'd');
}

// ---- wcsncat_s -----------------------------------------------------------------------------------------------------

struct CountedAppend
{
    int size;
    const wchar_t* source;
    int count;
    int result;
    std::wstring written;
};

TEST(BoundedCopies, AppendTakesTheSmallestOfSizeCountAndLength)
{
    const std::vector<CountedAppend> rows = {
        {5, L"abcdef", 3, 0, L"xyabc\0"s},  {3, L"abcdef", 5, 0, L"xyabc\0"s},
        {10, L"abc", 10, 0, L"xyabc\0"s},   {1, L"abc", 10, 0, L"xya\0"s},
        {10, L"", 10, 0, L"xy\0"s},         {10, L"abc", 0, 0, L"xy\0"s},
        {0, L"abc", 10, 0, L"xy\0"s},       {10, L"abc", -1, 0, L"xy\0"s},
        {10, L"abc", INT_MIN, 0, L"xy\0"s}, {-1, L"abc", 10, 0, L"xy\0"s},
        {INT_MIN, L"abc", 10, 0, L"xy\0"s}, {INT_MAX, L"abc", INT_MAX, 0, L"xyabc\0"s},
        {10, nullptr, 10, -1, L"xy\0"s},    {10, nullptr, 0, -1, L"xy\0"s},
    };
    for (const CountedAppend& row : rows)
    {
        Wide buffer(L"xy");
        errno = untouchedErrno;
        EXPECT_EQ(wcsncat_s(buffer.data(), row.size, row.source, row.count), row.result);
        EXPECT_EQ(buffer.contents(), Wide::startingWith(row.written)) << row.size << ", " << row.count;
        EXPECT_EQ(errno, untouchedErrno);
    }
    EXPECT_EQ(wcsncat_s(noWide, 10, L"abc", 0), 0);
    EXPECT_EQ(wcsncat_s(noWide, 10, nullptr, 5), -1);
}

TEST(BoundedCopies, AppendToAnEmptyString)
{
    Wide buffer(L"");
    EXPECT_EQ(wcsncat_s(buffer.data(), 5, L"abcdef", 3), 0);
    EXPECT_EQ(buffer.contents(), Wide::startingWith(L"abc\0"s));
}

TEST(BoundedCopies, AppendReadsNoFurtherThanItMust)
{
    GuardedText<wchar_t> source(L"abcd");
    Wide buffer(L"");
    EXPECT_EQ(wcsncat_s(buffer.data(), 4, source.data(), 100), 0);
    EXPECT_EQ(wcsncat_s(buffer.data(), 100, source.data(), 4), 0);
    EXPECT_EQ(buffer.contents(), Wide::startingWith(L"abcdabcd\0"s));
}

TEST(BoundedCopies, AppendOfAStringToItselfTakesItsOldLength)
{
    Wide buffer(L"ab");
    EXPECT_EQ(wcsncat_s(buffer.data(), 10, buffer.data(), 10), 0);
    EXPECT_EQ(buffer.contents(), Wide::startingWith(L"abab\0"s));
}

TEST(wcsncats, LimitsTheSourceAndNotTheResult)
{
    Wide buffer(L"1234");
    EXPECT_EQ(wcsncat_s(buffer.data(), 5, L"abcdef", 5), 0);
    EXPECT_EQ(buffer.contents(), Wide::startingWith(L"1234abcde\0"s));
}

// ---- strcpy_s, strncpy_s -------------------------------------------------------------------------------------------

struct PaddedCopy
{
    int size;
    const char* source;
    std::string written;
};

const std::vector<PaddedCopy>& paddedCopies()
{
    static const std::vector<PaddedCopy> rows = {
        {6, "abc", "abc\0\0\0"s}, {4, "abc", "abc\0"s}, {3, "abc", "abc"}, {2, "abc", "ab"},
        {1, "abc", "a"},          {3, "", "\0\0\0"s},   {0, "abc", ""},
    };
    return rows;
}

TEST(BoundedCopies, NarrowCopiesCutWithoutTerminatorAndPad)
{
    for (const PaddedCopy& row : paddedCopies())
    {
        const auto expected = Narrow::startingWith(row.written);
        errno = untouchedErrno;
        Narrow sized;
        EXPECT_EQ(strcpy_s(sized.data(), row.size, row.source), sized.data());
        EXPECT_EQ(sized.contents(), expected) << row.size;
        for (const unsigned long count : {0UL, 1UL, 100UL, noLimit})
        {
            Narrow sizedAndCounted;
            EXPECT_EQ(strncpy_s(sizedAndCounted.data(), row.size, row.source, count), sizedAndCounted.data());
            EXPECT_EQ(sizedAndCounted.contents(), expected) << row.size << ", " << count;
        }
        Narrow counted;
        EXPECT_EQ(strncpy_s(counted.data(), row.source, static_cast<unsigned long>(row.size)), counted.data());
        EXPECT_EQ(counted.contents(), expected) << row.size;
        EXPECT_EQ(errno, untouchedErrno);
    }
}

TEST(BoundedCopies, NarrowCopiesWithANegativeSizeWriteNothing)
{
    for (const int size : {-1, INT_MIN})
    {
        Narrow buffer;
        EXPECT_EQ(strcpy_s(buffer.data(), size, "abc"), buffer.data());
        EXPECT_EQ(strncpy_s(buffer.data(), size, "abc", 2), buffer.data());
        EXPECT_EQ(buffer.contents(), Narrow::untouched());
    }
}

TEST(BoundedCopies, NarrowCopyWithoutSizeTakesTheWholeString)
{
    Narrow buffer;
    EXPECT_EQ(strcpy_s(buffer.data(), "abc"), buffer.data());
    EXPECT_EQ(buffer.contents(), Narrow::startingWith("abc\0"s));
    EXPECT_EQ(strcpy_s(buffer.data(), ""), buffer.data());
    EXPECT_EQ(buffer.contents(), Narrow::startingWith("\0bc\0"s));
}

TEST(strcpys, AddsNoTerminatorWhenFull)
{
    Narrow buffer;
    strcpy_s(buffer.data(), 4, "abcdef");
    EXPECT_EQ(buffer.contents(), Narrow::startingWith("abcd"));
}

TEST(strcpys, ReturnsTheDestination)
{
    Narrow buffer;
    EXPECT_EQ(strcpy_s(buffer.data(), "abc"), buffer.data());
    EXPECT_EQ(strcpy_s(buffer.data(), 4, "abc"), buffer.data());
}

TEST(strcpys, KnowsNoSizeOfAnArray)
{
    struct
    {
        char array[2];
        char behind[6];
    } memory = {};
    char* volatile destination = memory.array;
    strcpy_s(destination, "abcd");
    EXPECT_EQ(memory.behind[1], 'd');
}

TEST(strncpys, IgnoresTheCount)
{
    Narrow buffer;
    strncpy_s(buffer.data(), 4, "abcdef", 1);
    EXPECT_EQ(buffer.contents(), Narrow::startingWith("abcd"));
}

TEST(strncpys, ReturnsTheDestination)
{
    Narrow buffer;
    EXPECT_EQ(strncpy_s(buffer.data(), 4, "abc", 3), buffer.data());
    EXPECT_EQ(strncpy_s(buffer.data(), "abc", 3), buffer.data());
}

TEST(strncpys, AddsNoTerminatorWhenFull)
{
    Narrow buffer;
    strncpy_s(buffer.data(), "abcdef", 3);
    EXPECT_EQ(buffer.contents(), Narrow::startingWith("abc"));
}

// ---- memcpy_s, wmemcpy_s -------------------------------------------------------------------------------------------

struct ByteCopy
{
    std::size_t size;
    const char* source;
    std::size_t count;
    int result;
    std::string written;
};

TEST(BoundedCopies, BytesAreCopiedOrZeroed)
{
    const std::vector<ByteCopy> rows = {
        {8, "a\0cdefgh", 4, 0, "a\0cd"s},
        {4, "abcdefgh", 4, 0, "abcd"s},
        {4, "abcdefgh", 8, -1, "\0\0\0\0"s},
        {4, "abcdefgh", 5, -1, "\0\0\0\0"s},
        {4, "abcdefgh", noLimit, -1, "\0\0\0\0"s},
        {4, nullptr, 2, -1, "\0\0\0\0"s},
        {0, "abcdefgh", 1, -1, ""},
        {4, nullptr, 0, 0, ""},
        {4, "abcdefgh", 0, 0, ""},
        {0, nullptr, 0, 0, ""},
    };
    for (const ByteCopy& row : rows)
    {
        Narrow buffer;
        errno = untouchedErrno;
        EXPECT_EQ(memcpy_s(buffer.data(), row.size, row.source, row.count), row.result);
        EXPECT_EQ(buffer.contents(), Narrow::startingWith(row.written)) << row.size << ", " << row.count;
        EXPECT_EQ(errno, untouchedErrno);
    }
    EXPECT_EQ(memcpy_s(nullptr, 4, "abc", 0), 0);
    EXPECT_EQ(memcpy_s(nullptr, 0, nullptr, 1), -1);
}

TEST(BoundedCopies, OverlappingBytesComeOutWhole)
{
    char memory[] = "abcdef";
    EXPECT_EQ(memcpy_s(memory + 1, 5, memory, 5), 0);
    EXPECT_STREQ(memory, "aabcde");
}

TEST(memcpys, AnswersMinusOne)
{
    Narrow buffer;
    EXPECT_EQ(memcpy_s(buffer.data(), 4, "abcdefgh", 8), -1);
    EXPECT_EQ(memcpy_s(buffer.data(), 4, nullptr, 1), -1);
}

struct WideMemoryCopy
{
    std::size_t size;
    const wchar_t* source;
    std::size_t count;
    int result;
    std::wstring written;
};

TEST(BoundedCopies, WideMemoryIsCopiedAsAString)
{
    const std::vector<WideMemoryCopy> rows = {
        // Size not below count: as much as the count and the string give.
        {10, L"ab", 5, 0, L"ab\0\0\0\0\0\0\0\0"s},
        {5, L"abcdef", 3, 0, L"abc\0\0"s},
        {5, L"abcdef", 5, 0, L"abcde"s},
        {4, L"ab\0d", 4, 0, L"ab\0\0"s},
        {3, L"", 3, 0, L"\0\0\0"s},
        // Size below count: the whole string or nothing.
        {1, L"abc", 5, -1, L"\0"s},
        {2, L"abc", 3, -1, L"\0\0"s},
        {2, L"abc", noLimit, -1, L"\0\0"s},
        {3, L"abc", 5, 0, L"abc"s},
        {4, L"abc", 5, 0, L"abc\0"s},
        {4, L"", 5, 0, L"\0\0\0\0"s},
        {0, L"", 5, 0, L""},
        {0, L"a", 5, -1, L""},
        // Zeroed first and always.
        {3, L"abc", 0, 0, L"\0\0\0"s},
        {3, nullptr, 3, -1, L"\0\0\0"s},
        {3, nullptr, 0, -1, L"\0\0\0"s},
        {0, L"abc", 0, 0, L""},
        {0, nullptr, 0, -1, L""},
    };
    for (const WideMemoryCopy& row : rows)
    {
        Wide buffer;
        errno = untouchedErrno;
        EXPECT_EQ(wmemcpy_s(buffer.data(), row.size, row.source, row.count), row.result);
        EXPECT_EQ(buffer.contents(), Wide::startingWith(row.written)) << row.size << ", " << row.count;
        EXPECT_EQ(errno, untouchedErrno);
    }
    EXPECT_EQ(wmemcpy_s(nullptr, 0, L"", 5), 0);
}

TEST(BoundedCopies, WideMemoryCopyReadsNoFurtherThanItMust)
{
    GuardedText<wchar_t> source(L"abcd");
    Wide buffer;
    EXPECT_EQ(wmemcpy_s(buffer.data(), 6, source.data(), 4), 0);
    EXPECT_EQ(buffer.contents(), Wide::startingWith(L"abcd\0\0"s));
    EXPECT_EQ(wmemcpy_s(buffer.data(), 3, source.data(), 100), -1);
    EXPECT_EQ(buffer.contents(), Wide::startingWith(L"\0\0\0d\0\0"s));
}

TEST(wmemcpys, TreatsTheSourceAsAString)
{
    Wide buffer;
    EXPECT_EQ(wmemcpy_s(buffer.data(), 6, L"ab\0cd", 5), 0);
    EXPECT_EQ(buffer.contents(), Wide::startingWith(L"ab\0\0\0\0"s));
}

TEST(wmemcpys, ZeroesTheDestinationFirst)
{
    Wide buffer;
    EXPECT_EQ(wmemcpy_s(buffer.data(), 4, L"abc", 0), 0);
    EXPECT_EQ(buffer.contents(), Wide::startingWith(L"\0\0\0\0"s));
}

// ---- lstrcpyn ------------------------------------------------------------------------------------------------------

struct TerminatedCopy
{
    int size;
    const char* source;
    std::string written;
};

TEST(BoundedCopies, TerminatedCopyIsCutAndTerminated)
{
    const std::vector<TerminatedCopy> rows = {
        {4, "abcdef", "abc\0"s},
        {7, "abcdef", "abcdef\0"s},
        {8, "abcdef", "abcdef\0"s},
        {6, "abcdef", "abcde\0"s},
        {2, "abcdef", "a\0"s},
        {1, "abcdef", "\0"s},
        {1, nullptr, "\0"s},
        {0, "abcdef", ""},
        {0, nullptr, ""},
        {5, "", "\0"s},
        {-1, "abcdef", "abcdef\0"s},
        {INT_MIN, "abcdef", "abcdef\0"s},
        {INT_MAX, "abc", "abc\0"s},
    };
    for (const TerminatedCopy& row : rows)
    {
        errno = untouchedErrno;
        Narrow narrow;
        EXPECT_EQ(lstrcpynA(narrow.data(), row.source, row.size), narrow.data());
        EXPECT_EQ(narrow.contents(), Narrow::startingWith(row.written)) << row.size;
        const std::wstring source =
            row.source == nullptr ? L"" : std::wstring(row.source, row.source + std::strlen(row.source));
        Wide wide;
        EXPECT_EQ(lstrcpynW(wide.data(), row.source == nullptr ? nullptr : source.c_str(), row.size), wide.data());
        EXPECT_EQ(wide.contents(), Wide::startingWith({row.written.begin(), row.written.end()})) << row.size;
        EXPECT_EQ(errno, untouchedErrno);
    }
    EXPECT_EQ(lstrcpynA(nullptr, "abc", 0), nullptr);
    EXPECT_EQ(lstrcpynW(nullptr, L"abc", 0), nullptr);
}

TEST(BoundedCopies, TerminatedCopyReadsNoFurtherThanItMust)
{
    GuardedText<wchar_t> wideSource(L"abcd");
    Wide wide;
    lstrcpynW(wide.data(), wideSource.data(), 5);
    EXPECT_EQ(wide.contents(), Wide::startingWith(L"abcd\0"s));
    GuardedText<char> narrowSource("abcd");
    Narrow narrow;
    lstrcpynA(narrow.data(), narrowSource.data(), 5);
    EXPECT_EQ(narrow.contents(), Narrow::startingWith("abcd\0"s));
}

TEST(lstrcpynW, DiesOnNull)
{
    Wide buffer;
    EXPECT_DEATH(lstrcpynW(buffer.data(), nullptr, 5), "");
    EXPECT_DEATH(lstrcpynW(nullptr, L"abc", 5), "");
}

TEST(lstrcpynA, DiesOnNull)
{
    Narrow buffer;
    EXPECT_DEATH(lstrcpynA(buffer.data(), nullptr, 5), "");
    EXPECT_DEATH(lstrcpynA(nullptr, "abc", 5), "");
}

// ---- Symbols -------------------------------------------------------------------------------------------------------

TEST(BoundedCopies, HaveAPlainAndAnEncodedSymbolForOneBody)
{
    const std::vector<std::pair<const char*, const char*>> pairs = {
        {"wcscpy_s", "_Z8wcscpy_sPwiPKw"},
        {"wcsncpy_s", "_Z9wcsncpy_sPwiPKwm"},
        {"strcpy_s", "_Z8strcpy_sPciPKc"},
        {"strncpy_s", "_Z9strncpy_sPciPKcm"},
    };
    for (const auto& [plain, encoded] : pairs)
    {
        ASSERT_NE(dlsym(RTLD_DEFAULT, plain), nullptr) << plain;
        EXPECT_EQ(dlsym(RTLD_DEFAULT, plain), dlsym(RTLD_DEFAULT, encoded)) << plain;
    }
}

} // namespace
