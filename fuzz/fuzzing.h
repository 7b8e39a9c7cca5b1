// What the fuzz targets share: reading arguments out of the fuzzer's bytes, and failing loudly.
#pragma once

#include <cstdarg>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fuzzer/FuzzedDataProvider.h>
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

} // namespace kest::fuzz
