#include "unicode.h"

#include <cstdint>
#include <cwctype>
#include <locale.h>
#include <optional>

namespace kest::host
{

namespace
{

constexpr std::uint32_t replacement = 0xFFFD;

bool isCharacter(std::uint32_t code)
{
    return code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
}

void appendUtf8(std::string& text, std::uint32_t code)
{
    const auto continuation = [code](int shift) { return static_cast<char>(0x80 | ((code >> shift) & 0x3F)); };
    if (code < 0x80)
    {
        text += static_cast<char>(code);
    }
    else if (code < 0x800)
    {
        text += static_cast<char>(0xC0 | (code >> 6));
        text += continuation(0);
    }
    else if (code < 0x10000)
    {
        text += static_cast<char>(0xE0 | (code >> 12));
        text += continuation(6);
        text += continuation(0);
    }
    else
    {
        text += static_cast<char>(0xF0 | (code >> 18));
        text += continuation(12);
        text += continuation(6);
        text += continuation(0);
    }
}

// Takes one character off the front of the text; nothing, and one byte, where that is malformed.
std::optional<std::uint32_t> takeUtf8(std::string_view& text)
{
    const auto byte = [&text](std::size_t index) { return static_cast<unsigned char>(text[index]); };
    const unsigned first = byte(0);
    const std::size_t length = first < 0x80   ? 1
                               : first < 0xC2 ? 0
                               : first < 0xE0 ? 2
                               : first < 0xF0 ? 3
                               : first < 0xF5 ? 4
                                              : 0;
    constexpr unsigned leadBits[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
    std::uint32_t code = first & leadBits[length];
    bool valid = length != 0 && length <= text.size();
    for (std::size_t index = 1; valid && index < length; ++index)
    {
        valid = (byte(index) & 0xC0) == 0x80;
        code = code << 6 | (byte(index) & 0x3F);
    }
    constexpr std::uint32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    valid = valid && code >= smallest[length] && isCharacter(code);
    text.remove_prefix(valid ? length : 1);
    return valid ? std::optional(code) : std::nullopt;
}

// The C library's Unicode tables, whatever the program has set; where there are none, ASCII.
locale_t unicodeLocale()
{
    static const locale_t locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    return locale;
}

} // namespace

std::string toUtf8(std::wstring_view text)
{
    std::string result;
    result.reserve(text.size());
    for (const wchar_t character : text)
    {
        const auto code = static_cast<std::uint32_t>(character);
        appendUtf8(result, isCharacter(code) ? code : replacement);
    }
    return result;
}

std::wstring fromUtf8(std::string_view text)
{
    std::wstring result;
    result.reserve(text.size());
    while (!text.empty())
    {
        result += static_cast<wchar_t>(takeUtf8(text).value_or(replacement));
    }
    return result;
}

std::size_t malformedUtf8(std::string_view text)
{
    for (std::string_view rest = text; !rest.empty();)
    {
        const std::size_t offset = text.size() - rest.size();
        if (!takeUtf8(rest))
        {
            return offset;
        }
    }
    return text.npos;
}

std::wstring fromUtf16Le(std::string_view bytes)
{
    std::wstring text;
    const auto unit = [bytes](std::size_t index)
    {
        return static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[index])) |
               static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[index + 1])) << 8;
    };
    for (std::size_t index = 0; index + 1 < bytes.size(); index += 2)
    {
        std::uint32_t code = unit(index);
        if (code >= 0xD800 && code < 0xDC00 && index + 3 < bytes.size())
        {
            const std::uint32_t low = unit(index + 2);
            if (low >= 0xDC00 && low < 0xE000)
            {
                code = 0x10000 + ((code - 0xD800) << 10) + (low - 0xDC00);
                index += 2;
            }
        }
        text += static_cast<wchar_t>(code);
    }
    return text;
}

std::string toUtf16Le(std::wstring_view text)
{
    std::string bytes;
    const auto append = [&bytes](std::uint32_t unit)
    {
        bytes += static_cast<char>(unit & 0xFF);
        bytes += static_cast<char>(unit >> 8);
    };
    for (const wchar_t character : text)
    {
        const auto code = static_cast<std::uint32_t>(character);
        if (code < 0x10000)
        {
            append(code);
        }
        else
        {
            append(0xD800 + ((code - 0x10000) >> 10 & 0x3FF));
            append(0xDC00 + ((code - 0x10000) & 0x3FF));
        }
    }
    return bytes;
}

std::wstring folded(std::wstring_view text)
{
    std::wstring result(text);
    for (wchar_t& character : result)
    {
        if (character >= L'a' && character <= L'z')
        {
            character = static_cast<wchar_t>(character - (L'a' - L'A'));
        }
        else if (static_cast<std::uint32_t>(character) >= 0x80 && unicodeLocale() != nullptr)
        {
            character = static_cast<wchar_t>(towupper_l(static_cast<wint_t>(character), unicodeLocale()));
        }
    }
    return result;
}

} // namespace kest::host
