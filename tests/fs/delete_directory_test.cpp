#include "harness/in_child.h"
#include "harness/open_descriptors.h"
#include "harness/ordinary_user.h"
#include "harness/scratch_folder.h"
#include "kest/kernel/directories.h"

#include <atomic>
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace
{

namespace fs = std::filesystem;

using kest::test::openDescriptorCount;
using kest::test::ScratchFolder;
using kest::test::statusInChild;
using kest::test::statusOfOrdinaryUser;

// Makes every stat() of the process fail while it is set: there is no other way to make a path that access() finds
// and stat() does not.
std::atomic<bool> statFails;

struct Outcome
{
    int result;
    std::string messages;
};

Outcome deleteDirectory(const char* path)
{
    testing::internal::CaptureStderr();
    const int result = DeleteDirectory(path);
    return {result, testing::internal::GetCapturedStderr()};
}

void expectSilentlyDeleted(const char* path)
{
    const Outcome outcome = deleteDirectory(path);
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(outcome.messages, "");
    std::error_code tooLong;
    EXPECT_FALSE(fs::exists(fs::symlink_status(path, tooLong)));
}

std::size_t occurrences(const std::string& text, const std::string& part)
{
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size()))
    {
        ++count;
    }
    return count;
}

} // namespace

extern "C" __attribute__((visibility("default"))) int stat(const char* path, struct stat* status) noexcept
{
    if (statFails)
    {
        errno = EACCES;
        return -1;
    }
    return fstatat(AT_FDCWD, path, status, 0);
}

namespace
{

TEST(DeletingTrees, RemovesFilesAndDirectories)
{
    const ScratchFolder folder;
    folder.write("tree/file", "content");
    folder.write("tree/.hidden", "content");
    folder.write("tree/a/b/c/file", "content");
    folder.write("tree/a/b/other", "content");
    folder.write("tree/\xC3\xA4/\xFF", "content");
    fs::create_directories("tree/empty/empty");
    folder.write("file", "content");
    const std::size_t before = openDescriptorCount();
    expectSilentlyDeleted("tree");
    expectSilentlyDeleted("file");
    EXPECT_EQ(openDescriptorCount(), before);
    EXPECT_TRUE(fs::is_empty(folder.path()));
}

TEST(DeletingTrees, TakesPathsOfEveryShape)
{
    const ScratchFolder folder;
    folder.write("a/file", "content");
    expectSilentlyDeleted("a/");
    folder.write("b/file", "content");
    expectSilentlyDeleted(".//b//");
    const std::string absolute = folder.write("c/d/file", "content").parent_path().string();
    expectSilentlyDeleted(absolute.c_str());
    EXPECT_TRUE(fs::is_empty("c"));
}

TEST(DeletingTrees, SucceedsSilentlyForWhatIsMissing)
{
    const ScratchFolder folder;
    expectSilentlyDeleted("missing");
    expectSilentlyDeleted("missing/file");
    expectSilentlyDeleted("");
    const std::string tooLong(5000, 'a');
    expectSilentlyDeleted(tooLong.c_str());
}

TEST(DeletingTrees, TellsWhenAPathCannotBeQueried)
{
    const ScratchFolder folder;
    folder.write("file", "content");
    testing::internal::CaptureStderr();
    statFails = true;
    const int result = DeleteDirectory("file");
    statFails = false;
    EXPECT_EQ(result, -1);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "get directory stat error: Permission denied\n");
    EXPECT_TRUE(fs::exists("file"));
}

TEST(DeletingTrees, LeavesWhatIsNeitherFileNorDirectory)
{
    const ScratchFolder folder;
    folder.write("tree/before", "content");
    folder.write("tree/z/after", "content");
    ASSERT_EQ(mkfifo("tree/fifo", 0600), 0);
    ASSERT_EQ(mkfifo("tree/z/fifo", 0600), 0);
    const Outcome tree = deleteDirectory("tree");
    EXPECT_EQ(tree.result, 0);
    EXPECT_EQ(occurrences(tree.messages, "unknow file type!: "), 2U) << tree.messages;
    EXPECT_EQ(occurrences(tree.messages, "\n"), 2U);
    EXPECT_TRUE(fs::is_fifo("tree/fifo"));
    EXPECT_TRUE(fs::is_fifo("tree/z/fifo"));
    EXPECT_FALSE(fs::exists("tree/before"));
    EXPECT_FALSE(fs::exists("tree/z/after"));

    const Outcome fifo = deleteDirectory("tree/fifo");
    EXPECT_EQ(fifo.result, 0);
    EXPECT_EQ(occurrences(fifo.messages, "unknow file type!: "), 1U);
    EXPECT_TRUE(fs::is_fifo("tree/fifo"));
}

