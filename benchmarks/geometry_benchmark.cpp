// Rectangles beside the same arithmetic in a function of the program's own.
#include "families.h"
#include "kest/geometry.h"
#include "pairs.h"

#include <algorithm>

namespace kest::benchmarks
{

namespace
{

// A call into a shared object passes the linker's table; that is all that may come on top.
constexpr double target = 1.5;

constexpr RECT first = {10, 20, 300, 400};
constexpr RECT second = {50, 0, 500, 200};

[[gnu::noinline]] bool contains(const RECT* rect, POINT point)
{
    return rect->left <= point.x && point.x <= rect->right && rect->top <= point.y && point.y <= rect->bottom;
}

[[gnu::noinline]] bool intersect(RECT* result, const RECT* a, const RECT* b)
{
    const bool empty = a->right <= a->left || a->top >= a->bottom || b->right <= b->left || b->top >= b->bottom;
    if (empty)
    {
        return false;
    }
    *result = {std::max(a->left, b->left), std::max(a->top, b->top), std::min(a->right, b->right),
               std::min(a->bottom, b->bottom)};
    return result->right > result->left && result->top < result->bottom;
}

[[gnu::noinline]] void offset(RECT* rect, int x, int y)
{
    *rect = {rect->left + x, rect->top + y, rect->right + x, rect->bottom + y};
}

} // namespace

void addGeometry()
{
    addPair(
        "geometry/PtInRect", target, "four comparisons",
        [rect = first] {
            return PtInRect(&rect, {100, 100});
        },
        [rect = first] {
            return contains(&rect, {100, 100});
        });
    addPair(
        "geometry/IntersectRect", target, "comparisons and a store",
        [a = first, b = second, out = RECT()]() mutable { return IntersectRect(&out, &a, &b); },
        [a = first, b = second, out = RECT()]() mutable { return intersect(&out, &a, &b); });
    addPair(
        "geometry/CRect::OffsetRect", target, "four additions",
        [rect = CRect(first)]() mutable { return rect.OffsetRect(1, -1); },
        [rect = first]() mutable { offset(&rect, 1, -1); });
    addPair(
        "geometry/CRect::operator&", target, "comparisons and a store",
        [a = CRect(first), b = second] { return a & b; },
        [a = first, b = second]
        {
            RECT result = {};
            intersect(&result, &a, &b);
            return result;
        });
}

} // namespace kest::benchmarks
