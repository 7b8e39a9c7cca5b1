#include "config/profile_model.h"
#include "harness/in_child.h"
#include "harness/scoped_locale.h"
#include "harness/scratch_folder.h"
#include "kest/kernel/profiles.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <dlfcn.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <optional>
#include <ostream>
#include <random>
#include <string>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

using kest::test::ProfileAnswer;
using kest::test::ProfileModel;
using kest::test::ScopedLocale;
using kest::test::ScratchFolder;
using kest::test::statusInChild;
using namespace std::string_literals;

namespace kest::test
{

void PrintTo(const ProfileAnswer& answer, std::ostream* out);

void PrintTo(const ProfileAnswer& answer, std::ostream* out)
{
    *out << answer.count << " " << testing::PrintToString(answer.buffer);
}

} // namespace kest::test

namespace
{

using Text = std::optional<std::string>;

// The length that files seem to have, where set.
std::optional<off_t> pretendedLength;

} // namespace

extern "C" KEST_API off_t lseek(int descriptor, off_t offset, int origin) noexcept
{
    static const auto real = reinterpret_cast<off_t (*)(int, off_t, int)>(dlsym(RTLD_NEXT, "lseek"));
    const off_t position = real(descriptor, offset, origin);
    return pretendedLength && origin != SEEK_SET ? *pretendedLength : position;
}

// Requests that no system can grant must be answered, also by the sanitizers' allocators.
extern "C" KEST_API const char* __asan_default_options();
extern "C" KEST_API const char* __tsan_default_options();

extern "C" const char* __asan_default_options()
{
    return "allocator_may_return_null=1";
}

extern "C" const char* __tsan_default_options()
{
    return "allocator_may_return_null=1";
}

namespace
{

class PretendedLength
{
public:
    explicit PretendedLength(off_t length) { pretendedLength = length; }
    ~PretendedLength() { pretendedLength.reset(); }
    PretendedLength(const PretendedLength&) = delete;
    PretendedLength& operator=(const PretendedLength&) = delete;
};

constexpr auto none = std::nullopt;

char* writable(Text& text)
{
    return text ? text->data() : nullptr;
}

// Asks with a buffer of exactly `size` bytes, which are compared whole.
ProfileAnswer ask(Text path, Text section, Text key, Text defaultValue, std::size_t size = 64)
{
    std::string buffer(size, '\x5A');
    const int count = read_profile_string(writable(section), writable(key), writable(defaultValue), buffer.data(),
                                          static_cast<int>(size), writable(path));
    return {count, buffer};
}

// What a call leaves: the text, zeros behind it.
ProfileAnswer answered(int count, std::string text, std::size_t size = 64)
{
    text.resize(size, '\0');
    return {count, text};
}

// A file for a test's duration, asked about in brief.
class Profile
{
public:
    explicit Profile(std::string_view content) : path_(folder_.write("file.ini", content)) {}

