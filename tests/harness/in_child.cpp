#include "harness/in_child.h"

#include <cerrno>
#include <cstdio>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace kest::test
{

int statusInChild(const std::function<void()>& body)
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
    int status = -1;
    while (waitpid(child, &status, 0) == -1 && errno == EINTR)
    {
    }
    return status;
}

} // namespace kest::test
