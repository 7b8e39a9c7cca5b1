// Lines, headers, keys, quotes and lists of names.
#include "config/profile_asking.h"
#include "harness/in_child.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>
#include <ctype.h>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <sys/wait.h>
#include <utility>
#include <vector>

using kest::test::answered;
using kest::test::askProfile;
using kest::test::byDefault;
using kest::test::none;
using kest::test::Profile;
using kest::test::ProfileAnswer;
using kest::test::statusInChild;
using kest::test::Text;
using namespace std::string_literals;

namespace
{

struct Row
{
    std::string content;
    Text section;
    Text key;
    ProfileAnswer expected;
};

void expectAnswers(const std::vector<Row>& rows)
{
    for (const Row& row : rows)
    {
        EXPECT_EQ(Profile(row.content).ask(row.section, row.key), row.expected) << testing::PrintToString(row.content);
    }
}

// ---- Lines

TEST(ProfileLines, EndAtTheFirstNul)
{
    expectAnswers({
        {"[A]\nx=val\0ue\ny=2\n"s, "A", "x", answered(3, "val")},
        {"[A]\nx=1\n\0y=2\n"s, "A", "y", byDefault},
        {"[A]\nx=1\n\0[B]\n"s, none, none, answered(2, "A\t")},
        // The LF behind the NUL makes no difference: the lines before it end with CR.
        {"[A]\rx=1\ry=2\r\0\n"s, "A", "y", answered(1, "2")},
        {"\0[A]\nx=1\n"s, "A", "x", byDefault},
        {"\0[A]\nx=1\n"s, none, none, answered(0, "")},
    });
}

TEST(ProfileLines, EndWithLineFeedOrBehindTheLastOneWithCarriageReturn)
{
    expectAnswers({
        {"[A]\nx=1\ny=2", "A", "y", answered(1, "2")},
        {"[A]\r\nx=1\r\ny=2\r\n", "A", "x", answered(1, "1")},
        {"[A]\rx=1\ry=2\r", "A", "x", answered(1, "1")},
        {"[A]\rx=1\ry=2", "A", "y", answered(1, "2")},
        // A carriage return before a later line feed breaks no line.
        {"[A]\nx=1\ry=2\n", "A", "x", answered(5, "1\ry=2")},
        {"[A]\nx=1\ry=2\n", "A", "y", byDefault},
        {"[A]\rx=1\n", "A", "x", byDefault},
        {"[A]\nx=1\ry=2", "A", "x", answered(1, "1")},
        {"[A]\nx=1\ry=2", "A", "y", answered(1, "2")},
        {"[A]\nx=1\r\ry=2\rz=3\r", "A", "z", answered(1, "3")},
        {"\n\n\r\n \t \n[A]\n\n\nx=1", "A", "x", answered(1, "1")},
    });
}

TEST(ProfileLines, LoseTheBlanksAroundThem)
{
    expectAnswers({
        {" \t\v\f[A] \t\n \v\f x=1 \t\v\f\r\n", "A", "x", answered(1, "1")},
        {"[A]\nx \t= \v1 2\f\n", "A", "x", answered(3, "1 2")},
        {"[A]\nx=\xA0\x85\n", "A", "x", answered(2, "\xA0\x85")},
    });
}

// In another locale other bytes are blank. Here it is the underscore.
class UnderscoreIsBlank
{
public:
    UnderscoreIsBlank() : previous_(*table())
    {
        std::copy(previous_ - 128, previous_ + 256, classes_.begin());
        classes_[128 + '_'] = classes_[128 + ' '];
        *table() = classes_.data() + 128;
    }
    ~UnderscoreIsBlank() { *table() = previous_; }
    UnderscoreIsBlank(const UnderscoreIsBlank&) = delete;
    UnderscoreIsBlank& operator=(const UnderscoreIsBlank&) = delete;

private:
    static const unsigned short** table() { return const_cast<const unsigned short**>(__ctype_b_loc()); }

