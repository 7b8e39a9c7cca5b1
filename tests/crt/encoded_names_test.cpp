// Modules built with declarations of their own find the type-encoded names. The public headers stay out: what they
// give C linkage is declared here with C++ linkage.
#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <gtest/gtest.h>

int _tarvswprintf(wchar_t* buffer, std::size_t count, const wchar_t* format, va_list arguments);
int _tarvswprintf(wchar_t* buffer, const wchar_t* format, va_list arguments);
int swprintf(wchar_t* buffer, const wchar_t* format, ...);
FILE* _wfopen(const wchar_t* path, const wchar_t* mode);
FILE* _wfopen(wchar_t* path, const wchar_t* mode);

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

TEST(EncodedNames, ReachTheFunctionsThatOpenFiles)
{
    FILE* const stream = _wfopen(L"/dev/null", L"r");
    ASSERT_NE(stream, nullptr);
    std::fclose(stream);
    wchar_t path[] = L"/dev/null";
    FILE* const writableStream = _wfopen(path, L"r");
    ASSERT_NE(writableStream, nullptr);
    std::fclose(writableStream);
}

} // namespace
