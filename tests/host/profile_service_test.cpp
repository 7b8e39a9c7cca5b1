#include "kest/host/profile_service.h"

#include "full_disk.h"
#include "harness/in_child.h"
#include "harness/ordinary_user.h"
#include "harness/scoped_locale.h"
#include "harness/scratch_folder.h"
#include "harness/sentinel_buffer.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>
#include <thread>
#include <vector>

namespace
{

using kest::test::ScopedLocale;
using kest::test::ScratchFolder;
using kest::test::SentinelBuffer;
using namespace std::string_literals;

class Profiles : public testing::Test
{
protected:
    Profiles()
    {
        setenv("XDG_CONFIG_HOME", (folder_.path() / "config").c_str(), 1);
        file_ = folder_.path().wstring() + L"/settings.ini";
    }

    void content(std::string_view text) { folder_.write("settings.ini", text); }
    std::string content() const { return folder_.read("settings.ini"); }

    std::wstring read(const wchar_t* section, const wchar_t* key, const wchar_t* missing = L"missing")
    {
        wchar_t buffer[200];
        const DWORD count = service_.GetPrivateProfileStringW(section, key, missing, buffer, 200, file_.c_str());
        return {buffer, count};
    }

    BOOL write(const wchar_t* section, const wchar_t* key, const wchar_t* value)
    {
        return service_.WritePrivateProfileStringW(section, key, value, file_.c_str());
    }

    // What stands in the scratch folder.
    std::vector<std::string> files() const
    {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder_.path()))
        {
            names.push_back(entry.path().filename());
        }
        return names;
    }

    ScratchFolder folder_;
    ScopedLocale locale_{"C.UTF-8"};
    std::wstring file_;
    kest::host::ProfileService service_;
};

TEST_F(Profiles, ReadWithoutCaseAndTheFirstOfSeveral)
{
    content("; comment=1\r\n[First]\r\nKey = one \r\nKEY=two\r\nquoted=\" spaced \"\r\nsingle='x'\r\nopen=\"y\r\n"
            "[ Second ]\nkey=three\nempty=\nequal=a=b\n[first]\nlater=4");
    EXPECT_EQ(read(L"FIRST", L"key"), L"one");
    EXPECT_EQ(read(L"First", L"quoted"), L" spaced ");
    EXPECT_EQ(read(L"First", L"single"), L"x");
    EXPECT_EQ(read(L"First", L"open"), L"\"y");
    EXPECT_EQ(read(L"second", L"KEY"), L"three");
    EXPECT_EQ(read(L"second", L"empty"), L"");
    EXPECT_EQ(read(L"second", L"equal"), L"a=b");
    EXPECT_EQ(read(L"first", L"later"), L"missing");
    EXPECT_EQ(read(L"first", L"; comment"), L"missing");
    EXPECT_EQ(read(L"none", L"key", L"default  "), L"default");
    EXPECT_EQ(read(L"none", L"key", nullptr), L"");
    file_ += L".none";
    EXPECT_EQ(read(L"first", L"key"), L"missing");
}

TEST_F(Profiles, ListKeysAndSections)
{
    content("[A]\r\nx=1\r\nno key\r\n;c=1\r\ny=2\r\n[B]\r\n");
    EXPECT_EQ(read(L"A", nullptr), L"x\0y\0"s);
    EXPECT_EQ(read(nullptr, nullptr), L"A\0B\0"s);
    EXPECT_EQ(read(L"B", nullptr), L"");
    SentinelBuffer<wchar_t, 40> buffer;
    EXPECT_EQ(service_.GetPrivateProfileSectionW(L"a", buffer.data(), 40, file_.c_str()), 15U);
    EXPECT_EQ(buffer.contents(), buffer.startingWith(L"x=1\0no key\0y=2\0\0"s));
}

TEST_F(Profiles, CutWhatDoesNotFit)
{
    content("[A]\nx=abcdef\nyy=2\n");
    SentinelBuffer<wchar_t, 12> text;
    EXPECT_EQ(service_.GetPrivateProfileStringW(L"A", L"x", L"", text.data(), 4, file_.c_str()), 3U);
    EXPECT_EQ(text.contents(), text.startingWith(L"abc\0"s));
    SentinelBuffer<wchar_t, 12> list;
    EXPECT_EQ(service_.GetPrivateProfileStringW(L"A", nullptr, L"", list.data(), 5, file_.c_str()), 3U);
    EXPECT_EQ(list.contents(), list.startingWith(L"x\0y\0\0"s));
    SentinelBuffer<wchar_t, 12> exact;
    EXPECT_EQ(service_.GetPrivateProfileStringW(L"A", nullptr, L"", exact.data(), 6, file_.c_str()), 5U);
    EXPECT_EQ(exact.contents(), exact.startingWith(L"x\0yy\0\0"s));
    SentinelBuffer<wchar_t, 12> none;
    EXPECT_EQ(service_.GetPrivateProfileStringW(L"A", L"x", L"", none.data(), 0, file_.c_str()), 0U);
    EXPECT_EQ(none.contents(), none.untouched());
}

