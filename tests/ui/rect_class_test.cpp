#include "ui/geometry_fields.h"

#include <gtest/gtest.h>
#include <type_traits>
#include <utility>

namespace
{

using namespace kest::test;

constexpr RECT plain = {1, 2, 31, 42};
const RECT* const noRect = nullptr;

// The rectangle after a change made by `change`.
template <class Change>
Fields after(const CRect& before, Change change)
{
    CRect rect = before;
    change(rect);
    return fields(rect);
}

// ---- Construction and assignment ----------------------------------------------------------------------------------

TEST(RectangleClass, ConstructsFromEverything)
{
    EXPECT_EQ(fields(CRect()), (Fields{0, 0, 0, 0}));
    EXPECT_EQ(fields(CRect(1, 2, 3, 4)), (Fields{1, 2, 3, 4}));
    EXPECT_EQ(fields(CRect(plain)), fields(plain));
    EXPECT_EQ(fields(CRect(&plain)), fields(plain));
    EXPECT_EQ(fields(CRect(noRect)), (Fields{0, 0, 0, 0}));
    EXPECT_EQ(fields(CRect(POINT{1, 2}, SIZE{3, 4})), (Fields{1, 2, 4, 6}));
    EXPECT_EQ(fields(CRect(CPoint(1, 2), CSize(3, 4))), (Fields{1, 2, 4, 6}));
    EXPECT_EQ(fields(CRect(POINT{highest, lowest}, SIZE{1, -1})), (Fields{highest, lowest, lowest, highest}));
    EXPECT_EQ(fields(CRect(POINT{1, 2}, POINT{3, 4})), (Fields{1, 2, 3, 4}));
    EXPECT_EQ(fields(CRect(CPoint(1, 2), CPoint(3, 4))), (Fields{1, 2, 3, 4}));
    CRect copied = CRect(plain);
    EXPECT_EQ(fields(CRect(copied)), fields(plain));
}

TEST(RectangleClass, AssignsCopiesAndClears)
{
    CRect rect;
    EXPECT_EQ(&(rect = plain), &rect);
    EXPECT_EQ(fields(rect), fields(plain));
    CRect other;
    other = rect;
    EXPECT_EQ(fields(other), fields(plain));

    EXPECT_EQ(rect.SetRect(5, 6, 7, 8), 1);
    EXPECT_EQ(fields(rect), (Fields{5, 6, 7, 8}));
    EXPECT_EQ(rect.SetRect(POINT{9, 10}, CPoint(11, 12)), 1);
    EXPECT_EQ(fields(rect), (Fields{9, 10, 11, 12}));
    EXPECT_EQ(rect.CopyRect(&plain), 1);
    EXPECT_EQ(fields(rect), fields(plain));
    EXPECT_EQ(rect.CopyRect(nullptr), 0);
    EXPECT_EQ(fields(rect), fields(plain));
    EXPECT_EQ(rect.SetRectEmpty(), 1);
    EXPECT_EQ(fields(rect), (Fields{0, 0, 0, 0}));
}

TEST(RectangleClass, PassesAsAPointerToItself)
{
    CRect rect(plain);
    RECT* const pointer = rect;
    EXPECT_EQ(pointer, &rect);
    const CRect constant(plain);
    const RECT* const constantPointer = constant;
    EXPECT_EQ(constantPointer, &constant);
    EXPECT_EQ(OffsetRect(rect, 1, 1), 1);
    EXPECT_EQ(fields(rect), (Fields{2, 3, 32, 43}));
    EXPECT_EQ(EqualRect(rect, constant), 0);
}

// ---- Measures and corners -----------------------------------------------------------------------------------------

TEST(RectangleClass, MeasuresWithWrapAround)
{
    const struct
    {
        CRect rect;
        Pair size;
    } rows[] = {
        {{1, 2, 31, 42}, {30, 40}},
        {{31, 42, 1, 2}, {-30, -40}},
        {{lowest, -1, highest, highest}, {-1, lowest}},
        {{1, lowest, lowest, 0}, {highest, lowest}},
        {{0, 0, 0, 0}, {0, 0}},
    };
    for (const auto& row : rows)
    {
        EXPECT_EQ((Pair{row.rect.Width(), row.rect.Height()}), row.size);
        EXPECT_EQ(fields(row.rect.Size()), row.size);
    }
}

TEST(RectangleClass, ShowsItsCornersInPlace)
{
    CRect rect(plain);
    const CRect& constant = rect;
    EXPECT_EQ(fields(rect.TopLeft()), (Pair{1, 2}));
    EXPECT_EQ(fields(rect.BottomRight()), (Pair{31, 42}));
    EXPECT_EQ(fields(constant.TopLeft()), (Pair{1, 2}));
    EXPECT_EQ(fields(constant.BottomRight()), (Pair{31, 42}));
    static_assert(std::is_same_v<decltype(rect.TopLeft()), CPoint&>);
    static_assert(std::is_same_v<decltype(constant.TopLeft()), const CPoint&>);

    rect.TopLeft() = CPoint(5, 6);
    rect.BottomRight() += CSize(100, 200);
    EXPECT_EQ(fields(rect), (Fields{5, 6, 131, 242}));
    EXPECT_EQ(fields(constant.TopLeft()), (Pair{5, 6}));
}

// Kept apart from their callers, so that the compiler must go by the types alone.
[[gnu::noinline]] int leftAfterMovingPoint(CRect& rect, CPoint& point)
{
    const int before = rect.left;
    point.x = before + 1;
    return rect.left;
}

[[gnu::noinline]] int leftAfterMovingPlainPoint(RECT& rect, POINT& point)
{
    const int before = rect.left;
    point.x = before + 1;
    return rect.left;
}

TEST(RectangleClass, SeesWritesThroughItsCornersAtOnce)
{
    CRect rect(plain);
    EXPECT_EQ(leftAfterMovingPoint(rect, rect.TopLeft()), 2);
    EXPECT_EQ(leftAfterMovingPlainPoint(rect, rect.TopLeft()), 3);
}

TEST(RectangleClass, FindsItsCenter)
{
    const struct
    {
        CRect rect;
        Pair center;
    } rows[] = {
        {{0, 0, 10, 20}, {5, 10}},
        {{-3, -3, 0, 0}, {-1, -1}},
        {{0, 0, 3, 5}, {1, 2}},
        {{-10, -20, 10, 20}, {0, 0}},
        {{highest, lowest, 1, -1}, {lowest / 2, highest / 2}},
        {{lowest, highest, lowest, highest}, {0, -1}},
    };
    for (const auto& row : rows)
    {
        EXPECT_EQ(fields(row.rect.CenterPoint()), row.center);
    }
}

// ---- Questions ----------------------------------------------------------------------------------------------------

TEST(RectangleClass, AnswersWhetherItIsEmptyOrNull)
{
    const struct
    {
        CRect rect;
        BOOL empty, null;
    } rows[] = {
        {{0, 0, 0, 0}, 1, 1},
        {{0, 0, 1, 1}, 0, 0},
        {{5, 5, 5, 6}, 1, 0},
        {{5, 5, 6, 5}, 1, 0},
        {{6, 5, 5, 6}, 1, 0},
        {{5, 6, 6, 5}, 1, 0},
        {{1, 0, 0, 0}, 1, 0},
        {{0, 1, 0, 0}, 1, 0},
        {{0, 0, 1, 0}, 1, 0},
        {{0, 0, 0, 1}, 1, 0},
        {{-1, -1, 0, 0}, 0, 0},
        {{0, 0, highest, highest}, 0, 0},
        // These wrap around: the first to less than one, the second, right of its left edge, to more.
        {{-1, 0, highest, 1}, 1, 0},
        {{2, 0, lowest + 2, 1}, 1, 0},
        {{highest, 0, lowest, 1}, 0, 0},
        {{0, highest, 1, lowest}, 0, 0},
    };
    for (const auto& row : rows)
    {
        EXPECT_EQ(row.rect.IsRectEmpty(), row.empty) << testing::PrintToString(fields(row.rect));
        EXPECT_EQ(row.rect.IsRectNull(), row.null) << testing::PrintToString(fields(row.rect));
    }
}

TEST(CRect, IsEmptyByItsWrappedWidthAndHeight)
{
    const CRect wide(-1, 0, highest, 1);
    EXPECT_EQ(wide.IsRectEmpty(), 1);
    EXPECT_EQ(IsRectEmpty(&wide), 0);
    const CRect high(0, -1, 1, highest);
    EXPECT_EQ(high.IsRectEmpty(), 1);
    EXPECT_EQ(IsRectEmpty(&high), 0);
}

TEST(CRect, CountsPointsOnFarEdges)
{
    const CRect rect(0, 0, 10, 10);
    EXPECT_EQ(rect.PtInRect(POINT{10, 10}), 1);
    EXPECT_EQ(rect.PtInRect(CPoint(0, 10)), 1);
    EXPECT_EQ(rect.PtInRect(CPoint(11, 10)), 0);
    EXPECT_EQ(rect.PtInRect(CPoint(10, 11)), 0);
    EXPECT_EQ(rect.PtInRect(CPoint(0, 0)), 1);
    EXPECT_EQ(rect.PtInRect(CPoint(-1, 0)), 0);
}

TEST(RectangleClass, ComparesAllFields)
{
    const CRect rect(plain);
    EXPECT_EQ(rect.EqualRect(&plain), 1);
    EXPECT_EQ(rect.EqualRect(nullptr), 0);
    EXPECT_EQ(rect == plain, 1);
    EXPECT_EQ(rect != plain, 0);
    EXPECT_EQ(rect == CRect(plain), 1);
    EXPECT_EQ(rect != CRect(plain), 0);
    for (const RECT& other : {RECT{0, 2, 31, 42}, RECT{1, 0, 31, 42}, RECT{1, 2, 0, 42}, RECT{1, 2, 31, 0}})
    {
        EXPECT_EQ(rect.EqualRect(&other), 0);
        EXPECT_EQ(rect == other, 0);
        EXPECT_EQ(rect != other, 1);
        EXPECT_EQ(rect == CRect(other), 0);
        EXPECT_EQ(rect != CRect(other), 1);
    }
}

// ---- Exchanging edges ---------------------------------------------------------------------------------------------

TEST(RectangleClass, ExchangesLeftAndRight)
{
    CRect rect(plain);
    rect.SwapLeftRight();
    EXPECT_EQ(fields(rect), (Fields{31, 2, 1, 42}));
    RECT structure = plain;
    CRect::SwapLeftRight(&structure);
    EXPECT_EQ(fields(structure), (Fields{31, 2, 1, 42}));
    CRect::SwapLeftRight(rect);
    EXPECT_EQ(fields(rect), fields(plain));
    CRect::SwapLeftRight(nullptr);
}

TEST(RectangleClass, NormalizesEachDirectionByItself)
{
    const auto normalize = [](CRect& rect) { rect.NormalizeRect(); };
    EXPECT_EQ(after(CRect(10, 20, 0, 5), normalize), (Fields{0, 5, 10, 20}));
    EXPECT_EQ(after(CRect(10, 5, 0, 20), normalize), (Fields{0, 5, 10, 20}));
    EXPECT_EQ(after(CRect(0, 20, 10, 5), normalize), (Fields{0, 5, 10, 20}));
    EXPECT_EQ(after(CRect(0, 5, 10, 20), normalize), (Fields{0, 5, 10, 20}));
    EXPECT_EQ(after(CRect(7, 7, 7, 7), normalize), (Fields{7, 7, 7, 7}));
    EXPECT_EQ(after(CRect(highest, 0, lowest, 0), normalize), (Fields{lowest, 0, highest, 0}));
}

// ---- Moving -------------------------------------------------------------------------------------------------------

TEST(RectangleClass, Moves)
{
    const Fields moved = {11, 22, 41, 62};
    EXPECT_EQ(after(plain, [](CRect& rect) { EXPECT_EQ(rect.OffsetRect(10, 20), 1); }), moved);
    EXPECT_EQ(after(plain, [](CRect& rect) { EXPECT_EQ(rect.OffsetRect(POINT{10, 20}), 1); }), moved);
    EXPECT_EQ(after(plain, [](CRect& rect) { EXPECT_EQ(rect.OffsetRect(CSize(10, 20)), 1); }), moved);
    EXPECT_EQ(after(plain, [](CRect& rect) { rect += CPoint(10, 20); }), moved);
    EXPECT_EQ(after(plain, [](CRect& rect) { rect += SIZE{10, 20}; }), moved);
    EXPECT_EQ(after(plain, [](CRect& rect) { rect -= POINT{-10, -20}; }), moved);
    EXPECT_EQ(after(plain, [](CRect& rect) { rect -= CSize(-10, -20); }), moved);
    EXPECT_EQ(after(CRect(0, 0, 0, 0), [](CRect& rect) { rect -= CPoint(lowest, 1); }),
              (Fields{lowest, -1, lowest, -1}));
    EXPECT_EQ(after(CRect(0, 0, 0, 0), [](CRect& rect) { rect -= CSize(1, lowest); }),
              (Fields{-1, lowest, -1, lowest}));

    const CRect rect(plain);
    EXPECT_EQ(fields(rect + POINT{10, 20}), moved);
    EXPECT_EQ(fields(rect + CSize(10, 20)), moved);
    EXPECT_EQ(fields(rect - CPoint(-10, -20)), moved);
    EXPECT_EQ(fields(rect - SIZE{-10, -20}), moved);
    EXPECT_EQ(fields(rect), fields(plain));
}

TEST(RectangleClass, MovesToAPlaceKeepingItsSize)
{
    EXPECT_EQ(after(plain, [](CRect& rect) { rect.MoveToX(100); }), (Fields{100, 2, 130, 42}));
    EXPECT_EQ(after(plain, [](CRect& rect) { rect.MoveToY(100); }), (Fields{1, 100, 31, 140}));
    EXPECT_EQ(after(plain, [](CRect& rect) { rect.MoveToXY(100, 200); }), (Fields{100, 200, 130, 240}));
    EXPECT_EQ(after(plain, [](CRect& rect) { rect.MoveToXY(CPoint(100, 200)); }), (Fields{100, 200, 130, 240}));
    EXPECT_EQ(after(plain, [](CRect& rect) { rect.MoveToXY(highest, lowest); }),
              (Fields{highest, lowest, lowest + 29, lowest + 40}));
    EXPECT_EQ(after(plain, [](CRect& rect) { rect.MoveToXY(rect.BottomRight()); }), (Fields{31, 42, 61, 82}));
}

// ---- Growing and shrinking ----------------------------------------------------------------------------------------

TEST(RectangleClass, Inflates)
{
    const Fields inflated = {-9, -18, 41, 62};
    EXPECT_EQ(after(plain, [](CRect& rect) { EXPECT_EQ(rect.InflateRect(10, 20), 1); }), inflated);
    EXPECT_EQ(after(plain, [](CRect& rect) { EXPECT_EQ(rect.InflateRect(CSize(10, 20)), 1); }), inflated);
    EXPECT_EQ(after(plain, [](CRect& rect) { EXPECT_EQ(rect.DeflateRect(-10, -20), 1); }), inflated);
    EXPECT_EQ(after(plain, [](CRect& rect) { EXPECT_EQ(rect.DeflateRect(SIZE{-10, -20}), 1); }), inflated);
    EXPECT_EQ(after(CRect(0, 0, 0, 0), [](CRect& rect) { rect.DeflateRect(lowest, highest); }),
              (Fields{lowest, highest, lowest, -highest}));
    EXPECT_EQ(after(CRect(0, 0, 0, 0),
                    [](CRect& rect) {
                        rect.InflateRect(SIZE{lowest, highest});
                    }),
              (Fields{lowest, -highest, lowest, highest}));
}

TEST(RectangleClass, InflatesSideBySide)
{
    constexpr RECT amounts = {1, 20, 300, 4000};
    const Fields inflated = {0, -18, 331, 4042};
    const Fields deflated = {2, 22, -269, -3958};
    EXPECT_EQ(after(plain, [&](CRect& rect) { EXPECT_EQ(rect.InflateRect(&amounts), 1); }), inflated);
    EXPECT_EQ(after(plain, [](CRect& rect) { EXPECT_EQ(rect.InflateRect(1, 20, 300, 4000), 1); }), inflated);
    EXPECT_EQ(after(plain, [&](CRect& rect) { rect += &amounts; }), inflated);
    EXPECT_EQ(after(plain, [&](CRect& rect) { rect += CRect(amounts); }), inflated);
    EXPECT_EQ(after(plain, [&](CRect& rect) { EXPECT_EQ(rect.DeflateRect(&amounts), 1); }), deflated);
    EXPECT_EQ(after(plain, [](CRect& rect) { EXPECT_EQ(rect.DeflateRect(1, 20, 300, 4000), 1); }), deflated);
    EXPECT_EQ(after(plain, [&](CRect& rect) { rect -= &amounts; }), deflated);
    EXPECT_EQ(after(plain, [&](CRect& rect) { rect -= CRect(amounts); }), deflated);

    CRect rect(plain);
    const CRect operand(amounts);
    EXPECT_EQ(fields(rect + &amounts), inflated);
    EXPECT_EQ(fields(rect - &amounts), deflated);
    EXPECT_EQ(fields(rect + operand), inflated);
    EXPECT_EQ(fields(rect - operand), deflated);
    EXPECT_EQ(fields(std::as_const(rect) + operand), inflated);
    EXPECT_EQ(fields(std::as_const(rect) - operand), deflated);
    EXPECT_EQ(fields(rect), fields(plain));

    constexpr RECT ends = {lowest, highest, lowest, highest};
    EXPECT_EQ(fields(CRect(0, -2, -1, 1) + &ends), (Fields{lowest, highest, highest, lowest}));
    EXPECT_EQ(fields(CRect(-1, 1, 0, -2) - &ends), (Fields{highest, lowest, lowest, highest}));
}

TEST(RectangleClass, ReadsItselfBeforeItChanges)
{
    EXPECT_EQ(after(plain, [](CRect& rect) { rect += rect; }), (Fields{0, 0, 62, 84}));
    EXPECT_EQ(after(plain, [](CRect& rect) { rect -= rect; }), (Fields{2, 4, 0, 0}));
    EXPECT_EQ(after(plain, [](CRect& rect) { rect = rect.TopLeft() + rect; }), (Fields{2, 4, 32, 44}));
}

TEST(RectangleClass, IsNotChangedByANullRectangle)
{
    EXPECT_EQ(after(plain, [](CRect& rect) { EXPECT_EQ(rect.InflateRect(noRect), 0); }), fields(plain));
    EXPECT_EQ(after(plain, [](CRect& rect) { EXPECT_EQ(rect.DeflateRect(noRect), 0); }), fields(plain));
    EXPECT_EQ(after(plain, [](CRect& rect) { rect += noRect; }), fields(plain));
    EXPECT_EQ(after(plain, [](CRect& rect) { rect -= noRect; }), fields(plain));
    EXPECT_EQ(fields(CRect(plain) + noRect), fields(plain));
    EXPECT_EQ(fields(CRect(plain) - noRect), fields(plain));
}

// ---- Combining ----------------------------------------------------------------------------------------------------

TEST(RectangleClass, CombinesInPlaceLikeTheFunctions)
{
    constexpr RECT a = {0, 0, 10, 10};
    constexpr RECT b = {5, -5, 15, 15};
    constexpr RECT empty = {5, 5, 5, 5};
    CRect rect;
    EXPECT_EQ(rect.IntersectRect(&a, &b), 1);
    EXPECT_EQ(fields(rect), (Fields{5, 0, 10, 10}));
    EXPECT_EQ(rect.UnionRect(&a, &b), 1);
    EXPECT_EQ(fields(rect), (Fields{0, -5, 15, 15}));
    EXPECT_EQ(rect.SubtractRect(&a, &b), 1);
    EXPECT_EQ(fields(rect), (Fields{0, 0, 5, 10}));
    for (const RECT* const refused : {&empty, noRect})
    {
        EXPECT_EQ(rect.IntersectRect(&a, refused), 0);
        EXPECT_EQ(rect.UnionRect(refused, &a), 0);
        EXPECT_EQ(rect.SubtractRect(refused, &a), 0);
        EXPECT_EQ(fields(rect), (Fields{0, 0, 5, 10}));
    }
}

TEST(RectangleClass, CombinesByOperators)
{
    const CRect rect(0, 0, 10, 10);
    const CRect other(5, 5, 15, 15);
    const CRect empty(5, 5, 5, 5);
    EXPECT_EQ(fields(rect & other), (Fields{5, 5, 10, 10}));
    EXPECT_EQ(fields(rect | other), (Fields{0, 0, 15, 15}));
    EXPECT_EQ(fields(rect & empty), (Fields{0, 0, 0, 0}));
    EXPECT_EQ(fields(empty & rect), (Fields{0, 0, 0, 0}));
    EXPECT_EQ(after(rect, [&](CRect& changed) { changed &= other; }), (Fields{5, 5, 10, 10}));
    EXPECT_EQ(after(rect, [&](CRect& changed) { changed |= other; }), (Fields{0, 0, 15, 15}));
    EXPECT_EQ(after(rect, [&](CRect& changed) { changed &= empty; }), fields(rect));
    EXPECT_EQ(after(rect, [&](CRect& changed) { changed |= empty; }), fields(rect));
    EXPECT_EQ(after(rect, [](CRect& changed) { changed |= changed; }), fields(rect));
}

TEST(CRect, UnitesWithAnEmptyRectangleToNull)
{
    const CRect rect(1, 2, 3, 4);
    const CRect empty(5, 5, 5, 5);
    EXPECT_EQ(fields(rect | empty), (Fields{0, 0, 0, 0}));
    EXPECT_EQ(fields(empty | rect), (Fields{0, 0, 0, 0}));
}

TEST(CRect, IntersectsDisjointRectanglesToCrossedEdges)
{
    EXPECT_EQ(fields(CRect(0, 0, 10, 10) & CRect(20, 20, 30, 30)), (Fields{20, 20, 10, 10}));
}

TEST(RectangleClass, ScalesEachField)
{
    EXPECT_EQ(fields(CRect(7, -7, 100, highest).MulDiv(1, 2)), (Fields{3, -3, 50, highest / 2}));
    EXPECT_EQ(fields(CRect(7, -7, 100, highest).MulDiv(2, 1)), (Fields{14, -14, 200, -1}));
    EXPECT_EQ(fields(CRect(0, 1, 2, 3).MulDiv(1, 0)), (Fields{-1, -1, -1, -1}));
}

} // namespace
