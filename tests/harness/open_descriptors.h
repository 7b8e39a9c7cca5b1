// What descriptors the process has open: a test compares before and after.
#pragma once

#include <cstddef>
#include <fcntl.h>
#include <filesystem>
#include <iterator>
#include <set>
#include <string>
#include <unistd.h>

namespace kest::test
{

// The open descriptors. Looking opens one of its own, which is not counted.
inline std::set<int> openDescriptors()
{
    std::set<int> numbers;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd"))
    {
        numbers.insert(std::stoi(entry.path().filename()));
    }
    for (auto number = numbers.begin(); number != numbers.end();)
    {
        number = fcntl(*number, F_GETFD) == -1 ? numbers.erase(number) : std::next(number);
    }
    return numbers;
}

inline std::size_t openDescriptorCount()
{
    return openDescriptors().size();
}

// Closes at its end what the calls under test have left open.
class LeftOpen
{
public:
    LeftOpen() = default;
    ~LeftOpen()
    {
        for (const int descriptor : descriptors())
        {
            close(descriptor);
        }
    }
    LeftOpen(const LeftOpen&) = delete;
    LeftOpen& operator=(const LeftOpen&) = delete;

    // Those open now that were not at the beginning.
    std::set<int> descriptors() const
    {
        std::set<int> numbers = openDescriptors();
        for (const int descriptor : before_)
        {
            numbers.erase(descriptor);
        }
        return numbers;
    }

private:
    std::set<int> before_ = openDescriptors();
};

} // namespace kest::test
