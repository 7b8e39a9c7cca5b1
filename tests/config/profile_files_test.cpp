// Sizes, the default, and files that cannot be read.
#include "config/profile_asking.h"
#include "harness/in_child.h"
#include "harness/open_descriptors.h"

#include <array>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <optional>
#include <set>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

using kest::test::answered;
using kest::test::askProfile;
using kest::test::byDefault;
using kest::test::LeftOpen;
using kest::test::none;
using kest::test::Profile;
using kest::test::ProfileAnswer;
using kest::test::ScratchFolder;
using kest::test::statusInChild;
using kest::test::Text;
using namespace std::string_literals;

namespace
{

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

TEST(ProfileSizes, OfOneByteNeedABuffer)
{
    const Profile profile("[A]\nx=value\n");
    std::string path = profile.path();
    EXPECT_DEATH(read_profile_string("A"s.data(), "x"s.data(), "d"s.data(), nullptr, 1, path.data()), "");
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
    EXPECT_EQ(askProfile("missing", "A", "y", "default", 3), answered(2, "de", 3));
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
        EXPECT_EQ(askProfile("missing", "A", "y", given), answered(static_cast<int>(kept.size()), kept));
    }
}

TEST(ProfileDefault, LosesItsQuotesOnlyWhereAFileWasRead)
{
    const std::string quoted = "\"quoted\"";
    const Profile profile("[A]\nx=value\n");
    EXPECT_EQ(profile.ask("A", "y", quoted), answered(8, "quoted"));
    EXPECT_EQ(profile.ask("B", "y", quoted), answered(8, "quoted"));
    EXPECT_EQ(profile.ask("B", none, quoted), answered(8, "quoted"));
    EXPECT_EQ(askProfile("missing", "A", "y", quoted), answered(8, quoted));
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
    EXPECT_EQ(askProfile(none, "A", "x", "default"), byDefault);
    EXPECT_EQ(askProfile(none, none, none, "default"), answered(0, ""));
    EXPECT_EQ(askProfile("missing", "A", "x", "default"), byDefault);
    EXPECT_EQ(askProfile("missing", "A", none, "default"), byDefault);
    EXPECT_EQ(askProfile("missing", none, none, "default"), answered(0, ""));
    EXPECT_EQ(askProfile("missing", none, "x", "default"), answered(0, ""));
    EXPECT_EQ(askProfile("", "A", "x", "default"), byDefault);
    EXPECT_EQ(askProfile(profile.folder().path().string(), "A", "x", "default"), byDefault);
    EXPECT_EQ(askProfile(profile.folder().path().string(), none, none, "default"), answered(0, ""));
    EXPECT_EQ(askProfile(profile.path() + "/x", "A", "x", "default"), byDefault);
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
                EXPECT_EQ(askProfile("file.ini", "A", "x", "default"), expected);
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
    EXPECT_EQ(askProfile("pipe", "A", "x", "default"), answered(0, ""));
    EXPECT_EQ(askProfile("pipe", none, none, "default"), answered(0, ""));
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

TEST(ProfileFiles, StayAsTheyAre)
{
    const Profile profile("[A]\nx=value\n");
    EXPECT_EQ(profile.ask("A", "x"), answered(5, "value"));
    EXPECT_EQ(profile.ask("A", "y"), byDefault);
    EXPECT_EQ(profile.folder().read("file.ini"), "[A]\nx=value\n");
}

TEST(ProfileFiles, AreClosedWhateverTheyAnswer)
{
    const Profile profile("[A]\nx=value\n");
    const std::string empty = profile.folder().write("empty", "");
    ASSERT_EQ(mkfifo("pipe", 0600), 0);
    const auto expectClosed = [](const std::string& path, std::optional<off_t> length, const ProfileAnswer& expected)
    {
        SCOPED_TRACE(path);
        const LeftOpen left;
        pretendedLength = length;
        const ProfileAnswer answer = askProfile(path, "A", "x", "default");
        pretendedLength.reset();
        EXPECT_EQ(answer, expected);
        EXPECT_EQ(left.descriptors(), std::set<int>());
    };
    expectClosed(profile.path(), std::nullopt, answered(5, "value"));
    expectClosed(empty, std::nullopt, byDefault);
    expectClosed(profile.path(), 0xFFFFFFFF, byDefault);
    expectClosed("pipe", std::nullopt, answered(0, ""));
    expectClosed(profile.path(), off_t{1} << 62, answered(0, ""));
    expectClosed(empty, 5, answered(0, ""));
}

} // namespace
