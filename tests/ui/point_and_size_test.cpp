#include "ui/geometry_fields.h"

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <type_traits>

namespace
{

using namespace kest::test;

// By value in registers, laid out as the structure underneath.
template <class Class, class Structure>
constexpr bool travelsAs = sizeof(Class) == sizeof(Structure) && alignof(Class) == alignof(Structure) &&
                           std::is_trivially_copyable_v<Class>&& std::is_trivially_destructible_v<
                               Class>&& std::is_base_of_v<Structure, Class> &&
                           !std::is_polymorphic_v<Class>;
static_assert(travelsAs<CSize, SIZE> && travelsAs<CPoint, POINT> && travelsAs<CRect, RECT>);

// The classes of the results.
template <class Expected, class Value>
bool isA(const Value&)
{
    return std::is_same_v<Expected, Value>;
}

// ---- CSize --------------------------------------------------------------------------------------------------------

TEST(SizeClass, ConstructsFromEverything)
{
    EXPECT_EQ(fields(CSize()), (Pair{0, 0}));
    EXPECT_EQ(fields(CSize(3, -4)), (Pair{3, -4}));
    EXPECT_EQ(fields(CSize(SIZE{5, 6})), (Pair{5, 6}));
    EXPECT_EQ(fields(CSize(POINT{7, 8})), (Pair{7, 8}));
    EXPECT_EQ(fields(CSize(CPoint(9, 10))), (Pair{9, 10}));
    CSize size;
    size.SetSize(lowest, highest);
    EXPECT_EQ(fields(size), (Pair{lowest, highest}));
}

TEST(SizeClass, UnpacksTwoSignedHalves)
{
    const struct
    {
        unsigned int packed;
        Pair size;
    } rows[] = {
        {0xFFFF0001U, {1, -1}},         {0x0000FFFFU, {-1, 0}},  {0x00010002U, {2, 1}}, {0x80007FFFU, {32767, -32768}},
        {0x7FFF8000U, {-32768, 32767}}, {0xFFFFFFFFU, {-1, -1}}, {0U, {0, 0}},
    };
    for (const auto& row : rows)
    {
        EXPECT_EQ(fields(CSize(row.packed)), row.size) << row.packed;
    }
}

TEST(SizeClass, ComparesBothFields)
{
    const CSize size(1, 2);
    EXPECT_EQ(size == (SIZE{1, 2}), 1);
    EXPECT_EQ(size == (SIZE{0, 2}), 0);
    EXPECT_EQ(size == (SIZE{1, 0}), 0);
    EXPECT_EQ(size != (SIZE{1, 2}), 0);
    EXPECT_EQ(size != (SIZE{0, 2}), 1);
    EXPECT_EQ(size != (SIZE{1, 0}), 1);
    EXPECT_EQ(size == CSize(1, 2), 1);
    EXPECT_EQ(size == CSize(2, 1), 0);
    EXPECT_EQ(size != CSize(1, 2), 0);
    EXPECT_EQ(size != CSize(2, 1), 1);
}

TEST(SizeClass, AddsAndSubtractsFieldByField)
{
    CSize size(10, 20);
    size += SIZE{1, 2};
    EXPECT_EQ(fields(size), (Pair{11, 22}));
    size -= CSize(3, 4);
    EXPECT_EQ(fields(size), (Pair{8, 18}));

    const CSize constant(10, 20);
    EXPECT_EQ(fields(constant + SIZE{1, 2}), (Pair{11, 22}));
    EXPECT_EQ(fields(constant - CSize(1, 2)), (Pair{9, 18}));
    EXPECT_TRUE(isA<CSize>(constant + SIZE{}) && isA<CSize>(constant - SIZE{}) && isA<CSize>(-constant));
    EXPECT_EQ(fields(constant + POINT{1, 2}), (Pair{11, 22}));
    EXPECT_EQ(fields(constant - CPoint(1, 2)), (Pair{9, 18}));
    EXPECT_TRUE(isA<CPoint>(constant + POINT{}) && isA<CPoint>(constant - POINT{}));
    EXPECT_EQ(fields(-constant), (Pair{-10, -20}));
    EXPECT_EQ(fields(constant), (Pair{10, 20}));
}

TEST(SizeClass, WrapsAround)
{
    EXPECT_EQ(fields(CSize(highest, lowest) + CSize(1, -1)), (Pair{lowest, highest}));
    EXPECT_EQ(fields(CSize(lowest, highest) - CSize(1, -1)), (Pair{highest, lowest}));
    EXPECT_EQ(fields(CSize(highest, lowest) + POINT{1, -1}), (Pair{lowest, highest}));
    EXPECT_EQ(fields(CSize(lowest, highest) - POINT{1, -1}), (Pair{highest, lowest}));
    EXPECT_EQ(fields(-CSize(lowest, highest)), (Pair{lowest, -highest}));
    CSize size(highest, lowest);
    size += CSize(highest, lowest);
    EXPECT_EQ(fields(size), (Pair{-2, 0}));
    size -= CSize(highest, lowest);
    EXPECT_EQ(fields(size), (Pair{highest, lowest}));
}

TEST(SizeClass, MovesARectangle)
{
    const CSize size(100, 200);
    const RECT rect = {1, 2, 3, 4};
    EXPECT_EQ(fields(size + &rect), (Fields{101, 202, 103, 204}));
    EXPECT_EQ(fields(size - &rect), (Fields{-99, -198, -97, -196}));
    EXPECT_EQ(fields(size + CRect(rect)), (Fields{101, 202, 103, 204}));
    EXPECT_EQ(fields(size - CRect(rect)), (Fields{-99, -198, -97, -196}));
    EXPECT_EQ(fields(CSize(lowest, 1) - &rect), (Fields{lowest + 1, 1, lowest + 3, 3}));
    EXPECT_EQ(fields(size + static_cast<const RECT*>(nullptr)), (Fields{100, 200, 100, 200}));
    EXPECT_EQ(fields(size - static_cast<const RECT*>(nullptr)), (Fields{-100, -200, -100, -200}));
    EXPECT_EQ(fields(rect), (Fields{1, 2, 3, 4}));
}

// ---- CPoint -------------------------------------------------------------------------------------------------------

TEST(PointClass, ConstructsFromEverything)
{
    EXPECT_EQ(fields(CPoint()), (Pair{0, 0}));
    EXPECT_EQ(fields(CPoint(3, -4)), (Pair{3, -4}));
    EXPECT_EQ(fields(CPoint(POINT{5, 6})), (Pair{5, 6}));
    EXPECT_EQ(fields(CPoint(SIZE{7, 8})), (Pair{7, 8}));
    CPoint point;
    point.SetPoint(lowest, highest);
    EXPECT_EQ(fields(point), (Pair{lowest, highest}));
}

TEST(PointClass, UnpacksTwoSignedHalves)
{
    const struct
    {
        LPARAM packed;
        Pair point;
    } rows[] = {
        {0x0000FFFFL, {-1, 0}},
        {0xFFFF0001L, {1, -1}},
        {0x00010002L, {2, 1}},
        {0x80007FFFL, {32767, -32768}},
        {0x7FFF8000L, {-32768, 32767}},
        {-1L, {-1, -1}},
        {0L, {0, 0}},
        {0x1234567800030004L, {4, 3}},
        {static_cast<LPARAM>(0x8000000000000000UL), {0, 0}},
    };
    for (const auto& row : rows)
    {
        EXPECT_EQ(fields(CPoint(row.packed)), row.point) << row.packed;
    }
    EXPECT_EQ(fields(CPoint(0)), (Pair{0, 0}));
    EXPECT_EQ(fields(CPoint(WPARAM{0x00050006})), (Pair{6, 5}));
}

TEST(PointClass, MovesByPointsAndSizes)
{
    CPoint point(10, 20);
    point.Offset(1, -2);
    EXPECT_EQ(fields(point), (Pair{11, 18}));
    point.Offset(POINT{3, 4});
    EXPECT_EQ(fields(point), (Pair{14, 22}));
    point.Offset(SIZE{-4, -2});
    EXPECT_EQ(fields(point), (Pair{10, 20}));
    point += SIZE{1, 2};
    EXPECT_EQ(fields(point), (Pair{11, 22}));
    point -= CSize(3, 4);
    EXPECT_EQ(fields(point), (Pair{8, 18}));
    point += CPoint(2, 2);
    EXPECT_EQ(fields(point), (Pair{10, 20}));
    point -= POINT{10, 19};
    EXPECT_EQ(fields(point), (Pair{0, 1}));
}

TEST(PointClass, ComparesBothFields)
{
    const CPoint point(1, 2);
    EXPECT_EQ(point == (POINT{1, 2}), 1);
    EXPECT_EQ(point == (POINT{0, 2}), 0);
    EXPECT_EQ(point == (POINT{1, 0}), 0);
    EXPECT_EQ(point != (POINT{1, 2}), 0);
    EXPECT_EQ(point != (POINT{0, 2}), 1);
    EXPECT_EQ(point != (POINT{1, 0}), 1);
    EXPECT_EQ(point == CPoint(1, 2), 1);
    EXPECT_EQ(point == CPoint(2, 1), 0);
    EXPECT_EQ(point != CPoint(1, 2), 0);
    EXPECT_EQ(point != CPoint(2, 1), 1);
}

TEST(PointClass, AddsAndSubtractsFieldByField)
{
    const CPoint point(10, 20);
    EXPECT_EQ(fields(point + SIZE{1, 2}), (Pair{11, 22}));
    EXPECT_EQ(fields(point - CSize(1, 2)), (Pair{9, 18}));
    EXPECT_EQ(fields(point + POINT{1, 2}), (Pair{11, 22}));
    EXPECT_EQ(fields(point - CPoint(1, 2)), (Pair{9, 18}));
    EXPECT_EQ(fields(-point), (Pair{-10, -20}));
    EXPECT_TRUE(isA<CPoint>(point + SIZE{}) && isA<CPoint>(point - SIZE{}) && isA<CPoint>(point + POINT{}));
    EXPECT_TRUE(isA<CSize>(point - POINT{}));
    EXPECT_TRUE(isA<CPoint>(-point));
    EXPECT_EQ(fields(point), (Pair{10, 20}));
}

TEST(PointClass, WrapsAround)
{
    const CPoint ends(highest, lowest);
    EXPECT_EQ(fields(ends + SIZE{1, -1}), (Pair{lowest, highest}));
    EXPECT_EQ(fields(ends + POINT{1, -1}), (Pair{lowest, highest}));
    EXPECT_EQ(fields(ends - SIZE{-1, 1}), (Pair{lowest, highest}));
    EXPECT_EQ(fields(ends - POINT{-1, 1}), (Pair{lowest, highest}));
    EXPECT_EQ(fields(-ends), (Pair{-highest, lowest}));
    CPoint point = ends;
    point.Offset(1, -1);
    EXPECT_EQ(fields(point), (Pair{lowest, highest}));
    point -= SIZE{1, -1};
    EXPECT_EQ(fields(point), fields(ends));
    point += SIZE{1, -1};
    point -= POINT{1, -1};
    EXPECT_EQ(fields(point), fields(ends));
}

TEST(PointClass, MovesARectangle)
{
    const CPoint point(100, 200);
    const RECT rect = {1, 2, 3, 4};
    EXPECT_EQ(fields(point + &rect), (Fields{101, 202, 103, 204}));
    EXPECT_EQ(fields(point - &rect), (Fields{-99, -198, -97, -196}));
    EXPECT_EQ(fields(point + CRect(rect)), (Fields{101, 202, 103, 204}));
    EXPECT_EQ(fields(point - CRect(rect)), (Fields{-99, -198, -97, -196}));
    EXPECT_EQ(fields(CPoint(1, lowest) - &rect), (Fields{0, lowest + 2, 2, lowest + 4}));
    EXPECT_EQ(fields(point + static_cast<const RECT*>(nullptr)), (Fields{100, 200, 100, 200}));
    EXPECT_EQ(fields(point - static_cast<const RECT*>(nullptr)), (Fields{-100, -200, -100, -200}));
}

// ---- Modules built elsewhere --------------------------------------------------------------------------------------

template <class Function>
Function* exported(const char* symbol)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_DEFAULT, symbol));
}

