#include "harness/in_child.h"
#include "harness/open_descriptors.h"
#include "harness/ordinary_user.h"
#include "harness/scoped_locale.h"
#include "harness/scratch_folder.h"
#include "harness/sentinel_buffer.h"
#include "kest/crt/file_wrappers.h"
#include "kest/kernel/directories.h"
#include "kest/shell_paths.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace
{

namespace fs = std::filesystem;

using kest::test::LeftOpen;
using kest::test::openDescriptorCount;
using kest::test::ScopedLocale;
using kest::test::ScratchFolder;
using kest::test::statusInChild;
using kest::test::statusOfOrdinaryUser;
using namespace std::string_literals;
using Buffer = kest::test::SentinelBuffer<wchar_t, 16>;

mode_t permissionsOf(const char* path)
{
    struct stat status = {};
    EXPECT_EQ(stat(path, &status), 0) << path;
    return status.st_mode & 07777U;
}

// A name of the given length whose last character is the given one, in the current directory.
std::wstring longName(std::size_t length, wchar_t last)
{
    std::wstring name(length, L'/');
    name.front() = L'.';
    name.back() = last;
    return name;
}

TEST(DeletingFiles, RemovesWhatIsThere)
{
    const ScratchFolder folder;
    folder.write("file", "content");
    EXPECT_EQ(DeleteFileW(L"file"), 1);
    EXPECT_FALSE(fs::exists("file"));
    EXPECT_EQ(DeleteFileW(L"file"), 0);
    EXPECT_EQ(DeleteFileW(L""), 0);
    EXPECT_EQ(DeleteFileW(nullptr), 0);
    EXPECT_EQ(DeleteFileW(L"missing/file"), 0);
}

TEST(DeletingFiles, LeavesDirectoriesThatAreNotEmpty)
{
    const ScratchFolder folder;
    folder.write("directory/file", "content");
    EXPECT_EQ(DeleteFileW(L"directory"), 0);
    EXPECT_TRUE(fs::exists("directory/file"));
}

TEST(DeletingFiles, KnowsNoBackslash)
{
    const ScratchFolder folder;
    folder.write("directory/file", "content");
    folder.write("directory\\file", "content");
    EXPECT_EQ(DeleteFileW(L"directory\\file"), 1);
    EXPECT_TRUE(fs::exists("directory/file"));
    EXPECT_FALSE(fs::exists("directory\\file"));
}

TEST(DeletingFiles, ConvertsNames)
{
    const ScratchFolder folder;
    folder.write("\xC3\xA4", "content");
    folder.write("ab", "content");
    {
        const ScopedLocale locale("C.UTF-8");
        EXPECT_EQ(DeleteFileW(L"\u00e4"), 1);
        EXPECT_FALSE(fs::exists("\xC3\xA4"));
    }
    const ScopedLocale locale("C");
    EXPECT_EQ(DeleteFileW(L"\u00e4"), 0);
    // The name ends where the locale ends.
    EXPECT_EQ(DeleteFileW(L"ab\u00e4"), 1);
    EXPECT_FALSE(fs::exists("ab"));
}

TEST(DeletingFiles, CutsLongNames)
{
    const ScratchFolder folder;
    folder.write("a", "content");
    EXPECT_EQ(DeleteFileW(longName(4096, L'a').c_str()), 0);
    EXPECT_EQ(DeleteFileW(longName(4095, L'a').c_str()), 1);
    folder.write("a", "content");
    EXPECT_EQ(DeleteFileW((longName(4095, L'a') + L"bcd").c_str()), 1);
    EXPECT_FALSE(fs::exists("a"));
}

TEST(DeleteFileW, RemovesEmptyDirectories)
{
    const ScratchFolder folder;
    ASSERT_EQ(mkdir("directory", 0700), 0);
    EXPECT_EQ(DeleteFileW(L"directory"), 1);
    EXPECT_FALSE(fs::exists("directory"));
}

TEST(DeleteFileW, RefusesDanglingLinks)
{
    const ScratchFolder folder;
    folder.write("file", "content");
    ASSERT_EQ(symlink("file", "link"), 0);
    ASSERT_EQ(symlink("missing", "dangling"), 0);
    EXPECT_EQ(DeleteFileW(L"dangling"), 0);
    EXPECT_TRUE(fs::is_symlink("dangling"));
    EXPECT_EQ(DeleteFileW(L"link"), 1);
    EXPECT_FALSE(fs::is_symlink("link"));
    EXPECT_EQ(folder.read("file"), "content");
}

TEST(MakingDirectories, MakesOne)
{
    const ScratchFolder folder;
    const mode_t mask = umask(0);
    EXPECT_EQ(CreateDirectoryW(L"on the way/directory", nullptr), 1);
    EXPECT_EQ(permissionsOf("on the way"), 0755U);
    EXPECT_EQ(permissionsOf("on the way/directory"), 0755U);
    umask(077);
    SECURITY_ATTRIBUTES security = {};
    EXPECT_EQ(CreateDirectoryW(L"private/directory", &security), 1);
    umask(mask);
    EXPECT_EQ(permissionsOf("private"), 0700U);
    EXPECT_EQ(permissionsOf("private/directory"), 0700U);
}

TEST(MakingDirectories, TakesEveryShapeOfPath)
{
    const ScratchFolder folder;
    const std::wstring absolute = folder.path().wstring() + L"/absolute/one";
    for (const std::wstring& path : {L"a/b/c/"s, L"d//e"s, L"./f/../g"s, L"h"s, absolute})
    {
        EXPECT_EQ(CreateDirectoryW(path.c_str(), nullptr), 1) << testing::PrintToString(path);
        EXPECT_TRUE(fs::is_directory(path)) << testing::PrintToString(path);
    }
    EXPECT_TRUE(fs::is_directory("f"));
    EXPECT_EQ(CreateDirectoryW(L"/", nullptr), 1);
}

TEST(MakingDirectories, FailsWhereAFileStandsInTheWay)
{
    const ScratchFolder folder;
    folder.write("file", "content");
    EXPECT_EQ(CreateDirectoryW(L"file/a", nullptr), 0);
    EXPECT_EQ(CreateDirectoryW(L"file/a/b", nullptr), 0);
    EXPECT_EQ(CreateDirectoryW(L"file/", nullptr), 0);
    EXPECT_EQ(folder.read("file"), "content");
}

TEST(MakingDirectories, FailsForADanglingLink)
{
    const ScratchFolder folder;
    ASSERT_EQ(symlink("missing", "dangling"), 0);
    EXPECT_EQ(CreateDirectoryW(L"dangling", nullptr), 0);
    EXPECT_EQ(CreateDirectoryW(L"dangling/a", nullptr), 0);
}

TEST(MakingDirectories, FailsForNull)
{
    EXPECT_EQ(CreateDirectoryW(nullptr, nullptr), 0);
    EXPECT_EQ(SHCreateDirectoryExW(nullptr, nullptr, nullptr), E_FAIL);
}

TEST(MakingDirectories, CutsLongPaths)
{
    const ScratchFolder folder;
    EXPECT_EQ(CreateDirectoryW((longName(4095, L'a') + L"bcd").c_str(), nullptr), 1);
    EXPECT_TRUE(fs::is_directory("a"));
}

TEST(MakingDirectories, MakesManyLevels)
{
    const ScratchFolder folder;
    std::wstring path = L"d";
    for (int level = 1; level < 50; ++level)
    {
        path += L"/d";
    }
    EXPECT_EQ(CreateDirectoryW(path.c_str(), nullptr), 1);
    EXPECT_TRUE(fs::is_directory(path));
}

TEST(CreateDirectoryW, MakesWhatIsMissingOnTheWay)
{
    const ScratchFolder folder;
    EXPECT_EQ(CreateDirectoryW(L"a/b/c", nullptr), 1);
    EXPECT_TRUE(fs::is_directory("a/b/c"));
}

TEST(CreateDirectoryW, TakesWhatExistsForSuccess)
{
    const ScratchFolder folder;
    folder.write("file", "content");
    EXPECT_EQ(CreateDirectoryW(L".", nullptr), 1);
    EXPECT_EQ(CreateDirectoryW(L"file", nullptr), 1);
    EXPECT_EQ(CreateDirectoryW(L"", nullptr), 1);
    EXPECT_EQ(folder.read("file"), "content");
}

TEST(MakingDirectories, AnswersTheShellsWay)
{
    const ScratchFolder folder;
    SECURITY_ATTRIBUTES security = {};
    EXPECT_EQ(SHCreateDirectoryExW(reinterpret_cast<HWND>(0x1234), L"a/b", &security), 0);
    EXPECT_TRUE(fs::is_directory("a/b"));
}

TEST(SHCreateDirectoryExW, TakesWhatExistsForSuccess)
{
    const ScratchFolder folder;
    folder.write("file", "content");
    EXPECT_EQ(SHCreateDirectoryExW(nullptr, L".", nullptr), 0);
    EXPECT_EQ(SHCreateDirectoryExW(nullptr, L"file", nullptr), 0);
}

TEST(SHCreateDirectoryExW, AnswersOneFailureOnly)
{
    const ScratchFolder folder;
    folder.write("file", "content");
    EXPECT_EQ(SHCreateDirectoryExW(nullptr, L"file/a", nullptr), static_cast<int>(0x80004005));
    EXPECT_EQ(SHCreateDirectoryExW(nullptr, std::wstring(300, L'a').c_str(), nullptr), static_cast<int>(0x80004005));
}

TEST(RemovingDirectories, RemovesEmptyOnes)
{
    const ScratchFolder folder;
    folder.write("full/file", "content");
    ASSERT_EQ(mkdir("empty", 0700), 0);
    EXPECT_EQ(RemoveDirectoryW(L"empty"), 1);
    EXPECT_FALSE(fs::exists("empty"));
    EXPECT_EQ(RemoveDirectoryW(L"empty"), 0);
    EXPECT_EQ(RemoveDirectoryW(L"full"), 0);
    EXPECT_EQ(RemoveDirectoryW(L"full/file"), 0);
    EXPECT_EQ(RemoveDirectoryW(L""), 0);
    EXPECT_EQ(RemoveDirectoryW(nullptr), 0);
    EXPECT_TRUE(fs::exists("full/file"));
}

TEST(RemovingDirectories, TakesBackslashesForSlashes)
{
    const ScratchFolder folder;
    fs::create_directories("a/b/c");
    fs::create_directories("a\\b\\c");
    EXPECT_EQ(RemoveDirectoryW(L"a\\b\\c"), 1);
    EXPECT_FALSE(fs::exists("a/b/c"));
    EXPECT_TRUE(fs::exists("a\\b\\c"));
    const ScopedLocale locale("C.UTF-8");
    fs::create_directories("\xC3\xA4/\xE4\xB8\x96");
    EXPECT_EQ(RemoveDirectoryW(L"\u00e4\\\u4e16"), 1);
    EXPECT_FALSE(fs::exists("\xC3\xA4/\xE4\xB8\x96"));
}

TEST(RemovingDirectories, CutsLongPaths)
{
    const ScratchFolder folder;
    ASSERT_EQ(mkdir("a", 0700), 0);
    EXPECT_EQ(RemoveDirectoryW((longName(4095, L'a') + L"bcd").c_str()), 1);
    EXPECT_FALSE(fs::exists("a"));
}

TEST(Directories, AreToldFromFiles)
{
    const ScratchFolder folder;
    folder.write("file", "content");
    ASSERT_EQ(mkdir("directory", 0700), 0);
    ASSERT_EQ(symlink("directory", "link"), 0);
    ASSERT_EQ(symlink("missing", "dangling"), 0);
    ASSERT_EQ(mkfifo("fifo", 0600), 0);
    const LeftOpen leftOpen;
    EXPECT_EQ(PathIsDirectoryW(L"directory"), 1);
    EXPECT_EQ(PathIsDirectoryW(L"directory/"), 1);
    EXPECT_EQ(PathIsDirectoryW(L"link"), 1);
    EXPECT_EQ(PathIsDirectoryW(L"."), 1);
    EXPECT_EQ(PathIsDirectoryW((longName(4095, L'.') + L"file").c_str()), 1);
    EXPECT_EQ(PathIsDirectoryW(L"file"), 0);
    EXPECT_EQ(PathIsDirectoryW(L"fifo"), 0);
    EXPECT_EQ(PathIsDirectoryW(L"dangling"), 0);
    EXPECT_EQ(PathIsDirectoryW(L"missing"), 0);
    EXPECT_EQ(PathIsDirectoryW(L""), 0);
    EXPECT_EQ(PathIsDirectoryW(nullptr), 0);
}

TEST(PathIsDirectoryW, LeavesADescriptorOpen)
{
    const ScratchFolder folder;
    const LeftOpen leftOpen;
    const std::size_t before = openDescriptorCount();
    EXPECT_EQ(PathIsDirectoryW(L"."), 1);
    EXPECT_EQ(PathIsDirectoryW(L"."), 1);
    ASSERT_EQ(openDescriptorCount(), before + 2);
    // Programs that are started do not get it.
    EXPECT_EQ(fcntl(*leftOpen.descriptors().begin(), F_GETFD), FD_CLOEXEC);
    EXPECT_EQ(PathIsDirectoryW(L"missing"), 0);
    EXPECT_EQ(openDescriptorCount(), before + 2);

    EXPECT_EQ(statusInChild(
                  []
                  {
                      const rlimit none = {0, 0};
                      ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &none), 0);
                      EXPECT_EQ(PathIsDirectoryW(L"."), 0);
                  }),
              0);
}