    const unsigned short* previous_;
    std::array<unsigned short, 384> classes_;
};

TEST(ProfileLines, TakeFromTheLocaleWhatIsBlank)
{
    const Profile profile("_[A]_\n_x_=_1_\n");
    EXPECT_EQ(profile.ask("A", "x"), byDefault);
    const UnderscoreIsBlank locale;
    EXPECT_EQ(profile.ask("A", "x"), answered(1, "1"));
    EXPECT_EQ(profile.ask("_A_", "_x_"), answered(1, "1"));
}

TEST(ProfileLines, KnowNoComments)
{
    expectAnswers({
        {"[A]\n;x=1\nx=2\n", "A", "x", answered(1, "2")},
        {"[A]\n;x=1\nx=2\n", "A", ";x", answered(1, "1")},
        {"[A]\n# x=1\n", "A", "# x", answered(1, "1")},
        {"[A]\nx=1 ; comment\n", "A", "x", answered(11, "1 ; comment")},
        {"; comment\n[A]\n# comment\nx=1\n", "A", none, answered(2, "x\t")},
    });
}

// ---- Headers

TEST(ProfileHeaders, HaveTheNameBetweenTheirBrackets)
{
    expectAnswers({
        {"[A]\nx=1\n", "A", "x", answered(1, "1")},
        {"[A] x=0\nx=1\n", "A", "x", answered(1, "1")},
        {"[A]]\nx=1\n", "A", "x", answered(1, "1")},
        {"[[A]\nx=1\n", "[A", "x", answered(1, "1")},
        {"[A=B]\nx=1\n", "A=B", "x", answered(1, "1")},
        {"[A B]\nx=1\n", "A B", "x", answered(1, "1")},
        {"[]\nx=1\n", "", "x", answered(1, "1")},
        {"[]\nx=1\n", "  ", "x", answered(1, "1")},
        {"[ ]\nx=1\n", " ", "x", byDefault},
        {"[A]\nx=1\n", "", "x", byDefault},
        {"x[A]\nx=1\n", "A", "x", byDefault},
    });
}

TEST(ProfileHeaders, MatchExactlyTheTrimmedName)
{
    expectAnswers({
        {"[A]\nx=1\n", " \tA\r\n ", "x", answered(1, "1")},
        {"[ A ]\nx=1\n", "A", "x", byDefault},
        {"[ A ]\nx=1\n", " A ", "x", byDefault},
        {"[a]\nx=1\n", "A", "x", byDefault},
        {"[AB]\nx=1\n", "A", "x", byDefault},
        {"[A]\nx=1\n", "AB", "x", byDefault},
        {"[Longer]\n[A]\nx=1\n", "A", "x", answered(1, "1")},
        {"[ABC]\n[]\nx=1\n", "", "x", answered(1, "1")},
    });
}

TEST(ProfileHeaders, NeedBothBrackets)
{
    expectAnswers({
        {"[A]\n[x=1\n", "A", "[x", answered(1, "1")},
        {"[A\nx=1\n", "A", "x", byDefault},
        {"[A]\n[x]=1\n", "A", "[x]", byDefault},
        {"[A]\n[\n]\nx=1\n", "A", "x", answered(1, "1")},
    });
}

TEST(ProfileHeaders, DoNotEndTheSearch)
{
    expectAnswers({
        {"[A]\ny=1\n[B]\nx=2\n", "A", "x", answered(1, "2")},
        {"[A]\nx=1\n[A]\nx=2\n", "A", "x", answered(1, "1")},
        {"[A]\ny=1\n[B]\nz=3\n[A]\nx=2\n", "A", "x", answered(1, "2")},
        {"[B]\nx=2\n[A]\ny=1\n", "A", "x", byDefault},
        {"x=0\n[A]\ny=1\n", "A", "x", byDefault},
    });
}

// ---- Keys

TEST(ProfileKeys, StandBeforeTheFirstEqualsSign)
{
    expectAnswers({
        {"[A]\nx=1=2\n", "A", "x", answered(3, "1=2")},
        {"[A]\nx==1\n", "A", "x", answered(2, "=1")},
        {"[A]\nx y = 1\n", "A", "x y", answered(1, "1")},
        {"[A]\nx=\n", "A", "x", answered(0, "")},
        {"[A]\nx=  \n", "A", "x", answered(0, "")},
        {"[A]\nx\nx=1\n", "A", "x", answered(1, "1")},
        {"[A]\n=5\n", "A", "", byDefault},
        {"[A]\n = 5\nx=1\n", "A", " ", byDefault},
        {"[A]\nx]=1\n", "A", "x]", answered(1, "1")},
    });
}

TEST(ProfileKeys, MatchExactlyTheTrimmedName)
{
    expectAnswers({
        {"[A]\nx=1\n", "A", "\t x \n", answered(1, "1")},
        {"[A]\nX=1\n", "A", "x", byDefault},
        {"[A]\nxy=1\n", "A", "x", byDefault},
        {"[A]\nx=1\n", "A", "xy", byDefault},
        {"[A]\nx=1\nx=2\n", "A", "x", answered(1, "1")},
        {"[A]\n  x=1\n", "A", "x", answered(1, "1")},
    });
}

// ---- Quotes

TEST(ProfileQuotes, AreRemovedWithoutLoweringTheCount)
{
    const std::pair<std::string, ProfileAnswer> rows[] = {
        {"\"hello\"", answered(7, "hello")},   {"\"abc\"", answered(5, "abc")},
        {"\"abc", answered(4, "abc")},         {"abc\"", answered(4, "abc")},
        {"\"\"\"abc\"\"", answered(8, "abc")}, {"\"a\"b\"", answered(5, "a\"b")},
        {"\" a \"", answered(5, " a ")},       {"\"", answered(1, "")},
        {"\"\"\"\"", answered(4, "")},         {"'abc'", answered(5, "'abc'")},
        {"a\"\"b", answered(4, "a\"\"b")},
    };
    for (const auto& [value, expected] : rows)
    {
        EXPECT_EQ(Profile("[A]\nx=" + value + "\n").ask("A", "x"), expected) << value;
    }
}

TEST(ProfileQuotes, AreRemovedFromWhatWasCut)
{
    const Profile profile("[A]\nx=\"abc\"def\"\n");
    EXPECT_EQ(profile.ask("A", "x", none, 3), answered(2, "a", 3));
    EXPECT_EQ(profile.ask("A", "x", none, 6), answered(5, "abc", 6));
    EXPECT_EQ(profile.ask("A", "x", none, 2), answered(1, "", 2));
}

TEST(ProfileQuotes, AreRemovedFromLists)
{
    const Profile profile("[\"A\"]\n\"x\"=1\n[B\"]\n");
    EXPECT_EQ(profile.ask(none, none), answered(7, "A\"\tB\"\t"));
    EXPECT_EQ(profile.ask("\"A\"", none), answered(4, "x\"\t"));
    EXPECT_EQ(profile.ask(none, none, none, 5), answered(3, "A", 5));
}

// ---- Lists of names

TEST(ProfileLists, HaveATabBehindEachName)
{
    expectAnswers({
        {"[Alpha]\n[Beta]\n", none, none, answered(11, "Alpha\tBeta\t")},
        {"[A]\nx=1\n[B]\n", none, none, answered(4, "A\tB\t")},
        {"[A]\nx=1\n[B]\n", none, "x", answered(4, "A\tB\t")},
        {"[A]\n[]\n[A]\n[ B ]\n", none, none, answered(9, "A\t\tA\t B \t")},
        {"x=1\n", none, none, answered(0, "")},
        {"[A]\nx=1\n y = 2\nx=3\nno sign\n=5\n", "A", none, answered(6, "x\ty\tx\t")},
        {"[A]\n[B]\nx=1\n", "A", none, answered(0, "")},
        {"[A]\nx=1\n", "B", none, byDefault},
        {"x=1\n[A]\n", "A", none, answered(0, "")},
    });
}

TEST(ProfileLists, HoldTheKeysOfTheFirstRunOnly)
{
    expectAnswers({
        {"[A]\nx=1\n[B]\ny=2\n", "A", none, answered(2, "x\t")},
        {"[A]\nx=1\n[A]\ny=2\n", "A", none, answered(2, "x\t")},
        {"[B]\nw=1\n[A]\nx=1\n[C]\n[A]\ny=2\n", "A", none, answered(2, "x\t")},
        {"[A]\nx=1\n[no header=2\ny=3\n", "A", none, answered(15, "x\t[no header\ty\t")},
    });
}

TEST(ProfileLists, AreCutAtTheBuffersEnd)
{
    const Profile profile("[S]\nAlpha=1\nBeta=2\nC=3\n[Alpha]\n[Beta]\n[C]\n");
    // A name with room for its own length alone loses its last byte; with one byte more it is kept without the tab.
    EXPECT_EQ(profile.ask("S", none, none, 6), answered(4, "Alph", 6));
    EXPECT_EQ(profile.ask("S", none, none, 7), answered(5, "Alpha", 7));
    EXPECT_EQ(profile.ask("S", none, none, 8), answered(6, "Alpha\t", 8));
    const auto expectCuts = [&](const Text& section, const std::string& whole)
    {
        for (std::size_t size = 2; size <= whole.size() + 4; ++size)
        {
            const std::string kept = whole.substr(0, size - 2);
            EXPECT_EQ(profile.ask(section, none, none, size), answered(static_cast<int>(kept.size()), kept, size));
        }
    };
    expectCuts("S", "Alpha\tBeta\tC\t");
    expectCuts(none, "S\tAlpha\tBeta\tC\t");
}

TEST(ProfileLists, TakeNothingMoreOnceTheyAreFull)
{
    // The short name would fit where the long one did not.
    const Profile profile("[long name]\n[s]\n");
    EXPECT_EQ(profile.ask(none, none, none, 6), answered(4, "long", 6));
    EXPECT_EQ(profile.ask(none, none, none, 2), answered(0, "", 2));
}

// ---- Long names

std::string longName(std::size_t length)
{
    return std::string(length, 'n');
}

TEST(ProfileNames, MayHave1024Bytes)
{
    const std::string name = longName(1024);
    const Profile profile("[" + name + "]\n" + name + " =1\n");
    EXPECT_EQ(profile.ask(name, name), answered(1, "1"));
    EXPECT_EQ(profile.ask(none, none, none, 2000), answered(1025, name + "\t", 2000));
    EXPECT_EQ(profile.ask(name, none, none, 2000), answered(1025, name + "\t", 2000));
    EXPECT_EQ(profile.ask(longName(1023), name), byDefault);
    EXPECT_EQ(profile.ask(longName(1025), name), byDefault);
}

TEST(ProfileNames, AreNotMixedWithLongerOnesBeforeThem)
{
    const std::string name = longName(1024);
    const Profile profile("[" + name + "]\n[n]\n" + name + "=1\nn=2\n");
    EXPECT_EQ(profile.ask("n", "n"), answered(1, "2"));
    EXPECT_EQ(profile.ask(none, none, none, 2000), answered(1027, name + "\tn\t", 2000));
}

// What a call made in a child ends with.
int statusOfAsking(const Profile& profile, const Text& section, const Text& key, std::size_t size = 64)
{
    return statusInChild(
        [&]
        {
            // The C library's message is not this test's.
            ASSERT_NE(std::freopen("/dev/null", "w", stderr), nullptr);
            profile.ask(section, key, none, size);
        });
}

bool aborted(int status)
{
    return WIFSIGNALED(status) && WTERMSIG(status) == SIGABRT;
}

TEST(ProfileNames, EndTheProcessBeyond1024Bytes)
{
    const Profile header("[A]\nx=1\n[" + longName(1025) + "]\n");
    EXPECT_TRUE(aborted(statusOfAsking(header, "A", "y")));
    EXPECT_TRUE(aborted(statusOfAsking(header, "A", none)));
    EXPECT_TRUE(aborted(statusOfAsking(header, "B", "x")));
    EXPECT_TRUE(aborted(statusOfAsking(header, none, none)));
    EXPECT_TRUE(aborted(statusOfAsking(header, none, none, 2)));
    const Profile key("[A]\nx=1\n" + longName(1025) + "=2\ny=3\n");
    EXPECT_TRUE(aborted(statusOfAsking(key, "A", "y")));
    EXPECT_TRUE(aborted(statusOfAsking(key, "A", none)));
    EXPECT_TRUE(aborted(statusOfAsking(key, "A", none, 2)));
    EXPECT_TRUE(aborted(statusOfAsking(key, "A", longName(1025))));
}

// Header and key with the shortest name that is too long.
const std::string tooLong[] = {"[" + longName(1025) + "]", longName(1025) + "=", longName(1025) + " = 2"};

// A key that is not there: lines are left out that are neither it nor too long.
void expectProcessEnd(const std::string& content)
{
    EXPECT_TRUE(aborted(statusOfAsking(Profile(content), "A", "no key"))) << testing::PrintToString(content);
}

TEST(ProfileNames, EndTheProcessInLinesThatCarriageReturnEnds)
{
    for (const std::string& line : tooLong)
    {
        expectProcessEnd("[A]\nx=1\r" + line + "\ry=3\r");
        expectProcessEnd("[A]\nx=1\ny=2\r" + line);
        expectProcessEnd("[A]\n" + longName(1500) + "\nx=1\r" + line + "\ry=3\r");
        expectProcessEnd("[A]\rx=1\r" + line + "\ry=3\r");
    }
    EXPECT_TRUE(aborted(statusOfAsking(Profile("[B]\nx=1\r" + tooLong[0] + "\r[C]\r"), "A", "x")));
}

TEST(ProfileNames, EndTheProcessBehindLongLinesThatDoNot)
{
    const std::string harmless[] = {longName(2000), "[" + longName(2000), "x=" + longName(2000),
                                    std::string(2000, ' ') + "x=1"};
    for (const std::string& line : harmless)
    {
        expectProcessEnd("[A]\n" + line + "\nx=1\n" + tooLong[1] + "\ny=3\n");
        expectProcessEnd("[A]\n" + line + "\nx=1\n" + line + "\n" + tooLong[0] + "\ny=3\n");
        expectProcessEnd("[A]\r" + line + "\rx=1\r" + tooLong[1] + "\ry=3\r");
        EXPECT_TRUE(aborted(statusOfAsking(Profile(line + "\n[B]\n" + tooLong[0] + "\n"), "A", "x")));
    }
}

TEST(ProfileNames, EndTheProcessInTheShortestLines)
{
    const std::string allowed = longName(1024);
    for (const char* const before : {"[A]\n", "[A]\nx=1\n", "[A]\r"})
    {
        for (const char* const behind : {"", "\n", "\r", "\r\n", "\ny=3\n", "\ny=3\r", "\ry=3\r"})
        {
            for (const std::string& line : tooLong)
            {
                // A carriage return before a line feed ends no line.
                if (before != "[A]\r"s || std::string_view(behind).find('\n') == std::string_view::npos)
                {
                    expectProcessEnd(before + line + behind);
                }
            }
            EXPECT_EQ(Profile(before + allowed + "=" + behind).ask("A", "no key"), byDefault);
            EXPECT_EQ(Profile(before + ("[" + allowed) + "]" + behind).ask("A", "no key"), byDefault);
        }
    }
}

TEST(ProfileNames, EndTheProcessOnlyWhereTheyAreReached)
{
    const Profile behind("[A]\nx=1\n" + longName(1025) + "=2\n[" + longName(1025) + "]\n");
    EXPECT_EQ(behind.ask("A", "x"), answered(1, "1"));
    const Profile outside("[B]\n" + longName(1025) + "=2\n[A]\nx=1\n");
    EXPECT_EQ(outside.ask("A", "x"), answered(1, "1"));
    EXPECT_EQ(outside.ask(none, none), answered(4, "B\tA\t"));
    const Profile noName("[A]\n" + longName(2000) + "\n[" + longName(2000) + "\nx=" + longName(2000) + "\n");
    EXPECT_EQ(noName.ask("A", none), answered(2, "x\t"));
    // Blanks around a key are not part of it; those inside the brackets are part of the section's name.
    const Profile blanks("[A]\n" + std::string(2000, ' ') + "x" + std::string(2000, ' ') + "=1\n");
    EXPECT_EQ(blanks.ask("A", "x"), answered(1, "1"));
    EXPECT_TRUE(aborted(statusOfAsking(Profile("[" + std::string(1025, ' ') + "]\n"), "A", "x")));
}

} // namespace
