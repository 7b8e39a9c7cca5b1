// A command line for the shell, put together from wide texts.
#pragma once

#include "support/text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <string_view>

namespace kest
{

// Has room for so many wide texts, each cut to scratch size, and for the few characters between them.
template <std::size_t Texts>
class ShellCommand
{
public:
    // At most `Texts` calls.
    void append(const wchar_t* text)
    {
        char* const end = buffer_.data() + length_;
        narrowIntoScratch(end, text, scratchSize);
        length_ += std::strlen(end);
    }

    void append(std::string_view literal)
    {
        *std::copy(literal.begin(), literal.end(), buffer_.data() + length_) = '\0';
        length_ += literal.size();
    }

    bool empty() const { return length_ == 0; }

    // Waits until the command ends; how it ended makes no difference to any caller.
    void run() const { [[maybe_unused]] const int status = std::system(buffer_.data()); }

private:
    static constexpr std::size_t literalRoom = 16;

    std::array<char, Texts * scratchSize + literalRoom> buffer_;
    std::size_t length_ = 0;
};

} // namespace kest
