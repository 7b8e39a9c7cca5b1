// Cases of the benchmark program: each is a pair, ours and a baseline that does the same work without us, so
// that what is reported is a ratio of two measurements of the same run.
#pragma once

#include <benchmark/benchmark.h>
#include <string>

namespace kest::benchmarks
{

// Registers "<name>/ours" and "<name>/baseline". The target is the ratio that ours must stay within; both
// functions take the state and loop over it. The baseline's name says what it is ("wcslen", "fopen").
template <class Ours, class Baseline>
void addPair(const std::string& name, double target, const std::string& baselineName, Ours ours, Baseline baseline)
{
    const auto labelled = [target, baselineName](auto function)
    {
        return [=](benchmark::State& state)
        {
            function(state);
            state.counters["target"] = target;
            state.SetLabel(baselineName);
        };
    };
    benchmark::RegisterBenchmark((name + "/ours").c_str(), labelled(ours));
    benchmark::RegisterBenchmark((name + "/baseline").c_str(), labelled(baseline));
}

// Registers one function at 1, 10 and 100 times an input size: "<name>/growth/<size>".
template <class Function>
void addGrowth(const std::string& name, long size, Function function)
{
    for (const long factor : {1, 10, 100})
    {
        benchmark::RegisterBenchmark((name + "/growth/" + std::to_string(size * factor)).c_str(),
                                     [=](benchmark::State& state) { function(state, size * factor); });
    }
}

} // namespace kest::benchmarks
