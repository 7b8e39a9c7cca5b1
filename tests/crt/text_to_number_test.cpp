#include "kest/crt/numbers.h"

#include "harness/scoped_locale.h"

#include <cerrno>
#include <climits>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

using kest::test::ScopedLocale;

namespace
{

constexpr int untouchedErrno = 77;
constexpr const char* locales[] = {"C", "C.UTF-8"};

template <class Number>
struct Reading
{
    std::wstring text;
    Number number;
    int error = untouchedErrno;
};

template <class Number>
void expectReadings(Number (*function)(const wchar_t*), const std::vector<Reading<Number>>& rows)
{
    for (const Reading<Number>& row : rows)
    {
        errno = untouchedErrno;
        const Number number = function(row.text.c_str());
        const int error = errno;
        EXPECT_EQ(number, row.number) << row.text;
        EXPECT_EQ(error, row.error) << row.text;
    }
}

TEST(TextToInteger, ReadsDecimalOnly)
{
    const std::vector<Reading<int>> rows = {
        {L"0", 0},
        {L"123", 123},
        {L"-123", -123},
        {L"+123", 123},
        {L" \t\n\v\f\r7", 7},
        {L"010", 10},
        {L"0x1A", 0},
        {L"12abc", 12},
        {L"12 34", 12},
        {L"- 5", 0},
        {L"", 0},
        {L"abc", 0},
        {L"2147483647", INT_MAX},
        {L"-2147483648", INT_MIN},
        // Cut to 32 bits.
        {L"2147483648", INT_MIN},
        {L"4294967295", -1},
        {L"4294967297", 1},
        {L"-4294967297", -1},
        {L"9223372036854775807", -1},
        {L"9223372036854775808", -1, ERANGE},
        {L"-9223372036854775808", 0},
        {L"-9223372036854775809", 0, ERANGE},
    };
    for (const char* name : locales)
    {
        SCOPED_TRACE(name);
        ScopedLocale locale(name);
        expectReadings(_wtoi, rows);
    }
}

TEST(TextToInteger, EndsAtTheFirstCharacterOfSeveralBytes)
{
    ScopedLocale locale("C.UTF-8");
    expectReadings<int>(_wtoi, {
                                   {L"12\u00E4", 12},
                                   {L"12\u00E434", 12},
                                   {L"\u00E412", 0},
                                   {L"12\U0001F600\U0001F600\U0001F600", 12},
                                   // Wide white space is none, and wide digits are none.
                                   {L"\u300012", 0},
                                   {L"\u0661", 0},
                                   {L"1\u0662", 1},
                               });
}

TEST(TextToInteger, EndsAtACharacterThatCannotBeEncoded)
{
    {
        ScopedLocale locale("C");
        expectReadings<int>(_wtoi, {{L"12\u00E434", 12, EILSEQ}, {L"\u00E412", 0, EILSEQ}});
        // The C library passes over tag characters on the way to ASCII.
        expectReadings<int>(_wtoi, {{L"12\U000E004134", 1234}});
    }
    ScopedLocale locale("C.UTF-8");
    constexpr wchar_t impossible = 0xD800;
    expectReadings<int>(_wtoi, {{{L'1', L'2', impossible, L'3'}, 12, EILSEQ}, {{impossible, L'1'}, 0, EILSEQ}});
    // Three characters of two bytes use up the limit of six: what cannot be encoded is never reached.
    expectReadings<int>(_wtoi, {{{L'\u00E4', L'\u00E4', L'\u00E4', impossible, impossible}, 0}});
}

// Around the sizes at which the scratch changes its place.
TEST(TextToInteger, ReadsLongTexts)
{
    for (std::size_t length = 55; length < 75; ++length)
    {
        std::wstring number = L"12345";
        number.insert(0, length, L' ');
        EXPECT_EQ(_wtoi(number.c_str()), 12345) << length;
        number.replace(0, length, length, L'0');
        EXPECT_EQ(_wtoi(number.c_str()), 12345) << length;
        number.assign(L"89").append(length, L'x');
        EXPECT_EQ(_wtoi(number.c_str()), 89) << length;
    }
    std::wstring farBehind(1 << 20, L' ');
    farBehind += L"-42";
    EXPECT_EQ(_wtoi(farBehind.c_str()), -42);
}

TEST(wtoi, CutsToThirtyTwoBits)
{
    EXPECT_EQ(_wtoi(L"4294967297"), 1);
    EXPECT_EQ(_wtoi(L"99999999999999999999"), -1);
}

TEST(TextToLong, ReadsTheBaseFromThePrefix)
{
    expectReadings<long>(_wtol, {
                                    {L"0", 0},
                                    {L"123", 123},
                                    {L"-123", -123},
                                    {L"010", 8},
                                    {L"-010", -8},
                                    {L"0x1A", 26},
                                    {L"0X1a", 26},
                                    {L" -0x1A", -26},
                                    {L"08", 0},
                                    {L"0x", 0},
                                    {L"1A", 1},
                                    {L"", 0},
                                    {L"abc", 0},
                                    {L"2147483648", 2147483648L},
                                    {L"9223372036854775807", LONG_MAX},
                                    {L"9223372036854775808", LONG_MAX, ERANGE},
                                    {L"-9223372036854775808", LONG_MIN},
                                    {L"-9223372036854775809", LONG_MIN, ERANGE},
                                });
}

TEST(wtol, ReadsPrefixes)
{
    EXPECT_EQ(_wtol(L"0x1A"), 26);
    EXPECT_EQ(_wtol(L"010"), 8);
}

TEST(wtol, AnswersSixtyFourBits)
{
    EXPECT_EQ(_wtol(L"4294967296"), 4294967296L);
}

TEST(TextToSixtyFourBits, ReadsUnsignedAndTheBaseFromThePrefix)
{
    expectReadings<long long>(_wtoi64, {
                                           {L"0", 0},
                                           {L"123", 123},
                                           {L"-5", -5},
                                           {L"010", 8},
                                           {L"0x1A", 26},
                                           {L"-0x1A", -26},
                                           {L"", 0},
                                           {L"abc", 0},
                                           {L"9223372036854775807", LLONG_MAX},
                                           {L"9223372036854775808", LLONG_MIN},
                                           {L"0xFFFFFFFFFFFFFFFE", -2},
                                           {L"18446744073709551615", -1},
                                           {L"-18446744073709551615", 1},
                                           {L"18446744073709551616", -1, ERANGE},
                                           {L"-18446744073709551616", -1, ERANGE},
                                       });
}

TEST(wtoi64, ReadsPrefixes)
{
    EXPECT_EQ(_wtoi64(L"0x1A"), 26);
    EXPECT_EQ(_wtoi64(L"010"), 8);
}

TEST(wtoi64, ReadsUnsigned)
{
    EXPECT_EQ(_wtoi64(L"18446744073709551614"), -2);
}

TEST(TextToFloat, ReadsAsTheCLibraryDoes)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    expectReadings<double>(_wtof, {
                                      {L"0", 0},
                                      {L"1.5", 1.5},
                                      {L" -2.5e3xyz", -2500},
                                      {L".25", 0.25},
                                      {L"0x1p4", 16},
                                      {L"inf", infinity},
                                      {L"", 0},
                                      {L"abc", 0},
                                      {L"1e999", infinity, ERANGE},
                                      {L"-1e999", -infinity, ERANGE},
                                      {L"1e-999", 0, ERANGE},
                                  });
    EXPECT_TRUE(std::isnan(_wtof(L"nan")));
}

} // namespace
