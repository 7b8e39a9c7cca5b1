#include "kest/crt/path_splitting.h"

#include "crt/path_split_outputs.h"
#include "harness/scoped_locale.h"

#include <gtest/gtest.h>
#include <ostream>
#include <string>

namespace
{

using kest::test::expectOutputs;
using kest::test::none;
using kest::test::Outputs;
using kest::test::repeated;
using kest::test::ScopedLocale;
using kest::test::Split;
using kest::test::split;
using kest::test::splitBounded;
using kest::test::widened;
using namespace std::string_literals;

// ---- The four side by side ---------------------------------------------------------------------------------------

struct Row
{
    const char* path;
    Split narrow;      // _splitpath
    Split wide;        // _wsplitpath
    int boundedResult; // _splitpath_s and _wsplitpath_s
    Split bounded;
};

void PrintTo(const Row& row, std::ostream* stream)
{
    *stream << '"' << row.path << '"';
}

// clang-format off
const Row rows[] = {
    {"/usr/lib/x.so",      {"", "/usr/lib", "x", ".so"},         {"", "/usr/lib/", "x", ".so"},         0, {"usr", "/lib", "x", ".so"}},
    {"/usr/lib/libx.so.2", {"", "/usr/lib", "libx.so", ".2"},    {"", "/usr/lib/", "libx.so", ".2"},    0, {"usr", "/lib", "libx", ".2"}},
    {"/usr/bin/ls",        {"", "/usr/bin", "ls", ""},           {"", "/usr/bin/", "ls", ""},           0, {"usr", "/bin", "ls", none}},
    {"/a/b/c/d/e",         {"", "/a/b/c/d", "e", ""},            {"", "/a/b/c/d/", "e", ""},            0, {"a", "/b/c/d", "e", none}},
    {"a/b/c.d",            {"", "a/b", "c", ".d"},               {"", "a/b/", "c", ".d"},               0, {"a", "/b", "c", ".d"}},
    // No separator.
    {"",                   {"", "", "", ""},                     {"", "", "", ""},                      1, {none, none, none, none}},
    {"x",                  {"", "", "x", ""},                    {"", "", "x", ""},                     0, {none, none, "x", none}},
    {"a.tar.gz",           {"", "", "a.tar", ".gz"},             {"", "", "a.tar", ".gz"},              0, {none, none, "a.tar", ".gz"}},
    {".profile",           {"", "", "", ".profile"},             {"", "", "", ".profile"},              0, {none, none, "", ".profile"}},
    {"a.",                 {"", "", "a", "."},                   {"", "", "a", "."},                    0, {none, none, "a", "."}},
    {".",                  {"", "", "", "."},                    {"", "", "", "."},                     0, {none, none, "", "."}},
    {"..",                 {"", "", ".", "."},                   {"", "", ".", "."},                    0, {none, none, ".", "."}},
    // Only slashes, or one component among them.
    {"/",                  {"", "", "", ""},                     {"", "/", "", ""},                     1, {none, none, none, none}},
    {"//",                 {"", "/", "", ""},                    {"", "//", "", ""},                    1, {none, none, none, none}},
    {"/x",                 {"", "", "x", ""},                    {"", "/", "x", ""},                    1, {"x", "", none, none}},
    {"x/",                 {"", "x", "", ""},                    {"", "x/", "", ""},                    1, {"x", "", none, none}},
    {"/usr/",              {"", "/usr", "", ""},                 {"", "/usr/", "", ""},                 1, {"usr", "", none, none}},
    {"/x.y",               {"", "", "x", ".y"},                  {"", "/", "x", ".y"},                  1, {"x.y", "", none, none}},
    // Slashes at the end and in a row.
    {"/a/b/",              {"", "/a/b", "", ""},                 {"", "/a/b/", "", ""},                 0, {"a", "", "b", none}},
    {"/a/b/c//",           {"", "/a/b/c/", "", ""},              {"", "/a/b/c//", "", ""},              0, {"a", "/b", "c", none}},
    {"/a/b.c/",            {"", "/a/b.c", "", ""},               {"", "/a/b.c/", "", ""},               0, {"a", "", "b", ".c"}},
    {"//a///b///c.d",      {"", "//a///b//", "c", ".d"},         {"", "//a///b///", "c", ".d"},         0, {"a", "/b", "c", ".d"}},
    // Dots before the last component, and several in it.
    {"/a/b.c/d",           {"", "/a/b.c", "d", ""},              {"", "/a/b.c/", "d", ""},              0, {"a", "", "d", ".c"}},
    {"/a/b.c/d/e",         {"", "/a/b.c/d", "e", ""},            {"", "/a/b.c/d/", "e", ""},            0, {"a", "/d", "e", ".c"}},
    {"/a/b.c/d/e.f",       {"", "/a/b.c/d", "e", ".f"},          {"", "/a/b.c/d/", "e", ".f"},          0, {"a", "/d", "e", ".f"}},
    {"/a/b/c.d/e/",        {"", "/a/b/c.d/e", "", ""},           {"", "/a/b/c.d/e/", "", ""},           0, {"a", "/b", "e", ".d"}},
    {"/a.b/c",             {"", "/a.b", "c", ""},                {"", "/a.b/", "c", ""},                0, {"a.b", "", "c", none}},
    {"/a/b.c.d",           {"", "/a", "b.c", ".d"},              {"", "/a/", "b.c", ".d"},              0, {"a", "", "b", ".d"}},
    {"/a/b.",              {"", "/a", "b", "."},                 {"", "/a/", "b", "."},                 0, {"a", "", "b", "."}},
    {"/a/.profile",        {"", "/a", "", ".profile"},           {"", "/a/", "", ".profile"},           0, {"a", "", "", ".profile"}},
    {"/a/..b",             {"", "/a", ".", ".b"},                {"", "/a/", ".", ".b"},                0, {"a", "", "", ".b"}},
    {"/a/.",               {"", "/a", "", "."},                  {"", "/a/", "", "."},                  1, {"a", "", none, "."}},
    {"/a/b/..",            {"", "/a/b", ".", "."},               {"", "/a/b/", ".", "."},               1, {"a", "/b", none, "."}},
    {"/a/../x.y",          {"", "/a/..", "x", ".y"},             {"", "/a/../", "x", ".y"},             0, {"a", "", "x", ".y"}},
    {"../x",               {"", "..", "x", ""},                  {"", "../", "x", ""},                  0, {"..", "", "x", none}},
    // Backslashes and drive letters.
    {"C:\\dir\\f.txt",     {"", "", "C:\\dir\\f", ".txt"},       {"", "C:\\dir\\", "f", ".txt"},        0, {"C:", "/dir", "f", ".txt"}},
    {"a\\b.c",             {"", "", "a\\b", ".c"},               {"", "a\\", "b", ".c"},                0, {"a", "", "b", ".c"}},
    {"a/b\\c",             {"", "a", "b\\c", ""},                {"", "a/", "b\\c", ""},                0, {"a", "/b", "c", none}},
    {"a\\b/c.d",           {"", "a\\b", "c", ".d"},              {"", "a\\b/", "c", ".d"},              0, {"a", "/b", "c", ".d"}},
    {"\\",                 {"", "", "\\", ""},                   {"", "\\", "", ""},                    1, {none, none, none, none}},
    {"C:x.y",              {"", "", "C:x", ".y"},                {"", "", "C:x", ".y"},                 0, {none, none, "C:x", ".y"}},
    {"a.b\\c",             {"", "", "a", ".b\\c"},               {"", "a.b\\", "c", ""},                0, {"a.b", "", "c", none}},
    // Percent signs are no formats.
    {"/%s/%n/%d.%s",       {"", "/%s/%n", "%d", ".%s"},          {"", "/%s/%n/", "%d", ".%s"},          0, {"%s", "/%n", "%d", ".%s"}},
    // Characters of several bytes.
    {"/\u00e9/\u4e2d/\U0001F600.\u00fc", {"", "/\u00e9/\u4e2d", "\U0001F600", ".\u00fc"},
                           {"", "/\u00e9/\u4e2d/", "\U0001F600", ".\u00fc"}, 0, {"\u00e9", "/\u4e2d", "\U0001F600", ".\u00fc"}},
};
// clang-format on

class PathSplitting : public testing::TestWithParam<Row>
{
protected:
    const ScopedLocale locale_{"C.UTF-8"};
    const std::wstring widePath_ = widened(GetParam().path);
};

TEST_P(PathSplitting, NarrowAnswers)
{
    Outputs<char> outputs;
    split(GetParam().path, outputs);
    expectOutputs(outputs, GetParam().narrow);
}

TEST_P(PathSplitting, WideAnswers)
{
    Outputs<wchar_t> outputs;
    split(widePath_.c_str(), outputs);
    expectOutputs(outputs, GetParam().wide);
}

TEST_P(PathSplitting, NarrowBoundedAnswers)
{
    Outputs<char> outputs;
    EXPECT_EQ(splitBounded(GetParam().path, outputs), GetParam().boundedResult);
    expectOutputs(outputs, GetParam().bounded);
}

TEST_P(PathSplitting, WideBoundedAnswers)
{
    Outputs<wchar_t> outputs;
    EXPECT_EQ(splitBounded(widePath_.c_str(), outputs), GetParam().boundedResult);
    expectOutputs(outputs, GetParam().bounded);
}

INSTANTIATE_TEST_SUITE_P(Paths, PathSplitting, testing::ValuesIn(rows));

TEST(NullPaths, EmptyTheOutputsOrAreRefused)
{
    Outputs<char> narrow;
    split(static_cast<const char*>(nullptr), narrow);
    expectOutputs(narrow, {"", "", "", ""});
    Outputs<wchar_t> wide;
    split(static_cast<const wchar_t*>(nullptr), wide);
    expectOutputs(wide, {"", "", "", ""});

    Outputs<char> narrowBounded;
    EXPECT_EQ(splitBounded(static_cast<const char*>(nullptr), narrowBounded), 1);
    expectOutputs(narrowBounded, {none, none, none, none});
    Outputs<wchar_t> wideBounded;
    EXPECT_EQ(splitBounded(static_cast<const wchar_t*>(nullptr), wideBounded), 1);
    expectOutputs(wideBounded, {none, none, none, none});
}

// ---- _wsplitpath: limits and null outputs ------------------------------------------------------------------------

TEST(WideLimits, LeaveOutPartsBeyondThem)
{
    struct LimitRow
    {
        std::wstring path;
        std::wstring dir;
        std::wstring fname;
        std::wstring ext;
    };
    const auto x = repeated<wchar_t>;
    const LimitRow limitRows[] = {
        {x(255), L"", x(255), L""},
        {x(256), L"", L"", L""},
        {x(255) + L".y", L"", x(255), L".y"},
        {x(256) + L".y", L"", L"", L".y"},
        {L"a." + x(254), L"", L"a", L"." + x(254)},
        {L"a." + x(255), L"", L"a", L""},
        // Behind a separator it is the whole component that must fit.
        {L"/" + x(255), L"/", x(255), L""},
        {L"/" + x(256), L"/", L"", L""},
        {L"/" + x(253) + L".y", L"/", x(253), L".y"},
        {L"/" + x(254) + L".y", L"/", L"", L".y"},
        {L"/a." + x(253), L"/", L"a", L"." + x(253)},
        {L"/a." + x(254), L"/", L"", L"." + x(254)},
        {L"/a." + x(255), L"/", L"", L""},
        {L"/a.b/" + x(256), L"/a.b/", L"", L""},
        {x(1024) + L"/f.e", x(1024) + L"/", L"f", L".e"},
        {x(1025) + L"/f.e", L"", L"f", L".e"},
        {x(1024) + L"\\f.e", x(1024) + L"\\", L"f", L".e"},
        {x(1025) + L"\\f.e", L"", L"f", L".e"},
    };
    using Buffer = Outputs<wchar_t>::Buffer;
    for (const LimitRow& row : limitRows)
    {
        Outputs<wchar_t> outputs;
        split(row.path.c_str(), outputs);
        EXPECT_EQ(outputs.drive.contents(), Buffer::startingWith(L"\0"s)) << row.path;
        EXPECT_EQ(outputs.dir.contents(), Buffer::startingWith(row.dir + L'\0')) << row.path;
        EXPECT_EQ(outputs.fname.contents(), Buffer::startingWith(row.fname + L'\0')) << row.path;
        EXPECT_EQ(outputs.ext.contents(), Buffer::startingWith(row.ext + L'\0')) << row.path;
    }
}

TEST(WideNullOutputs, AreLeftOut)
{
    for (const wchar_t* const path :
         {L"/a/b.c", L"b.c", L"a\\b.c", L"/a/b", L"b", L"", static_cast<const wchar_t*>(nullptr)})
    {
        Outputs<wchar_t> whole;
        split(path, whole);
        for (unsigned wanted = 0; wanted < 16; ++wanted)
        {
            Outputs<wchar_t> some;
            const auto output = [wanted](unsigned bit, Outputs<wchar_t>::Buffer& buffer)
            { return (wanted & bit) != 0 ? buffer.data() : nullptr; };
            _wsplitpath(path, output(1, some.drive), output(2, some.dir), output(4, some.fname), output(8, some.ext));
            const auto expected = [wanted](unsigned bit, const Outputs<wchar_t>::Buffer& buffer)
            { return (wanted & bit) != 0 ? buffer.contents() : Outputs<wchar_t>::Buffer::untouched(); };
            EXPECT_EQ(some.drive.contents(), expected(1, whole.drive)) << wanted;
            EXPECT_EQ(some.dir.contents(), expected(2, whole.dir)) << wanted;
            EXPECT_EQ(some.fname.contents(), expected(4, whole.fname)) << wanted;
            EXPECT_EQ(some.ext.contents(), expected(8, whole.ext)) << wanted;
        }
    }
}

// ---- Deviations --------------------------------------------------------------------------------------------------

TEST(splitpath, LeavesTheSeparatorOutOfTheDirectory)
{
    Outputs<char> outputs;
    split("/usr/lib/x.so", outputs);
    EXPECT_STREQ(outputs.dir.data(), "/usr/lib");
}

TEST(splitpath, KnowsNeitherDrivesNorBackslashes)
{
    Outputs<char> outputs;
    split("C:\\a.b", outputs);
    expectOutputs(outputs, {"", "", "C:\\a", ".b"});
}

TEST(splitpath, NeedsEveryOutput)
{
    Outputs<char> outputs;
    EXPECT_DEATH(_splitpath("a", nullptr, outputs.dir.data(), outputs.fname.data(), outputs.ext.data()), "");
}

TEST(wsplitpath, KnowsNoDrives)
{
    Outputs<wchar_t> outputs;
    split(L"C:\\a.b", outputs);
    expectOutputs(outputs, {"", "C:\\", "a", ".b"});
}

TEST(wsplitpath, TakesBackslashesOnlyWithoutSlashes)
{
    Outputs<wchar_t> outputs;
    split(L"a/b\\c", outputs);
    expectOutputs(outputs, {"", "a/", "b\\c", ""});
}

TEST(wsplitpath, TakesDirectoriesOf1025Characters)
{
    Outputs<wchar_t> outputs;
    split((repeated<wchar_t>(1024) + L"/f").c_str(), outputs);
    EXPECT_EQ(std::wstring(outputs.dir.data()), repeated<wchar_t>(1024) + L"/");
}

} // namespace
