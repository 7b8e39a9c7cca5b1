// Conversion between wide text and the process's multibyte encoding.
#pragma once

#include <array>
#include <cstddef>
#include <memory>

namespace kest
{

// What narrow and widen answer for text that the locale cannot convert.
inline constexpr std::size_t conversionFailed = static_cast<std::size_t>(-1);

// wcstombs with a fast path for ASCII: same result, same bytes in `destination`. At most `limit` bytes are
// written; a failing conversion leaves the converted prefix and no terminator, and a text that fills the
// limit has no terminator either.
std::size_t narrow(char* destination, const wchar_t* source, std::size_t limit);

// mbstowcs with a fast path for ASCII, likewise; `limit` is in characters.
std::size_t widen(wchar_t* destination, const char* source, std::size_t limit);

// widen, but a text that the locale cannot convert ends, terminated, after what it can. A text that fills the limit
// has no terminator here either.
void widenTerminated(wchar_t* destination, const char* source, std::size_t limit);

// narrow into scratch of `size` bytes that ends up terminated in every case: longer text is cut after
// size - 1 bytes, text that the locale cannot encode after the last character that it can.
std::size_t narrowIntoScratch(char* scratch, const wchar_t* source, std::size_t size);

// Wide text narrowed into scratch of a fixed size, as narrowIntoScratch does it.
template <std::size_t Size>
class FixedNarrowText
{
public:
    explicit FixedNarrowText(const wchar_t* text) : converted_(narrowIntoScratch(buffer_.data(), text, Size)) {}

    const char* c_str() const { return buffer_.data(); }
    char* data() { return buffer_.data(); }

    // Bytes converted; conversionFailed when a character could not be encoded.
    std::size_t converted() const { return converted_; }

private:
    std::array<char, Size> buffer_;
    std::size_t converted_;
};

// The scratch size of most converted arguments, in bytes.
inline constexpr std::size_t scratchSize = 4096;
using NarrowText = FixedNarrowText<scratchSize>;

// Wide text narrowed whole: scratch of (length + 1) * 4 bytes has room for any encoding. Null when there is
// no memory for it.
class WholeNarrowText
{
public:
    explicit WholeNarrowText(const wchar_t* text);

    const char* c_str() const { return buffer_.get(); }
    char* data() { return buffer_.get(); }

private:
    std::unique_ptr<char[]> buffer_;
};

} // namespace kest
