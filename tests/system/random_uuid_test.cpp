#include "harness/sentinel_buffer.h"
#include "kest/kernel/environment.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <string>

using kest::test::SentinelBuffer;

namespace
{

using Buffer = SentinelBuffer<char, 40>;

// The identifier as its format is written down, from the same generator.
std::string model()
{
    std::string text;
    for (int round = 0; round < 16; ++round)
    {
        const auto value = static_cast<unsigned>(std::rand());
        std::array<char, 8> part{};
        if (round == 6)
        {
            std::snprintf(part.data(), part.size(), "4%x", value % 255 % 15);
        }
        else if (round == 8)
        {
            const int variant = std::rand();
            std::snprintf(part.data(), part.size(), "%c%x", "89ab"[variant & 3], value % 255 % 15);
        }
        else
        {
            std::snprintf(part.data(), part.size(), "%02x", value % 255);
        }
        text += part.data();
        if (round == 3 || round == 5 || round == 7 || round == 9)
        {
            text += '-';
        }
    }
    return text;
}

TEST(RandomIdentifiers, FollowTheGenerator)
{
    for (unsigned seed = 0; seed < 2000; ++seed)
    {
        std::srand(seed);
        const std::string expected = model();
        const int next = std::rand();
        std::srand(seed);
        Buffer out;
        EXPECT_EQ(random_uuid(out.data(), 37), out.data());
        EXPECT_EQ(out.contents(), Buffer::startingWith(expected + '\0'));
        EXPECT_EQ(std::rand(), next) << "the generator was called another number of times";
    }
}

TEST(RandomIdentifiers, HaveTheirForm)
{
    for (int round = 0; round < 500; ++round)
    {
        Buffer out;
        ASSERT_EQ(random_uuid(out.data(), 40), out.data());
        const std::string text = out.data();
        ASSERT_EQ(text.size(), 36U);
        for (std::size_t place = 0; place < text.size(); ++place)
        {
            const bool hyphen = place == 8 || place == 13 || place == 18 || place == 23;
            const std::string allowed = hyphen ? "-" : place == 14 ? "4" : place == 19 ? "89ab" : "0123456789abcdef";
            EXPECT_NE(allowed.find(text[place]), std::string::npos) << text << " at " << place;
        }
    }
}

TEST(RandomIdentifiers, RefuseABufferThatIsTooSmall)
{
    std::srand(1);
    const int first = std::rand();
    std::srand(1);
    for (const unsigned size : {0U, 1U, 35U, 36U})
    {
        Buffer out;
        EXPECT_EQ(random_uuid(out.data(), size), nullptr);
        EXPECT_EQ(out.contents(), Buffer::untouched());
    }
    EXPECT_EQ(random_uuid(nullptr, 100), nullptr);
    EXPECT_EQ(std::rand(), first);
}

TEST(RandomIdentifiers, TakeAnyLargerBuffer)
{
    for (const unsigned size : {37U, 38U, 0x80000000U, 0xFFFFFFFFU})
    {
        Buffer out;
        EXPECT_EQ(random_uuid(out.data(), size), out.data());
        EXPECT_EQ(out.contents().substr(36), std::string("\0\x5A\x5A\x5A", 4));
    }
}

} // namespace
