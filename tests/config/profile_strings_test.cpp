#include "harness/in_child.h"
#include "harness/scoped_locale.h"
#include "harness/scratch_folder.h"
#include "harness/sentinel_buffer.h"
#include "harness/stub_services.h"
#include "kest/kernel/profiles.h"

#include <csignal>
#include <cstdio>
#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using kest::test::InstalledHub;
using kest::test::ScopedLocale;
using kest::test::ScratchFolder;
using kest::test::SentinelBuffer;
using kest::test::statusInChild;
using kest::test::StubHub;
using kest::test::StubProfileService;
using namespace std::string_literals;

namespace
{

using Buffer = SentinelBuffer<wchar_t, 32>;

// What a call leaves in a buffer, and what it answers.
struct Answer
{
    DWORD count;
    std::wstring buffer;

    bool operator==(const Answer&) const = default;
};

void PrintTo(const Answer& answer, std::ostream* out)
{
    *out << answer.count << ' ' << testing::PrintToString(answer.buffer);
}

Answer ask(const wchar_t* section, const wchar_t* key, const wchar_t* defaultValue = L"default", DWORD size = 32,
           const wchar_t* path = L"file.ini")
{
    Buffer out;
    const DWORD count = GetPrivateProfileStringW(section, key, defaultValue, out.data(), size, path);
    return {count, out.contents()};
}

Answer answered(DWORD count, std::wstring text)
{
    return {count, Buffer::startingWith(text + L'\0')};
}

const Answer byDefault = answered(7, L"default");

// A file "file.ini" in the current directory, for a test's duration.
class Profile
{
public:
    explicit Profile(std::string_view content) { folder_.write("file.ini", content); }

    const ScratchFolder& folder() const { return folder_; }

private:
    ScratchFolder folder_;
};

// ---- Deviations

TEST(GetPrivateProfileStringW, CountsBytesNotCharacters)
{
    const ScopedLocale utf8("C.UTF-8");
    const Profile profile("[A]\nx=\xC3\xA4\xE6\xBC\xA2\n");
    EXPECT_EQ(ask(L"A", L"x"), answered(5, L"\u00E4\u6F22"));
}

TEST(GetPrivateProfileStringW, CountsTheQuotesThatItRemoves)
{
    const Profile profile("[A]\nx=\"hello\"\n");
    EXPECT_EQ(ask(L"A", L"x"), answered(7, L"hello"));
}

TEST(GetPrivateProfileStringW, RemovesUnpairedQuotes)
{
    const Profile profile("[A]\nx=\"hello\ny=hello\"\"\n");
    EXPECT_EQ(ask(L"A", L"x"), answered(6, L"hello"));
    EXPECT_EQ(ask(L"A", L"y"), answered(7, L"hello"));
}

TEST(GetPrivateProfileStringW, ComparesNamesExactly)
{
    const Profile profile("[A]\nx=1\n");
    EXPECT_EQ(ask(L"A", L"x"), answered(1, L"1"));
    EXPECT_EQ(ask(L"a", L"x"), byDefault);
    EXPECT_EQ(ask(L"A", L"X"), byDefault);
}

TEST(GetPrivateProfileStringW, SearchesTheSectionsBehind)
{
    const Profile profile("[A]\ny=1\n[B]\nx=2\n");
    EXPECT_EQ(ask(L"A", L"x"), answered(1, L"2"));
}

TEST(GetPrivateProfileStringW, TakesCommentsForKeys)
{
    const Profile profile("[A]\n;x=1\n");
    EXPECT_EQ(ask(L"A", L";x"), answered(1, L"1"));
}

TEST(GetPrivateProfileStringW, ListsNoNames)
{
    const Profile profile("[A]\nx=1\n[]\ny=2\n");
    EXPECT_EQ(ask(nullptr, nullptr), byDefault);
    EXPECT_EQ(ask(L"A", nullptr), byDefault);
    EXPECT_EQ(ask(nullptr, L"x"), byDefault);
    // A null section is the empty name.
    EXPECT_EQ(ask(nullptr, L"y"), answered(1, L"2"));
}

TEST(GetPrivateProfileStringW, NeedsAFileThatCanBeWritten)
{
    const Profile profile("[A]\nx=1\n");
    ASSERT_EQ(chmod(profile.folder().path().c_str(), 0755), 0);
    ASSERT_EQ(chmod("file.ini", 0444), 0);
    const int status = statusInChild(
        []
        {
            constexpr uid_t nobody = 65534;
            ASSERT_EQ(geteuid() == 0 ? seteuid(nobody) : 0, 0);
            EXPECT_EQ(ask(L"A", L"x"), byDefault);
        });
    EXPECT_EQ(status, 0);
}

TEST(GetPrivateProfileStringW, EndsTheProcessOnLongNames)
{
    const Profile profile("[" + std::string(1025, 'n') + "]\n[A]\nx=1\n");
    const int status = statusInChild(
        []
        {
            // The C library's message is not this test's.
            ASSERT_NE(std::freopen("/dev/null", "w", stderr), nullptr);
            ask(L"A", L"x");
        });
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGABRT) << status;
}

