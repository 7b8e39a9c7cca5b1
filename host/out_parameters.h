// Results that are stored where the caller gives a place for them.
#pragma once

#include <cstdint>

namespace kest::host
{

template <class T>
void storeIfWanted(T* out, std::int64_t value)
{
    if (out != nullptr)
    {
        *out = static_cast<T>(value);
    }
}

} // namespace kest::host
