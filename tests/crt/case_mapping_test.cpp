#include "kest/crt/strings.h"
#include "kest/user_interface/strings.h"

#include "harness/guarded_text.h"
#include "harness/scoped_locale.h"
#include "harness/scoped_table.h"
#include "harness/sentinel_buffer.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <climits>
#include <cstdint>
#include <cwctype>
#include <gtest/gtest.h>
#include <string>
#include <vector>

using namespace std::string_literals;
using kest::test::GuardedText;
using kest::test::ScopedLocale;
using kest::test::ScopedTable;
using kest::test::SentinelBuffer;

namespace
{

constexpr const char* locales[] = {"C", "C.UTF-8"};

struct WideCase
{
    wchar_t* (*function)(wchar_t*);
    std::wint_t (*mapping)(std::wint_t);
};

const WideCase wideCases[] = {
    {_wcsupr, std::towupper},
    {_wcslwr, std::towlower},
    {CharUpperW, std::towupper},
    {CharLowerW, std::towlower},
};

struct NarrowCase
{
    char* (*function)(char*);
    int (*mapping)(int);
};

const NarrowCase narrowCases[] = {
    {_strupr, std::toupper},
    {_strlwr, std::tolower},
    {[](char* string) { return _strupr_s(string, INT_MAX); }, std::toupper},
};

// What a wide mapping must give.
std::wstring mapped(std::wstring text, std::wint_t (*mapping)(std::wint_t))
{
    for (wchar_t& character : text)
    {
        character = static_cast<wchar_t>(mapping(static_cast<std::wint_t>(character)));
    }
    return text;
}

TEST(CaseMapping, StopsAtTheTerminator)
{
    using Buffer = SentinelBuffer<wchar_t, 12>;
    for (const WideCase& wide : wideCases)
    {
        errno = 77;
        Buffer buffer(L"aB1\0cD"s);
        const std::wstring expected = mapped(L"aB1", wide.mapping) + L"\0cD\0"s;
        EXPECT_EQ(wide.function(buffer.data()), buffer.data());
        EXPECT_EQ(buffer.contents(), Buffer::startingWith(expected));
        Buffer empty(L"\0aB"s);
        EXPECT_EQ(wide.function(empty.data()), empty.data());
        EXPECT_EQ(empty.contents(), Buffer::startingWith(L"\0aB\0"s));
        EXPECT_EQ(errno, 77);
    }
}

TEST(CaseMapping, MapsToTheNamedCase)
{
    ScopedLocale locale("C.UTF-8");
    std::wstring text = L"aB1\u00E4\u00D6\u0431\u0411\U00010428";
    EXPECT_EQ(std::wstring(_wcsupr(text.data())), L"AB1\u00C4\u00D6\u0411\u0411\U00010400");
    EXPECT_EQ(std::wstring(_wcslwr(text.data())), L"ab1\u00E4\u00F6\u0431\u0431\U00010428");
    EXPECT_EQ(std::wstring(CharUpperW(text.data())), L"AB1\u00C4\u00D6\u0411\u0411\U00010400");
    EXPECT_EQ(std::wstring(CharLowerW(text.data())), L"ab1\u00E4\u00F6\u0431\u0431\U00010428");
    EXPECT_EQ(std::wstring(_wcsupr_s(text.data(), text.size())), L"AB1\u00C4\u00D6\u0411\u0411\U00010400");
}

TEST(CaseMapping, MapsEveryWideCharacterAsTheLocaleDoes)
{
    // In two orders: neighbours follow each other, then come codes with the same low bits.
    std::vector<std::uint32_t> codes;
    for (std::uint32_t code = 1; code < 0x11000; ++code)
    {
        codes.push_back(code);
    }
    for (const std::uint32_t code : {0x10FFFFU, 0x110000U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFF80U, 0xFFFFFFFFU})
    {
        codes.push_back(code);
    }
    std::wstring inOrder;
    std::transform(codes.begin(), codes.end(), std::back_inserter(inOrder),
                   [](std::uint32_t code) { return static_cast<wchar_t>(code); });
    std::stable_sort(codes.begin(), codes.end(), [](std::uint32_t a, std::uint32_t b) { return a % 256 < b % 256; });
    std::wstring byLowBits;
    std::transform(codes.begin(), codes.end(), std::back_inserter(byLowBits),
                   [](std::uint32_t code) { return static_cast<wchar_t>(code); });
    for (const char* name : locales)
    {
        ScopedLocale locale(name);
        for (const WideCase& wide : wideCases)
        {
            for (std::wstring text : {inOrder, byLowBits})
            {
                const std::wstring expected = mapped(text, wide.mapping);
                wide.function(text.data());
                EXPECT_TRUE(text == expected) << name << ", " << &wide - wideCases;
            }
        }
    }
}

TEST(CaseMapping, OfALongStringIsOnePass)
{
    std::wstring text(1 << 20, L'a');
    _wcsupr(text.data());
    EXPECT_EQ(text.find_first_not_of(L'A'), std::wstring::npos);
    _wcslwr(text.data());
    EXPECT_EQ(text.find_first_not_of(L'a'), std::wstring::npos);
}

TEST(CaseMapping, WithSizeMapsExactlySoManyCharacters)
{
    using Buffer = SentinelBuffer<wchar_t, 8>;
    const std::vector<std::pair<std::size_t, std::wstring>> rows = {
        {0, L"ab\0cd\0"s}, {1, L"Ab\0cd\0"s}, {2, L"AB\0cd\0"s},
        {3, L"AB\0cd\0"s}, {4, L"AB\0Cd\0"s}, {6, L"AB\0CD\0"s},
    };
    for (const auto& [size, written] : rows)
    {
        Buffer buffer(L"ab\0cd"s);
        errno = 77;
        EXPECT_EQ(_wcsupr_s(buffer.data(), size), buffer.data());
        EXPECT_EQ(buffer.contents(), Buffer::startingWith(written)) << size;
        EXPECT_EQ(errno, 77);
    }
    EXPECT_EQ(_wcsupr_s(nullptr, 0), nullptr);
    GuardedText<wchar_t> unterminated(L"abc");
    EXPECT_EQ(std::wstring(_wcsupr_s(unterminated.data(), 3), 3), L"ABC");
}

TEST(wcsuprs, MapsBehindTheTerminator)
{
    wchar_t text[] = L"ab\0cd";
    _wcsupr_s(text, 5);
    EXPECT_EQ(std::wstring(text, 5), L"AB\0CD"s);
}

TEST(wcsuprs, ReturnsTheString)
{
    wchar_t text[] = L"ab";
    EXPECT_EQ(_wcsupr_s(text, 2), text);
}

TEST(CaseMapping, MapsEveryByteAsTheNarrowTableDoes)
{
    for (const char* name : locales)
    {
        ScopedLocale locale(name);
        for (const NarrowCase& narrow : narrowCases)
        {
            std::string text;
            std::string expected;
            for (int byte = 1; byte < 256; ++byte)
            {
                text.push_back(static_cast<char>(byte));
                // Bytes above 127 have negative entries; neither locale changes them.
                expected.push_back(static_cast<char>(byte < 128 ? narrow.mapping(byte) : byte));
            }
            errno = 77;
            EXPECT_EQ(narrow.function(text.data()), text.data());
            EXPECT_EQ(text, expected) << name << ", " << &narrow - narrowCases;
            EXPECT_EQ(errno, 77);
        }
    }
}

TEST(CaseMapping, OfBytesAbove127TakesTheNegativeEntries)
{
    const auto entry = [](int code) { return code < 0 ? 'n' : code > 127 ? 'p' : code; };
    const ScopedTable upper(__ctype_toupper_loc(), entry);
    const ScopedTable lower(__ctype_tolower_loc(), entry);
    for (const NarrowCase& narrow : narrowCases)
    {
        std::string text = "a\x7F\x80\xC4\xFF";
        narrow.function(text.data());
        EXPECT_EQ(text, "a\x7Fnnn") << &narrow - narrowCases;
    }
}

TEST(CaseMapping, OfBytesStopsAtTheTerminator)
{
    using Buffer = SentinelBuffer<char, 8>;
    Buffer upper("aB\0cD"s);
    EXPECT_EQ(_strupr(upper.data()), upper.data());
    EXPECT_EQ(upper.contents(), Buffer::startingWith("AB\0cD\0"s));
    Buffer lower("aB\0cD"s);
    EXPECT_EQ(_strlwr(lower.data()), lower.data());
    EXPECT_EQ(lower.contents(), Buffer::startingWith("ab\0cD\0"s));
    Buffer empty(""s);
    _strupr(empty.data());
    _strlwr(empty.data());
    EXPECT_EQ(empty.contents(), Buffer::startingWith("\0"s));
}

TEST(CaseMapping, OfBytesWithSizeStopsAtTheFirstOfBoth)
{
    using Buffer = SentinelBuffer<char, 8>;
    const std::vector<std::pair<int, std::string>> rows = {
        {INT_MIN, "ab\0cd\0"s}, {-1, "ab\0cd\0"s}, {0, "ab\0cd\0"s}, {1, "Ab\0cd\0"s},
        {2, "AB\0cd\0"s},       {3, "AB\0cd\0"s},  {6, "AB\0cd\0"s},
    };
    for (const auto& [size, written] : rows)
    {
        Buffer buffer("ab\0cd"s);
        EXPECT_EQ(_strupr_s(buffer.data(), size), buffer.data());
        EXPECT_EQ(buffer.contents(), Buffer::startingWith(written)) << size;
    }
    EXPECT_EQ(_strupr_s(nullptr, 0), nullptr);
    EXPECT_EQ(_strupr_s(nullptr, -1), nullptr);
}

TEST(struprs, StopsAtSize)
{
    GuardedText<char> unterminated("abc");
    EXPECT_EQ(std::string(_strupr_s(unterminated.data(), 3), 3), "ABC");
}

TEST(struprs, ReturnsTheString)
{
    char text[] = "ab";
    EXPECT_EQ(_strupr_s(text, 3), text);
}

TEST(CharUpperW, TakesNoSingleCharacter)
{
    EXPECT_DEATH(CharUpperW(reinterpret_cast<LPWSTR>(static_cast<std::uintptr_t>('a'))), "");
}

TEST(CharLowerW, TakesNoSingleCharacter)
{
    EXPECT_DEATH(CharLowerW(reinterpret_cast<LPWSTR>(static_cast<std::uintptr_t>('A'))), "");
}

} // namespace