// They know the classes by their symbols, and pass the structures.
TEST(GeometryClasses, ServeCallersThatKnowTheStructuresOnly)
{
    const RECT rect = {1, 2, 11, 22};
    const POINT point = {5, 6};
    const SIZE size = exported<SIZE(const RECT*)>("_ZNK5CRect4SizeEv")(&rect);
    EXPECT_EQ(fields(size), (Pair{10, 20}));
    const POINT center = exported<POINT(const RECT*)>("_ZNK5CRect11CenterPointEv")(&rect);
    EXPECT_EQ(fields(center), (Pair{6, 12}));
    const POINT sum = exported<POINT(const POINT*, SIZE)>("_ZNK6CPointplE7tagSIZE")(&point, size);
    EXPECT_EQ(fields(sum), (Pair{15, 26}));
    const RECT moved = exported<RECT(const RECT*, POINT)>("_ZNK5CRectplE8tagPOINT")(&rect, point);
    EXPECT_EQ(fields(moved), (Fields{6, 8, 16, 28}));
    for (const char* constructor : {"_ZN5CRectC1E8tagPOINT7tagSIZE", "_ZN5CRectC2E8tagPOINT7tagSIZE"})
    {
        RECT made = {};
        exported<void(RECT*, POINT, SIZE)>(constructor)(&made, point, size);
        EXPECT_EQ(fields(made), (Fields{5, 6, 15, 26}));
    }
}

} // namespace
