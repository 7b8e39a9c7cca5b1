// String-object registration, from one and from several threads, beside a bare ring of addresses.
#include "families.h"
#include "kest/wide_string.h"
#include "pairs.h"

#include <array>
#include <atomic>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace kest::benchmarks
{

namespace
{

constexpr double target = 2;

std::array<std::atomic<const void*>, 16> ring;
std::atomic<unsigned> nextSlot;

void storeInRing(const void* object)
{
    ring[nextSlot.fetch_add(1, std::memory_order_relaxed) % ring.size()].store(object, std::memory_order_relaxed);
}

// Called through a pointer, as functions of shared objects are.
void (*volatile reportToRing)(const void*) = storeInRing;

// Many reports of each thread, so that starting the threads does not count.
void fromThreads(unsigned count, void (*report)(const void*))
{
    constexpr int reports = 20'000;
    std::vector<std::jthread> threads;
    for (unsigned thread = 0; thread < count; ++thread)
    {
        threads.emplace_back(
            [report]
            {
                const int object = 0;
                for (int i = 0; i < reports; ++i)
                {
                    report(&object);
                }
            });
    }
}

} // namespace

void addStringObjects()
{
    addPair(
        "string objects/report", target, "atomic ring", [object = 0] { updateCStringManagerData(&object); },
        [object = 0] { reportToRing(&object); });
    addPair(
        "string objects/construct", target, "std::wstring and atomic ring",
        [] { return CStdStr<wchar_t>(L"a module name.dll").size(); },
        []
        {
            const std::wstring string(L"a module name.dll");
            reportToRing(&string);
            return string.size();
        });
    for (const unsigned threads : {2U, 4U})
    {
        addPair(
            "string objects/20000 reports from each of " + std::to_string(threads) + " threads", target, "atomic ring",
            [=] { fromThreads(threads, updateCStringManagerData); }, [=] { fromThreads(threads, reportToRing); });
    }
}

} // namespace kest::benchmarks
