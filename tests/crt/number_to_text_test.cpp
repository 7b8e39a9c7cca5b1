#include "kest/crt/numbers.h"

#include "harness/sentinel_buffer.h"

#include <cerrno>
#include <climits>
#include <cmath>
#include <cstdlib>
#include <cwchar>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

using kest::test::SentinelBuffer;

namespace
{

constexpr std::size_t bufferSize = 24;
using Narrow = SentinelBuffer<char, bufferSize>;
using Wide = SentinelBuffer<wchar_t, bufferSize>;
constexpr std::size_t sizes[] = {0, 1, 2, 3, 4, 5, 10, 11, 12, 20, 21, 22, bufferSize};

std::wstring widened(const std::string& text)
{
    return {text.begin(), text.end()};
}

// ---- The four forms a function may have: (value, destination, radix) or (value, destination, size, radix) ----------

template <class Value>
void expectNarrow(char* (*function)(Value, char*, int), Value value, int radix, const std::string& text)
{
    Narrow buffer;
    errno = 77;
    EXPECT_EQ(function(value, buffer.data(), radix), buffer.data());
    EXPECT_EQ(buffer.contents(), Narrow::startingWith(text + '\0')) << radix;
    EXPECT_EQ(errno, 77);
}

template <class Value>
void expectWide(wchar_t* (*function)(Value, wchar_t*, int), Value value, int radix, const std::string& text)
{
    Wide buffer;
    errno = 77;
    EXPECT_EQ(function(value, buffer.data(), radix), buffer.data());
    EXPECT_EQ(buffer.contents(), Wide::startingWith(widened(text) + L'\0')) << radix;
    EXPECT_EQ(errno, 77);
}

// At every size: cut to size - 1 bytes and terminated.
void expectSizedNarrow(char* (*function)(int, char*, std::size_t, int), int value, int radix, const std::string& text)
{
    for (const std::size_t size : sizes)
    {
        Narrow buffer;
        errno = 77;
        EXPECT_EQ(function(value, buffer.data(), size, radix), buffer.data());
        const std::string written = size == 0 ? std::string() : text.substr(0, size - 1) + '\0';
        EXPECT_EQ(buffer.contents(), Narrow::startingWith(written)) << size;
        EXPECT_EQ(errno, 77);
    }
}

// Sentinels up to a terminator in the last place, where a text that was cut ends at the latest.
Wide endedBySentinels()
{
    Wide buffer;
    buffer.data()[bufferSize - 1] = L'\0';
    return buffer;
}

// At every size: what the C library leaves in an equal buffer, and its last error. Returns the length of the text that
// then stands there.
template <class Value>
std::size_t leftByCLibrary(Wide& expected, std::size_t size, const wchar_t* format, Value value)
{
    wchar_t* volatile destination = expected.data();
    std::swprintf(destination, size, format, value);
    return std::wcslen(expected.data());
}

template <class Result, class Value, class Printed>
void expectSizedWide(Result (*function)(Value, wchar_t*, std::size_t, int), Value value, int radix,
                     const wchar_t* format, Printed printed)
{
    for (const std::size_t size : sizes)
    {
        Wide expected = endedBySentinels();
        errno = 77;
        const std::size_t length = leftByCLibrary(expected, size, format, printed);
        const int expectedError = errno;
        Wide buffer = endedBySentinels();
        errno = 77;
        const Result result = function(value, buffer.data(), size, radix);
        EXPECT_EQ(errno, expectedError) << size;
        EXPECT_EQ(buffer.contents(), expected.contents()) << size;
        if constexpr (std::is_same_v<Result, int>)
        {
            EXPECT_EQ(result, static_cast<int>(length)) << size;
        }
        else
        {
            EXPECT_EQ(result, buffer.data()) << size;
        }
    }
}

// ---- int -----------------------------------------------------------------------------------------------------------

struct IntText
{
    int value;
    int radix;
    std::string text;
};

const std::vector<IntText>& intTexts()
{
    static const std::vector<IntText> rows = {
        {0, 10, "0"},
        {0, 16, "0"},
        {255, 10, "255"},
        {255, 16, "ff"},
        {255, 2, "255"},
        {255, 8, "255"},
        {255, 36, "255"},
        {255, 0, "255"},
        {255, -16, "255"},
        {-1, 10, "-1"},
        {-1, 16, "ffffffff"},
        {-1, 2, "-1"},
        {INT_MAX, 10, "2147483647"},
        {INT_MAX, 16, "7fffffff"},
        {INT_MIN, 10, "-2147483648"},
        {INT_MIN, 16, "80000000"},
    };
    return rows;
}

TEST(IntToText, IsHexadecimalForRadixSixteenElseDecimal)
{
    for (const IntText& row : intTexts())
    {
        SCOPED_TRACE(row.text);
        expectNarrow(_itoa, row.value, row.radix, row.text);
        expectWide(_itow, row.value, row.radix, row.text);
        expectSizedNarrow(_itoa_s, row.value, row.radix, row.text);
        expectSizedWide(_itow_s, row.value, row.radix, row.radix == 16 ? L"%x" : L"%d", row.value);
    }
}

TEST(IntToText, WithSizeTellsTheLengthOfWholeText)
{
    Wide buffer;
    EXPECT_EQ(_itow_s(12345, buffer.data(), 6, 10), 5);
    EXPECT_STREQ(buffer.data(), L"12345");
    EXPECT_EQ(_itow_s(-1, buffer.data(), bufferSize, 16), 8);
    EXPECT_STREQ(buffer.data(), L"ffffffff");
    EXPECT_EQ(_ltow_s(-2, buffer.data(), bufferSize, 10), 10);
    EXPECT_STREQ(buffer.data(), L"4294967294");
}

TEST(IntToText, WithSizeTellsTheLengthOfCutText)
{
    // Zeros behind the text terminate what the C library left.
    wchar_t zeroed[8] = {};
    EXPECT_EQ(_itow_s(12345, zeroed, 3, 10), 2);
    EXPECT_STREQ(zeroed, L"12");
    // Without any size nothing is written.
    Wide unwritten(L"ab");
    EXPECT_EQ(_itow_s(12345, unwritten.data(), 0, 10), 2);
    EXPECT_EQ(_ltow_s(12345, unwritten.data(), 0, 10), 2);
    EXPECT_EQ(unwritten.contents(), Wide(L"ab").contents());
}

TEST(itoa, KnowsRadixSixteenOnly)
{
    expectNarrow(_itoa, 255, 2, "255");
}

TEST(itoas, KnowsRadixSixteenOnly)
{
    expectSizedNarrow(_itoa_s, 255, 8, "255");
}

TEST(itoas, TruncatesTooLongText)
{
    Narrow buffer;
    _itoa_s(12345, buffer.data(), 3, 10);
    EXPECT_EQ(buffer.contents(), Narrow::startingWith({'1', '2', '\0'}));
}

TEST(itoas, ReturnsTheDestination)
{
    Narrow buffer;
    EXPECT_EQ(_itoa_s(1, buffer.data(), bufferSize, 10), buffer.data());
}

TEST(itow, KnowsRadixSixteenOnly)
{
    expectWide(_itow, 255, 2, "255");
}

TEST(itows, KnowsRadixSixteenOnly)
{
    expectSizedWide(_itow_s, 255, 36, L"%d", 255);
}

TEST(itows, LeavesCutText)
{
    wchar_t text[8] = {};
    _itow_s(12345, text, 3, 10);
    EXPECT_EQ(text[0], L'1');
}

TEST(itows, ReturnsTheLength)
{
    wchar_t text[8];
    EXPECT_EQ(_itow_s(12345, text, 8, 10), 5);
}

TEST(itows, MeasuresCutTextBeyondTheSize)
{
    wchar_t text[] = L"#######";
    EXPECT_EQ(_itow_s(12345, text, 3, 10), 7);
    EXPECT_STREQ(text, L"12#####");
}

// ---- long, which is an int here ------------------------------------------------------------------------------------

TEST(LongToText, IsUnsignedDecimal)
{
    const std::vector<std::pair<int, std::string>> rows = {
        {0, "0"},           {255, "255"},       {INT_MAX, "2147483647"},
        {-1, "4294967295"}, {-2, "4294967294"}, {INT_MIN, "2147483648"},
    };
    for (const auto& [value, text] : rows)
    {
        for (const int radix : {10, 16, 2, 0, -1})
        {
            SCOPED_TRACE(text);
            expectNarrow(_ltoa, value, radix, text);
            expectWide(_ltow, value, radix, text);
            expectSizedNarrow(_ltoa_s, value, radix, text);
            expectSizedWide(_ltow_s, value, radix, L"%ld", static_cast<long>(static_cast<unsigned int>(value)));
        }
    }
}

TEST(ltoa, IgnoresTheRadix)
{
    expectNarrow(_ltoa, 255, 16, "255");
}

TEST(ltoa, PrintsNegativesUnsigned)
{
    expectNarrow(_ltoa, -1, 10, "4294967295");
}

TEST(ltoas, IgnoresTheRadix)
{
    expectSizedNarrow(_ltoa_s, 255, 16, "255");
}

TEST(ltoas, PrintsNegativesUnsigned)
{
    expectSizedNarrow(_ltoa_s, -1, 10, "4294967295");
}

TEST(ltoas, TruncatesTooLongText)
{
    Narrow buffer;
    _ltoa_s(12345, buffer.data(), 3, 10);
    EXPECT_EQ(buffer.contents(), Narrow::startingWith({'1', '2', '\0'}));
}

TEST(ltoas, ReturnsTheDestination)
{
    Narrow buffer;
    EXPECT_EQ(_ltoa_s(1, buffer.data(), bufferSize, 10), buffer.data());
}

TEST(ltow, IgnoresTheRadix)
{
    expectWide(_ltow, 255, 16, "255");
}

TEST(ltow, PrintsNegativesUnsigned)
{
    expectWide(_ltow, -2, 10, "4294967294");
}

TEST(ltows, IgnoresTheRadix)
{
    expectSizedWide(_ltow_s, 255, 16, L"%ld", 255L);
}

TEST(ltows, PrintsNegativesUnsigned)
{
    expectSizedWide(_ltow_s, -1, 10, L"%ld", 4294967295L);
}

TEST(ltows, LeavesCutText)
{
    wchar_t text[8] = {};
    _ltow_s(12345, text, 3, 10);
    EXPECT_EQ(text[0], L'1');
}

TEST(ltows, ReturnsTheLength)
{
    wchar_t text[12];
    EXPECT_EQ(_ltow_s(-1, text, 12, 10), 10);
}

TEST(ltows, MeasuresCutTextBeyondTheSize)
{
    wchar_t text[] = L"#######";
    EXPECT_EQ(_ltow_s(12345, text, 3, 10), 7);
    EXPECT_STREQ(text, L"12#####");
}

// ---- 64 bits -------------------------------------------------------------------------------------------------------

TEST(SixtyFourBitsToText, IsDecimal)
{
    const std::vector<std::pair<long long, std::string>> rows = {
        {0, "0"}, {255, "255"}, {-1, "-1"}, {LLONG_MAX, "9223372036854775807"}, {LLONG_MIN, "-9223372036854775808"},
    };
    for (const auto& [value, text] : rows)
    {
        for (const int radix : {10, 16, 2, 0, -1})
        {
            SCOPED_TRACE(text);
            expectNarrow(_i64toa, value, radix, text);
            expectWide(_i64tow, value, radix, text);
            expectSizedWide(_i64tow_s, value, radix, L"%lld", value);
        }
    }
    EXPECT_EQ(_i64tow_s(5, nullptr, 0, 10), nullptr);
}

TEST(SixtyFourBitsToText, IsUnsignedDecimalForUnsignedNumbers)
{
    const std::vector<std::pair<unsigned long long, std::string>> rows = {
        {0, "0"}, {255, "255"}, {ULLONG_MAX, "18446744073709551615"}, {1ULL << 63, "9223372036854775808"}};
    for (const auto& [value, text] : rows)
    {
        for (const int radix : {10, 16, 2, 0, -1})
        {
            SCOPED_TRACE(text);
            expectNarrow(_ui64toa, value, radix, text);
            expectWide(_ui64tow, value, radix, text);
        }
    }
}

TEST(i64toa, IgnoresTheRadix)
{
    expectNarrow(_i64toa, 255LL, 16, "255");
}

TEST(ui64toa, IgnoresTheRadix)
{
    expectNarrow(_ui64toa, 255ULL, 16, "255");
}

TEST(i64tow, IgnoresTheRadix)
{
    expectWide(_i64tow, 255LL, 16, "255");
}

TEST(ui64tow, IgnoresTheRadix)
{
    expectWide(_ui64tow, 255ULL, 16, "255");
}

TEST(i64tows, IgnoresTheRadix)
{
    expectSizedWide(_i64tow_s, 255LL, 16, L"%lld", 255LL);
}

TEST(i64tows, LeavesCutText)
{
    wchar_t text[8] = {};
    _i64tow_s(12345, text, 3, 10);
    EXPECT_EQ(text[0], L'1');
}

TEST(i64tows, ReturnsTheDestination)
{
    wchar_t text[8];
    EXPECT_EQ(_i64tow_s(12345, text, 8, 10), text);
}

// ---- _fcvt ---------------------------------------------------------------------------------------------------------

struct FloatDigits
{
    double value;
    int count;
    std::string digits;
    int decimalPoint;
    bool negative;
};

TEST(FloatToText, GivesDigitsPointAndSign)
{
    const std::vector<FloatDigits> rows = {
        {3.14159, 2, "314", 1, false},    {-3.14159, 3, "3142", 1, true},
        {0.05, 3, "50", -1, false},       {1234.5, 0, "1234", 4, false},
        {0.0, 2, "000", 1, false},        {1e20, 1, "1000000000000000000000", 21, false},
        {123456, -3, "123000", 6, false},
    };
    for (const FloatDigits& row : rows)
    {
        int decimalPoint = 77;
        int sign = 77;
        EXPECT_EQ(std::string(_fcvt(row.value, row.count, &decimalPoint, &sign)), row.digits);
        EXPECT_EQ(decimalPoint, row.decimalPoint) << row.value;
        EXPECT_EQ(sign != 0, row.negative) << row.value;
    }
}

TEST(FloatToText, IsTheCLibrarys)
{
    for (const double value : {0.0, 1.0 / 3, -2.5, 1e300, 1e-300, HUGE_VAL, std::numeric_limits<double>::quiet_NaN()})
    {
        for (const int count : {-400, -3, 0, 5, 17, 400})
        {
            int expectedPoint = 77;
            int expectedSign = 77;
            const std::string expected = fcvt(value, count, &expectedPoint, &expectedSign);
            int decimalPoint = 77;
            int sign = 77;
            EXPECT_EQ(std::string(_fcvt(value, count, &decimalPoint, &sign)), expected);
            EXPECT_EQ(decimalPoint, expectedPoint) << value << ", " << count;
            EXPECT_EQ(sign, expectedSign) << value << ", " << count;
        }
    }
}

} // namespace
