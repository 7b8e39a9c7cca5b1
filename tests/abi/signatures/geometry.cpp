// Each function and member has the signature that modules built elsewhere call it by.
#include "kest/geometry.h"
#include "abi/signature.h"

#include <type_traits>

using namespace kest::test;

// ---- Functions ---------------------------------------------------------------------------------------------------

static_assert(hasSignature<BOOL(RECT*, const RECT*), CopyRect>);
static_assert(hasSignature<BOOL(RECT*, int, int, int, int), SetRect>);
static_assert(hasSignature<BOOL(RECT*), SetRectEmpty>);
static_assert(hasSignature<BOOL(const RECT*), IsRectEmpty>);
static_assert(hasSignature<BOOL(const RECT*, POINT), PtInRect>);
static_assert(hasSignature<BOOL(const RECT*, const RECT*), EqualRect>);
static_assert(hasSignature<BOOL(RECT*, int, int), InflateRect>);
static_assert(hasSignature<BOOL(RECT*, int, int), OffsetRect>);
static_assert(hasSignature<BOOL(RECT*, const RECT*, const RECT*), IntersectRect>);
static_assert(hasSignature<BOOL(RECT*, const RECT*, const RECT*), UnionRect>);
static_assert(hasSignature<BOOL(RECT*, const RECT*, const RECT*), SubtractRect>);
static_assert(hasSignature<int(int, int, int), MulDiv>);

// ---- CSize -------------------------------------------------------------------------------------------------------

static_assert(std::is_base_of_v<SIZE, CSize> && sizeof(CSize) == 8 && !std::is_polymorphic_v<CSize>);
static_assert(std::is_constructible_v<CSize>);
static_assert(std::is_constructible_v<CSize, int, int>);
static_assert(std::is_constructible_v<CSize, SIZE>);
static_assert(std::is_constructible_v<CSize, POINT>);
static_assert(std::is_constructible_v<CSize, unsigned int>);
static_assert(hasMember<void (CSize::*)(int, int), &CSize::SetSize>);
static_assert(hasMember<BOOL (CSize::*)(SIZE) const, (&CSize::operator==)>);
static_assert(hasMember<BOOL (CSize::*)(SIZE) const, (&CSize::operator!=)>);
static_assert(hasMember<CSize& (CSize::*)(SIZE), (&CSize::operator+=)>);
static_assert(hasMember<CSize& (CSize::*)(SIZE), (&CSize::operator-=)>);
static_assert(hasMember<CSize (CSize::*)(SIZE) const, (&CSize::operator+)>);
static_assert(hasMember<CSize (CSize::*)(SIZE) const, (&CSize::operator-)>);
static_assert(hasMember<CSize (CSize::*)() const, (&CSize::operator-)>);
static_assert(hasMember<CPoint (CSize::*)(POINT) const, (&CSize::operator+)>);
static_assert(hasMember<CPoint (CSize::*)(POINT) const, (&CSize::operator-)>);
static_assert(hasMember<CRect (CSize::*)(const RECT*) const, (&CSize::operator+)>);
static_assert(hasMember<CRect (CSize::*)(const RECT*) const, (&CSize::operator-)>);

// ---- CPoint ------------------------------------------------------------------------------------------------------

