#include "kest/crt/formatted_output.h"

#include "crt/wide_format.h"
#include "kest/user_interface/strings.h"
#include "support/checked_entry_points.h"
#include "support/second_name.h"

#include <array>
#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <cwchar>
#include <memory>
#include <new>

using kest::checkLevel;
using kest::TranslatedFormat;
using kest::unknownObjectSize;

namespace
{

// What all answer that cannot keep their format.
constexpr int withoutMemory = -1;

int formatInto(wchar_t* buffer, std::size_t size, const TranslatedFormat& format, std::va_list arguments)
{
    return format.c_str() == nullptr
               ? withoutMemory
               : __vswprintf_chk(buffer, size, checkLevel, unknownObjectSize, format.c_str(), arguments);
}

// Leaves the arguments for another attempt.
int tryToFormatInto(wchar_t* buffer, std::size_t size, const TranslatedFormat& format, std::va_list arguments)
{
    std::va_list copy;
    va_copy(copy, arguments);
    const int length = formatInto(buffer, size, format, copy);
    va_end(copy);
    return length;
}

// A text formatted into scratch, so that counting and writing take one pass. Each attempt that does not fit costs the
// C library more than one that does: a text too long for the small scratch goes to the largest at once, and one that
// does not fit there, terminator included, has failed.
class ScratchText
{
public:
    ScratchText(const wchar_t* format, std::va_list arguments);
    ScratchText(const ScratchText&) = delete;
    ScratchText& operator=(const ScratchText&) = delete;

    bool failed() const { return length_ < 0; }
    int length() const { return length_; }
    std::size_t lengthWithTerminator() const { return static_cast<std::size_t>(length_) + 1; }

    void copyTo(wchar_t* destination, std::size_t count) const
    {
        std::wmemcpy(destination, large_ == nullptr ? small_.data() : large_.get(), count);
    }

private:
    static constexpr std::size_t smallSize = 4096;
    static constexpr std::size_t largestSize = 524288;

    std::array<wchar_t, smallSize> small_;
    std::unique_ptr<wchar_t[]> large_;
    int length_;
};

ScratchText::ScratchText(const wchar_t* format, std::va_list arguments)
{
    const TranslatedFormat translated(format);
    length_ = tryToFormatInto(small_.data(), smallSize, translated, arguments);
    // Where memory is short, the most that there is may do.
    for (std::size_t size = largestSize; failed() && large_ == nullptr && size > smallSize; size /= 2)
    {
        large_.reset(new (std::nothrow) wchar_t[size]);
        length_ = large_ == nullptr ? length_ : tryToFormatInto(large_.get(), size, translated, arguments);
    }
}

} // namespace

// ---- Narrow ----------------------------------------------------------------------------------------------------

int _vscprintf(const char* format, va_list arguments)
{
    return __vsnprintf_chk(nullptr, 0, checkLevel, unknownObjectSize, format, arguments);
}

int vsprintf_s(char* buffer, size_t size, const char* format, va_list arguments)
{
    return __vsnprintf_chk(buffer, size, checkLevel, unknownObjectSize, format, arguments);
}

// ---- Wide, to a stream -----------------------------------------------------------------------------------------

int _tarvwprintf(const wchar_t* format, va_list arguments)
{
    const TranslatedFormat translated(format);
    return translated.c_str() == nullptr ? withoutMemory : __vwprintf_chk(checkLevel, translated.c_str(), arguments);
}

int _tarwprintf(const wchar_t* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const int result = _tarvwprintf(format, arguments);
    va_end(arguments);
    return result;
}

int _tarvfwprintf(FILE* stream, const wchar_t* format, va_list arguments)
{
    const TranslatedFormat translated(format);
    return translated.c_str() == nullptr ? withoutMemory
                                         : __vfwprintf_chk(stream, checkLevel, translated.c_str(), arguments);
}

int _tarfwprintf(FILE* stream, const wchar_t* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const int result = _tarvfwprintf(stream, format, arguments);
    va_end(arguments);
    return result;
}

// ---- Wide, to a buffer -----------------------------------------------------------------------------------------

int _tarvswprintf(wchar_t* buffer, size_t count, const wchar_t* format, va_list arguments)
{
    return formatInto(buffer, count, TranslatedFormat(format), arguments);
}

KEST_SECOND_NAME(int encodedTarvswprintf(wchar_t*, size_t, const wchar_t*, va_list), "_tarvswprintf",
                 "_Z13_tarvswprintfPwmPKw" KEST_VA_LIST_CODE);

int _tarswprintf(wchar_t* buffer, size_t count, const wchar_t* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const int result = _tarvswprintf(buffer, count, format, arguments);
    va_end(arguments);
    return result;
}

int _vscwprintf(const wchar_t* format, va_list arguments)
{
    const ScratchText text(format, arguments);
    return text.failed() ? -1 : text.length() + 1;
}

int _vswprintf(wchar_t* buffer, const wchar_t* format, va_list arguments)
{
    const ScratchText text(format, arguments);
    if (text.failed())
    {
        return -1;
    }
    text.copyTo(buffer, text.lengthWithTerminator());
    return text.length();
}

int _tarvswprintf(wchar_t* buffer, const wchar_t* format, va_list arguments)
{
    return _vswprintf(buffer, format, arguments);
}

int swprintf(wchar_t* buffer, const wchar_t* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const int result = _vswprintf(buffer, format, arguments);
    va_end(arguments);
    return result;
}

int wsprintfW(wchar_t* buffer, const wchar_t* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const int result = _vswprintf(buffer, format, arguments);
    va_end(arguments);
    return result;
}

int vswprintf_s(wchar_t* buffer, size_t size, const wchar_t* format, va_list arguments)
{
    const ScratchText text(format, arguments);
    if (text.failed())
    {
        return -1;
    }
    if (size >= text.lengthWithTerminator())
    {
        text.copyTo(buffer, text.lengthWithTerminator());
        return text.length();
    }
    text.copyTo(buffer, size);
    // The contract's place for it: one past the caller's size.
    buffer[size] = L'\0';
    return static_cast<int>(size) - 1;
}

int _vsnwprintf_s(wchar_t* buffer, size_t, size_t count, const wchar_t* format, va_list arguments)
{
    return vswprintf_s(buffer, count, format, arguments);
}
