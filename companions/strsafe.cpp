#include "kest/companions/strsafe.h"

#include "kest/crt/formatted_output.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <memory>
#include <new>
#include <string>
#include <string_view>

namespace
{

constexpr std::size_t largestSize = STRSAFE_MAX_CCH;
constexpr std::size_t unlimited = largestSize - 1;
constexpr DWORD allFlags = 0x1FFF;

// What the Ex forms take beside the plain ones; the plain forms are without.
template <class CharT>
struct Extras
{
    CharT** end = nullptr;
    std::size_t* left = nullptr;
    std::size_t unit = 1; // bytes, or characters, that a character counts in *left
    DWORD flags = 0;

    bool has(DWORD flag) const { return (flags & flag) != 0; }
};

template <class CharT>
std::size_t lengthWithin(const CharT* text, std::size_t limit)
{
    return static_cast<std::size_t>(std::find(text, text + limit, CharT()) - text);
}

// A buffer and what a function leaves in it.
template <class CharT>
class Destination
{
public:
    Destination(CharT* buffer, std::size_t size, const Extras<CharT>& extras)
        : buffer_(buffer), size_(size), extras_(extras)
    {
    }

    bool usable() const
    {
        if ((extras_.flags & ~allFlags) != 0 || size_ > largestSize)
            return false;
        return buffer_ != nullptr ? size_ != 0 : size_ == 0 && extras_.has(STRSAFE_IGNORE_NULLS);
    }

    // Puts a text behind the first `at` characters, cut to the room there is.
    HRESULT put(std::size_t at, std::basic_string_view<CharT> text)
    {
        if (buffer_ == nullptr)
            return text.empty() ? S_OK : STRSAFE_E_INSUFFICIENT_BUFFER;
        const std::size_t room = size_ - at - 1;
        const bool fits = text.size() <= room;
        if (!fits && extras_.has(STRSAFE_NO_TRUNCATION))
            text = {};
        const std::size_t taken = std::min(text.size(), room);
        std::char_traits<CharT>::move(buffer_ + at, text.data(), taken);
        finish(at + taken);
        return fits ? succeed() : fail(STRSAFE_E_INSUFFICIENT_BUFFER);
    }

    // The printed text could not be had.
    HRESULT refuseText()
    {
        if (buffer_ != nullptr)
            finish(0);
        return fail(STRSAFE_E_INVALID_PARAMETER);
    }

    // Nothing is put: the buffer is as it was, but for what the flags ask of a failure.
    HRESULT refuse() { return buffer_ != nullptr && size_ != 0 ? fail(STRSAFE_E_INVALID_PARAMETER) : notUsable(); }

    static constexpr HRESULT notUsable() { return STRSAFE_E_INVALID_PARAMETER; }

    // The length of the text that is there; `size` when it has no terminator.
    std::size_t length() const { return buffer_ == nullptr ? 0 : lengthWithin(buffer_, size_); }
    std::size_t size() const { return size_; }

private:
    void finish(std::size_t length)
    {
        buffer_[length] = CharT();
        tell(length);
    }

    void tell(std::size_t length)
    {
        if (extras_.end != nullptr)
            *extras_.end = buffer_ + length;
        if (extras_.left != nullptr)
            *extras_.left = (size_ - length) * extras_.unit;
        length_ = length;
    }

    HRESULT succeed()
    {
        if (extras_.has(STRSAFE_FILL_BEHIND_NULL))
            fill(length_ + 1, size_);
        return S_OK;
    }

    HRESULT fail(HRESULT result)
    {
        if (buffer_ == nullptr)
            return result;
        if (extras_.has(STRSAFE_FILL_ON_FAILURE))
        {
            fill(0, size_);
            if ((extras_.flags & 0xFF) == 0)
                finish(0);
            else
                finish(size_ - 1);
        }
        if (extras_.has(STRSAFE_NULL_ON_FAILURE))
            finish(0);
        return result;
    }

    void fill(std::size_t from, std::size_t to)
    {
        std::memset(buffer_ + from, static_cast<int>(extras_.flags & 0xFF), (to - from) * sizeof(CharT));
    }

