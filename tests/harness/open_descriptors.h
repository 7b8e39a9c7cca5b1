// What descriptors the process has open: a test compares before and after.
#pragma once

#include <cstddef>
#include <filesystem>
#include <iterator>

namespace kest::test
{

// The number of open descriptors. Counting opens one of its own, which is in every count.
inline std::size_t openDescriptorCount()
{
    const std::filesystem::directory_iterator descriptors("/proc/self/fd");
    return static_cast<std::size_t>(std::distance(begin(descriptors), end(descriptors)));
}

} // namespace kest::test
