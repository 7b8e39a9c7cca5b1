// The module functions let std::bad_alloc out, and have loaded, counted and changed nothing then.
#include "faults/allocation_faults.h"
#include "harness/scratch_folder.h"
#include "kest/companions/kernel.h"
#include "kest/kernel/modules.h"
#include "module/modules/hooks.h"

#include <cerrno>
#include <dlfcn.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <new>
#include <optional>
#include <string>

namespace
{

int dllMainCalls = 0;

} // namespace

void moduleTestDllMain(HMODULE, DWORD, LPVOID)
{
    ++dllMainCalls;
}

void moduleTestConstructed()
{
}

void moduleTestDestroyed()
{
}

namespace
{

using namespace kest::test;

constexpr std::optional<long> badAlloc = std::nullopt;

constexpr int notEnoughMemory = 8;
constexpr int moduleNotFound = 126;

// Long enough for the heap.
const std::wstring longName = L"./a module whose name a string does not keep in itself";

class ModuleAllocations : public testing::Test
{
protected:
    ModuleAllocations()
    {
        const std::filesystem::path module = std::filesystem::path(KEST_TEST_MODULE_FOLDER) / "librecorder.so";
        std::filesystem::copy_file(module,
                                   folder.path() / "liba module whose name a string does not keep in itself.so");
    }

    // Empties the table and what the loader keeps of its last error.
    static void unload()
    {
        while (!g_loadedModuleMap.empty())
        {
            FreeLibrary(g_loadedModuleMap.begin()->second.handle);
        }
        dlerror();
        dlerror();
        dllMainCalls = 0;
        KestPlatformCStringManager::destroyInstance();
    }

