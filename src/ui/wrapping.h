// 32-bit arithmetic that wraps around at both ends, as coordinates do.
#pragma once

namespace kest
{

inline int wrappingSum(int a, int b)
{
    return static_cast<int>(static_cast<unsigned>(a) + static_cast<unsigned>(b));
}

inline int wrappingDifference(int a, int b)
{
    return static_cast<int>(static_cast<unsigned>(a) - static_cast<unsigned>(b));
}

inline int wrappingNegation(int a)
{
    return wrappingDifference(0, a);
}

} // namespace kest
