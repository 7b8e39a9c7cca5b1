// The conversions between numbers and text against digits and values worked out here.
#include "fuzzing.h"
#include "kest/crt/numbers.h"

#include <cerrno>
#include <clocale>
#include <cmath>
#include <cwctype>
#include <limits>

namespace
{

using kest::fuzz::Output;
using kest::fuzz::require;
using Wide = Output<wchar_t>;
using Narrow = Output<char>;

// ---- Number to text --------------------------------------------------------------------------------------------

std::string digits(std::uint64_t value, unsigned base)
{
    std::string text;
    do
    {
        text.insert(text.begin(), "0123456789abcdef"[value % base]);
        value /= base;
    } while (value != 0);
    return text;
}

std::string signedDigits(std::int64_t value)
{
    return value < 0 ? "-" + digits(0 - static_cast<std::uint64_t>(value), 10)
                     : digits(static_cast<std::uint64_t>(value), 10);
}

std::wstring widened(const std::string& text)
{
    return {text.begin(), text.end()};
}

constexpr std::size_t room = 24;

template <class Value>
void checkPlain(char* (*narrow)(Value, char*, int), wchar_t* (*wide)(Value, wchar_t*, int), Value value, int radix,
                const std::string& text, const char* what)
{
    Narrow narrowOutput(room);
    require(narrow(value, narrowOutput.data(), radix) == narrowOutput.data(), what);
    require(narrowOutput == Narrow(room, text), what);
    Wide wideOutput(room);
    require(wide(value, wideOutput.data(), radix) == wideOutput.data(), what);
    require(wideOutput == Wide(room, widened(text)), what);
}

void checkSizedNarrow(char* (*function)(int, char*, std::size_t, int), int value, std::size_t size, int radix,
                      const std::string& text, const char* what)
{
    Narrow output(size);
    Narrow expected(size);
    if (size > 0)
    {
        expected.put(text.substr(0, size - 1) + '\0');
    }
    require(function(value, output.data(), size, radix) == output.data(), what);
    require(output == expected, what);
}

// Wide text that does not fit is left without its last character and without terminator, unless there is room for
// that alone; what stood behind stays, and the last place ends it all.
Wide before()
{
    Wide output(room);
    output.put(std::wstring(1, L'\0'), room - 1);
    return output;
}

Wide leftBySizedWide(std::size_t size, const std::wstring& text)
{
    Wide output = before();
    if (size > 0)
    {
        const bool ends = text.size() < size || size == 1;
        output.put(text.substr(0, size - 1) + (ends ? std::wstring(1, L'\0') : std::wstring()));
    }
    return output;
}

int lengthIn(Wide& output)
{
    int length = 0;
    while (output.data()[length] != L'\0')
    {
        ++length;
    }
    return length;
}

void checkSizedWide(int (*function)(int, wchar_t*, std::size_t, int), int value, std::size_t size, int radix,
                    const std::string& text, const char* what)
{
    Wide output = before();
    Wide expected = leftBySizedWide(size, widened(text));
    require(function(value, output.data(), size, radix) == lengthIn(expected), what);
    require(output == expected, what);
}

void checkNumberToText(FuzzedDataProvider& data)
{
    const int value = data.ConsumeIntegral<int>() >> data.ConsumeIntegralInRange<int>(0, 31);
    const int radix = data.ConsumeBool() ? 16 : data.ConsumeIntegral<int>();
    const std::size_t size = data.ConsumeIntegralInRange<std::size_t>(0, room - 1);
    const std::string asInt = radix == 16 ? digits(static_cast<std::uint32_t>(value), 16) : signedDigits(value);
    checkPlain(_itoa, _itow, value, radix, asInt, "_itoa, _itow");
    checkSizedNarrow(_itoa_s, value, size, radix, asInt, "_itoa_s");
    checkSizedWide(_itow_s, value, size, radix, asInt, "_itow_s");
    const std::string asLong = digits(static_cast<std::uint32_t>(value), 10);
    checkPlain(_ltoa, _ltow, value, radix, asLong, "_ltoa, _ltow");
    checkSizedNarrow(_ltoa_s, value, size, radix, asLong, "_ltoa_s");
    checkSizedWide(_ltow_s, value, size, radix, asLong, "_ltow_s");

    const long long large = data.ConsumeIntegral<long long>() >> data.ConsumeIntegralInRange<int>(0, 63);
    const std::string asLarge = signedDigits(large);
    checkPlain(_i64toa, _i64tow, large, radix, asLarge, "_i64toa, _i64tow");
    Wide largeOutput = before();
    require(_i64tow_s(large, largeOutput.data(), size, radix) == largeOutput.data(), "_i64tow_s's result");
    require(largeOutput == leftBySizedWide(size, widened(asLarge)), "_i64tow_s");
    const auto unsignedLarge = static_cast<unsigned long long>(large);
    checkPlain(_ui64toa, _ui64tow, unsignedLarge, radix, digits(unsignedLarge, 10), "_ui64toa, _ui64tow");
}

// What _fcvt gives but for the sign: the digits and where the decimal point is.
struct FloatDigits
{
    std::string text;
    int point = 0;
};

// The number with so many decimals, 17 at most. A negative count moves the point to the left for as long as a digit
// stays before it, and puts zeros in its place. Without an integral part the zeros in front are left out, and numbers
// that are not finite are no digits.
FloatDigits digitsOf(double value, int count)
{
    constexpr int mostDecimals = 17;
    double number = std::isfinite(value) ? std::fabs(value) : value;
    std::size_t zeros = 0;
    for (; count < 0 && number * 0.1 >= 1 && std::isfinite(value); ++count)
    {
        number *= 0.1;
        ++zeros;
    }
    char printed[512];
    std::snprintf(printed, sizeof(printed), "%.*f", std::clamp(count, 0, mostDecimals), number);
    FloatDigits result = {printed, 0};
    if (!std::isfinite(value))
    {
        return result;
    }
    const std::size_t end = result.text.find('.');
    result.point = static_cast<int>(std::min(end, result.text.size()) + zeros);
    result.text.append(zeros, '0');
    if (end == std::string::npos)
    {
        return result;
    }
    result.text.erase(end, 1);
    if (end == 1 && result.text[0] == '0' && number != 0)
    {
        const std::size_t first = std::min(result.text.find_first_not_of('0'), result.text.size());
        result.text.erase(0, first);
        result.point -= static_cast<int>(first);
    }
    return result;
}

void checkFloatToText(FuzzedDataProvider& data)
{
    const double value = data.ConsumeBool() ? data.ConsumeFloatingPoint<double>()
                                            : data.ConsumeFloatingPointInRange<double>(-2000000, 2000000);
    const int count = data.ConsumeIntegralInRange<int>(-20, 24);
    const FloatDigits expected = digitsOf(value, count);
    int point = 77;
    int sign = 77;
    errno = 77;
    require(_fcvt(value, count, &point, &sign) == expected.text, "_fcvt's digits");
    require(errno == 77, "_fcvt's last error");
    require(point == expected.point, "_fcvt's decimal point");
    require((sign != 0) == (std::isfinite(value) && std::signbit(value)), "_fcvt's sign");
}

// ---- Text to number --------------------------------------------------------------------------------------------

// The front of a number: white space, a sign and, where it counts, a prefix.
struct Front
{
    std::size_t end = 0;
    bool negative = false;
    unsigned base = 10;
};

bool isAsciiSpace(wchar_t character)
{
    return character == L' ' || (character >= L'\t' && character <= L'\r');
}

int digitOf(wchar_t character)
{
    if (character >= L'0' && character <= L'9')
    {
        return character - L'0';
    }
    if (character >= L'a' && character <= L'f')
    {
        return character - L'a' + 10;
    }
    return character >= L'A' && character <= L'F' ? character - L'A' + 10 : 99;
}

void readSign(const std::wstring& text, Front& front)
{
    const wchar_t sign = text.c_str()[front.end];
    front.negative = sign == L'-';
    front.end += sign == L'-' || sign == L'+' ? 1 : 0;
}

Front decimalFront(const std::wstring& text)
{
    Front front;
    while (isAsciiSpace(text.c_str()[front.end]))
    {
        ++front.end;
    }
    readSign(text, front);
    return front;
}

Front prefixedFront(const std::wstring& text)
{
    Front front;
    while (std::iswspace(static_cast<std::wint_t>(text.c_str()[front.end])) != 0)
    {
        ++front.end;
    }
    readSign(text, front);
    const wchar_t* const rest = text.c_str() + front.end;
    if (rest[0] != L'0')
    {
        return front;
    }
    const bool hexadecimal = (rest[1] == L'x' || rest[1] == L'X') && digitOf(rest[2]) < 16;
    front.base = hexadecimal ? 16 : 8;
    front.end += hexadecimal ? 2 : 0;
    return front;
}

// The digits' value, the largest number where it is larger.
std::uint64_t magnitude(const std::wstring& text, const Front& front, bool& overflows)
{
    unsigned __int128 value = 0;
    constexpr std::uint64_t largest = std::numeric_limits<std::uint64_t>::max();
    for (std::size_t position = front.end; digitOf(text.c_str()[position]) < static_cast<int>(front.base); ++position)
    {
        value = value * front.base + static_cast<unsigned>(digitOf(text.c_str()[position]));
        overflows |= value > largest;
        value = overflows ? largest : value;
    }
    return static_cast<std::uint64_t>(value);
}

long asLong(const std::wstring& text, const Front& front)
{
    bool overflows = false;
    const std::uint64_t value = magnitude(text, front, overflows);
    constexpr auto largest = static_cast<std::uint64_t>(std::numeric_limits<long>::max());
    if (front.negative)
    {
        return value > largest ? std::numeric_limits<long>::min() : -static_cast<long>(value);
    }
    return value > largest ? std::numeric_limits<long>::max() : static_cast<long>(value);
}

// On the way to ASCII the C library passes over Unicode's tag characters; all others that are not ASCII end the text.
std::wstring asEncoded(const std::wstring& text, bool inUtf8)
{
    std::wstring encoded;
    for (const wchar_t character : text)
    {
        if (inUtf8 || character < 0xE0000 || character > 0xE007F)
        {
            encoded += character;
        }
    }
    return encoded;
}

void checkIntegers(const std::wstring& text, bool inUtf8)
{
    const std::wstring encoded = asEncoded(text, inUtf8);
    require(_wtoi(text.c_str()) == static_cast<int>(asLong(encoded, decimalFront(encoded))), "_wtoi");
    const Front front = prefixedFront(text);
    require(_wtol(text.c_str()) == asLong(text, front), "_wtol");
    bool overflows = false;
    const std::uint64_t value = magnitude(text, front, overflows);
    const std::uint64_t bits = front.negative && !overflows ? 0 - value : value;
    require(_wtoi64(text.c_str()) == static_cast<long long>(bits), "_wtoi64");
}

// Up to 15 digits and a divisor of up to 10^15 are exact: one division rounds as reading must.
void checkFloat(FuzzedDataProvider& data)
{
    const auto number = data.ConsumeIntegralInRange<std::uint64_t>(0, 999999999999999);
    std::string text = digits(number, 10);
    const std::size_t decimals = data.ConsumeIntegralInRange<std::size_t>(0, 15);
    text.insert(0, text.size() <= decimals ? decimals + 1 - text.size() : 0, '0');
    text.insert(text.size() - decimals, decimals > 0 ? "." : "");
    double divisor = 1;
    for (std::size_t i = 0; i < decimals; ++i)
    {
        divisor *= 10;
    }
    const bool negative = data.ConsumeBool();
    const double value = static_cast<double>(number) / divisor;
    const std::string rest = data.ConsumeBool() ? " 1" : "";
    require(_wtof(widened((negative ? " -" : "") + text + rest).c_str()) == (negative ? -value : value), "_wtof");
}

// Any text: what is not ASCII is white space in front, or the number's end.
void checkAnyFloat(FuzzedDataProvider& data)
{
    static const wchar_t* const pieces[] = {
        L"1",  L"23", L"0",      L".",      L"e",     L"E-",  L"e+30",  L"e999", L"+",     L"-",
        L"0x", L"p",  L"p-1",    L"aF",     L"P2000", L"inf", L"nan",   L"NaN(", L"inity", L"_1)",
        L" ",  L"\t", L"\u3000", L"\u00e9", L",",     L"x",   L"e-320", L"9999", L"00000", L"e-9999"};
    std::wstring text;
    for (int left = data.ConsumeIntegralInRange<int>(0, 10); left > 0; --left)
    {
        text += pieces[data.ConsumeIntegralInRange<std::size_t>(0, std::size(pieces) - 1)];
    }
    text += kest::fuzz::wideText(data, 20, L"0123456789.eE+-xXpPaf");
    std::string read;
    bool inFront = true;
    for (const wchar_t character : text)
    {
        inFront = inFront && std::iswspace(static_cast<std::wint_t>(character)) != 0;
        if (!inFront && character > 0x7F)
        {
            break;
        }
        read += inFront ? ' ' : static_cast<char>(character);
    }
    errno = 77;
    const double expected = std::strtod(read.c_str(), nullptr);
    const int expectedError = errno;
    errno = 77;
    const double number = _wtof(text.c_str());
    require(errno == expectedError, "_wtof's last error");
    require(std::isnan(expected) ? std::isnan(number) : number == expected, "_wtof of any text");
    require(std::signbit(number) == std::signbit(expected), "the sign of _wtof of any text");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    FuzzedDataProvider data(bytes, size);
    const bool inUtf8 = data.ConsumeBool();
    std::setlocale(LC_ALL, inUtf8 ? "C.UTF-8" : "C");
    checkNumberToText(data);
    checkFloat(data);
    checkIntegers(data.ConsumeBool() ? kest::fuzz::wideText(data, 90, L"0123456789-+ \txXabfg\u3000\u00e9")
                                     : kest::fuzz::textOfRuns<wchar_t>(data, 80, L" -+0x179aF"),
                  inUtf8);
    checkAnyFloat(data);
    checkFloatToText(data);
    return 0;
}
