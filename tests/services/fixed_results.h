// Tables of functions with a fixed answer: each is called with arguments of three kinds, and nothing may change.
#pragma once

#include "harness/hand_laid_host.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <functional>
#include <gtest/gtest.h>
#include <ostream>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

namespace kest::test
{

// What the arguments of a call are: small numbers and pointers to memory full of sentinels, each to a place of its own;
// null; all bits set, so that whoever follows a pointer dies.
enum class Arguments
{
    plausible,
    null,
    allBitsSet
};

class FixedResultCall
{
public:
    explicit FixedResultCall(Arguments kind) : kind_(kind)
    {
        memory_.fill(untouched);
        errno = lastError;
    }

    // An argument for any parameter type.
    template <class Parameter>
    Parameter argument()
    {
        if constexpr (std::is_reference_v<Parameter>)
        {
            return *reinterpret_cast<std::remove_reference_t<Parameter>*>(memory_.data());
        }
        else if constexpr (std::is_pointer_v<Parameter>)
        {
            return kind_ == Arguments::null        ? nullptr
                   : kind_ == Arguments::plausible ? pointer<std::remove_pointer_t<Parameter>>()
                                                   : reinterpret_cast<Parameter>(-1L);
        }
        else
        {
            return static_cast<Parameter>(kind_ == Arguments::null ? 0 : kind_ == Arguments::plausible ? 7 : -1);
        }
    }

    void expectNothingChanged() const
    {
        EXPECT_EQ(errno, lastError);
        EXPECT_EQ(host_.getterCalls(), 0);
        std::array<unsigned char, memorySize> expected;
        expected.fill(untouched);
        EXPECT_EQ(std::memcmp(memory_.data(), expected.data(), memorySize), 0) << "wrote through an argument";
    }

private:
    static constexpr int lastError = 4711;
    static constexpr unsigned char untouched = 0x5A;
    static constexpr std::size_t memorySize = 8192;
    static constexpr std::size_t placeSize = 512;

    template <class Target>
    Target* pointer()
    {
        if constexpr (std::is_function_v<Target>)
        {
            return neverCalled(static_cast<Target*>(nullptr));
        }
        else
        {
            return reinterpret_cast<Target*>(memory_.data() + placeSize * places_++);
        }
    }

    template <class Result, class... Parameters>
    static auto neverCalled(Result (*)(Parameters...)) -> Result (*)(Parameters...)
    {
        return [](Parameters...) -> Result
        {
            ADD_FAILURE() << "called back";
            return Result();
        };
    }

    const HandLaidHost host_;
    Arguments kind_;
    std::size_t places_ = 0;
    alignas(16) std::array<unsigned char, memorySize> memory_;
};

// One row: a function, as the table of exports names it, and what it always answers.
struct FixedResult
{
    std::string name;
    std::function<void(FixedResultCall&)> call;
};

template <class Result, class... Parameters>
FixedResult answers(const char* name, Result (*function)(Parameters...), std::type_identity_t<Result> answer)
{
    return {name, [=](FixedResultCall& call) { EXPECT_EQ(function(call.argument<Parameters>()...), answer); }};
}

template <class... Parameters>
FixedResult answersNothing(const char* name, void (*function)(Parameters...))
{
    return {name, [=](FixedResultCall& call) { function(call.argument<Parameters>()...); }};
}

template <std::size_t index, class Result, class... Parameters>
FixedResult answersItsArgument(const char* name, Result (*function)(Parameters...))
{
    return {name, [=](FixedResultCall& call)
            {
                const std::tuple<Parameters...> arguments{call.argument<Parameters>()...};
                EXPECT_EQ(std::apply(function, arguments), std::get<index>(arguments));
            }};
}

// The fixed results of one area.
struct FixedResultTopic
{
    const char* name;
    std::vector<FixedResult> rows;

    friend std::ostream& operator<<(std::ostream& out, const FixedResultTopic& topic) { return out << topic.name; }
};

// All of them, in the tables beside this file.
std::vector<FixedResultTopic> userInterfaceTopics();
std::vector<FixedResultTopic> systemTopics();

} // namespace kest::test
