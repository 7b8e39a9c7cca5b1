// The formatting functions that take an argument list, with the arguments themselves.
#pragma once

#include "kest/crt/formatted_output.h"
#include "kest/user_interface/strings.h"

#include <cstdarg>
#include <cstddef>
#include <utility>
#include <vector>

namespace kest::test
{

inline int scprintf(const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const int result = _vscprintf(format, arguments);
    va_end(arguments);
    return result;
}

inline int sprintfS(char* buffer, std::size_t size, const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const int result = vsprintf_s(buffer, size, format, arguments);
    va_end(arguments);
    return result;
}

inline int scwprintf(const wchar_t* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const int result = _vscwprintf(format, arguments);
    va_end(arguments);
    return result;
}

inline int unbounded(wchar_t* buffer, const wchar_t* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const int result = _vswprintf(buffer, format, arguments);
    va_end(arguments);
    return result;
}

inline int threeArguments(wchar_t* buffer, const wchar_t* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const int result = _tarvswprintf(buffer, format, arguments);
    va_end(arguments);
    return result;
}

inline int fourArguments(wchar_t* buffer, std::size_t count, const wchar_t* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const int result = _tarvswprintf(buffer, count, format, arguments);
    va_end(arguments);
    return result;
}

inline int swprintfS(wchar_t* buffer, std::size_t size, const wchar_t* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const int result = vswprintf_s(buffer, size, format, arguments);
    va_end(arguments);
    return result;
}

inline int snwprintfS(wchar_t* buffer, std::size_t bufferSize, std::size_t count, const wchar_t* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const int result = _vsnwprintf_s(buffer, bufferSize, count, format, arguments);
    va_end(arguments);
    return result;
}

// Those without a limit: one contract under five names.
using Writer = int (*)(wchar_t*, const wchar_t*, ...);
inline constexpr Writer encodedSwprintf = swprintf;
inline const std::vector<std::pair<const char*, Writer>> unlimitedWriters = {{"_vswprintf", unbounded},
                                                                             {"_tarvswprintf", threeArguments},
                                                                             {"swprintf", encodedSwprintf},
                                                                             {"wsprintfW", wsprintfW}};

} // namespace kest::test