TEST(PathIsDirectoryW, NeedsReadPermission)
{
    const ScratchFolder folder;
    ASSERT_EQ(chmod(folder.path().c_str(), 0777), 0);
    EXPECT_EQ(statusOfOrdinaryUser(
                  []
                  {
                      ASSERT_EQ(mkdir("unreadable", 0300), 0);
                      EXPECT_EQ(PathIsDirectoryW(L"unreadable"), 0);
                      EXPECT_EQ(rmdir("unreadable"), 0);
                  }),
              0);
}

TEST(GetSystemDirectoryW, WritesNoTerminator)
{
    Buffer buffer;
    errno = 77;
    EXPECT_EQ(GetSystemDirectoryW(buffer.data(), 6), 5U);
    EXPECT_EQ(buffer.contents(), Buffer::startingWith(L"/sys/"));
    Buffer large;
    EXPECT_EQ(GetSystemDirectoryW(large.data(), 16), 5U);
    EXPECT_EQ(large.contents(), Buffer::startingWith(L"/sys/"));
    EXPECT_EQ(errno, 77);
}

TEST(GetSystemDirectoryW, RefusesSmallBuffers)
{
    Buffer buffer;
    EXPECT_EQ(GetSystemDirectoryW(buffer.data(), 5), 0U);
    EXPECT_EQ(GetSystemDirectoryW(buffer.data(), 0), 0U);
    EXPECT_EQ(GetSystemDirectoryW(nullptr, 0), 0U);
    EXPECT_EQ(buffer.contents(), Buffer::untouched());
}

TEST(DescriptorModes, CannotBeSet)
{
    errno = 77;
    EXPECT_EQ(_setmode(1, 0x8000), 0);
    EXPECT_EQ(_setmode(-1, 0x4000), 0);
    EXPECT_EQ(errno, 77);
}

} // namespace
