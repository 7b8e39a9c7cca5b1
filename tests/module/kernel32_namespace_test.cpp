#include "harness/sentinel_buffer.h"
#include "kest/kernel32_user32.h"
#include "module/module_world.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace kest::test;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace
{

TEST(Kernel32Modules, AreThoseOfTheGlobalFunctions)
{
    const ModuleWorld world;
    const std::filesystem::path file = world.install("recorder", "libfoo.so");

    const HMODULE module = KestKernel32::LoadLibraryW(L"./foo.dll");
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(KestKernel32::LoadLibraryExW(L"foo.dll", nullptr, 7), module);
    EXPECT_THAT(table(), ElementsAre(Pair("libfoo.so", 2)));
    EXPECT_EQ(KestKernel32::GetModuleHandleW(L"foo.dll"), module);
    EXPECT_EQ(KestKernel32::GetModuleHandleW(L"bar.dll"), nullptr);

    const auto untouched = reinterpret_cast<HMODULE>(0x5A);
    HMODULE out = untouched;
    EXPECT_EQ(KestKernel32::GetModuleHandleExW(0, L"foo.dll", &out), ::GetModuleHandleExW(0, L"foo.dll", &out));
    EXPECT_EQ(out, untouched);

    EXPECT_NE(KestKernel32::GetProcAddress(module, "DllMain"), nullptr);
    EXPECT_EQ(KestKernel32::GetProcAddress(module, "DllMain"), ::GetProcAddress(module, "DllMain"));
    EXPECT_EQ(KestKernel32::GetProcAddress(module, "nothing"), nullptr);

    constexpr DWORD size = 4096;
    SentinelBuffer<wchar_t, size> name;
    SentinelBuffer<wchar_t, size> globalName;
    const DWORD length = KestKernel32::GetModuleFileNameW(module, name.data(), size);
    EXPECT_EQ(length, ::GetModuleFileNameW(module, globalName.data(), size));
    EXPECT_EQ(name.contents(), globalName.contents());
    EXPECT_NE(name.contents(), name.untouched());

    EXPECT_EQ(KestKernel32::FreeLibrary(module), 1);
    EXPECT_EQ(KestKernel32::FreeLibrary(module), 0);
    EXPECT_THAT(table(), IsEmpty());
    EXPECT_FALSE(isInMemory(file));
}

} // namespace
