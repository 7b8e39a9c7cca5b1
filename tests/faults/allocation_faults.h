// Allocations that fail, one after the other, and what a function makes of it. The program's own malloc and its
// relatives stand in front of the C library's; the shared libraries in the process use them too.
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace kest::test
{

// While this lives, allocations of this thread fail.
class FailingAllocation
{
public:
    enum class Extent
    {
        thisOne,
        thisOneAndAllBehindIt
    };

    // Counted from 1.
    FailingAllocation(long number, Extent extent);
    ~FailingAllocation();
    FailingAllocation(const FailingAllocation&) = delete;
    FailingAllocation& operator=(const FailingAllocation&) = delete;

    // Whether it came so far.
    bool reached() const;
};

// Blocks that the process holds.
long liveBlocks();

// A call, and what must hold when an allocation in it fails: either it succeeds all the same, or it answers its
// failure and nothing has happened.
struct AllocatingCall
{
    std::string name;
    // The function alone, its result as a number.
    std::function<long()> call;
    long success;
    // What it answers without memory; nothing: std::bad_alloc comes out of it.
    std::optional<long> failure;
    // std::bad_alloc may come out of it as well, where its failure is that of the loader.
    bool mayThrow = false;
    // Whether the state is that of success, or that of failure.
    std::function<void(bool succeeded)> check = [](bool) {};
    // For a call of so many allocations that failing one alone has to do.
    bool oneAlone = false;
    // Around each call; after the second the process holds the blocks and descriptors that it held before the first.
    std::function<void()> prepare = [] {};
    std::function<void()> release = [] {};
};

// Lets the first allocation of the call fail, then the second, and so on until none fails any more; each alone, and
// with all behind it. What a process allocates once and keeps, such as a locale's conversion in the C library, a call
// before these has already made.
void expectEveryFailureHandled(const AllocatingCall& row);

// Likewise for what a process allocates once: no call comes before, and each has a process of its own, which ends with
// it. Blocks that stay behind are not counted.
void expectEveryFailureOfTheFirstCallHandled(const AllocatingCall& row);

// Likewise for each row of a table.
template <class Rows>
void expectEveryFailureHandled(const Rows& rows)
{
    for (const AllocatingCall& row : rows)
    {
        expectEveryFailureHandled(row);
    }
}

// A call that keeps something for good when it succeeds, and must keep nothing when it fails.
struct KeepingCall
{
    // Of each, the number of the allocation that fails in it.
    std::function<void(long number)> prepare;
    // Whether it succeeded.
    std::function<bool(long number)> call;
    std::function<void(long number, bool succeeded)> check;
};

// Lets the first allocation of the call fail, then the second, and so on until none fails any more; each alone.
void expectNothingKeptByFailures(const KeepingCall& keeping);

} // namespace kest::test
