#include "kest/crt/path_splitting.h"

#include "crt/path_split_outputs.h"

#include <csignal>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace
{

using kest::test::expectOutputs;
using kest::test::none;
using kest::test::Outputs;
using kest::test::repeated;
using kest::test::sentinel;
using kest::test::Sizes;
using kest::test::splitBounded;
using kest::test::widened;
using namespace std::string_literals;

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

// ---- Deviations --------------------------------------------------------------------------------------------------

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

} // namespace
