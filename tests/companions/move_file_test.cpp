#include "kest/companions/kernel.h"

#include "harness/ordinary_user.h"
#include "harness/scoped_locale.h"
#include "harness/scratch_folder.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <utility>

using namespace kest::test;

namespace
{

namespace fs = std::filesystem;

// What the next moves answer instead of moving: EXDEV, as between file systems, EINVAL, as where a file system cannot
// promise to replace nothing, or another refusal.
int moveError = 0;

struct FailingMoves
{
    explicit FailingMoves(int error) { moveError = error; }
    ~FailingMoves() { moveError = 0; }
};

} // namespace

// Takes the place of the C library's.
extern "C" __attribute__((visibility("default"))) int renameat2(int fromFolder, const char* from, int toFolder,
                                                                const char* to, unsigned int flags) noexcept
{
    if (moveError == 0)
        return static_cast<int>(syscall(SYS_renameat2, fromFolder, from, toFolder, to, flags));
    errno = moveError;
    return -1;
}

namespace
{

class Moving : public testing::Test
{
protected:
    // The last error after a move that must fail.
    static int refusal(const wchar_t* from, const wchar_t* to)
    {
        errno = 0;
        EXPECT_EQ(MoveFileW(from, to), 0);
        return errno;
    }

    const ScopedLocale utf8{"C.UTF-8"};
    const ScratchFolder folder;
};

TEST_F(Moving, RenamesFilesAndFolders)
{
    folder.write("a", "content");
    folder.write("folder/inside", "more");
    errno = 77;
    EXPECT_EQ(MoveFileW(L"a", L"folder/\u00E4"), 1);
    EXPECT_EQ(MoveFileW(L"folder", L"other"), 1);
    EXPECT_EQ(errno, 77);
    EXPECT_EQ(folder.read("other/\u00E4"), "content");
    EXPECT_EQ(folder.read("other/inside"), "more");
    EXPECT_FALSE(fs::exists("a"));
    EXPECT_FALSE(fs::exists("folder"));
}

TEST_F(Moving, MovesLinksThemselves)
{
    fs::create_symlink("nowhere", "link");
    EXPECT_EQ(MoveFileW(L"link", L"moved"), 1);
    EXPECT_EQ(fs::read_symlink("moved"), "nowhere");
}

TEST_F(Moving, ReplacesNothing)
{
    folder.write("a", "old");
    folder.write("b", "new");
    fs::create_directory("folder");
    fs::create_symlink("nowhere", "link");
    for (const int error : {0, EINVAL})
    {
        const FailingMoves failing(error);
        EXPECT_EQ(refusal(L"b", L"a"), 183);
        EXPECT_EQ(refusal(L"b", L"folder"), 183);
        EXPECT_EQ(refusal(L"b", L"link"), 183);
        EXPECT_EQ(folder.read("a"), "old");
        EXPECT_EQ(folder.read("b"), "new");
    }
}

TEST_F(Moving, GoesOnWhereAFileSystemCannotPromiseThat)
{
    folder.write("a", "content");
    const FailingMoves failing(EINVAL);
    errno = 77;
    EXPECT_EQ(MoveFileW(L"a", L"b"), 1);
    EXPECT_EQ(errno, 77);
    EXPECT_EQ(folder.read("b"), "content");
    EXPECT_FALSE(fs::exists("a"));
}

TEST_F(Moving, TakesAFilesOwnNameForSuccess)
{
    folder.write("a", "content");
    EXPECT_EQ(MoveFileW(L"a", L"a"), 1);
    EXPECT_EQ(folder.read("a"), "content");
    EXPECT_EQ(refusal(L"b", L"b"), 2);
}

TEST_F(Moving, TellsWhatIsMissing)
{
    folder.write("a", "content");
    EXPECT_EQ(refusal(L"missing", L"b"), 2);
    EXPECT_EQ(refusal(L"missing/a", L"b"), 3);
    EXPECT_EQ(refusal(L"a", L"missing/b"), 3);
    EXPECT_EQ(refusal(L"a", L"a/b"), 3);
    EXPECT_EQ(refusal(nullptr, L"b"), 87);
    EXPECT_EQ(refusal(L"a", nullptr), 87);
    EXPECT_EQ(refusal(L"a", std::wstring(300, L'x').c_str()), 206);
    EXPECT_EQ(folder.read("a"), "content");
}

TEST_F(Moving, NamesWhatTheSystemReports)
{
    folder.write("a", "content");
    const std::pair<int, int> errors[] = {{EPERM, 5},    {EBUSY, 5},    {ENOMEM, 8},  {EROFS, 19},
                                          {ENOSPC, 112}, {EDQUOT, 112}, {EIO, 31},    {EISDIR, 31},
                                          {EMFILE, 31},  {ENFILE, 31},  {ETXTBSY, 31}};
    for (const auto& [system, windows] : errors)
    {
        const FailingMoves failing(system);
        EXPECT_EQ(refusal(L"a", L"b"), windows) << system;
    }
    EXPECT_EQ(folder.read("a"), "content");
}

TEST_F(Moving, MovesNoFolderIntoItself)
{
    fs::create_directory("folder");
    EXPECT_EQ(refusal(L"folder", L"folder/inside"), 32);
}

TEST_F(Moving, RefusesNamesThatTheLocaleCannotEncode)
{
    const ScopedLocale ascii("C");
    folder.write("a", "content");
    EXPECT_EQ(refusal(L"a", L"\u00E4"), 123);
    EXPECT_EQ(refusal(L"\u00E4", L"b"), 123);
}

TEST_F(Moving, NeedsPermission)
{
    folder.write("folder/a", "content");
    fs::permissions("folder", fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_exec);
    EXPECT_EQ(statusOfOrdinaryUser([] { EXPECT_EQ(refusal(L"folder/a", L"folder/b"), 5); }), 0);
    fs::permissions("folder", fs::perms::owner_all);
    EXPECT_EQ(folder.read("folder/a"), "content");
}

TEST_F(Moving, CopiesFilesToOtherFileSystems)
{
    const std::string content(200000, 'x');
    folder.write("a", content);
    fs::permissions("a", static_cast<fs::perms>(0640));
    const timespec times[] = {{1000, 0}, {2000, 5000}};
    ASSERT_EQ(utimensat(AT_FDCWD, "a", times, 0), 0);

    const FailingMoves failing(EXDEV);
    errno = 77;
    EXPECT_EQ(MoveFileW(L"a", L"b"), 1);
    EXPECT_EQ(errno, 77);
    EXPECT_FALSE(fs::exists("a"));
    struct stat status;
    ASSERT_EQ(stat("b", &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0640U);
    EXPECT_EQ(status.st_mtim.tv_sec, 2000);
    EXPECT_EQ(status.st_mtim.tv_nsec, 5000);
    EXPECT_EQ(folder.read("b"), content);
}

TEST_F(Moving, KeepsEverythingAsItWasWhenCopyingFails)
{
    folder.write("a", "content");
    folder.write("b", "other");
    fs::create_directory("folder");
    const FailingMoves failing(EXDEV);
    EXPECT_EQ(refusal(L"a", L"b"), 183);
    EXPECT_EQ(refusal(L"folder", L"c"), 5);
    EXPECT_EQ(refusal(L"a", L"missing/c"), 3);
    EXPECT_EQ(folder.read("a"), "content");
    EXPECT_EQ(folder.read("b"), "other");
    EXPECT_FALSE(fs::exists("c"));
}

TEST_F(Moving, TakesTheCopyBackWhenTheFileCannotBeRemoved)
{
    folder.write("from/a", "content");
    fs::create_directory("to");
    fs::permissions("from", fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_exec);
    fs::permissions("to", fs::perms::all);
    const FailingMoves failing(EXDEV);
    EXPECT_EQ(statusOfOrdinaryUser([] { EXPECT_EQ(refusal(L"from/a", L"to/a"), 5); }), 0);
    fs::permissions("from", fs::perms::owner_all);
    EXPECT_EQ(folder.read("from/a"), "content");
    EXPECT_FALSE(fs::exists("to/a"));
}

TEST(MoveFileW, MovesOpenFiles)
{
    const ScratchFolder folder;
    folder.write("a", "content");
    std::FILE* const file = std::fopen("a", "r");
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(MoveFileW(L"a", L"b"), 1);
    EXPECT_EQ(std::fgetc(file), 'c');
    std::fclose(file);
}

} // namespace
