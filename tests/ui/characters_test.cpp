#include "kest/user_interface/strings.h"

#include <gtest/gtest.h>

namespace
{

TEST(Characters, AreFourBytesAndOneStepEach)
{
    const wchar_t text[] = L"a\x1F600z";
    EXPECT_EQ(CharNextW(text), text + 1);
    EXPECT_EQ(CharNextW(text + 1), text + 2);
    EXPECT_EQ(CharNextW(text + 2), text + 3);
}

TEST(CharNextW, StepsOverTheTerminator)
{
    const wchar_t text[] = L"";
    EXPECT_EQ(CharNextW(text), text + 1);
}

} // namespace
