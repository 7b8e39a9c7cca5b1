// The macros min and max, on request and after the standard headers.
#include <gtest/gtest.h>

#define KEST_WINDOWS_MIN_MAX
#include <windows.h>

TEST(WindowsWords, MinAndMaxAreThereOnRequest)
{
    EXPECT_EQ(max(2, 3L), 3);
    EXPECT_EQ(min(2, 3L), 2);
}
