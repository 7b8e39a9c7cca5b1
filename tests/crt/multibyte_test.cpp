#include "kest/crt/strings.h"

#include "harness/scoped_locale.h"

#include <cerrno>
#include <climits>
#include <gtest/gtest.h>
#include <string>
#include <vector>

using kest::test::ScopedLocale;

namespace
{

constexpr const char* locales[] = {"C", "C.UTF-8"};

const unsigned char* bytes(const char* text)
{
    return reinterpret_cast<const unsigned char*>(text);
}

// A two-byte letter in its two cases.
constexpr const char* upperUmlaut = "\xC3\x84";
constexpr const char* lowerUmlaut = "\xC3\xA4";

TEST(MultibyteStrings, AreSteppedThroughByByte)
{
    const unsigned char* const text = bytes("\xC3\x84xyz");
    EXPECT_EQ(_mbsinc(text), text + 1);
    EXPECT_EQ(_mbsinc(text + 5), text + 6);
    EXPECT_EQ(_mbsninc(text, 0), text);
    EXPECT_EQ(_mbsninc(text, 4), text + 4);
}

TEST(mbsinc, StepsOneByte)
{
    ScopedLocale locale("C.UTF-8");
    const unsigned char* const text = bytes(upperUmlaut);
    EXPECT_EQ(_mbsinc(text), text + 1);
}

TEST(mbsninc, StepsBytes)
{
    ScopedLocale locale("C.UTF-8");
    const unsigned char* const text = bytes("\xC3\x84\0x");
    EXPECT_EQ(_mbsninc(text, 2), text + 2);
    EXPECT_EQ(_mbsninc(text, 4), text + 4);
}

// Every byte, and codes around and far from them.
std::vector<unsigned int> codes()
{
    std::vector<unsigned int> result = {256, 257, 0x3000, 0x8140, 0xFFFF, INT_MAX, 0x80000000U, 0xFFFFFF7FU};
    for (unsigned int code = 0; code < 256; ++code)
    {
        result.push_back(code);
        result.push_back(code - 128);
    }
    return result;
}

TEST(ismbblead, KnowsNoLeadBytes)
{
    for (const char* name : locales)
    {
        ScopedLocale locale(name);
        for (const unsigned int code : codes())
        {
            EXPECT_EQ(_ismbblead(code), 0) << code;
        }
    }
}

TEST(ismbbtrail, KnowsNoTrailBytes)
{
    for (const char* name : locales)
    {
        ScopedLocale locale(name);
        for (const unsigned int code : codes())
        {
            EXPECT_EQ(_ismbbtrail(code), 0) << code;
        }
    }
}

TEST(MultibyteStrings, KnowWhiteSpaceByItsClassBit)
{
    for (const char* name : locales)
    {
        ScopedLocale locale(name);
        for (const unsigned int code : codes())
        {
            const bool space = (code >= 9 && code <= 13) || code == ' ';
            EXPECT_EQ(_ismbcspace(code), space ? 8192 : 0) << code;
        }
    }
}

TEST(ismbcspace, KnowsSingleBytesOnly)
{
    EXPECT_EQ(_ismbcspace(0x8140), 0);
    EXPECT_EQ(_ismbcspace(0x2020), 0);
}

TEST(MultibyteStrings, HaveALengthInBytes)
{
    EXPECT_EQ(_mbslen(bytes("")), 0U);
    EXPECT_EQ(_mbslen(bytes("abc\0def")), 3U);
    EXPECT_EQ(_mbslen(bytes("\xFF\x80")), 2U);
}

TEST(mbslen, CountsBytes)
{
    ScopedLocale locale("C.UTF-8");
    EXPECT_EQ(_mbslen(bytes(upperUmlaut)), 2U);
}

int sign(int number)
{
    return (number > 0) - (number < 0);
}

struct Comparison
{
    const char* a;
    const char* b;
    int withCase;
    int withoutCase;
};

TEST(MultibyteStrings, AreComparedByByte)
{
    const std::vector<Comparison> rows = {
        {"", "", 0, 0},
        {"abc", "abc", 0, 0},
        {"ABC", "abc", -1, 0},
        {"abc", "ABD", 1, -1},
        {"ab", "abc", -1, -1},
        {"b", "abc", 1, 1},
        {"Z", "a", -1, 1},
        // Bytes are unsigned.
        {"a", "\xC4", -1, -1},
        {"\x80", "\x7F", 1, 1},
        {upperUmlaut, lowerUmlaut, -1, -1},
    };
    for (const char* name : locales)
    {
        ScopedLocale locale(name);
        for (const Comparison& row : rows)
        {
            SCOPED_TRACE(std::string(row.a) + " and " + row.b);
            const unsigned char* const a = bytes(row.a);
            const unsigned char* const b = bytes(row.b);
            errno = 77;
            EXPECT_EQ(sign(_mbscmp(a, b)), row.withCase);
            EXPECT_EQ(sign(_mbscoll(a, b)), row.withCase);
            EXPECT_EQ(sign(_mbsncoll(a, b, 100)), row.withCase);
            EXPECT_EQ(sign(_mbsicmp(a, b)), row.withoutCase);
            EXPECT_EQ(sign(_mbsicoll(a, b)), row.withoutCase);
            EXPECT_EQ(sign(_mbsnicmp(a, b, 100)), row.withoutCase);
            EXPECT_EQ(sign(_mbsnicoll(a, b, 100)), row.withoutCase);
            EXPECT_EQ(errno, 77);
        }
    }
}

struct CountedComparison
{
    const char* a;
    const char* b;
    std::size_t count;
    int withCase;
    int withoutCase;
};

TEST(MultibyteStrings, AreComparedUpToACountOfBytes)
{
    const std::vector<CountedComparison> rows = {
        {"abX", "abY", 2, 0, 0},
        {"abX", "abY", 3, -1, -1},
        {"ABx", "abY", 2, -1, 0},
        {"ABx", "abY", 3, -1, -1},
        {"a", "b", 0, 0, 0},
        {upperUmlaut, lowerUmlaut, 1, 0, 0},
        {upperUmlaut, lowerUmlaut, 2, -1, -1},
    };
    for (const CountedComparison& row : rows)
    {
        const unsigned char* const a = bytes(row.a);
        const unsigned char* const b = bytes(row.b);
        EXPECT_EQ(sign(_mbsncoll(a, b, row.count)), row.withCase) << row.a << row.b << row.count;
        EXPECT_EQ(sign(_mbsnicmp(a, b, row.count)), row.withoutCase) << row.a << row.b << row.count;
        EXPECT_EQ(sign(_mbsnicoll(a, b, row.count)), row.withoutCase) << row.a << row.b << row.count;
    }
}

TEST(mbsicmp, FoldsSingleBytesOnly)
{
    ScopedLocale locale("C.UTF-8");
    EXPECT_NE(_mbsicmp(bytes(upperUmlaut), bytes(lowerUmlaut)), 0);
}

TEST(mbsnicmp, CountsBytes)
{
    ScopedLocale locale("C.UTF-8");
    EXPECT_EQ(_mbsnicmp(bytes(upperUmlaut), bytes(lowerUmlaut), 1), 0);
}

TEST(mbscoll, ComparesBytes)
{
    EXPECT_GT(_mbscoll(bytes(lowerUmlaut), bytes("z")), 0);
}

TEST(mbsicoll, ComparesBytes)
{
    EXPECT_GT(_mbsicoll(bytes(lowerUmlaut), bytes("Z")), 0);
}

TEST(mbsncoll, ComparesBytes)
{
    EXPECT_GT(_mbsncoll(bytes(lowerUmlaut), bytes("z"), 1), 0);
    EXPECT_EQ(_mbsncoll(bytes(lowerUmlaut), bytes(upperUmlaut), 1), 0);
}

TEST(mbsnicoll, ComparesBytes)
{
    EXPECT_GT(_mbsnicoll(bytes(lowerUmlaut), bytes("Z"), 1), 0);
    EXPECT_EQ(_mbsnicoll(bytes(lowerUmlaut), bytes(upperUmlaut), 1), 0);
}

TEST(MultibyteStrings, AreSearchedByByte)
{
    const unsigned char* const text = bytes("ab\xC3\xA4"
                                            "abd");
    EXPECT_EQ(_mbsstr(text, bytes("abd")), text + 4);
    EXPECT_EQ(_mbsstr(text, bytes("")), text);
    EXPECT_EQ(_mbsstr(text, bytes(lowerUmlaut)), text + 2);
    EXPECT_EQ(_mbsstr(text, bytes("\xA4")), text + 3);
    EXPECT_EQ(_mbsstr(text, bytes("AB")), nullptr);
    EXPECT_EQ(_mbsstr(bytes(""), bytes("a")), nullptr);
}

} // namespace
