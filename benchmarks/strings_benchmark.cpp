// String-object registration, from one and from several threads, beside a bare ring of addresses.
#include "kest/wide_string.h"
#include "pairs.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <string>

namespace
{

std::array<std::atomic<const void*>, 16> ring;
std::atomic<unsigned> nextSlot;

void report(benchmark::State& state)
{
    int object = 0;
    for (auto _ : state)
    {
        updateCStringManagerData(&object);
    }
}

void storeInRing(benchmark::State& state)
{
    int object = 0;
    for (auto _ : state)
    {
        ring[nextSlot.fetch_add(1, std::memory_order_relaxed) % ring.size()].store(&object, std::memory_order_relaxed);
    }
}

void construct(benchmark::State& state)
{
    for (auto _ : state)
    {
        CStdStr<wchar_t> string(L"a module name.dll");
        benchmark::DoNotOptimize(string);
    }
}

void constructPlain(benchmark::State& state)
{
    for (auto _ : state)
    {
        std::wstring string(L"a module name.dll");
        benchmark::DoNotOptimize(string);
    }
}

const bool registered = []
{
    using kest::benchmarks::addPair;
    addPair("string object/report", 2, "atomic ring", report, storeInRing);
    addPair("string object/construct", 1.5, "std::wstring", construct, constructPlain);
    for (const char* const name : {"string object/report, 2 threads/ours", "string object/report, 2 threads/baseline"})
    {
        const bool ours = std::string(name).ends_with("ours");
        benchmark::RegisterBenchmark(name,
                                     [ours](benchmark::State& state)
                                     {
                                         ours ? report(state) : storeInRing(state);
                                         state.counters["target"] =
                                             benchmark::Counter(2, benchmark::Counter::kAvgThreads);
                                         state.SetLabel("atomic ring");
                                     })
            ->Threads(2)
            ->UseRealTime();
    }
    return true;
}();

} // namespace
