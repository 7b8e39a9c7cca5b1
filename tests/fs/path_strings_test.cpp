#include "harness/scoped_locale.h"
#include "harness/sentinel_buffer.h"
#include "kest/shell_paths.h"

#include <cerrno>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace
{

using kest::test::ScopedLocale;
using namespace std::string_literals;
using Buffer = kest::test::SentinelBuffer<wchar_t, 64>;

constexpr std::size_t longestResult = 524287;

struct Cut
{
    const wchar_t* path;
    BOOL result;
    // What is in the buffer afterwards, terminators included; behind it everything is as before.
    std::wstring written;
};

void expectCut(const Cut& row)
{
    SCOPED_TRACE(testing::PrintToString(row.path));
    Buffer buffer{std::wstring_view(row.path)};
    errno = 77;
    EXPECT_EQ(PathRemoveFileSpecW(buffer.data()), row.result);
    EXPECT_EQ(errno, 77);
    EXPECT_EQ(buffer.contents(), Buffer::startingWith(row.written));
}

TEST(PathStrings, RemoveFileSpecCutsBeforeTheLastSlash)
{
    expectCut({L"/usr/lib/a.so", 1, L"/usr/lib\0a.so\0"s});
    expectCut({L"dir/", 1, L"dir\0\0"s});
    expectCut({L"a//b", 1, L"a/\0b\0"s});
    expectCut({L"name", 0, L"name\0"s});
    expectCut({L"", 0, L"\0"s});
    expectCut({L"\u00e4/\u4e16/\U0001F600", 1, L"\u00e4/\u4e16\0\U0001F600\0"s});
    EXPECT_EQ(PathRemoveFileSpecW(nullptr), 0);
}

TEST(PathRemoveFileSpecW, KeepsNoRoot)
{
    expectCut({L"/a", 1, L"\0a\0"s});
    expectCut({L"/", 1, L"\0\0"s});
}

TEST(PathRemoveFileSpecW, KnowsOnlyTheSlash)
{
    expectCut({L"a\\b", 0, L"a\\b\0"s});
    expectCut({L"a/b\\c", 1, L"a\0b\\c\0"s});
}

struct Rewrite
{
    const wchar_t* path;
    std::wstring written;
};

void expectRewrite(const Rewrite& row)
{
    SCOPED_TRACE(testing::PrintToString(row.path));
    Buffer buffer{std::wstring_view(row.path)};
    errno = 77;
    EXPECT_EQ(PathFindFileNameW(buffer.data()), buffer.data());
    EXPECT_EQ(errno, 77);
    EXPECT_EQ(buffer.contents(), Buffer::startingWith(row.written));
}

TEST(PathStrings, FindFileNameLeavesPathsWithoutSlash)
{
    expectRewrite({L"abc", L"abc\0"s});
    expectRewrite({L"", L"\0"s});
    expectRewrite({L"a\\b.c", L"a\\b.c\0"s});
    EXPECT_EQ(PathFindFileNameW(nullptr), nullptr);
}

TEST(PathFindFileNameW, RewritesItsArgument)
{
    Buffer buffer{L"ab/c"};
    EXPECT_EQ(PathFindFileNameW(buffer.data()), buffer.data());
    EXPECT_EQ(buffer.contents(), Buffer::startingWith(L"/c\0c\0"s));
}

TEST(PathFindFileNameW, CountsByTheSeparatorsPosition)
{
    expectRewrite({L"/usr/lib/a.so", L"lib/a.so\0a.so\0"s});
    expectRewrite({L"ab/c", L"/c\0c\0"s});
    expectRewrite({L"a/b", L"b\0b\0"s});
    expectRewrite({L"/x", L"\0x\0"s});
    expectRewrite({L"/", L"\0\0"s});
    expectRewrite({L"dir/", L"ir/\0\0"s});
    expectRewrite({L"a/bcdef", L"f\0bcdef\0"s});
    expectRewrite({L"a//b", L"/b\0b\0"s});
}

struct Append
{
    const wchar_t* path;
    const wchar_t* more;
    std::wstring written;
};

void expectAppend(const Append& row)
{
    SCOPED_TRACE(testing::PrintToString(row.path) + " and " + testing::PrintToString(row.more));
    Buffer buffer{std::wstring_view(row.path)};
    errno = 77;
    EXPECT_EQ(PathAppendW(buffer.data(), row.more), 1);
    EXPECT_EQ(errno, 77);
    EXPECT_EQ(buffer.contents(), Buffer::startingWith(row.written));
}

TEST(PathStrings, AppendPutsOneSlashBetween)
{
    expectAppend({L"", L"x", L"x\0"s});
    expectAppend({L"a", L"x", L"a/x\0"s});
    expectAppend({L"a/", L"x", L"a/x\0"s});
    expectAppend({L"/", L"x", L"/x\0"s});
    expectAppend({L"a", L"", L"a/\0"s});
    expectAppend({L"a/", L"", L"a/\0"s});
    expectAppend({L"", L"", L"\0"s});
    expectAppend({L"a%ls", L"%n", L"a%ls/%n\0"s});
    expectAppend({L"\u00e4", L"\U0001F600", L"\u00e4/\U0001F600\0"s});
}

TEST(PathStrings, AppendRefusesNull)
{
    Buffer buffer{L"a"};
    EXPECT_EQ(PathAppendW(buffer.data(), nullptr), 0);
    EXPECT_EQ(buffer.contents(), Buffer::startingWith(L"a\0"s));
    EXPECT_EQ(PathAppendW(nullptr, L"x"), 0);
    EXPECT_EQ(PathAppendW(nullptr, nullptr), 0);
}

TEST(PathStrings, AppendTakesThePathItselfAsMore)
{
    Buffer buffer{L"abc"};
    EXPECT_EQ(PathAppendW(buffer.data(), buffer.data()), 1);
    EXPECT_EQ(buffer.contents(), Buffer::startingWith(L"abc/abc\0"s));
    EXPECT_EQ(PathAppendW(buffer.data(), buffer.data() + 5), 1);
    EXPECT_EQ(buffer.contents(), Buffer::startingWith(L"abc/abc/bc\0"s));
}

TEST(PathAppendW, AppendsAbsolutePaths)
{
    expectAppend({L"a/", L"/b", L"a//b\0"s});
    expectAppend({L"a", L"/b", L"a//b\0"s});
    expectAppend({L"", L"/b", L"/b\0"s});
}

TEST(PathAppendW, ResolvesNoDots)
{
    expectAppend({L"a/b", L"../c", L"a/b/../c\0"s});
    expectAppend({L"a", L"./c", L"a/./c\0"s});
}

TEST(PathAppendW, KnowsOnlyTheSlash)
{
    expectAppend({L"a\\", L"x", L"a\\/x\0"s});
}

void expectCombined(const wchar_t* directory, const wchar_t* file, const std::wstring& written)
{
    SCOPED_TRACE(testing::PrintToString(directory) + " and " + testing::PrintToString(file));
    Buffer buffer;
    errno = 77;
    EXPECT_EQ(PathCombineW(buffer.data(), directory, file), buffer.data());
    EXPECT_EQ(errno, 77);
    EXPECT_EQ(buffer.contents(), Buffer::startingWith(written));
}

TEST(PathStrings, CombineJoinsWithASlash)
{
    expectCombined(L"a", L"b", L"a/b\0"s);
    expectCombined(L"/usr/lib", L"a.so", L"/usr/lib/a.so\0"s);
    expectCombined(L"%ls", L"%n", L"%ls/%n\0"s);
}

TEST(PathStrings, CombineTakesItsDestinationAsSource)
{
    Buffer directory{L"abc"};
    EXPECT_EQ(PathCombineW(directory.data(), directory.data(), L"d"), directory.data());
    EXPECT_EQ(directory.contents(), Buffer::startingWith(L"abc/d\0"s));

    Buffer file{L"abc"};
    EXPECT_EQ(PathCombineW(file.data(), L"d", file.data()), file.data());
    EXPECT_EQ(file.contents(), Buffer::startingWith(L"d/abc\0"s));
}

TEST(PathCombineW, AlwaysAddsASeparator)
{
    expectCombined(L"a/", L"b", L"a//b\0"s);
    expectCombined(L"a", L"/b", L"a//b\0"s);
    expectCombined(L"a", L"../b", L"a/../b\0"s);
    expectCombined(L"", L"b", L"/b\0"s);
    expectCombined(L"a", L"", L"a/\0"s);
    expectCombined(L"", L"", L"/\0"s);
}

TEST(PathCombineW, RequiresBothParts)
{
    Buffer buffer;
    EXPECT_EQ(PathCombineW(buffer.data(), nullptr, L"b"), nullptr);
    EXPECT_EQ(PathCombineW(buffer.data(), L"a", nullptr), nullptr);
    EXPECT_EQ(buffer.contents(), Buffer::untouched());
    EXPECT_EQ(PathCombineW(nullptr, L"a", L"b"), nullptr);
}

// The library's formatted output writes nothing longer, and these functions keep to it.
TEST(PathStrings, ResultsBeyondTheFormattersLimitAreNotWritten)
{
    std::vector<wchar_t> buffer(longestResult + 64, L'z');
    const std::wstring fitting(longestResult - 2, L'a');
    const std::wstring tooLong(longestResult - 1, L'a');

    EXPECT_EQ(PathCombineW(buffer.data(), tooLong.c_str(), L"b"), buffer.data());
    EXPECT_EQ(std::wstring(buffer.begin(), buffer.end()), std::wstring(buffer.size(), L'z'));
    EXPECT_EQ(PathCombineW(buffer.data(), fitting.c_str(), L"b"), buffer.data());
    EXPECT_EQ(std::wstring(buffer.data()), fitting + L"/b");

    EXPECT_EQ(PathAppendW(buffer.data(), L"c"), 1);
    EXPECT_EQ(std::wstring(buffer.data()), fitting + L"/b");

    buffer.assign(buffer.size(), L'a');
    buffer[longestResult + 1] = L'/';
    buffer.back() = L'\0';
    const std::wstring before(buffer.begin(), buffer.end());
    EXPECT_EQ(PathRemoveFileSpecW(buffer.data()), 1);
    EXPECT_EQ(std::wstring(buffer.begin(), buffer.end()), before);
    EXPECT_EQ(PathFindFileNameW(buffer.data()), buffer.data());
    EXPECT_EQ(std::wstring(buffer.begin(), buffer.end()), before);
    buffer[longestResult + 1] = L'a';
    buffer[longestResult] = L'/';
    EXPECT_EQ(PathRemoveFileSpecW(buffer.data()), 1);
    EXPECT_EQ(std::wstring(buffer.data()), std::wstring(longestResult, L'a'));
}

TEST(PathStrings, MatchSpecFoldsCaseAndMatchesSlashesAndDots)
{
    const ScopedLocale locale("C.UTF-8");
    struct Row
    {
        const wchar_t* file;
        const wchar_t* pattern;
        BOOL match;
    };
    for (const Row& row : std::vector<Row>{
             {L"ABC.TXT", L"*.txt", 1},
             {L"abc.txt", L"*.TXT", 1},
             {L"abc.txt", L"*.doc", 0},
             {L"abc.txt", L"abc.txt", 1},
             {L"abc.txt", L"abc", 0},
             {L"a/b/c.txt", L"*.txt", 1},
             {L"a/b", L"a?b", 1},
             {L".hidden", L"*", 1},
             {L".hidden", L"?hidden", 1},
             {L"", L"*", 1},
             {L"", L"", 1},
             {L"a", L"", 0},
             {L"", L"?", 0},
             {L"\u00c4.txt", L"\u00e4.*", 1},
             {L"\u4e16.txt", L"?.txt", 1},
             {L"ab", L"?", 0},
         })
    {
        errno = 77;
        EXPECT_EQ(PathMatchSpecW(row.file, row.pattern), row.match)
            << testing::PrintToString(row.file) << " " << testing::PrintToString(row.pattern);
        EXPECT_EQ(errno, 77);
    }
}

TEST(PathStrings, MatchSpecCutsLongNamesAndPatterns)
{
    EXPECT_EQ(PathMatchSpecW((std::wstring(4095, L'a') + L"b").c_str(), L"*b"), 0);
    EXPECT_EQ(PathMatchSpecW((std::wstring(4094, L'a') + L"b").c_str(), L"*b"), 1);
    EXPECT_EQ(PathMatchSpecW(std::wstring(254, L'a').c_str(), std::wstring(254, L'a').c_str()), 1);
    EXPECT_EQ(PathMatchSpecW(std::wstring(254, L'a').c_str(), std::wstring(255, L'a').c_str()), 1);
    EXPECT_EQ(PathMatchSpecW(std::wstring(255, L'a').c_str(), std::wstring(255, L'a').c_str()), 0);

    const ScopedLocale locale("C.UTF-8");
    // The cut leaves out a character that does not fit whole.
    EXPECT_EQ(PathMatchSpecW(std::wstring(253, L'a').c_str(), (std::wstring(253, L'a') + L"\u00e4").c_str()), 1);
}

TEST(PathStrings, MatchSpecStopsAtWhatTheLocaleCannotEncode)
{
    const ScopedLocale locale("C");
    errno = 77;
    EXPECT_EQ(PathMatchSpecW(L"ab\u00e4cd", L"ab"), 1);
    EXPECT_EQ(PathMatchSpecW(L"ab", L"ab\u00e4cd"), 1);
    EXPECT_EQ(errno, 77);
}

TEST(PathStrings, MatchSpecTriesBytesWhereCharactersDoNotMatch)
{
    const ScopedLocale locale("C.UTF-8");
    EXPECT_EQ(PathMatchSpecW(L"\u00e9\u00e9", L"??"), 1);
    EXPECT_EQ(PathMatchSpecW(L"\u00e9\u00e9", L"???"), 0);
    EXPECT_EQ(PathMatchSpecW(L"\u00e9\u00e9", L"????"), 1);
}

TEST(PathMatchSpecW, TakesOnePatternOnly)
{
    EXPECT_EQ(PathMatchSpecW(L"a.txt", L"*.txt;*.doc"), 0);
    EXPECT_EQ(PathMatchSpecW(L"a.txt;b.doc", L"*.txt;*.doc"), 1);
}

TEST(PathMatchSpecW, FollowsTheShell)
{
    EXPECT_EQ(PathMatchSpecW(L"b.txt", L"[A-C].txt"), 1);
    EXPECT_EQ(PathMatchSpecW(L"d.txt", L"[a-c].txt"), 0);
    EXPECT_EQ(PathMatchSpecW(L"[a-c].txt", L"[a-c].txt"), 0);
    EXPECT_EQ(PathMatchSpecW(L"*", L"\\*"), 1);
    EXPECT_EQ(PathMatchSpecW(L"a\\b", L"a\\b"), 0);
    EXPECT_EQ(PathMatchSpecW(L"name", L"*.*"), 0);
}

} // namespace