static_assert(std::is_base_of_v<POINT, CPoint> && sizeof(CPoint) == 8 && !std::is_polymorphic_v<CPoint>);
static_assert(std::is_constructible_v<CPoint>);
static_assert(std::is_constructible_v<CPoint, int, int>);
static_assert(std::is_constructible_v<CPoint, long>);
static_assert(hasMember<void (CPoint::*)(int, int), &CPoint::SetPoint>);
static_assert(hasMember<void (CPoint::*)(int, int), &CPoint::Offset>);
static_assert(hasMember<void (CPoint::*)(POINT), &CPoint::Offset>);
static_assert(hasMember<void (CPoint::*)(SIZE), &CPoint::Offset>);
static_assert(hasMember<BOOL (CPoint::*)(POINT) const, (&CPoint::operator==)>);
static_assert(hasMember<BOOL (CPoint::*)(POINT) const, (&CPoint::operator!=)>);
static_assert(hasMember<CPoint& (CPoint::*)(SIZE), (&CPoint::operator+=)>);
static_assert(hasMember<CPoint& (CPoint::*)(SIZE), (&CPoint::operator-=)>);
static_assert(hasMember<CPoint& (CPoint::*)(POINT), (&CPoint::operator+=)>);
static_assert(hasMember<CPoint& (CPoint::*)(POINT), (&CPoint::operator-=)>);
static_assert(hasMember<CPoint (CPoint::*)(SIZE) const, (&CPoint::operator+)>);
static_assert(hasMember<CPoint (CPoint::*)(SIZE) const, (&CPoint::operator-)>);
static_assert(hasMember<CPoint (CPoint::*)(POINT) const, (&CPoint::operator+)>);
static_assert(hasMember<CSize (CPoint::*)(POINT) const, (&CPoint::operator-)>);
static_assert(hasMember<CPoint (CPoint::*)() const, (&CPoint::operator-)>);
static_assert(hasMember<CRect (CPoint::*)(const RECT*) const, (&CPoint::operator+)>);
static_assert(hasMember<CRect (CPoint::*)(const RECT*) const, (&CPoint::operator-)>);

// ---- CRect -------------------------------------------------------------------------------------------------------

