#include "module/module_world.h"

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <dlfcn.h>
#include <gtest/gtest.h>

using namespace kest::test;

namespace
{

const HMODULE wholeProcess = reinterpret_cast<HMODULE>(1);

const char* ordinal(std::uintptr_t number)
{
    return reinterpret_cast<const char*>(number);
}

void* address(FARPROC function)
{
    return reinterpret_cast<void*>(function);
}

TEST(SymbolLookup, FindsFunctionsAndVariablesOfAModule)
{
    ModuleWorld world;
    world.install("recorder", "libfoo.so");
    const HMODULE module = LoadLibraryW(L"./foo.dll");
    ASSERT_NE(module, nullptr);
    const auto answer = functionOf<int()>(module, "recorderAnswer");
    ASSERT_NE(answer, nullptr);
    EXPECT_EQ(answer(), 42);
    EXPECT_EQ(address(GetProcAddress(module, "DllMain")), dlsym(module, "DllMain"));
    EXPECT_EQ(GetProcAddress(module, "recorderAnswe"), nullptr);
    EXPECT_EQ(GetProcAddress(module, ""), nullptr);
}

TEST(SymbolLookup, TellsModulesApart)
{
    ModuleWorld world;
    world.install("recorder", "libfoo.so");
    world.install("recorder", "libbar.so");
    const HMODULE foo = LoadLibraryW(L"./foo.dll");
    const HMODULE bar = LoadLibraryW(L"./bar.dll");
    ASSERT_NE(foo, nullptr);
    ASSERT_NE(bar, nullptr);
    EXPECT_NE(foo, bar);
    EXPECT_NE(GetProcAddress(foo, "recorderAnswer"), GetProcAddress(bar, "recorderAnswer"));
}

TEST(SymbolLookup, TakesAnyOtherHandleAsItIs)
{
    ModuleWorld world;
    const auto module = static_cast<HMODULE>(dlopen(world.install("silent", "libfoo.so").c_str(), RTLD_LAZY));
    ASSERT_NE(module, nullptr);
    EXPECT_NE(GetProcAddress(module, "silentBinding"), nullptr);
    FreeLibrary(module);
}

TEST(GetProcAddress, FindsNoOrdinals)
{
    ModuleWorld world;
    world.install("recorder", "libfoo.so");
    const HMODULE module = LoadLibraryW(L"./foo.dll");
    ASSERT_NE(module, nullptr);
    errno = untouchedError;
    for (const HMODULE handle : {module, wholeProcess, static_cast<HMODULE>(nullptr)})
    {
        for (const std::uintptr_t number : {0UL, 1UL, 5UL, 0xFFFFUL})
        {
            EXPECT_EQ(GetProcAddress(handle, ordinal(number)), nullptr) << number;
        }
    }
    EXPECT_EQ(errno, untouchedError);
}

TEST(GetProcAddress, TakesOneForTheWholeProcess)
{
    ModuleWorld world;
    for (const HMODULE handle : {wholeProcess, static_cast<HMODULE>(nullptr)})
    {
        EXPECT_EQ(address(GetProcAddress(handle, "malloc")), dlsym(RTLD_DEFAULT, "malloc"));
        EXPECT_EQ(address(GetProcAddress(handle, "moduleTestDllMain")), dlsym(RTLD_DEFAULT, "moduleTestDllMain"));
        EXPECT_EQ(address(GetProcAddress(handle, "LoadLibraryW")), reinterpret_cast<void*>(&LoadLibraryW));
        EXPECT_EQ(GetProcAddress(handle, "moduleTestDefinedNowhere"), nullptr);
    }
    // Modules keep their symbols to themselves.
    world.install("recorder", "libfoo.so");
    ASSERT_NE(LoadLibraryW(L"./foo.dll"), nullptr);
    EXPECT_EQ(GetProcAddress(wholeProcess, "recorderAnswer"), nullptr);
}

TEST(GetProcAddress, SearchesDependencies)
{
    ModuleWorld world;
    world.install("dependent", "libfoo.so");
    const HMODULE module = LoadLibraryW(L"./foo.dll");
    ASSERT_NE(module, nullptr);
    const auto answer = functionOf<int()>(module, "dependencyAnswer");
    ASSERT_NE(answer, nullptr);
    EXPECT_EQ(answer(), 43);
}

TEST(GetProcAddress, LeavesLastErrorAlone)
{
    errno = untouchedError;
    EXPECT_EQ(GetProcAddress(wholeProcess, "moduleTestDefinedNowhere"), nullptr);
    EXPECT_NE(GetProcAddress(wholeProcess, "malloc"), nullptr);
    EXPECT_EQ(errno, untouchedError);
}

} // namespace
