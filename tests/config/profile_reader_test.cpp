// The reader as a whole: against a model of it, and on large files.
#include "config/process_end.h"
#include "config/profile_asking.h"

#include <gtest/gtest.h>
#include <iterator>
#include <random>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

using kest::test::answered;
using kest::test::askProfile;
using kest::test::byDefault;
using kest::test::endsProcess;
using kest::test::none;
using kest::test::processEnd;
using kest::test::Profile;
using kest::test::ProfileAnswer;
using kest::test::ProfileModel;
using kest::test::ScratchFolder;
using kest::test::Text;
using kest::test::writable;
using namespace std::string_literals;

namespace
{

// askProfile, but a process end is an answer too.
ProfileAnswer askProfileOrEnd(std::string path, Text section, Text key, Text defaultValue, std::size_t size)
{
    ProfileAnswer answer = {0, std::string(size, '\x5A')};
    const bool ended = endsProcess(
        [&]
        {
            answer.count = read_profile_string(writable(section), writable(key), writable(defaultValue),
                                               answer.buffer.data(), static_cast<int>(size), path.data());
        });
    return ended ? processEnd : answer;
}

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
    int ends = 0;
    for (int round = 0; round < 20000; ++round)
    {
        std::string content;
        for (std::size_t count = upTo(25); count != 0; --count)
        {
            content += pieces[upTo(std::size(pieces) - 1)];
            // As long as the longest name, more or less.
            if (upTo(39) == 0)
            {
                content.append(1020 + upTo(10), "x  ["[upTo(3)]);
            }
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
        const ProfileAnswer expected = ProfileModel(content, size).ask(section, key, given);
        ASSERT_EQ(askProfileOrEnd(path, section, key, given, size), expected)
            << testing::PrintToString(content) << testing::PrintToString(section) << testing::PrintToString(key);
        ends += expected.endsProcess ? 1 : 0;
    }
    EXPECT_GE(ends, 100);
    close(file);
}

TEST(ProfileReader, AgreesWithItsModelOnMissingFiles)
{
    const ScratchFolder folder;
    for (const Text& section : {Text(), Text("A")})
    {
        for (const Text& given : {Text(), Text("default  "), Text("\"q\"")})
        {
            EXPECT_EQ(askProfile("missing", section, none, given, 5), ProfileModel(none, 5).ask(section, none, given));
        }
    }
}

// The search takes many places at once: names are found wherever they stand, also where others with the same first and
// last characters stand before and behind them.
TEST(ProfileReader, FindsNamesAtEveryPlace)
{
    for (const std::size_t length : {1U, 2U, 3U, 4U, 16U, 17U, 65U, 150U})
    {
        const std::string name = "k" + std::string(length - 1, 'y');
        std::string other = name;
        other[length / 2] = '-';
        for (std::size_t place = 0; place < 140; ++place)
        {
            const std::string before = "[A]\n" + std::string(place, ';') + "\n";
            const std::string behind = "\n" + std::string(200, ';') + other + "=other";
            std::string content = before;
            content.append(other)
                .append("=1\n")
                .append(name)
                .append("=found\n")
                .append(other)
                .append("=2")
                .append(behind);
            ASSERT_EQ(Profile(content).ask("A", name), answered(5, "found")) << length << " at " << place;
            ASSERT_EQ(Profile(before + other + "=1\n" + other + "=2" + behind).ask("A", name), byDefault)
                << length << " at " << place;
        }
    }
}

TEST(ProfileReader, ReadsLargeFiles)
{
    for (const char* const lineEnd : {"\n", "\r", "\r\n"})
    {
        std::string content = "[A]"s + lineEnd;
        for (int number = 0; number < 50000; ++number)
        {
            content += "key" + std::to_string(number) + "=" + std::to_string(number) + lineEnd;
        }
        const Profile profile(content);
        EXPECT_EQ(profile.ask("A", "key49999"), answered(5, "49999"));
        EXPECT_EQ(profile.ask("A", "no key"), byDefault);
        EXPECT_EQ(profile.ask("A", none, none, content.size()).buffer.substr(0, 10), "key0\tkey1\t");
    }
}

// One pass takes about a second. With one look for LF through the rest of the file a line it takes longer than a
// test may.
TEST(ProfileReader, LooksForLineFeedsOnce)
{
    constexpr int lines = 2000000;
    std::string content = "[A]\r";
    for (int number = 0; number < lines; ++number)
    {
        content += "a line=\r";
    }
    EXPECT_EQ(Profile(content + "key=value").ask("A", "key"), answered(5, "value"));
}

} // namespace
