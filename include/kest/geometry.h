/*
 * Kest Platform Base: rectangles, points and sizes.
 *
 * The rectangle functions of the user interface, MulDiv, and the value classes CSize, CPoint and CRect over
 * SIZE, POINT and RECT:
 *
 *     CRect box(CPoint(10, 20), CSize(30, 40));
 *     box.DeflateRect(1, 1);
 *     if (box.PtInRect(cursor)) { ... }
 *
 * A rectangle is empty when right <= left or bottom <= top, and null when all four fields are zero. Arithmetic is
 * 32-bit and wraps around at both ends; nothing is checked for overflow. No function here touches the last error,
 * and all are local. Where a destination is also an input, the input counts as it was before the call.
 *
 * The classes add no fields and no virtual functions to their structures and are trivially copyable: they travel as
 * the structures do.
 */
#ifndef KEST_GEOMETRY_H
#define KEST_GEOMETRY_H

#include "kest/base_types.h"
#include "kest/export.h"

KEST_C_BEGIN

/**
 * Copies a rectangle.
 * @return 1.
 * @null either pointer: answers 0.
 * @kind local
 */
KEST_API BOOL CopyRect(RECT* dst, const RECT* src);

/**
 * Stores the four fields.
 * @return 1.
 * @null answers 0.
 * @kind local
 */
KEST_API BOOL SetRect(RECT* rect, int left, int top, int right, int bottom);

/**
 * Sets the four fields to zero.
 * @return 1.
 * @null answers 0.
 * @kind local
 */
KEST_API BOOL SetRectEmpty(RECT* rect);

/**
 * Tells whether a rectangle is empty.
 * @null counts as empty: answers 1.
 * @kind local
 */
KEST_API BOOL IsRectEmpty(const RECT* rect);

/**
 * Tells whether a point lies in a rectangle, edges included.
 * @null answers 0.
 * @kind local
 * @differs{PtInRect.CountsFarEdgesAsInside} A point on the right or the bottom edge is inside.
 */
KEST_API BOOL PtInRect(const RECT* rect, POINT point);

/**
 * Tells whether two rectangles have the same four fields.
 * @null either pointer: answers 0.
 * @kind local
 */
KEST_API BOOL EqualRect(const RECT* a, const RECT* b);

/**
 * Moves the left and right edges outwards by dx, the top and bottom edges by dy; negative amounts move them inwards.
 * @return 1.
 * @null answers 0.
 * @kind local
 */
KEST_API BOOL InflateRect(RECT* rect, int dx, int dy);

/**
 * Moves a rectangle by dx to the right and dy downwards.
 * @return 1.
 * @null answers 0.
 * @kind local
 */
KEST_API BOOL OffsetRect(RECT* rect, int dx, int dy);

/**
 * Stores the greater left and top and the smaller right and bottom of two rectangles.
 * @return 1 when what was stored is not empty, else 0. 0 as well, with nothing stored, when a or b is empty.
 * @null dst: answers 0. a or b: empty.
 * @kind local
 * @differs{IntersectRect.LeavesDestinationForEmptyInputs} An empty input leaves dst alone instead of clearing it.
 * @differs{IntersectRect.StoresCrossedEdgesOfDisjointRectangles} Rectangles that do not meet store crossed edges
 * instead of the null rectangle.
 */
KEST_API BOOL IntersectRect(RECT* dst, const RECT* a, const RECT* b);

/**
 * Stores the smaller left and top and the greater right and bottom of two rectangles.
 * @return 1; 0, with nothing stored, when a or b is empty.
 * @null dst: answers 0. a or b: empty.
 * @kind local
 * @differs{UnionRect.RefusesEmptyInputs} One empty input refuses the union instead of yielding the other rectangle.
 */
KEST_API BOOL UnionRect(RECT* dst, const RECT* a, const RECT* b);

