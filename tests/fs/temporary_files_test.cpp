#include "harness/locale_requests.h"
#include "harness/open_descriptors.h"
#include "harness/ordinary_user.h"
#include "harness/scoped_locale.h"
#include "harness/scratch_folder.h"
#include "harness/sentinel_buffer.h"
#include "harness/stub_services.h"
#include "kest/kernel/directories.h"

#include <array>
#include <cerrno>
#include <clocale>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

namespace fs = std::filesystem;

using kest::test::InstalledHub;
using kest::test::LeftOpen;
using kest::test::LocaleRequests;
using kest::test::openDescriptorCount;
using kest::test::ScopedLocale;
using kest::test::ScratchFolder;
using kest::test::statusOfOrdinaryUser;
using kest::test::StubFileSystemService;
using kest::test::StubHub;
using namespace std::string_literals;
using Narrow = kest::test::SentinelBuffer<char, 128>;
using Wide = kest::test::SentinelBuffer<wchar_t, 128>;

constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";

void expectNarrowName(const char* directory, const char* prefix, UINT unique, const std::string& name)
{
    Narrow buffer;
    EXPECT_EQ(GetTempFileNameA(directory, prefix, unique, buffer.data()), name.size()) << name;
    EXPECT_EQ(buffer.contents(), Narrow::startingWith(name + '\0')) << name;
}

TEST(TemporaryNames, AreMadeOfDirectoryPrefixAndNumber)
{
    const ScratchFolder folder;
    expectNarrowName("/tmp/", "ab", 42, "/tmp/ab42.tmp");
    expectNarrowName("", "", 1, "1.tmp");
    expectNarrowName("%s/", "%n", 7, "%s/%n7.tmp");
    expectNarrowName("d/", "p", 999999, "d/p999999.tmp");
    // The number is signed.
    expectNarrowName("d/", "p", 0xFFFFFFFF, "d/p-1.tmp");
    expectNarrowName("d/", "p", static_cast<UINT>(-99999), "d/p-99999.tmp");
    EXPECT_TRUE(fs::is_empty(folder.path()));
}

TEST(TemporaryNames, PrintNullAsTheFormatterDoes)
{
    expectNarrowName(nullptr, "p", 1, "(null)p1.tmp");
    expectNarrowName("d/", nullptr, 1, "d/(null)1.tmp");
}

TEST(TemporaryNames, MayBeWrittenOverTheirDirectory)
{
    Narrow buffer{"/tmp/"};
    EXPECT_EQ(GetTempFileNameA(buffer.data(), "ab", 42, buffer.data()), 13U);
    EXPECT_EQ(buffer.contents(), Narrow::startingWith("/tmp/ab42.tmp\0"s));
    Narrow prefix{"ab"};
    EXPECT_EQ(GetTempFileNameA("/tmp/", prefix.data(), 42, prefix.data()), 13U);
    EXPECT_EQ(prefix.contents(), Narrow::startingWith("/tmp/ab42.tmp\0"s));
}

TEST(TemporaryNames, HaveSixLettersAndDigitsWithoutANumber)
{
    const ScratchFolder folder;
    std::set<std::string> names;
    for (int round = 0; round < 100; ++round)
    {
        Narrow buffer;
        errno = 77;
        ASSERT_EQ(GetTempFileNameA("d/", "p", 0, buffer.data()), 13U);
        EXPECT_EQ(errno, 77);
        const std::string name = buffer.data();
        EXPECT_EQ(buffer.contents(), Narrow::startingWith(name + '\0'));
        EXPECT_EQ(name.substr(0, 3), "d/p");
        EXPECT_EQ(name.substr(3, 6).find_first_not_of(letters), std::string::npos) << name;
        EXPECT_EQ(name.substr(9), ".tmp");
        names.insert(name);
    }
    // A hundred of 57 billion names.
    EXPECT_EQ(names.size(), 100U);
    EXPECT_TRUE(fs::is_empty(folder.path()));
}

TEST(TemporaryNames, UseTheWholeAlphabet)
{
    std::set<char> seen;
    for (int round = 0; round < 1000 && seen.size() < letters.size(); ++round)
    {
        Narrow buffer;
        GetTempFileNameA("", "", 0, buffer.data());
        seen.insert(buffer.data(), buffer.data() + 6);
    }
    EXPECT_EQ(seen.size(), letters.size());
}