    CharT* buffer_;
    std::size_t size_;
    Extras<CharT> extras_;
    std::size_t length_ = 0;
};

// A null text is an empty one where the flags say so.
template <class CharT>
const CharT* sourceOf(const CharT* source, const Extras<CharT>& extras)
{
    static constexpr CharT empty[1] = {};
    return source == nullptr && extras.has(STRSAFE_IGNORE_NULLS) ? empty : source;
}

template <class CharT>
HRESULT copy(CharT* buffer, std::size_t size, const CharT* source, std::size_t count, Extras<CharT> extras = {})
{
    Destination<CharT> destination(buffer, size, extras);
    const CharT* const text = sourceOf(source, extras);
    if (!destination.usable())
        return destination.notUsable();
    if (text == nullptr || count > unlimited)
        return destination.refuse();
    // One character more than fits is enough to know that the text is cut.
    return destination.put(0, {text, lengthWithin(text, std::min(count, size + 1))});
}

template <class CharT>
HRESULT append(CharT* buffer, std::size_t size, const CharT* source, std::size_t count, Extras<CharT> extras = {})
{
    Destination<CharT> destination(buffer, size, extras);
    const CharT* const text = sourceOf(source, extras);
    if (!destination.usable())
        return destination.notUsable();
    const std::size_t length = destination.length();
    if (text == nullptr || count > unlimited || (size != 0 && length == size))
        return destination.refuse();
    return destination.put(length, {text, lengthWithin(text, std::min(count, size + 1))});
}

int formattedLength(const char* format, va_list arguments)
{
    return std::vsnprintf(nullptr, 0, format, arguments);
}

int formattedLength(const wchar_t* format, va_list arguments)
{
    return _vscwprintf(format, arguments) - 1;
}

// Both answer the length, or less than 0 as well without memory to format in.
int formatInto(char* text, std::size_t size, const char* format, va_list arguments)
{
    return std::vsnprintf(text, size, format, arguments);
}

int formatInto(wchar_t* text, std::size_t, const wchar_t* format, va_list arguments)
{
    return _vswprintf(text, format, arguments);
}

template <class CharT>
HRESULT print(CharT* buffer, std::size_t size, const CharT* format, va_list arguments, Extras<CharT> extras = {})
{
    Destination<CharT> destination(buffer, size, extras);
    const CharT* const pattern = sourceOf(format, extras);
    if (!destination.usable())
        return destination.notUsable();
    if (pattern == nullptr)
        return destination.refuse();
    const int lastError = errno;
    va_list again;
    va_copy(again, arguments);
    const int length = formattedLength(pattern, arguments);
    const std::size_t textSize = length < 0 ? 0 : static_cast<std::size_t>(length) + 1;
    const std::unique_ptr<CharT[]> text(textSize == 0 ? nullptr : new (std::nothrow) CharT[textSize]);
    const bool formatted = text != nullptr && formatInto(text.get(), textSize, pattern, again) >= 0;
    va_end(again);
    errno = lastError;
    return formatted ? destination.put(0, {text.get(), textSize - 1}) : destination.refuseText();
}

template <class CharT>
HRESULT measure(const CharT* text, std::size_t size, std::size_t* length, std::size_t unit)
{
    const bool asked = text != nullptr && size != 0 && size <= largestSize;
    const std::size_t found = asked ? lengthWithin(text, size) : size;
    const bool ends = asked && found != size;
    if (length != nullptr)
        *length = ends ? found * unit : 0;
    return ends ? S_OK : STRSAFE_E_INVALID_PARAMETER;
}

} // namespace

// ---- Copies a text ------------------------------------------------------------------------------------------------

HRESULT StringCchCopyW(wchar_t* destination, size_t size, const wchar_t* source)
{
    return copy<wchar_t>(destination, size, source, unlimited);
}

HRESULT StringCchCopyA(char* destination, size_t size, const char* source)
{
    return copy<char>(destination, size, source, unlimited);
}

HRESULT StringCbCopyW(wchar_t* destination, size_t sizeInBytes, const wchar_t* source)
{
    return copy<wchar_t>(destination, sizeInBytes / sizeof(wchar_t), source, unlimited);
}

HRESULT StringCbCopyA(char* destination, size_t sizeInBytes, const char* source)
{
    return copy<char>(destination, sizeInBytes / sizeof(char), source, unlimited);
}

HRESULT StringCchCopyExW(wchar_t* destination, size_t size, const wchar_t* source, wchar_t** end, size_t* left,
                         DWORD flags)
{
    return copy<wchar_t>(destination, size, source, unlimited, Extras<wchar_t>{end, left, 1, flags});
}

