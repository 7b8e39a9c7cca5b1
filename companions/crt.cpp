#include "kest/companions/crt.h"

#include "kest/crt/file_wrappers.h"
#include "kest/crt/formatted_output.h"
#include "kest/crt/strings.h"
#include "narrow_text.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <strings.h>
#include <unistd.h>

using kest::companions::narrowed;
using kest::companions::widened;

// ---- Comparing and copying -----------------------------------------------------------------------------------------

int _wcsicmp(const wchar_t* first, const wchar_t* second)
{
    return wcscasecmp(first, second);
}

int _wcsnicmp(const wchar_t* first, const wchar_t* second, size_t count)
{
    return wcsncasecmp(first, second, count);
}

int _stricmp(const char* first, const char* second)
{
    return strcasecmp(first, second);
}

int _strnicmp(const char* first, const char* second, size_t count)
{
    return strncasecmp(first, second, count);
}

int _memicmp(const void* first, const void* second, size_t size)
{
    const auto folded = [](unsigned char byte) { return byte >= 'A' && byte <= 'Z' ? byte + ('a' - 'A') : byte; };
    const auto* const left = static_cast<const unsigned char*>(first);
    const auto* const right = static_cast<const unsigned char*>(second);
    for (size_t i = 0; i < size; ++i)
    {
        if (const int difference = folded(left[i]) - folded(right[i]); difference != 0)
            return difference;
    }
    return 0;
}

wchar_t* _wcsdup(const wchar_t* string)
{
    return string == nullptr ? nullptr : wcsdup(string);
}

char* _strdup(const char* string)
{
    return string == nullptr ? nullptr : strdup(string);
}

int _wcslwr_s(wchar_t* string, size_t size)
{
    if (string == nullptr || size == 0)
        return EINVAL;
    if (wcsnlen(string, size) == size)
    {
        string[0] = L'\0';
        return EINVAL;
    }
    _wcslwr(string);
    return 0;
}

// ---- Tokens --------------------------------------------------------------------------------------------------------

namespace
{

template <class CharT>
bool tokensCanBeHad(const CharT* string, const CharT* delimiters, CharT* const* position)
{
    if (delimiters != nullptr && position != nullptr && (string != nullptr || *position != nullptr))
        return true;
    errno = EINVAL;
    return false;
}

} // namespace

wchar_t* wcstok_s(wchar_t* string, const wchar_t* delimiters, wchar_t** position)
{
    return tokensCanBeHad(string, delimiters, position) ? std::wcstok(string, delimiters, position) : nullptr;
}

char* strtok_s(char* string, const char* delimiters, char** position)
{
    return tokensCanBeHad(string, delimiters, position) ? strtok_r(string, delimiters, position) : nullptr;
}

// ---- Formatting ----------------------------------------------------------------------------------------------------

int sprintf_s(char* buffer, size_t size, const char* format, ...)
{
    if (buffer == nullptr || size == 0)
        return -1;
    buffer[0] = '\0';
    if (format == nullptr)
        return -1;
    va_list arguments;
    va_start(arguments, format);
    const int length = std::vsnprintf(buffer, size, format, arguments);
    va_end(arguments);
    if (length >= 0 && static_cast<size_t>(length) < size)
        return length;
    buffer[0] = '\0';
    return -1;
}

int _vsnprintf(char* buffer, size_t count, const char* format, va_list arguments)
{
    if (format == nullptr || (buffer == nullptr && count != 0))
        return -1;
    if (buffer == nullptr)
        return std::vsnprintf(nullptr, 0, format, arguments);
    // The last byte of a text that is too long goes where the C library would put its terminator.
    va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, again);
    va_end(again);
    if (length < 0)
        return -1;
    if (static_cast<size_t>(length) < count)
        return std::vsnprintf(buffer, count, format, arguments);
    const std::unique_ptr<char[]> whole(new (std::nothrow) char[static_cast<size_t>(length) + 1]);
    // What could be counted may still lack the memory to be written.
    if (whole == nullptr || std::vsnprintf(whole.get(), static_cast<size_t>(length) + 1, format, arguments) < 0)
        return -1;
    std::copy_n(whole.get(), count, buffer);
    return static_cast<size_t>(length) == count ? length : -1;
}

int _snprintf(char* buffer, size_t count, const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const int length = _vsnprintf(buffer, count, format, arguments);
    va_end(arguments);
    return length;
}