TEST(DeletingTrees, PassesSilentlyOverWhatIsOutOfReach)
{
    const ScratchFolder folder;
    folder.write("tree/file", "content");
    folder.write("tree/directory/file", "content");
    ASSERT_EQ(mkfifo("tree/fifo", 0600), 0);
    // The entries can be listed, and nothing can be learnt about them.
    fs::permissions("tree", fs::perms::owner_read | fs::perms::others_read);
    EXPECT_EQ(statusOfOrdinaryUser(
                  []
                  {
                      const Outcome outcome = deleteDirectory("tree");
                      EXPECT_EQ(outcome.result, 0);
                      EXPECT_EQ(outcome.messages, "");
                  }),
              0);
    fs::permissions("tree", fs::perms::owner_all);
    EXPECT_TRUE(fs::exists("tree/file"));
    EXPECT_TRUE(fs::exists("tree/directory/file"));
    EXPECT_TRUE(fs::is_fifo("tree/fifo"));
}

TEST(DeletingTrees, RemovesLinksToFilesAndKeepsTheFiles)
{
    const ScratchFolder folder;
    folder.write("kept", "content");
    fs::create_directory("tree");
    ASSERT_EQ(symlink("../kept", "tree/link"), 0);
    ASSERT_EQ(symlink("kept", "link"), 0);
    expectSilentlyDeleted("tree");
    expectSilentlyDeleted("link");
    EXPECT_EQ(folder.read("kept"), "content");
}

TEST(DeletingTrees, EmptiesWhatLinksToDirectoriesLeadTo)
{
    const ScratchFolder folder;
    folder.write("elsewhere/file", "content");
    folder.write("elsewhere/directory/file", "content");
    fs::create_directory("tree");
    ASSERT_EQ(symlink("../elsewhere", "tree/link"), 0);
    EXPECT_EQ(deleteDirectory("tree").result, 0);
    EXPECT_TRUE(fs::is_empty("elsewhere"));
    EXPECT_TRUE(fs::is_symlink("tree/link"));

    folder.write("elsewhere/file", "content");
    EXPECT_EQ(deleteDirectory("tree/link").result, 0);
    EXPECT_TRUE(fs::is_empty("elsewhere"));
    EXPECT_TRUE(fs::is_symlink("tree/link"));
}

TEST(DeletingTrees, KeepsDanglingLinks)
{
    const ScratchFolder folder;
    folder.write("tree/file", "content");
    ASSERT_EQ(symlink("missing", "tree/link"), 0);
    const Outcome outcome = deleteDirectory("tree");
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(outcome.messages, "");
    EXPECT_TRUE(fs::is_symlink("tree/link"));
    EXPECT_FALSE(fs::exists("tree/file"));
    EXPECT_EQ(deleteDirectory("tree/link").result, 0);
    EXPECT_TRUE(fs::is_symlink("tree/link"));
}

// Followed to the end of what the system follows, these would be visited 2 to the power of 40 times.
TEST(DeletingTrees, VisitsALoopOnce)
{
    const ScratchFolder folder;
    folder.write("tree/a/file", "content");
    folder.write("tree/b/file", "content");
    ASSERT_EQ(symlink(".", "tree/one"), 0);
    ASSERT_EQ(symlink(".", "tree/two"), 0);
    ASSERT_EQ(symlink("..", "tree/a/up"), 0);
    ASSERT_EQ(symlink("../a", "tree/b/across"), 0);
    ASSERT_EQ(symlink("../b", "tree/a/across"), 0);
    EXPECT_EQ(deleteDirectory("tree").result, 0);
    EXPECT_FALSE(fs::exists("tree/a/file"));
    EXPECT_FALSE(fs::exists("tree/b/file"));
    EXPECT_TRUE(fs::is_symlink("tree/one"));
}

TEST(DeletingTrees, RemovesADirectoryThatALinkHasLedToBefore)
{
    const ScratchFolder folder;
    // Whichever comes first when the folder is read: the link or the directory.
    for (const char* const name : {"a", "z"})
    {
        folder.write("tree/middle/directory/file", "content");
        ASSERT_EQ(symlink("middle", (std::string("tree/") + name).c_str()), 0);
    }
    EXPECT_EQ(deleteDirectory("tree").result, 0);
    EXPECT_FALSE(fs::exists("tree/middle"));
    EXPECT_TRUE(fs::is_symlink("tree/a"));
    EXPECT_TRUE(fs::is_symlink("tree/z"));
}

