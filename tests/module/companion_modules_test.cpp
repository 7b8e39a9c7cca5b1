#include "kest/companions/kernel.h"

#include "harness/scoped_locale.h"
#include "harness/sentinel_buffer.h"
#include "module/module_world.h"

#include <cerrno>
#include <dlfcn.h>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

using namespace kest::test;
using namespace std::string_literals;
using testing::ElementsAre;

namespace
{

class NarrowModuleNames : public testing::Test
{
protected:
    ModuleWorld world;
    const ScopedLocale utf8{"C.UTF-8"};
};

TEST_F(NarrowModuleNames, LoadAndFindModulesAsWideOnesDo)
{
    world.install("recorder", "lib\u00E4.so");
    const std::string name = (world.path() / "\u00E4.dll").string();
    errno = untouchedError;
    const HMODULE module = LoadLibraryExA(name.c_str(), nullptr, 0);
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(errno, untouchedError);
    EXPECT_THAT(record().dllMainCalls, ElementsAre(attached(module)));
    EXPECT_EQ(name, (world.path() / "\u00E4.dll").string());
    EXPECT_EQ(GetModuleHandleA("\u00E4.dll"), module);
    EXPECT_EQ(errno, untouchedError);

    using Buffer = SentinelBuffer<char, 1000>;
    const std::string file = (world.path() / "lib\u00E4.so").string();
    const auto length = static_cast<DWORD>(file.size());
    Buffer whole;
    EXPECT_EQ(GetModuleFileNameA(module, whole.data(), length + 1), length);
    EXPECT_EQ(whole.contents(), Buffer::startingWith(file + '\0'));
    EXPECT_EQ(errno, untouchedError);

    Buffer cut;
    EXPECT_EQ(GetModuleFileNameA(module, cut.data(), length), length);
    EXPECT_EQ(cut.contents(), Buffer::startingWith(file.substr(0, length - 1) + '\0'));
    EXPECT_EQ(errno, 122);
}

TEST_F(NarrowModuleNames, AreRefusedWithTheReason)
{
    const struct
    {
        const char* name;
        int error;
    } cases[] = {{"missing.dll", 126}, {"", 87}, {nullptr, 87}, {"\xFF.dll", 1113}};
    for (const auto& row : cases)
    {
        errno = 0;
        EXPECT_EQ(LoadLibraryExA(row.name, nullptr, 0), nullptr);
        EXPECT_EQ(errno, row.error);
    }
    errno = 0;
    EXPECT_EQ(GetModuleHandleA("missing.dll"), nullptr);
    EXPECT_EQ(errno, 126);
    EXPECT_EQ(GetModuleHandleA("\xFF"), nullptr);
    EXPECT_EQ(errno, 1113);
}

TEST_F(NarrowModuleNames, TellTheMainProgramsFile)
{
    const std::string file = std::filesystem::read_symlink("/proc/self/exe").string();
    char buffer[4096];
    EXPECT_EQ(GetModuleFileNameA(nullptr, buffer, sizeof buffer), file.size());
    EXPECT_EQ(buffer, file);
    errno = 0;
    EXPECT_EQ(GetModuleFileNameA(nullptr, nullptr, 0), 0U);
    EXPECT_EQ(errno, 122);
    using Buffer = SentinelBuffer<char, 4>;
    Buffer one;
    EXPECT_EQ(GetModuleFileNameA(nullptr, one.data(), 1), 1U);
    EXPECT_EQ(one.contents(), Buffer::startingWith("\0"s));
}

TEST(GetModuleFileNameA, NeedsDllMain)
{
    const ModuleWorld world;
    world.install("silent", "libsilent.so");
    const HMODULE module = LoadLibraryExA((world.path() / "silent.dll").c_str(), nullptr, 0);
    ASSERT_NE(module, nullptr);
    SentinelBuffer<char, 100> buffer;
    errno = 0;
    EXPECT_EQ(GetModuleFileNameA(module, buffer.data(), 100), 0U);
    EXPECT_EQ(errno, 126);
    EXPECT_EQ(buffer.contents(), buffer.untouched());
}

TEST(GetModuleHandleA, AnswersNullForTheMainProgram)
{
    errno = untouchedError;
    EXPECT_EQ(GetModuleHandleA(nullptr), nullptr);
    EXPECT_EQ(errno, untouchedError);
}

TEST(GetModuleHandleA, KnowsOnlyWhatLoadLibraryWLoaded)
{
    const ModuleWorld world;
    const std::filesystem::path file = world.install("recorder", "libother.so");
    void* const opened = dlopen(file.c_str(), RTLD_LAZY);
    ASSERT_NE(opened, nullptr);
    EXPECT_EQ(GetModuleHandleA("other.dll"), nullptr);
    dlclose(opened);
}

TEST(LoadLibraryExA, IgnoresFlags)
{
    const ModuleWorld world;
    world.install("recorder", "libfoo.so");
    const HMODULE module =
        LoadLibraryExA((world.path() / "foo.dll").c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE | 0x80000000U);
    ASSERT_NE(module, nullptr);
    EXPECT_THAT(record().dllMainCalls, ElementsAre(attached(module)));
}

} // namespace
