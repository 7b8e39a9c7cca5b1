#include "kest/kernel/synchronisation.h"

#include <atomic>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <sys/time.h>
#include <unistd.h>
#include <vector>

namespace
{

// Where set, sleeps are noted here instead of slept.
std::vector<useconds_t>* notedSleeps = nullptr;

class NotedSleeps
{
public:
    NotedSleeps() { notedSleeps = &sleeps_; }
    ~NotedSleeps() { notedSleeps = nullptr; }
    NotedSleeps(const NotedSleeps&) = delete;
    NotedSleeps& operator=(const NotedSleeps&) = delete;

    const std::vector<useconds_t>& sleeps() const { return sleeps_; }

private:
    std::vector<useconds_t> sleeps_;
};

std::chrono::milliseconds durationOf(DWORD ms)
{
    const auto start = std::chrono::steady_clock::now();
    Sleep(ms);
    return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - start);
}

} // namespace

// Stands in front of the C library's, for the library as well.
extern "C" __attribute__((visibility("default"))) int usleep(useconds_t microseconds)
{
    if (notedSleeps != nullptr)
    {
        notedSleeps->push_back(microseconds);
        return 0;
    }
    static const auto next = reinterpret_cast<int (*)(useconds_t)>(dlsym(RTLD_NEXT, "usleep"));
    return next(microseconds);
}

namespace
{

TEST(Sleeping, SleepsAThousandMicrosecondsForEachMillisecond)
{
    NotedSleeps noted;
    for (const DWORD ms : {0U, 1U, 2U, 1000U, 4294967U})
    {
        Sleep(ms);
    }
    EXPECT_EQ(noted.sleeps(), (std::vector<useconds_t>{0, 1000, 2000, 1000000, 4294967000}));
}

TEST(Sleep, WrapsAroundAfter4294967Milliseconds)
{
    NotedSleeps noted;
    for (const DWORD ms : {4294968U, 4294969U, 0x80000000U, 0xFFFFFFFFU})
    {
        Sleep(ms);
    }
    EXPECT_EQ(noted.sleeps(), (std::vector<useconds_t>{704, 1704, 0, 4294966296}));
}

TEST(Sleeping, TakesItsTimeAndLeavesTheLastErrorAlone)
{
    errno = 4711;
    EXPECT_GE(durationOf(20).count(), 20);
    EXPECT_LT(durationOf(0).count(), 10000);
    EXPECT_EQ(errno, 4711);
}

TEST(Sleep, EndsWhenASignalIsHandled)
{
    struct sigaction action = {};
    action.sa_handler = [](int) {};
    struct sigaction previous = {};
    ASSERT_EQ(sigaction(SIGALRM, &action, &previous), 0);
    // Fires again and again, in case the first comes before the sleep.
    const itimerval soon = {{0, 20000}, {0, 20000}};
    ASSERT_EQ(setitimer(ITIMER_REAL, &soon, nullptr), 0);
    errno = 0;
    EXPECT_LT(durationOf(60000).count(), 30000);
    EXPECT_EQ(errno, EINTR);
    const itimerval never = {};
    setitimer(ITIMER_REAL, &never, nullptr);
    sigaction(SIGALRM, &previous, nullptr);
}

} // namespace