HRESULT StringCchCopyExA(char* destination, size_t size, const char* source, char** end, size_t* left, DWORD flags)
{
    return copy<char>(destination, size, source, unlimited, Extras<char>{end, left, 1, flags});
}

HRESULT StringCbCopyExW(wchar_t* destination, size_t sizeInBytes, const wchar_t* source, wchar_t** end,
                        size_t* leftInBytes, DWORD flags)
{
    return copy<wchar_t>(destination, sizeInBytes / sizeof(wchar_t), source, unlimited,
                         Extras<wchar_t>{end, leftInBytes, sizeof(wchar_t), flags});
}

HRESULT StringCbCopyExA(char* destination, size_t sizeInBytes, const char* source, char** end, size_t* leftInBytes,
                        DWORD flags)
{
    return copy<char>(destination, sizeInBytes / sizeof(char), source, unlimited,
                      Extras<char>{end, leftInBytes, sizeof(char), flags});
}

// ---- Copies at most count characters of a text --------------------------------------------------------------------

HRESULT StringCchCopyNW(wchar_t* destination, size_t size, const wchar_t* source, size_t count)
{
    return copy<wchar_t>(destination, size, source, count);
}

HRESULT StringCchCopyNA(char* destination, size_t size, const char* source, size_t count)
{
    return copy<char>(destination, size, source, count);
}

HRESULT StringCbCopyNW(wchar_t* destination, size_t sizeInBytes, const wchar_t* source, size_t countInBytes)
{
    return copy<wchar_t>(destination, sizeInBytes / sizeof(wchar_t), source, countInBytes / sizeof(wchar_t));
}

HRESULT StringCbCopyNA(char* destination, size_t sizeInBytes, const char* source, size_t countInBytes)
{
    return copy<char>(destination, sizeInBytes / sizeof(char), source, countInBytes / sizeof(char));
}

HRESULT StringCchCopyNExW(wchar_t* destination, size_t size, const wchar_t* source, size_t count, wchar_t** end,
                          size_t* left, DWORD flags)
{
    return copy<wchar_t>(destination, size, source, count, Extras<wchar_t>{end, left, 1, flags});
}

HRESULT StringCchCopyNExA(char* destination, size_t size, const char* source, size_t count, char** end, size_t* left,
                          DWORD flags)
{
    return copy<char>(destination, size, source, count, Extras<char>{end, left, 1, flags});
}

HRESULT StringCbCopyNExW(wchar_t* destination, size_t sizeInBytes, const wchar_t* source, size_t countInBytes,
                         wchar_t** end, size_t* leftInBytes, DWORD flags)
{
    return copy<wchar_t>(destination, sizeInBytes / sizeof(wchar_t), source, countInBytes / sizeof(wchar_t),
                         Extras<wchar_t>{end, leftInBytes, sizeof(wchar_t), flags});
}

HRESULT StringCbCopyNExA(char* destination, size_t sizeInBytes, const char* source, size_t countInBytes, char** end,
                         size_t* leftInBytes, DWORD flags)
{
    return copy<char>(destination, sizeInBytes / sizeof(char), source, countInBytes / sizeof(char),
                      Extras<char>{end, leftInBytes, sizeof(char), flags});
}

// ---- Appends a text to the one in the buffer ----------------------------------------------------------------------

HRESULT StringCchCatW(wchar_t* destination, size_t size, const wchar_t* source)
{
    return append<wchar_t>(destination, size, source, unlimited);
}

HRESULT StringCchCatA(char* destination, size_t size, const char* source)
{
    return append<char>(destination, size, source, unlimited);
}

HRESULT StringCbCatW(wchar_t* destination, size_t sizeInBytes, const wchar_t* source)
{
    return append<wchar_t>(destination, sizeInBytes / sizeof(wchar_t), source, unlimited);
}

HRESULT StringCbCatA(char* destination, size_t sizeInBytes, const char* source)
{
    return append<char>(destination, sizeInBytes / sizeof(char), source, unlimited);
}

HRESULT StringCchCatExW(wchar_t* destination, size_t size, const wchar_t* source, wchar_t** end, size_t* left,
                        DWORD flags)
{
    return append<wchar_t>(destination, size, source, unlimited, Extras<wchar_t>{end, left, 1, flags});
}

