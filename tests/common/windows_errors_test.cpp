#include "common/windows_errors.h"

#include <cerrno>
#include <gtest/gtest.h>

using kest::common::windowsErrorOf;

namespace
{

TEST(WindowsErrors, AreNamedAfterTheSystems)
{
    struct
    {
        int system, windows;
    } const cases[] = {
        {ENOENT, 2},   {ENOTDIR, 3}, {ELOOP, 3},     {EMFILE, 4},         {ENFILE, 4},  {EACCES, 5},
        {EPERM, 5},    {EISDIR, 5},  {ENOMEM, 8},    {EROFS, 19},         {EINVAL, 87}, {ENOSPC, 112},
        {EDQUOT, 112}, {EBUSY, 170}, {ETXTBSY, 170}, {ENAMETOOLONG, 206},
    };
    for (const auto& [system, windows] : cases)
    {
        EXPECT_EQ(windowsErrorOf(system), windows) << system;
    }
}

TEST(WindowsErrors, AreGeneralForWhatHasNoNameOfItsOwn)
{
    for (const int system : {EIO, EEXIST, EXDEV, ENOTEMPTY})
    {
        EXPECT_EQ(windowsErrorOf(system), 31) << system;
    }
}

} // namespace