/**
 * Stores what is left of a when b is taken away. Where b spans a in one direction (covers it from edge to edge), each
 * edge of a in the other direction that lies strictly beyond b's edge of the same name moves to b's opposite edge:
 *
 *     b spans a horizontally:  top = b.bottom if a.top > b.top;  bottom = b.top if a.bottom < b.bottom
 *     b spans a vertically:    left = b.right if a.left > b.left;  right = b.left if a.right < b.right
 *
 * Where b spans a in neither direction, or is empty, all of a is left; where b covers a, the null rectangle.
 * @return 1; 0 when b covers a, and, with nothing stored, when a is empty.
 * @null any pointer: answers 0, with nothing stored; an absent b is not an empty one.
 * @kind local
 * @differs{SubtractRect.LeavesDestinationForAnEmptyFirstRectangle} An empty a leaves dst alone instead of clearing it.
 * @differs{SubtractRect.KeepsEdgesThatCoincide} Where the two rectangles share an edge, that edge does not move.
 * @differs{SubtractRect.MovesEdgesTowardsARectangleThatDoesNotMeetIt} A spanning b moves a's edge also when the two do
 * not meet.
 */
KEST_API BOOL SubtractRect(RECT* dst, const RECT* a, const RECT* b);

/**
 * Multiplies a by b and divides the 64-bit product by c, truncating towards zero.
 * @return the quotient; -1 when c is zero or the quotient does not fit.
 * @kind local
 * @differs{MulDiv.Truncates} The quotient is truncated instead of rounded.
 */
KEST_API int MulDiv(int a, int b, int c);

KEST_C_END

#ifdef __cplusplus

class CPoint;
class CRect;

/** A width and a height. */
class CSize : public tagSIZE
{
public:
    /** Both fields zero. */
    KEST_API CSize();
    /** Takes the fields as they are; of a point, x becomes cx and y becomes cy. */
    KEST_API CSize(int cx, int cy);
    KEST_API CSize(SIZE size);
    KEST_API CSize(POINT point);
    /** The low 16 bits, signed, become cx, the high 16 bits, signed, cy. */
    KEST_API CSize(unsigned int packed);

    /** Stores both fields. */
    KEST_API void SetSize(int cx, int cy);

    /** Whether both fields are equal, or not. */
    KEST_API BOOL operator==(SIZE size) const;
    KEST_API BOOL operator!=(SIZE size) const;
    /** Two of a kind: C++20 would find the members above from both sides and call them ambiguous. */
    friend BOOL operator==(const CSize& a, const CSize& b) { return a == static_cast<SIZE>(b); }
    friend BOOL operator!=(const CSize& a, const CSize& b) { return a != static_cast<SIZE>(b); }

    /** Adds or subtracts field by field, in place. */
    KEST_API CSize& operator+=(SIZE size);
    KEST_API CSize& operator-=(SIZE size);

    /** The sum or difference, field by field; both fields negated. */
    KEST_API CSize operator+(SIZE size) const;
    KEST_API CSize operator-(SIZE size) const;
    KEST_API CSize operator-() const;
    /** The sum or difference of cx and x, of cy and y. */
    KEST_API CPoint operator+(POINT point) const;
    KEST_API CPoint operator-(POINT point) const;
    /** The rectangle moved by this size, or back by it. Null counts as the null rectangle. */
    KEST_API CRect operator+(const RECT* rect) const;
    KEST_API CRect operator-(const RECT* rect) const;
};

/** A place. */
class __attribute__((may_alias)) CPoint : public tagPOINT
{
public:
    /** Both fields zero. */
    KEST_API CPoint();
    /** Stores both fields. */
    KEST_API CPoint(int x, int y);
    /** The low 16 bits, signed, become x, the next 16 bits, signed, y: unpacks a message's LPARAM. */
    KEST_API CPoint(long packed);
    /** Takes the fields as they are; of a size, cx becomes x and cy becomes y. */
    CPoint(POINT point) : tagPOINT(point) {}
    CPoint(SIZE size) : tagPOINT{size.cx, size.cy} {}

    /** Stores both fields. */
    KEST_API void SetPoint(int x, int y);

    /** Adds to x and y. */
    KEST_API void Offset(int dx, int dy);
    KEST_API void Offset(POINT point);
    KEST_API void Offset(SIZE size);

