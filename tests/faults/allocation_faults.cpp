#include "faults/allocation_faults.h"

#include "harness/in_child.h"
#include "harness/open_descriptors.h"

#include <atomic>
#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>
#include <new>
#include <unistd.h>

namespace
{

constexpr long never = std::numeric_limits<long>::max();

// Of the thread that makes them fail. Read by the very first allocations of the process: no construction.
struct Fault
{
    long seen;
    long first;
    long last;
};
constinit thread_local Fault fault = {0, never, never};

constinit std::atomic<long> live = 0;

bool fails()
{
    if (fault.first == never)
    {
        return false;
    }
    ++fault.seen;
    if (fault.seen < fault.first || fault.seen > fault.last)
    {
        return false;
    }
    errno = ENOMEM;
    return true;
}

void* counted(void* block)
{
    live += block != nullptr ? 1 : 0;
    return block;
}

} // namespace

// ---- In place of the C library's -----------------------------------------------------------------------------------

extern "C"
{
    void* __libc_malloc(std::size_t size);
    void* __libc_calloc(std::size_t count, std::size_t size);
    void* __libc_realloc(void* block, std::size_t size);
    void* __libc_memalign(std::size_t alignment, std::size_t size);
    void __libc_free(void* block);

    __attribute__((visibility("default"))) void* faultyMalloc(std::size_t size) __asm__("malloc");
    __attribute__((visibility("default"))) void* faultyCalloc(std::size_t count, std::size_t size) __asm__("calloc");
    __attribute__((visibility("default"))) void* faultyRealloc(void* block, std::size_t size) __asm__("realloc");
    __attribute__((visibility("default"))) void* faultyAlignedAlloc(std::size_t alignment,
                                                                    std::size_t size) __asm__("aligned_alloc");
    __attribute__((visibility("default"))) int faultyPosixMemalign(void** block, std::size_t alignment,
                                                                   std::size_t size) __asm__("posix_memalign");
    __attribute__((visibility("default"))) void countedFree(void* block) __asm__("free");
}

void* faultyMalloc(std::size_t size)
{
    return fails() ? nullptr : counted(__libc_malloc(size));
}

void* faultyCalloc(std::size_t count, std::size_t size)
{
    return fails() ? nullptr : counted(__libc_calloc(count, size));
}

void* faultyRealloc(void* block, std::size_t size)
{
    if (block == nullptr)
    {
        return faultyMalloc(size);
    }
    if (size == 0)
    {
        countedFree(block);
        return nullptr;
    }
    return fails() ? nullptr : __libc_realloc(block, size);
}

void* faultyAlignedAlloc(std::size_t alignment, std::size_t size)
{
    return fails() ? nullptr : counted(__libc_memalign(alignment, size));
}

int faultyPosixMemalign(void** block, std::size_t alignment, std::size_t size)
{
    void* const made = faultyAlignedAlloc(alignment, size);
    if (made == nullptr)
    {
        return ENOMEM;
    }
    *block = made;
    return 0;
}

void countedFree(void* block)
{
    live -= block != nullptr ? 1 : 0;
    __libc_free(block);
}

// ---- The loop ------------------------------------------------------------------------------------------------------

