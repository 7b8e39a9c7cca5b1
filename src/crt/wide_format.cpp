#include "crt/wide_format.h"

#include <cstddef>
#include <cwchar>
#include <new>
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

// One pass is all: no "%ls" ever completes another "%s".
void replaceStringConversions(wchar_t* translated, const wchar_t* format)
{
    for (; *format != L'\0'; ++format)
    {
        *translated++ = *format;
        if (format[0] == L'%' && format[1] == L's')
        {
            *translated++ = L'l';
        }
    }
    *translated = L'\0';
}

} // namespace

TranslatedFormat::TranslatedFormat(const wchar_t* format)
{
    const std::size_t length = std::wcslen(demand(format));
    // Every two characters become three at most.
    const std::size_t room = length + length / 2 + 1;
    const bool isShort = room <= short_.size();
    if (!isShort)
    {
        long_.reset(new (std::nothrow) wchar_t[room]);
    }
    text_ = isShort ? short_.data() : long_.get();
    if (text_ != nullptr)
    {
        replaceStringConversions(text_, format);
    }
}

} // namespace kest
