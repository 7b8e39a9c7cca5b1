#include "kest/companions/automation.h"

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <gtest/gtest.h>
#include <string>

using namespace std::string_literals;

namespace
{

std::uint32_t lengthBefore(BSTR string)
{
    std::uint32_t length = 0;
    std::memcpy(&length, reinterpret_cast<const char*>(string) - sizeof length, sizeof length);
    return length;
}

// The whole string, its terminator proved.
std::wstring textOf(BSTR string)
{
    EXPECT_EQ(string[SysStringLen(string)], L'\0');
    return {string, SysStringLen(string)};
}

TEST(AutomationStrings, HoldTheirLengthInBytesBeforeTheText)
{
    const BSTR string = SysAllocString(L"abc");
    ASSERT_NE(string, nullptr);
    EXPECT_EQ(lengthBefore(string), 12U);
    EXPECT_EQ(SysStringLen(string), 3U);
    EXPECT_EQ(SysStringByteLen(string), 12U);
    EXPECT_EQ(textOf(string), L"abc");
    SysFreeString(string);
}

TEST(AutomationStrings, MayHoldZeros)
{
    const BSTR string = SysAllocStringLen(L"a\0b", 3);
    EXPECT_EQ(textOf(string), L"a\0b"s);
    SysFreeString(string);
}

TEST(AutomationStrings, MayBeMadeWithoutText)
{
    const BSTR string = SysAllocStringLen(nullptr, 4);
    ASSERT_NE(string, nullptr);
    std::wmemset(string, L'x', 4);
    EXPECT_EQ(textOf(string), L"xxxx");
    SysFreeString(string);
    const BSTR empty = SysAllocStringLen(nullptr, 0);
    EXPECT_EQ(textOf(empty), L"");
    SysFreeString(empty);
}

TEST(AutomationStrings, HoldBytes)
{
    const BSTR string = SysAllocStringByteLen("abcde", 5);
    EXPECT_EQ(SysStringByteLen(string), 5U);
    EXPECT_EQ(SysStringLen(string), 1U);
    EXPECT_EQ(std::memcmp(string, "abcde\0\0\0\0", 9), 0);
    SysFreeString(string);
}

TEST(AutomationStrings, AreEmptyWhenNull)
{
    EXPECT_EQ(SysAllocString(nullptr), nullptr);
    EXPECT_EQ(SysStringLen(nullptr), 0U);
    EXPECT_EQ(SysStringByteLen(nullptr), 0U);
    SysFreeString(nullptr);
}

TEST(AutomationStrings, TakeThePlaceOfOthers)
{
    BSTR string = SysAllocString(L"abcdef");
    EXPECT_EQ(SysReAllocString(&string, string + 2), TRUE); // a part of itself
    EXPECT_EQ(textOf(string), L"cdef");
    EXPECT_EQ(SysReAllocStringLen(&string, string + 1, 2), TRUE);
    EXPECT_EQ(textOf(string), L"de");
    EXPECT_EQ(SysReAllocStringLen(&string, nullptr, 5), TRUE); // keeps what was there
    EXPECT_EQ(std::wstring(string, 2), L"de");
    EXPECT_EQ(SysStringLen(string), 5U);
    EXPECT_EQ(SysReAllocString(&string, nullptr), TRUE);
    EXPECT_EQ(string, nullptr);
    EXPECT_EQ(SysReAllocString(nullptr, L"x"), FALSE);
    EXPECT_EQ(SysReAllocStringLen(nullptr, L"x", 1), FALSE);
}

TEST(AutomationStrings, TooLongToCountAreRefusedAndChangeNothing)
{
    errno = 7;
    EXPECT_EQ(SysAllocStringLen(nullptr, 0x40000000), nullptr);
    BSTR string = SysAllocString(L"kept");
    EXPECT_EQ(SysReAllocStringLen(&string, nullptr, 0x40000000), FALSE);
    EXPECT_EQ(textOf(string), L"kept");
    EXPECT_EQ(errno, 7);
    SysFreeString(string);
}

} // namespace
