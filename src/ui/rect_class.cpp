#include "kest/geometry.h"
#include "ui/wrapping.h"

#include <type_traits>
#include <utility>

using kest::wrappingDifference;
using kest::wrappingNegation;
using kest::wrappingSum;

static_assert(sizeof(CRect) == sizeof(RECT) && std::is_trivially_copyable_v<CRect>);

// ---- Construction -------------------------------------------------------------------------------------------------

CRect::CRect() : tagRECT{0, 0, 0, 0}
{
}

CRect::CRect(int l, int t, int r, int b) : tagRECT{l, t, r, b}
{
}

CRect::CRect(const RECT& rect) : tagRECT(rect)
{
}

CRect::CRect(const RECT* rect) : CRect()
{
    CopyRect(rect);
}

CRect::CRect(POINT topLeft, SIZE size)
    : tagRECT{topLeft.x, topLeft.y, wrappingSum(topLeft.x, size.cx), wrappingSum(topLeft.y, size.cy)}
{
}

CRect::CRect(POINT topLeft, POINT bottomRight) : tagRECT{topLeft.x, topLeft.y, bottomRight.x, bottomRight.y}
{
}

CRect::operator tagRECT*()
{
    return this;
}

CRect::operator const tagRECT*() const
{
    return this;
}

// ---- Measures and corners -----------------------------------------------------------------------------------------

int CRect::Width() const
{
    return wrappingDifference(right, left);
}

int CRect::Height() const
{
    return wrappingDifference(bottom, top);
}

CSize CRect::Size() const
{
    return {Width(), Height()};
}

CPoint& CRect::TopLeft()
{
    return reinterpret_cast<CPoint&>(left);
}

CPoint& CRect::BottomRight()
{
    return reinterpret_cast<CPoint&>(right);
}

const CPoint& CRect::TopLeft() const
{
    return reinterpret_cast<const CPoint&>(left);
}

const CPoint& CRect::BottomRight() const
{
    return reinterpret_cast<const CPoint&>(right);
}

CPoint CRect::CenterPoint() const
{
    return {wrappingSum(left, right) / 2, wrappingSum(top, bottom) / 2};
}

// ---- Questions ----------------------------------------------------------------------------------------------------

BOOL CRect::IsRectEmpty() const
{
    return Width() < 1 || Height() < 1;
}

BOOL CRect::IsRectNull() const
{
    return left == 0 && top == 0 && right == 0 && bottom == 0;
}

BOOL CRect::PtInRect(POINT point) const
{
    return ::PtInRect(this, point);
}

BOOL CRect::EqualRect(const RECT* rect) const
{
    return ::EqualRect(this, rect);
}

BOOL CRect::operator==(const RECT& rect) const
{
    return EqualRect(&rect);
}

BOOL CRect::operator!=(const RECT& rect) const
{
    return !EqualRect(&rect);
}

// ---- Assignment ---------------------------------------------------------------------------------------------------

CRect& CRect::operator=(const RECT& rect)
{
    CopyRect(&rect);
    return *this;
}

BOOL CRect::SetRect(int l, int t, int r, int b)
{
    return ::SetRect(this, l, t, r, b);
}

BOOL CRect::SetRect(POINT topLeft, POINT bottomRight)
{
    return ::SetRect(this, topLeft.x, topLeft.y, bottomRight.x, bottomRight.y);
}

BOOL CRect::SetRectEmpty()
{
    return ::SetRectEmpty(this);
}

BOOL CRect::CopyRect(const RECT* src)
{
    return ::CopyRect(this, src);
}

void CRect::SwapLeftRight()
{
    SwapLeftRight(this);
}

void CRect::SwapLeftRight(RECT* rect)
{
    if (rect != nullptr)
    {
        std::swap(rect->left, rect->right);
    }
}

void CRect::NormalizeRect()
{
    if (left > right)
    {
        std::swap(left, right);
    }
    if (top > bottom)
    {
        std::swap(top, bottom);
    }
}

// ---- Moving -------------------------------------------------------------------------------------------------------

BOOL CRect::OffsetRect(int dx, int dy)
{
    return ::OffsetRect(this, dx, dy);
}

BOOL CRect::OffsetRect(POINT point)
{
    return OffsetRect(point.x, point.y);
}

BOOL CRect::OffsetRect(SIZE size)
{
    return OffsetRect(size.cx, size.cy);
}

