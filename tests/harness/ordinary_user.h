// A part of a test for which permissions count, whoever runs it.
#pragma once

#include "harness/in_child.h"

#include <grp.h>
#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <unistd.h>

namespace kest::test
{

// Runs the body in a child, in which root gives its rights up; see statusInChild.
template <class Body>
int statusOfOrdinaryUser(Body body)
{
    return statusInChild(
        [&body]
        {
            constexpr uid_t nobody = 65534;
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