    /** Whether both fields are equal, or not. */
    KEST_API BOOL operator==(POINT point) const;
    KEST_API BOOL operator!=(POINT point) const;
    /** Two of a kind: C++20 would find the members above from both sides and call them ambiguous. */
    friend BOOL operator==(const CPoint& a, const CPoint& b) { return a == static_cast<POINT>(b); }
    friend BOOL operator!=(const CPoint& a, const CPoint& b) { return a != static_cast<POINT>(b); }

    /** Adds or subtracts field by field, in place. */
    KEST_API CPoint& operator+=(SIZE size);
    KEST_API CPoint& operator-=(SIZE size);
    KEST_API CPoint& operator+=(POINT point);
    KEST_API CPoint& operator-=(POINT point);

    /** The sum or difference, field by field: a point with a size or with a point; two points differ by a size. */
    KEST_API CPoint operator+(SIZE size) const;
    KEST_API CPoint operator-(SIZE size) const;
    KEST_API CPoint operator+(POINT point) const;
    KEST_API CSize operator-(POINT point) const;
    /** Both fields negated. */
    KEST_API CPoint operator-() const;
    /** The rectangle moved by this point, or back by it. Null counts as the null rectangle. */
    KEST_API CRect operator+(const RECT* rect) const;
    KEST_API CRect operator-(const RECT* rect) const;
};

/**
 * A rectangle. A CRect can be passed wherever a pointer to a RECT is taken.
 */
class CRect : public tagRECT
{
public:
    /** All fields zero. */
    KEST_API CRect();
    /** Takes the four fields as they are. */
    KEST_API CRect(int left, int top, int right, int bottom);
    KEST_API CRect(const RECT& rect);
    /** Takes the four fields as they are. Null gives the null rectangle. */
    KEST_API CRect(const RECT* rect);
    /** From a corner and a size: right is x + cx, bottom is y + cy. */
    KEST_API CRect(POINT topLeft, SIZE size);
    /** From two corners, as they are. */
    KEST_API CRect(POINT topLeft, POINT bottomRight);

    /** right - left; bottom - top; both as a size. */
    KEST_API int Width() const;
    KEST_API int Height() const;
    KEST_API CSize Size() const;

    /** Two corners, in place: writing to one changes the rectangle. */
    KEST_API CPoint& TopLeft();
    KEST_API CPoint& BottomRight();
    KEST_API const CPoint& TopLeft() const;
    KEST_API const CPoint& BottomRight() const;

    /** ((left + right) / 2, (top + bottom) / 2), truncating towards zero. */
    KEST_API CPoint CenterPoint() const;

    /** Exchanges left and right. Null does nothing. */
    KEST_API void SwapLeftRight();
    KEST_API static void SwapLeftRight(RECT* rect);

    /** This rectangle's own address. */
    KEST_API operator tagRECT*();
    KEST_API operator const tagRECT*() const;

    /**
     * Whether the width or the height is below 1.
     * @differs{CRect.IsEmptyByItsWrappedWidthAndHeight} A rectangle so large that its width or height wraps around is
     * empty, although IsRectEmpty for the same fields answers 0.
     */
    KEST_API BOOL IsRectEmpty() const;
    /** Whether all four fields are zero. */
    KEST_API BOOL IsRectNull() const;
    /**
     * As the function PtInRect.
     * @differs{CRect.CountsPointsOnFarEdges} A point on the right or the bottom edge is inside.
     */
    KEST_API BOOL PtInRect(POINT point) const;

    /** As the function of the same name, into this rectangle; SetRect takes two corners as well. */
    KEST_API BOOL SetRect(int left, int top, int right, int bottom);
    KEST_API BOOL SetRect(POINT topLeft, POINT bottomRight);
    KEST_API BOOL SetRectEmpty();
    KEST_API BOOL CopyRect(const RECT* src);
    /** As the function EqualRect, of this rectangle and another. */
    KEST_API BOOL EqualRect(const RECT* rect) const;

    /** Moves by dx and dy, x and y, or cx and cy, as the function OffsetRect. Answers 1. */
    KEST_API BOOL OffsetRect(int dx, int dy);
    KEST_API BOOL OffsetRect(POINT point);
    KEST_API BOOL OffsetRect(SIZE size);