TEST_F(Profiles, ReadNumbers)
{
    content("[n]\nplain=42\nnegative=-3\nhex=0x1F\noctal=0o17\nbinary=0b101\ntail=7 apples\nword=apples\nempty=\n");
    const auto number = [this](const wchar_t* key)
    { return service_.GetPrivateProfileIntW(L"n", key, -9, file_.c_str()); };
    EXPECT_EQ(number(L"plain"), 42U);
    EXPECT_EQ(number(L"negative"), static_cast<UINT>(-3));
    EXPECT_EQ(number(L"hex"), 31U);
    EXPECT_EQ(number(L"octal"), 15U);
    EXPECT_EQ(number(L"binary"), 5U);
    EXPECT_EQ(number(L"tail"), 7U);
    EXPECT_EQ(number(L"word"), 0U);
    EXPECT_EQ(number(L"empty"), 0U);
    EXPECT_EQ(number(L"none"), static_cast<UINT>(-9));
    EXPECT_EQ(service_.GetPrivateProfileIntA("n", "plain", -9, (folder_.path() / "settings.ini").c_str()), 42U);
}

TEST_F(Profiles, KeepEverythingElseByteForByte)
{
    const std::string before = "\r\n; head\r\nlost line\r\n[A]\r\n  x  =  1\t\r\n; c\xFF\r\n\r\n[B]\r\ny=2\r\n";
    content(before);
    EXPECT_EQ(write(L"a", L"X", L"new"), 1);
    EXPECT_EQ(content(), "\r\n; head\r\nlost line\r\n[A]\r\nx=new\r\n; c\xFF\r\n\r\n[B]\r\ny=2\r\n");
    EXPECT_EQ(write(L"A", L"z", L"3"), 1);
    EXPECT_EQ(content(), "\r\n; head\r\nlost line\r\n[A]\r\nx=new\r\n; c\xFF\r\nz=3\r\n\r\n[B]\r\ny=2\r\n");
    EXPECT_EQ(write(L"A", L"x", nullptr), 1);
    EXPECT_EQ(write(L"A", L"z", nullptr), 1);
    EXPECT_EQ(content(), "\r\n; head\r\nlost line\r\n[A]\r\n; c\xFF\r\n\r\n[B]\r\ny=2\r\n");
    EXPECT_EQ(write(L"A", nullptr, nullptr), 1);
    EXPECT_EQ(content(), "\r\n; head\r\nlost line\r\n[B]\r\ny=2\r\n");
    EXPECT_EQ(write(L"none", L"none", nullptr), 1);
    EXPECT_EQ(write(L"none", nullptr, nullptr), 1);
    EXPECT_EQ(content(), "\r\n; head\r\nlost line\r\n[B]\r\ny=2\r\n");
}

TEST_F(Profiles, AddSectionsAtTheEndWithTheFilesOwnLineEnds)
{
    content("[A]\nx=1");
    EXPECT_EQ(write(L"B", L"y", L"2"), 1);
    EXPECT_EQ(content(), "[A]\nx=1\n[B]\ny=2\n");
    EXPECT_EQ(read(L"B", L"y"), L"2");
}

TEST_F(Profiles, KeepTheEncodingOfAFile)
{
    const std::string mark = "\xEF\xBB\xBF";
    content(mark + "[A]\nx=\xC3\xA9\n");
    EXPECT_EQ(read(L"A", L"x"), L"é");
    EXPECT_EQ(write(L"A", L"x", L"ü"), 1);
    EXPECT_EQ(content(), mark + "[A]\nx=\xC3\xBC\n");

    const auto utf16 = [](const std::u16string& text)
    {
        std::string bytes = "\xFF\xFE";
        for (const char16_t unit : text)
        {
            bytes += static_cast<char>(unit & 0xFF);
            bytes += static_cast<char>(unit >> 8);
        }
        return bytes;
    };
    content(utf16(u"[A]\r\nключ=😀\r\nlow=\r\n"));
    EXPECT_EQ(read(L"A", L"КЛЮЧ"), L"😀");
    EXPECT_EQ(write(L"A", L"low", L"𝄞!"), 1);
    EXPECT_EQ(content(), utf16(u"[A]\r\nключ=😀\r\nlow=𝄞!\r\n"));
}

