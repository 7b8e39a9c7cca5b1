#include "kest/crt/path_splitting.h"

#include "harness/sentinel_buffer.h"

#include <gtest/gtest.h>
#include <string>
#include <string_view>

namespace
{

using kest::test::SentinelBuffer;

// ---- Making ------------------------------------------------------------------------------------------------------

TEST(PathMaking, AppendsItsParts)
{
    struct MakeRow
    {
        const wchar_t* destination;
        const wchar_t* drive;
        const wchar_t* dir;
        const wchar_t* fname;
        const wchar_t* ext;
        std::wstring made;
    };
    const MakeRow makeRows[] = {
        {L"", L"", L"/tmp", L"f", nullptr, L"/tmpf"},
        {L"", L"", L"/tmp", L"f", L"", L"/tmpf"},
        {L"", L"", L"/tmp", L"f", L"txt", L"/tmpf.txt"},
        {L"", L"", L"/tmp", L"f", L".txt", L"/tmpf.txt"},
        {L"", L"", L"/tmp/", L"f", L"..txt", L"/tmp/f..txt"},
        {L"", L"", L"/tmp/", nullptr, L"txt", L"/tmp/.txt"},
        {L"", L"", L"/tmp/", L"", L".", L"/tmp/."},
        {L"", L"", L"/tmp/", nullptr, nullptr, L"/tmp/"},
        {L"", L"C:", L"\\dir\\", L"f", L"e", L"C:\\dir\\f.e"},
        {L"", L"", L"", nullptr, nullptr, L""},
        {L"before", L"d", L"e", L"f", L"g", L"beforedef.g"},
        {L"", L"", L"/\u00e9/", L"\U0001F600", L"\u00fc", L"/\u00e9/\U0001F600.\u00fc"},
    };
    using Buffer = SentinelBuffer<wchar_t, 40>;
    for (const MakeRow& row : makeRows)
    {
        Buffer buffer{std::wstring_view(row.destination)};
        _wmakepath(buffer.data(), row.drive, row.dir, row.fname, row.ext);
        EXPECT_EQ(buffer.contents(), Buffer::startingWith(row.made + L'\0')) << row.made;
    }
}

// ---- Deviations --------------------------------------------------------------------------------------------------

TEST(wmakepath, AppendsToTheDestination)
{
    wchar_t destination[40] = L"before/";
    _wmakepath(destination, L"", L"", L"f", L"e");
    EXPECT_STREQ(destination, L"before/f.e");
}

TEST(wmakepath, InsertsNoSeparators)
{
    wchar_t destination[40] = L"";
    _wmakepath(destination, L"C", L"dir", L"f", L"e");
    EXPECT_STREQ(destination, L"Cdirf.e");
}

TEST(wmakepath, NeedsDriveAndDirectory)
{
    wchar_t destination[40] = L"";
    EXPECT_DEATH(_wmakepath(destination, nullptr, L"dir", L"f", L"e"), "");
    EXPECT_DEATH(_wmakepath(destination, L"", nullptr, L"f", L"e"), "");
}

} // namespace
