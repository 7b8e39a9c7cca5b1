#include "harness/scoped_locale.h"
#include "harness/sentinel_buffer.h"
#include "module/module_world.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <dlfcn.h>
#include <gtest/gtest.h>

using namespace kest::test;
using namespace std::string_literals;

namespace
{

namespace fs = std::filesystem;

const HMODULE mainProgram = reinterpret_cast<HMODULE>(1);

using NameBuffer = SentinelBuffer<wchar_t, 5000>;

class ModuleFileNames : public testing::Test
{
protected:
    ModuleWorld world;
};

// The call's result and the whole buffer, which must start with `expected`; the last error must stay.
void expectStored(HMODULE module, DWORD size, DWORD result, const std::wstring& expected)
{
    NameBuffer buffer;
    errno = untouchedError;
    EXPECT_EQ(GetModuleFileNameW(module, buffer.data(), size), result) << size;
    EXPECT_EQ(errno, untouchedError) << size;
    EXPECT_TRUE(buffer.contents() == NameBuffer::startingWith(expected)) << size;
}

TEST_F(ModuleFileNames, StoresTheMainPrograms)
{
    const std::wstring program = fs::read_symlink("/proc/self/exe").wstring();
    const DWORD length = static_cast<DWORD>(program.size());
    for (const HMODULE module : {static_cast<HMODULE>(nullptr), mainProgram})
    {
        expectStored(module, 4096, length, program + L'\0');
        expectStored(module, length + 1, length, program + L'\0');
    }
}

TEST_F(ModuleFileNames, StoresThePathUnderWhichAModuleWasLoaded)
{
    const fs::path file = world.install("recorder", "dir/libfoo.so");
    const HMODULE module = LoadLibraryW((world.path() / "dir/foo.dll").wstring().c_str());
    ASSERT_NE(module, nullptr);
    const DWORD length = static_cast<DWORD>(file.native().size());
    expectStored(module, MAX_PATH, length, file.wstring() + L'\0');
    FreeLibrary(module);

    const HMODULE relative = LoadLibraryW(L"dir/foo.dll");
    ASSERT_NE(relative, nullptr);
    Dl_info info;
    ASSERT_NE(dladdr(dlsym(relative, "DllMain"), &info), 0);
    const std::string reported = info.dli_fname;
    expectStored(relative, MAX_PATH, static_cast<DWORD>(reported.size()), fs::path(reported).wstring() + L'\0');
}

TEST_F(ModuleFileNames, StoresNamesOutsideAscii)
{
    const ScopedLocale locale("C.UTF-8");
    world.install("recorder", "\303\251\346\227\245/lib\360\237\230\200.so");
    const std::wstring folder = world.path().wstring() + L"/\u00e9\u65e5/";
    const HMODULE module = LoadLibraryW((folder + L"\U0001F600.dll").c_str());
    ASSERT_NE(module, nullptr);
    const std::wstring name = folder + L"lib\U0001F600.so";
    const DWORD length = static_cast<DWORD>(name.size());
    expectStored(module, MAX_PATH, length, name + L'\0');
    // Sizes count characters.
    expectStored(module, length + 1, length, name + L'\0');
    expectStored(module, length, length, name);
    expectStored(module, length - 4, length - 4, name.substr(0, length - 4));
}

TEST_F(ModuleFileNames, CutsNamesInFrontOfWhatTheLocaleCannotDecode)
{
    world.install("recorder", "a\303\251/libfoo.so");
    world.install("recorder", "b\303\251\377x/libfoo.so");
    const HMODULE accented = LoadLibraryA((world.path() / "a\303\251/foo").c_str());
    const HMODULE broken = LoadLibraryA((world.path() / "b\303\251\377x/foo").c_str());
    ASSERT_NE(accented, nullptr);
    ASSERT_NE(broken, nullptr);
    const std::wstring folder = world.path().wstring();
    const auto expectCut = [](HMODULE module, const std::wstring& prefix)
    {
        const DWORD length = static_cast<DWORD>(prefix.size());
        expectStored(module, MAX_PATH, length, prefix + L'\0');
        expectStored(module, length + 1, length, prefix + L'\0');
        expectStored(module, length, length, prefix);
        expectStored(module, 3, 3, prefix.substr(0, 3));
    };
    {
        const ScopedLocale locale("C");
        expectCut(accented, folder + L"/a");
        expectCut(broken, folder + L"/b");
    }
    const ScopedLocale locale("C.UTF-8");
    expectCut(broken, folder + L"/b\u00e9");
}

TEST_F(ModuleFileNames, NeverReadsPastTheLongestLink)
{
    record().readingLink = [](char* buffer, std::size_t size)
    {
        EXPECT_EQ(size, 4096U);
        std::memset(buffer, 'p', size);
        return static_cast<ssize_t>(size);
    };
    expectStored(nullptr, 5000, 4096, std::wstring(4096, L'p') + L'\0');
}

TEST_F(ModuleFileNames, StoresNothingWhenTheLinkCannotBeRead)
{
    record().readingLink = [](char*, std::size_t) -> ssize_t
    {
        errno = ENOENT;
        return -1;
    };
    expectStored(mainProgram, MAX_PATH, 0, L"\0"s);
}

TEST(GetModuleFileNameW, NeedsDllMain)
{
    ModuleWorld world;
    world.install("silent", "libfoo.so");
    world.install("dependent_without_entry", "libbar.so");
    const HMODULE silent = LoadLibraryW(L"./foo.dll");
    ASSERT_NE(silent, nullptr);
    expectStored(silent, MAX_PATH, 0, L"\0"s);

    const HMODULE dependent = LoadLibraryW(L"./bar.dll");
    ASSERT_NE(dependent, nullptr);
    NameBuffer buffer;
    EXPECT_NE(GetModuleFileNameW(dependent, buffer.data(), NameBuffer::size()), 0U);
    EXPECT_EQ(fs::path(buffer.data()).filename(), "libdependency.so");
}

TEST(GetModuleFileNameW, StoresNoTerminatorInAFullBuffer)
{
    const std::wstring program = fs::read_symlink("/proc/self/exe").wstring();
    const DWORD length = static_cast<DWORD>(program.size());
    expectStored(nullptr, length, length, program);
    expectStored(nullptr, length - 1, length - 1, program.substr(0, length - 1));
    expectStored(nullptr, 1, 1, program.substr(0, 1));
}

TEST(GetModuleFileNameW, ClearsTheFirstCharacterOfEveryBuffer)
{
    expectStored(nullptr, 0, 0, L"\0"s);
    ModuleWorld world;
    world.install("recorder", "libfoo.so");
    const HMODULE module = LoadLibraryW(L"./foo.dll");
    ASSERT_NE(module, nullptr);
    expectStored(module, 0, 0, L"\0"s);
}

TEST(GetModuleFileNameW, LeavesLastErrorAlone)
{
    ModuleWorld world;
    world.install("silent", "libfoo.so");
    const HMODULE module = LoadLibraryW(L"./foo.dll");
    ASSERT_NE(module, nullptr);
    errno = untouchedError;
    wchar_t name[4];
    EXPECT_EQ(GetModuleFileNameW(module, name, 4), 0U);
    EXPECT_EQ(GetModuleFileNameW(nullptr, name, 4), 4U);
    EXPECT_EQ(errno, untouchedError);
}

// ---- Long path names ------------------------------------------------------------------------------------------------

using PathBuffer = SentinelBuffer<wchar_t, 16>;

TEST(LongPathNames, CopiesWithTerminator)
{
    for (const std::wstring& path : {L""s, L"a"s, L"/tmp/x"s, L"C:\\PROGRA~1"s, L"\u65e5\U0001F600"s})
    {
        PathBuffer buffer;
        errno = untouchedError;
        EXPECT_EQ(GetLongPathNameW(path.c_str(), buffer.data(), PathBuffer::size()), path.size());
        EXPECT_EQ(buffer.contents(), PathBuffer::startingWith(path + L'\0'));
        EXPECT_EQ(errno, untouchedError);
    }
}

TEST(LongPathNames, CopiesWithinOneBuffer)
{
    PathBuffer buffer(L"/tmp/x");
    EXPECT_EQ(GetLongPathNameW(buffer.data(), buffer.data(), PathBuffer::size()), 6U);
    EXPECT_EQ(buffer.contents(), PathBuffer::startingWith(L"/tmp/x\0"s));
    EXPECT_EQ(GetLongPathNameW(buffer.data(), buffer.data() + 1, PathBuffer::size() - 1), 6U);
    EXPECT_EQ(buffer.contents(), PathBuffer::startingWith(L"//tmp/x\0"s));
    EXPECT_EQ(GetLongPathNameW(buffer.data() + 1, buffer.data(), PathBuffer::size()), 6U);
    EXPECT_EQ(buffer.contents(), PathBuffer::startingWith(L"/tmp/x\0\0"s));
}

TEST(GetLongPathNameW, ExpandsNothing)
{
    PathBuffer buffer;
    EXPECT_EQ(GetLongPathNameW(L"/no/../SUCH~1", buffer.data(), PathBuffer::size()), 13U);
    EXPECT_EQ(buffer.contents(), PathBuffer::startingWith(L"/no/../SUCH~1\0"s));
}

TEST(GetLongPathNameW, AnswersZeroForASmallBuffer)
{
    for (const DWORD size : {0U, 1U, 2U})
    {
        PathBuffer buffer;
        EXPECT_EQ(GetLongPathNameW(L"abc", buffer.data(), size), 0U) << size;
        EXPECT_EQ(buffer.contents(), PathBuffer::untouched()) << size;
    }
}

TEST(GetLongPathNameW, LeavesTheTerminatorOutOfTheSize)
{
    PathBuffer buffer;
    EXPECT_EQ(GetLongPathNameW(L"abc", buffer.data(), 3), 3U);
    EXPECT_EQ(buffer.contents(), PathBuffer::startingWith(L"abc\0"s));
    PathBuffer empty;
    EXPECT_EQ(GetLongPathNameW(L"", empty.data(), 0), 0U);
    EXPECT_EQ(empty.contents(), PathBuffer::startingWith(L"\0"s));
}

} // namespace
