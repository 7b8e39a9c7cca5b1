// A host laid out by hand: a hub and nine services whose tables are bare arrays of function pointers, as a host built
// elsewhere lays them out. It owes nothing to the declarations of the interfaces, so that it proves their slots. Every
// call is recorded; a call of an unused slot fails the test. A getter hands out two objects in turn, and a call fails
// the test on any object but the one handed out last: which getter call a forward goes by shows.
#pragma once

#include "kest/base_types.h"

#include <cstdint>
#include <functional>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

class IPlatformServices;

namespace kest::test
{

enum class Service
{
    window,
    fileSystem,
    cursor,
    font,
    graphics,
    profile,
    dialog,
    registry,
    system
};
inline constexpr int serviceCount = 9;

// An argument or a result, whole.
using Word = std::uint64_t;

template <class T>
Word toWord(const T& value)
{
    if constexpr (std::is_integral_v<T>)
    {
        return static_cast<Word>(value);
    }
    else if constexpr (std::is_pointer_v<T>)
    {
        return reinterpret_cast<Word>(value);
    }
    else if constexpr (std::is_same_v<T, POINT>)
    {
        return static_cast<Word>(static_cast<std::uint32_t>(value.x)) << 32 | static_cast<std::uint32_t>(value.y);
    }
    else
    {
        return reinterpret_cast<Word>(&value); // text that travels by reference
    }
}

template <class T>
T fromWord(Word word)
{
    if constexpr (std::is_integral_v<T>)
    {
        return static_cast<T>(word);
    }
    else if constexpr (std::is_pointer_v<T>)
    {
        return reinterpret_cast<T>(word);
    }
    else if constexpr (std::is_same_v<T, POINT>)
    {
        return {static_cast<LONG>(word >> 32), static_cast<LONG>(word)};
    }
    else
    {
        return {};
    }
}

struct ServiceCall
{
    Service service;
    int position;
    std::vector<Word> arguments;

    bool operator==(const ServiceCall&) const = default;
};

// Installed from its construction to its destruction; one at a time.
class HandLaidHost
{
public:
    HandLaidHost();
    ~HandLaidHost();
    HandLaidHost(const HandLaidHost&) = delete;
    HandLaidHost& operator=(const HandLaidHost&) = delete;

    // What every operation answers, cut to the width of its result; negative at every width.
    static constexpr Word answer = 0xF8E9DACBBCADFE8F;
    // What an operation answers instead.
    void answerWith(Word word);
    // What an operation that answers text answers.
    static const wchar_t* const textAnswer;

    // From now on the service's getter answers null.
    void withhold(Service service);

    // Runs within every operation, behind its recording.
    void whenCalled(std::function<void(const ServiceCall&)> action);

    // Calls of operations, in order.
    const std::vector<ServiceCall>& calls() const;

    // Calls of a service's getter, and of all.
    int getterCalls(Service service) const;
    int getterCalls() const;

    // Calls of unused slots, the hub's included, as "service position"; reading them excuses them.
    std::vector<std::string> takeUnusedCalls();

    IPlatformServices* hub() const;

private:
    IPlatformServices* previous_;
};

// What a call was made with and what it answered.
struct Outcome
{
    std::vector<Word> arguments;
    Word result;
};

// A value for the argument at an index: no two alike in any half, negative where the type is signed.
template <class T>
T distinctValue(std::size_t index)
{
    return fromWord<T>(0xF1E2D3C4B5A69780 + index * 0x0101010101010010);
}

// Calls a function with a distinct value in every argument. `Result` is what the host's operation answers.
template <class Result, class... Parameters, class Function>
Outcome callWithDistinctArguments(Function function)
{
    const auto makeArguments = []<std::size_t... Index>(std::index_sequence<Index...>)
    {
        return std::tuple<std::remove_cvref_t<Parameters>...>{distinctValue<std::remove_cvref_t<Parameters>>(Index)...};
    };
    auto arguments = makeArguments(std::index_sequence_for<Parameters...>());
    Outcome outcome{};
    outcome.arguments =
        std::apply([](const auto&... argument) { return std::vector<Word>{toWord(argument)...}; }, arguments);
    if constexpr (std::is_void_v<Result>)
    {
        std::apply(function, arguments);
    }
    else
    {
        outcome.result = toWord<Result>(std::apply(function, arguments));
    }
    return outcome;
}

} // namespace kest::test