    ProfileAnswer ask(Text section, Text key, Text defaultValue = "default", std::size_t size = 64) const
    {
        return ::ask(path_, std::move(section), std::move(key), std::move(defaultValue), size);
    }
    const std::string& path() const { return path_; }
    const ScratchFolder& folder() const { return folder_; }

private:
    ScratchFolder folder_;
    std::string path_;
};

const ProfileAnswer byDefault = answered(7, "default");

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

// ---- Sizes

TEST(ProfileSizes, AreRefusedBelowTwo)
{
    const Profile profile("[A]\nx=value\n");
    std::string path = profile.path();
    for (const int size : {0, -1, -64, static_cast<int>(0x80000000)})
    {
        std::string buffer(8, '\x5A');
        EXPECT_EQ(read_profile_string("A"s.data(), "x"s.data(), "d"s.data(), buffer.data(), size, path.data()), 0);
        EXPECT_EQ(buffer, std::string(8, '\x5A'));
        EXPECT_EQ(read_profile_string("A"s.data(), "x"s.data(), "d"s.data(), nullptr, size, path.data()), 0);
    }
    EXPECT_EQ(read_profile_string("A"s.data(), "x"s.data(), "d"s.data(), nullptr, 64, path.data()), 0);
    std::string buffer(8, '\x5A');
    EXPECT_EQ(read_profile_string("A"s.data(), "x"s.data(), "d"s.data(), buffer.data(), 1, path.data()), 0);
    EXPECT_EQ(buffer, "\0ZZZZZZZ"s);
}

TEST(ProfileSizes, CutTheValue)
{
    const Profile profile("[A]\nx=value\n");
    EXPECT_EQ(profile.ask("A", "x", none, 2), answered(1, "v", 2));
    EXPECT_EQ(profile.ask("A", "x", none, 5), answered(4, "valu", 5));
    EXPECT_EQ(profile.ask("A", "x", none, 6), answered(5, "value", 6));
    EXPECT_EQ(profile.ask("A", "x", none, 7), answered(5, "value", 7));
}

TEST(ProfileSizes, CutTheDefault)
{
    const Profile profile("[A]\nx=value\n");
    EXPECT_EQ(profile.ask("A", "y", "default", 2), answered(1, "d", 2));
    EXPECT_EQ(profile.ask("A", "y", "default", 7), answered(6, "defaul", 7));
    EXPECT_EQ(profile.ask("A", "y", "default", 8), answered(7, "default", 8));
    EXPECT_EQ(ask("missing", "A", "y", "default", 3), answered(2, "de", 3));
    const Profile empty("");
    EXPECT_EQ(empty.ask("A", "y", "default", 3), answered(2, "de", 3));
}

// ---- The default

TEST(ProfileDefault, LosesSpacesAtItsEnd)
{
    const Profile profile("[A]\nx=value\n");
    const std::pair<Text, std::string> rows[] = {
        {none, ""},           {"", ""},         {"abc   ", "abc"},  {"   ", " "},       {" ", " "},
        {"  ", " "},          {"a", "a"},       {"a ", "a"},        {"abc\t", "abc\t"}, {"abc\t ", "abc\t"},
        {"abc \t", "abc \t"}, {" abc", " abc"}, {"abc\n", "abc\n"},
    };
    for (const auto& [given, kept] : rows)
    {
        EXPECT_EQ(profile.ask("A", "y", given), answered(static_cast<int>(kept.size()), kept));
        EXPECT_EQ(ask("missing", "A", "y", given), answered(static_cast<int>(kept.size()), kept));
    }
}

TEST(ProfileDefault, LosesItsQuotesOnlyWhereAFileWasRead)
{
    const std::string quoted = "\"quoted\"";
    const Profile profile("[A]\nx=value\n");
    EXPECT_EQ(profile.ask("A", "y", quoted), answered(8, "quoted"));
    EXPECT_EQ(profile.ask("B", "y", quoted), answered(8, "quoted"));
    EXPECT_EQ(profile.ask("B", none, quoted), answered(8, "quoted"));
    EXPECT_EQ(ask("missing", "A", "y", quoted), answered(8, quoted));
    EXPECT_EQ(Profile("").ask("A", "y", quoted), answered(8, quoted));
}

TEST(ProfileDefault, IsNotWrittenTo)
{
    const Profile profile("[A]\nx=value\n");
    std::string path = profile.path();
    std::string section = "  A  ";
    std::string key = " y ";
    std::string given = "abc   ";
    std::array<char, 16> buffer{};
    EXPECT_EQ(read_profile_string(section.data(), key.data(), given.data(), buffer.data(), 16, path.data()), 3);
    EXPECT_EQ(section, "  A  ");
    EXPECT_EQ(key, " y ");
    EXPECT_EQ(given, "abc   ");
}

TEST(ProfileDefault, IsEmptyWhenItStandsInTheBuffer)
{
    const Profile profile("[A]\nx=value\n");
    std::string path = profile.path();
    std::string buffer = "default";
    buffer.resize(16);
    EXPECT_EQ(read_profile_string("A"s.data(), "y"s.data(), buffer.data(), buffer.data(), 16, path.data()), 0);
    EXPECT_EQ(buffer, std::string(16, '\0'));
}

// ---- Files that cannot be read

TEST(ProfileFiles, CountAsMissingUnlessTheyCanBeReadAndWritten)
{
    const Profile profile("[A]\nx=value\n");
    EXPECT_EQ(ask(none, "A", "x", "default"), byDefault);
    EXPECT_EQ(ask(none, none, none, "default"), answered(0, ""));
    EXPECT_EQ(ask("missing", "A", "x", "default"), byDefault);
    EXPECT_EQ(ask("missing", "A", none, "default"), byDefault);
    EXPECT_EQ(ask("missing", none, none, "default"), answered(0, ""));
    EXPECT_EQ(ask("missing", none, "x", "default"), answered(0, ""));
    EXPECT_EQ(ask("", "A", "x", "default"), byDefault);
    EXPECT_EQ(ask(profile.folder().path().string(), "A", "x", "default"), byDefault);
    EXPECT_EQ(ask(profile.folder().path().string(), none, none, "default"), answered(0, ""));
    EXPECT_EQ(ask(profile.path() + "/x", "A", "x", "default"), byDefault);
}

TEST(ProfileFiles, CountAsMissingWhenTheyAreReadOnly)
{
    const Profile profile("[A]\nx=value\n");
    ASSERT_EQ(chmod(profile.folder().path().c_str(), 0755), 0);
    const auto asOrdinaryUser = [&](const ProfileAnswer& expected)
    {
        return statusInChild(
            [&]
            {
                if (geteuid() == 0)
                {
                    constexpr uid_t nobody = 65534;
                    ASSERT_EQ(setegid(nobody), 0);
                    ASSERT_EQ(seteuid(nobody), 0);
                }
                // By its name alone: folders above may be closed to that user.
                EXPECT_EQ(ask("file.ini", "A", "x", "default"), expected);
            });
    };
    ASSERT_EQ(chmod(profile.path().c_str(), 0444), 0);
    EXPECT_EQ(asOrdinaryUser(byDefault), 0);
    ASSERT_EQ(chmod(profile.path().c_str(), 0666), 0);
    EXPECT_EQ(asOrdinaryUser(answered(5, "value")), 0);
    ASSERT_EQ(chmod(profile.path().c_str(), 0222), 0);
    EXPECT_EQ(asOrdinaryUser(byDefault), 0);
}

TEST(ProfileFiles, AnswerTheDefaultWhenTheyAreEmpty)
{
    const Profile profile("");
    EXPECT_EQ(profile.ask("A", "x"), byDefault);
    EXPECT_EQ(profile.ask("A", none), byDefault);
    EXPECT_EQ(profile.ask(none, none), byDefault);
    EXPECT_EQ(profile.ask(none, "x"), byDefault);
    EXPECT_EQ(profile.ask(none, none, none), answered(0, ""));
}

TEST(ProfileFiles, CountAsEmptyWhenTheirLengthIsAllOnesIn32Bits)
{
    const Profile profile("[A]\nx=value\n");
    ASSERT_EQ(truncate(profile.path().c_str(), 0xFFFFFFFF), 0);
    EXPECT_EQ(profile.ask("A", "x", "\"default\""), answered(9, "\"default\""));
    EXPECT_EQ(profile.ask(none, none, "default"), byDefault);
}

TEST(ProfileFiles, AnswerNothingWithoutALength)
{
    const ScratchFolder folder;
    ASSERT_EQ(mkfifo("pipe", 0600), 0);
    EXPECT_EQ(ask("pipe", "A", "x", "default"), answered(0, ""));
    EXPECT_EQ(ask("pipe", none, none, "default"), answered(0, ""));
}

TEST(ProfileFiles, AnswerNothingWithoutMemory)
{
    const Profile profile("[A]\nx=value\n");
    const PretendedLength length(off_t{1} << 62);
    EXPECT_EQ(profile.ask("A", "x"), answered(0, ""));
    EXPECT_EQ(profile.ask(none, none), answered(0, ""));
}

TEST(ProfileFiles, AnswerNothingWhenNothingCanBeRead)
{
    const Profile profile("");
    const PretendedLength length(5);
    EXPECT_EQ(profile.ask("A", "x"), answered(0, ""));
    EXPECT_EQ(profile.ask(none, none), answered(0, ""));
}

TEST(ProfileFiles, AreReadAsFarAsTheyGo)
{
    const Profile profile("[A]\nx=value");
    const PretendedLength length(1000);
    EXPECT_EQ(profile.ask("A", "x"), answered(5, "value"));
}

TEST(ProfileFiles, StayAsTheyAreAndAreClosed)
{
    const Profile profile("[A]\nx=value\n");
    const auto nextDescriptor = []
    {
        const int descriptor = open("/dev/null", O_RDONLY | O_CLOEXEC);
        close(descriptor);
        return descriptor;
    };
    const int before = nextDescriptor();
    EXPECT_EQ(profile.ask("A", "x"), answered(5, "value"));
    EXPECT_EQ(profile.ask("A", "y"), byDefault);
    EXPECT_EQ(nextDescriptor(), before);
    EXPECT_EQ(profile.folder().read("file.ini"), "[A]\nx=value\n");
}

TEST(ProfileFiles, EndAtTheirFirstNul)
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

// ---- Lines

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

// ---- All at once

TEST(ProfileReader, AgreesWithItsModel)
{
    std::mt19937 random(20240714);
    const auto upTo = [&](std::size_t most) { return std::uniform_int_distribution<std::size_t>(0, most)(random); };
    const char* const pieces[] = {"[A]",     "[B]",  "[ A ]", "[]", "A",     "B",       "=",    "x",
                                  "y",       " ",    "\t",    "\n", "\n",    "\n",      "\r",   "\r\n",
                                  "\"",      "\"\"", "[",     "]",  "value", ";",       "x=1",  "y=2",
                                  "x=\"3\"", "\v",   "A]",    "[A", "\f",    "\n[A]\n", "\nx=", "\nlonger name="};
    const Text names[] = {none, "", " ", "A", " A ", "B", "x", "y", "longer name", "[A", ";x", "A]"};
    const Text defaults[] = {none, "", " ", "default", "d  ", "\"quoted\"", "\"\""};
    // In memory: a file on disk written this often keeps the disk busy.
    const int file = memfd_create("profile", MFD_CLOEXEC);
    const std::string path = "/proc/self/fd/" + std::to_string(file);
    for (int round = 0; round < 20000; ++round)
    {
        std::string content;
        for (std::size_t count = upTo(25); count != 0; --count)
        {
            content += pieces[upTo(std::size(pieces) - 1)];
        }
        if (upTo(9) == 0)
        {
            content.insert(upTo(content.size()), 1, '\0');
        }
        ASSERT_EQ(ftruncate(file, 0), 0);
        ASSERT_EQ(pwrite(file, content.data(), content.size(), 0), static_cast<ssize_t>(content.size()));
        const Text section = names[upTo(std::size(names) - 1)];
        const Text key = names[upTo(std::size(names) - 1)];
        const Text given = defaults[upTo(std::size(defaults) - 1)];
        const std::size_t size = 2 + upTo(40);
        ASSERT_EQ(ask(path, section, key, given, size), ProfileModel(content, size).ask(section, key, given))
            << testing::PrintToString(content) << testing::PrintToString(section) << testing::PrintToString(key);
    }
    close(file);
}

TEST(ProfileReader, AgreesWithItsModelOnMissingFiles)
{
    const ScratchFolder folder;
    for (const Text& section : {Text(), Text("A")})
    {
        for (const Text& given : {Text(), Text("default  "), Text("\"q\"")})
        {
            EXPECT_EQ(ask("missing", section, none, given, 5), ProfileModel(none, 5).ask(section, none, given));
        }
    }
}

// Files of this size take fractions of a second with one pass, and minutes with one search of the rest a line.
TEST(ProfileReader, TakesTimeInProportionToTheFile)
{
    for (const char* const lineEnd : {"\n", "\r", "\r\n"})
    {
        std::string content = "[A]"s + lineEnd;
        constexpr int keys = 200000;
        for (int number = 0; number < keys; ++number)
        {
            content += "key" + std::to_string(number) + "=" + std::to_string(number) + lineEnd;
        }
        const Profile profile(content);
        const auto start = std::chrono::steady_clock::now();
        EXPECT_EQ(profile.ask("A", "key199999"), answered(6, "199999"));
        EXPECT_EQ(profile.ask("A", "no key"), byDefault);
        EXPECT_EQ(profile.ask("A", none, none, content.size()).buffer.substr(0, 10), "key0\tkey1\t");
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
    }
}

} // namespace
