// A buffer filled with a sentinel before the call, compared whole after it: what a function must not touch
// is proved untouched.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace kest::test
{

// The value of an untouched character.
template <class CharT>
inline constexpr CharT sentinel = static_cast<CharT>(0x5A);

template <class CharT, std::size_t Size>
class SentinelBuffer
{
public:
    SentinelBuffer() { buffer_.fill(sentinel<CharT>); }

    // Starts with `text` and its terminator; sentinels behind.
    explicit SentinelBuffer(std::basic_string_view<CharT> text) : SentinelBuffer()
    {
        text.copy(buffer_.data(), Size - 1);
        buffer_.at(text.size()) = CharT();
    }

    CharT* data() { return buffer_.data(); }
    static constexpr std::size_t size() { return Size; }

    // All of it, to compare with startingWith(...) or untouched().
    std::basic_string<CharT> contents() const { return {buffer_.data(), Size}; }

    // What contents() is when exactly `written` stands at the front. Spell terminators out: L"abc\0"s.
    static std::basic_string<CharT> startingWith(const std::basic_string<CharT>& written)
    {
        std::basic_string<CharT> whole(Size, sentinel<CharT>);
        std::copy(written.begin(), written.end(), whole.begin());
        return whole;
    }

    static std::basic_string<CharT> untouched() { return startingWith({}); }

private:
    std::array<CharT, Size> buffer_;
};

} // namespace kest::test
