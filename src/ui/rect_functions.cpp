#include "kest/geometry.h"
#include "ui/wrapping.h"

#include <algorithm>
#include <cstdint>
#include <limits>

using kest::wrappingDifference;
using kest::wrappingSum;

BOOL CopyRect(RECT* dst, const RECT* src)
{
    if (dst == nullptr || src == nullptr)
    {
        return FALSE;
    }
    *dst = *src;
    return TRUE;
}

BOOL SetRect(RECT* rect, int left, int top, int right, int bottom)
{
    if (rect == nullptr)
    {
        return FALSE;
    }
    *rect = {left, top, right, bottom};
    return TRUE;
}

BOOL SetRectEmpty(RECT* rect)
{
    return SetRect(rect, 0, 0, 0, 0);
}

BOOL IsRectEmpty(const RECT* rect)
{
    return rect == nullptr || rect->right <= rect->left || rect->top >= rect->bottom;
}

BOOL PtInRect(const RECT* rect, POINT point)
{
    return rect != nullptr && rect->left <= point.x && point.x <= rect->right && rect->top <= point.y &&
           point.y <= rect->bottom;
}

BOOL EqualRect(const RECT* a, const RECT* b)
{
    return a != nullptr && b != nullptr && a->left == b->left && a->top == b->top && a->right == b->right &&
           a->bottom == b->bottom;
}

BOOL InflateRect(RECT* rect, int dx, int dy)
{
    if (rect == nullptr)
    {
        return FALSE;
    }
    *rect = {wrappingDifference(rect->left, dx), wrappingDifference(rect->top, dy), wrappingSum(rect->right, dx),
             wrappingSum(rect->bottom, dy)};
    return TRUE;
}

BOOL OffsetRect(RECT* rect, int dx, int dy)
{
    if (rect == nullptr)
    {
        return FALSE;
    }
    *rect = {wrappingSum(rect->left, dx), wrappingSum(rect->top, dy), wrappingSum(rect->right, dx),
             wrappingSum(rect->bottom, dy)};
    return TRUE;
}

BOOL IntersectRect(RECT* dst, const RECT* a, const RECT* b)
{
    if (IsRectEmpty(a) || IsRectEmpty(b) || dst == nullptr)
    {
        return FALSE;
    }
    *dst = {std::max(a->left, b->left), std::max(a->top, b->top), std::min(a->right, b->right),
            std::min(a->bottom, b->bottom)};
    return !IsRectEmpty(dst);
}

BOOL UnionRect(RECT* dst, const RECT* a, const RECT* b)
{
    if (IsRectEmpty(a) || IsRectEmpty(b) || dst == nullptr)
    {
        return FALSE;
    }
    *dst = {std::min(a->left, b->left), std::min(a->top, b->top), std::max(a->right, b->right),
            std::max(a->bottom, b->bottom)};
    return TRUE;
}

BOOL SubtractRect(RECT* dst, const RECT* a, const RECT* b)
{
    if (dst == nullptr || b == nullptr || IsRectEmpty(a))
    {
        return FALSE;
    }
    RECT rest = *a;
    if (!IsRectEmpty(b))
    {
        const bool spansHorizontally = b->left <= a->left && b->right >= a->right;
        const bool spansVertically = b->top <= a->top && b->bottom >= a->bottom;
        if (spansHorizontally && spansVertically)
        {
            SetRectEmpty(dst);
            return FALSE;
        }
        if (spansHorizontally)
        {
            rest.top = a->top > b->top ? b->bottom : a->top;
            rest.bottom = a->bottom < b->bottom ? b->top : a->bottom;
        }
        else if (spansVertically)
        {
            rest.left = a->left > b->left ? b->right : a->left;
            rest.right = a->right < b->right ? b->left : a->right;
        }
    }
    *dst = rest;
    return TRUE;
}

int MulDiv(int a, int b, int c)
{
    if (c == 0)
    {
        return -1;
    }
    const std::int64_t quotient = std::int64_t{a} * b / c;
    using Limits = std::numeric_limits<int>;
    return quotient < Limits::min() || quotient > Limits::max() ? -1 : static_cast<int>(quotient);
}