HRESULT StringCchCatExA(char* destination, size_t size, const char* source, char** end, size_t* left, DWORD flags)
{
    return append<char>(destination, size, source, unlimited, Extras<char>{end, left, 1, flags});
}

HRESULT StringCbCatExW(wchar_t* destination, size_t sizeInBytes, const wchar_t* source, wchar_t** end,
                       size_t* leftInBytes, DWORD flags)
{
    return append<wchar_t>(destination, sizeInBytes / sizeof(wchar_t), source, unlimited,
                           Extras<wchar_t>{end, leftInBytes, sizeof(wchar_t), flags});
}

HRESULT StringCbCatExA(char* destination, size_t sizeInBytes, const char* source, char** end, size_t* leftInBytes,
                       DWORD flags)
{
    return append<char>(destination, sizeInBytes / sizeof(char), source, unlimited,
                        Extras<char>{end, leftInBytes, sizeof(char), flags});
}

// ---- Appends at most count characters of a text to the one in the buffer ------------------------------------------

HRESULT StringCchCatNW(wchar_t* destination, size_t size, const wchar_t* source, size_t count)
{
    return append<wchar_t>(destination, size, source, count);
}

HRESULT StringCchCatNA(char* destination, size_t size, const char* source, size_t count)
{
    return append<char>(destination, size, source, count);
}

HRESULT StringCbCatNW(wchar_t* destination, size_t sizeInBytes, const wchar_t* source, size_t countInBytes)
{
    return append<wchar_t>(destination, sizeInBytes / sizeof(wchar_t), source, countInBytes / sizeof(wchar_t));
}

HRESULT StringCbCatNA(char* destination, size_t sizeInBytes, const char* source, size_t countInBytes)
{
    return append<char>(destination, sizeInBytes / sizeof(char), source, countInBytes / sizeof(char));
}

HRESULT StringCchCatNExW(wchar_t* destination, size_t size, const wchar_t* source, size_t count, wchar_t** end,
                         size_t* left, DWORD flags)
{
    return append<wchar_t>(destination, size, source, count, Extras<wchar_t>{end, left, 1, flags});
}

HRESULT StringCchCatNExA(char* destination, size_t size, const char* source, size_t count, char** end, size_t* left,
                         DWORD flags)
{
    return append<char>(destination, size, source, count, Extras<char>{end, left, 1, flags});
}

HRESULT StringCbCatNExW(wchar_t* destination, size_t sizeInBytes, const wchar_t* source, size_t countInBytes,
                        wchar_t** end, size_t* leftInBytes, DWORD flags)
{
    return append<wchar_t>(destination, sizeInBytes / sizeof(wchar_t), source, countInBytes / sizeof(wchar_t),
                           Extras<wchar_t>{end, leftInBytes, sizeof(wchar_t), flags});
}

HRESULT StringCbCatNExA(char* destination, size_t sizeInBytes, const char* source, size_t countInBytes, char** end,
                        size_t* leftInBytes, DWORD flags)
{
    return append<char>(destination, sizeInBytes / sizeof(char), source, countInBytes / sizeof(char),
                        Extras<char>{end, leftInBytes, sizeof(char), flags});
}

// ---- Writes a formatted text --------------------------------------------------------------------------------------

HRESULT StringCchPrintfW(wchar_t* destination, size_t size, const wchar_t* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const HRESULT result = print<wchar_t>(destination, size, format, arguments);
    va_end(arguments);
    return result;
}

HRESULT StringCchPrintfA(char* destination, size_t size, const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const HRESULT result = print<char>(destination, size, format, arguments);
    va_end(arguments);
    return result;
}

HRESULT StringCbPrintfW(wchar_t* destination, size_t sizeInBytes, const wchar_t* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const HRESULT result = print<wchar_t>(destination, sizeInBytes / sizeof(wchar_t), format, arguments);
    va_end(arguments);
    return result;
}

HRESULT StringCbPrintfA(char* destination, size_t sizeInBytes, const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const HRESULT result = print<char>(destination, sizeInBytes / sizeof(char), format, arguments);
    va_end(arguments);
    return result;
}

HRESULT StringCchPrintfExW(wchar_t* destination, size_t size, wchar_t** end, size_t* left, DWORD flags,
                           const wchar_t* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const HRESULT result = print<wchar_t>(destination, size, format, arguments, Extras<wchar_t>{end, left, 1, flags});
    va_end(arguments);
    return result;
}

