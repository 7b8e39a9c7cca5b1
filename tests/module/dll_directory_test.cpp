#include "harness/scoped_locale.h"
#include "module/module_world.h"

#include <cerrno>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

using namespace kest::test;
using testing::ElementsAre;
using testing::Pair;

namespace
{

namespace fs = std::filesystem;

class DllDirectory : public testing::Test
{
protected:
    ModuleWorld world;
};

TEST_F(DllDirectory, FindsInTheDllDirectoryWhatTheLoaderDoesNotFind)
{
    const fs::path file = world.install("recorder", "x/libfoo.so");
    const fs::path below = world.install("recorder", "x/sub/libbar.so");
    EXPECT_EQ(SetDllDirectoryW((world.path() / "x").wstring().c_str()), 1);

    const HMODULE module = LoadLibraryW(L"foo.dll");
    ASSERT_NE(module, nullptr);
    EXPECT_THAT(record().opens, ElementsAre(OpenCall{"libfoo.so", deepBinding}, OpenCall{file, deepBinding}));
    EXPECT_THAT(record().dllMainCalls, ElementsAre(attached(module)));

    record().forget();
    const HMODULE moduleBelow = LoadLibraryW(L"sub/bar.dll");
    ASSERT_NE(moduleBelow, nullptr);
    EXPECT_THAT(record().opens, ElementsAre(OpenCall{"sub/libbar.so", deepBinding}, OpenCall{below, deepBinding}));
    EXPECT_THAT(record().dllMainCalls, ElementsAre(attached(moduleBelow)));

    EXPECT_THAT(table(), ElementsAre(Pair("libbar.so", 1), Pair("libfoo.so", 1)));
    EXPECT_EQ(FreeLibrary(module), 0);
    EXPECT_EQ(FreeLibrary(moduleBelow), 0);
}

TEST_F(DllDirectory, AsksForNothingElseWhenTheDllDirectoryFailsToo)
{
    EXPECT_EQ(SetDllDirectoryW(L"rel/dir/"), 1);
    EXPECT_EQ(LoadLibraryW(L"/abs/foo.dll"), nullptr);
    EXPECT_THAT(record().opens,
                ElementsAre(OpenCall{"/abs/libfoo.so", deepBinding}, OpenCall{"rel/dir///abs/libfoo.so", deepBinding}));
}

TEST_F(DllDirectory, TakesTheDllDirectoryFromItsVariable)
{
    EXPECT_EQ(SetDllDirectoryW(L"/opt/first"), 1);
    EXPECT_EQ(g_strDllPath, L"/opt/first");
    EXPECT_EQ(SetDllDirectoryW(g_strDllPath.c_str() + 4), 1);
    EXPECT_EQ(g_strDllPath, L"/first");
    EXPECT_EQ(SetDllDirectoryW(g_strDllPath.c_str()), 1);
    EXPECT_EQ(g_strDllPath, L"/first");
    EXPECT_EQ(SetDllDirectoryW(L""), 1);
    EXPECT_EQ(g_strDllPath, L"");
    g_strDllPath = L"/set/directly";
    EXPECT_EQ(LoadLibraryW(L"foo"), nullptr);
    EXPECT_EQ(record().opens.back().path, "/set/directly/libfoo.so");
    EXPECT_EQ(SetDllDirectoryW(nullptr), 1);
    EXPECT_EQ(g_strDllPath, L"");
}

TEST_F(DllDirectory, LeavesOutADllDirectoryThatTheLocaleCannotEncode)
{
    const ScopedLocale locale("C");
    SetDllDirectoryW(L"/opt/\u00e9");
    errno = untouchedError;
    EXPECT_EQ(LoadLibraryW(L"foo"), nullptr);
    EXPECT_EQ(errno, untouchedError);
    EXPECT_THAT(record().opens, ElementsAre(OpenCall{"libfoo.so", deepBinding}));
}

TEST(LoadLibraryW, TriesDllDirectoryLast)
{
    ModuleWorld world;
    const fs::path near = world.install("recorder", "libfoo.so");
    const fs::path inDirectory = world.install("recorder", "x/libfoo.so");
    SetDllDirectoryW(L"x");
    EXPECT_NE(LoadLibraryW(L"./foo.dll"), nullptr);
    EXPECT_TRUE(isInMemory(near));
    EXPECT_FALSE(isInMemory(inDirectory));
}

TEST(LoadLibraryW, TriesTheRootWithoutDllDirectory)
{
    ModuleWorld world;
    const fs::path file = world.install("recorder", "libfoo.so");
    // Relative to "/", this names the file.
    const std::wstring name = (world.path().relative_path() / "foo.dll").wstring();
    fs::create_directory("elsewhere");
    fs::current_path("elsewhere");
    EXPECT_NE(LoadLibraryW(name.c_str()), nullptr);
    EXPECT_THAT(record().opens, ElementsAre(OpenCall{file.relative_path(), deepBinding}, OpenCall{file, deepBinding}));
}

TEST(SetDllDirectoryW, ChecksNothing)
{
    ModuleWorld world;
    errno = untouchedError;
    for (const std::wstring& path : {std::wstring(L"/no/such/directory"), std::wstring(L"a;b"), std::wstring(L"\\\\ "),
                                     std::wstring(5000, L'\u65e5')})
    {
        EXPECT_EQ(SetDllDirectoryW(path.c_str()), 1);
        EXPECT_EQ(g_strDllPath, path);
    }
    EXPECT_EQ(errno, untouchedError);
}

} // namespace
