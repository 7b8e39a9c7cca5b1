// The fields of the geometry structures, to compare and print them whole.
#pragma once

#include "kest/geometry.h"

#include <array>
#include <limits>

namespace kest::test
{

inline constexpr int lowest = std::numeric_limits<int>::min();
inline constexpr int highest = std::numeric_limits<int>::max();

using Fields = std::array<int, 4>;
using Pair = std::array<int, 2>;

inline Fields fields(const RECT& rect)
{
    return {rect.left, rect.top, rect.right, rect.bottom};
}

inline Pair fields(const POINT& point)
{
    return {point.x, point.y};
}

inline Pair fields(const SIZE& size)
{
    return {size.cx, size.cy};
}

} // namespace kest::test
