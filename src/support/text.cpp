#include "support/text.h"

#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <langinfo.h>
#include <new>

namespace kest
{

namespace
{

// In these encodings every ASCII character is one byte of the same value, wherever it stands.
bool encodingKeepsAscii()
{
    const char* const codeset = nl_langinfo(CODESET);
    return std::strcmp(codeset, "UTF-8") == 0 || std::strcmp(codeset, "ANSI_X3.4-1968") == 0;
}

// Copies characters 1 to 127 until another comes or `limit` is reached; returns their number.
template <class From, class To>
std::size_t copyAscii(To* destination, const From* source, std::size_t limit)
{
    if (!encodingKeepsAscii())
    {
        return 0;
    }
    std::size_t count = 0;
    // One unsigned comparison leaves out the terminator and every code outside ASCII, on both
    // signednesses of char and wchar_t.
    while (count < limit && static_cast<unsigned>(source[count]) - 1U < 127U)
    {
        destination[count] = static_cast<To>(source[count]);
        ++count;
    }
    return count;
}

// The C library's conversion, entered at the first character that is not plain ASCII.
template <class From, class To>
std::size_t convert(std::size_t (&conversion)(To*, const From*, std::size_t), To* destination, const From* source,
                    std::size_t limit)
{
    if (destination == nullptr)
    {
        return conversion(destination, source, limit);
    }
    const std::size_t ascii = copyAscii(destination, source, limit);
    if (ascii == limit)
    {
        return limit;
    }
    if (source[ascii] == 0)
    {
        destination[ascii] = 0;
        return ascii;
    }
    const std::size_t rest = conversion(destination + ascii, source + ascii, limit - ascii);
    return rest == conversionFailed ? conversionFailed : ascii + rest;
}

} // namespace

std::size_t narrow(char* destination, const wchar_t* source, std::size_t limit)
{
    return convert(std::wcstombs, destination, source, limit);
}

std::size_t widen(wchar_t* destination, const char* source, std::size_t limit)
{
    return convert(std::mbstowcs, destination, source, limit);
}

void widenTerminated(wchar_t* destination, const char* source, std::size_t limit)
{
    if (widen(destination, source, limit) != conversionFailed)
    {
        return;
    }
    // A failing conversion does not say how much it wrote: measure what can be converted.
    std::mbstate_t state = {};
    std::size_t left = std::strlen(source);
    std::size_t count = 0;
    for (std::size_t bytes = std::mbrlen(source, left, &state); count < limit && bytes - 1 < left;
         bytes = std::mbrlen(source, left, &state))
    {
        source += bytes;
        left -= bytes;
        ++count;
    }
    destination[count] = L'\0';
}

std::size_t narrowIntoScratch(char* scratch, const wchar_t* source, std::size_t size)
{
    const std::size_t limit = size - 1;
    const std::size_t ascii = copyAscii(scratch, source, limit);
    // A failing conversion does not say how much it wrote: the zeros behind the prefix terminate it.
    std::memset(scratch + ascii, 0, source[ascii] == 0 || ascii == limit ? 1 : size - ascii);
    if (source[ascii] == 0 || ascii == limit)
    {
        return ascii;
    }
    const std::size_t rest = std::wcstombs(scratch + ascii, source + ascii, limit - ascii);
    return rest == conversionFailed ? conversionFailed : ascii + rest;
}

WholeNarrowText::WholeNarrowText(const wchar_t* text)
{
    const std::size_t size = (std::wcslen(text) + 1) * sizeof(wchar_t);
    buffer_.reset(new (std::nothrow) char[size]);
    if (buffer_ != nullptr)
    {
        narrowIntoScratch(buffer_.get(), text, size);
    }
}

} // namespace kest
