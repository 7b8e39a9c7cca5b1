#include "kest/crt/file_wrappers.h"

#include "crt/wide_wrapper_fixture.h"
#include "harness/scratch_folder.h"
#include "harness/sentinel_buffer.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>
#include <vector>

namespace
{

namespace fs = std::filesystem;
using kest::test::narrowName;
using kest::test::OwnedText;
using kest::test::ScratchFolder;
using kest::test::SentinelBuffer;
using kest::test::tooLongPath;
using kest::test::wideName;
using kest::test::WithFiles;

// ---- The working directory ---------------------------------------------------------------------------------------

using WorkingDirectory = WithFiles;

TEST_F(WorkingDirectory, IsCopiedIntoABuffer)
{
    fs::create_directory(narrowName);
    fs::current_path(narrowName);
    const std::wstring expected = folder_.path().wstring() + L"/" + wideName;
    using Buffer = SentinelBuffer<wchar_t, 200>;
    Buffer buffer;
    errno = 77;
    EXPECT_EQ(_wgetcwd(buffer.data(), Buffer::size()), buffer.data());
    EXPECT_EQ(errno, 77);
    EXPECT_EQ(buffer.contents(), Buffer::startingWith(expected + L'\0'));

    const int length = static_cast<int>(expected.size());
    Buffer exact;
    EXPECT_EQ(_wgetcwd(exact.data(), length + 1), exact.data());
    EXPECT_EQ(exact.contents(), Buffer::startingWith(expected + L'\0'));
    Buffer withoutTerminator;
    EXPECT_EQ(_wgetcwd(withoutTerminator.data(), length), withoutTerminator.data());
    EXPECT_EQ(withoutTerminator.contents(), Buffer::startingWith(expected));
    Buffer cut;
    EXPECT_EQ(_wgetcwd(cut.data(), 4), cut.data());
    EXPECT_EQ(cut.contents(), Buffer::startingWith(expected.substr(0, 4)));
    Buffer none;
    EXPECT_EQ(_wgetcwd(none.data(), 0), none.data());
    EXPECT_EQ(none.contents(), Buffer::untouched());
}

TEST_F(WorkingDirectory, IsAllocatedWithItsTerminatorWhenOneCharacterTakesMoreBytes)
{
    fs::create_directory(narrowName);
    fs::current_path(narrowName);
    const OwnedText first(_wgetcwd(nullptr, 0));
    const OwnedText second(_wgetcwd(nullptr, -1));
    ASSERT_NE(first, nullptr);
    ASSERT_NE(second, nullptr);
    EXPECT_NE(first, second);
    EXPECT_EQ(first.get(), folder_.path().wstring() + L"/" + wideName);
    EXPECT_EQ(second.get(), folder_.path().wstring() + L"/" + wideName);
}

TEST_F(WorkingDirectory, IsRefusedWhenTheLocaleCannotConvertIt)
{
    fs::create_directory("a\xff");
    fs::current_path("a\xff");
    EXPECT_EQ(_wgetcwd(nullptr, 0), nullptr);
    using Buffer = SentinelBuffer<wchar_t, 200>;
    Buffer buffer;
    EXPECT_EQ(_wgetcwd(buffer.data(), Buffer::size()), nullptr);
    EXPECT_EQ(buffer.contents(), Buffer::startingWith(folder_.path().wstring() + L"/a"));
}

TEST_F(WorkingDirectory, IsRefusedWhenItIsGone)
{
    fs::create_directory("gone");
    fs::current_path("gone");
    ASSERT_EQ(rmdir("../gone"), 0);
    errno = 0;
    EXPECT_EQ(_wgetcwd(nullptr, 0), nullptr);
    EXPECT_EQ(errno, ENOENT);
    using Buffer = SentinelBuffer<wchar_t, 200>;
    Buffer buffer;
    errno = 0;
    EXPECT_EQ(_wgetcwd(buffer.data(), Buffer::size()), nullptr);
    EXPECT_EQ(errno, ENOENT);
    EXPECT_EQ(buffer.contents(), Buffer::untouched());
}

// ---- Full paths --------------------------------------------------------------------------------------------------

class FullPaths : public WithFiles
{
protected:
    using Buffer = SentinelBuffer<wchar_t, 200>;

