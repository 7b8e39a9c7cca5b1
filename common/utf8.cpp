#include "common/utf8.h"

#include <cstdint>

namespace kest::common
{

namespace
{

// What the first byte of a character says of the others.
struct Lead
{
    std::size_t following;   // bytes to come; none for bytes that begin no character
    std::uint32_t bits;      // the code's bits in the first byte
    unsigned char low, high; // what the second byte may be: keeps out overlong forms, surrogates, too large codes
};

Lead leadOf(unsigned char byte)
{
    if (byte >= 0xC2 && byte <= 0xDF)
        return {1, byte & 0x1FU, 0x80, 0xBF};
    if (byte >= 0xE0 && byte <= 0xEF)
        return {2, byte & 0x0FU, static_cast<unsigned char>(byte == 0xE0 ? 0xA0 : 0x80),
                static_cast<unsigned char>(byte == 0xED ? 0x9F : 0xBF)};
    if (byte >= 0xF0 && byte <= 0xF4)
        return {3, byte & 0x07U, static_cast<unsigned char>(byte == 0xF0 ? 0x90 : 0x80),
                static_cast<unsigned char>(byte == 0xF4 ? 0x8F : 0xBF)};
    return {0, 0, 0, 0};
}

} // namespace

DecodedText decodeUtf8(std::string_view bytes, Malformed replaced)
{
    DecodedText decoded;
    decoded.text.reserve(bytes.size());
    for (std::size_t at = 0; at < bytes.size();)
    {
        const std::size_t begin = at;
        const auto first = static_cast<unsigned char>(bytes[at++]);
        if (first < 0x80)
        {
            decoded.text += static_cast<wchar_t>(first);
            continue;
        }
        auto [following, code, low, high] = leadOf(first);
        bool whole = following != 0;
        for (; whole && following != 0; --following)
        {
            const auto next = at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : static_cast<unsigned char>(0);
            whole = next >= low && next <= high;
            if (whole)
            {
                code = code << 6 | (next & 0x3FU);
                ++at;
            }
            low = 0x80;
            high = 0xBF;
        }
        decoded.text += whole ? static_cast<wchar_t>(code) : replacementCharacter;
        if (!whole)
        {
            at = replaced == Malformed::byte ? begin + 1 : at;
            decoded.malformed = decoded.valid() ? begin : decoded.malformed;
        }
    }
    return decoded;
}

EncodedText encodeUtf8(std::wstring_view text)
{
    EncodedText encoded;
    encoded.bytes.reserve(text.size());
    const auto put = [&encoded](std::uint32_t byte) { encoded.bytes += static_cast<char>(byte); };
    const auto putFollowing = [&put](std::uint32_t code, int shift) { put(0x80 | (code >> shift & 0x3F)); };
    for (const wchar_t character : text)
    {
        auto code = static_cast<std::uint32_t>(character);
        if (code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF))
        {
            code = static_cast<std::uint32_t>(replacementCharacter);
            encoded.valid = false;
        }
        if (code < 0x80)
        {
            put(code);
        }
        else if (code < 0x800)
        {
            put(0xC0 | code >> 6);
            putFollowing(code, 0);
        }
        else if (code < 0x10000)
        {
            put(0xE0 | code >> 12);
            putFollowing(code, 6);
            putFollowing(code, 0);
        }
        else
        {
            put(0xF0 | code >> 18);
            putFollowing(code, 12);
            putFollowing(code, 6);
            putFollowing(code, 0);
        }
    }
    return encoded;
}

} // namespace kest::common