static_assert(std::is_base_of_v<RECT, CRect> && sizeof(CRect) == 16 && !std::is_polymorphic_v<CRect>);
static_assert(std::is_constructible_v<CRect>);
static_assert(std::is_constructible_v<CRect, int, int, int, int>);
static_assert(std::is_constructible_v<CRect, const RECT&>);
static_assert(std::is_constructible_v<CRect, const RECT*>);
static_assert(std::is_constructible_v<CRect, POINT, SIZE>);
static_assert(std::is_constructible_v<CRect, POINT, POINT>);
static_assert(hasMember<int (CRect::*)() const, &CRect::Width>);
static_assert(hasMember<int (CRect::*)() const, &CRect::Height>);
static_assert(hasMember<CSize (CRect::*)() const, &CRect::Size>);
static_assert(hasMember<CPoint& (CRect::*)(), &CRect::TopLeft>);
static_assert(hasMember<CPoint& (CRect::*)(), &CRect::BottomRight>);
static_assert(hasMember<const CPoint& (CRect::*)() const, &CRect::TopLeft>);
static_assert(hasMember<const CPoint& (CRect::*)() const, &CRect::BottomRight>);
static_assert(hasMember<CPoint (CRect::*)() const, &CRect::CenterPoint>);
static_assert(hasMember<void (CRect::*)(), &CRect::SwapLeftRight>);
static_assert(hasSignature<void(RECT*), CRect::SwapLeftRight>);
static_assert(hasMember<RECT* (CRect::*)(), (&CRect::operator RECT*)>);
static_assert(hasMember<const RECT* (CRect::*)() const, (&CRect::operator const RECT*)>);
static_assert(hasMember<BOOL (CRect::*)() const, &CRect::IsRectEmpty>);
static_assert(hasMember<BOOL (CRect::*)() const, &CRect::IsRectNull>);
static_assert(hasMember<BOOL (CRect::*)(POINT) const, &CRect::PtInRect>);
static_assert(hasMember<BOOL (CRect::*)(int, int, int, int), &CRect::SetRect>);
static_assert(hasMember<BOOL (CRect::*)(POINT, POINT), &CRect::SetRect>);
static_assert(hasMember<BOOL (CRect::*)(), &CRect::SetRectEmpty>);
static_assert(hasMember<BOOL (CRect::*)(const RECT*), &CRect::CopyRect>);
static_assert(hasMember<BOOL (CRect::*)(const RECT*) const, &CRect::EqualRect>);
static_assert(hasMember<BOOL (CRect::*)(int, int), &CRect::OffsetRect>);
static_assert(hasMember<BOOL (CRect::*)(POINT), &CRect::OffsetRect>);
static_assert(hasMember<BOOL (CRect::*)(SIZE), &CRect::OffsetRect>);
static_assert(hasMember<BOOL (CRect::*)(int, int), &CRect::InflateRect>);
static_assert(hasMember<BOOL (CRect::*)(SIZE), &CRect::InflateRect>);
static_assert(hasMember<BOOL (CRect::*)(const RECT*), &CRect::InflateRect>);
static_assert(hasMember<BOOL (CRect::*)(int, int, int, int), &CRect::InflateRect>);
static_assert(hasMember<BOOL (CRect::*)(int, int), &CRect::DeflateRect>);
static_assert(hasMember<BOOL (CRect::*)(SIZE), &CRect::DeflateRect>);
static_assert(hasMember<BOOL (CRect::*)(const RECT*), &CRect::DeflateRect>);
static_assert(hasMember<BOOL (CRect::*)(int, int, int, int), &CRect::DeflateRect>);
static_assert(hasMember<void (CRect::*)(int), &CRect::MoveToX>);
static_assert(hasMember<void (CRect::*)(int), &CRect::MoveToY>);
static_assert(hasMember<void (CRect::*)(int, int), &CRect::MoveToXY>);
static_assert(hasMember<void (CRect::*)(POINT), &CRect::MoveToXY>);
static_assert(hasMember<void (CRect::*)(), &CRect::NormalizeRect>);
static_assert(hasMember<BOOL (CRect::*)(const RECT*, const RECT*), &CRect::IntersectRect>);
static_assert(hasMember<BOOL (CRect::*)(const RECT*, const RECT*), &CRect::UnionRect>);
static_assert(hasMember<BOOL (CRect::*)(const RECT*, const RECT*), &CRect::SubtractRect>);
static_assert(hasMember<CRect& (CRect::*)(const RECT&), (&CRect::operator=)>);
static_assert(hasMember<BOOL (CRect::*)(const RECT&) const, (&CRect::operator==)>);
static_assert(hasMember<BOOL (CRect::*)(const RECT&) const, (&CRect::operator!=)>);
static_assert(hasMember<CRect& (CRect::*)(POINT), (&CRect::operator+=)>);
static_assert(hasMember<CRect& (CRect::*)(SIZE), (&CRect::operator+=)>);
static_assert(hasMember<CRect& (CRect::*)(const RECT*), (&CRect::operator+=)>);
static_assert(hasMember<CRect& (CRect::*)(POINT), (&CRect::operator-=)>);
static_assert(hasMember<CRect& (CRect::*)(SIZE), (&CRect::operator-=)>);
static_assert(hasMember<CRect& (CRect::*)(const RECT*), (&CRect::operator-=)>);
static_assert(hasMember<CRect& (CRect::*)(const RECT&), (&CRect::operator&=)>);
static_assert(hasMember<CRect& (CRect::*)(const RECT&), (&CRect::operator|=)>);
static_assert(hasMember<CRect (CRect::*)(POINT) const, (&CRect::operator+)>);
static_assert(hasMember<CRect (CRect::*)(SIZE) const, (&CRect::operator+)>);
static_assert(hasMember<CRect (CRect::*)(const RECT*) const, (&CRect::operator+)>);
static_assert(hasMember<CRect (CRect::*)(POINT) const, (&CRect::operator-)>);
static_assert(hasMember<CRect (CRect::*)(SIZE) const, (&CRect::operator-)>);
static_assert(hasMember<CRect (CRect::*)(const RECT*) const, (&CRect::operator-)>);
static_assert(hasMember<CRect (CRect::*)(const RECT&) const, (&CRect::operator&)>);
static_assert(hasMember<CRect (CRect::*)(const RECT&) const, (&CRect::operator|)>);
static_assert(hasMember<CRect (CRect::*)(int, int) const, &CRect::MulDiv>);
