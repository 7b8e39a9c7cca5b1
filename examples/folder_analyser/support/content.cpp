#include "support/content.h"

#include "support/text.h"

#include <algorithm>

namespace
{

constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";

std::string_view bytesOf(const AnalysedFile& file)
{
    return {reinterpret_cast<const char*>(file.bytes), file.size};
}

bool startsWith(std::string_view text, std::string_view start)
{
    return text.substr(0, start.size()) == start;
}

// The length of the well-formed UTF-8 sequence at the start of `text`, 0 if there is none.
std::size_t sequenceLength(std::string_view text)
{
    const auto byte = [&](std::size_t place) { return static_cast<unsigned char>(text[place]); };
    const unsigned lead = byte(0);
    const std::size_t length = lead < 0x80   ? 1
                               : lead < 0xC2 ? 0
                               : lead < 0xE0 ? 2
                               : lead < 0xF0 ? 3
                               : lead < 0xF5 ? 4
                                             : 0;
    if (length == 0 || length > text.size())
    {
        return 0;
    }
    for (std::size_t place = 1; place < length; ++place)
    {
        if ((byte(place) & 0xC0) != 0x80)
        {
            return 0;
        }
    }
    // Overlong forms, surrogates and what lies beyond the last code point.
    const bool bad = (lead == 0xE0 && byte(1) < 0xA0) || (lead == 0xED && byte(1) > 0x9F) ||
                     (lead == 0xF0 && byte(1) < 0x90) || (lead == 0xF4 && byte(1) > 0x8F);
    return bad ? 0 : length;
}

bool isUtf8(std::string_view text)
{
    while (!text.empty())
    {
        const std::size_t length = sequenceLength(text);
        if (length == 0)
        {
            return false;
        }
        text.remove_prefix(length);
    }
    return true;
}

// Control characters that no text file holds.
bool isBinaryByte(unsigned char byte)
{
    return byte < 0x20 && !(byte >= '\a' && byte <= '\r') && byte != 0x1A && byte != 0x1B;
}

std::string fromEightBit(std::string_view bytes)
{
    std::string out;
    out.reserve(bytes.size());
    for (const char byte : bytes)
    {
        text::appendUtf8(out, static_cast<unsigned char>(byte));
    }
    return out;
}

std::string fromUtf16(std::string_view bytes, bool bigEndian)
{
    const auto unitAt = [&](std::size_t place) -> unsigned long
    {
        const unsigned long first = static_cast<unsigned char>(bytes[place]);
        const unsigned long second = static_cast<unsigned char>(bytes[place + 1]);
        return bigEndian ? first << 8 | second : second << 8 | first;
    };
    std::string out;
    out.reserve(bytes.size());
    for (std::size_t place = 2; place + 1 < bytes.size(); place += 2)
    {
        unsigned long unit = unitAt(place);
        const bool high = unit >= 0xD800 && unit <= 0xDBFF;
        const unsigned long next = high && place + 3 < bytes.size() ? unitAt(place + 2) : 0;
        if (next >= 0xDC00 && next <= 0xDFFF)
        {
            unit = 0x10000 + ((unit - 0xD800) << 10) + (next - 0xDC00);
            place += 2;
        }
        text::appendUtf8(out, unit);
    }
    return out;
}

} // namespace

Encoding encodingOf(const AnalysedFile& file)
{
    const std::string_view bytes = bytesOf(file);
    if (bytes.empty())
    {
        return Encoding::Empty;
    }
    if (startsWith(bytes, "\xFF\xFE"))
    {
        return Encoding::Utf16Little;
    }
    if (startsWith(bytes, "\xFE\xFF"))
    {
        return Encoding::Utf16Big;
    }
    if (std::any_of(file.bytes, file.bytes + file.size, isBinaryByte))
    {
        return Encoding::Binary;
    }
    if (std::all_of(file.bytes, file.bytes + file.size, [](unsigned char byte) { return byte < 0x80; }))
    {
        return Encoding::Ascii;
    }
    if (isUtf8(bytes))
    {
        return startsWith(bytes, utf8Mark) ? Encoding::Utf8WithMark : Encoding::Utf8;
    }
    return Encoding::EightBit;
}

TextContent::TextContent(const AnalysedFile& file) : isText_(true)
{
    utf8_ = bytesOf(file);
    const Encoding encoding = encodingOf(file);
    switch (encoding)
    {
    case Encoding::Utf8WithMark:
        utf8_.remove_prefix(utf8Mark.size());
        break;
    case Encoding::Utf16Little:
    case Encoding::Utf16Big:
        converted_ = fromUtf16(utf8_, encoding == Encoding::Utf16Big);
        utf8_ = converted_;
        break;
    case Encoding::EightBit:
        converted_ = fromEightBit(utf8_);
        utf8_ = converted_;
        break;
    case Encoding::Binary:
        isText_ = false;
        utf8_ = {};
        break;
    case Encoding::Empty:
    case Encoding::Ascii:
    case Encoding::Utf8:
        break;
    }
}

bool LineReader::next()
{
    if (rest_.empty())
    {
        return false;
    }
    const std::size_t place = rest_.find_first_of("\r\n");
    if (place == std::string_view::npos)
    {
        line_ = rest_;
        end_ = LineEnd::None;
        rest_ = {};
        return true;
    }
    line_ = rest_.substr(0, place);
    end_ = rest_[place] == '\n' ? LineEnd::Lf : rest_.substr(place, 2) == "\r\n" ? LineEnd::CrLf : LineEnd::Cr;
    rest_.remove_prefix(place + (end_ == LineEnd::CrLf ? 2 : 1));
    return true;
}

unsigned long long characterCount(std::string_view utf8)
{
    const auto starts = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; };
    return static_cast<unsigned long long>(std::count_if(utf8.begin(), utf8.end(), starts));
}
