#include "kest/user_interface/text_shaping.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <gtest/gtest.h>
#include <string>

namespace
{

constexpr int untouched = 0x5A5A5A5A;
constexpr auto outOfMemory = static_cast<HRESULT>(0x8007000E);

// Items and a count full of sentinels; what they must look like after a call.
class Itemization
{
public:
    Itemization() { std::memset(items_.data(), 0x5A, sizeof items_); }

    HRESULT of(const wchar_t* text, int length, int room)
    {
        errno = 4711;
        const HRESULT result = ScriptItemize(text, length, room, nullptr, nullptr, items_.data(), &count_);
        EXPECT_EQ(errno, 4711);
        return result;
    }

    void expectUntouched() const
    {
        EXPECT_EQ(count_, untouched);
        expectItems({untouched, untouched, untouched});
    }

    void expectOneItem(int length) const
    {
        EXPECT_EQ(count_, 1);
        expectItems({0, length, untouched});
    }

private:
    void expectItems(const std::array<int, 3>& positions) const
    {
        Itemization expected;
        for (std::size_t index = 0; index < positions.size(); ++index)
        {
            expected.items_[index].iCharPos = positions[index];
        }
        EXPECT_EQ(std::memcmp(items_.data(), expected.items_.data(), sizeof items_), 0);
    }

    std::array<SCRIPT_ITEM, 3> items_;
    int count_ = untouched;
};

TEST(TextShaping, TakesTheTextForOneItem)
{
    for (const int room : {2, 3, 100})
    {
        Itemization itemization;
        EXPECT_EQ(itemization.of(L"Hello", 5, room), 0);
        itemization.expectOneItem(5);
    }
    Itemization one;
    EXPECT_EQ(one.of(L"x", 1, 2), 0);
    one.expectOneItem(1);
}

TEST(TextShaping, NeedsRoomForTwoItems)
{
    for (const int room : {1, 0, -1})
    {
        Itemization itemization;
        EXPECT_EQ(itemization.of(L"Hello", 5, room), outOfMemory);
        itemization.expectUntouched();
    }
}

TEST(TextShaping, HasNothingToDoWithoutText)
{
    const struct
    {
        const wchar_t* text;
        int length, room;
    } rows[] = {{nullptr, 5, 10}, {L"Hello", 0, 10}, {L"Hello", -1, 10}, {nullptr, 5, 1}, {L"Hello", 0, 0}};
    for (const auto& row : rows)
    {
        Itemization itemization;
        EXPECT_EQ(itemization.of(row.text, row.length, row.room), 0);
        itemization.expectUntouched();
    }
    EXPECT_EQ(ScriptItemize(nullptr, 5, 10, nullptr, nullptr, nullptr, nullptr), 0);
    EXPECT_EQ(ScriptItemize(L"Hello", 5, 1, nullptr, nullptr, nullptr, nullptr), outOfMemory);
}

TEST(ScriptItemize, TakesTheWholeTextForOneItem)
{
    Itemization itemization;
    EXPECT_EQ(itemization.of(L"abc \x5D0\x5D1\x5D2 \x4E2D", 9, 10), 0);
    itemization.expectOneItem(9);
}

TEST(ScriptItemize, LeavesTheAnalysisUnwritten)
{
    std::array<SCRIPT_ITEM, 2> items = {};
    items[0].a.eScript = 0x155;
    items[1].a.s.uBidiLevel = 3;
    int count = 0;
    EXPECT_EQ(ScriptItemize(L"abc", 3, 2, nullptr, nullptr, items.data(), &count), 0);
    EXPECT_EQ(items[0].a.eScript, 0x155);
    EXPECT_EQ(items[1].a.s.uBidiLevel, 3);
}

TEST(ScriptItemize, AcceptsAnAbsentText)
{
    Itemization itemization;
    EXPECT_EQ(itemization.of(nullptr, 5, 10), 0);
    itemization.expectUntouched();
}

// ---- Layout -------------------------------------------------------------------------------------------------------

TEST(TextShaping, LaysRunsOutInTheirOrder)
{
    const std::array<int, 4> filled = {0, 1, 2, untouched};
    const std::array<int, 4> empty = {untouched, untouched, untouched, untouched};
    const BYTE levels[] = {0, 0, 0};
    errno = 4711;

    auto visual = empty;
    auto logical = empty;
    EXPECT_EQ(ScriptLayout(3, levels, visual.data(), logical.data()), 0);
    EXPECT_EQ(visual, filled);
    EXPECT_EQ(logical, filled);

    visual = empty;
    EXPECT_EQ(ScriptLayout(3, levels, visual.data(), nullptr), 0);
    EXPECT_EQ(visual, filled);
    logical = empty;
    EXPECT_EQ(ScriptLayout(3, nullptr, nullptr, logical.data()), 0);
    EXPECT_EQ(logical, filled);

    for (const int runs : {0, -1})
    {
        visual = logical = empty;
        EXPECT_EQ(ScriptLayout(runs, levels, visual.data(), logical.data()), 0);
        EXPECT_EQ(visual, empty);
        EXPECT_EQ(logical, empty);
    }
    EXPECT_EQ(errno, 4711);
}

TEST(ScriptLayout, KeepsTheOrderOfRuns)
{
    const BYTE levels[] = {1, 1};
    int visual[] = {untouched, untouched};
    int logical[] = {untouched, untouched};
    EXPECT_EQ(ScriptLayout(2, levels, visual, logical), 0);
    EXPECT_EQ(visual[0], 0);
    EXPECT_EQ(visual[1], 1);
    EXPECT_EQ(logical[0], 0);
    EXPECT_EQ(logical[1], 1);
}

TEST(ScriptLayout, AcceptsAbsentArrays)
{
    EXPECT_EQ(ScriptLayout(3, nullptr, nullptr, nullptr), 0);
    EXPECT_EQ(ScriptLayout(0, nullptr, nullptr, nullptr), 0);
}

} // namespace