namespace
{

int printWide(wchar_t* buffer, size_t size, size_t count, const wchar_t* format, va_list arguments)
{
    if (buffer == nullptr || size == 0)
        return -1;
    buffer[0] = L'\0';
    if (format == nullptr)
        return -1;
    va_list again;
    va_copy(again, arguments);
    const int room = _vscwprintf(format, again); // with the terminator
    va_end(again);
    if (room < 0)
        return -1;
    const auto length = static_cast<size_t>(room) - 1;
    if (length < size && length <= count)
        return _vswprintf(buffer, format, arguments);
    const size_t taken = count == _TRUNCATE ? size - 1 : count;
    const std::unique_ptr<wchar_t[]> whole(taken < size ? new (std::nothrow) wchar_t[length + 1] : nullptr);
    if (whole == nullptr || _vswprintf(whole.get(), format, arguments) < 0)
        return -1;
    std::copy_n(whole.get(), taken, buffer);
    buffer[taken] = L'\0';
    return -1;
}

} // namespace

int _snwprintf_s(wchar_t* buffer, size_t size, size_t count, const wchar_t* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const int length = printWide(buffer, size, count, format, arguments);
    va_end(arguments);
    return length;
}

int swprintf_s(wchar_t* buffer, size_t size, const wchar_t* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    // A count that no text has, and that does not ask for cutting.
    const int length = printWide(buffer, size, INT_MAX, format, arguments);
    va_end(arguments);
    return length;
}

// ---- Conversion between wide and narrow ----------------------------------------------------------------------------

namespace
{

// The bytes of the next character, or of the next wide character from bytes: what the C library steps by.
struct ToBytes
{
    using From = wchar_t;
    using To = char;
    static constexpr size_t largestStep = MB_LEN_MAX;

    // Converts one character, the terminator too; answers its units in the result, or -1.
    static size_t step(To* to, const From*& from, std::mbstate_t& state) { return std::wcrtomb(to, *from++, &state); }
};

struct ToWide
{
    using From = char;
    using To = wchar_t;
    static constexpr size_t largestStep = 1;

    static size_t step(To* to, const From*& from, std::mbstate_t& state)
    {
        // The terminator ends what may be read.
        const size_t used = std::mbrtowc(to, from, strnlen(from, MB_LEN_MAX - 1) + 1, &state);
        if (used > MB_LEN_MAX)
            return static_cast<size_t>(-1);
        from += used == 0 ? 1 : used;
        return 1;
    }
};

template <class Direction>
int convert(size_t* converted, typename Direction::To* buffer, size_t size, const typename Direction::From* source,
            size_t count)
{
    using To = typename Direction::To;
    if (converted != nullptr)
        *converted = 0;
    if (buffer != nullptr && size != 0)
        buffer[0] = To();
    if (source == nullptr || (buffer == nullptr) != (size == 0))
        return EINVAL;
    const int lastError = errno;
    std::mbstate_t state{};
    size_t written = 0; // without the terminator
    int result = 0;
    To next[Direction::largestStep];
    while (true)
    {
        const typename Direction::From* const before = source;
        const size_t units = Direction::step(next, source, state);
        if (units == static_cast<size_t>(-1))
            result = EILSEQ;
        else if (*before == typename Direction::From() || (count != _TRUNCATE && written + units > count))
            break;
        else if (buffer != nullptr && written + units >= size)
            result = count == _TRUNCATE ? STRUNCATE : ERANGE;
        if (result != 0)
            break;
        if (buffer != nullptr)
            std::copy_n(next, units, buffer + written);
        written += units;
    }
    if (result == EILSEQ || result == ERANGE)
    {
        if (buffer != nullptr)
            buffer[0] = To();
        return result;
    }
    if (buffer != nullptr)
        buffer[written] = To();
    if (converted != nullptr)
        *converted = written + 1;
    errno = lastError;
    return result;
}

} // namespace

int wcstombs_s(size_t* converted, char* buffer, size_t size, const wchar_t* source, size_t count)
{
    return convert<ToBytes>(converted, buffer, size, source, count);
}

int mbstowcs_s(size_t* converted, wchar_t* buffer, size_t size, const char* source, size_t count)
{
    return convert<ToWide>(converted, buffer, size, source, count);
}

// ---- Files ---------------------------------------------------------------------------------------------------------

int _fileno(FILE* stream)
{
    if (stream != nullptr)
        return fileno(stream);
    errno = EINVAL;
    return -1;
}

int _wstat64i32(const wchar_t* path, struct stat* record)
{
    return _wstat(path, record);
}

int _mkdir(const char* path)
{
    return mkdir(path, S_IRWXU | S_IRWXG | S_IRWXO);
}

int _rmdir(const char* path)
{
    return rmdir(path);
}

int _chdir(const char* path)
{
    return chdir(path);
}

