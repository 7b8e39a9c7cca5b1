#include "harness/scoped_locale.h"
#include "kest/kernel/locale.h"

#include <array>
#include <cerrno>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace
{

using kest::test::ScopedLocale;

constexpr WORD untouched = 0x5A5A;
constexpr DWORD characterType = 1;

// The words stored for a text, with two untouched ones behind; the answer and the last error are checked.
std::vector<WORD> classesOf(const std::wstring& text, DWORD type, int count)
{
    std::vector<WORD> words(text.size() + 2, untouched);
    errno = 4711;
    EXPECT_EQ(GetStringTypeExW(0x804, type, text.data(), count, words.data()), 1);
    EXPECT_EQ(errno, 4711);
    return words;
}

std::vector<WORD> classesOf(const std::wstring& text)
{
    return classesOf(text, characterType, static_cast<int>(text.size()));
}

TEST(CharacterClasses, StoreAWordForEachCharacter)
{
    EXPECT_EQ(classesOf(L"a1 ;"), (std::vector<WORD>{0x302, 0x284, 0x248, 0x300, untouched, untouched}));
}

TEST(CharacterClasses, OfAllAsciiCharacters)
{
    for (wchar_t character = 0; character < 128; ++character)
    {
        WORD expected = 0x300;
        if (std::wstring(L"0123456789").find(character) != std::wstring::npos)
        {
            expected = 644;
        }
        if (std::wstring(L"abcdefghijklmnopqrstuvwxyz").find(character) != std::wstring::npos)
        {
            expected = 770;
        }
        if (std::wstring(L"ABCDEFGHIJKLMNOPQRSTUVWXYZ").find(character) != std::wstring::npos)
        {
            expected = 769;
        }
        if (character == 32)
        {
            expected = 584;
        }
        EXPECT_EQ(classesOf(std::wstring(1, character)).front(), expected) << static_cast<int>(character);
    }
}

TEST(CharacterClasses, CountCharactersAndNotTerminators)
{
    EXPECT_EQ(classesOf(std::wstring(L"a\0b", 3), characterType, 3),
              (std::vector<WORD>{0x302, 0x300, 0x302, untouched, untouched}));
    EXPECT_EQ(classesOf(L"abc", characterType, 1),
              (std::vector<WORD>{0x302, untouched, untouched, untouched, untouched}));
}

TEST(CharacterClasses, StoreNothingForCountsBelowOne)
{
    const std::vector<WORD> nothing(5, untouched);
    EXPECT_EQ(classesOf(L"abc", characterType, 0), nothing);
    EXPECT_EQ(classesOf(L"abc", characterType, -2), nothing);
    EXPECT_EQ(GetStringTypeExW(0, characterType, nullptr, 0, nullptr), 1);
}

TEST(GetStringTypeExW, TakesOtherCharactersForLetters)
{
    EXPECT_EQ(classesOf(L"\t!\x7F\xE9\x4E2D\x1F600"),
              (std::vector<WORD>{0x300, 0x300, 0x300, 0x300, 0x300, 0x300, untouched, untouched}));
}

TEST(GetStringTypeExW, MarksNoHexadecimalLetters)
{
    EXPECT_EQ(classesOf(L"aF"), (std::vector<WORD>{0x302, 0x301, untouched, untouched}));
}

TEST(GetStringTypeExW, StoresNothingForOtherTypes)
{
    const std::vector<WORD> nothing(5, untouched);
    for (const DWORD type : {0U, 2U, 3U, 4U, 0xFFFFFFFFU})
    {
        EXPECT_EQ(classesOf(L"abc", type, 3), nothing) << type;
    }
}

TEST(GetStringTypeExW, KnowsNoTerminatedStrings)
{
    EXPECT_EQ(classesOf(L"abc", characterType, -1), std::vector<WORD>(5, untouched));
}

// ---- Order --------------------------------------------------------------------------------------------------------

TEST(StringOrder, IsThatOfTheCodesOrIgnoresCase)
{
    const ScopedLocale locale("C.UTF-8");
    const struct
    {
        const wchar_t *first, *second;
        int byCode, ignoringCase;
    } rows[] = {
        {L"ABC", L"abc", 1, 2},
        {L"abc", L"ABC", 3, 2},
        {L"abc", L"abc", 2, 2},
        {L"", L"", 2, 2},
        {L"", L"a", 1, 1},
        {L"a", L"", 3, 3},
        {L"abc", L"abd", 1, 1},
        {L"abd", L"abc", 3, 3},
        {L"ABD", L"abc", 1, 3},
        {L"abc", L"abcd", 1, 1},
        {L"\xC9t\xE9", L"\xE9t\xE9", 1, 2},
        {L"\x10FFFF", L"a", 3, 3},
        {L"a-b", L"ab", 1, 1},
    };
    for (const auto& row : rows)
    {
        errno = 4711;
        EXPECT_EQ(CompareStringW(0x804, 0, row.first, -1, row.second, -1), row.byCode) << row.first << row.second;
        EXPECT_EQ(CompareStringW(0x804, 1, row.first, -1, row.second, -1), row.ignoringCase) << row.first << row.second;
        EXPECT_EQ(errno, 4711);
    }
}

TEST(StringOrder, LooksAtTheLowestFlagOnly)
{
    EXPECT_EQ(CompareStringW(0, 0xFFFFFFFE, L"ABC", -1, L"abc", -1), 1);
    EXPECT_EQ(CompareStringW(0, 0xFFFFFFFF, L"ABC", -1, L"abc", -1), 2);
    EXPECT_EQ(CompareStringW(0, 0x00030001, L"ABC", -1, L"abc", -1), 2);
}

TEST(CompareStringW, ReadsUpToTheTerminators)
{
    EXPECT_EQ(CompareStringW(0, 0, L"abc", 2, L"abd", 2), 1);
    EXPECT_EQ(CompareStringW(0, 0, L"abc", 0, L"ab", 0), 3);
    EXPECT_EQ(CompareStringW(0, 0, L"abc", -5, L"abc", 100), 2);
}

TEST(CompareStringW, OrdersByCode)
{
    EXPECT_EQ(CompareStringW(0x409, 0, L"Z", -1, L"a", -1), 1);
    EXPECT_EQ(CompareStringW(0x409, 0, L"\xE9", -1, L"f", -1), 3);
}

} // namespace
