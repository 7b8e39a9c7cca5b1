// Parts of a test that need a process of their own.
#pragma once

#include <cstdio>
#include <grp.h>
#include <gtest/gtest.h>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace kest::test
{

inline constexpr uid_t nobody = 65534;

// Runs the body in a forked child and returns its wait status: 0 when the body came to its end without a failed
// expectation. The child's expectations report on the same output.
template <class Body>
int statusOfChild(Body body)
{
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child == 0)
    {
        body();
        std::fflush(nullptr);
        _exit(testing::Test::HasFailure() ? 1 : 0);
    }
    int status = -1;
    if (child == -1 || waitpid(child, &status, 0) != child)
    {
        throw std::runtime_error("no child process");
    }
    return status;
}

// Likewise, in a child for which permissions count: root gives its rights up there.
template <class Body>
int statusOfOrdinaryUser(Body body)
{
    return statusOfChild(
        [&body]
        {
            if (geteuid() == 0)
            {
                ASSERT_EQ(setgroups(0, nullptr), 0);
                ASSERT_EQ(setgid(nobody), 0);
                ASSERT_EQ(setuid(nobody), 0);
                // The change of user takes the process's own view in /proc away.
                ASSERT_EQ(prctl(PR_SET_DUMPABLE, 1), 0);
            }
            body();
        });
}

} // namespace kest::test
