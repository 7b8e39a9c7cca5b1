// Cases of the benchmark program. A pair is ours and a baseline that does the same work without us: both run in
// batches that take turns, so that whatever else the machine does meets both alike, and what is reported is the ratio
// of neighbouring batches. A growth case runs one function on 1, 10 and 100 times an input, taking turns likewise; the
// least disturbed batch counts.
#pragma once

#include <algorithm>
#include <array>
#include <benchmark/benchmark.h>
#include <chrono>
#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

namespace kest::benchmarks
{

// What a batch needs around it, outside the time that is taken.
struct Around
{
    std::function<void()> before = [] {};
    std::function<void()> after = [] {};
    // For functions whose traces (files, descriptors) must be cleared away before there are too many.
    long mostCalls = 1L << 20;
};

// Checks of what operations return: nothing is asked, or numbers and pointers are compared with 0, or ours with the
// baseline's.
struct AnyResult
{
    template <class... Results>
    bool operator()(const Results&...) const
    {
        return true;
    }
};
struct AllZero
{
    template <class... Results>
    bool operator()(const Results&... results) const
    {
        return ((results == 0) && ...);
    }
};
struct NoneZero
{
    template <class... Results>
    bool operator()(const Results&... results) const
    {
        return ((results != 0) && ...);
    }
};
struct EqualResults
{
    template <class Ours, class Baseline>
    bool operator()(const Ours& ours, const Baseline& baseline) const
    {
        return ours == baseline;
    }
};

// Whether a case was skipped over a result that it must not have.
inline bool& anyCaseFailed()
{
    static bool failed = false;
    return failed;
}

// An operation that fails looks fast.
inline void fail(benchmark::State& state)
{
    anyCaseFailed() = true;
    state.SkipWithError("an operation's result is not what it must be");
}

// What one call returns.
template <class Operation>
auto resultOf(Operation& operation, const Around& around)
{
    around.before();
    if constexpr (std::is_void_v<std::invoke_result_t<Operation&>>)
    {
        operation();
        around.after();
        return std::monostate();
    }
    else
    {
        const auto result = operation();
        around.after();
        return result;
    }
}

// Nanoseconds that so many calls take.
template <class Operation>
double timeOf(Operation& operation, long calls, const Around& around)
{
    using Clock = std::chrono::steady_clock;
    around.before();
    const Clock::time_point begin = Clock::now();
    for (long call = 0; call < calls; ++call)
    {
        if constexpr (std::is_void_v<std::invoke_result_t<Operation&>>)
        {
            operation();
        }
        else
        {
            benchmark::DoNotOptimize(operation());
        }
        benchmark::ClobberMemory();
    }
    const std::chrono::duration<double, std::nano> taken = Clock::now() - begin;
    around.after();
    return taken.count();
}

// As many calls as make a batch long beside the clock's resolution and short beside the machine's moods.
template <class Operation>
long callsOfBatch(Operation& operation, const Around& around)
{
    constexpr double batchNanoseconds = 50'000;
    long calls = 1;
    while (calls * 2 <= around.mostCalls && timeOf(operation, calls, around) < batchNanoseconds)
    {
        calls *= 2;
    }
    return calls;
}

inline double median(std::vector<double> numbers)
{
    const auto middle = numbers.begin() + static_cast<std::ptrdiff_t>(numbers.size() / 2);
    std::nth_element(numbers.begin(), middle, numbers.end());
    return *middle;
}

// Registers a pair whose operations `prepare` makes, as a std::pair, when the case first runs. The target is the ratio
// that ours must stay within. The baseline's name says what it is ("wcslen", "open"). `check` is called with what either
// returns before anything is measured, and answers whether both have done their work.
template <class Prepare, class Check = AnyResult>
void addPreparedPair(const std::string& name, double target, const std::string& baselineName, Prepare prepare,
                     const Around& around = {}, Check check = {})
{
    struct Prepared
    {
        decltype(prepare()) operations;
        long calls;
    };
    const auto prepared = std::make_shared<std::optional<Prepared>>();
    const auto run = [=](benchmark::State& state)
    {
        if (!*prepared)
        {
            prepared->emplace(Prepared{prepare(), 0});
        }
        auto& [operations, calls] = **prepared;
        auto& [ours, baseline] = operations;
        if (!check(resultOf(ours, around), resultOf(baseline, around)))
        {
            fail(state);
            return;
        }
        if (calls == 0)
        {
            calls = callsOfBatch(ours, around);
        }
        std::vector<double> oursTimes;
        std::vector<double> baselineTimes;
        std::vector<double> ratios;
        // Whatever ran before this case has left its own things in the caches.
        timeOf(baseline, 1, around);
        for (auto _ : state)
        {
            // Ours on both sides of the baseline: what changes steadily meanwhile meets both alike.
            double oursTime = timeOf(ours, calls, around);
            const double baselineTime = timeOf(baseline, calls, around) + timeOf(baseline, calls, around);
            oursTime += timeOf(ours, calls, around);
            oursTimes.push_back(oursTime);
            baselineTimes.push_back(baselineTime);
            ratios.push_back(oursTime / baselineTime);
            state.SetIterationTime((oursTime + baselineTime) * 1e-9);
        }
        const auto batch = static_cast<double>(2 * calls);
        state.counters["target"] = target;
        state.counters["ours"] = median(std::move(oursTimes)) / batch;
        state.counters["baseline"] = median(std::move(baselineTimes)) / batch;
        state.counters["ratio"] = median(std::move(ratios));
        state.SetLabel(baselineName);
    };
    benchmark::RegisterBenchmark(name.c_str(), run)->UseManualTime();
}

// Registers a pair that needs no preparing.
template <class Ours, class Baseline, class Check = AnyResult>
void addPair(const std::string& name, double target, const std::string& baselineName, Ours ours, Baseline baseline,
             const Around& around = {}, Check check = {})
{
    addPreparedPair(
        name, target, baselineName, [=] { return std::pair(ours, baseline); }, around, check);
}

// `prepare` is called with a size and returns the operation on an input of that size; `check` is called with what each
// operation returns before anything is measured.
template <class Prepare, class Check = AnyResult>
void addGrowth(const std::string& name, const std::string& unit, long size, Prepare prepare, const Around& around = {},
               Check check = {})
{
    const auto run = [=](benchmark::State& state)
    {
        constexpr std::size_t steps = 3;
        std::array operations = {prepare(size), prepare(size * 10), prepare(size * 100)};
        std::array<long, steps> calls;
        std::array<double, steps> times;
        times.fill(std::numeric_limits<double>::infinity());
        for (std::size_t step = 0; step < steps; ++step)
        {
            if (!check(resultOf(operations[step], around)))
            {
                fail(state);
                return;
            }
            calls[step] = callsOfBatch(operations[step], around);
        }
        for (auto _ : state)
        {
            double sum = 0;
            for (std::size_t step = 0; step < steps; ++step)
            {
                const double time = timeOf(operations[step], calls[step], around);
                times[step] = std::min(times[step], time / static_cast<double>(calls[step]));
                sum += time;
            }
            state.SetIterationTime(sum * 1e-9);
        }
        state.counters["size"] = static_cast<double>(size);
        state.counters["once"] = times[0];
        state.counters["tenfold"] = times[1];
        state.counters["hundredfold"] = times[2];
        state.SetLabel(unit);
    };
    benchmark::RegisterBenchmark(("growth/" + name).c_str(), run)->UseManualTime();
}

} // namespace kest::benchmarks