TEST(TemporaryNames, LackTheLettersWhereTheCurrentDirectoryCannotBeSearched)
{
    const ScratchFolder folder;
    ASSERT_EQ(chmod(folder.path().c_str(), 0777), 0);
    EXPECT_EQ(statusOfOrdinaryUser(
                  []
                  {
                      ASSERT_EQ(mkdir("closed", 0700), 0);
                      ASSERT_EQ(chdir("closed"), 0);
                      ASSERT_EQ(chmod(".", 0), 0);
                      Narrow buffer;
                      EXPECT_EQ(GetTempFileNameA("d/", "p", 0, buffer.data()), 7U);
                      EXPECT_EQ(buffer.contents(), Narrow::startingWith("d/p.tmp\0"s));
                  }),
              0);
}

TEST(GetTempFileNameA, AddsNoSeparator)
{
    expectNarrowName("/tmp", "ab", 42, "/tmpab42.tmp");
}

TEST(GetTempFileNameA, MakesNoFile)
{
    const ScratchFolder folder;
    Narrow buffer;
    GetTempFileNameA("./", "p", 0, buffer.data());
    GetTempFileNameA("./", "p", 1, buffer.data());
    EXPECT_TRUE(fs::is_empty(folder.path()));
}

TEST(GetTempFileNameA, AnswersTheLength)
{
    Narrow buffer;
    EXPECT_EQ(GetTempFileNameA("/tmp", "ab", 42, buffer.data()), 12U);
}

// The address sanitizer reports the same overflow in words of its own.
constexpr const char* overflow = "buffer overflow detected|stack-buffer-overflow";

TEST(GetTempFileNameA, TakesNumbersOfSixCharacters)
{
    expectNarrowName("d/", "p", 0x10000, "d/p65536.tmp");
    Narrow buffer;
    EXPECT_DEATH(GetTempFileNameA("d/", "p", 1000000, buffer.data()), overflow);
    EXPECT_DEATH(GetTempFileNameA("d/", "p", static_cast<UINT>(-100000), buffer.data()), overflow);
}

void expectWideName(const wchar_t* directory, const wchar_t* prefix, UINT unique, const std::wstring& name)
{
    Wide buffer;
    EXPECT_EQ(GetTempFileNameW(directory, prefix, unique, buffer.data()), name.size()) << testing::PrintToString(name);
    EXPECT_EQ(buffer.contents(), Wide::startingWith(name + L'\0'));
}

TEST(TemporaryFiles, AreMadeInTheirDirectory)
{
    const ScratchFolder folder;
    const LeftOpen leftOpen;
    fs::create_directory("d");
    expectWideName(L"d", L"ab", 7, L"d/ab7.tmp");
    expectWideName(L"d/", L"cd", 7, L"d/cd7.tmp");
    expectWideName(L"d", L"", 0xFFFFFFFF, L"d/-1.tmp");
    expectWideName(L"d", L"%ls%n", 1, L"d/%ls%n1.tmp");
    // A backslash separates nothing.
    expectWideName(L"d\\", L"p", 1, L"d\\/p1.tmp");
    for (const char* const name : {"d/ab7.tmp", "d/cd7.tmp", "d/-1.tmp", "d/%ls%n1.tmp"})
    {
        EXPECT_TRUE(fs::is_regular_file(name)) << name;
    }
    EXPECT_EQ(std::distance(fs::directory_iterator("d"), fs::directory_iterator()), 4);
}

TEST(TemporaryFiles, AreEmptyAndHaveTheirMode)
{
    const ScratchFolder folder;
    const LeftOpen leftOpen;
    folder.write("p1.tmp", "content");
    ASSERT_EQ(chmod("p1.tmp", 0600), 0);
    Wide buffer;
    const mode_t mask = umask(002);
    GetTempFileNameW(L".", L"p", 1, buffer.data());
    GetTempFileNameW(L".", L"p", 2, buffer.data());
    umask(077);
    GetTempFileNameW(L".", L"p", 3, buffer.data());
    umask(mask);
    const std::array<mode_t, 3> modes = {0600, 0644, 0600};
    for (std::size_t index = 0; index < modes.size(); ++index)
    {
        struct stat status = {};
        const std::string name = "p" + std::to_string(index + 1) + ".tmp";
        ASSERT_EQ(stat(name.c_str(), &status), 0) << name;
        EXPECT_EQ(status.st_size, 0) << name;
        EXPECT_EQ(status.st_mode & 07777U, modes.at(index)) << name;
    }
}