    // Zeros up to `size`, as wcsncpy leaves them.
    static std::wstring padded(std::wstring text, std::size_t size)
    {
        text.resize(size, L'\0');
        return Buffer::startingWith(text);
    }
};

TEST_F(FullPaths, AreAbsoluteAndFreeOfLinks)
{
    fs::create_directory(narrowName);
    folder_.write(narrowName + "/file", "content");
    fs::create_directory_symlink(narrowName, "link");
    const std::wstring expected = folder_.path().wstring() + L"/" + wideName + L"/file";
    Buffer buffer;
    EXPECT_EQ(_wfullpath(buffer.data(), L"link/./../link//file", 150), buffer.data());
    EXPECT_EQ(buffer.contents(), padded(expected, 150));
    Buffer here;
    EXPECT_EQ(_wfullpath(here.data(), L".", 200), here.data());
    EXPECT_EQ(here.contents(), padded(folder_.path().wstring(), 200));
}

TEST_F(FullPaths, AreCutAtTheSize)
{
    const std::wstring expected = folder_.path().wstring();
    for (const std::size_t size :
         {std::size_t(0), std::size_t(1), std::size_t(5), expected.size(), expected.size() + 1})
    {
        Buffer buffer;
        EXPECT_EQ(_wfullpath(buffer.data(), L".", size), buffer.data());
        EXPECT_EQ(buffer.contents(), padded((expected + L'\0').substr(0, size), size)) << size;
    }
}

TEST_F(FullPaths, PadWithZerosBeyondTheLongestPath)
{
    std::vector<wchar_t> buffer(5001, L'#');
    EXPECT_EQ(_wfullpath(buffer.data(), L".", 5000), buffer.data());
    std::wstring expected = folder_.path().wstring();
    expected.resize(5000, L'\0');
    EXPECT_EQ(std::wstring(buffer.data(), buffer.size()), expected + L'#');
}

TEST_F(FullPaths, OfMissingFilesAreWhatTheResolverLeaves)
{
    const std::wstring paths[] = {
        L"missing", L"missing/b/c", L"\u00e9/b", L"", L"/", tooLongPath(), std::wstring(3000, L'\u4e2d')};
    for (const std::wstring& path : paths)
    {
        std::string narrow(path.size() * 4 + 1, '\0');
        ASSERT_NE(std::wcstombs(narrow.data(), path.c_str(), narrow.size()), static_cast<std::size_t>(-1));
        char left[PATH_MAX] = {};
        [[maybe_unused]] const char* const unchecked = realpath(narrow.c_str(), left);
        wchar_t expected[PATH_MAX] = {};
        ASSERT_NE(std::mbstowcs(expected, left, PATH_MAX), static_cast<std::size_t>(-1));
        std::vector<wchar_t> buffer(PATH_MAX + 1, L'#');
        EXPECT_EQ(_wfullpath(buffer.data(), path.c_str(), PATH_MAX), buffer.data());
        EXPECT_EQ(std::wstring(buffer.data(), buffer.size()), std::wstring(expected, PATH_MAX) + L'#');
    }
}

TEST_F(FullPaths, AreCutWhereTheLocaleCannotConvertThem)
{
    fs::create_directory("a\xff");
    fs::create_directory_symlink("a\xff", "link");
    Buffer buffer;
    EXPECT_EQ(_wfullpath(buffer.data(), L"link", 150), buffer.data());
    EXPECT_EQ(buffer.contents(), padded(folder_.path().wstring() + L"/a", 150));
}

// ---- Deviations --------------------------------------------------------------------------------------------------

// Memory that was filled and released is what the allocator hands out next; the address sanitizer's fills new memory
// itself.
TEST(wgetcwd, LeavesTheTerminatorOutOfAllocatedAsciiText)
{
    const ScratchFolder folder;
    const std::wstring expected = folder.path().wstring();
    {
        const std::size_t size = (expected.size() + 1) * sizeof(wchar_t);
        std::array<OwnedText, 6> filled;
        for (OwnedText& block : filled)
        {
            block.reset(static_cast<wchar_t*>(std::malloc(size)));
            // Volatile, or the compiler leaves out blocks that nobody reads.
            auto* const bytes = reinterpret_cast<volatile unsigned char*>(block.get());
            std::fill(bytes, bytes + size, static_cast<unsigned char>(0x11));
        }
    }
    const OwnedText text(_wgetcwd(nullptr, 0));
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(std::wstring(text.get(), expected.size()), expected);
    EXPECT_NE(text.get()[expected.size()], L'\0');
}

TEST(wgetcwd, CutsTextThatDoesNotFit)
{
    const ScratchFolder folder;
    wchar_t buffer[] = L"####";
    EXPECT_EQ(_wgetcwd(buffer, 2), buffer);
    EXPECT_EQ(std::wstring(buffer), folder.path().wstring().substr(0, 2) + L"##");
}

TEST(wfullpath, ResolvesSymbolicLinks)
{
    const ScratchFolder folder;
    fs::create_directory("target");
    fs::create_directory_symlink("target", "link");
    wchar_t buffer[200];
    EXPECT_EQ(_wfullpath(buffer, L"link", 200), buffer);
    EXPECT_EQ(buffer, (folder.path() / "target").wstring());
}

TEST(wfullpath, StopsAtMissingComponents)
{
    const ScratchFolder folder;
    wchar_t buffer[200];
    EXPECT_EQ(_wfullpath(buffer, L"missing/more", 200), buffer);
    EXPECT_EQ(buffer, (folder.path() / "missing").wstring());
}

TEST(wfullpath, CutsTextThatDoesNotFit)
{
    wchar_t buffer[] = L"####";
    EXPECT_EQ(_wfullpath(buffer, L"/dev", 2), buffer);
    EXPECT_STREQ(buffer, L"/d##");
}

TEST(wfullpath, AllocatesNoBuffer)
{
    EXPECT_EQ(_wfullpath(nullptr, L".", 100), nullptr);
}

} // namespace
