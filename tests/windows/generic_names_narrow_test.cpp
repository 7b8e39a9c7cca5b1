// Generic text and names where sources are compiled for narrow text.

#include <windows.h>

#include <shlwapi.h>
#include <tchar.h>

#include <gtest/gtest.h>
#include <string>
#include <type_traits>

#define KEST_SPELLED(...) #__VA_ARGS__
#define KEST_EXPANDED(name) KEST_SPELLED(name)

namespace
{

static_assert(std::is_same<TCHAR, char>::value && std::is_same<_TCHAR, char>::value, "");
static_assert(std::is_same<LPTSTR, char*>::value && std::is_same<LPCTSTR, const char*>::value, "");

TEST(GenericNames, TextIsNarrow)
{
    EXPECT_EQ(std::basic_string<TCHAR>(_T("text")), "text");
    EXPECT_EQ(std::basic_string<TCHAR>(TEXT("text")), "text");
    EXPECT_EQ(std::basic_string<TCHAR>(_TEXT("text")), "text");
    EXPECT_EQ(_tcslen(_T("four")), 4U);
    EXPECT_EQ(_tstoi(_T("-17")), -17);
    EXPECT_EQ(_istdigit(_T('7')) != 0, true);
    TCHAR buffer[16];
    EXPECT_EQ(_tcscmp(_tcscpy(buffer, _T("abc")), _T("abc")), 0);
    EXPECT_EQ(_sntprintf(buffer, 16, _T("%s-%d"), _T("abc"), 5), 5);
    EXPECT_EQ(std::basic_string<TCHAR>(buffer), _T("abc-5"));
}

TEST(GenericNames, NamesStandForTheNarrowFunctionsThatAreServed)
{
    EXPECT_STREQ(KEST_EXPANDED(LoadLibrary), "LoadLibraryA");
    EXPECT_STREQ(KEST_EXPANDED(GetFileAttributes), "GetFileAttributesA");
    EXPECT_STREQ(KEST_EXPANDED(lstrcpy), "lstrcpyA");
    EXPECT_STREQ(KEST_EXPANDED(_tmain), "main");
    EXPECT_STREQ(KEST_EXPANDED(CreateFile), "CreateFile");
    EXPECT_EQ(lstrlen(_T("four")), 4);
}

} // namespace
