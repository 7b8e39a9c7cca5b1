#include "module/module_world.h"

#include <cerrno>
#include <clocale>
#include <dlfcn.h>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <vector>

using namespace kest::test;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace
{

namespace fs = std::filesystem;

const LocaleCall utf8Wanted = {LC_CTYPE, "UTF-8"};

TEST(GetModuleHandleW, AnswersNullForTheMainProgram)
{
    ModuleWorld world;
    EXPECT_EQ(GetModuleHandleW(nullptr), nullptr);
    EXPECT_EQ(GetModuleHandleW(L""), nullptr);
    EXPECT_THAT(record().locales, IsEmpty());
    // Even when the main program stands in the table.
    ASSERT_NE(LoadLibraryW(L""), nullptr);
    EXPECT_EQ(GetModuleHandleW(L""), nullptr);
}

TEST(GetModuleHandleW, KnowsOnlyWhatLoadLibraryWLoaded)
{
    ModuleWorld world;
    const fs::path file = world.install("silent", "libfoo.so");
    EXPECT_EQ(GetModuleHandleW(L"KestPlatformBase.dll"), nullptr);
    EXPECT_EQ(GetModuleHandleW(L"./foo.dll"), nullptr);
    const auto module = static_cast<HMODULE>(dlopen(file.c_str(), RTLD_LAZY));
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(GetModuleHandleW(L"./foo.dll"), nullptr);
    EXPECT_EQ(LoadLibraryA("./foo"), module);
    EXPECT_EQ(GetModuleHandleW(L"./foo.dll"), nullptr);
    record().opens.clear();
    EXPECT_EQ(LoadLibraryW(L"./foo"), module);
    record().opens.clear();
    EXPECT_EQ(GetModuleHandleW(L"./foo.dll"), module);
    EXPECT_THAT(record().opens, IsEmpty());
    EXPECT_THAT(table(), ElementsAre(Pair("./libfoo.so", 1), Pair("libfoo.so", 1)));
    dlclose(module);
}

TEST(GetModuleHandleW, IgnoresTheDirectory)
{
    ModuleWorld world;
    world.install("silent", "libfoo.so");
    const HMODULE module = LoadLibraryW(L"./foo.dll");
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(GetModuleHandleW(L"/any/where/foo.dll"), module);
    EXPECT_THAT(table(), ElementsAre(Pair("libfoo.so", 1)));
}

TEST(GetModuleHandleW, AsksForCharacterTypeLocale)
{
    ModuleWorld world;
    EXPECT_EQ(GetModuleHandleW(L"foo"), nullptr);
    EXPECT_THAT(record().locales, ElementsAre(utf8Wanted));
}

TEST(GetModuleHandleW, LeavesLastErrorAlone)
{
    errno = untouchedError;
    EXPECT_EQ(GetModuleHandleW(L"missing"), nullptr);
    EXPECT_EQ(GetModuleHandleW(nullptr), nullptr);
    EXPECT_EQ(errno, untouchedError);
}

TEST(GetModuleHandleExW, AlwaysSucceedsAndWritesNothing)
{
    ModuleWorld world;
    world.install("silent", "libfoo.so");
    ASSERT_NE(LoadLibraryW(L"./foo.dll"), nullptr);
    record().forget();
    const HMODULE mark = reinterpret_cast<HMODULE>(0x5A5A5A5A);
    for (const wchar_t* name : {L"foo.dll", L"missing.dll", L"", static_cast<const wchar_t*>(nullptr)})
    {
        HMODULE out = mark;
        errno = untouchedError;
        EXPECT_EQ(GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN, name, &out), 1);
        EXPECT_EQ(GetModuleHandleExW(0, name, nullptr), 1);
        EXPECT_EQ(out, mark);
        EXPECT_EQ(errno, untouchedError);
    }
    EXPECT_THAT(table(), ElementsAre(Pair("libfoo.so", 1)));
    EXPECT_EQ(record().locales, std::vector<LocaleCall>(4, utf8Wanted));
}

} // namespace
