// A table of the C library's narrow character types replaced for a test's duration and thread: no locale at hand tells
// apart the entries of a byte taken as a signed and as an unsigned number.
#pragma once

#include <array>
#include <cstddef>

namespace kest::test
{

class ScopedTable
{
public:
    static constexpr int lowest = -128;
    static constexpr int highest = 255;

    // `location` is __ctype_toupper_loc() or __ctype_tolower_loc(); `entry` makes the entry of a code.
    template <class Entry>
    ScopedTable(const __int32_t** location, Entry entry) : location_(location), previous_(*location)
    {
        for (int code = lowest; code <= highest; ++code)
        {
            table_[static_cast<std::size_t>(code - lowest)] = entry(code);
        }
        *location_ = table_.data() - lowest;
    }
    ~ScopedTable() { *location_ = previous_; }
    ScopedTable(const ScopedTable&) = delete;
    ScopedTable& operator=(const ScopedTable&) = delete;

private:
    const __int32_t** location_;
    const __int32_t* previous_;
    std::array<__int32_t, highest - lowest + 1> table_;
};

} // namespace kest::test
