#include "crt/wide_format.h"

#include <cstddef>
#include <cwchar>
#include <new>
#include <span>
#include <stdexcept>

namespace kest
{

namespace
{

const wchar_t* demand(const wchar_t* format)
{
    if (format == nullptr)
    {
        throw std::logic_error("basic_string::_M_construct null not valid");
    }
    return format;
}

// What a character can become, and a terminator.
constexpr std::size_t longestStep = 3;

// One pass is all: no "%ls" ever completes another "%s". Answers whether there was room.
bool replaceStringConversions(std::span<wchar_t> translated, const wchar_t* format)
{
    wchar_t* out = translated.data();
    const wchar_t* const lastStep = out + translated.size() - longestStep;
    for (; *format != L'\0'; ++format)
    {
        if (out > lastStep)
        {
            return false;
        }
        *out++ = *format;
        if (format[0] == L'%' && format[1] == L's')
        {
            *out++ = L'l';
        }
    }
    *out = L'\0';
    return true;
}

} // namespace

TranslatedFormat::TranslatedFormat(const wchar_t* format)
{
    if (replaceStringConversions(short_, demand(format)))
    {
        text_ = short_.data();
        return;
    }
    // Every two characters become three at most.
    const std::size_t length = std::wcslen(format);
    const std::size_t room = length + length / 2 + longestStep;
    long_.reset(new (std::nothrow) wchar_t[room]);
    text_ = long_.get();
    if (text_ != nullptr)
    {
        replaceStringConversions({text_, room}, format);
    }
}

} // namespace kest
