#include "kest/registry.h"
#include "reg_text.h"
#include "registry_store.h"
#include "unicode.h"

#include <algorithm>
#include <cstring>
#include <optional>

namespace kest::host
{

namespace
{

constexpr std::size_t lineWidth = 77;

bool isSurrogate(wchar_t character, std::uint32_t half)
{
    return (static_cast<std::uint32_t>(character) & 0xFFFFFC00U) == half;
}

// The characters that data consists of, if UTF-16 can hold them and gives the same ones back.
std::optional<std::wstring> textOf(std::span<const unsigned char> data)
{
    if (data.size() % sizeof(wchar_t) != 0)
    {
        return std::nullopt;
    }
    std::wstring text(data.size() / sizeof(wchar_t), L'\0');
    if (!data.empty())
    {
        std::memcpy(text.data(), data.data(), data.size());
    }
    for (std::size_t at = 0; at < text.size(); ++at)
    {
        const bool wouldMerge = at > 0 && isSurrogate(text[at - 1], 0xD800) && isSurrogate(text[at], 0xDC00);
        if (wouldMerge || static_cast<std::uint32_t>(text[at]) > 0x10FFFF)
        {
            return std::nullopt;
        }
    }
    return text;
}

// Whether text can stand between quotes on one line of any encoding: terminated once, without control characters.
bool isPlain(const std::wstring& text)
{
    if (text.empty() || text.find(L'\0') != text.size() - 1)
    {
        return false;
    }
    for (const wchar_t character : std::wstring_view(text).substr(0, text.size() - 1))
    {
        if (static_cast<std::uint32_t>(character) < 0x20 || isSurrogate(character, 0xD800) ||
            isSurrogate(character, 0xDC00))
        {
            return false;
        }
    }
    return true;
}

std::wstring onOneLine(std::wstring_view text)
{
    std::wstring line(text);
    std::replace_if(
        line.begin(), line.end(), [](wchar_t character) { return static_cast<std::uint32_t>(character) < 0x20; }, L' ');
    return line;
}

std::wstring hexNumber(std::uint32_t number, std::size_t width)
{
    std::wstring digits;
    for (; number != 0 || digits.size() < width; number >>= 4)
    {
        digits.insert(digits.begin(), L"0123456789abcdef"[number & 0xF]);
    }
    return digits;
}

} // namespace

void RegTextWriter::beginKey(std::wstring_view path)
{
    add(L"\r\n[");
    add(path);
    add(L"]\r\n");
}

bool RegTextWriter::addValue(std::wstring_view name, std::uint32_t type, std::span<const unsigned char> data)
{
    const std::optional<std::wstring> text = isRegistryText(type) ? textOf(data) : std::nullopt;
    if (isRegistryText(type) && !text)
    {
        add(L"; left out, as its data is no text: \"" + onOneLine(name) + L"\"\r\n");
        return false;
    }
    const std::size_t begin = text_.size();
    if (name.empty())
    {
        add(L"@");
    }
    else
    {
        addQuoted(name);
    }
    add(L"=");
    if (type == REG_SZ && text && isPlain(*text))
    {
        addQuoted(std::wstring_view(*text).substr(0, text->size() - 1));
    }
    else if (type == REG_DWORD && data.size() == sizeof(std::uint32_t))
    {
        std::uint32_t number = 0;
        std::memcpy(&number, data.data(), sizeof number);
        add(L"dword:" + hexNumber(number, 8));
    }
    else
    {
        add(type == REG_BINARY ? L"hex:" : L"hex(" + hexNumber(type, 1) + L"):");
        const std::string utf16 = text ? toUtf16Le(*text) : std::string();
        const auto* const bytes = reinterpret_cast<const unsigned char*>(utf16.data());
        addBytes(text_.size() - begin, text ? std::span(bytes, utf16.size()) : data);
    }
    add(L"\r\n");
    return true;
}

void RegTextWriter::addQuoted(std::wstring_view text)
{
    text_ += L'"';
    for (const wchar_t character : text)
    {
        if (character == L'"' || character == L'\\')
        {
            text_ += L'\\';
        }
        text_ += character;
    }
    text_ += L'"';
}

void RegTextWriter::addBytes(std::size_t column, std::span<const unsigned char> bytes)
{
    for (std::size_t index = 0; index < bytes.size(); ++index)
    {
        if (column + 3 > lineWidth)
        {
            add(L"\\\r\n  ");
            column = 2;
        }
        add(hexNumber(bytes[index], 2));
        add(index + 1 < bytes.size() ? L"," : L"");
        column += 3;
    }
}

std::string RegTextWriter::utf16() const
{
    return "\xFF\xFE" + toUtf16Le(text_);
}

std::string RegTextWriter::utf8() const
{
    return toUtf8(text_);
}

} // namespace kest::host
