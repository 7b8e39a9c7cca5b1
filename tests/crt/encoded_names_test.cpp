// Modules built with declarations of their own find the type-encoded names. The public headers stay out: what they
// give C linkage is declared here with C++ linkage.
#include <cstdarg>
#include <cstddef>
#include <gtest/gtest.h>

int _tarvswprintf(wchar_t* buffer, std::size_t count, const wchar_t* format, va_list arguments);
int _tarvswprintf(wchar_t* buffer, const wchar_t* format, va_list arguments);
int swprintf(wchar_t* buffer, const wchar_t* format, ...);

namespace
{

int bounded(wchar_t* buffer, std::size_t count, const wchar_t* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const int result = _tarvswprintf(buffer, count, format, arguments);
    va_end(arguments);
    return result;
}

int unbounded(wchar_t* buffer, const wchar_t* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const int result = _tarvswprintf(buffer, format, arguments);
    va_end(arguments);
    return result;
}

TEST(EncodedNames, ReachTheFormattingFunctions)
{
    wchar_t buffer[8];
    EXPECT_EQ(bounded(buffer, 8, L"%s", L"abc"), 3);
    EXPECT_STREQ(buffer, L"abc");
    EXPECT_EQ(bounded(buffer, 3, L"%s", L"abc"), -1);
    EXPECT_EQ(unbounded(buffer, L"%s", L"def"), 3);
    EXPECT_STREQ(buffer, L"def");
    EXPECT_EQ(swprintf(buffer, L"%s", L"ghi"), 3);
    EXPECT_STREQ(buffer, L"ghi");
}

} // namespace