TEST(TemporaryFiles, HaveSixLettersAndDigitsWithoutANumber)
{
    const ScratchFolder folder;
    const LeftOpen leftOpen;
    Wide buffer;
    ASSERT_EQ(GetTempFileNameW(L".", L"p", 0, buffer.data()), 13U);
    const std::wstring name = buffer.data();
    EXPECT_EQ(buffer.contents(), Wide::startingWith(name + L'\0'));
    EXPECT_EQ(name.substr(0, 3), L"./p");
    EXPECT_EQ(name.substr(3, 6).find_first_not_of(std::wstring(letters.begin(), letters.end())), std::wstring::npos);
    EXPECT_EQ(name.substr(9), L".tmp");
    EXPECT_TRUE(fs::is_regular_file(name));
}

TEST(TemporaryFiles, HaveConvertedNames)
{
    const ScratchFolder folder;
    const LeftOpen leftOpen;
    const ScopedLocale locale("C.UTF-8");
    fs::create_directory("\xC3\xA4");
    expectWideName(L"\u00e4", L"\u4e16", 7,
                   L"\u00e4/\u4e16"
                   L"7.tmp");
    EXPECT_TRUE(fs::is_regular_file("\xC3\xA4/\xE4\xB8\x96"
                                    "7.tmp"));
}

TEST(TemporaryFiles, PrintNullAsTheFormatterDoes)
{
    const ScratchFolder folder;
    const LeftOpen leftOpen;
    expectWideName(nullptr, L"p", 1, L"(null)/p1.tmp");
    expectWideName(L".", nullptr, 1, L"./(null)1.tmp");
    EXPECT_TRUE(fs::is_regular_file("(null)1.tmp"));
}

TEST(TemporaryFiles, PutASlashBehindAnEmptyDirectory)
{
    const ScratchFolder folder;
    const LeftOpen leftOpen;
    // Its directory is missing, wherever the test runs.
    expectWideName(L"", L"kest-test-missing/p", 1, L"/kest-test-missing/p1.tmp");
}

TEST(TemporaryFiles, MayBeWrittenOverTheirDirectory)
{
    const ScratchFolder folder;
    const LeftOpen leftOpen;
    Wide buffer{L"."};
    EXPECT_EQ(GetTempFileNameW(buffer.data(), L"ab", 42, buffer.data()), 10U);
    EXPECT_EQ(buffer.contents(), Wide::startingWith(L"./ab42.tmp\0"s));
    EXPECT_TRUE(fs::is_regular_file("ab42.tmp"));
}

TEST(TemporaryFiles, AreNotMissedWhenTheyCannotBeMade)
{
    const ScratchFolder folder;
    const std::size_t before = openDescriptorCount();
    expectWideName(L"missing", L"p", 1, L"missing/p1.tmp");
    EXPECT_EQ(openDescriptorCount(), before);
    EXPECT_TRUE(fs::is_empty(folder.path()));
}

TEST(TemporaryFiles, NeedABuffer)
{
    const ScratchFolder folder;
    EXPECT_EQ(GetTempFileNameW(L".", L"p", 1, nullptr), 0U);
    EXPECT_EQ(GetTempFileNameW(L".", L"p", 1000000, nullptr), 0U);
    EXPECT_TRUE(fs::is_empty(folder.path()));
}

TEST(TemporaryFiles, AskForTheLocaleUtf8)
{
    const ScratchFolder folder;
    const LeftOpen leftOpen;
    const ScopedLocale locale("C");
    Wide buffer;
    const LocaleRequests requests;
    GetTempFileNameW(L".", L"p", 1, nullptr);
    EXPECT_EQ(requests.made(), LocaleRequests::Requests());
    GetTempFileNameW(L".", L"p", 1, buffer.data());
    EXPECT_EQ(requests.made(), (LocaleRequests::Requests{{LC_CTYPE, "UTF-8"}}));
}

TEST(GetTempFileNameW, MakesTheFileForEveryNumber)
{
    const ScratchFolder folder;
    const LeftOpen leftOpen;
    expectWideName(L".", L"p", 7, L"./p7.tmp");
    EXPECT_TRUE(fs::is_regular_file("p7.tmp"));
}