void CRect::MoveToX(int x)
{
    right = wrappingSum(x, Width());
    left = x;
}

void CRect::MoveToY(int y)
{
    bottom = wrappingSum(y, Height());
    top = y;
}

void CRect::MoveToXY(int x, int y)
{
    MoveToX(x);
    MoveToY(y);
}

void CRect::MoveToXY(POINT point)
{
    MoveToXY(point.x, point.y);
}

CRect& CRect::operator+=(POINT point)
{
    OffsetRect(point);
    return *this;
}

CRect& CRect::operator+=(SIZE size)
{
    OffsetRect(size);
    return *this;
}

CRect& CRect::operator-=(POINT point)
{
    OffsetRect(wrappingNegation(point.x), wrappingNegation(point.y));
    return *this;
}

CRect& CRect::operator-=(SIZE size)
{
    OffsetRect(wrappingNegation(size.cx), wrappingNegation(size.cy));
    return *this;
}

CRect CRect::operator+(POINT point) const
{
    return CRect(*this) += point;
}

CRect CRect::operator+(SIZE size) const
{
    return CRect(*this) += size;
}

CRect CRect::operator-(POINT point) const
{
    return CRect(*this) -= point;
}

CRect CRect::operator-(SIZE size) const
{
    return CRect(*this) -= size;
}

// ---- Growing and shrinking ----------------------------------------------------------------------------------------

BOOL CRect::InflateRect(int dx, int dy)
{
    return ::InflateRect(this, dx, dy);
}

BOOL CRect::InflateRect(SIZE size)
{
    return InflateRect(size.cx, size.cy);
}

BOOL CRect::InflateRect(const RECT* rect)
{
    return rect != nullptr && InflateRect(rect->left, rect->top, rect->right, rect->bottom);
}

BOOL CRect::InflateRect(int l, int t, int r, int b)
{
    return SetRect(wrappingDifference(left, l), wrappingDifference(top, t), wrappingSum(right, r),
                   wrappingSum(bottom, b));
}

BOOL CRect::DeflateRect(int dx, int dy)
{
    return ::InflateRect(this, wrappingNegation(dx), wrappingNegation(dy));
}

BOOL CRect::DeflateRect(SIZE size)
{
    return DeflateRect(size.cx, size.cy);
}

BOOL CRect::DeflateRect(const RECT* rect)
{
    return rect != nullptr && DeflateRect(rect->left, rect->top, rect->right, rect->bottom);
}

BOOL CRect::DeflateRect(int l, int t, int r, int b)
{
    return SetRect(wrappingSum(left, l), wrappingSum(top, t), wrappingDifference(right, r),
                   wrappingDifference(bottom, b));
}

CRect& CRect::operator+=(const RECT* rect)
{
    InflateRect(rect);
    return *this;
}

CRect& CRect::operator-=(const RECT* rect)
{
    DeflateRect(rect);
    return *this;
}

CRect CRect::operator+(const RECT* rect) const
{
    return CRect(*this) += rect;
}

CRect CRect::operator-(const RECT* rect) const
{
    return CRect(*this) -= rect;
}

// ---- Combining ----------------------------------------------------------------------------------------------------

BOOL CRect::IntersectRect(const RECT* a, const RECT* b)
{
    return ::IntersectRect(this, a, b);
}

BOOL CRect::UnionRect(const RECT* a, const RECT* b)
{
    return ::UnionRect(this, a, b);
}

BOOL CRect::SubtractRect(const RECT* a, const RECT* b)
{
    return ::SubtractRect(this, a, b);
}

CRect& CRect::operator&=(const RECT& rect)
{
    IntersectRect(this, &rect);
    return *this;
}

CRect& CRect::operator|=(const RECT& rect)
{
    UnionRect(this, &rect);
    return *this;
}

CRect CRect::operator&(const RECT& rect) const
{
    CRect result;
    result.IntersectRect(this, &rect);
    return result;
}

CRect CRect::operator|(const RECT& rect) const
{
    CRect result;
    result.UnionRect(this, &rect);
    return result;
}

CRect CRect::MulDiv(int num, int den) const
{
    return {::MulDiv(left, num, den), ::MulDiv(top, num, den), ::MulDiv(right, num, den), ::MulDiv(bottom, num, den)};
}
