// What the functions that work in scratch answer when there is no memory for it.
#include "harness/sanitizers.h"

#ifndef KEST_TEST_OWN_C_LIBRARY

#include "kest/crt/file_wrappers.h"
#include "kest/crt/formatted_output.h"
#include "kest/crt/numbers.h"

#include "harness/scoped_locale.h"
#include "harness/scratch_folder.h"
#include "harness/sentinel_buffer.h"

#include <cerrno>
#include <clocale>
#include <cstdarg>
#include <cstddef>
#include <filesystem>
#include <gtest/gtest.h>
#include <new>
#include <string>

namespace
{

bool arraysFail = false;

} // namespace

// Arrays go by way of single objects, whatever allocates those, so that a test can make them fail.
void* operator new[](std::size_t size)
{
    return ::operator new(size);
}

void* operator new[](std::size_t size, const std::nothrow_t& tag) noexcept
{
    return arraysFail ? nullptr : ::operator new(size, tag);
}

void operator delete[](void* memory) noexcept
{
    ::operator delete(memory);
}

void operator delete[](void* memory, std::size_t) noexcept
{
    ::operator delete(memory);
}

namespace
{

using kest::test::ScopedLocale;
using kest::test::ScratchFolder;
using kest::test::SentinelBuffer;
using Buffer = SentinelBuffer<wchar_t, 16>;

class ArrayFailure
{
public:
    ArrayFailure() { arraysFail = true; }
    ~ArrayFailure() { arraysFail = false; }
    ArrayFailure(const ArrayFailure&) = delete;
    ArrayFailure& operator=(const ArrayFailure&) = delete;
};

struct Answers
{
    int counted;
    int written;
    int cut;
};

// The three ways to use the scratch, each with a list of its own.
Answers answersWithoutMemory(wchar_t* buffer, const wchar_t* format, ...)
{
    Answers answers = {};
    const ArrayFailure failure;
    va_list arguments;
    va_start(arguments, format);
    answers.counted = _vscwprintf(format, arguments);
    va_end(arguments);
    va_start(arguments, format);
    answers.written = _vswprintf(buffer, format, arguments);
    va_end(arguments);
    va_start(arguments, format);
    answers.cut = vswprintf_s(buffer, 3, format, arguments);
    va_end(arguments);
    return answers;
}

TEST(ScratchFailure, MakesLongTextsFail)
{
    const std::wstring text(4096, L'x');
    Buffer buffer;
    const Answers answers = answersWithoutMemory(buffer.data(), L"%s", text.c_str());
    EXPECT_EQ(answers.counted, -1);
    EXPECT_EQ(answers.written, -1);
    EXPECT_EQ(answers.cut, -1);
    EXPECT_EQ(buffer.contents(), Buffer::untouched());
}

TEST(ScratchFailure, DoesNotConcernShortTexts)
{
    Buffer buffer;
    const Answers answers = answersWithoutMemory(buffer.data(), L"%s", L"abcdef");
    EXPECT_EQ(answers.counted, 7);
    EXPECT_EQ(answers.written, 6);
    EXPECT_EQ(answers.cut, 2);
    EXPECT_EQ(buffer.contents(), Buffer::startingWith(std::wstring(L"abc\0ef\0", 7)));
}

// The C library's functions get the null pointer.
TEST(ScratchFailure, MakesFileFunctionsFail)
{
    const ScratchFolder folder;
    folder.write("file", "content");
    struct stat record;
    Buffer buffer;
    {
        const ArrayFailure failure;
        errno = 0;
        EXPECT_EQ(_wstat(L"file", &record), -1);
        EXPECT_EQ(errno, EFAULT);
        errno = 0;
        EXPECT_EQ(_waccess(L"file", 0), -1);
        EXPECT_EQ(errno, EFAULT);
        errno = 0;
        EXPECT_EQ(_wremove(L"file"), -1);
        EXPECT_EQ(errno, EFAULT);
        EXPECT_EQ(_wfullpath(buffer.data(), L"file", 3), buffer.data());
    }
    EXPECT_EQ(buffer.contents(), Buffer::startingWith(std::wstring(3, L'\0')));
    EXPECT_TRUE(std::filesystem::exists("file"));
}

TEST(ScratchFailure, MakesALocaleNameAQuery)
{
    const ScopedLocale locale("C");
    const ArrayFailure failure;
    EXPECT_STREQ(_wsetlocale(LC_ALL, L"C.UTF-8"), "C");
    EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), "C");
}

TEST(ScratchFailure, MakesLongNumbersZero)
{
    std::wstring number(100, L' ');
    number += L"42";
    const ArrayFailure failure;
    EXPECT_EQ(_wtoi(number.c_str()), 0);
    EXPECT_EQ(_wtoi(L"42"), 42);
}

} // namespace

#endif