// ---- With a host

class ProfileService : public StubProfileService
{
public:
    DWORD GetPrivateProfileStringW(const wchar_t* section, const wchar_t* key, const wchar_t* defaultValue,
                                   wchar_t* out, DWORD size, const wchar_t* path) override
    {
        arguments = {section, key, defaultValue, out, path};
        givenSize = size;
        ++calls;
        return 12345;
    }

    std::vector<const wchar_t*> arguments;
    DWORD givenSize = 0;
    int calls = 0;
};

class CountingHub : public StubHub
{
public:
    IProfileService* profileService() override
    {
        ++fetched;
        return profile;
    }

    int fetched = 0;
};

TEST(ProfileStrings, AreReadByTheServiceIfThereIsOne)
{
    const Profile profile("[A]\nx=1\n");
    ProfileService service;
    CountingHub hub;
    hub.profile = &service;
    const InstalledHub installed(&hub);
    Buffer out;
    const wchar_t section[] = L"A";
    const wchar_t key[] = L"x";
    const wchar_t given[] = L"default";
    const wchar_t path[] = L"file.ini";
    EXPECT_EQ(GetPrivateProfileStringW(section, key, given, out.data(), 77, path), 12345U);
    EXPECT_EQ(service.arguments, (std::vector<const wchar_t*>{section, key, given, out.data(), path}));
    EXPECT_EQ(service.givenSize, 77U);
    EXPECT_EQ(service.calls, 1);
    EXPECT_EQ(hub.fetched, 2);
    EXPECT_EQ(out.contents(), Buffer::untouched());

    EXPECT_EQ(GetPrivateProfileStringW(nullptr, nullptr, nullptr, nullptr, 0, nullptr), 12345U);
    EXPECT_EQ(service.arguments, std::vector<const wchar_t*>(5, nullptr));
    EXPECT_EQ(service.givenSize, 0U);
}

TEST(ProfileStrings, AreReadFromTheFileByAHostWithoutService)
{
    const Profile profile("[A]\nx=1\n");
    CountingHub hub;
    const InstalledHub installed(&hub);
    EXPECT_EQ(ask(L"A", L"x"), answered(1, L"1"));
    EXPECT_EQ(hub.fetched, 1);
}

// ---- Without a host

TEST(ProfileStrings, ComeFromTheFileOrTheDefault)
{
    const ScopedLocale utf8("C.UTF-8");
    const Profile profile("[S\xC3\xA4]\nk\xC3\xA4y = value \nempty=\n");
    EXPECT_EQ(ask(L"S\u00E4", L"k\u00E4y"), answered(5, L"value"));
    EXPECT_EQ(ask(L" S\u00E4 ", L" k\u00E4y "), answered(5, L"value"));
    EXPECT_EQ(ask(L"S\u00E4", L"empty"), answered(0, L""));
    EXPECT_EQ(ask(L"S\u00E4", L"missing"), byDefault);
    EXPECT_EQ(ask(L"missing", L"k\u00E4y"), byDefault);
    EXPECT_EQ(ask(L"A", L"x", L"default", 32, L"missing.ini"), byDefault);
    EXPECT_EQ(ask(L"A", L"x", L"d\u00E4  "), answered(3, L"d\u00E4"));
    EXPECT_EQ(ask(L"A", L"x", L""), answered(0, L""));
}

TEST(ProfileStrings, TakeAnAbsentDefaultAsEmpty)
{
    const Profile profile("[A]\nx=1\n");
    EXPECT_EQ(ask(L"A", L"y", nullptr), answered(0, L""));
    EXPECT_EQ(ask(L"A", L"y", nullptr, 32, L"missing.ini"), answered(0, L""));
}

TEST(ProfileStrings, TakeAnAbsentPathAsAMissingFile)
{
    EXPECT_EQ(ask(L"A", L"x", L"default", 32, nullptr), byDefault);
}

