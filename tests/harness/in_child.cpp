#include "harness/in_child.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <system_error>
#include <thread>
#include <unistd.h>
#include <vector>

namespace kest::test
{

namespace
{

pid_t startChild(const std::function<void()>& body)
{
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child == -1)
    {
        throw std::system_error(errno, std::generic_category(), "fork");
    }
    if (child == 0)
    {
        body();
        std::fflush(stdout);
        _exit(testing::Test::HasFailure() ? 1 : 0);
    }
    return child;
}

int statusOf(pid_t child)
{
    int status = -1;
    while (waitpid(child, &status, 0) == -1 && errno == EINTR)
    {
    }
    return status;
}

} // namespace

int statusInChild(const std::function<void()>& body)
{
    return statusOf(startChild(body));
}

int failuresInChildren(int count, const std::function<void(int)>& body)
{
    std::vector<pid_t> children;
    for (int number = 0; number < count; ++number)
    {
        children.push_back(startChild([&body, number] { body(number); }));
    }
    return static_cast<int>(
        std::count_if(children.begin(), children.end(), [](pid_t child) { return statusOf(child) != 0; }));
}

void killedInChild(const std::function<void()>& body, std::chrono::microseconds lifetime)
{
    const pid_t child = startChild(body);
    std::this_thread::sleep_for(lifetime);
    kill(child, SIGKILL);
    statusOf(child);
}

} // namespace kest::test
