// Rectangles beside the same arithmetic in a function of the program's own, called through a pointer as functions of
// shared objects are.
#include "families.h"
#include "kest/geometry.h"
#include "pairs.h"

#include <algorithm>

namespace kest::benchmarks
{

namespace
{

constexpr double target = 1.5;

constexpr RECT first = {10, 20, 300, 400};
constexpr RECT second = {50, 0, 500, 200};

bool contains(const RECT* rect, POINT point)
{
    return rect->left <= point.x && point.x <= rect->right && rect->top <= point.y && point.y <= rect->bottom;
}

bool intersect(RECT* result, const RECT* a, const RECT* b)
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

void offset(RECT* rect, int x, int y)
{
    *rect = {rect->left + x, rect->top + y, rect->right + x, rect->bottom + y};
}

// The compiler does not know where they point to.
bool (*volatile containsPoint)(const RECT*, POINT) = contains;
bool (*volatile intersectRectangles)(RECT*, const RECT*, const RECT*) = intersect;
void (*volatile offsetRectangle)(RECT*, int, int) = offset;

} // namespace

void addGeometry()
{
    addPair(
        "geometry/PtInRect", target, "four comparisons, in a call",
        [rect = first] {
            return PtInRect(&rect, {100, 100});
        },
        [rect = first] {
            return containsPoint(&rect, {100, 100});
        });
    addPair(
        "geometry/IntersectRect", target, "comparisons and a store, in a call",
        [a = first, b = second, out = RECT()]() mutable { return IntersectRect(&out, &a, &b); },
        [a = first, b = second, out = RECT()]() mutable { return intersectRectangles(&out, &a, &b); });
    addPair(
        "geometry/CRect::OffsetRect", target, "four additions, in a call",
        [rect = CRect(first)]() mutable { return rect.OffsetRect(1, -1); },
        [rect = first]() mutable { offsetRectangle(&rect, 1, -1); });
    addPair(
        "geometry/CRect::operator&", target, "comparisons and a store, in a call",
        [a = CRect(first), b = second] { return a & b; },
        [a = first, b = second]
        {
            RECT result = {};
            intersectRectangles(&result, &a, &b);
            return result;
        });
}

} // namespace kest::benchmarks