TEST_F(Profiles, ServeNarrowCallers)
{
    const std::string file = (folder_.path() / "settings.ini").string();
    EXPECT_EQ(service_.WritePrivateProfileStringA("S", "größe", "\xC3\xA4", file.c_str()), 1);
    EXPECT_EQ(content(), "[S]\r\ngröße=\xC3\xA4\r\n");
    SentinelBuffer<char, 20> value;
    EXPECT_EQ(service_.GetPrivateProfileStringA("s", "GRÖßE", "", value.data(), 20, file.c_str()), 2U);
    EXPECT_EQ(value.contents(), value.startingWith("\xC3\xA4\0"s));
    SentinelBuffer<char, 20> keys;
    EXPECT_EQ(service_.GetPrivateProfileStringA("s", nullptr, "", keys.data(), 20, file.c_str()), 8U);
    EXPECT_EQ(keys.contents(), keys.startingWith("größe\0\0"s));
}

TEST_F(Profiles, FindFilesWithoutCaseAndWithBackslashes)
{
    folder_.write("Data/Settings.INI", "[A]\nx=1\n");
    file_ = L"data\\settings.ini";
    EXPECT_EQ(read(L"A", L"x"), L"1");
    EXPECT_EQ(write(L"A", L"x", L"2"), 1);
    EXPECT_EQ(folder_.read("Data/Settings.INI"), "[A]\nx=2\n");
    EXPECT_FALSE(std::filesystem::exists("data"));
}

TEST_F(Profiles, PutBareNamesIntoTheUsersSettings)
{
    file_ = L"bare.ini";
    EXPECT_EQ(write(L"A", L"x", L"1"), 1);
    EXPECT_EQ(folder_.read("config/kest/bare.ini"), "[A]\r\nx=1\r\n");
    EXPECT_EQ(read(L"A", L"x"), L"1");
}

