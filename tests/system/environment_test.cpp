#include "harness/child_program.h"
#include "harness/scoped_locale.h"
#include "harness/scratch_folder.h"
#include "harness/sentinel_buffer.h"
#include "harness/stub_services.h"
#include "kest/kernel/environment.h"

#include <cerrno>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>
#include <utility>
#include <vector>

using kest::test::InstalledHub;
using kest::test::ScopedLocale;
using kest::test::ScratchFolder;
using kest::test::SentinelBuffer;
using kest::test::StubHub;
using kest::test::StubSystemService;
using namespace std::string_literals;

namespace
{

using Buffer = SentinelBuffer<wchar_t, 16>;

// ---- ExpandEnvironmentStringsW

// Answers one text and remembers what it was asked.
class Expander : public StubSystemService
{
public:
    std::wstring ExpandEnvironmentStringsW(const std::wstring& text) override
    {
        asked.push_back(text);
        return answer;
    }

    std::wstring answer;
    std::vector<std::wstring> asked;
};

class CountingHub : public StubHub
{
public:
    ISystemService* systemService() override
    {
        ++fetched;
        return system;
    }

    int fetched = 0;
};

TEST(ExpandEnvironmentStringsW, ExpandsNothingWithoutService)
{
    Buffer out;
    EXPECT_EQ(ExpandEnvironmentStringsW(L"%HOME%", out.data(), 16), 6U);
    EXPECT_EQ(out.contents(), Buffer::startingWith(L"%HOME%\0"s));
    StubHub hub;
    const InstalledHub installed(&hub);
    Buffer other;
    EXPECT_EQ(ExpandEnvironmentStringsW(L"$HOME", other.data(), 16), 5U);
    EXPECT_EQ(other.contents(), Buffer::startingWith(L"$HOME\0"s));
}

TEST(ExpandEnvironmentStringsW, DoesNotCountTheTerminator)
{
    Buffer out;
    EXPECT_EQ(ExpandEnvironmentStringsW(L"abc", out.data(), 4), 3U);
    EXPECT_EQ(ExpandEnvironmentStringsW(L"", out.data(), 4), 0U);
    EXPECT_EQ(out.contents(), Buffer::startingWith(L"\0bc\0"s));
}

TEST(EnvironmentExpansion, WritesOnlyWhatFitsWithItsTerminator)
{
    for (DWORD size = 0; size <= 16; ++size)
    {
        Buffer out;
        errno = 77;
        EXPECT_EQ(ExpandEnvironmentStringsW(L"text", out.data(), size), 4U);
        EXPECT_EQ(errno, 77);
        EXPECT_EQ(out.contents(), size > 4 ? Buffer::startingWith(L"text\0"s) : Buffer::untouched()) << size;
    }
    EXPECT_EQ(ExpandEnvironmentStringsW(L"text", nullptr, 16), 4U);
}

TEST(EnvironmentExpansion, AsksTheServiceOnce)
{
    Expander service;
    service.answer = L"/home/kest";
    CountingHub hub;
    hub.system = &service;
    const InstalledHub installed(&hub);
    Buffer out;
    EXPECT_EQ(ExpandEnvironmentStringsW(L"%HOME%", out.data(), 16), 10U);
    EXPECT_EQ(out.contents(), Buffer::startingWith(L"/home/kest\0"s));
    EXPECT_EQ(service.asked, std::vector<std::wstring>{L"%HOME%"});
    EXPECT_EQ(hub.fetched, 2);

    Buffer small;
    EXPECT_EQ(ExpandEnvironmentStringsW(L"", small.data(), 10), 10U);
    EXPECT_EQ(small.contents(), Buffer::untouched());
    EXPECT_EQ(service.asked, (std::vector<std::wstring>{L"%HOME%", L""}));
}

TEST(EnvironmentExpansion, KeepsTheLengthOfTheServicesText)
{
    Expander service;
    service.answer = L"ab\0cd"s;
    StubHub hub;
    hub.system = &service;
    const InstalledHub installed(&hub);
    Buffer out;
    EXPECT_EQ(ExpandEnvironmentStringsW(L"x", out.data(), 6), 5U);
    EXPECT_EQ(out.contents(), Buffer::startingWith(L"ab\0cd\0"s));
}

TEST(EnvironmentExpansion, TakesTextAndBufferInOnePlace)
{
    Buffer out(L"same");
    EXPECT_EQ(ExpandEnvironmentStringsW(out.data(), out.data(), 16), 4U);
    EXPECT_EQ(out.contents(), Buffer::startingWith(L"same\0"s));
    EXPECT_EQ(ExpandEnvironmentStringsW(out.data(), out.data() + 1, 15), 4U);
    EXPECT_EQ(out.contents(), Buffer::startingWith(L"ssame\0"s));
}

TEST(EnvironmentExpansion, AnswersZeroForNoText)
{
    Expander service;
    service.answer = L"text";
    StubHub hub;
    hub.system = &service;
    const InstalledHub installed(&hub);
    Buffer out;
    EXPECT_EQ(ExpandEnvironmentStringsW(nullptr, out.data(), 16), 0U);
    EXPECT_EQ(out.contents(), Buffer::untouched());
    EXPECT_TRUE(service.asked.empty());
}

// ---- GetCurrentDirectoryW, SetCurrentDirectoryW

using PathBuffer = SentinelBuffer<wchar_t, 300>;

TEST(GetCurrentDirectoryW, AsksForBytesNotCharacters)
{
    const ScopedLocale utf8("C.UTF-8");
    const ScratchFolder folder;
    folder.write("\xC3\xA4\xE6\xBC\xA2/file", "");
    std::filesystem::current_path(folder.path() / "\xC3\xA4\xE6\xBC\xA2");
    EXPECT_EQ(GetCurrentDirectoryW(0, nullptr), folder.path().string().size() + 1 + 5 + 1);
    PathBuffer out;
    EXPECT_EQ(GetCurrentDirectoryW(300, out.data()), folder.path().string().size() + 1 + 2);
    EXPECT_EQ(out.contents(), PathBuffer::startingWith(folder.path().wstring() + L"/\u00E4\u6F22\0"s));
}

TEST(GetCurrentDirectoryW, CutsAPathThatDoesNotFit)
{
    const ScratchFolder folder;
    const std::wstring path = folder.path().wstring();
    const auto length = static_cast<DWORD>(path.size());
    for (DWORD size = 0; size <= length; ++size)
    {
        PathBuffer out;
        EXPECT_EQ(GetCurrentDirectoryW(size, out.data()), size);
        EXPECT_EQ(out.contents(), PathBuffer::startingWith(path.substr(0, size)));
    }
    PathBuffer out;
    EXPECT_EQ(GetCurrentDirectoryW(length + 1, out.data()), length);
    EXPECT_EQ(out.contents(), PathBuffer::startingWith(path + L'\0'));
}

TEST(CurrentDirectory, IsMeasuredWithoutABuffer)
{
    const ScratchFolder folder;
    EXPECT_EQ(GetCurrentDirectoryW(0, nullptr), folder.path().string().size() + 1);
    EXPECT_EQ(GetCurrentDirectoryW(5, nullptr), folder.path().string().size());
}

TEST(CurrentDirectory, AnswersZeroWhenThereIsNone)
{
    const ScratchFolder folder;
    folder.write("gone/file", "");
    std::filesystem::current_path("gone");
    std::filesystem::remove_all(folder.path() / "gone");
    PathBuffer out;
    errno = 0;
    EXPECT_EQ(GetCurrentDirectoryW(300, out.data()), 0U);
    EXPECT_EQ(errno, ENOENT);
    EXPECT_EQ(out.contents(), PathBuffer::untouched());
    EXPECT_EQ(GetCurrentDirectoryW(0, nullptr), 0U);
}

TEST(CurrentDirectory, ReportsAPathThatTheLocaleCannotConvert)
{
    const ScratchFolder folder;
    folder.write("\xC3\xA4/file", "");
    std::filesystem::current_path("\xC3\xA4");
    PathBuffer out;
    errno = 0;
    EXPECT_EQ(GetCurrentDirectoryW(300, out.data()), 0xFFFFFFFFU);
    EXPECT_EQ(errno, EILSEQ);
    EXPECT_EQ(out.contents(), PathBuffer::startingWith(folder.path().wstring() + L"/"));
}

TEST(CurrentDirectory, MayHaveAPathLongerThanAnyBuffer)
{
    const ScratchFolder folder;
    const std::string name(200, 'd');
    constexpr int depth = 25;
    std::wstring expected = folder.path().wstring();
    for (int level = 0; level < depth; ++level)
    {
        std::filesystem::create_directory(name);
        std::filesystem::current_path(name);
        expected += L"/" + std::wstring(name.begin(), name.end());
    }
    SentinelBuffer<wchar_t, 6000> out;
    if (kest::test::limitedByEmulator(
            "getcwd() tells no path of more than 4096 bytes: the kernel leaves those to the C library, which climbs "
            "until "
            "it is at \"/\", and qemu-user shows the folder of its option -L under that name"))
    {
        EXPECT_EQ(getcwd(nullptr, 0), nullptr);
        EXPECT_EQ(GetCurrentDirectoryW(0, nullptr), 0U);
        EXPECT_EQ(GetCurrentDirectoryW(6000, out.data()), 0U);
        EXPECT_TRUE(out.contents() == out.untouched());
    }
    else
    {
        EXPECT_EQ(GetCurrentDirectoryW(0, nullptr), expected.size() + 1);
        EXPECT_EQ(GetCurrentDirectoryW(6000, out.data()), expected.size());
        EXPECT_TRUE(out.contents() == out.startingWith(expected + L'\0'));
    }
    for (int level = 0; level < depth; ++level)
    {
        std::filesystem::current_path("..");
        std::filesystem::remove(name);
    }
}

TEST(SetCurrentDirectoryW, TakesBackslashesAsOrdinaryCharacters)
{
    const ScratchFolder folder;
    folder.write("a\\b/file", "");
    folder.write("a/b/file", "");
    EXPECT_EQ(SetCurrentDirectoryW(L"a\\b"), 1);
    EXPECT_EQ(std::filesystem::current_path(), folder.path() / "a\\b");
}

TEST(CurrentDirectory, ChangesAndReportsFailure)
{
    const ScopedLocale utf8("C.UTF-8");
    const ScratchFolder folder;
    folder.write("inner/\xC3\xA4/file", "");
    EXPECT_EQ(SetCurrentDirectoryW(L"inner/\u00E4"), 1);
    EXPECT_EQ(std::filesystem::current_path(), folder.path() / "inner/\xC3\xA4");
    EXPECT_EQ(SetCurrentDirectoryW(folder.path().wstring().c_str()), 1);
    EXPECT_EQ(std::filesystem::current_path(), folder.path());

    const std::pair<const wchar_t*, int> failures[] = {
        {L"missing", ENOENT}, {L"inner/\u00E4/file", ENOTDIR}, {L"", ENOENT}};
    for (const auto& [path, error] : failures)
    {
        errno = 0;
        EXPECT_EQ(SetCurrentDirectoryW(path), 0);
        EXPECT_EQ(errno, error);
    }
    EXPECT_EQ(std::filesystem::current_path(), folder.path());
}

TEST(CurrentDirectory, IsNotChangedToAPrefixOfTheName)
{
    const ScratchFolder folder;
    folder.write("inner/file", "");
    EXPECT_EQ(SetCurrentDirectoryW(L"inner/\u00E4"), 0);
    EXPECT_EQ(std::filesystem::current_path(), folder.path());
}

TEST(CurrentDirectory, IsCutAfter4095Bytes)
{
    const ScratchFolder folder;
    std::wstring path = L".";
    while (path.size() < 5000)
    {
        path += L"/.";
    }
    EXPECT_EQ(SetCurrentDirectoryW((path + L"/missing").c_str()), 1);
    EXPECT_EQ(std::filesystem::current_path(), folder.path());
}

} // namespace
