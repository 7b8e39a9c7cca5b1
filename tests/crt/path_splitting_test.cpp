#include "kest/crt/path_splitting.h"

#include "harness/scoped_locale.h"
#include "harness/sentinel_buffer.h"

#include <csignal>
#include <cstdlib>
#include <gtest/gtest.h>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace
{

using kest::test::ScopedLocale;
using kest::test::sentinel;
using kest::test::SentinelBuffer;
using namespace std::string_literals;

std::wstring widened(const std::string& text)
{
    std::wstring wide(text.size(), L'\0');
    wide.resize(std::mbstowcs(wide.data(), text.c_str(), text.size()));
    return wide;
}

// The four outputs of a call, filled with sentinels before it.
template <class CharT>
struct Outputs
{
    static constexpr std::size_t size = 1100;
    using Buffer = SentinelBuffer<CharT, size>;

    Buffer drive;
    Buffer dir;
    Buffer fname;
    Buffer ext;
};

// What a split leaves in its outputs: a text and its terminator, or (null) nothing.
struct Split
{
    const char* drive;
    const char* dir;
    const char* fname;
    const char* ext;
};

void expectOutputs(const Outputs<char>& outputs, const Split& expected)
{
    const auto expectOne = [](const char* part, const Outputs<char>::Buffer& buffer, const char* text)
    {
        using Buffer = Outputs<char>::Buffer;
        EXPECT_EQ(buffer.contents(), text == nullptr ? Buffer::untouched() : Buffer::startingWith(text + "\0"s))
            << part;
    };
    expectOne("drive", outputs.drive, expected.drive);
    expectOne("dir", outputs.dir, expected.dir);
    expectOne("fname", outputs.fname, expected.fname);
    expectOne("ext", outputs.ext, expected.ext);
}

void expectOutputs(const Outputs<wchar_t>& outputs, const Split& expected)
{
    const auto expectOne = [](const char* part, const Outputs<wchar_t>::Buffer& buffer, const char* text)
    {
        using Buffer = Outputs<wchar_t>::Buffer;
        EXPECT_EQ(buffer.contents(),
                  text == nullptr ? Buffer::untouched() : Buffer::startingWith(widened(text) + L'\0'))
            << part;
    };
    expectOne("drive", outputs.drive, expected.drive);
    expectOne("dir", outputs.dir, expected.dir);
    expectOne("fname", outputs.fname, expected.fname);
    expectOne("ext", outputs.ext, expected.ext);
}

// Room for each part, for the functions that take sizes.
struct Sizes
{
    std::size_t drive = Outputs<char>::size;
    std::size_t dir = Outputs<char>::size;
    std::size_t fname = Outputs<char>::size;
    std::size_t ext = Outputs<char>::size;
};

int splitBounded(const char* path, Outputs<char>& outputs, const Sizes& sizes = {})
{
    return _splitpath_s(path, outputs.drive.data(), sizes.drive, outputs.dir.data(), sizes.dir, outputs.fname.data(),
                        sizes.fname, outputs.ext.data(), sizes.ext);
}

int splitBounded(const wchar_t* path, Outputs<wchar_t>& outputs, const Sizes& sizes = {})
{
    return _wsplitpath_s(path, outputs.drive.data(), sizes.drive, outputs.dir.data(), sizes.dir, outputs.fname.data(),
                         sizes.fname, outputs.ext.data(), sizes.ext);
}

void split(const char* path, Outputs<char>& outputs)
{
    _splitpath(path, outputs.drive.data(), outputs.dir.data(), outputs.fname.data(), outputs.ext.data());
}

void split(const wchar_t* path, Outputs<wchar_t>& outputs)
{
    _wsplitpath(path, outputs.drive.data(), outputs.dir.data(), outputs.fname.data(), outputs.ext.data());
}

// ---- The four side by side ---------------------------------------------------------------------------------------

constexpr const char* none = nullptr;

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

template <class CharT>
std::basic_string<CharT> repeated(std::size_t count)
{
    return std::basic_string<CharT>(count, CharT('x'));
}

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

// ---- The bounded forms: sizes ------------------------------------------------------------------------------------

// A path without "/": only name and extension are looked at.
TEST(BoundedNames, AreWrittenWhereTheyFit)
{
    struct SizeRow
    {
        const char* path;
        std::size_t fnameSize;
        std::size_t extSize;
        int result;
        const char* fname;
        const char* ext;
    };
    constexpr std::size_t most = static_cast<std::size_t>(-1);
    const SizeRow sizeRows[] = {
        {"name", 5, 0, 0, "name", none},
        {"name", 4, 0, 0, none, none},
        {"name", 0, 0, 0, none, none},
        {"name", most, most, 0, "name", none},
        {"name.ext", 5, 5, 0, "name", ".ext"},
        {"name.ext", 4, 5, 1, none, none},
        {"name.ext", 5, 4, 1, "name", none},
        {"name.ext", 0, 5, 0, none, ".ext"},
        {"name.ext", 5, 0, 0, "name", none},
        {"name.ext", 0, 4, 1, none, none},
        {"name.ext", 0, 0, 0, none, none},
        {".ext", 1, 5, 0, "", ".ext"},
        {"name.ext", most, most, 0, "name", ".ext"},
    };
    for (const SizeRow& row : sizeRows)
    {
        SCOPED_TRACE(testing::Message() << row.path << " " << row.fnameSize << " " << row.extSize);
        Sizes sizes;
        sizes.fname = row.fnameSize;
        sizes.ext = row.extSize;
        Outputs<char> narrow;
        EXPECT_EQ(splitBounded(row.path, narrow, sizes), row.result);
        expectOutputs(narrow, {none, none, row.fname, row.ext});
        Outputs<wchar_t> wide;
        EXPECT_EQ(splitBounded(widened(row.path).c_str(), wide, sizes), row.result);
        expectOutputs(wide, {none, none, row.fname, row.ext});
    }
}

TEST(BoundedNames, PassOverNullOutputs)
{
    Outputs<char> narrow;
    EXPECT_EQ(_splitpath_s("name", nullptr, 9, nullptr, 9, nullptr, 9, narrow.ext.data(), 9), 0);
    EXPECT_EQ(_splitpath_s("name.ext", nullptr, 9, nullptr, 9, nullptr, 9, narrow.ext.data(), 9), 0);
    EXPECT_EQ(_splitpath_s("name.ext", nullptr, 9, nullptr, 9, narrow.fname.data(), 9, nullptr, 9), 0);
    expectOutputs(narrow, {none, none, "name", ".ext"});
    Outputs<wchar_t> wide;
    EXPECT_EQ(_wsplitpath_s(L"name", nullptr, 9, nullptr, 9, nullptr, 9, wide.ext.data(), 9), 0);
    EXPECT_EQ(_wsplitpath_s(L"name.ext", nullptr, 9, nullptr, 9, nullptr, 9, wide.ext.data(), 9), 0);
    EXPECT_EQ(_wsplitpath_s(L"name.ext", nullptr, 9, nullptr, 9, wide.fname.data(), 9, nullptr, 9), 0);
    expectOutputs(wide, {none, none, "name", ".ext"});
}

// What stands at the front of the outputs after a split of "/drive/some/folder/more/name.ext"; no terminators but
// those spelled out.
struct CutRow
{
    Sizes sizes;
    std::string drive;
    std::string dir;
    std::string fname;
    std::string ext;
};

template <class CharT>
void expectCuts(const CutRow& row)
{
    SCOPED_TRACE(testing::Message() << row.sizes.drive << " " << row.sizes.dir << " " << row.sizes.fname << " "
                                    << row.sizes.ext);
    using Buffer = typename Outputs<CharT>::Buffer;
    const auto expected = [](const std::string& text)
    { return Buffer::startingWith(std::basic_string<CharT>(text.begin(), text.end())); };
    const std::string path = "/drive/some/folder/more/name.ext";
    Outputs<CharT> outputs;
    EXPECT_EQ(splitBounded(std::basic_string<CharT>(path.begin(), path.end()).c_str(), outputs, row.sizes), 0);
    EXPECT_EQ(outputs.drive.contents(), expected(row.drive));
    EXPECT_EQ(outputs.dir.contents(), expected(row.dir));
    EXPECT_EQ(outputs.fname.contents(), expected(row.fname));
    EXPECT_EQ(outputs.ext.contents(), expected(row.ext));
}

TEST(BoundedParts, AreCutAndTerminatedInNarrowText)
{
    const CutRow cutRows[] = {
        {{6, 18, 5, 5}, "drive\0"s, "/some/folder/more\0"s, "name\0"s, ".ext\0"s},
        {{5, 17, 4, 4}, "driv\0"s, "/some/folder/mor\0"s, "nam\0"s, ".ex\0"s},
        {{2, 14, 2, 2}, "d\0"s, "/some/folder/\0"s, "n\0"s, ".\0"s},
        {{2, 13, 2, 2}, "d\0"s, "/some/folder\0"s, "n\0"s, ".\0"s},
        {{2, 9, 2, 2}, "d\0"s, "/some/fo\0"s, "n\0"s, ".\0"s},
        {{2, 2, 2, 2}, "d\0"s, "/\0"s, "n\0"s, ".\0"s},
        {{1, 1, 1, 1}, "\0"s, "\0"s, "\0"s, "\0"s},
        {{0, 0, 0, 0}, "", "", "", ""},
    };
    for (const CutRow& row : cutRows)
    {
        expectCuts<char>(row);
    }
}

// The C library's wide print leaves no terminator where it cuts. A directory that was cut while it grew is one
// shorter than its size afterwards, so that it fits and is terminated.
TEST(BoundedParts, AreCutInWideTextAsTheCLibraryCuts)
{
    const CutRow cutRows[] = {
        {{6, 18, 5, 5}, "drive\0"s, "/some/folder/more\0"s, "name\0"s, ".ext\0"s},
        {{5, 17, 4, 4}, "driv", "/some/folder/mor\0"s, "nam", ".ex"},
        {{2, 14, 2, 2}, "d", "/some/folder/\0"s, "n", "."},
        {{2, 13, 2, 2}, "d", "/some/folder\0"s, "n", "."},
        {{2, 9, 2, 2}, "d", "/some/fo\0"s, "n", "."},
        {{2, 2, 2, 2}, "d", "/\0"s, "n", "."},
        {{1, 1, 1, 1}, "\0"s, "\0"s, "\0"s, "\0"s},
        {{0, 0, 0, 0}, "", "", "", ""},
    };
    for (const CutRow& row : cutRows)
    {
        expectCuts<wchar_t>(row);
    }
}

TEST(BoundedParts, MayBeNullWhereTheirSizeIsZero)
{
    for (const char* const path : {"/drive/folder/name.ext", "/drive/folder/name"})
    {
        EXPECT_EQ(_splitpath_s(path, nullptr, 0, nullptr, 0, nullptr, 0, nullptr, 0), 0);
        EXPECT_EQ(_wsplitpath_s(widened(path).c_str(), nullptr, 0, nullptr, 0, nullptr, 0, nullptr, 0), 0);
    }
}

// Everything up to the part that is null is written; the extension comes before directory and name.
TEST(BoundedParts, AreRefusedWhenNullWithASize)
{
    Outputs<char> n[4];
    EXPECT_EQ(_splitpath_s("/a/b/c.d", nullptr, 9, n[0].dir.data(), 9, n[0].fname.data(), 9, n[0].ext.data(), 9), 1);
    expectOutputs(n[0], {none, none, none, none});
    EXPECT_EQ(_splitpath_s("/a/b/c.d", n[1].drive.data(), 9, n[1].dir.data(), 9, n[1].fname.data(), 9, nullptr, 9), 1);
    expectOutputs(n[1], {"a", none, none, none});
    EXPECT_EQ(_splitpath_s("/a/b/c.d", n[2].drive.data(), 9, nullptr, 9, n[2].fname.data(), 9, n[2].ext.data(), 9), 1);
    expectOutputs(n[2], {"a", none, none, ".d"});
    EXPECT_EQ(_splitpath_s("/a/b/c.d", n[3].drive.data(), 9, n[3].dir.data(), 9, nullptr, 9, n[3].ext.data(), 9), 1);
    expectOutputs(n[3], {"a", "/b", none, ".d"});

    Outputs<wchar_t> w[4];
    EXPECT_EQ(_wsplitpath_s(L"/a/b/c.d", nullptr, 9, w[0].dir.data(), 9, w[0].fname.data(), 9, w[0].ext.data(), 9), 1);
    expectOutputs(w[0], {none, none, none, none});
    EXPECT_EQ(_wsplitpath_s(L"/a/b/c.d", w[1].drive.data(), 9, w[1].dir.data(), 9, w[1].fname.data(), 9, nullptr, 9),
              1);
    expectOutputs(w[1], {"a", none, none, none});
    EXPECT_EQ(_wsplitpath_s(L"/a/b/c.d", w[2].drive.data(), 9, nullptr, 9, w[2].fname.data(), 9, w[2].ext.data(), 9),
              1);
    expectOutputs(w[2], {"a", none, none, ".d"});
    EXPECT_EQ(_wsplitpath_s(L"/a/b/c.d", w[3].drive.data(), 9, w[3].dir.data(), 9, nullptr, 9, w[3].ext.data(), 9), 1);
    expectOutputs(w[3], {"a", "/b", none, ".d"});

    // An extension that the path does not have is not asked for.
    EXPECT_EQ(_splitpath_s("/a/b/c", n[0].drive.data(), 9, n[0].dir.data(), 9, n[0].fname.data(), 9, nullptr, 9), 0);
    expectOutputs(n[0], {"a", "/b", "c", none});
    EXPECT_EQ(_wsplitpath_s(L"/a/b/c", w[0].drive.data(), 9, w[0].dir.data(), 9, w[0].fname.data(), 9, nullptr, 9), 0);
    expectOutputs(w[0], {"a", "/b", "c", none});
}

// A path of the given length with as many components as it can have: "a/a/a...".
template <class CharT>
std::basic_string<CharT> deepPath(std::size_t length)
{
    std::basic_string<CharT> path(length, CharT('a'));
    for (std::size_t index = 1; index < length; index += 2)
    {
        path[index] = CharT('/');
    }
    return path;
}

template <class CharT>
void expectLongestPathSplit()
{
    const auto path = deepPath<CharT>(1023);
    Outputs<CharT> outputs;
    EXPECT_EQ(splitBounded(path.c_str(), outputs), 0);
    using Buffer = typename Outputs<CharT>::Buffer;
    const std::basic_string<CharT> name = {CharT('a'), CharT()};
    EXPECT_EQ(outputs.drive.contents(), Buffer::startingWith(name));
    EXPECT_EQ(outputs.dir.contents(), Buffer::startingWith(path.substr(1, 1020) + CharT()));
    EXPECT_EQ(outputs.fname.contents(), Buffer::startingWith(name));

    Sizes sizes;
    sizes.dir = 500;
    Outputs<CharT> cut;
    EXPECT_EQ(splitBounded(path.c_str(), cut, sizes), 0);
    EXPECT_EQ(cut.dir.contents(), Buffer::startingWith(path.substr(1, 499) + CharT()));
}

TEST(BoundedPaths, MayHave1023Characters)
{
    expectLongestPathSplit<char>();
    expectLongestPathSplit<wchar_t>();
}

TEST(BoundedPaths, EndTheProcessFrom1024CharactersOn)
{
    Outputs<char> narrow;
    Outputs<wchar_t> wide;
    for (const std::size_t length : {1024U, 1025U, 5000U})
    {
        const auto aborted = testing::KilledBySignal(SIGABRT);
        EXPECT_EXIT(splitBounded(repeated<char>(length).c_str(), narrow), aborted, "") << length;
        EXPECT_EXIT(splitBounded(deepPath<char>(length).c_str(), narrow), aborted, "") << length;
        EXPECT_EXIT(splitBounded(repeated<wchar_t>(length).c_str(), wide), aborted, "") << length;
        EXPECT_EXIT(splitBounded(deepPath<wchar_t>(length).c_str(), wide), aborted, "") << length;
    }
}

TEST(BoundedDirectories, MayHaveASizeOf4096)
{
    std::vector<char> narrow(4096, sentinel<char>);
    EXPECT_EQ(_splitpath_s("/a/b/c", nullptr, 0, narrow.data(), 4096, nullptr, 0, nullptr, 0), 0);
    EXPECT_STREQ(narrow.data(), "/b");
    std::vector<wchar_t> wide(4096, sentinel<wchar_t>);
    EXPECT_EQ(_wsplitpath_s(L"/a/b/c", nullptr, 0, wide.data(), 4096, nullptr, 0, nullptr, 0), 0);
    EXPECT_STREQ(wide.data(), L"/b");
}

TEST(BoundedDirectories, EndTheProcessFromASizeOf4097OnOnlyWhenTheyGrow)
{
    Sizes sizes;
    for (const std::size_t size : {static_cast<std::size_t>(4097), static_cast<std::size_t>(-1)})
    {
        sizes.dir = size;
        Outputs<char> narrow;
        Outputs<wchar_t> wide;
        const auto aborted = testing::KilledBySignal(SIGABRT);
        EXPECT_EXIT(splitBounded("/a/b/c", narrow, sizes), aborted, "");
        EXPECT_EXIT(splitBounded(L"/a/b/c", wide, sizes), aborted, "");
        EXPECT_EQ(splitBounded("/a/b.d/c", narrow, sizes), 0);
        expectOutputs(narrow, {"a", "", "c", ".d"});
        EXPECT_EQ(splitBounded(L"/a/b.d/c", wide, sizes), 0);
        expectOutputs(wide, {"a", "", "c", ".d"});
    }
}

TEST(BoundedPaths, OfSlashesOnlyPrintFailed)
{
    for (const char* const path : {"/", "///", "\\", "\\/\\"})
    {
        testing::internal::CaptureStdout();
        Outputs<char> narrow;
        const int narrowResult = splitBounded(path, narrow);
        Outputs<wchar_t> wide;
        const int wideResult = splitBounded(widened(path).c_str(), wide);
        EXPECT_EQ(testing::internal::GetCapturedStdout(), "failed!\nfailed!\n") << path;
        EXPECT_EQ(narrowResult, 1);
        EXPECT_EQ(wideResult, 1);
    }
}

TEST(BoundedPaths, OtherwisePrintNothing)
{
    testing::internal::CaptureStdout();
    Outputs<char> narrow;
    Outputs<wchar_t> wide;
    for (const char* const path : {"", "x", "/x", "/a/..", "/a/b/c.d"})
    {
        splitBounded(path, narrow);
        splitBounded(widened(path).c_str(), wide);
    }
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

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

TEST(splitpaths, PutsTheFirstComponentIntoDrive)
{
    Outputs<char> outputs;
    EXPECT_EQ(splitBounded("/usr/lib/libx.so", outputs), 0);
    expectOutputs(outputs, {"usr", "/lib", "libx", ".so"});
}

TEST(splitpaths, CutsTheNameAtItsFirstDot)
{
    Outputs<char> outputs;
    EXPECT_EQ(splitBounded("/a/b.c.d", outputs), 0);
    expectOutputs(outputs, {"a", "", "b", ".d"});
}

TEST(splitpaths, TakesTheExtensionOfAnyComponent)
{
    Outputs<char> outputs;
    EXPECT_EQ(splitBounded("/a/b.c/d", outputs), 0);
    expectOutputs(outputs, {"a", "", "d", ".c"});
}

TEST(splitpaths, LeavesOutputsThatThePathDoesNotReach)
{
    Outputs<char> outputs;
    EXPECT_EQ(splitBounded("x", outputs), 0);
    expectOutputs(outputs, {none, none, "x", none});
}

TEST(splitpaths, CutsTooLongPartsAndSucceeds)
{
    Outputs<char> outputs;
    EXPECT_EQ(splitBounded("/drive/folder/name.ext", outputs, {3, 3, 3, 3}), 0);
    expectOutputs(outputs, {"dr", "/f", "na", ".e"});
}

TEST(splitpaths, AnswersOneForEveryError)
{
    Outputs<char> outputs;
    EXPECT_EQ(splitBounded("", outputs), 1);
    EXPECT_EQ(splitBounded("a.b", outputs, {9, 9, 1, 9}), 1);
}

TEST(splitpaths, PrintsFailedForSlashesOnly)
{
    Outputs<char> outputs;
    testing::internal::CaptureStdout();
    splitBounded("/", outputs);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "failed!\n");
}

TEST(splitpaths, EndsTheProcessOnPathsOf1024Bytes)
{
    Outputs<char> outputs;
    EXPECT_DEATH(splitBounded(repeated<char>(1024).c_str(), outputs), "");
}

TEST(splitpaths, EndsTheProcessOnDirectorySizesBeyond4096)
{
    Outputs<char> outputs;
    EXPECT_DEATH(splitBounded("/a/b/c", outputs, {9, 4097, 9, 9}), "");
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

TEST(wsplitpaths, PutsTheFirstComponentIntoDrive)
{
    Outputs<wchar_t> outputs;
    EXPECT_EQ(splitBounded(L"/usr/lib/libx.so", outputs), 0);
    expectOutputs(outputs, {"usr", "/lib", "libx", ".so"});
}

TEST(wsplitpaths, CutsTheNameAtItsFirstDot)
{
    Outputs<wchar_t> outputs;
    EXPECT_EQ(splitBounded(L"/a/b.c.d", outputs), 0);
    expectOutputs(outputs, {"a", "", "b", ".d"});
}

TEST(wsplitpaths, TakesTheExtensionOfAnyComponent)
{
    Outputs<wchar_t> outputs;
    EXPECT_EQ(splitBounded(L"/a/b.c/d", outputs), 0);
    expectOutputs(outputs, {"a", "", "d", ".c"});
}

TEST(wsplitpaths, LeavesOutputsThatThePathDoesNotReach)
{
    Outputs<wchar_t> outputs;
    EXPECT_EQ(splitBounded(L"x", outputs), 0);
    expectOutputs(outputs, {none, none, "x", none});
}

TEST(wsplitpaths, CutsTooLongPartsWithoutTerminatorAndSucceeds)
{
    Outputs<wchar_t> outputs;
    EXPECT_EQ(splitBounded(L"/drive/name", outputs, {3, 9, 3, 9}), 0);
    using Buffer = Outputs<wchar_t>::Buffer;
    EXPECT_EQ(outputs.drive.contents(), Buffer::startingWith(L"dr"));
    EXPECT_EQ(outputs.fname.contents(), Buffer::startingWith(L"na"));
}

TEST(wsplitpaths, AnswersOneForEveryError)
{
    Outputs<wchar_t> outputs;
    EXPECT_EQ(splitBounded(L"", outputs), 1);
    EXPECT_EQ(splitBounded(L"a.b", outputs, {9, 9, 1, 9}), 1);
}

TEST(wsplitpaths, PrintsFailedForSlashesOnly)
{
    Outputs<wchar_t> outputs;
    testing::internal::CaptureStdout();
    splitBounded(L"/", outputs);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "failed!\n");
}

TEST(wsplitpaths, EndsTheProcessOnPathsOf1024Characters)
{
    Outputs<wchar_t> outputs;
    EXPECT_DEATH(splitBounded(repeated<wchar_t>(1024).c_str(), outputs), "");
}

TEST(wsplitpaths, EndsTheProcessOnDirectorySizesBeyond4096)
{
    Outputs<wchar_t> outputs;
    EXPECT_DEATH(splitBounded(L"/a/b/c", outputs, {9, 4097, 9, 9}), "");
}

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