    ScratchFolder folder;
    HMODULE module = nullptr;
};

// The loader answers its own want of memory by not loading.
TEST_F(ModuleAllocations, LoadAllOrNothing)
{
    expectEveryFailureHandled(AllocatingCall{.name = "LoadLibraryW",
                                             .call = [] { return LoadLibraryW(longName.c_str()) != nullptr ? 1L : 0L; },
                                             .success = 1,
                                             .failure = 0,
                                             .mayThrow = true,
                                             .check =
                                                 [](bool succeeded)
                                             {
                                                 EXPECT_EQ(g_loadedModuleMap.size(), succeeded ? 1U : 0U);
                                                 EXPECT_EQ(dllMainCalls, succeeded ? 1 : 0);
                                             },
                                             .release = unload});
    expectEveryFailureHandled(
        AllocatingCall{.name = "LoadLibraryExW",
                       .call = [] { return LoadLibraryExW(longName.c_str(), nullptr, 0) != nullptr ? 1L : 0L; },
                       .success = 1,
                       .failure = 0,
                       .mayThrow = true,
                       .check = [](bool succeeded) { EXPECT_EQ(g_loadedModuleMap.size(), succeeded ? 1U : 0U); },
                       .release = unload});
    std::string name = std::filesystem::path(longName).string();
    expectEveryFailureHandled(
        AllocatingCall{.name = "LoadLibraryA",
                       .call = [&name] { return LoadLibraryA(name.data()) != nullptr ? 1L : 0L; },
                       .success = 1,
                       .failure = 0,
                       .mayThrow = true,
                       .check = [](bool succeeded) { EXPECT_EQ(g_loadedModuleMap.size(), succeeded ? 1U : 0U); },
                       .release = unload});
}

TEST_F(ModuleAllocations, CountReferencesOrNothing)
{
    const auto load = [this]
    {
        module = LoadLibraryW(longName.c_str());
        ASSERT_NE(module, nullptr);
    };
    const auto count = [] { return g_loadedModuleMap.begin()->second.count; };
    expectEveryFailureHandled(
        AllocatingCall{.name = "LoadLibraryW",
                       .call = [this] { return LoadLibraryW(longName.c_str()) == module ? 1L : 0L; },
                       .success = 1,
                       .failure = badAlloc,
                       .check = [&count](bool succeeded) { EXPECT_EQ(count(), succeeded ? 2U : 1U); },
                       .prepare = load,
                       .release = unload});
    expectEveryFailureHandled(
        AllocatingCall{.name = "GetModuleHandleW",
                       .call = [this] { return GetModuleHandleW(longName.c_str()) == module ? 1L : 0L; },
                       .success = 1,
                       .failure = badAlloc,
                       .check = [&count](bool) { EXPECT_EQ(count(), 1U); },
                       .prepare = load,
                       .release = unload});
    expectEveryFailureHandled(
        AllocatingCall{.name = "GetModuleHandleExW",
                       .call = [] { return static_cast<long>(GetModuleHandleExW(0, longName.c_str(), nullptr)); },
                       .success = 1,
                       .failure = badAlloc,
                       .prepare = load,
                       .release = unload});
}

// Where no exception comes out, the last error tells; the loader's own want of memory looks like a module missing.
TEST_F(ModuleAllocations, TellWhyThereIsNoModule)
{
    const std::string name = std::filesystem::path(longName).string();
    const auto tellsWhy = [](bool succeeded)
    { EXPECT_TRUE(succeeded || errno == notEnoughMemory || errno == moduleNotFound) << errno; };
    expectEveryFailureHandled(
        AllocatingCall{.name = "LoadLibraryExA",
                       .call = [&name] { return LoadLibraryExA(name.c_str(), nullptr, 0) != nullptr ? 1L : 0L; },
                       .success = 1,
                       .failure = 0,
                       .check =
                           [&](bool succeeded)
                       {
                           tellsWhy(succeeded);
                           EXPECT_EQ(g_loadedModuleMap.size(), succeeded ? 1U : 0U);
                           EXPECT_EQ(dllMainCalls, succeeded ? 1 : 0);
                       },
                       .release = unload});
    expectEveryFailureHandled(AllocatingCall{.name = "GetModuleHandleA",
                                             .call = [&] { return GetModuleHandleA(name.c_str()) == module ? 1L : 0L; },
                                             .success = 1,
                                             .failure = 0,
                                             .check =
                                                 [&](bool succeeded)
                                             {
                                                 EXPECT_TRUE(succeeded || errno == notEnoughMemory) << errno;
                                                 EXPECT_EQ(g_loadedModuleMap.begin()->second.count, 1U);
                                             },
                                             .prepare = [this] { module = LoadLibraryW(longName.c_str()); },
                                             .release = unload});
}

TEST_F(ModuleAllocations, KeepTheDllDirectoryThatCannotBeReplaced)
{
    const std::wstring directory(100, L'd');
    expectEveryFailureHandled(AllocatingCall{
        .name = "SetDllDirectoryW",
        .call = [&directory] { return static_cast<long>(SetDllDirectoryW(directory.c_str())); },
        .success = 1,
        .failure = badAlloc,
        .check = [&directory](bool succeeded) { EXPECT_EQ(g_strDllPath, succeeded ? directory : L"old"); },
        .prepare = [] { g_strDllPath = L"old"; },
        .release =
            []
        {
            g_strDllPath.clear();
            g_strDllPath.shrink_to_fit();
        }});
}

TEST_F(ModuleAllocations, TranslateAllOfANameOrNothing)
{
    std::size_t length = 0;
    expectEveryFailureHandled(
        AllocatingCall{.name = "ToPlatformModuleName",
                       .call =
                           [&length]
                       {
                           length = ToPlatformModuleName(longName.c_str()).size();
                           return 1L;
                       },
                       .success = 1,
                       .failure = badAlloc,
                       .check = [&length](bool succeeded) { EXPECT_EQ(length, succeeded ? longName.size() + 6 : 0U); },
                       .prepare = [&length] { length = 0; },
                       .release = unload});
}

TEST_F(ModuleAllocations, FindNoSymbolsThatAreNotThere)
{
    // The loader words its error.
    expectEveryFailureHandled(
        AllocatingCall{.name = "GetProcAddress",
                       .call = [this] { return GetProcAddress(module, "noSuchSymbol") == nullptr ? 1L : 0L; },
                       .success = 1,
                       .failure = 1,
                       .prepare = [this] { module = LoadLibraryW(longName.c_str()); },
                       .release = unload});
}

// The C library has no DllMain.
TEST_F(ModuleAllocations, NameAndFreeNoModuleButThoseThatTheyKnow)
{
    wchar_t name[100] = L"?";
    const auto openSystemLibrary = [this] { module = static_cast<HMODULE>(dlopen("libc.so.6", RTLD_LAZY)); };
    const auto forgetErrors = []
    {
        dlerror();
        dlerror();
    };
    expectEveryFailureHandled(
        AllocatingCall{.name = "GetModuleFileNameW",
                       .call = [&] { return static_cast<long>(GetModuleFileNameW(module, name, 100)); },
                       .success = 0,
                       .failure = 0,
                       .check = [&name](bool) { EXPECT_EQ(name[0], L'\0'); },
                       .prepare = openSystemLibrary,
                       .release =
                           [&]
                       {
                           dlclose(module);
                           forgetErrors();
                       }});
    expectEveryFailureHandled(AllocatingCall{.name = "FreeLibrary",
                                             .call = [this] { return static_cast<long>(FreeLibrary(module)); },
                                             .success = 0,
                                             .failure = 0,
                                             .prepare = openSystemLibrary,
                                             .release = forgetErrors});
}

// ---- The registry of string objects --------------------------------------------------------------------------------

TEST(StringObjectReports, AreLostWithoutMemoryForTheRegistry)
{
    expectEveryFailureHandled(AllocatingCall{.name = "a moved string",
                                             .call =
                                                 []
                                             {
                                                 CStdStr<wchar_t> text(L"abc");
                                                 const CStdStr<wchar_t> moved(std::move(text));
                                                 return static_cast<long>(moved.size());
                                             },
                                             .success = 3,
                                             .failure = 3,
                                             .release = KestPlatformCStringManager::destroyInstance});
    int object = 0;
    expectEveryFailureHandled(AllocatingCall{.name = "updateCStringManagerData",
                                             .call =
                                                 [&object]
                                             {
                                                 updateCStringManagerData(&object);
                                                 return 1L;
                                             },
                                             .success = 1,
                                             .failure = 1,
                                             .release = KestPlatformCStringManager::destroyInstance});
    expectEveryFailureHandled(AllocatingCall{.name = "KestPlatformCStringManager",
                                             .call =
                                                 [&object]
                                             {
                                                 const KestPlatformCStringManager manager;
                                                 return manager.isElementValid(&object) ? 0L : 1L;
                                             },
                                             .success = 1,
                                             .failure = badAlloc});
    expectEveryFailureHandled(AllocatingCall{
        .name = "getInstance",
        .call = [] { return KestPlatformCStringManager::getInstance() != nullptr ? 1L : 0L; },
        .success = 1,
        .failure = badAlloc,
        .check = [](bool succeeded) { EXPECT_EQ(KestPlatformCStringManager::m_pInstance != nullptr, succeeded); },
        .release = KestPlatformCStringManager::destroyInstance});
}

} // namespace
