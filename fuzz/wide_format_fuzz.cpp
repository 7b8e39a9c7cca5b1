// The wide formatting functions against a translation and a formatter written out plainly. Formats are any sequence of
// pieces that read well or badly; those that the formatter here does not know are left out, "%n" with them.
#include "fuzzing.h"
#include "kest/crt/formatted_output.h"
#include "kest/user_interface/strings.h"

#include <array>
#include <clocale>
#include <cwchar>
#include <optional>
#include <variant>

namespace
{

using kest::fuzz::Output;
using kest::fuzz::require;
using Wide = Output<wchar_t>;

// "%s" becomes "%ls", from the front to the end.
std::wstring translated(std::wstring format)
{
    for (std::size_t at = format.find(L"%s"); at != std::wstring::npos; at = format.find(L"%s", at))
    {
        format.replace(at, 2, L"%ls");
    }
    return format;
}

using Argument = std::variant<int, long, const wchar_t*, const char*>;

// The texts and the numbers that arguments are taken from, in turn.
struct Values
{
    std::array<std::wstring, 3> wide;
    std::array<std::string, 3> narrow;
    std::array<bool, 3> areNull;
    std::array<long, 3> numbers;
};

struct Formatted
{
    std::wstring text;
    std::vector<Argument> arguments;
};

constexpr std::size_t longestCounted = 524287;
constexpr std::size_t longestText = 600000;

struct Conversion
{
    bool left = false;
    bool zeros = false;
    std::size_t width = 0;
    std::optional<std::size_t> precision;
    std::wstring type;
};

std::size_t readNumber(const wchar_t*& format)
{
    std::size_t number = 0;
    for (; *format >= L'0' && *format <= L'9'; ++format)
    {
        number = number * 10 + static_cast<std::size_t>(*format - L'0');
    }
    return number;
}

// Reads what follows a "%"; nothing for what is not known here.
std::optional<Conversion> readConversion(const wchar_t*& format)
{
    Conversion conversion;
    for (; *format == L'-' || *format == L'0'; ++format)
    {
        conversion.left |= *format == L'-';
        conversion.zeros |= *format == L'0';
    }
    conversion.width = readNumber(format);
    if (*format == L'.')
    {
        ++format;
        conversion.precision = readNumber(format);
    }
    if (*format == L'l' || *format == L'h')
    {
        conversion.type = *format++;
    }
    if (*format == L'\0')
    {
        return std::nullopt;
    }
    conversion.type += *format++;
    return conversion.width <= longestText && conversion.precision.value_or(0) <= 3000 ? std::optional(conversion)
                                                                                       : std::nullopt;
}

std::wstring widened(const std::string& text)
{
    return {text.begin(), text.end()};
}

std::wstring digits(unsigned long value, unsigned long base, const wchar_t* all)
{
    std::wstring text;
    do
    {
        text.insert(text.begin(), all[value % base]);
        value /= base;
    } while (value != 0);
    return text;
}

// An integer by the type's last character; signed ones with their sign.
std::wstring integer(wchar_t type, long value, bool isLong)
{
    const unsigned long bits = isLong ? static_cast<unsigned long>(value) : static_cast<unsigned int>(value);
    switch (type)
    {
    case L'x':
        return digits(bits, 16, L"0123456789abcdef");
    case L'X':
        return digits(bits, 16, L"0123456789ABCDEF");
    case L'o':
        return digits(bits, 8, L"01234567");
    case L'u':
        return digits(bits, 10, L"0123456789");
    default:
        return std::to_wstring(isLong ? value : static_cast<int>(value));
    }
}

// A null text reads "(null)", and nothing where a precision has no room for all of it.
std::wstring textArgument(const std::wstring& text, bool isNull, const std::optional<std::size_t>& precision)
{
    if (isNull)
    {
        return precision.value_or(6) < 6 ? L"" : L"(null)";
    }
    return text.substr(0, precision.value_or(std::wstring::npos));
}

// Appends what one conversion makes of the next argument; false for what is not known here.
bool convert(const Conversion& conversion, const Values& values, Formatted& formatted)
{
    const std::size_t next = formatted.arguments.size();
    if (next == values.wide.size())
    {
        return false;
    }
    const bool isNull = values.areNull[next];
    const long number = values.numbers[next];
    const bool isLong = conversion.type.size() == 2 && conversion.type[0] == L'l';
    const wchar_t type = conversion.type.back();
    const bool isInteger = (conversion.type.size() == 1 || isLong) && std::wcschr(L"dixXuo", type) != nullptr;
    std::wstring text;
    if (conversion.type == L"ls" || conversion.type == L"S")
    {
        text = textArgument(values.wide[next], isNull, conversion.precision);
        formatted.arguments.emplace_back(isNull ? nullptr : values.wide[next].c_str());
    }
    else if (conversion.type == L"s" || conversion.type == L"hs")
    {
        text = textArgument(widened(values.narrow[next]), isNull, conversion.precision);
        formatted.arguments.emplace_back(isNull ? nullptr : values.narrow[next].c_str());
    }
    else if (isInteger && !conversion.precision)
    {
        text = integer(type, number, isLong);
        isLong ? formatted.arguments.emplace_back(number) : formatted.arguments.emplace_back(static_cast<int>(number));
    }
    else if (conversion.type == L"c" && !conversion.precision)
    {
        // An ASCII character that is no terminator: the locale reads no other byte.
        text = static_cast<wchar_t>((number & 0x3F) | 0x40);
        formatted.arguments.emplace_back(static_cast<int>(text[0]));
    }
    else
    {
        return false;
    }
    if (conversion.zeros && !isInteger)
    {
        return false;
    }
    const std::size_t padding = conversion.width > text.size() ? conversion.width - text.size() : 0;
    if (conversion.left)
    {
        text.append(padding, L' ');
    }
    else
    {
        text.insert(conversion.zeros && text[0] == L'-' ? 1 : 0, padding, conversion.zeros ? L'0' : L' ');
    }
    formatted.text += text;
    return formatted.text.size() <= longestText;
}

std::optional<Formatted> model(const std::wstring& translatedFormat, const Values& values)
{
    Formatted formatted;
    for (const wchar_t* format = translatedFormat.c_str(); *format != L'\0';)
    {
        if (*format != L'%')
        {
            formatted.text += *format++;
            continue;
        }
        ++format;
        if (*format == L'%')
        {
            formatted.text += *format++;
            continue;
        }
        const std::optional<Conversion> conversion = readConversion(format);
        if (!conversion || !convert(*conversion, values, formatted))
        {
            return std::nullopt;
        }
    }
    return formatted;
}

// ---- The functions that take an argument list, with the arguments themselves -------------------------------------

int count(const wchar_t* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const int result = _vscwprintf(format, arguments);
    va_end(arguments);
    return result;
}

int cut(wchar_t* buffer, std::size_t size, const wchar_t* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const int result = vswprintf_s(buffer, size, format, arguments);
    va_end(arguments);
    return result;
}

int cutByCount(wchar_t* buffer, std::size_t size, const wchar_t* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const int result = _vsnwprintf_s(buffer, 0, size, format, arguments);
    va_end(arguments);
    return result;
}

// Calls a function with three arguments behind the given ones, of whatever types they are; those that a format does
// not ask for do no harm.
template <class Function>
int call(Function function, const Formatted& formatted)
{
    std::array<Argument, 3> arguments = {};
    std::copy(formatted.arguments.begin(), formatted.arguments.end(), arguments.begin());
    return std::visit(function, arguments[0], arguments[1], arguments[2]);
}

template <class Function>
void checkCut(const char* what, Function function, std::size_t size, const std::wstring& format,
              const Formatted& expected)
{
    const std::size_t length = expected.text.size();
    const std::size_t room = std::max(size, length) + 2;
    Wide ours(room);
    const int result =
        call([&](auto... arguments) { return function(ours.data(), size, format.c_str(), arguments...); }, expected);
    require(result == static_cast<int>(size > length ? length : size - 1), what);
    require(ours == Wide(room, expected.text.substr(0, size)), what);
}

void checkBounded(std::size_t size, const std::wstring& format, const Formatted& expected)
{
    const bool fits = expected.text.size() < size;
    Wide ours(size);
    Wide left(size);
    if (size > 0)
    {
        left.put(expected.text.substr(0, size - 1) + (fits || size == 1 ? std::wstring(1, L'\0') : std::wstring()));
    }
    const int result = call(
        [&](auto... arguments) { return _tarswprintf(ours.data(), size, format.c_str(), arguments...); }, expected);
    require(result == (fits ? static_cast<int>(expected.text.size()) : -1), "_tarswprintf's result");
    require(ours == left, "_tarswprintf");
}

void checkUnlimited(const std::wstring& format, const Formatted& expected)
{
    const int length = static_cast<int>(expected.text.size());
    require(call([&](auto... arguments) { return count(format.c_str(), arguments...); }, expected) == length + 1,
            "_vscwprintf");
    const Wide whole(expected.text.size() + 1, expected.text);
    Wide byC(whole.size());
    require(call([&](auto... arguments) { return swprintf(byC.data(), format.c_str(), arguments...); }, expected) ==
                length,
            "swprintf's result");
    require(byC == whole, "swprintf");
    Wide byWindows(whole.size());
    require(call([&](auto... arguments) { return wsprintfW(byWindows.data(), format.c_str(), arguments...); },
                 expected) == length,
            "wsprintfW's result");
    require(byWindows == whole, "wsprintfW");
}

// Texts that are too long to be counted are not written, not even cut.
void checkTooLong(std::size_t size, const std::wstring& format, const Formatted& expected)
{
    Wide ours(size);
    const auto refuses = [&](auto function)
    { return call([&](auto... arguments) { return function(format.c_str(), arguments...); }, expected) == -1; };
    require(refuses(count), "_vscwprintf of too long a text");
    require(refuses([&](auto... given) { return swprintf(ours.data(), given...); }), "swprintf of too long a text");
    require(refuses([&](auto... given) { return wsprintfW(ours.data(), given...); }), "wsprintfW of too long a text");
    require(refuses([&](auto... given) { return cut(ours.data(), size, given...); }), "vswprintf_s of too long a text");
    require(refuses([&](auto... given) { return cutByCount(ours.data(), size, given...); }),
            "_vsnwprintf_s of too long a text");
    require(ours == Wide(size), "what stands where too long a text was not written");
}

std::wstring formatOfPieces(FuzzedDataProvider& data)
{
    static const wchar_t* const pieces[] = {
        L"%s",  L"%ls",   L"%hs",  L"%S",   L"%5s",   L"%-4s",   L"%.2s",   L"%1365d", L"%-3ls", L"%d",
        L"%%",  L"%",     L"s",    L"l",    L"S",     L"a",      L"\u00e9", L"-",      L"3",     L".",
        L"%%s", L"%900s", L"%x",   L"%X",   L"%u",    L"%c",     L"%ld",    L"%lu",    L"%lx",   L"%i",
        L"%o",  L"%08x",  L"%-6c", L"%05d", L"%-05i", L"%012ld", L"%.7s",   L"%.3ls"};
    std::wstring format;
    for (int left = data.ConsumeIntegralInRange<int>(0, 12); left > 0; --left)
    {
        const wchar_t* const piece = pieces[data.ConsumeIntegralInRange<std::size_t>(0, std::size(pieces) - 1)];
        // Around the length up to which short formats are kept, too.
        const int most = data.ConsumeIntegralInRange<int>(0, 31) == 0 ? 300 : 1;
        for (int times = data.ConsumeIntegralInRange<int>(1, most); times > 0; --times)
        {
            format += piece;
        }
    }
    // Around the longest text that is counted, seldom: such a text takes long.
    if (data.ConsumeIntegral<std::uint16_t>() == 0x4C4C)
    {
        format += L"%" + std::to_wstring(longestCounted - data.ConsumeIntegralInRange<std::size_t>(0, 3) + 2) + L"d";
    }
    return format;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    FuzzedDataProvider data(bytes, size);
    std::setlocale(LC_ALL, data.ConsumeBool() ? "C.UTF-8" : "C");
    const std::wstring format = formatOfPieces(data);
    Values values;
    for (std::size_t index = 0; index < values.wide.size(); ++index)
    {
        values.wide[index] = kest::fuzz::wideText(data, 12, L"ab%s");
        values.narrow[index] = kest::fuzz::narrowText(data, 12, "cd%s");
        // The locale does not read what is not ASCII.
        std::replace_if(
            values.narrow[index].begin(), values.narrow[index].end(),
            [](char character) { return static_cast<signed char>(character) < 0; }, '?');
        values.numbers[index] = data.ConsumeIntegral<int>();
        values.areNull[index] = false;
    }
    const std::size_t given = data.ConsumeIntegralInRange<std::size_t>(0, data.ConsumeBool() ? 30 : 4000);
    for (std::size_t index = 0; index < values.wide.size(); ++index)
    {
        values.areNull[index] = data.ConsumeIntegralInRange<int>(0, 7) == 1;
        values.numbers[index] ^= data.ConsumeIntegral<long>();
    }
    const std::optional<Formatted> expected = model(translated(format), values);
    if (!expected)
    {
        return 0;
    }
    if (expected->text.size() > longestCounted)
    {
        checkTooLong(given, format, *expected);
        return 0;
    }
    checkUnlimited(format, *expected);
    checkBounded(given, format, *expected);
    checkCut("vswprintf_s", cut, given, format, *expected);
    checkCut("_vsnwprintf_s", cutByCount, given, format, *expected);
    return 0;
}