TEST(ProfileStrings, AreCutToTheSize)
{
    const Profile profile("[A]\nx=value\n");
    EXPECT_EQ(ask(L"A", L"x", nullptr, 0), (Answer{0, Buffer::untouched()}));
    EXPECT_EQ(ask(L"A", L"x", nullptr, 1), answered(0, L""));
    EXPECT_EQ(ask(L"A", L"x", nullptr, 2), answered(1, L"v"));
    EXPECT_EQ(ask(L"A", L"x", nullptr, 5), answered(4, L"valu"));
    EXPECT_EQ(ask(L"A", L"x", nullptr, 6), answered(5, L"value"));
    EXPECT_EQ(ask(L"A", L"y", L"default", 4), answered(3, L"def"));
}

TEST(ProfileStrings, EndBeforeWhatTheLocaleCannotConvert)
{
    const Profile profile("[A]\nx=ab\xC3\xA4\xC3\xA4\n");
    EXPECT_EQ(ask(L"A", L"x"), answered(6, L"ab"));
    const ScopedLocale utf8("C.UTF-8");
    EXPECT_EQ(ask(L"A", L"x"), answered(6, L"ab\u00E4\u00E4"));
    // The size cuts the second character in half.
    EXPECT_EQ(ask(L"A", L"x", nullptr, 6), answered(5, L"ab\u00E4"));
}

TEST(ProfileStrings, MayBeLongerThanAnyScratch)
{
    const std::string value(10000, 'v');
    const Profile profile("[A]\nx=" + value + "\n");
    for (const DWORD size : {4096U, 4097U, 9000U, 10000U, 10001U, 100000U})
    {
        std::wstring out(size, L'\x5A');
        const DWORD count = std::min<DWORD>(size - 1, 10000);
        EXPECT_EQ(GetPrivateProfileStringW(L"A", L"x", nullptr, out.data(), size, L"file.ini"), count);
        EXPECT_EQ(out, std::wstring(count, L'v') + L'\0' + std::wstring(size - count - 1, L'\x5A'));
    }
}

TEST(ProfileStrings, AreEmptyForSizesThatTheReaderCannotCount)
{
    const Profile profile("[A]\nx=value\n");
    EXPECT_EQ(ask(L"A", L"x", L"default", 0x80000000U), answered(0, L""));
    EXPECT_EQ(ask(L"A", L"x", L"default", 0xFFFFFFFFU), answered(0, L""));
}

TEST(ProfileStrings, AreMeasuredWithoutABuffer)
{
    const Profile profile("[A]\nx=value\ny=ab\xC3\xA4\n");
    EXPECT_EQ(GetPrivateProfileStringW(L"A", L"x", nullptr, nullptr, 100, L"file.ini"), 5U);
    // Not even where the locale cannot convert the text.
    EXPECT_EQ(GetPrivateProfileStringW(L"A", L"y", nullptr, nullptr, 100, L"file.ini"), 4U);
    EXPECT_EQ(GetPrivateProfileStringW(L"A", L"x", nullptr, nullptr, 0, L"file.ini"), 0U);
}

TEST(ProfileStrings, AreSoughtUnderNamesOfAtMost4095Bytes)
{
    const Profile profile("[A]\nx=value\n");
    const std::wstring blanks(4095, L' ');
    EXPECT_EQ(ask((L"A" + blanks).c_str(), (L"x" + blanks + L"y").c_str()), answered(5, L"value"));
    EXPECT_EQ(ask((blanks + L"A").c_str(), L"x"), byDefault);
    const std::wstring longDefault(5000, L'd');
    std::wstring out(6000, L'\x5A');
    EXPECT_EQ(GetPrivateProfileStringW(L"A", L"y", longDefault.c_str(), out.data(), 6000, L"file.ini"), 4095U);
    EXPECT_EQ(out, std::wstring(4095, L'd') + L'\0' + std::wstring(1904, L'\x5A'));
}

// ---- GetPrivateProfileSectionNamesW

TEST(ProfileSectionNames, AreNeverListed)
{
    const Profile profile("[A]\nx=1\n");
    Buffer out;
    EXPECT_EQ(GetPrivateProfileSectionNamesW(out.data(), 32, L"file.ini"), 0U);
    EXPECT_EQ(GetPrivateProfileSectionNamesW(nullptr, 0, nullptr), 0U);
    EXPECT_EQ(out.contents(), Buffer::untouched());
}

} // namespace
