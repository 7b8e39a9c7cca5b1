// Process ends that a program goes on after: __chk_fail as the library calls it leaves the call under test instead.
// Everywhere else it ends the process, as the C library's does.
#pragma once

#include "kest/export.h"

#include <algorithm>
#include <array>
#include <csetjmp>
#include <cstddef>
#include <cstdlib>
#include <dlfcn.h>

namespace kest::test
{

// Where __chk_fail goes to while a call is under test.
inline std::jmp_buf* wayOut = nullptr;

} // namespace kest::test

extern "C"
{
    // In the place of the C library's.
    [[noreturn, gnu::used]] KEST_API inline void __chk_fail() noexcept
    {
        if (kest::test::wayOut != nullptr)
        {
            std::longjmp(*kest::test::wayOut, 1);
        }
        reinterpret_cast<void (*)()>(dlsym(RTLD_NEXT, "__chk_fail"))();
        std::abort();
    }
}

// The sanitizers', in programs that have one.
extern "C" [[gnu::weak]] int __sanitizer_install_malloc_and_free_hooks(void (*allocated)(const volatile void*,
                                                                                         std::size_t),
                                                                       void (*freed)(const volatile void*));

namespace kest::test
{

// The arrays of char that the call under test has and that it does not free when it is left. The address sanitizer
// would report them, and a long run of a fuzz target would use up all memory; other programs let them be.
class CallsMemory
{
public:
    CallsMemory()
    {
        [[maybe_unused]] static const bool installed = install();
        live_.fill(nullptr);
        watching_ = true;
    }
    ~CallsMemory() { watching_ = false; }
    CallsMemory(const CallsMemory&) = delete;
    CallsMemory& operator=(const CallsMemory&) = delete;

    static void free()
    {
        watching_ = false;
        for (const volatile void* const memory : live_)
        {
            delete[] static_cast<const volatile char*>(memory);
        }
    }

private:
    static bool install()
    {
        return __sanitizer_install_malloc_and_free_hooks != nullptr &&
               __sanitizer_install_malloc_and_free_hooks(
                   [](const volatile void* memory, std::size_t) { replace(nullptr, memory); },
                   [](const volatile void* memory) { replace(memory, nullptr); }) != 0;
    }

    static void replace(const volatile void* old, const volatile void* memory)
    {
        if (!watching_)
        {
            return;
        }
        const auto place = std::find(live_.begin(), live_.end(), old);
        if (place != live_.end())
        {
            *place = memory;
        }
    }

    static inline std::array<const volatile void*, 16> live_ = {};
    static inline bool watching_ = false;
};

// Makes the call; whether it would have ended the process. What it has at that time must be arrays of char.
template <class Call>
bool endsProcess(const Call& call)
{
    const CallsMemory memory;
    std::jmp_buf way;
    wayOut = &way;
    const bool ended = setjmp(way) != 0;
    if (ended)
    {
        CallsMemory::free();
    }
    else
    {
        call();
    }
    wayOut = nullptr;
    return ended;
}

} // namespace kest::test