TEST(GetTempFileNameW, LeavesADescriptorOpen)
{
    const ScratchFolder folder;
    const LeftOpen leftOpen;
    const std::size_t before = openDescriptorCount();
    expectWideName(L".", L"p", 7, L"./p7.tmp");
    ASSERT_EQ(openDescriptorCount(), before + 1);
    EXPECT_EQ(fcntl(*leftOpen.descriptors().begin(), F_GETFL) & O_ACCMODE, O_WRONLY);
    EXPECT_EQ(fcntl(*leftOpen.descriptors().begin(), F_GETFD), 0);
}

TEST(GetTempFileNameW, AnswersTheLength)
{
    const ScratchFolder folder;
    const LeftOpen leftOpen;
    Wide buffer;
    EXPECT_EQ(GetTempFileNameW(L".", L"ab", 7, buffer.data()), 9U);
}

TEST(GetTempFileNameW, TakesNumbersOfSixCharacters)
{
    const ScratchFolder folder;
    const LeftOpen leftOpen;
    expectWideName(L".", L"p", 999999, L"./p999999.tmp");
    Wide buffer;
    EXPECT_DEATH(GetTempFileNameW(L".", L"p", 1000000, buffer.data()), overflow);
}

// Answers a path, and notes what it was given.
class TellsTemporaryPath : public StubFileSystemService
{
public:
    DWORD GetTempPathW(DWORD size, wchar_t* buffer) override
    {
        ++calls;
        givenSize = size;
        givenBuffer = buffer;
        if (buffer != nullptr)
        {
            std::memcpy(given.data(), buffer, sizeof given);
            std::wmemcpy(buffer, L"/t/", 3);
        }
        return 0x87654321;
    }

    int calls = 0;
    DWORD givenSize = 0;
    wchar_t* givenBuffer = nullptr;
    std::array<unsigned char, 32> given = {};
};

// Eight characters whose every byte is the sentinel.
class ByteSentinels
{
public:
    ByteSentinels() { std::memset(characters, 0x5A, sizeof characters); }

    wchar_t characters[8];
};

std::array<unsigned char, 32> zeroedAtFront(std::size_t count)
{
    std::array<unsigned char, 32> bytes = {};
    std::memset(bytes.data() + count, 0x5A, bytes.size() - count);
    return bytes;
}

TEST(TemporaryPath, IsTheServices)
{
    struct : StubHub
    {
        IFileSystemService* fileSystemService() override
        {
            ++getterCalls;
            return fileSystem;
        }
        int getterCalls = 0;
    } hub;
    TellsTemporaryPath service;
    hub.fileSystem = &service;
    const InstalledHub installed(&hub);
    ByteSentinels buffer;
    EXPECT_EQ(GetTempPathW(8, buffer.characters), 0x87654321U);
    EXPECT_EQ(service.calls, 1);
    // Once to see that it is there, once for the call.
    EXPECT_EQ(hub.getterCalls, 2);
    EXPECT_EQ(service.givenSize, 8U);
    EXPECT_EQ(service.givenBuffer, buffer.characters);
    EXPECT_EQ(std::wstring(buffer.characters, 3), L"/t/");
    EXPECT_EQ(GetTempPathW(0, nullptr), 0x87654321U);
    EXPECT_EQ(service.givenBuffer, nullptr);
}

TEST(TemporaryPath, IsAbsentWithoutHubOrService)
{
    StubHub hub;
    const std::array<IPlatformServices*, 2> without = {nullptr, &hub};
    for (IPlatformServices* const installedHub : without)
    {
        const InstalledHub installed(installedHub);
        ByteSentinels buffer;
        EXPECT_EQ(GetTempPathW(6, buffer.characters), 0U);
        EXPECT_EQ(std::memcmp(buffer.characters, zeroedAtFront(6).data(), sizeof buffer.characters), 0);
        EXPECT_EQ(GetTempPathW(0, nullptr), 0U);
    }
}

TEST(GetTempPathW, ZeroesBytesNotCharacters)
{
    TellsTemporaryPath service;
    StubHub hub;
    hub.fileSystem = &service;
    const InstalledHub installed(&hub);
    for (const DWORD size : {DWORD{0}, DWORD{1}, DWORD{6}, DWORD{8}})
    {
        ByteSentinels buffer;
        GetTempPathW(size, buffer.characters);
        EXPECT_EQ(service.given, zeroedAtFront(size)) << size;
    }
}

} // namespace
