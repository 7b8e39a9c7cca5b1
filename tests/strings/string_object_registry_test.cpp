#include "kest/wide_string.h"

#include <array>
#include <cstdint>
#include <gtest/gtest.h>
#include <thread>
#include <utility>
#include <vector>

namespace
{

const void* address(std::uintptr_t number)
{
    return reinterpret_cast<const void*>(0x1000 + number);
}

// Every test starts and ends without an instance.
class StringObjectRegistry : public testing::Test
{
protected:
    StringObjectRegistry() { KestPlatformCStringManager::destroyInstance(); }
    ~StringObjectRegistry() override { KestPlatformCStringManager::destroyInstance(); }
};

TEST_F(StringObjectRegistry, RemembersTheLastSixteenReports)
{
    for (std::uintptr_t number = 1; number <= 17; ++number)
    {
        updateCStringManagerData(address(number));
    }
    EXPECT_FALSE(KestPlatformCStringManager::getInstance()->isElementValid(address(1)));
    for (std::uintptr_t number = 2; number <= 17; ++number)
    {
        EXPECT_TRUE(KestPlatformCStringManager::getInstance()->isElementValid(address(number))) << number;
    }
}

TEST_F(StringObjectRegistry, TakesTwoSlotsForTheSameAddressReportedTwice)
{
    updateCStringManagerData(address(1));
    updateCStringManagerData(address(2));
    updateCStringManagerData(address(2));
    for (std::uintptr_t number = 3; number <= 15; ++number)
    {
        updateCStringManagerData(address(number));
    }
    EXPECT_TRUE(KestPlatformCStringManager::getInstance()->isElementValid(address(1)));
    updateCStringManagerData(address(16));
    EXPECT_FALSE(KestPlatformCStringManager::getInstance()->isElementValid(address(1)));
    EXPECT_TRUE(KestPlatformCStringManager::getInstance()->isElementValid(address(2)));
    updateCStringManagerData(address(17));
    EXPECT_TRUE(KestPlatformCStringManager::getInstance()->isElementValid(address(2)));
    updateCStringManagerData(address(18));
    EXPECT_FALSE(KestPlatformCStringManager::getInstance()->isElementValid(address(2)));
}

TEST_F(StringObjectRegistry, IgnoresReportsWhileForbiddenAndResumesAtTheSameSlot)
{
    updateCStringManagerData(address(1));
    KestPlatformCStringManager* const registry = KestPlatformCStringManager::getInstance();
    EXPECT_FALSE(registry->getForbiddenUpdateState());
    registry->setForbiddenUpdateState(true);
    EXPECT_TRUE(registry->getForbiddenUpdateState());
    updateCStringManagerData(address(2));
    EXPECT_FALSE(registry->isElementValid(address(2)));
    registry->setForbiddenUpdateState(false);
    for (std::uintptr_t number = 3; number <= 17; ++number)
    {
        updateCStringManagerData(address(number));
    }
    EXPECT_TRUE(registry->isElementValid(address(1)));
    updateCStringManagerData(address(18));
    EXPECT_FALSE(registry->isElementValid(address(1)));
}

TEST_F(StringObjectRegistry, NeverHoldsNull)
{
    EXPECT_FALSE(KestPlatformCStringManager::getInstance()->isElementValid(nullptr));
    KestPlatformCStringManager::getInstance()->insertElement(address(1));
    KestPlatformCStringManager::getInstance()->insertElement(nullptr);
    for (std::uintptr_t number = 2; number <= 16; ++number)
    {
        updateCStringManagerData(address(number));
    }
    EXPECT_TRUE(KestPlatformCStringManager::getInstance()->isElementValid(address(1)));
    EXPECT_FALSE(KestPlatformCStringManager::getInstance()->isElementValid(nullptr));
}

TEST_F(StringObjectRegistry, NullReportCreatesNoInstance)
{
    updateCStringManagerData(nullptr);
    EXPECT_EQ(KestPlatformCStringManager::m_pInstance, nullptr);
    updateCStringManagerData(address(1));
    EXPECT_NE(KestPlatformCStringManager::m_pInstance, nullptr);
    EXPECT_EQ(KestPlatformCStringManager::m_pInstance, KestPlatformCStringManager::getInstance());
}

TEST_F(StringObjectRegistry, FindsNothingAfterItsInstanceIsDestroyed)
{
    updateCStringManagerData(address(1));
    KestPlatformCStringManager::getInstance()->setForbiddenUpdateState(true);
    KestPlatformCStringManager::destroyInstance();
    EXPECT_EQ(KestPlatformCStringManager::m_pInstance, nullptr);
    KestPlatformCStringManager::destroyInstance();
    EXPECT_FALSE(KestPlatformCStringManager::getInstance()->isElementValid(address(1)));
    EXPECT_FALSE(KestPlatformCStringManager::getInstance()->getForbiddenUpdateState());
}

// Modules built by others read the fields where they are: a vector of 16, a flag, an index.
struct Layout
{
    std::vector<const void*> slots;
    bool forbiddenUpdate;
    int nextIndex;
};

TEST_F(StringObjectRegistry, KeepsItsFieldLayout)
{
    static_assert(sizeof(KestPlatformCStringManager) == sizeof(Layout));

    KestPlatformCStringManager registry;
    const auto* const fields = reinterpret_cast<const Layout*>(&registry);
    EXPECT_EQ(fields->slots, std::vector<const void*>(16, nullptr));
    EXPECT_FALSE(fields->forbiddenUpdate);
    EXPECT_EQ(fields->nextIndex, 0);
    for (std::uintptr_t number = 0; number < 18; ++number)
    {
        registry.insertElement(address(number));
    }
    registry.setForbiddenUpdateState(true);
    EXPECT_EQ(fields->slots[0], address(16));
    EXPECT_EQ(fields->slots[1], address(17));
    EXPECT_EQ(fields->slots[2], address(2));
    EXPECT_EQ(fields->slots[15], address(15));
    EXPECT_TRUE(fields->forbiddenUpdate);
    EXPECT_EQ(fields->nextIndex, 2);
}

TEST_F(StringObjectRegistry, IgnoresReportsForWhichItHasNoSlot)
{
    KestPlatformCStringManager registry;
    auto* const fields = reinterpret_cast<Layout*>(&registry);
    for (const int index : {16, -1})
    {
        fields->nextIndex = index;
        registry.insertElement(address(1));
        EXPECT_FALSE(registry.isElementValid(address(1)));
        EXPECT_EQ(fields->nextIndex, index);
    }
    fields->slots.clear();
    fields->nextIndex = 0;
    registry.insertElement(address(1));
    EXPECT_EQ(fields->nextIndex, 0);
    EXPECT_FALSE(registry.isElementValid(address(1)));
}

TEST_F(StringObjectRegistry, HearsOfEveryConstructionOfAString)
{
    const auto known = [](const CStdStr<wchar_t>& string)
    { return KestPlatformCStringManager::getInstance()->isElementValid(&string); };
    const std::wstring plain = L"plain";
    CStdStr<wchar_t> empty;
    CStdStr<wchar_t> fromPointer(L"text");
    CStdStr<wchar_t> fromNull(static_cast<const wchar_t*>(nullptr));
    CStdStr<wchar_t> fromPart(L"text", 2);
    CStdStr<wchar_t> fromCharacter(3, L'x');
    CStdStr<wchar_t> fromString(plain);
    CStdStr<wchar_t> fromTemporary(std::wstring(L"temporary"));
    CStdStr<wchar_t> fromRange(plain.begin(), plain.end());
    CStdStr<wchar_t> copy(fromPointer);
    CStdStr<wchar_t> moved(std::move(fromTemporary));
    for (const auto* string : {&empty, &fromPointer, &fromNull, &fromPart, &fromCharacter, &fromString, &fromTemporary,
                               &fromRange, &copy, &moved})
    {
        EXPECT_TRUE(known(*string)) << string - &empty;
    }
    EXPECT_EQ(fromNull, L"");
    EXPECT_EQ(fromPart, L"te");
    EXPECT_EQ(fromCharacter, L"xxx");
    EXPECT_EQ(fromRange, plain);
    EXPECT_EQ(copy, L"text");
    EXPECT_EQ(moved, L"temporary");
}

TEST_F(StringObjectRegistry, AssignmentReportsNothing)
{
    CStdStr<wchar_t> string(L"text");
    const CStdStr<wchar_t> other(L"other");
    KestPlatformCStringManager::destroyInstance();
    string = other;
    string = L"pointer";
    string = static_cast<const wchar_t*>(nullptr);
    EXPECT_EQ(string, L"");
    string = std::wstring(L"temporary");
    EXPECT_EQ(string, L"temporary");
    EXPECT_EQ(KestPlatformCStringManager::m_pInstance, nullptr);
}

// The thread sanitizer watches this one.
TEST_F(StringObjectRegistry, TakesReportsFromSeveralThreads)
{
    constexpr int threadCount = 4;
    std::array<std::thread, threadCount> threads;
    for (std::thread& thread : threads)
    {
        thread = std::thread(
            []
            {
                for (int round = 0; round < 1000; ++round)
                {
                    const CStdStr<wchar_t> string(L"text");
                    KestPlatformCStringManager* const registry = KestPlatformCStringManager::getInstance();
                    registry->isElementValid(&string);
                    registry->setForbiddenUpdateState(round % 100 == 99);
                }
                KestPlatformCStringManager::getInstance()->setForbiddenUpdateState(false);
            });
    }
    for (std::thread& thread : threads)
    {
        thread.join();
    }
    KestPlatformCStringManager::getInstance()->setForbiddenUpdateState(false);
    const CStdStr<wchar_t> last(L"last");
    EXPECT_TRUE(KestPlatformCStringManager::getInstance()->isElementValid(&last));
}

} // namespace
