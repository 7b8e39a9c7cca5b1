#include "ui/geometry_fields.h"

#include <cerrno>
#include <gtest/gtest.h>
#include <vector>

namespace
{

using namespace kest::test;

// What a destination holds before a call.
constexpr RECT sentinelRect = {101, 102, 103, 104};
constexpr RECT ten = {0, 0, 10, 10};

const std::vector<RECT> emptyRects = {
    {0, 0, 0, 0},  {5, 5, 5, 9},   {5, 5, 9, 5},       {9, 5, 5, 9},
    {5, 9, 9, 5},  {9, 9, 5, 5},   {0, 0, 0, highest}, {highest, 0, lowest, 1},
    {0, 0, -1, 1}, {0, 10, 10, 9},
};

// ---- Storing, asking, moving --------------------------------------------------------------------------------------

TEST(RectangleFunctions, CopyStoresAllFields)
{
    RECT dst = sentinelRect;
    const RECT src = {1, -2, highest, lowest};
    EXPECT_EQ(CopyRect(&dst, &src), 1);
    EXPECT_EQ(fields(dst), fields(src));
    EXPECT_EQ(CopyRect(&dst, &dst), 1);
    EXPECT_EQ(fields(dst), fields(src));
    EXPECT_EQ(CopyRect(&dst, nullptr), 0);
    EXPECT_EQ(fields(dst), fields(src));
    EXPECT_EQ(CopyRect(nullptr, &src), 0);
    EXPECT_EQ(CopyRect(nullptr, nullptr), 0);
}

TEST(RectangleFunctions, SetStoresTheValuesAsGiven)
{
    RECT rect = sentinelRect;
    EXPECT_EQ(SetRect(&rect, 9, lowest, -3, highest), 1);
    EXPECT_EQ(fields(rect), (Fields{9, lowest, -3, highest}));
    EXPECT_EQ(SetRect(nullptr, 1, 2, 3, 4), 0);
    EXPECT_EQ(SetRectEmpty(&rect), 1);
    EXPECT_EQ(fields(rect), (Fields{0, 0, 0, 0}));
    EXPECT_EQ(SetRectEmpty(nullptr), 0);
}

TEST(RectangleFunctions, EmptyMeansNoWidthOrNoHeight)
{
    for (const RECT& rect : emptyRects)
    {
        EXPECT_EQ(IsRectEmpty(&rect), 1) << testing::PrintToString(fields(rect));
    }
    const std::vector<RECT> filled = {{0, 0, 1, 1}, {-1, -1, 0, 0}, {lowest, lowest, highest, highest}};
    for (const RECT& rect : filled)
    {
        EXPECT_EQ(IsRectEmpty(&rect), 0) << testing::PrintToString(fields(rect));
    }
    EXPECT_EQ(IsRectEmpty(nullptr), 1);
}

TEST(RectangleFunctions, PointsAreInsideUpToAllFourEdges)
{
    const RECT rect = {-10, 20, 30, 40};
    const struct
    {
        POINT point;
        BOOL inside;
    } rows[] = {
        {{-10, 20}, 1}, {{30, 20}, 1},  {{-10, 40}, 1}, {{30, 40}, 1},     {{0, 30}, 1},
        {{-11, 30}, 0}, {{31, 30}, 0},  {{0, 19}, 0},   {{0, 41}, 0},      {{-11, 19}, 0},
        {{31, 41}, 0},  {{-11, 41}, 0}, {{31, 19}, 0},  {{lowest, 30}, 0}, {{highest, 30}, 0},
        {{0, 30}, 1},   {{30, 41}, 0},  {{31, 40}, 0},  {{0, lowest}, 0},  {{0, highest}, 0},
    };
    for (const auto& row : rows)
    {
        EXPECT_EQ(PtInRect(&rect, row.point), row.inside) << testing::PrintToString(fields(row.point));
    }
    const RECT nullRect = {0, 0, 0, 0};
    EXPECT_EQ(PtInRect(&nullRect, {0, 0}), 1);
    const RECT crossed = {10, 0, 0, 10};
    EXPECT_EQ(PtInRect(&crossed, {5, 5}), 0);
    EXPECT_EQ(PtInRect(nullptr, {0, 0}), 0);
}

TEST(PtInRect, CountsFarEdgesAsInside)
{
    EXPECT_EQ(PtInRect(&ten, {10, 10}), 1);
    EXPECT_EQ(PtInRect(&ten, {10, 0}), 1);
    EXPECT_EQ(PtInRect(&ten, {0, 10}), 1);
}

TEST(RectangleFunctions, EqualComparesEachField)
{
    const RECT rect = {1, 2, 3, 4};
    EXPECT_EQ(EqualRect(&rect, &rect), 1);
    const RECT same = rect;
    EXPECT_EQ(EqualRect(&rect, &same), 1);
    const std::vector<RECT> others = {{0, 2, 3, 4}, {1, 0, 3, 4}, {1, 2, 0, 4}, {1, 2, 3, 0}};
    for (const RECT& other : others)
    {
        EXPECT_EQ(EqualRect(&rect, &other), 0) << testing::PrintToString(fields(other));
    }
    EXPECT_EQ(EqualRect(&rect, nullptr), 0);
    EXPECT_EQ(EqualRect(nullptr, &rect), 0);
    EXPECT_EQ(EqualRect(nullptr, nullptr), 0);
}

TEST(RectangleFunctions, InflateAndOffsetWrapAround)
{
    const struct
    {
        RECT rect;
        int dx, dy;
        Fields inflated, moved;
    } rows[] = {
        {{1, 2, 3, 4}, 0, 0, {1, 2, 3, 4}, {1, 2, 3, 4}},
        {{1, 2, 3, 4}, 10, 20, {-9, -18, 13, 24}, {11, 22, 13, 24}},
        {{1, 2, 3, 4}, -10, -20, {11, 22, -7, -16}, {-9, -18, -7, -16}},
        {{lowest, lowest, highest, highest},
         1,
         1,
         {highest, highest, lowest, lowest},
         {lowest + 1, lowest + 1, lowest, lowest}},
        {{0, 0, 0, 0}, lowest, highest, {lowest, -highest, lowest, highest}, {lowest, highest, lowest, highest}},
        {{-1, 1, -1, 1},
         lowest,
         lowest,
         {highest, lowest + 1, highest, lowest + 1},
         {highest, lowest + 1, highest, lowest + 1}},
    };
    for (const auto& row : rows)
    {
        RECT rect = row.rect;
        EXPECT_EQ(InflateRect(&rect, row.dx, row.dy), 1);
        EXPECT_EQ(fields(rect), row.inflated);
        rect = row.rect;
        EXPECT_EQ(OffsetRect(&rect, row.dx, row.dy), 1);
        EXPECT_EQ(fields(rect), row.moved);
    }
    EXPECT_EQ(InflateRect(nullptr, 1, 1), 0);
    EXPECT_EQ(OffsetRect(nullptr, 1, 1), 0);
}

// ---- Combining ----------------------------------------------------------------------------------------------------

using Combination = BOOL (*)(RECT*, const RECT*, const RECT*);

struct CombinationRow
{
    RECT a, b;
    BOOL result;
    Fields stored;
};

// Every row into a destination of its own, over the first and over the second input.
template <class Rows>
void expectCombinations(Combination combine, const Rows& rows)
{
    for (const CombinationRow& row : rows)
    {
        const auto inputs = testing::PrintToString(fields(row.a)) + testing::PrintToString(fields(row.b));
        RECT dst = sentinelRect;
        EXPECT_EQ(combine(&dst, &row.a, &row.b), row.result) << inputs;
        EXPECT_EQ(fields(dst), row.stored) << inputs;

        RECT a = row.a;
        EXPECT_EQ(combine(&a, &a, &row.b), row.result) << inputs;
        EXPECT_EQ(fields(a), row.stored) << inputs;

        RECT b = row.b;
        EXPECT_EQ(combine(&b, &row.a, &b), row.result) << inputs;
        EXPECT_EQ(fields(b), row.stored) << inputs;
    }
}

// Refused without touching the destination: an empty or absent input, an absent destination.
void expectEmptyInputsRefused(Combination combine)
{
    RECT dst = sentinelRect;
    for (const RECT& empty : emptyRects)
    {
        EXPECT_EQ(combine(&dst, &empty, &ten), 0);
        EXPECT_EQ(combine(&dst, &ten, &empty), 0);
        EXPECT_EQ(combine(&dst, &empty, &empty), 0);
    }
    EXPECT_EQ(combine(&dst, nullptr, &ten), 0);
    EXPECT_EQ(combine(&dst, &ten, nullptr), 0);
    EXPECT_EQ(combine(&dst, nullptr, nullptr), 0);
    EXPECT_EQ(fields(dst), fields(sentinelRect));
    EXPECT_EQ(combine(nullptr, &ten, &ten), 0);
    EXPECT_EQ(combine(nullptr, nullptr, nullptr), 0);
}

TEST(RectangleFunctions, IntersectionIsWhatBothCover)
{
    const CombinationRow rows[] = {
        {{0, 0, 10, 10}, {5, 5, 15, 15}, 1, {5, 5, 10, 10}},
        {{5, 5, 15, 15}, {0, 0, 10, 10}, 1, {5, 5, 10, 10}},
        {{0, 0, 10, 10}, {0, 0, 10, 10}, 1, {0, 0, 10, 10}},
        {{0, 0, 10, 10}, {2, 3, 4, 5}, 1, {2, 3, 4, 5}},
        {{0, 0, 10, 10}, {-5, 4, 15, 6}, 1, {0, 4, 10, 6}},
        {{0, 0, 10, 10}, {10, 0, 20, 10}, 0, {10, 0, 10, 10}},
        {{0, 0, 10, 10}, {0, 10, 10, 20}, 0, {0, 10, 10, 10}},
        {{0, 0, 10, 10}, {20, 0, 30, 10}, 0, {20, 0, 10, 10}},
        {{0, 0, 10, 10}, {20, 20, 30, 30}, 0, {20, 20, 10, 10}},
        {{lowest, lowest, highest, highest}, {-1, -1, 1, 1}, 1, {-1, -1, 1, 1}},
    };
    expectCombinations(IntersectRect, rows);
}

TEST(RectangleFunctions, IntersectionRefusesEmptyInputs)
{
    expectEmptyInputsRefused(IntersectRect);
}

TEST(IntersectRect, LeavesDestinationForEmptyInputs)
{
    RECT dst = sentinelRect;
    const RECT empty = {3, 3, 3, 9};
    EXPECT_EQ(IntersectRect(&dst, &empty, &ten), 0);
    EXPECT_EQ(fields(dst), fields(sentinelRect));
}

TEST(IntersectRect, StoresCrossedEdgesOfDisjointRectangles)
{
    RECT dst = sentinelRect;
    const RECT far = {20, 20, 30, 30};
    EXPECT_EQ(IntersectRect(&dst, &ten, &far), 0);
    EXPECT_EQ(fields(dst), (Fields{20, 20, 10, 10}));
}

TEST(RectangleFunctions, UnionIsTheSmallestRectangleAroundBoth)
{
    const CombinationRow rows[] = {
        {{0, 0, 10, 10}, {5, 5, 15, 15}, 1, {0, 0, 15, 15}},
        {{0, 0, 10, 10}, {20, 20, 30, 30}, 1, {0, 0, 30, 30}},
        {{20, 20, 30, 30}, {0, 0, 10, 10}, 1, {0, 0, 30, 30}},
        {{0, 0, 10, 10}, {2, 3, 4, 5}, 1, {0, 0, 10, 10}},
        {{0, 0, 10, 10}, {-5, 4, 15, 6}, 1, {-5, 0, 15, 10}},
        {{lowest, 0, 0, 1}, {0, 0, highest, 1}, 1, {lowest, 0, highest, 1}},
    };
    expectCombinations(UnionRect, rows);
}

TEST(RectangleFunctions, UnionRefusesEmptyInputs)
{
    expectEmptyInputsRefused(UnionRect);
}

TEST(UnionRect, RefusesEmptyInputs)
{
    RECT dst = sentinelRect;
    const RECT empty = {3, 3, 3, 9};
    EXPECT_EQ(UnionRect(&dst, &ten, &empty), 0);
    EXPECT_EQ(UnionRect(&dst, &empty, &ten), 0);
    EXPECT_EQ(fields(dst), fields(sentinelRect));
}

TEST(RectangleFunctions, SubtractionGoesByTheEdgesThatAreSpanned)
{
    const CombinationRow rows[] = {
        // b covers a.
        {{0, 0, 10, 10}, {-1, -1, 11, 11}, 0, {0, 0, 0, 0}},
        {{0, 0, 10, 10}, {0, 0, 10, 10}, 0, {0, 0, 0, 0}},
        // b spans a horizontally: the edges that lie strictly beyond b's move.
        {{0, 0, 10, 10}, {-1, -1, 11, 5}, 1, {0, 5, 10, 10}},
        {{0, 0, 10, 10}, {0, -1, 10, 5}, 1, {0, 5, 10, 10}},
        {{0, 0, 10, 10}, {-1, 5, 11, 11}, 1, {0, 0, 10, 5}},
        {{0, 0, 10, 10}, {-1, 3, 11, 7}, 1, {0, 0, 10, 10}},
        {{0, 0, 10, 10}, {0, 0, 10, 5}, 1, {0, 0, 10, 10}},
        {{0, 0, 10, 10}, {0, 5, 10, 10}, 1, {0, 0, 10, 10}},
        // ... also when they do not meet.
        {{0, 20, 10, 30}, {0, 0, 10, 5}, 1, {0, 5, 10, 30}},
        {{0, 0, 10, 10}, {0, 20, 10, 30}, 1, {0, 0, 10, 20}},
        // b spans a vertically.
        {{0, 0, 10, 10}, {-1, -1, 5, 11}, 1, {5, 0, 10, 10}},
        {{0, 0, 10, 10}, {-1, 0, 5, 10}, 1, {5, 0, 10, 10}},
        {{0, 0, 10, 10}, {5, -1, 11, 11}, 1, {0, 0, 5, 10}},
        {{0, 0, 10, 10}, {3, -1, 7, 11}, 1, {0, 0, 10, 10}},
        {{0, 0, 10, 10}, {0, -1, 5, 11}, 1, {0, 0, 10, 10}},
        {{0, 0, 10, 10}, {5, -1, 10, 11}, 1, {0, 0, 10, 10}},
        {{20, 0, 30, 10}, {0, 0, 5, 10}, 1, {5, 0, 30, 10}},
        {{0, 0, 10, 10}, {20, 0, 30, 10}, 1, {0, 0, 20, 10}},
        // Neither: a corner, the middle, far away.
        {{0, 0, 10, 10}, {5, 5, 15, 15}, 1, {0, 0, 10, 10}},
        {{0, 0, 10, 10}, {2, 2, 8, 8}, 1, {0, 0, 10, 10}},
        {{0, 0, 10, 10}, {1, -1, 11, 5}, 1, {0, 0, 10, 10}},
        {{0, 0, 10, 10}, {-1, -1, 9, 5}, 1, {0, 0, 10, 10}},
        {{0, 0, 10, 10}, {20, 20, 30, 30}, 1, {0, 0, 10, 10}},
        // b is empty.
        {{0, 0, 10, 10}, {5, 5, 5, 9}, 1, {0, 0, 10, 10}},
        {{0, 0, 10, 10}, {-1, 11, 11, -1}, 1, {0, 0, 10, 10}},
        // The ends of the range.
        {{lowest, lowest, highest, highest}, {lowest, lowest, highest, highest}, 0, {0, 0, 0, 0}},
        {{0, lowest + 1, 1, 0}, {lowest, lowest, highest, -1}, 1, {0, -1, 1, 0}},
    };
    expectCombinations(SubtractRect, rows);
}

TEST(RectangleFunctions, SubtractionRefusesAnEmptyFirstRectangle)
{
    RECT dst = sentinelRect;
    for (const RECT& empty : emptyRects)
    {
        EXPECT_EQ(SubtractRect(&dst, &empty, &ten), 0);
        EXPECT_EQ(SubtractRect(&dst, &empty, &empty), 0);
    }
    EXPECT_EQ(SubtractRect(&dst, nullptr, &ten), 0);
    EXPECT_EQ(SubtractRect(&dst, nullptr, nullptr), 0);
    EXPECT_EQ(fields(dst), fields(sentinelRect));
    EXPECT_EQ(SubtractRect(nullptr, &ten, &ten), 0);
}

TEST(RectangleFunctions, SubtractingNothingLeavesAll)
{
    for (const RECT& empty : emptyRects)
    {
        RECT dst = sentinelRect;
        EXPECT_EQ(SubtractRect(&dst, &ten, &empty), 1);
        EXPECT_EQ(fields(dst), fields(ten));
    }
}

TEST(RectangleFunctions, SubtractionRefusesAnAbsentRectangle)
{
    RECT dst = sentinelRect;
    EXPECT_EQ(SubtractRect(&dst, &ten, nullptr), 0);
    EXPECT_EQ(SubtractRect(&dst, nullptr, &ten), 0);
    EXPECT_EQ(fields(dst), fields(sentinelRect));
    EXPECT_EQ(SubtractRect(nullptr, &ten, &ten), 0);
}

TEST(SubtractRect, LeavesDestinationForAnEmptyFirstRectangle)
{
    RECT dst = sentinelRect;
    const RECT empty = {3, 3, 3, 9};
    EXPECT_EQ(SubtractRect(&dst, &empty, &ten), 0);
    EXPECT_EQ(fields(dst), fields(sentinelRect));
}

TEST(SubtractRect, KeepsEdgesThatCoincide)
{
    RECT dst = sentinelRect;
    const RECT upperHalf = {0, 0, 10, 5};
    EXPECT_EQ(SubtractRect(&dst, &ten, &upperHalf), 1);
    EXPECT_EQ(fields(dst), (Fields{0, 0, 10, 10}));
}

TEST(SubtractRect, MovesEdgesTowardsARectangleThatDoesNotMeetIt)
{
    RECT dst = sentinelRect;
    const RECT above = {-1, -20, 11, -15};
    EXPECT_EQ(SubtractRect(&dst, &ten, &above), 1);
    EXPECT_EQ(fields(dst), (Fields{0, -15, 10, 10}));
}

// ---- MulDiv -------------------------------------------------------------------------------------------------------

TEST(RectangleFunctions, MultipliesAndDividesIn64Bits)
{
    const struct
    {
        int a, b, c, result;
    } rows[] = {
        {6, 4, 3, 8},
        {7, 1, 2, 3},
        {-7, 1, 2, -3},
        {7, -1, 2, -3},
        {7, 1, -2, -3},
        {-7, -1, -2, -3},
        {0, 5, 7, 0},
        {1, 1, 0, -1},
        {0, 0, 0, -1},
        {lowest, lowest, 0, -1},
        {highest, 2, 1, -1},
        {highest, 2, 2, highest},
        {highest, highest, highest, highest},
        {highest, 1, 1, highest},
        {lowest, 1, 1, lowest},
        {lowest, 1, -1, -1},
        {lowest, -1, 1, -1},
        {lowest, -1, -1, lowest},
        {lowest, lowest, lowest, lowest},
        {lowest, lowest, highest, -1},
        {lowest, lowest, 1, -1},
        {lowest, highest, highest, lowest},
        {lowest, 3, 3, lowest},
        // One above and one below the range.
        {1 << 30, 2, 1, -1},
        {-(1 << 30), 2, 1, lowest},
        {-(1 << 30) - 1, 2, 1, -1},
    };
    for (const auto& row : rows)
    {
        EXPECT_EQ(MulDiv(row.a, row.b, row.c), row.result) << row.a << " * " << row.b << " / " << row.c;
    }
}

TEST(MulDiv, Truncates)
{
    EXPECT_EQ(MulDiv(7, 1, 2), 3);
    EXPECT_EQ(MulDiv(-7, 1, 2), -3);
}

TEST(RectangleFunctions, LeaveTheLastErrorAlone)
{
    RECT rect = ten;
    errno = 4711;
    CopyRect(nullptr, nullptr);
    SetRect(&rect, 1, 2, 3, 4);
    InflateRect(nullptr, 1, 1);
    IntersectRect(&rect, &ten, nullptr);
    UnionRect(&rect, &ten, nullptr);
    SubtractRect(&rect, nullptr, &ten);
    MulDiv(1, 1, 0);
    EXPECT_EQ(errno, 4711);
}

} // namespace
