// The registry functions that hand out keys: when they clear the caller's variable, and how they receive the key.
#include "harness/hand_laid_host.h"
#include "harness/stub_services.h"
#include "kest/registry.h"

#include <cerrno>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace
{

using namespace kest::test;

constexpr int untouchedError = 77;
const HKEY before = fromWord<HKEY>(0x1111222233334444);
const HKEY found = fromWord<HKEY>(0x5555666677778888);

// One of the four, called with a distinct value in every argument but the key's variable.
struct KeyFunction
{
    std::string name;
    int position;
    std::size_t keyArgument;
    bool creates;
    bool clearsWithoutHost;
    std::function<LONG(HKEY*)> call;
    std::vector<Word> otherArguments;
};

template <class T>
Word distinctWord(std::size_t index)
{
    return toWord(distinctValue<T>(index));
}

std::vector<KeyFunction> keyFunctions()
{
    const auto key = distinctValue<HKEY>(0);
    const auto name = distinctValue<const wchar_t*>(1);
    const Word keyWord = distinctWord<HKEY>(0);
    const Word nameWord = distinctWord<const wchar_t*>(1);
    return {
        {"RegOpenKeyW",
         4,
         2,
         false,
         true,
         [=](HKEY* result) { return RegOpenKeyW(key, name, result); },
         {keyWord, nameWord}},
        {"RegOpenKeyExW",
         3,
         4,
         false,
         false,
         [=](HKEY* result)
         { return RegOpenKeyExW(key, name, distinctValue<DWORD>(2), distinctValue<REGSAM>(3), result); },
         {keyWord, nameWord, distinctWord<DWORD>(2), distinctWord<REGSAM>(3)}},
        {"RegCreateKeyExW",
         2,
         7,
         true,
         false,
         [=](HKEY* result)
         {
             return RegCreateKeyExW(key, name, distinctValue<DWORD>(2), distinctValue<wchar_t*>(3),
                                    distinctValue<DWORD>(4), distinctValue<REGSAM>(5),
                                    distinctValue<SECURITY_ATTRIBUTES*>(6), result, distinctValue<DWORD*>(8));
         },
         {keyWord, nameWord, distinctWord<DWORD>(2), distinctWord<wchar_t*>(3), distinctWord<DWORD>(4),
          distinctWord<REGSAM>(5), distinctWord<SECURITY_ATTRIBUTES*>(6), distinctWord<DWORD*>(8)}},
        {"RegCreateKeyW",
         15,
         2,
         true,
         false,
         [=](HKEY* result) { return RegCreateKeyW(key, name, result); },
         {keyWord, nameWord}},
    };
}

// Checks the one call made, leaving out the argument that the key is received through.
void expectOneCall(const HandLaidHost& host, const KeyFunction& row)
{
    ASSERT_EQ(host.calls().size(), 1u);
    ServiceCall call = host.calls().front();
    call.arguments.erase(call.arguments.begin() + static_cast<std::ptrdiff_t>(row.keyArgument));
    EXPECT_EQ(call, (ServiceCall{Service::registry, row.position, row.otherArguments}));
    EXPECT_EQ(host.getterCalls(Service::registry), 2);
    EXPECT_EQ(host.getterCalls(), 2);
}

// What the service does: it hands out `found`. `kept` is the handle that it keeps of a created key.
void handOut(const KeyFunction& row, const ServiceCall& call, HKEY& kept)
{
    kept = found;
    if (row.creates)
    {
        *fromWord<HKEY**>(call.arguments[row.keyArgument]) = &kept;
    }
    else
    {
        *fromWord<HKEY*>(call.arguments[row.keyArgument]) = found;
    }
}

TEST(RegistryKeys, AreHandedBackOnSuccess)
{
    for (const KeyFunction& row : keyFunctions())
    {
        SCOPED_TRACE(row.name);
        HandLaidHost host;
        HKEY kept = nullptr;
        HKEY result = before;
        host.answerWith(0xF8E9DACB00000000); // the upper half is no part of a LONG
        host.whenCalled(
            [&](const ServiceCall& call)
            {
                EXPECT_EQ(result, row.creates ? before : nullptr);
                EXPECT_NE(call.arguments[row.keyArgument], toWord(&result));
                handOut(row, call, kept);
            });
        errno = untouchedError;
        EXPECT_EQ(row.call(&result), 0);
        EXPECT_EQ(result, found);
        EXPECT_EQ(kept, found);
        EXPECT_EQ(errno, untouchedError);
        expectOneCall(host, row);
    }
}

TEST(RegistryKeys, AreNotHandedBackOnFailure)
{
    for (const KeyFunction& row : keyFunctions())
    {
        for (const int failure : {2, -1})
        {
            SCOPED_TRACE(row.name);
            HandLaidHost host;
            HKEY kept = nullptr;
            HKEY result = before;
            host.answerWith(static_cast<Word>(failure));
            host.whenCalled([&](const ServiceCall& call) { handOut(row, call, kept); });
            errno = untouchedError;
            EXPECT_EQ(row.call(&result), failure);
            EXPECT_EQ(result, row.creates ? before : nullptr);
            EXPECT_EQ(errno, untouchedError);
            expectOneCall(host, row);
        }
    }
}

TEST(RegistryKeys, AreNullWhenTheServiceReportsSuccessAndHandsOutNone)
{
    for (const KeyFunction& row : keyFunctions())
    {
        SCOPED_TRACE(row.name);
        HandLaidHost host;
        HKEY result = before;
        host.answerWith(0);
        EXPECT_EQ(row.call(&result), 0);
        EXPECT_EQ(result, nullptr);
        expectOneCall(host, row);
    }
}

TEST(RegistryKeys, AnswerOneWithoutHub)
{
    const InstalledHub none(nullptr);
    for (const KeyFunction& row : keyFunctions())
    {
        SCOPED_TRACE(row.name);
        HKEY result = before;
        errno = untouchedError;
        EXPECT_EQ(row.call(&result), 1);
        EXPECT_EQ(result, row.clearsWithoutHost ? nullptr : before);
        EXPECT_EQ(row.call(nullptr), 1);
        EXPECT_EQ(errno, untouchedError);
    }
}

TEST(RegistryKeys, AnswerOneWithoutService)
{
    for (const KeyFunction& row : keyFunctions())
    {
        SCOPED_TRACE(row.name);
        HandLaidHost host;
        host.withhold(Service::registry);
        HKEY result = before;
        errno = untouchedError;
        EXPECT_EQ(row.call(&result), 1);
        EXPECT_EQ(result, row.clearsWithoutHost ? nullptr : before);
        EXPECT_EQ(errno, untouchedError);
        EXPECT_EQ(host.getterCalls(), 1);
        EXPECT_EQ(row.call(nullptr), 1);
        EXPECT_TRUE(host.calls().empty());
    }
}

TEST(RegistryKeys, NeedNoVariableOnFailure)
{
    for (const KeyFunction& row : keyFunctions())
    {
        SCOPED_TRACE(row.name);
        HandLaidHost host;
        host.answerWith(5);
        EXPECT_EQ(row.call(nullptr), 5);
        expectOneCall(host, row);
    }
}

// Succeeds for a caller that gave no variable, in a process of its own that the write ends.
void succeedWithoutVariable(const char* name)
{
    for (const KeyFunction& row : keyFunctions())
    {
        if (row.name == name)
        {
            HandLaidHost host;
            HKEY kept = nullptr;
            host.answerWith(0);
            host.whenCalled([&](const ServiceCall& call) { handOut(row, call, kept); });
            row.call(nullptr);
        }
    }
}

TEST(RegOpenKeyW, RequiresKeyVariable)
{
    EXPECT_DEATH(succeedWithoutVariable("RegOpenKeyW"), "");
}

TEST(RegOpenKeyExW, RequiresKeyVariable)
{
    EXPECT_DEATH(succeedWithoutVariable("RegOpenKeyExW"), "");
}

TEST(RegCreateKeyExW, RequiresKeyVariable)
{
    EXPECT_DEATH(succeedWithoutVariable("RegCreateKeyExW"), "");
}

TEST(RegCreateKeyW, RequiresKeyVariable)
{
    EXPECT_DEATH(succeedWithoutVariable("RegCreateKeyW"), "");
}

} // namespace
