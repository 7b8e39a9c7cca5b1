#include "kest/geometry.h"
#include "ui/wrapping.h"

#include <cstdint>
#include <type_traits>

using kest::wrappingDifference;
using kest::wrappingNegation;
using kest::wrappingSum;

// By-value arguments and results of these travel in registers, as their structures do.
static_assert(sizeof(CSize) == sizeof(SIZE) && std::is_trivially_copyable_v<CSize>);
static_assert(sizeof(CPoint) == sizeof(POINT) && std::is_trivially_copyable_v<CPoint>);

namespace
{

int lowHalf(unsigned int packed)
{
    return static_cast<std::int16_t>(packed);
}

int highHalf(unsigned int packed)
{
    return static_cast<std::int16_t>(packed >> 16);
}

} // namespace

// ---- CSize --------------------------------------------------------------------------------------------------------

CSize::CSize() : tagSIZE{0, 0}
{
}

CSize::CSize(int width, int height) : tagSIZE{width, height}
{
}

CSize::CSize(SIZE size) : tagSIZE(size)
{
}

CSize::CSize(POINT point) : tagSIZE{point.x, point.y}
{
}

CSize::CSize(unsigned int packed) : tagSIZE{lowHalf(packed), highHalf(packed)}
{
}

void CSize::SetSize(int width, int height)
{
    cx = width;
    cy = height;
}

BOOL CSize::operator==(SIZE size) const
{
    return cx == size.cx && cy == size.cy;
}

BOOL CSize::operator!=(SIZE size) const
{
    return cx != size.cx || cy != size.cy;
}

CSize& CSize::operator+=(SIZE size)
{
    cx = wrappingSum(cx, size.cx);
    cy = wrappingSum(cy, size.cy);
    return *this;
}

CSize& CSize::operator-=(SIZE size)
{
    cx = wrappingDifference(cx, size.cx);
    cy = wrappingDifference(cy, size.cy);
    return *this;
}

CSize CSize::operator+(SIZE size) const
{
    return CSize(*this) += size;
}

CSize CSize::operator-(SIZE size) const
{
    return CSize(*this) -= size;
}

CSize CSize::operator-() const
{
    return {wrappingNegation(cx), wrappingNegation(cy)};
}

CPoint CSize::operator+(POINT point) const
{
    return {wrappingSum(cx, point.x), wrappingSum(cy, point.y)};
}

CPoint CSize::operator-(POINT point) const
{
    return {wrappingDifference(cx, point.x), wrappingDifference(cy, point.y)};
}

CRect CSize::operator+(const RECT* rect) const
{
    return CRect(rect) += *this;
}

CRect CSize::operator-(const RECT* rect) const
{
    return CRect(rect) -= *this;
}

// ---- CPoint -------------------------------------------------------------------------------------------------------

CPoint::CPoint() : tagPOINT{0, 0}
{
}

CPoint::CPoint(int horizontal, int vertical) : tagPOINT{horizontal, vertical}
{
}

CPoint::CPoint(long packed)
    : tagPOINT{lowHalf(static_cast<unsigned int>(packed)), highHalf(static_cast<unsigned int>(packed))}
{
}

void CPoint::SetPoint(int horizontal, int vertical)
{
    x = horizontal;
    y = vertical;
}

void CPoint::Offset(int dx, int dy)
{
    x = wrappingSum(x, dx);
    y = wrappingSum(y, dy);
}

void CPoint::Offset(POINT point)
{
    Offset(point.x, point.y);
}

void CPoint::Offset(SIZE size)
{
    Offset(size.cx, size.cy);
}

BOOL CPoint::operator==(POINT point) const
{
    return x == point.x && y == point.y;
}

BOOL CPoint::operator!=(POINT point) const
{
    return x != point.x || y != point.y;
}

CPoint& CPoint::operator+=(SIZE size)
{
    Offset(size);
    return *this;
}

CPoint& CPoint::operator-=(SIZE size)
{
    x = wrappingDifference(x, size.cx);
    y = wrappingDifference(y, size.cy);
    return *this;
}

CPoint& CPoint::operator+=(POINT point)
{
    Offset(point);
    return *this;
}

CPoint& CPoint::operator-=(POINT point)
{
    x = wrappingDifference(x, point.x);
    y = wrappingDifference(y, point.y);
    return *this;
}

CPoint CPoint::operator+(SIZE size) const
{
    return CPoint(*this) += size;
}

CPoint CPoint::operator-(SIZE size) const
{
    return CPoint(*this) -= size;
}

CPoint CPoint::operator+(POINT point) const
{
    return CPoint(*this) += point;
}

CSize CPoint::operator-(POINT point) const
{
    return {wrappingDifference(x, point.x), wrappingDifference(y, point.y)};
}

CPoint CPoint::operator-() const
{
    return {wrappingNegation(x), wrappingNegation(y)};
}

CRect CPoint::operator+(const RECT* rect) const
{
    return CRect(rect) += *this;
}

CRect CPoint::operator-(const RECT* rect) const
{
    return CRect(rect) -= *this;
}