    /**
     * Moves the edges outwards: by dx and dy, by the amounts in a rectangle's fields, or by one amount a side.
     * @return 1.
     * @null changes nothing and answers 0.
     */
    KEST_API BOOL InflateRect(int dx, int dy);
    KEST_API BOOL InflateRect(SIZE size);
    KEST_API BOOL InflateRect(const RECT* rect);
    KEST_API BOOL InflateRect(int left, int top, int right, int bottom);

    /**
     * Moves the edges inwards, by the amounts that InflateRect takes.
     * @return 1.
     * @null changes nothing and answers 0.
     */
    KEST_API BOOL DeflateRect(int dx, int dy);
    KEST_API BOOL DeflateRect(SIZE size);
    KEST_API BOOL DeflateRect(const RECT* rect);
    KEST_API BOOL DeflateRect(int left, int top, int right, int bottom);

    /** Moves the left edge to x, the top edge to y; width and height stay. */
    KEST_API void MoveToX(int x);
    KEST_API void MoveToY(int y);
    KEST_API void MoveToXY(int x, int y);
    KEST_API void MoveToXY(POINT point);

    /** Exchanges left and right if left > right, top and bottom if top > bottom. */
    KEST_API void NormalizeRect();

    /** As the function of the same name, with this rectangle as its destination. */
    KEST_API BOOL IntersectRect(const RECT* a, const RECT* b);
    KEST_API BOOL UnionRect(const RECT* a, const RECT* b);
    KEST_API BOOL SubtractRect(const RECT* a, const RECT* b);

    /** Copies the four fields. */
    KEST_API CRect& operator=(const RECT& rect);
    /** Whether all four fields are equal, or not. */
    KEST_API BOOL operator==(const RECT& rect) const;
    KEST_API BOOL operator!=(const RECT& rect) const;
    /** Two of a kind: C++20 would find the members above from both sides and call them ambiguous. */
    friend BOOL operator==(const CRect& a, const CRect& b) { return a == static_cast<const RECT&>(b); }
    friend BOOL operator!=(const CRect& a, const CRect& b) { return a != static_cast<const RECT&>(b); }

    /** Moves by a point or a size; a rectangle inflates or deflates, and null changes nothing. */
    KEST_API CRect& operator+=(POINT point);
    KEST_API CRect& operator+=(SIZE size);
    KEST_API CRect& operator+=(const RECT* rect);
    KEST_API CRect& operator-=(POINT point);
    KEST_API CRect& operator-=(SIZE size);
    KEST_API CRect& operator-=(const RECT* rect);
    /** IntersectRect and UnionRect of this rectangle and the other, into this one. */
    KEST_API CRect& operator&=(const RECT& rect);
    KEST_API CRect& operator|=(const RECT& rect);

    /** A copy, changed as += and -= change a rectangle. */
    KEST_API CRect operator+(POINT point) const;
    KEST_API CRect operator+(SIZE size) const;
    KEST_API CRect operator+(const RECT* rect) const;
    KEST_API CRect operator-(POINT point) const;
    KEST_API CRect operator-(SIZE size) const;
    KEST_API CRect operator-(const RECT* rect) const;
    /** A rectangle less a rectangle: without this it could as well be the distance between two pointers. */
    friend CRect operator-(const CRect& a, const CRect& b) { return a - static_cast<const RECT*>(b); }
    /**
     * IntersectRect and UnionRect into a null rectangle.
     * @differs{CRect.UnitesWithAnEmptyRectangleToNull} A union with an empty rectangle is the null rectangle.
     * @differs{CRect.IntersectsDisjointRectanglesToCrossedEdges} An intersection of rectangles that do not meet has
     * crossed edges.
     */
    KEST_API CRect operator&(const RECT& rect) const;
    KEST_API CRect operator|(const RECT& rect) const;

    /** Each field times num divided by den, as the function MulDiv answers. */
    KEST_API CRect MulDiv(int num, int den) const;
};

#endif

#endif
