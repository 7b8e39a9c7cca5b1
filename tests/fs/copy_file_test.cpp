#include "harness/open_descriptors.h"
#include "harness/scoped_locale.h"
#include "harness/scratch_folder.h"
#include "kest/kernel/directories.h"

#include <csignal>
#include <cstddef>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <pthread.h>
#include <string>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace
{

namespace fs = std::filesystem;

using kest::test::openDescriptorCount;
using kest::test::ScopedLocale;
using kest::test::ScratchFolder;
using namespace std::string_literals;

std::string readAll(const char* path)
{
    std::ifstream in(path, std::ios::binary);
    EXPECT_TRUE(in) << path;
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// Bytes of every value, in no period that a buffer could hide.
std::string bytes(std::size_t count)
{
    std::string content(count, '\0');
    unsigned state = 1;
    for (char& byte : content)
    {
        state = state * 1664525U + 1013904223U;
        byte = static_cast<char>(state >> 24U);
    }
    return content;
}

TEST(CopyingFiles, CopiesEveryByte)
{
    const ScratchFolder folder;
    const std::size_t before = openDescriptorCount();
    for (const std::size_t size : {0U, 1U, 4096U, 65535U, 65536U, 65537U, 3000001U})
    {
        const std::string content = bytes(size);
        folder.write("source", content);
        EXPECT_EQ(CopyFileW(L"source", L"destination", 0), 1) << size;
        EXPECT_TRUE(folder.read("destination") == content) << size;
        EXPECT_TRUE(folder.read("source") == content) << size;
        fs::remove("destination");
    }
    EXPECT_EQ(openDescriptorCount(), before);
}

TEST(CopyingFiles, ReplacesALongerFile)
{
    const ScratchFolder folder;
    folder.write("source", "short");
    folder.write("destination", "much longer");
    EXPECT_EQ(CopyFileW(L"source", L"destination", 0), 1);
    EXPECT_EQ(folder.read("destination"), "short");
}

TEST(CopyingFiles, CopiesFilesThatTellNoSize)
{
    const ScratchFolder folder;
    const std::string content = readAll("/proc/version");
    ASSERT_NE(content, "");
    EXPECT_EQ(CopyFileW(L"/proc/version", L"destination", 0), 1);
    EXPECT_EQ(folder.read("destination"), content);
}

TEST(CopyingFiles, ReadsFromAPipe)
{
    const ScratchFolder folder;
    const std::string content = bytes(300000);
    ASSERT_EQ(mkfifo("fifo", 0600), 0);
    std::thread writer([&content] { std::ofstream("fifo", std::ios::binary) << content; });
    EXPECT_EQ(CopyFileW(L"fifo", L"destination", 0), 1);
    writer.join();
    EXPECT_TRUE(folder.read("destination") == content);
}

TEST(CopyingFiles, GoesOnAfterSignals)
{
    const ScratchFolder folder;
    const std::string content = bytes(300000);
    ASSERT_EQ(mkfifo("from", 0600), 0);
    ASSERT_EQ(mkfifo("to", 0600), 0);
    struct sigaction interrupts = {};
    struct sigaction before = {};
    interrupts.sa_handler = [](int) {};
    ASSERT_EQ(sigaction(SIGUSR1, &interrupts, &before), 0);
    const auto interrupt = [copier = pthread_self()]
    {
        usleep(1000);
        pthread_kill(copier, SIGUSR1);
    };
    // Signals meet the copier while it waits for something to read, and while it waits for room to write the rest of
    // what it has.
    std::thread writer(
        [&]
        {
            std::ofstream out("from", std::ios::binary);
            for (int signals = 0; signals < 20; ++signals)
            {
                interrupt();
            }
            out << content;
        });
    std::string received;
    std::thread reader(
        [&]
        {
            const int descriptor = open("to", O_RDONLY);
            char part[5000];
            ssize_t count = 0;
            while ((count = read(descriptor, part, sizeof part)) > 0)
            {
                received.append(part, static_cast<std::size_t>(count));
                interrupt();
            }
            close(descriptor);
        });
    EXPECT_EQ(CopyFileW(L"from", L"to", 0), 1);
    writer.join();
    reader.join();
    EXPECT_EQ(sigaction(SIGUSR1, &before, nullptr), 0);
    EXPECT_TRUE(received == content);
}

TEST(CopyingFiles, WritesToAPipe)
{
    const ScratchFolder folder;
    const std::string content = bytes(300000);
    folder.write("source", content);
    ASSERT_EQ(mkfifo("fifo", 0600), 0);
    std::string received;
    std::thread reader([&received] { received = readAll("fifo"); });
    EXPECT_EQ(CopyFileW(L"source", L"fifo", 0), 1);
    reader.join();
    EXPECT_TRUE(received == content);
}

TEST(CopyingFiles, CopiesBetweenPipes)
{
    const ScratchFolder folder;
    const std::string content = bytes(300000);
    ASSERT_EQ(mkfifo("from", 0600), 0);
    ASSERT_EQ(mkfifo("to", 0600), 0);
    std::thread writer([&content] { std::ofstream("from", std::ios::binary) << content; });
    std::string received;
    std::thread reader([&received] { received = readAll("to"); });
    EXPECT_EQ(CopyFileW(L"from", L"to", 0), 1);
    writer.join();
    reader.join();
    EXPECT_TRUE(received == content);
}

TEST(CopyingFiles, CopiesToDevices)
{
    const ScratchFolder folder;
    folder.write("source", bytes(100000));
    EXPECT_EQ(CopyFileW(L"source", L"/dev/null", 0), 1);
    EXPECT_EQ(CopyFileW(L"source", L"/dev/full", 0), 1);
    EXPECT_EQ(CopyFileW(L"/dev/null", L"destination", 0), 1);
    EXPECT_EQ(folder.read("destination"), "");
}

TEST(CopyingFiles, FollowsLinks)
{
    const ScratchFolder folder;
    folder.write("source", "content");
    ASSERT_EQ(symlink("source", "link to source"), 0);
    ASSERT_EQ(symlink("new file", "link to new file"), 0);
    EXPECT_EQ(CopyFileW(L"link to source", L"link to new file", 0), 1);
    EXPECT_EQ(folder.read("new file"), "content");
    EXPECT_TRUE(fs::is_symlink("link to new file"));
}

TEST(CopyingFiles, LeavesDirectoriesAlone)
{
    const ScratchFolder folder;
    folder.write("source", "content");
    folder.write("directory/file", "content");
    EXPECT_EQ(CopyFileW(L"source", L"directory", 0), 1);
    EXPECT_EQ(folder.read("directory/file"), "content");
    EXPECT_EQ(std::distance(fs::directory_iterator("directory"), fs::directory_iterator()), 1);
}

TEST(CopyingFiles, ConvertsWholeNames)
{
    const ScratchFolder folder;
    folder.write("source", "content");
    {
        const ScopedLocale locale("C.UTF-8");
        EXPECT_EQ(CopyFileW(L"source", L"\u00e4\u4e16\U0001F600", 0), 1);
        EXPECT_EQ(folder.read("\xC3\xA4\xE4\xB8\x96\xF0\x9F\x98\x80"), "content");
        EXPECT_EQ(CopyFileW(L"\u00e4\u4e16\U0001F600", L"back", 0), 1);
        EXPECT_EQ(folder.read("back"), "content");
    }
    {
        const ScopedLocale locale("C");
        EXPECT_EQ(CopyFileW(L"source", L"ab\u00e4cd", 0), 1);
        EXPECT_EQ(folder.read("ab"), "content");
    }
    // Nothing is cut to a path that the system takes.
    std::wstring name(4095, L'/');
    name.front() = L'.';
    name.back() = L'a';
    EXPECT_EQ(CopyFileW(L"source", (name + L"b").c_str(), 0), 1);
    EXPECT_FALSE(fs::exists("a"));
    EXPECT_EQ(CopyFileW(L"source", name.c_str(), 0), 1);
    EXPECT_TRUE(fs::exists("a"));
}

TEST(CopyFileW, AlwaysReportsSuccess)
{
    const ScratchFolder folder;
    folder.write("source", "content");
    EXPECT_EQ(CopyFileW(L"missing", L"missing/destination", 0), 1);
    EXPECT_EQ(CopyFileW(L"source", L"missing/destination", 0), 1);
    EXPECT_EQ(CopyFileW(L"source", L"", 0), 1);
    EXPECT_EQ(CopyFileW(L"source", L".", 0), 1);
    EXPECT_FALSE(fs::exists("missing"));
}

TEST(CopyFileW, EmptiesTheDestinationFirst)
{
    const ScratchFolder folder;
    EXPECT_EQ(CopyFileW(L"missing", L"new", 0), 1);
    EXPECT_EQ(folder.read("new"), "");

    folder.write("destination", "content");
    EXPECT_EQ(CopyFileW(L"missing", L"destination", 0), 1);
    EXPECT_EQ(folder.read("destination"), "");

    folder.write("destination", "content");
    EXPECT_EQ(CopyFileW(L".", L"destination", 0), 1);
    EXPECT_EQ(folder.read("destination"), "");

    for (const wchar_t* const same : {L"same", L"./same", L"link", L"other name"})
    {
        fs::remove("link");
        fs::remove("other name");
        folder.write("same", "content");
        ASSERT_EQ(symlink("same", "link"), 0);
        ASSERT_EQ(link("same", "other name"), 0);
        EXPECT_EQ(CopyFileW(L"same", same, 0), 1);
        EXPECT_EQ(folder.read("same"), "") << testing::PrintToString(same);
    }
}

TEST(CopyFileW, OverwritesInEveryCase)
{
    const ScratchFolder folder;
    folder.write("source", "content");
    folder.write("destination", "other");
    EXPECT_EQ(CopyFileW(L"source", L"destination", 1), 1);
    EXPECT_EQ(folder.read("destination"), "content");
}

TEST(CopyFileW, CopiesTheContentOnly)
{
    const ScratchFolder folder;
    folder.write("source", "content");
    ASSERT_EQ(chmod("source", 0700), 0);
    const timespec times[] = {{1000000000, 0}, {1000000000, 0}};
    ASSERT_EQ(utimensat(AT_FDCWD, "source", times, 0), 0);
    folder.write("existing", "other");
    ASSERT_EQ(chmod("existing", 0640), 0);

    const mode_t mask = umask(0);
    EXPECT_EQ(CopyFileW(L"source", L"new", 0), 1);
    EXPECT_EQ(CopyFileW(L"source", L"existing", 0), 1);
    umask(027);
    EXPECT_EQ(CopyFileW(L"source", L"masked", 0), 1);
    umask(mask);

    struct stat status = {};
    ASSERT_EQ(stat("new", &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0666U);
    EXPECT_NE(status.st_mtime, 1000000000);
    ASSERT_EQ(stat("masked", &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0640U);
    ASSERT_EQ(stat("existing", &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0640U);
}

} // namespace
