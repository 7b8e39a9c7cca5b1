#include "common/descriptor.h"

#include <cerrno>
#include <csignal>
#include <cstddef>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <pthread.h>
#include <string>
#include <thread>
#include <unistd.h>

using namespace kest::common;

namespace
{

bool isOpen(int descriptor)
{
    return fcntl(descriptor, F_GETFD) != -1;
}

TEST(Descriptor, IsClosedWithTheObject)
{
    int number = -1;
    {
        const Descriptor descriptor(open("/dev/null", O_RDONLY | O_CLOEXEC));
        ASSERT_TRUE(descriptor.valid());
        number = descriptor.number();
        EXPECT_TRUE(isOpen(number));
    }
    EXPECT_FALSE(isOpen(number));
}

TEST(Descriptor, IsClosedOnce)
{
    Descriptor descriptor(open("/dev/null", O_RDONLY | O_CLOEXEC));
    const int number = descriptor.number();
    EXPECT_TRUE(descriptor.close());
    EXPECT_FALSE(isOpen(number));
    EXPECT_FALSE(descriptor.valid());
    EXPECT_TRUE(descriptor.close());
}

TEST(Descriptor, ReportsAFailureToClose)
{
    Descriptor descriptor(open("/dev/null", O_RDONLY | O_CLOEXEC));
    close(descriptor.number());
    errno = 0;
    EXPECT_FALSE(descriptor.close());
    EXPECT_EQ(errno, EBADF);
}

TEST(Descriptor, OfAFailedOpeningHoldsNothing)
{
    Descriptor descriptor(open("/nonexistent", O_RDONLY | O_CLOEXEC));
    EXPECT_FALSE(descriptor.valid());
    errno = 0;
    EXPECT_TRUE(descriptor.close());
    EXPECT_EQ(errno, 0);
}

std::string manyBytes()
{
    std::string content(1000000, '\0');
    for (std::size_t index = 0; index < content.size(); ++index)
    {
        content[index] = static_cast<char>('a' + index % 26);
    }
    return content;
}

TEST(WritingAll, ReportsThatAPartOnlyWasTaken)
{
    int ends[2];
    ASSERT_EQ(pipe2(ends, O_CLOEXEC | O_NONBLOCK), 0);
    const Descriptor out(ends[0]);
    const Descriptor in(ends[1]);
    errno = 0;
    EXPECT_FALSE(writeAll(in.number(), manyBytes()));
    EXPECT_EQ(errno, EAGAIN);
}

// A signal ends a write to a full pipe with what it has written by then.
TEST(WritingAll, GoesOnAfterInterruptions)
{
    struct sigaction interrupting = {};
    interrupting.sa_handler = [](int) {};
    struct sigaction before;
    ASSERT_EQ(sigaction(SIGUSR1, &interrupting, &before), 0);
    int ends[2];
    ASSERT_EQ(pipe2(ends, O_CLOEXEC), 0);
    const Descriptor out(ends[0]);
    Descriptor in(ends[1]);
    const pthread_t writer = pthread_self();
    std::string received;
    std::thread reader(
        [&]
        {
            char block[4096];
            for (ssize_t count; (count = read(out.number(), block, sizeof block)) > 0;)
            {
                received.append(block, static_cast<std::size_t>(count));
                pthread_kill(writer, SIGUSR1);
            }
        });
    const std::string content = manyBytes();
    EXPECT_TRUE(writeAll(in.number(), content));
    in.close();
    reader.join();
    sigaction(SIGUSR1, &before, nullptr);
    EXPECT_EQ(received, content);
}

TEST(WritingAll, ReportsWhatTheSystemRefuses)
{
    const Descriptor full(open("/dev/full", O_WRONLY | O_CLOEXEC));
    errno = 0;
    EXPECT_FALSE(writeAll(full.number(), "content"));
    EXPECT_EQ(errno, ENOSPC);
    EXPECT_TRUE(writeAll(full.number(), ""));
}

} // namespace