int _unlink(const char* path)
{
    return unlink(path);
}

int _access(const char* path, int mode)
{
    return access(path, mode);
}

char* _getcwd(char* buffer, int size)
{
    return getcwd(buffer, size < 0 ? 0 : static_cast<size_t>(size));
}

namespace
{

// Calls the narrow function with the path in the process's encoding.
int withNarrowPath(int (*function)(const char*), const wchar_t* path)
{
    if (path == nullptr)
    {
        errno = EINVAL;
        return -1;
    }
    try
    {
        const auto bytes = narrowed(path);
        return bytes ? function(bytes->c_str()) : -1;
    }
    catch (const std::bad_alloc&)
    {
        errno = ENOMEM;
        return -1;
    }
}

} // namespace

int _wmkdir(const wchar_t* path)
{
    return withNarrowPath(_mkdir, path);
}

int _wrmdir(const wchar_t* path)
{
    return withNarrowPath(_rmdir, path);
}

int _wchdir(const wchar_t* path)
{
    return withNarrowPath(_chdir, path);
}

int _wunlink(const wchar_t* path)
{
    return withNarrowPath(_unlink, path);
}

// ---- Environment and time ------------------------------------------------------------------------------------------

namespace
{

// A copy that the caller frees.
template <class CharT>
int handOut(const CharT* text, size_t length, CharT** buffer, size_t* size)
{
    auto* const copy = static_cast<CharT*>(std::malloc((length + 1) * sizeof(CharT)));
    if (copy == nullptr)
        return ENOMEM;
    std::copy_n(text, length + 1, copy);
    *buffer = copy;
    if (size != nullptr)
        *size = length + 1;
    return 0;
}

} // namespace

int _dupenv_s(char** buffer, size_t* size, const char* name)
{
    if (size != nullptr)
        *size = 0;
    if (buffer != nullptr)
        *buffer = nullptr;
    if (buffer == nullptr || name == nullptr)
        return EINVAL;
    const char* const value = std::getenv(name);
    return value == nullptr ? 0 : handOut(value, std::strlen(value), buffer, size);
}

int _wdupenv_s(wchar_t** buffer, size_t* size, const wchar_t* name)
{
    if (size != nullptr)
        *size = 0;
    if (buffer != nullptr)
        *buffer = nullptr;
    if (buffer == nullptr || name == nullptr)
        return EINVAL;
    try
    {
        const auto narrowName = narrowed(name);
        if (!narrowName)
            return EILSEQ;
        const char* const value = std::getenv(narrowName->c_str());
        if (value == nullptr)
            return 0;
        const auto wide = widened(value);
        return wide ? handOut(wide->c_str(), wide->size(), buffer, size) : EILSEQ;
    }
    catch (const std::bad_alloc&)
    {
        return ENOMEM;
    }
}

long long _mktime64(struct tm* parts)
{
    if (parts != nullptr)
        return mktime(parts);
    errno = EINVAL;
    return -1;
}

long long _time64(long long* seconds)
{
    const long long now = time(nullptr);
    if (seconds != nullptr)
        *seconds = now;
    return now;
}

namespace
{

// The last second of the year 3000, universal time.
constexpr long long lastSecond = 32535215999;

int breakDown(struct tm* (*function)(const time_t*, struct tm*), struct tm* parts, const long long* seconds)
{
    if (parts == nullptr)
        return EINVAL;
    *parts = {};
    parts->tm_sec = parts->tm_min = parts->tm_hour = parts->tm_mday = parts->tm_mon = parts->tm_year = parts->tm_wday =
        parts->tm_yday = parts->tm_isdst = -1;
    if (seconds == nullptr || *seconds < 0 || *seconds > lastSecond)
        return EINVAL;
    const time_t time = *seconds;
    function(&time, parts);
    return 0;
}

} // namespace

int _localtime64_s(struct tm* parts, const long long* seconds)
{
    tzset();
    return breakDown(localtime_r, parts, seconds);
}

int _gmtime64_s(struct tm* parts, const long long* seconds)
{
    return breakDown(gmtime_r, parts, seconds);
}

// ---- Numbers -------------------------------------------------------------------------------------------------------

long long _strtoi64(const char* string, char** end, int base)
{
    return std::strtoll(string, end, base);
}

unsigned long long _strtoui64(const char* string, char** end, int base)
{
    return std::strtoull(string, end, base);
}

long long _wcstoi64(const wchar_t* string, wchar_t** end, int base)
{
    return std::wcstoll(string, end, base);
}

unsigned long long _wcstoui64(const wchar_t* string, wchar_t** end, int base)
{
    return std::wcstoull(string, end, base);
}
