#include "kest/host/system_service.h"

#include "harness/sentinel_buffer.h"

#include <cerrno>
#include <cstdlib>
#include <gtest/gtest.h>
#include <string>

namespace
{

using kest::test::SentinelBuffer;

class HostSystem : public testing::Test
{
protected:
    std::wstring format(const wchar_t* value, const NUMBERFMTW* how)
    {
        wchar_t buffer[100];
        const int count = service_.GetNumberFormatW(0, 0, value, how, buffer, 100);
        return count == 0 ? L"refused" : std::wstring(buffer, static_cast<std::size_t>(count - 1));
    }

    NUMBERFMTW how(UINT digits, UINT leadingZero, UINT grouping, UINT order)
    {
        return {digits, leadingZero, grouping, decimal_, thousands_, order};
    }

    wchar_t decimal_[2] = L",";
    wchar_t thousands_[2] = L".";
    kest::host::SystemService service_;
};

TEST_F(HostSystem, FormatsNumbersAsAsked)
{
    struct Row
    {
        const wchar_t* value;
        UINT digits, leadingZero, grouping, order;
        const wchar_t* expected;
    };
    const Row rows[] = {
        {L"1234567.891", 2, 1, 3, 1, L"1.234.567,89"},
        {L"1234567.895", 2, 1, 3, 1, L"1.234.567,90"},
        {L"999.995", 2, 1, 3, 1, L"1.000,00"},
        {L"0.5", 2, 1, 3, 1, L"0,50"},
        {L"0.5", 2, 0, 3, 1, L",50"},
        {L"0.5", 0, 0, 3, 1, L"1"},
        {L"0.4", 0, 0, 3, 1, L"0"},
        {L"12345678", 0, 1, 32, 1, L"1.23.45.678"},
        {L"12345678", 0, 1, 0, 1, L"12345678"},
        {L"12345678", 0, 1, 2, 1, L"12.34.56.78"},
        {L"-1.5", 1, 1, 3, 0, L"(1,5)"},
        {L"-1.5", 1, 1, 3, 1, L"-1,5"},
        {L"-1.5", 1, 1, 3, 2, L"- 1,5"},
        {L"-1.5", 1, 1, 3, 3, L"1,5-"},
        {L"-1.5", 1, 1, 3, 4, L"1,5 -"},
        {L"-0.001", 2, 1, 3, 1, L"0,00"},
        {L"007", 1, 1, 3, 1, L"7,0"},
        {L".25", 3, 1, 3, 1, L"0,250"},
        {L"", 2, 1, 3, 1, L"refused"},
        {L"1,5", 2, 1, 3, 1, L"refused"},
        {L"1.2.3", 2, 1, 3, 1, L"refused"},
        {L"-", 2, 1, 3, 1, L"refused"},
        {L"1", 10, 1, 3, 1, L"refused"},
        {L"1", 2, 2, 3, 1, L"refused"},
        {L"1", 2, 1, 10, 1, L"refused"},
        {L"1", 2, 1, 3, 5, L"refused"},
    };
    for (const Row& row : rows)
    {
        const NUMBERFMTW asked = how(row.digits, row.leadingZero, row.grouping, row.order);
        EXPECT_EQ(format(row.value, &asked), row.expected) << row.value;
    }
    EXPECT_EQ(format(L"-1234567.891", nullptr), L"-1,234,567.89");
    EXPECT_EQ(format(nullptr, nullptr), L"refused");
}

TEST_F(HostSystem, TellsTheSizeThatANumberNeeds)
{
    SentinelBuffer<wchar_t, 12> buffer;
    EXPECT_EQ(service_.GetNumberFormatW(0, 0, L"1234", nullptr, nullptr, 0), 9);
    EXPECT_EQ(service_.GetNumberFormatW(0, 0, L"1234", nullptr, buffer.data(), 8), 0);
    EXPECT_EQ(errno, 122);
    EXPECT_EQ(buffer.contents(), buffer.untouched());
    EXPECT_EQ(service_.GetNumberFormatW(0, 0, L"1234", nullptr, buffer.data(), 9), 9);
    EXPECT_EQ(buffer.contents(), buffer.startingWith(std::wstring(L"1,234.00\0", 9)));
    EXPECT_EQ(service_.GetNumberFormatW(0, 0, L"1234", nullptr, buffer.data(), -1), 0);
    EXPECT_EQ(errno, 87);
    EXPECT_EQ(service_.GetNumberFormatW(0, 0, L"1234", nullptr, nullptr, 9), 0);
    const NUMBERFMTW asked = how(2, 1, 3, 1);
    EXPECT_EQ(service_.GetNumberFormatW(0, 1, L"1234", &asked, buffer.data(), 12), 0);
}

TEST_F(HostSystem, ExpandsVariables)
{
    setenv("KEST_Name", "value", 1);
    setenv("KEST_EMPTY", "", 1);
    setenv("HOME", "/home/user", 1);
    unsetenv("APPDATA");
    unsetenv("XDG_CONFIG_HOME");
    EXPECT_EQ(service_.ExpandEnvironmentStringsW(L"a %KEST_Name% b"), L"a value b");
    EXPECT_EQ(service_.ExpandEnvironmentStringsW(L"%kest_NAME%%KEST_EMPTY%!"), L"value!");
    EXPECT_EQ(service_.ExpandEnvironmentStringsW(L"%none% 100% %KEST_Name%"), L"%none% 100% value");
    EXPECT_EQ(service_.ExpandEnvironmentStringsW(L"%%"), L"%%");
    EXPECT_EQ(service_.ExpandEnvironmentStringsW(L"100%"), L"100%");
    EXPECT_EQ(service_.ExpandEnvironmentStringsW(L""), L"");
    EXPECT_EQ(service_.ExpandEnvironmentStringsW(L"%UserProfile%\\x;%AppData%"), L"/home/user\\x;/home/user/.config");
    // Of a variable whose value holds a "=" nothing but the whole value can be had.
    setenv("KEST_EQUALS", "x=y", 1);
    EXPECT_EQ(service_.ExpandEnvironmentStringsW(L"%KEST_EQUALS%"), L"x=y");
    EXPECT_EQ(service_.ExpandEnvironmentStringsW(L"%KEST_EQUALS=x%"), L"%KEST_EQUALS=x%");
    setenv("APPDATA", "/mine", 1);
    EXPECT_EQ(service_.ExpandEnvironmentStringsW(L"%APPDATA%"), L"/mine");
    unsetenv("APPDATA");
}

} // namespace
