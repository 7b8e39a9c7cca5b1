// The C library's checked entry points, by name. Plain calls turn into these only under some build flags;
// where an answer depends on the check, the function calls them itself, so that every build gives it.
#pragma once

#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <cwchar>

extern "C"
{
    char* __strcpy_chk(char* destination, const char* source, std::size_t objectSize) noexcept;
    char* __strncpy_chk(char* destination, const char* source, std::size_t count, std::size_t objectSize) noexcept;
    char* __strcat_chk(char* destination, const char* source, std::size_t objectSize) noexcept;
    wchar_t* __wcscpy_chk(wchar_t* destination, const wchar_t* source, std::size_t objectSize) noexcept;
    wchar_t* __wcsncat_chk(wchar_t* destination, const wchar_t* source, std::size_t count,
                           std::size_t objectSize) noexcept;
    std::size_t __mbstowcs_chk(wchar_t* destination, const char* source, std::size_t limit,
                               std::size_t objectSize) noexcept;
    int __sprintf_chk(char* destination, int flag, std::size_t objectSize, const char* format, ...) noexcept;
    int __snprintf_chk(char* destination, std::size_t size, int flag, std::size_t objectSize, const char* format,
                       ...) noexcept;
    int __vsnprintf_chk(char* destination, std::size_t size, int flag, std::size_t objectSize, const char* format,
                        std::va_list arguments) noexcept;
    int __swprintf_chk(wchar_t* destination, std::size_t size, int flag, std::size_t objectSize, const wchar_t* format,
                       ...) noexcept;
    int __vswprintf_chk(wchar_t* destination, std::size_t size, int flag, std::size_t objectSize, const wchar_t* format,
                        std::va_list arguments) noexcept;
    [[noreturn]] void __chk_fail() noexcept; // what they all do on overflow
    int __vwprintf_chk(int flag, const wchar_t* format, std::va_list arguments);
    int __vfwprintf_chk(std::FILE* stream, int flag, const wchar_t* format, std::va_list arguments);
}

namespace kest
{

// The check level of every call, and the size that stands for an unknown object.
inline constexpr int checkLevel = 1;
inline constexpr std::size_t unknownObjectSize = static_cast<std::size_t>(-1);

} // namespace kest
