#include "harness/sentinel_buffer.h"
#include "module/module_world.h"

#include <cerrno>
#include <csignal>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace kest::test;
using namespace std::string_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

// Its namesake stands in the silent module.
extern "C"
{
    extern KEST_API int moduleTestBinding;
}
int moduleTestBinding = 1;

namespace
{

namespace fs = std::filesystem;

class NarrowLoading : public testing::Test
{
protected:
    ModuleWorld world;
};

struct Composition
{
    std::string name;
    std::string path;
    std::string leftInName;
};

TEST_F(NarrowLoading, ComposesThePathAndCutsTheName)
{
    const Composition compositions[] = {
        {"foo", "libfoo.so", "foo"},
        {"foo.dll", "libfoo.so", "foo"},
        {"foo.DlL", "libfoo.so", "foo"},
        {"dir/foo.dll", "dir/libfoo.so", "dir/foo"},
        {"/a/b/foo", "/a/b/libfoo.so", "/a/b/foo"},
        {"libz.dll", "liblibz.so", "libz"},
        {"foo.so", "libfoo.so.so", "foo.so"},
        {"foo.bar", "libfoo.bar.so", "foo.bar"},
        {"foo.", "libfoo..so", "foo."},
        {"foo.dl", "libfoo.dl.so", "foo.dl"},
        {"a.b.dll", "liba.b.so", "a.b"},
        {"plug.qlx", "plug.qlx", "plug.qlx"},
        {"plug.QLX", "plug.QLX", "plug.QLX"},
        {"dir/plug.Qlx", "dir/plug.Qlx", "dir/plug.Qlx"},
        {"plug.qlxx", "libplug.qlxx.so", "plug.qlxx"},
        // What a cut leaves in front is no extension any more.
        {"plug.qlx.dll", "libplug.qlx.so", "plug.qlx"},
        {"foo.dll.dll", "libfoo.dll.so", "foo.dll"},
        // A dot in the directory ends in no extension that is known.
        {"dir.dll/foo", "dir.dll/libfoo.so", "dir.dll/foo"},
        {"dir.qlx/foo", "dir.qlx/libfoo.so", "dir.qlx/foo"},
        {".dll", "lib.so", ""},
        {".qlx", ".qlx", ".qlx"},
        {"dir/.dll", "dir/lib.so", "dir/"},
        {"dir/", "dir/lib.so", "dir/"},
        {"a\\b.dll", "liba\\b.so", "a\\b"},
        {"", "lib.so", ""},
        {"\303\251\377.dll", "lib\303\251\377.so", "\303\251\377"},
    };
    for (const Composition& row : compositions)
    {
        record().opens.clear();
        SentinelBuffer<char, 32> name(row.name);
        errno = untouchedError;
        EXPECT_EQ(LoadLibraryA(name.data()), nullptr) << row.name;
        EXPECT_EQ(errno, untouchedError) << row.name;
        EXPECT_THAT(record().opens, ElementsAre(OpenCall{row.path, plainBinding})) << row.name;
        // One byte of the name has changed at most.
        std::string left = row.name + '\0';
        if (row.leftInName != row.name)
        {
            left[row.leftInName.size()] = '\0';
        }
        EXPECT_EQ(name.contents(), name.startingWith(left)) << row.name;
    }
    EXPECT_THAT(table(), IsEmpty());
    EXPECT_THAT(record().locales, IsEmpty());
}

TEST_F(NarrowLoading, CountsReferencesByPath)
{
    const fs::path file = world.install("silent", "dir/libfoo.so");
    char name[] = "dir/foo.dll";
    const HMODULE module = LoadLibraryA(name);
    ASSERT_NE(module, nullptr);
    EXPECT_THAT(table(), ElementsAre(Pair("dir/libfoo.so", 1)));

    // The shortened name still names the module; the loader is not asked again.
    record().forget();
    EXPECT_EQ(LoadLibraryA(name), module);
    EXPECT_THAT(table(), ElementsAre(Pair("dir/libfoo.so", 2)));
    EXPECT_THAT(record().opens, IsEmpty());

    // By another path it is another entry.
    EXPECT_EQ(LoadLibraryA("./dir/foo"), module);
    EXPECT_THAT(table(), ElementsAre(Pair("./dir/libfoo.so", 1), Pair("dir/libfoo.so", 2)));

    EXPECT_EQ(FreeLibrary(module), 0);
    EXPECT_EQ(FreeLibrary(module), 1);
    EXPECT_TRUE(isInMemory(file));
    EXPECT_EQ(FreeLibrary(module), 0);
    EXPECT_THAT(table(), IsEmpty());
    EXPECT_FALSE(isInMemory(file));
}

TEST_F(NarrowLoading, BindsPlainlyAndLazily)
{
    world.install("silent", "libfoo.so");
    const HMODULE module = LoadLibraryA("./foo");
    ASSERT_NE(module, nullptr);
    const auto binding = functionOf<int()>(module, "silentBinding");
    ASSERT_NE(binding, nullptr);
    EXPECT_EQ(binding(), moduleTestBinding);
}

TEST_F(NarrowLoading, CountsALoadOfTheSamePathFromAConstructor)
{
    const fs::path file = world.install("recorder", "libfoo.so");
    HMODULE inner = nullptr;
    record().duringConstruction = [&] { inner = LoadLibraryA("./foo"); };
    const HMODULE module = LoadLibraryA("./foo");
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(inner, module);
    EXPECT_THAT(table(), ElementsAre(Pair("./libfoo.so", 2)));
    EXPECT_EQ(FreeLibrary(module), 1);
    EXPECT_EQ(FreeLibrary(module), 0);
    EXPECT_FALSE(isInMemory(file));
}

// Without directory the path is a file name, as the keys of the wide loader are.
TEST_F(NarrowLoading, SharesTheEntryWhereThePathIsAFileName)
{
    const HMODULE loaded = reinterpret_cast<HMODULE>(0x5A5A);
    g_loadedModuleMap["libfoo.so"] = {1, loaded};
    EXPECT_EQ(LoadLibraryW(L"foo"), loaded);
    EXPECT_EQ(LoadLibraryA("foo"), loaded);
    EXPECT_EQ(GetModuleHandleW(L"foo"), loaded);
    EXPECT_THAT(table(), ElementsAre(Pair("libfoo.so", 3)));
    g_loadedModuleMap.clear();
}

TEST_F(NarrowLoading, TakesNamesOfUpTo511Bytes)
{
    const std::string longest(511, 'n');
    EXPECT_EQ(LoadLibraryA(longest.c_str()), nullptr);
    EXPECT_EQ(record().opens.back().path, "lib" + longest + ".so");
    std::string withDirectory = std::string(255, 'd') + "/" + std::string(251, 'n') + ".dll";
    EXPECT_EQ(LoadLibraryA(withDirectory.data()), nullptr);
    EXPECT_EQ(record().opens.back().path, std::string(255, 'd') + "/lib" + std::string(251, 'n') + ".so");
    const std::string plugIn = std::string(507, 'n') + ".qlx";
    EXPECT_EQ(LoadLibraryA(plugIn.c_str()), nullptr);
    EXPECT_EQ(record().opens.back().path, plugIn);
}

// ---- Differences from Windows -------------------------------------------------------------------------------------

TEST(LoadLibraryA, CutsTheExtensionOffTheCallersText)
{
    ModuleWorld world;
    world.install("silent", "dir/libfoo.so");
    SentinelBuffer<char, 32> name("dir/foo.dll");
    EXPECT_NE(LoadLibraryA(name.data()), nullptr);
    EXPECT_STREQ(name.data(), "dir/foo");
    EXPECT_EQ(name.contents(), name.startingWith("dir/foo\0dll\0"s));
}

TEST(LoadLibraryA, PutsPrefixAndSuffixAroundEveryName)
{
    ModuleWorld world;
    const fs::path prefixed = world.install("silent", "liblibz.so");
    const fs::path suffixed = world.install("silent", "libfoo.so.so");
    world.install("silent", "libz.so");
    world.install("silent", "libfoo.so");
    char name[] = "./libz.dll";
    EXPECT_NE(LoadLibraryA(name), nullptr);
    EXPECT_NE(LoadLibraryA("./foo.so"), nullptr);
    EXPECT_THAT(table(), ElementsAre(Pair("./libfoo.so.so", 1), Pair("./liblibz.so", 1)));
    EXPECT_TRUE(isInMemory(prefixed));
    EXPECT_TRUE(isInMemory(suffixed));
}

TEST(LoadLibraryA, LoadsPlugInUnderItsOwnName)
{
    ModuleWorld world;
    const fs::path file = world.install("recorder", "plug.QLX");
    const HMODULE module = LoadLibraryA("./plug.QLX");
    ASSERT_NE(module, nullptr);
    EXPECT_THAT(table(), ElementsAre(Pair("./plug.QLX", 1)));
    EXPECT_TRUE(isInMemory(file));
}

TEST(LoadLibraryA, CountsApartFromLoadLibraryW)
{
    ModuleWorld world;
    world.install("silent", "libfoo.so");
    const HMODULE module = LoadLibraryW(L"./foo");
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(LoadLibraryA("./foo"), module);
    EXPECT_THAT(table(), ElementsAre(Pair("./libfoo.so", 1), Pair("libfoo.so", 1)));
    EXPECT_EQ(record().opens.size(), 2U);
}

TEST(LoadLibraryA, CallsNoDllMain)
{
    ModuleWorld world;
    world.install("recorder", "libfoo.so");
    const HMODULE module = LoadLibraryA("./foo");
    ASSERT_NE(module, nullptr);
    EXPECT_THAT(record().dllMainCalls, IsEmpty());
    EXPECT_EQ(LoadLibraryA("./foo"), module);
    EXPECT_EQ(FreeLibrary(module), 1);
    EXPECT_THAT(record().dllMainCalls, IsEmpty());
    EXPECT_EQ(FreeLibrary(module), 0);
    EXPECT_THAT(record().dllMainCalls, ElementsAre(detached(module)));
}

TEST(LoadLibraryA, SearchesNoDllDirectory)
{
    ModuleWorld world;
    world.install("silent", "x/libfoo.so");
    SetDllDirectoryW(L"x");
    EXPECT_EQ(LoadLibraryA("foo"), nullptr);
    EXPECT_THAT(record().opens, ElementsAre(OpenCall{"libfoo.so", plainBinding}));
}

// The words of the message are the C library's.
TEST(LoadLibraryA, EndsTheProcessOnLongNames)
{
    const auto aborted = testing::KilledBySignal(SIGABRT);
    const std::string tooLong(512, 'n');
    EXPECT_EXIT(LoadLibraryA(tooLong.c_str()), aborted, "buffer overflow detected");
    const std::string twoParts = std::string(300, 'd') + "/" + std::string(300, 'n');
    EXPECT_EXIT(LoadLibraryA(twoParts.c_str()), aborted, "buffer overflow detected");
    // The extension counts, cut or not.
    std::string extended = std::string(508, 'n') + ".dll";
    EXPECT_EXIT(LoadLibraryA(extended.data()), aborted, "buffer overflow detected");
    const std::string plugIn = std::string(508, 'n') + ".qlx";
    EXPECT_EXIT(LoadLibraryA(plugIn.c_str()), aborted, "buffer overflow detected");
}

TEST(LoadLibraryA, LeavesLastErrorAlone)
{
    ModuleWorld world;
    world.install("silent", "libfoo.so");
    errno = untouchedError;
    EXPECT_EQ(LoadLibraryA("./missing"), nullptr);
    EXPECT_NE(LoadLibraryA("./foo"), nullptr);
    EXPECT_NE(LoadLibraryA("./foo"), nullptr);
    EXPECT_EQ(errno, untouchedError);
}

} // namespace
