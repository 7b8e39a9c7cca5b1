#include "kest/companions/console.h"

#include "harness/in_child.h"
#include "harness/scratch_folder.h"
#include "kest/kernel/files.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

using namespace kest::test;

namespace
{

TEST(StandardStreams, AreTheCLibrarysOwn)
{
    errno = 77;
    EXPECT_EQ(GetStdHandle(STD_INPUT_HANDLE), stdin);
    EXPECT_EQ(GetStdHandle(STD_OUTPUT_HANDLE), stdout);
    EXPECT_EQ(GetStdHandle(STD_ERROR_HANDLE), stderr);
    EXPECT_EQ(errno, 77);
}

TEST(StandardStreams, AreInvalidUnderOtherNumbers)
{
    for (const DWORD number : {DWORD{0}, DWORD{1}, DWORD{static_cast<DWORD>(-9)}, DWORD{static_cast<DWORD>(-13)}})
    {
        errno = 0;
        EXPECT_EQ(GetStdHandle(number), INVALID_HANDLE_VALUE) << number;
        EXPECT_EQ(errno, 6) << number;
    }
}

TEST(StandardStreams, AreNullWhenTheyAreClosed)
{
    EXPECT_EQ(statusInChild(
                  []
                  {
                      close(STDIN_FILENO);
                      errno = 77;
                      EXPECT_EQ(GetStdHandle(STD_INPUT_HANDLE), nullptr);
                      EXPECT_EQ(errno, 77);
                  }),
              0);
}

TEST(GetStdHandle, AnswersTheCLibrarysStream)
{
    const ScratchFolder folder;
    EXPECT_EQ(statusInChild(
                  []
                  {
                      const int file = open("output", O_WRONLY | O_CREAT, 0600);
                      ASSERT_EQ(dup2(file, STDOUT_FILENO), STDOUT_FILENO);
                      DWORD written = 0;
                      std::printf("first ");
                      EXPECT_EQ(WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), "second ", 7, &written, nullptr), 1);
                      std::printf("third");
                      std::fflush(stdout);
                      EXPECT_EQ(written, 7U);
                  }),
              0);
    EXPECT_EQ(folder.read("output"), "first second third");
}

} // namespace
