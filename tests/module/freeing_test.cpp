#include "module/module_world.h"

#include <cerrno>
#include <dlfcn.h>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace kest::test;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace
{

namespace fs = std::filesystem;

class ModuleFreeing : public testing::Test
{
protected:
    ModuleWorld world;
};

TEST_F(ModuleFreeing, FreesTheBytewiseFirstEntryOfAHandle)
{
    world.install("recorder", "libfoo.so");
    const HMODULE module = LoadLibraryW(L"./foo");
    ASSERT_NE(module, nullptr);
    g_loadedModuleMap["libz.so"] = {5, module};
    g_loadedModuleMap["liba.so"] = {2, module};
    EXPECT_EQ(FreeLibrary(module), 1);
    EXPECT_THAT(table(), ElementsAre(Pair("liba.so", 1), Pair("libfoo.so", 1), Pair("libz.so", 5)));
    g_loadedModuleMap.erase("liba.so");
    g_loadedModuleMap.erase("libz.so");
}

TEST_F(ModuleFreeing, HandsBackWhatTheLoaderAnswers)
{
    world.install("silent", "libfoo.so");
    for (const int answer : {0, 1, -1, 4711})
    {
        const HMODULE module = LoadLibraryW(L"./foo");
        ASSERT_NE(module, nullptr);
        record().closing = [answer]
        {
            errno = 5;
            return answer;
        };
        errno = untouchedError;
        EXPECT_EQ(FreeLibrary(module), answer);
        EXPECT_EQ(errno, untouchedError);
    }
}

TEST_F(ModuleFreeing, ClosesNoMoreThanItOpened)
{
    world.install("silent", "libfoo.so");
    const HMODULE module = LoadLibraryW(L"./foo");
    ASSERT_NE(module, nullptr);
    ASSERT_EQ(dlopen("./libfoo.so", RTLD_LAZY), static_cast<void*>(module));
    EXPECT_EQ(FreeLibrary(module), 0);
    EXPECT_TRUE(isInMemory(world.path() / "libfoo.so"));
    EXPECT_EQ(FreeLibrary(module), 0);
    EXPECT_THAT(record().closes, ElementsAre(module, module));
    EXPECT_FALSE(isInMemory(world.path() / "libfoo.so"));
}

TEST(FreeLibrary, AnswersZeroForTheLastReference)
{
    ModuleWorld world;
    world.install("recorder", "libfoo.so");
    const HMODULE module = LoadLibraryW(L"./foo.dll");
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(FreeLibrary(module), 0);
}

TEST(FreeLibrary, AnswersMinusOneForTheMainProgram)
{
    ModuleWorld world;
    errno = untouchedError;
    EXPECT_EQ(FreeLibrary(nullptr), -1);
    EXPECT_EQ(FreeLibrary(reinterpret_cast<HMODULE>(1)), -1);
    EXPECT_EQ(errno, untouchedError);
    EXPECT_THAT(record().dllMainCalls, IsEmpty());
    EXPECT_THAT(record().closes, IsEmpty());
}

TEST(FreeLibrary, DetachesModulesItDidNotLoad)
{
    ModuleWorld world;
    const fs::path file = world.install("recorder", "libfoo.so");
    const auto module = static_cast<HMODULE>(dlopen(file.c_str(), RTLD_LAZY));
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(FreeLibrary(module), 0);
    EXPECT_THAT(record().dllMainCalls, ElementsAre(detached(module)));
    EXPECT_THAT(record().closes, ElementsAre(module));
    EXPECT_FALSE(isInMemory(file));
}

TEST(FreeLibrary, DetachesOnceAnEntry)
{
    ModuleWorld world;
    const fs::path file = world.install("recorder", "libfoo.so");
    const HMODULE module = LoadLibraryW(L"./foo");
    ASSERT_NE(module, nullptr);
    ASSERT_EQ(LoadLibraryA("./foo"), module);
    // The path of the narrow load comes first.
    EXPECT_EQ(FreeLibrary(module), 0);
    EXPECT_THAT(table(), ElementsAre(Pair("libfoo.so", 1)));
    EXPECT_THAT(record().dllMainCalls, ElementsAre(attached(module), detached(module)));
    EXPECT_TRUE(isInMemory(file));
    EXPECT_EQ(FreeLibrary(module), 0);
    EXPECT_THAT(record().dllMainCalls, ElementsAre(attached(module), detached(module), detached(module)));
    EXPECT_FALSE(isInMemory(file));
}

} // namespace