HRESULT StringCchPrintfExA(char* destination, size_t size, char** end, size_t* left, DWORD flags, const char* format,
                           ...)
{
    va_list arguments;
    va_start(arguments, format);
    const HRESULT result = print<char>(destination, size, format, arguments, Extras<char>{end, left, 1, flags});
    va_end(arguments);
    return result;
}

HRESULT StringCbPrintfExW(wchar_t* destination, size_t sizeInBytes, wchar_t** end, size_t* leftInBytes, DWORD flags,
                          const wchar_t* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const HRESULT result = print<wchar_t>(destination, sizeInBytes / sizeof(wchar_t), format, arguments,
                                          Extras<wchar_t>{end, leftInBytes, sizeof(wchar_t), flags});
    va_end(arguments);
    return result;
}

HRESULT StringCbPrintfExA(char* destination, size_t sizeInBytes, char** end, size_t* leftInBytes, DWORD flags,
                          const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const HRESULT result = print<char>(destination, sizeInBytes / sizeof(char), format, arguments,
                                       Extras<char>{end, leftInBytes, sizeof(char), flags});
    va_end(arguments);
    return result;
}

// ---- Writes a formatted text, the arguments in a list -------------------------------------------------------------

HRESULT StringCchVPrintfW(wchar_t* destination, size_t size, const wchar_t* format, va_list arguments)
{
    return print<wchar_t>(destination, size, format, arguments);
}

HRESULT StringCchVPrintfA(char* destination, size_t size, const char* format, va_list arguments)
{
    return print<char>(destination, size, format, arguments);
}

HRESULT StringCbVPrintfW(wchar_t* destination, size_t sizeInBytes, const wchar_t* format, va_list arguments)
{
    return print<wchar_t>(destination, sizeInBytes / sizeof(wchar_t), format, arguments);
}

HRESULT StringCbVPrintfA(char* destination, size_t sizeInBytes, const char* format, va_list arguments)
{
    return print<char>(destination, sizeInBytes / sizeof(char), format, arguments);
}

HRESULT StringCchVPrintfExW(wchar_t* destination, size_t size, wchar_t** end, size_t* left, DWORD flags,
                            const wchar_t* format, va_list arguments)
{
    return print<wchar_t>(destination, size, format, arguments, Extras<wchar_t>{end, left, 1, flags});
}

HRESULT StringCchVPrintfExA(char* destination, size_t size, char** end, size_t* left, DWORD flags, const char* format,
                            va_list arguments)
{
    return print<char>(destination, size, format, arguments, Extras<char>{end, left, 1, flags});
}

HRESULT StringCbVPrintfExW(wchar_t* destination, size_t sizeInBytes, wchar_t** end, size_t* leftInBytes, DWORD flags,
                           const wchar_t* format, va_list arguments)
{
    return print<wchar_t>(destination, sizeInBytes / sizeof(wchar_t), format, arguments,
                          Extras<wchar_t>{end, leftInBytes, sizeof(wchar_t), flags});
}

HRESULT StringCbVPrintfExA(char* destination, size_t sizeInBytes, char** end, size_t* leftInBytes, DWORD flags,
                           const char* format, va_list arguments)
{
    return print<char>(destination, sizeInBytes / sizeof(char), format, arguments,
                       Extras<char>{end, leftInBytes, sizeof(char), flags});
}

// ---- Length --------------------------------------------------------------------------------------------------

HRESULT StringCchLengthW(const wchar_t* text, size_t size, size_t* length)
{
    return measure<wchar_t>(text, size, length, 1);
}

HRESULT StringCchLengthA(const char* text, size_t size, size_t* length)
{
    return measure<char>(text, size, length, 1);
}

HRESULT StringCbLengthW(const wchar_t* text, size_t sizeInBytes, size_t* lengthInBytes)
{
    return measure<wchar_t>(text, sizeInBytes / sizeof(wchar_t), lengthInBytes, sizeof(wchar_t));
}

HRESULT StringCbLengthA(const char* text, size_t sizeInBytes, size_t* lengthInBytes)
{
    return measure<char>(text, sizeInBytes / sizeof(char), lengthInBytes, sizeof(char));
}
