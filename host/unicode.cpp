#include "unicode.h"

#include "common/utf8.h"

#include <cstdint>
#include <cwctype>
#include <locale.h>

namespace kest::host
{

namespace
{

// The C library's Unicode tables, whatever the program has set; where there are none, ASCII.
locale_t unicodeLocale()
{
    static const locale_t locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    return locale;
}

} // namespace

std::string toUtf8(std::wstring_view text)
{
    return common::encodeUtf8(text).bytes;
}

std::wstring fromUtf8(std::string_view text)
{
    return common::decodeUtf8(text, common::Malformed::byte).text;
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
