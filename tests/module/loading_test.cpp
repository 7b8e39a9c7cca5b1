#include "harness/scoped_locale.h"
#include "module/module_world.h"

#include <cerrno>
#include <clocale>
#include <cstddef>
#include <dlfcn.h>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <type_traits>

using namespace kest::test;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace
{

namespace fs = std::filesystem;

const LocaleCall utf8Wanted = {LC_CTYPE, "UTF-8"};

class ModuleLoading : public testing::Test
{
protected:
    ModuleWorld world;
};

TEST_F(ModuleLoading, CountsReferencesAndCallsDllMainOnFirstLoadAndLastRelease)
{
    const fs::path file = world.install("recorder", "libfoo.so");

    const HMODULE module = LoadLibraryW((world.path() / "foo.dll").wstring().c_str());
    ASSERT_NE(module, nullptr);
    EXPECT_THAT(table(), ElementsAre(Pair("libfoo.so", 1)));
    EXPECT_THAT(record().opens, ElementsAre(OpenCall{file, deepBinding}));
    EXPECT_THAT(record().dllMainCalls, ElementsAre(attached(module)));

    EXPECT_EQ(LoadLibraryW((world.path() / "foo.dll").wstring().c_str()), module);
    EXPECT_THAT(table(), ElementsAre(Pair("libfoo.so", 2)));
    EXPECT_EQ(record().opens.size(), 1U);
    EXPECT_EQ(record().dllMainCalls.size(), 1U);

    EXPECT_EQ(FreeLibrary(module), 1);
    EXPECT_THAT(table(), ElementsAre(Pair("libfoo.so", 1)));
    EXPECT_EQ(record().dllMainCalls.size(), 1U);
    EXPECT_THAT(record().closes, IsEmpty());
    EXPECT_TRUE(isInMemory(file));

    EXPECT_EQ(FreeLibrary(module), 0);
    EXPECT_THAT(table(), IsEmpty());
    EXPECT_THAT(record().dllMainCalls, ElementsAre(attached(module), detached(module)));
    EXPECT_THAT(record().closes, ElementsAre(module));
    EXPECT_FALSE(isInMemory(file));
}

TEST_F(ModuleLoading, LoadsAFreedModuleAfresh)
{
    world.install("recorder", "libfoo.so");
    for (int round = 0; round < 2; ++round)
    {
        record().forget();
        const HMODULE module = LoadLibraryW(L"./foo");
        ASSERT_NE(module, nullptr);
        EXPECT_EQ(FreeLibrary(module), 0);
        EXPECT_THAT(record().dllMainCalls, ElementsAre(attached(module), detached(module)));
    }
}

TEST_F(ModuleLoading, TakesAnySpellingOfALoadedFileName)
{
    world.install("recorder", "libfoo.so");
    const HMODULE module = LoadLibraryW(L"./foo.dll");
    ASSERT_NE(module, nullptr);
    unsigned count = 1;
    for (const wchar_t* name : {L"foo", L"foo.DLL", L"libfoo.so", L"libfoo", L"nowhere/foo.so", L"/foo"})
    {
        EXPECT_EQ(LoadLibraryW(name), module);
        EXPECT_EQ(GetModuleHandleW(name), module);
        EXPECT_THAT(table(), ElementsAre(Pair("libfoo.so", ++count)));
    }
    EXPECT_EQ(record().opens.size(), 1U);
    // The case of letters counts.
    EXPECT_EQ(LoadLibraryW(L"Foo.dll"), nullptr);
    EXPECT_EQ(GetModuleHandleW(L"Foo.dll"), nullptr);
}

TEST_F(ModuleLoading, LoadsModulesWithoutDllMain)
{
    world.install("silent", "libfoo.so");
    const HMODULE module = LoadLibraryW(L"./foo.dll");
    ASSERT_NE(module, nullptr);
    EXPECT_THAT(table(), ElementsAre(Pair("libfoo.so", 1)));
    EXPECT_EQ(FreeLibrary(module), 0);
    EXPECT_THAT(table(), IsEmpty());
    EXPECT_THAT(record().dllMainCalls, IsEmpty());
    EXPECT_THAT(record().closes, ElementsAre(module));
}

TEST_F(ModuleLoading, LoadsPlugInsUnderTheTranslatedName)
{
    const fs::path file = world.install("recorder", "libplug.QLX");
    const HMODULE module = LoadLibraryW(L"./plug.QLX");
    ASSERT_NE(module, nullptr);
    EXPECT_THAT(table(), ElementsAre(Pair("libplug.QLX", 1)));
    EXPECT_THAT(record().dllMainCalls, ElementsAre(attached(module)));
    EXPECT_TRUE(isInMemory(file));
}

TEST_F(ModuleLoading, BindsDeeplyAndLazily)
{
    world.install("silent", "libfoo.so");
    const HMODULE module = LoadLibraryW(L"./foo.dll");
    ASSERT_NE(module, nullptr);
    const auto binding = functionOf<int()>(module, "silentBinding");
    ASSERT_NE(binding, nullptr);
    EXPECT_EQ(binding(), 2);
}

TEST_F(ModuleLoading, KeepsTheKeysInBytewiseOrder)
{
    for (const char* name : {"./libb.so", "./liba.so", "./libB.so", "./lib\303\251.so"})
    {
        world.install("silent", name);
    }
    const ScopedLocale locale("C.UTF-8");
    for (const wchar_t* name : {L"./b", L"./a", L"./B", L"./\u00e9"})
    {
        EXPECT_NE(LoadLibraryW(name), nullptr);
    }
    EXPECT_THAT(table(),
                ElementsAre(Pair("libB.so", 1), Pair("liba.so", 1), Pair("libb.so", 1), Pair("lib\303\251.so", 1)));
}

TEST_F(ModuleLoading, RecordsNothingOfAFailedLoad)
{
    world.folder().write("libtext.so", "no module");
    for (const wchar_t* name : {L"./missing.dll", L"missing.dll", L"./text.dll"})
    {
        EXPECT_EQ(LoadLibraryW(name), nullptr);
        EXPECT_THAT(table(), IsEmpty());
        EXPECT_EQ(GetModuleHandleW(name), nullptr);
    }
    EXPECT_THAT(record().dllMainCalls, IsEmpty());
    EXPECT_THAT(record().closes, IsEmpty());
}

TEST_F(ModuleLoading, FindsLaterWhatWasMissing)
{
    EXPECT_EQ(LoadLibraryW(L"./foo.dll"), nullptr);
    world.install("recorder", "libfoo.so");
    EXPECT_NE(LoadLibraryW(L"./foo.dll"), nullptr);
}

TEST_F(ModuleLoading, FindsNamesOutsideAscii)
{
    const ScopedLocale locale("C.UTF-8");
    const fs::path file = world.install("recorder", "d\303\251/lib\346\227\245\360\237\230\200.so");
    SetDllDirectoryW((world.path().wstring() + L"/d\u00e9").c_str());
    const HMODULE module = LoadLibraryW(L"\u65e5\U0001F600.dll");
    ASSERT_NE(module, nullptr);
    EXPECT_THAT(table(), ElementsAre(Pair("lib\346\227\245\360\237\230\200.so", 1)));
    EXPECT_EQ(GetModuleHandleW(L"\u65e5\U0001F600.dll"), module);
    EXPECT_EQ(LoadLibraryW(L"\u65e5\U0001F600.dll"), module);
    EXPECT_TRUE(isInMemory(file));
}

TEST_F(ModuleLoading, LooksForNoneOfTheNamesThatTheLocaleCannotEncode)
{
    const ScopedLocale locale("C");
    world.install("recorder", "libfoo.so");
    ASSERT_NE(LoadLibraryW(L"./foo"), nullptr);
    record().forget();
    errno = untouchedError;
    // Cut in front of the character, this one would be the name of the module.
    EXPECT_EQ(LoadLibraryW(L"./foo.so\u00e9"), nullptr);
    EXPECT_EQ(GetModuleHandleW(L"./foo.so\u00e9"), nullptr);
    EXPECT_EQ(errno, untouchedError);
    EXPECT_THAT(record().opens, IsEmpty());
    EXPECT_THAT(table(), ElementsAre(Pair("libfoo.so", 1)));
}

TEST_F(ModuleLoading, TakesLongNamesWhole)
{
    const ScopedLocale locale("C.UTF-8");
    const std::wstring stem(3000, L'\u65e5');
    EXPECT_EQ(LoadLibraryW(stem.c_str()), nullptr);
    std::string expected = "lib";
    for (int character = 0; character < 3000; ++character)
    {
        expected += "\346\227\245";
    }
    ASSERT_EQ(record().opens.size(), 2U);
    EXPECT_EQ(record().opens[0].path, expected + ".so");
    EXPECT_EQ(record().opens[1].path, "/" + expected + ".so");
}

TEST_F(ModuleLoading, TableHasTheLayoutThatOtherModulesKnow)
{
    static_assert(sizeof(ModuleInfo) == 16);
    static_assert(offsetof(ModuleInfo, count) == 0 && sizeof(ModuleInfo::count) == 4);
    static_assert(offsetof(ModuleInfo, handle) == 8);
    static_assert(std::is_unsigned_v<decltype(ModuleInfo::count)>);
    EXPECT_EQ(dlsym(RTLD_DEFAULT, "g_loadedModuleMap"), &g_loadedModuleMap);
    EXPECT_EQ(dlsym(RTLD_DEFAULT, "_Z17g_loadedModuleMapB5cxx11"), &g_loadedModuleMap);
    EXPECT_EQ(dlsym(RTLD_DEFAULT, "g_strDllPath"), &g_strDllPath);
}

TEST_F(ModuleLoading, ReportsItsStringsToTheRegistry)
{
    KestPlatformCStringManager::destroyInstance();
    SetDllDirectoryW(L"/opt");
    EXPECT_EQ(LoadLibraryA("x"), nullptr);
    EXPECT_EQ(KestPlatformCStringManager::m_pInstance, nullptr);
    EXPECT_EQ(LoadLibraryW(L"x"), nullptr);
    EXPECT_NE(KestPlatformCStringManager::m_pInstance, nullptr);
    KestPlatformCStringManager::destroyInstance();
    EXPECT_EQ(GetModuleHandleW(L"x"), nullptr);
    EXPECT_NE(KestPlatformCStringManager::m_pInstance, nullptr);
    KestPlatformCStringManager::destroyInstance();
}

TEST(LoadLibraryW, TranslatesTheName)
{
    ModuleWorld world;
    world.install("recorder", "foo.dll");
    EXPECT_EQ(LoadLibraryW(L"./foo.dll"), nullptr);
    EXPECT_EQ(record().opens.front().path, "./libfoo.so");
}

TEST(LoadLibraryW, KeepsModuleWhoseDllMainRefuses)
{
    ModuleWorld world;
    world.install("refuser", "libfoo.so");
    const HMODULE module = LoadLibraryW(L"./foo.dll");
    ASSERT_NE(module, nullptr);
    EXPECT_THAT(table(), ElementsAre(Pair("libfoo.so", 1)));
    EXPECT_THAT(record().dllMainCalls, ElementsAre(attached(module)));
    EXPECT_EQ(GetModuleHandleW(L"foo.dll"), module);
    EXPECT_EQ(FreeLibrary(module), 0);
    EXPECT_THAT(record().dllMainCalls, ElementsAre(attached(module), detached(module)));
}

TEST(LoadLibraryW, TellsModulesApartByFileNameAlone)
{
    ModuleWorld world;
    const fs::path first = world.install("recorder", "b/libfoo.so");
    const fs::path second = world.install("recorder", "a/libfoo.so");
    const HMODULE module = LoadLibraryW((world.path() / "b/foo.dll").wstring().c_str());
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(LoadLibraryW((world.path() / "a/foo.dll").wstring().c_str()), module);
    EXPECT_THAT(table(), ElementsAre(Pair("libfoo.so", 2)));
    EXPECT_TRUE(isInMemory(first));
    EXPECT_FALSE(isInMemory(second));
}

TEST(LoadLibraryW, TakesEmptyNameForTheMainProgram)
{
    for (const wchar_t* name : {L"", static_cast<const wchar_t*>(nullptr)})
    {
        ModuleWorld world;
        const HMODULE program = LoadLibraryW(name);
        EXPECT_EQ(static_cast<void*>(program), dlopen(nullptr, RTLD_LAZY));
        EXPECT_THAT(table(), ElementsAre(Pair("", 1)));
        EXPECT_EQ(record().opens.front(), (OpenCall{"", deepBinding}));
    }
}

TEST(LoadLibraryW, AsksForCharacterTypeLocale)
{
    ModuleWorld world;
    world.install("recorder", "libfoo.so");
    errno = untouchedError;
    ASSERT_NE(LoadLibraryW(L"./foo"), nullptr);
    EXPECT_THAT(record().locales, ElementsAre(utf8Wanted));
    EXPECT_NE(LoadLibraryW(L"./foo"), nullptr);
    EXPECT_THAT(record().locales, ElementsAre(utf8Wanted, utf8Wanted));
    EXPECT_EQ(LoadLibraryExW(L"./bar", nullptr, 0), nullptr);
    EXPECT_THAT(record().locales, ElementsAre(utf8Wanted, utf8Wanted, utf8Wanted));
    EXPECT_EQ(LoadLibraryA("bar"), nullptr);
    EXPECT_EQ(record().locales.size(), 3U);
    EXPECT_EQ(errno, untouchedError);
}

TEST(LoadLibraryW, LeavesLastErrorAlone)
{
    ModuleWorld world;
    world.install("recorder", "libfoo.so");
    errno = untouchedError;
    EXPECT_EQ(LoadLibraryW(L"./missing"), nullptr);
    EXPECT_EQ(errno, untouchedError);
    const HMODULE module = LoadLibraryW(L"./foo");
    ASSERT_NE(module, nullptr);
    EXPECT_NE(LoadLibraryW(L"./foo"), nullptr);
    EXPECT_EQ(FreeLibrary(module), 1);
    EXPECT_EQ(FreeLibrary(module), 0);
    EXPECT_EQ(errno, untouchedError);
    // What DllMain does with it is DllMain's own.
    record().duringDllMain = [](HMODULE, DWORD reason) { errno = reason == DLL_PROCESS_ATTACH ? 5 : 6; };
    const HMODULE again = LoadLibraryW(L"./foo");
    EXPECT_EQ(errno, 5);
    ASSERT_NE(again, nullptr);
    FreeLibrary(again);
    EXPECT_EQ(errno, 6);
}

TEST(LoadLibraryW, CallsNoDllMainOfDependencies)
{
    ModuleWorld world;
    world.install("dependent", "libfoo.so");
    world.install("dependent_without_entry", "libbar.so");
    constexpr int dependencyMark = 55;

    errno = untouchedError;
    const HMODULE withEntry = LoadLibraryW(L"./foo");
    ASSERT_NE(withEntry, nullptr);
    EXPECT_NE(GetProcAddress(withEntry, "dependencyAnswer"), nullptr);
    EXPECT_THAT(record().dllMainCalls, ElementsAre(attached(withEntry)));
    EXPECT_EQ(errno, untouchedError);
    FreeLibrary(withEntry);

    record().forget();
    const HMODULE withoutEntry = LoadLibraryW(L"./bar");
    ASSERT_NE(withoutEntry, nullptr);
    EXPECT_THAT(record().dllMainCalls, ElementsAre(attached(withoutEntry)));
    EXPECT_EQ(errno, dependencyMark);
}

TEST(LoadLibraryW, CallsNoDllMainForThreads)
{
    ModuleWorld world;
    world.install("recorder", "libfoo.so");
    const HMODULE module = LoadLibraryW(L"./foo");
    ASSERT_NE(module, nullptr);
    bool ran = false;
    std::thread([&ran] { ran = true; }).join();
    EXPECT_TRUE(ran);
    EXPECT_THAT(record().dllMainCalls, ElementsAre(attached(module)));
}

TEST(LoadLibraryExW, IgnoresFlags)
{
    ModuleWorld world;
    world.install("recorder", "libfoo.so");
    const HMODULE module =
        LoadLibraryExW(L"./foo.dll", nullptr, DONT_RESOLVE_DLL_REFERENCES | LOAD_LIBRARY_AS_DATAFILE);
    ASSERT_NE(module, nullptr);
    EXPECT_THAT(record().dllMainCalls, ElementsAre(attached(module)));
    EXPECT_EQ(LoadLibraryExW(L"foo", INVALID_HANDLE_VALUE, 0xFFFFFFFF), module);
    EXPECT_THAT(table(), ElementsAre(Pair("libfoo.so", 2)));
    EXPECT_EQ(LoadLibraryExW(L"./missing.dll", INVALID_HANDLE_VALUE, 0), nullptr);
}

} // namespace
