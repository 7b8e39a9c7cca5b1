// What the fuzz targets share: reading arguments out of the fuzzer's bytes, and failing loudly.
#pragma once

#include <algorithm>
#include <cstdarg>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fuzzer/FuzzedDataProvider.h>
#include <memory>
#include <string>

namespace kest::fuzz
{

// Ends the program with a message, which the fuzzer reports with the input.
[[noreturn]] inline void fail(const char* what)
{
    std::fprintf(stderr, "the result differs from the model: %s\n", what);
    std::abort();
}

inline void require(bool holds, const char* what)
{
    if (!holds)
    {
        fail(what);
    }
}

// A buffer of exactly `size` characters, so that the address sanitizer sees every one too many, filled with a sentinel
// and compared whole. A model writes into one with put, the function that it stands for through data.
template <class CharT>
class Output
{
public:
    explicit Output(std::size_t size) : size_(size), characters_(new CharT[size])
    {
        std::fill_n(characters_.get(), size, sentinel);
    }

    // Holds a text and its terminator; sentinels behind.
    Output(std::size_t size, const std::basic_string<CharT>& text) : Output(size) { put(text + CharT()); }

    CharT* data() { return characters_.get(); }
    std::size_t size() const { return size_; }

    void put(const std::basic_string<CharT>& characters, std::size_t position = 0)
    {
        require(position + characters.size() <= size_, "the target's buffer is too small");
        std::copy(characters.begin(), characters.end(), characters_.get() + position);
    }

    bool operator==(const Output& other) const
    {
        return std::equal(characters_.get(), characters_.get() + size_, other.characters_.get(),
                          other.characters_.get() + other.size_);
    }

private:
    static constexpr CharT sentinel = 0x5A;

    std::size_t size_;
    std::unique_ptr<CharT[]> characters_;
};

// Wide text without terminators, mostly from an alphabet that the target's functions look at.
inline std::wstring wideText(FuzzedDataProvider& data, std::size_t longest, const std::wstring& alphabet)
{
    std::wstring text(data.ConsumeIntegralInRange<std::size_t>(0, longest), L'\0');
    for (wchar_t& character : text)
    {
        const auto choice = data.ConsumeIntegral<std::uint8_t>();
        character = choice < 224 ? alphabet[choice % alphabet.size()]
                                 : static_cast<wchar_t>(data.ConsumeIntegralInRange<std::uint32_t>(1, 0x10FFFF));
    }
    return text;
}

// Narrow text without terminators, likewise.
inline std::string narrowText(FuzzedDataProvider& data, std::size_t longest, const std::string& alphabet)
{
    std::string text(data.ConsumeIntegralInRange<std::size_t>(0, longest), '\0');
    for (char& character : text)
    {
        const auto choice = data.ConsumeIntegral<std::uint8_t>();
        character = choice < 224 ? alphabet[choice % alphabet.size()]
                                 : static_cast<char>(data.ConsumeIntegralInRange<int>(1, 255));
    }
    return text;
}

// Text of a few runs of one character each, for the lengths at which functions change their ways.
template <class CharT>
std::basic_string<CharT> textOfRuns(FuzzedDataProvider& data, std::size_t longest,
                                    const std::basic_string<CharT>& alphabet)
{
    std::basic_string<CharT> text;
    for (int run = data.ConsumeIntegralInRange<int>(1, 6); run > 0; --run)
    {
        const CharT character = alphabet[data.ConsumeIntegralInRange<std::size_t>(0, alphabet.size() - 1)];
        text.append(data.ConsumeIntegralInRange<std::size_t>(0, data.ConsumeBool() ? longest : 3), character);
    }
    text.resize(std::min(text.size(), longest));
    return text;
}

} // namespace kest::fuzz
