#include "kest/crt/strings.h"
#include "kest/kernel/strings.h"
#include "kest/shell_paths.h"

#include "harness/scoped_locale.h"
#include "harness/scoped_table.h"

#include <cctype>
#include <cerrno>
#include <cstdint>
#include <cwchar>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

using kest::test::ScopedLocale;
using kest::test::ScopedTable;

namespace
{

constexpr const char* locales[] = {"C", "C.UTF-8"};

// ---- lstrcmpiW -----------------------------------------------------------------------------------------------------

struct Comparison
{
    std::vector<std::uint32_t> a;
    std::vector<std::uint32_t> b;
    int result;
};

std::wstring text(const std::vector<std::uint32_t>& codes)
{
    std::wstring result;
    for (const std::uint32_t code : codes)
    {
        result.push_back(static_cast<wchar_t>(code));
    }
    return result;
}

void expectComparisons(const std::vector<Comparison>& rows)
{
    for (const Comparison& row : rows)
    {
        errno = 77;
        EXPECT_EQ(lstrcmpiW(text(row.a).c_str(), text(row.b).c_str()), row.result)
            << testing::PrintToString(row.a) << " and " << testing::PrintToString(row.b);
        EXPECT_EQ(errno, 77);
    }
}

TEST(CaselessComparison, AnswersTheSameInEveryLocaleForMostText)
{
    const std::vector<Comparison> rows = {
        {{}, {}, 0},
        {{'A', 'B', 'C'}, {'a', 'b', 'c'}, 0},
        {{'a'}, {'b'}, -1},
        {{'b'}, {'a'}, 1},
        {{'A'}, {'b'}, -1},
        {{'a'}, {'B'}, -1},
        {{}, {'a'}, -'a'},
        {{}, {'A'}, -'a'},
        {{'A'}, {}, 'a'},
        {{'a', 'b'}, {'A', 'B', 'c'}, -'c'},
        {{'x', 'A', '1'}, {'X', 'a', '2'}, -1},
        // Upper case counts as lower: after all of the signs between them.
        {{'Z'}, {'['}, 'z' - '['},
        {{'['}, {'A'}, '[' - 'a'},
        // Codes to 255 go through the narrow table, which leaves them alone above 127 in both locales.
        {{0x80}, {'a'}, 0x80 - 'a'},
        {{0xC4}, {0xE5}, 0xC4 - 0xE5},
        {{0xFF}, {'A'}, 0xFF - 'a'},
        {{0xFF}, {0x100}, -1},
        // Codes above stand for themselves, also upper case ones.
        {{0x100}, {'A'}, 0x100 - 'a'},
        {{0x391}, {0x3B2}, 0x391 - 0x3B2},
        {{0x3B1}, {0x392}, 0x3B1 - 0x392},
        {{0x1F600}, {'a'}, 0x1F600 - 'a'},
        // Codes are signed: negative down to -128 they have entries, that of -1 being -1.
        {{0xFFFFFF80}, {'a'}, 0x80 - 'a'},
        {{0xFFFFFF80}, {}, 0x80},
        {{0xFFFFFFC4}, {0x100}, 0xC4 - 0x100},
        {{0xFFFFFFFE}, {}, 0xFE},
        {{0xFFFFFFFF}, {'A'}, -1 - 'a'},
        {{0xFFFFFF7F}, {'A'}, -129 - 'a'},
        {{0x80000000}, {}, INT32_MIN},
        {{0x7FFFFFFF}, {}, INT32_MAX},
        // Different, and yet equal numbers.
        {{0xFFFFFF80}, {0x80}, 0},
        // The difference wraps.
        {{0x80000000}, {0x7FFFFFFF}, 1},
        {{0x7FFFFFFF}, {0x80000000}, -1},
        {{0x80000000}, {'A'}, INT32_MAX - 'a' + 1},
    };
    for (const char* name : locales)
    {
        SCOPED_TRACE(name);
        ScopedLocale locale(name);
        expectComparisons(rows);
    }
}

TEST(CaselessComparison, FoldsOnlyAsciiInTheClassicLocale)
{
    ScopedLocale locale("C");
    expectComparisons({
        {{0xC4}, {0xE4}, 0xC4 - 0xE4},
        {{0x391}, {0x3B1}, 0x391 - 0x3B1},
        {{0x130}, {'i'}, 0x130 - 'i'},
    });
}

TEST(CaselessComparison, FoldsWideCharactersInAUnicodeLocale)
{
    ScopedLocale locale("C.UTF-8");
    expectComparisons({
        {{0xC4}, {0xE4}, 0},
        {{0x391}, {0x3B1}, 0},
        {{0x10400, 'A'}, {0x10428, 'a'}, 0},
        {{0xC4, 'A'}, {0xE4, 'b'}, -1},
    });
}

TEST(CaselessComparison, TakesTheTableFromMinus128To255)
{
    const ScopedTable lower(__ctype_tolower_loc(), [](int code) { return 1000 + code; });
    expectComparisons({
        {{0x80}, {}, 128},
        {{0xFF}, {}, 255},
        {{0x100}, {}, 256 - 1000},
        {{0xFFFFFF80}, {}, -128},
        {{0xFFFFFFFF}, {}, -1},
        {{0xFFFFFF7F}, {}, -129 - 1000},
        {{'B'}, {'a'}, 'B' - 'a'},
    });
}

TEST(lstrcmpiW, OrdersByCode)
{
    EXPECT_LT(lstrcmpiW(L"_", L"A"), 0);
    EXPECT_GT(lstrcmpiW(L"\u00E4", L"z"), 0);
}

TEST(lstrcmpiW, DiesOnNull)
{
    EXPECT_DEATH(lstrcmpiW(nullptr, L"a"), "");
    EXPECT_DEATH(lstrcmpiW(L"a", nullptr), "");
}

// ---- Comparisons that keep case ------------------------------------------------------------------------------------

TEST(Comparison, OfTheShellKeepsCase)
{
    EXPECT_EQ(StrCmpI(L"abc", L"abc"), 0);
    EXPECT_EQ(StrCmpI(L"", L""), 0);
    EXPECT_LT(StrCmpI(L"A", L"a"), 0);
    EXPECT_GT(StrCmpI(L"b", L"abc"), 0);
    EXPECT_LT(StrCmpI(L"ab", L"abc"), 0);
    EXPECT_NE(StrCmpI(L"A", L"a"), 0);
}

TEST(StrCmpI, ComparesCaseSensitively)
{
    EXPECT_NE(StrCmpI(L"A", L"a"), 0);
}

TEST(Comparison, OfTheLocaleKeepsCase)
{
    for (const char* name : locales)
    {
        ScopedLocale locale(name);
        EXPECT_EQ(_wcsicoll(L"abc", L"abc"), 0);
        EXPECT_LT(_wcsicoll(L"A", L"a"), 0);
        EXPECT_GT(_wcsicoll(L"b", L"a"), 0);
        EXPECT_EQ(_wcsicoll(L"A", L"b"), std::wcscoll(L"A", L"b"));
    }
}

TEST(wcsicoll, ComparesCaseSensitively)
{
    EXPECT_NE(_wcsicoll(L"A", L"a"), 0);
}

// ---- Search --------------------------------------------------------------------------------------------------------

TEST(Search, FindsTheFirstOccurrence)
{
    const wchar_t string[] = L"abcabd";
    EXPECT_EQ(StrStrIW(string, L"ab"), string);
    EXPECT_EQ(StrStrIW(string, L"abd"), string + 3);
    EXPECT_EQ(StrStrIW(string, L""), string);
    EXPECT_EQ(StrStrIW(string, L"abe"), nullptr);
    EXPECT_EQ(StrStrIW(string, L"AB"), nullptr);
    EXPECT_EQ(StrStrIW(L"", L"a"), nullptr);
}

TEST(Search, FindsTheFirstOccurrenceOfALongPart)
{
    const std::wstring unit = L"0123456789abcdefghijklmnopqrstuvwxyz";
    const std::wstring string = L"0123-" + unit + unit + L"!" + unit;
    EXPECT_EQ(StrStrIW(string.c_str(), unit.c_str()), string.c_str() + 5);
    EXPECT_EQ(StrStrIW(string.c_str(), (unit + L"!").c_str()), string.c_str() + 5 + unit.size());
    EXPECT_EQ(StrStrIW(string.c_str(), string.c_str()), string.c_str());
    EXPECT_EQ(StrStrIW(string.c_str(), (unit + L"?").c_str()), nullptr);
    EXPECT_EQ(StrStrIW(string.c_str(), (string + L"0").c_str()), nullptr);
    EXPECT_EQ(StrStrIW(L"", unit.c_str()), nullptr);
}

// Two letters make every kind of part that overlaps itself.
TEST(Search, FindsLongPartsThatRepeatThemselves)
{
    std::minstd_rand random(1);
    const auto letters = [&random](std::size_t length, std::size_t period)
    {
        std::wstring text;
        for (std::size_t index = 0; index < length; ++index)
        {
            text += index < period ? static_cast<wchar_t>(L'a' + static_cast<int>(random() >> 8 & 1))
                                   : text[index - period];
        }
        return text;
    };
    for (std::size_t round = 0; round < 2000; ++round)
    {
        const std::wstring part = letters(28 + round % 12, 1 + round % 9);
        const std::wstring string =
            letters(round % 7, 7) + part.substr(0, round % part.size()) + part.substr(round % 5) + part;
        EXPECT_EQ(StrStrIW(string.c_str(), part.c_str()), string.c_str() + string.find(part)) << round;
        const std::wstring cut = string.substr(0, string.size() - 1);
        const std::size_t place = cut.find(part);
        EXPECT_EQ(StrStrIW(cut.c_str(), part.c_str()), place == std::wstring::npos ? nullptr : cut.c_str() + place)
            << round;
    }
}

TEST(StrStrIW, SearchesCaseSensitively)
{
    EXPECT_EQ(StrStrIW(L"abc", L"B"), nullptr);
}

TEST(Search, CountsWhatIsNotInTheSet)
{
    EXPECT_EQ(_wcscspn(L"abc,d", L",;"), 3U);
    EXPECT_EQ(_wcscspn(L"abc", L""), 3U);
    EXPECT_EQ(_wcscspn(L"abc", L"xyz"), 3U);
    EXPECT_EQ(_wcscspn(L",abc", L","), 0U);
    EXPECT_EQ(_wcscspn(L"", L"a"), 0U);
}

} // namespace
