// Generic text and names where sources are compiled for wide text.
#define UNICODE
#define _UNICODE

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

static_assert(std::is_same<TCHAR, wchar_t>::value && std::is_same<_TCHAR, wchar_t>::value, "");
static_assert(std::is_same<LPTSTR, wchar_t*>::value && std::is_same<LPCTSTR, const wchar_t*>::value, "");

TEST(GenericNames, TextIsWide)
{
    EXPECT_EQ(std::basic_string<TCHAR>(_T("text")), L"text");
    EXPECT_EQ(std::basic_string<TCHAR>(TEXT("text")), L"text");
    EXPECT_EQ(std::basic_string<TCHAR>(_TEXT("text")), L"text");
    EXPECT_EQ(_tcslen(_T("four")), 4U);
    EXPECT_EQ(_tstoi(_T("-17")), -17);
    EXPECT_EQ(_istdigit(_T('7')) != 0, true);
    TCHAR buffer[16];
    EXPECT_EQ(_tcscmp(_tcscpy(buffer, _T("abc")), _T("abc")), 0);
    EXPECT_EQ(_sntprintf(buffer, 16, _T("%s-%d"), _T("abc"), 5), 5);
    EXPECT_EQ(std::basic_string<TCHAR>(buffer), _T("abc-5"));
}

TEST(GenericNames, NamesStandForTheWideFunctions)
{
    EXPECT_STREQ(KEST_EXPANDED(LoadLibrary), "LoadLibraryW");
    EXPECT_STREQ(KEST_EXPANDED(GetFileAttributes), "GetFileAttributesW");
    EXPECT_STREQ(KEST_EXPANDED(_tmain), "wmain");
    WIN32_FIND_DATA found = {};
    STARTUPINFO startup = {};
    OSVERSIONINFOEX version = {};
    LOGFONT font = {};
    EXPECT_EQ(sizeof(found.cFileName), MAX_PATH * sizeof(wchar_t));
    EXPECT_EQ(startup.lpTitle, nullptr);
    EXPECT_EQ(version.szCSDVersion[0] + font.lfFaceName[0], 0);
    TCHAR path[] = _T("/folder/name.txt");
    EXPECT_EQ(lstrlen(path), 16);
}

} // namespace