TEST(DeletingTrees, NeedsNoDescriptorForEachLevel)
{
    const ScratchFolder folder;
    std::string path = "tree";
    for (int level = 0; level < 100; ++level)
    {
        path += "/d";
    }
    fs::create_directories(path);
    folder.write(path + "/file", "content");
    EXPECT_EQ(statusInChild(
                  []
                  {
                      const rlimit few = {32, 32};
                      ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &few), 0);
                      EXPECT_EQ(DeleteDirectory("tree"), 0);
                  }),
              0);
    EXPECT_FALSE(fs::exists("tree"));
}

// Makes a directory in the current one and enters it.
void enterNew(const std::string& name)
{
    ASSERT_EQ(mkdir(name.c_str(), 0700), 0);
    ASSERT_EQ(chdir(name.c_str()), 0);
}

TEST(DeletingTrees, ReachesPathsOf4095Bytes)
{
    const ScratchFolder folder;
    // "tree" and 20 times a "/" and 200 characters are 4024 bytes; 71 more make 4095.
    enterNew("tree");
    const std::string level(200, 'd');
    for (int depth = 0; depth < 20; ++depth)
    {
        enterNew(level);
    }
    for (const int length : {70, 71})
    {
        const int descriptor =
            open(std::string(static_cast<std::size_t>(length), 'f').c_str(), O_WRONLY | O_CREAT, 0600);
        ASSERT_NE(descriptor, -1);
        close(descriptor);
    }
    const int deepest = open(".", O_RDONLY | O_DIRECTORY);
    ASSERT_EQ(chdir(folder.path().c_str()), 0);

    EXPECT_EQ(deleteDirectory("tree").result, 0);
    EXPECT_NE(faccessat(deepest, std::string(70, 'f').c_str(), F_OK, 0), 0);
    EXPECT_EQ(faccessat(deepest, std::string(71, 'f').c_str(), F_OK, 0), 0);
    EXPECT_TRUE(fs::exists("tree"));

    // Nearer, the rest goes as well.
    close(deepest);
    ASSERT_EQ(rename(("tree/" + level).c_str(), "t"), 0);
    expectSilentlyDeleted("t");
}

TEST(DeletingTrees, EndsWhereNothingFits)
{
    const ScratchFolder folder;
    // Directories of 4094 and 4095 bytes: cut there, every path below them would lead to themselves again.
    for (const std::size_t last : {70U, 71U})
    {
        ASSERT_EQ(chdir(folder.path().c_str()), 0);
        const std::string top = "tre" + std::to_string(last % 10);
        enterNew(top);
        const std::string level(200, 'd');
        for (int depth = 0; depth < 20; ++depth)
        {
            enterNew(level);
        }
        enterNew(std::string(last - 1, 'e'));
        const int descriptor = open("file", O_WRONLY | O_CREAT, 0600);
        ASSERT_NE(descriptor, -1);
        close(descriptor);
        const int deepest = open(".", O_RDONLY | O_DIRECTORY);
        ASSERT_EQ(chdir(folder.path().c_str()), 0);
        const Outcome outcome = deleteDirectory(top.c_str());
        EXPECT_EQ(outcome.result, 0);
        EXPECT_EQ(outcome.messages, "");
        EXPECT_EQ(faccessat(deepest, "file", F_OK, 0), 0);
        close(deepest);
    }
}

TEST(DeletingTrees, ReachesWhatOnlyAShorterPathReaches)
{
    const ScratchFolder folder;
    enterNew("tree");
    // Several, so that one of them is read before the directory: the way through it is too long for what lies deep in
    // the directory, the direct one is not.
    for (char first = 'a'; first <= 'h'; ++first)
    {
        ASSERT_EQ(symlink("z", std::string(250, first).c_str()), 0);
    }
    enterNew("z");
    for (int depth = 0; depth < 20; ++depth)
    {
        enterNew(std::string(200, 'd'));
    }
    const int descriptor = open("file", O_WRONLY | O_CREAT, 0600);
    ASSERT_NE(descriptor, -1);
    close(descriptor);
    ASSERT_EQ(chdir(folder.path().c_str()), 0);
    EXPECT_EQ(deleteDirectory("tree").result, 0);
    EXPECT_FALSE(fs::exists("tree/z"));
}

} // namespace
