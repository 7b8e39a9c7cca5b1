#include "common/utf8.h"
#include "kest/registry.h"
#include "reg_text.h"
#include "registry_store.h"
#include "text.h"
#include "unicode.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace kest::host
{

namespace
{

constexpr std::wstring_view firstLine = L"Windows Registry Editor Version 5.00";
constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view utf16Mark = "\xFF\xFE";
constexpr std::string_view utf16BigEndianMark = "\xFE\xFF";

template <class Text>
std::size_t lineAt(const Text& text, std::size_t offset)
{
    using Character = typename Text::value_type;
    return 1 + static_cast<std::size_t>(std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(offset),
                                                   static_cast<Character>('\n')));
}

std::wstring decoded(std::string_view bytes)
{
    std::wstring text;
    if (bytes.starts_with(utf16BigEndianMark))
    {
        throw RegTextError(1, "UTF-16 with the high byte first is not read");
    }
    if (bytes.starts_with(utf16Mark))
    {
        bytes.remove_prefix(utf16Mark.size());
        text = fromUtf16Le(bytes);
        if (bytes.size() % 2 != 0)
        {
            throw RegTextError(lineAt(text, text.size()), "the file ends within a character");
        }
    }
    else
    {
        bytes.remove_prefix(bytes.starts_with(utf8Mark) ? utf8Mark.size() : 0);
        common::DecodedText utf8 = common::decodeUtf8(bytes, common::Malformed::byte);
        if (!utf8.valid())
        {
            throw RegTextError(lineAt(bytes, utf8.malformed), "this is no UTF-8 text");
        }
        text = std::move(utf8.text);
    }
    if (const std::size_t null = text.find(L'\0'); null != text.npos)
    {
        throw RegTextError(lineAt(text, null), "a null character; UTF-16 text must begin with a byte-order mark");
    }
    return text;
}

std::optional<unsigned> hexDigit(wchar_t character)
{
    const auto code = static_cast<std::uint32_t>(character);
    const std::uint32_t letter = (code | 0x20) - 'a';
    return code - '0' < 10 ? std::optional(code - '0') : letter < 6 ? std::optional(letter + 10) : std::nullopt;
}

class Reader
{
public:
    explicit Reader(std::wstring_view text) : rest_(text) {}

    std::vector<RegTextKey> read()
    {
        if (trimmed(takeLine()) != firstLine)
        {
            throw RegTextError(1, "the file must begin with \"" + toUtf8(firstLine) + "\"");
        }
        for (skipBlankLines(); !rest_.empty(); skipBlankLines())
        {
            if (rest_.front() == L'[')
            {
                readKey();
            }
            else if (rest_.front() == L'"' || rest_.front() == L'@')
            {
                readValue();
            }
            else
            {
                fail("a key in brackets, a value or a comment is expected");
            }
        }
        return std::move(keys_);
    }

private:
    [[noreturn]] void fail(const std::string& message) const { throw RegTextError(line_, message); }

    void skip(std::size_t count)
    {
        line_ += lineAt(rest_.substr(0, count), count) - 1;
        rest_.remove_prefix(count);
    }

    bool take(wchar_t character)
    {
        const bool present = rest_.starts_with(character);
        skip(present ? 1 : 0);
        return present;
    }

    // The rest of the line; what follows is the next.
    std::wstring_view takeLine()
    {
        const std::size_t end = std::min(rest_.find(L'\n'), rest_.size());
        const std::wstring_view line = rest_.substr(0, end);
        skip(std::min(end + 1, rest_.size()));
        return line;
    }

    void skipBlanks() { skip(std::min(rest_.find_first_not_of(L" \t"), rest_.size())); }

    void skipBlankLines()
    {
        for (;;)
        {
            skip(std::min(rest_.find_first_not_of(L" \t\r\n"), rest_.size()));
            if (!rest_.starts_with(L';'))
            {
                return;
            }
            takeLine();
        }
    }

    void readKey()
    {
        RegTextKey key;
        key.line = line_;
        const std::size_t lineEnd = std::min(rest_.find(L'\n'), rest_.size());
        std::wstring_view text = trimmed(rest_.substr(0, lineEnd));
        // A name may hold brackets: the last one closes, unless it stands in a comment.
        std::size_t close = text.rfind(L']');
        while (close != text.npos && close + 1 != text.size() && !trimmed(text.substr(close + 1)).starts_with(L';'))
        {
            close = close == 0 ? text.npos : text.rfind(L']', close - 1);
        }
        if (close == text.npos)
        {
            fail("the bracket behind the key is missing");
        }
        text = text.substr(1, close - 1);
        key.removed = text.starts_with(L'-');
        text.remove_prefix(key.removed ? 1 : 0);
        if (text.empty())
        {
            fail("the key has no name");
        }
        if (!isKeyPath(text))
        {
            fail("a key's name has more than " + std::to_string(longestKeyName) +
                 " characters or one that cannot be printed");
        }
        key.path = text;
        keys_.push_back(std::move(key));
        takeLine();
    }

    void readValue()
    {
        if (keys_.empty())
        {
            fail("a value stands before the first key");
        }
        if (keys_.back().removed)
        {
            fail("a value stands below a key that is deleted");
        }
        RegTextValue value;
        value.name = take(L'@') ? std::wstring() : takeQuoted();
        if (value.name.size() > longestValueName)
        {
            fail("a value's name has more than " + std::to_string(longestValueName) + " characters");
        }
        skipBlanks();
        if (!take(L'='))
        {
            fail("\"=\" is expected behind the value's name");
        }
        skipBlanks();
        readData(value);
        skipBlanks();
        const std::size_t lineEnd = std::min(rest_.find(L'\n'), rest_.size());
        if (!rest_.starts_with(L';') && !trimmed(rest_.substr(0, lineEnd)).empty())
        {
            fail("unexpected text behind the value");
        }
        takeLine();
        keys_.back().values.push_back(std::move(value));
    }

    // Text between quotes, which may go over line ends.
    std::wstring takeQuoted()
    {
        const std::size_t begin = line_;
        std::wstring text;
        skip(1);
        while (!rest_.starts_with(L'"'))
        {
            const std::size_t plain = std::min(rest_.find_first_of(L"\"\\"), rest_.size());
            text += rest_.substr(0, plain);
            skip(plain);
            if (take(L'\\'))
            {
                if (!rest_.starts_with(L'\\') && !rest_.starts_with(L'"'))
                {
                    fail("a backslash between quotes must stand before another or before a quote");
                }
                text += rest_.front();
                skip(1);
            }
            else if (rest_.empty())
            {
                throw RegTextError(begin, "the closing quote is missing");
            }
        }
        skip(1);
        return text;
    }

    void readData(RegTextValue& value)
    {
        if (take(L'-'))
        {
            value.removed = true;
            return;
        }
        if (rest_.starts_with(L'"'))
        {
            value.type = REG_SZ;
            setText(value, takeQuoted() + L'\0');
            return;
        }
        const std::size_t length = std::min(rest_.find_first_of(L":\r\n"), rest_.size());
        const std::wstring kind = folded(trimmed(rest_.substr(0, length)));
        if (kind != L"DWORD" && kind != L"HEX" && !(kind.starts_with(L"HEX(") && kind.ends_with(L')')))
        {
            fail("the value's data must be text between quotes, dword:, hex:, hex(N): or -");
        }
        skip(length);
        if (!take(L':'))
        {
            fail("\":\" is expected behind the value's type");
        }
        skipBlanks();
        if (kind == L"DWORD")
        {
            value.type = REG_DWORD;
            std::size_t digits = 0;
            const std::uint32_t number = takeHexNumber(digits);
            if (digits == 0 || digits > 8)
            {
                fail("dword: needs one to eight hexadecimal digits");
            }
            value.data.assign({static_cast<unsigned char>(number), static_cast<unsigned char>(number >> 8),
                               static_cast<unsigned char>(number >> 16), static_cast<unsigned char>(number >> 24)});
            return;
        }
        value.type = kind == L"HEX" ? REG_BINARY : typeNumber(std::wstring_view(kind).substr(4, kind.size() - 5));
        readBytes(value);
    }

    std::uint32_t typeNumber(std::wstring_view digits) const
    {
        std::uint32_t number = 0;
        for (const wchar_t digit : digits)
        {
            const std::optional<unsigned> part = hexDigit(digit);
            if (!part || digits.size() > 8)
            {
                fail("the type in hex(N): needs one to eight hexadecimal digits");
            }
            number = number << 4 | *part;
        }
        if (digits.empty())
        {
            fail("the type in hex(N): needs one to eight hexadecimal digits");
        }
        return number;
    }

    std::uint32_t takeHexNumber(std::size_t& digits)
    {
        std::uint32_t number = 0;
        for (digits = 0; !rest_.empty() && hexDigit(rest_.front()); ++digits)
        {
            number = number << 4 | *hexDigit(rest_.front());
            skip(1);
        }
        return number;
    }

    // Blanks, and line ends behind a backslash.
    void skipGap()
    {
        for (skipBlanks(); take(L'\\'); skipBlanks())
        {
            const std::size_t end = rest_.find(L'\n');
            if (end == rest_.npos || !trimmed(rest_.substr(0, end)).empty())
            {
                fail("a backslash between bytes must end its line, and another line must follow");
            }
            takeLine();
        }
    }

    void readBytes(RegTextValue& value)
    {
        const std::size_t begin = line_;
        for (skipGap(); !rest_.empty() && hexDigit(rest_.front()); skipGap())
        {
            std::size_t digits = 0;
            value.data.push_back(static_cast<unsigned char>(takeHexNumber(digits)));
            if (digits > 2)
            {
                fail("a byte has more than two hexadecimal digits");
            }
            skipGap();
            if (!take(L','))
            {
                break;
            }
            skipGap();
            if (rest_.empty() || !hexDigit(rest_.front()))
            {
                fail("a byte is expected behind the comma");
            }
        }
        if (isRegistryText(value.type))
        {
            if (value.data.size() % 2 != 0)
            {
                throw RegTextError(begin, "text in UTF-16 needs an even number of bytes");
            }
            setText(value, fromUtf16Le({reinterpret_cast<const char*>(value.data.data()), value.data.size()}));
        }
    }

    static void setText(RegTextValue& value, const std::wstring& text)
    {
        const auto* const data = reinterpret_cast<const unsigned char*>(text.data());
        value.data.assign(data, data + text.size() * sizeof(wchar_t));
    }

    std::wstring_view rest_;
    std::size_t line_ = 1;
    std::vector<RegTextKey> keys_;
};

} // namespace

std::vector<RegTextKey> readRegText(std::string_view bytes)
{
    const std::wstring text = decoded(bytes);
    return Reader(text).read();
}

} // namespace kest::host