TEST_F(Profiles, KeepTheModeOfAFileAndTheLinkToIt)
{
    content("[A]\nx=1\n");
    std::filesystem::permissions("settings.ini", std::filesystem::perms(0640));
    std::filesystem::create_symlink("settings.ini", "link.ini");
    file_ = folder_.path().wstring() + L"/link.ini";
    EXPECT_EQ(write(L"A", L"x", L"2"), 1);
    EXPECT_TRUE(std::filesystem::is_symlink("link.ini"));
    EXPECT_EQ(content(), "[A]\nx=2\n");
    struct stat status = {};
    ASSERT_EQ(stat("settings.ini", &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0640U);
}

TEST_F(Profiles, RefuseWhatCannotBeWritten)
{
    EXPECT_EQ(write(nullptr, L"x", L"1"), 0);
    EXPECT_EQ(errno, 87);
    EXPECT_EQ(service_.WritePrivateProfileStringW(L"A", L"x", L"1", nullptr), 0);
    EXPECT_EQ(errno, 87);
    file_ = folder_.path().wstring() + L"/none/settings.ini";
    EXPECT_EQ(write(L"A", L"x", L"1"), 0);
    EXPECT_EQ(errno, 3);
    std::filesystem::create_directory("folder.ini");
    file_ = folder_.path().wstring() + L"/folder.ini";
    EXPECT_EQ(write(L"A", L"x", L"1"), 0);
    EXPECT_EQ(errno, 5);
}

// Devices would be read without end and pipes wait for a writer; a replaced device would be no device any more.
TEST_F(Profiles, LeaveDevicesAndPipesAlone)
{
    ASSERT_EQ(mkfifo("pipe.ini", 0600), 0);
    std::filesystem::create_symlink("/dev/zero", "zero.ini");
    for (const wchar_t* const name : {L"/pipe.ini", L"/zero.ini"})
    {
        file_ = folder_.path().wstring() + name;
        EXPECT_EQ(read(L"A", L"x"), L"missing");
        EXPECT_EQ(write(L"A", L"x", L"1"), 0);
        EXPECT_EQ(errno, 5);
    }
    EXPECT_TRUE(std::filesystem::is_fifo("pipe.ini"));
}

TEST_F(Profiles, AnswerForAFullDiskAndLoseNothing)
{
    const std::string before = "[A]\nx=1\n";
    content(before);
    {
        const kest::test::FullDisk full;
        EXPECT_EQ(write(L"A", L"x", L"2"), 0);
        EXPECT_EQ(errno, 112);
        EXPECT_EQ(read(L"A", L"x"), L"1");
    }
    EXPECT_EQ(content(), before);
    EXPECT_EQ(files(), std::vector<std::string>{"settings.ini"});
    EXPECT_EQ(write(L"A", L"x", L"2"), 1);
    EXPECT_EQ(content(), "[A]\nx=2\n");
}

TEST_F(Profiles, AnswerForReadOnlyFoldersAndFiles)
{
    namespace fs = std::filesystem;
    fs::permissions(folder_.path(), fs::perms(0755));
    folder_.write("closed/settings.ini", "[A]\nx=1\n");
    folder_.write("open/settings.ini", "[A]\nx=1\n");
    fs::permissions("closed/settings.ini", fs::perms(0666));
    fs::permissions("open/settings.ini", fs::perms(0444));
    fs::permissions("closed", fs::perms(0555));
    fs::permissions("open", fs::perms(0777));
    EXPECT_EQ(kest::test::statusOfOrdinaryUser(
                  [this]
                  {
                      for (const wchar_t* const name : {L"/closed/settings.ini", L"/open/settings.ini"})
                      {
                          file_ = folder_.path().wstring() + name;
                          EXPECT_EQ(write(L"A", L"x", L"2"), 0) << name;
                          EXPECT_EQ(errno, 5) << name;
                          EXPECT_EQ(read(L"A", L"x"), L"1") << name;
                      }
                  }),
              0);
    EXPECT_EQ(folder_.read("closed/settings.ini"), "[A]\nx=1\n");
    EXPECT_EQ(folder_.read("open/settings.ini"), "[A]\nx=1\n");
    fs::permissions("closed", fs::perms(0755));
}

TEST_F(Profiles, LoseNoWriteOfEightProcesses)
{
    constexpr int processes = 8;
    constexpr int writes = 15;
    content("; shared\n");
    const auto sectionOf = [](int number) { return L"section " + std::to_wstring(number % 3); };
    const auto keyOf = [](int process, int number)
    { return std::to_wstring(process) + L" " + std::to_wstring(number); };
    EXPECT_EQ(kest::test::failuresInChildren(processes,
                                             [&](int process)
                                             {
                                                 for (int number = 0; number < writes; ++number)
                                                 {
                                                     const std::wstring key = keyOf(process, number);
                                                     ASSERT_EQ(
                                                         write(sectionOf(number).c_str(), key.c_str(), key.c_str()), 1);
                                                 }
                                             }),
              0);
    for (int process = 0; process < processes; ++process)
    {
        for (int number = 0; number < writes; ++number)
        {
            const std::wstring key = keyOf(process, number);
            EXPECT_EQ(read(sectionOf(number).c_str(), key.c_str()), key);
        }
    }
    EXPECT_EQ(content().substr(0, 9), "; shared\n");
}

TEST_F(Profiles, TakeWritesOfSeveralThreads)
{
    std::vector<std::thread> threads;
    for (int number = 0; number < 4; ++number)
    {
        threads.emplace_back(
            [this, number]
            {
                for (int round = 0; round < 10; ++round)
                {
                    const std::wstring key = std::to_wstring(number) + L" " + std::to_wstring(round);
                    EXPECT_EQ(write(L"threads", key.c_str(), L"x"), 1);
                }
            });
    }
    for (std::thread& thread : threads)
    {
        thread.join();
    }
    std::wstring keys(2000, L'\0');
    keys.resize(service_.GetPrivateProfileStringW(L"threads", nullptr, L"", keys.data(), 2000, file_.c_str()));
    EXPECT_EQ(std::count(keys.begin(), keys.end(), L'\0'), 40);
}

// A writer is killed at some moment, three hundred times: the file is always whole, old or new.
TEST_F(Profiles, LoseNothingWhenAWriterIsKilled)
{
    const std::wstring longValue(2000, L'v');
    ASSERT_EQ(write(L"A", L"x", longValue.c_str()), 1);
    ASSERT_EQ(write(L"A", L"kept", L"always"), 1);
    for (int round = 0; round < 300; ++round)
    {
        kest::test::killedInChild(
            [this]
            {
                for (wchar_t letter = L'a';; letter = letter == L'z' ? L'a' : static_cast<wchar_t>(letter + 1))
                {
                    write(L"A", L"x", std::wstring(2000, letter).c_str());
                }
            },
            std::chrono::microseconds(round * 37 % 4000));
        std::wstring value(3000, L'\0');
        value.resize(service_.GetPrivateProfileStringW(L"A", L"x", L"", value.data(), 3000, file_.c_str()));
        ASSERT_EQ(value, std::wstring(2000, value.at(0))) << round;
        ASSERT_EQ(read(L"A", L"kept"), L"always");
    }
    // The next writer clears away what a killed one left.
    ASSERT_EQ(write(L"A", L"x", L"end"), 1);
    EXPECT_EQ(files(), std::vector<std::string>{"settings.ini"});
}

} // namespace
