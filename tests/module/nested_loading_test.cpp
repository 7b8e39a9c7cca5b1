#include "module/module_world.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

using namespace kest::test;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace
{

namespace fs = std::filesystem;

class NestedLoading : public testing::Test
{
protected:
    ModuleWorld world;
};

TEST_F(NestedLoading, StandsInTheTableBeforeItsFirstDllMainAndNotBeforeItsLast)
{
    world.install("recorder", "libfoo.so");
    std::vector<std::vector<std::pair<std::string, unsigned>>> seen;
    std::vector<HMODULE> handles;
    record().duringDllMain = [&](HMODULE, DWORD)
    {
        seen.push_back(table());
        handles.push_back(GetModuleHandleW(L"foo"));
    };
    const HMODULE module = LoadLibraryW(L"./foo");
    ASSERT_NE(module, nullptr);
    FreeLibrary(module);
    EXPECT_THAT(seen, ElementsAre(ElementsAre(Pair("libfoo.so", 1)), IsEmpty()));
    EXPECT_THAT(handles, ElementsAre(module, nullptr));
}

TEST_F(NestedLoading, LetsDllMainLoadAndFreeModules)
{
    world.install("recorder", "libm.so");
    world.install("silent", "liba.so");
    world.install("silent", "libz.so");
    HMODULE before = nullptr;
    HMODULE behind = nullptr;
    record().duringDllMain = [&](HMODULE module, DWORD reason)
    {
        if (reason == DLL_PROCESS_ATTACH)
        {
            before = LoadLibraryW(L"./a");
            behind = LoadLibraryW(L"./z");
            EXPECT_EQ(LoadLibraryW(L"./m"), module);
            EXPECT_EQ(FreeLibrary(module), 1);
        }
        else
        {
            EXPECT_EQ(FreeLibrary(before), 0);
            EXPECT_EQ(FreeLibrary(behind), 0);
        }
    };
    const HMODULE module = LoadLibraryW(L"./m");
    ASSERT_NE(module, nullptr);
    EXPECT_THAT(table(), ElementsAre(Pair("liba.so", 1), Pair("libm.so", 1), Pair("libz.so", 1)));
    EXPECT_EQ(FreeLibrary(module), 0);
    EXPECT_THAT(table(), IsEmpty());
    EXPECT_THAT(record().dllMainCalls, ElementsAre(attached(module), detached(module)));
    EXPECT_THAT(record().closes, ElementsAre(before, behind, module));
}

TEST_F(NestedLoading, LetsLastDllMainLoadTheModuleAgain)
{
    world.install("recorder", "libfoo.so");
    HMODULE again = nullptr;
    record().duringDllMain = [&](HMODULE, DWORD reason)
    {
        if (reason == DLL_PROCESS_DETACH && again == nullptr)
        {
            again = LoadLibraryW(L"./foo");
        }
    };
    const HMODULE module = LoadLibraryW(L"./foo");
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(FreeLibrary(module), 0);
    EXPECT_EQ(again, module);
    EXPECT_THAT(table(), ElementsAre(Pair("libfoo.so", 1)));
    EXPECT_THAT(record().dllMainCalls, ElementsAre(attached(module), detached(module), attached(module)));
    EXPECT_TRUE(isInMemory(world.path() / "libfoo.so"));
}

// A constructor of the module runs before the module stands in the table.
TEST_F(NestedLoading, CountsALoadOfTheSameNameFromAConstructor)
{
    const fs::path file = world.install("recorder", "libfoo.so");
    HMODULE inner = nullptr;
    record().duringConstruction = [&] { inner = LoadLibraryW(L"./foo"); };
    const HMODULE module = LoadLibraryW(L"./foo");
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(inner, module);
    EXPECT_THAT(table(), ElementsAre(Pair("libfoo.so", 2)));
    EXPECT_THAT(record().dllMainCalls, ElementsAre(attached(module)));
    EXPECT_EQ(FreeLibrary(module), 1);
    EXPECT_EQ(FreeLibrary(module), 0);
    EXPECT_THAT(record().dllMainCalls, ElementsAre(attached(module), detached(module)));
    EXPECT_FALSE(isInMemory(file));
}

TEST_F(NestedLoading, TakesTheModuleOfTheSameFileNameThatAConstructorLoaded)
{
    const fs::path outer = world.install("recorder", "outer/libfoo.so");
    const fs::path inner = world.install("recorder", "inner/libfoo.so");
    HMODULE innerModule = nullptr;
    record().duringConstruction = [&] { innerModule = LoadLibraryW(L"inner/foo"); };
    EXPECT_EQ(LoadLibraryW(L"outer/foo"), innerModule);
    ASSERT_NE(innerModule, nullptr);
    EXPECT_THAT(table(), ElementsAre(Pair("libfoo.so", 2)));
    EXPECT_THAT(record().dllMainCalls, ElementsAre(attached(innerModule)));
    EXPECT_FALSE(isInMemory(outer));
    EXPECT_TRUE(isInMemory(inner));
}

} // namespace
