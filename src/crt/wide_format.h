// Wide formats as Windows code writes them, made fit for the C library.
#pragma once

#include <array>
#include <memory>

namespace kest
{

// A writable copy of a format with every "%s" replaced by "%ls". That it is writable matters: the C library's
// checked functions end the process over a "%n" in writable memory, whatever memory the caller's format is in.
class TranslatedFormat
{
public:
    // A null format throws std::logic_error. Without memory there is no copy.
    explicit TranslatedFormat(const wchar_t* format);
    TranslatedFormat(const TranslatedFormat&) = delete;
    TranslatedFormat& operator=(const TranslatedFormat&) = delete;

    // Null without memory.
    const wchar_t* c_str() const { return text_; }

private:
    std::array<wchar_t, 256> short_;
    std::unique_ptr<wchar_t[]> long_;
    wchar_t* text_;
};

} // namespace kest