namespace kest::test
{

FailingAllocation::FailingAllocation(long number, Extent extent)
{
    fault = {0, number, extent == Extent::thisOne ? number : never};
}

FailingAllocation::~FailingAllocation()
{
    fault = {0, never, never};
}

bool FailingAllocation::reached() const
{
    return fault.seen >= fault.first;
}

long liveBlocks()
{
    return live;
}

namespace
{

struct Result
{
    bool reached = false;
    bool threw = false;
    long answer = 0;
};

Result callWith(const AllocatingCall& row, long number, FailingAllocation::Extent extent)
{
    Result result;
    const FailingAllocation failing(number, extent);
    try
    {
        result.answer = row.call();
    }
    catch (const std::bad_alloc&)
    {
        result.threw = true;
    }
    result.reached = failing.reached();
    return result;
}

bool answersFailure(const AllocatingCall& row, const Result& result)
{
    return result.threw ? !row.failure || row.mayThrow : result.answer == row.failure;
}

// One round; whether an allocation failed in it. `keptBlocks` receives how many blocks stay behind.
bool round(const AllocatingCall& row, long number, FailingAllocation::Extent extent, long& keptBlocks)
{
    const auto descriptors = openDescriptors();
    const long before = liveBlocks();
    row.prepare();
    const Result result = callWith(row, number, extent);
    const bool succeeded = !result.threw && result.answer == row.success;
    EXPECT_TRUE(succeeded || (result.reached && answersFailure(row, result)))
        << "it " << (result.threw ? "throws" : "answers " + std::to_string(result.answer));
    row.check(succeeded);
    row.release();
    keptBlocks = liveBlocks() - before;
    EXPECT_EQ(openDescriptors(), descriptors);
    return result.reached;
}

// Likewise. What the C library and the loader make once and keep, as late as after a failure, stays behind the first
// of several rounds alone.
bool roundWithoutLeak(const AllocatingCall& row, long number, FailingAllocation::Extent extent)
{
    long keptBlocks = 0;
    bool reached = round(row, number, extent, keptBlocks);
    for (int more = 0; more < 2 && keptBlocks != 0; ++more)
    {
        reached = round(row, number, extent, keptBlocks);
    }
    EXPECT_EQ(keptBlocks, 0) << "it keeps blocks each time";
    return reached;
}

// One round in a process of its own; whether an allocation failed in it.
bool roundInChild(const AllocatingCall& row, long number, FailingAllocation::Extent extent)
{
    int answer[2] = {-1, -1};
    EXPECT_EQ(pipe(answer), 0);
    EXPECT_EQ(statusInChild(
                  [&]
                  {
                      long keptBlocks = 0;
                      const bool reached = round(row, number, extent, keptBlocks);
                      EXPECT_EQ(write(answer[1], &reached, sizeof reached), static_cast<ssize_t>(sizeof reached));
                  }),
              0);
    close(answer[1]);
    bool reached = false;
    EXPECT_EQ(read(answer[0], &reached, sizeof reached), static_cast<ssize_t>(sizeof reached));
    close(answer[0]);
    return reached;
}

// Rounds with the first allocation failing, then the second, and so on until none fails any more.
void countUp(const AllocatingCall& row, FailingAllocation::Extent extent,
             bool (*oneRound)(const AllocatingCall&, long, FailingAllocation::Extent))
{
    long number = 1;
    while (!testing::Test::HasFailure() && oneRound(row, number, extent))
    {
        ++number;
    }
    EXPECT_TRUE(number > 1 || testing::Test::HasFailure()) << "it allocates nothing";
    if (testing::Test::HasFailure())
    {
        ADD_FAILURE() << "with allocation " << number
                      << (extent == FailingAllocation::Extent::thisOne ? "" : " and all behind it") << " failing";
    }
}

} // namespace

void expectEveryFailureOfTheFirstCallHandled(const AllocatingCall& row)
{
    SCOPED_TRACE(row.name);
    for (const auto extent : {FailingAllocation::Extent::thisOne, FailingAllocation::Extent::thisOneAndAllBehindIt})
    {
        countUp(row, extent, roundInChild);
        if (testing::Test::HasFailure())
        {
            return;
        }
    }
}

void expectEveryFailureHandled(const AllocatingCall& row)
{
    using enum FailingAllocation::Extent;
    SCOPED_TRACE(row.name);
    EXPECT_FALSE(roundWithoutLeak(row, never, thisOne));
    for (const auto extent : {thisOne, thisOneAndAllBehindIt})
    {
        if (row.oneAlone && extent == thisOneAndAllBehindIt)
        {
            return;
        }
        countUp(row, extent, roundWithoutLeak);
        if (testing::Test::HasFailure())
        {
            return;
        }
    }
}

void expectNothingKeptByFailures(const KeepingCall& keeping)
{
    bool reached = true;
    for (long number = 1; reached; ++number)
    {
        keeping.prepare(number);
        const long before = liveBlocks();
        bool succeeded = false;
        {
            const FailingAllocation failing(number, FailingAllocation::Extent::thisOne);
            succeeded = keeping.call(number);
            reached = failing.reached();
        }
        EXPECT_TRUE(succeeded || reached);
        EXPECT_TRUE(succeeded || liveBlocks() == before) << "it keeps blocks with allocation " << number << " failing";
        EXPECT_TRUE(number > 1 || reached) << "it allocates nothing";
        keeping.check(number, succeeded);
    }
}

} // namespace kest::test
