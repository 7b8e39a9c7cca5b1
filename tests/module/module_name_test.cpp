#include "harness/scoped_locale.h"
#include "kest/kernel/modules.h"

#include <cerrno>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace
{

struct Translation
{
    const wchar_t* name;
    const wchar_t* expected;
};

constexpr Translation translations[] = {
    {L"foo.dll", L"libfoo.so"},
    {L"Foo.DLL", L"libFoo.so"},
    {L"libfoo.dll", L"libfoo.so"},
    {L"LIBfoo.Dll", L"LIBfoo.so"},
    {L"foo", L"libfoo.so"},
    {L"foo.so", L"libfoo.so"},
    {L"libfoo.so.1", L"libfoo.so.1"},
    {L"foo.qlx", L"libfoo.qlx"},
    {L"/opt/app/bin/foo.dll", L"/opt/app/bin/libfoo.so"},
    {L"/opt/app.d/foo", L"/opt/app.d/libfoo.so"},
    {L"lib.dll", L"liblib.so"},
    {L".dll", L"lib.so"},
    {L"a\\b.dll", L"liba\\b.so"},
    {L"dir/", L"dir/lib.so"},
    {L"", L""},
    {nullptr, L""},

    // The directory goes first: its dots are no extension, and its "lib" is no prefix.
    {L"/opt/app.dll/foo", L"/opt/app.dll/libfoo.so"},
    {L"/opt/app.dll/", L"/opt/app.dll/lib.so"},
    {L"/opt/lib/foo.dll", L"/opt/lib/libfoo.so"},
    {L"libfoo/foo.dll", L"libfoo/libfoo.so"},
    {L"./foo", L"./libfoo.so"},
    {L"../foo", L"../libfoo.so"},
    {L"/", L"/lib.so"},
    {L"a//b.dll", L"a//libb.so"},

    // Only the last dot counts.
    {L"a.b.dll", L"liba.b.so"},
    {L"a.dll.bak", L"liba.dll.bak"},
    {L"a.dll.dll", L"liba.dll.so"},
    {L"foo.", L"libfoo."},
    {L"..", L"lib.."},

    // The extension must be ".dll" from end to end.
    {L"foo.dl", L"libfoo.dl"},
    {L"foo.dllx", L"libfoo.dllx"},
    {L"foo.dLl", L"libfoo.so"},
    {L"foo.DLl.", L"libfoo.DLl."},
    {L"foo.SO", L"libfoo.SO"},
    {L"foo.QLX", L"libfoo.QLX"},

    // "lib" is a prefix when something follows it in the stem.
    {L"lib", L"liblib.so"},
    {L"LIB", L"libLIB.so"},
    {L"lib.so", L"liblib.so"},
    {L"libx", L"libx.so"},
    {L"lib.x.dll", L"lib.x.so"},
    {L"lIbrary.dll", L"lIbrary.so"},
    {L"li.dll", L"libli.so"},
    {L"li", L"libli.so"},
    {L"alib.dll", L"libalib.so"},
    {L"x\\libfoo.dll", L"libx\\libfoo.so"},

    // Blanks and characters outside ASCII are ordinary.
    {L" foo.dll", L"lib foo.so"},
    {L"foo.dll ", L"libfoo.dll "},
    {L"\u00e9t\u00e9.dll", L"lib\u00e9t\u00e9.so"},
    {L"/\u65e5\u672c/\U0001F600.DLL", L"/\u65e5\u672c/lib\U0001F600.so"},
};

std::wstring label(const wchar_t* name)
{
    return name == nullptr ? L"(null)" : name;
}

TEST(ModuleNameTranslation, FollowsItsTable)
{
    for (const Translation& row : translations)
    {
        EXPECT_EQ(ToPlatformModuleName(row.name), row.expected) << testing::PrintToString(label(row.name));
    }
}

// In a UTF-8 locale the C library lowers U+0130 to "i" and U+212A to "k".
TEST(ModuleNameTranslation, FoldsAsciiLettersOnlyInEveryLocale)
{
    for (const char* locale : {"C", "C.UTF-8"})
    {
        const kest::test::ScopedLocale scoped(locale);
        EXPECT_EQ(ToPlatformModuleName(L"L\u0130Bfoo.dll"), L"libL\u0130Bfoo.so") << locale;
        EXPECT_EQ(ToPlatformModuleName(L"foo.\uff24LL"), L"libfoo.\uff24LL") << locale;
        EXPECT_EQ(ToPlatformModuleName(L"LIBFOO.DLL"), L"LIBFOO.so") << locale;
    }
}

TEST(ModuleNameTranslation, TakesLongNamesWhole)
{
    const std::wstring directory(5000, L'd');
    const std::wstring stem(5000, L's');
    EXPECT_EQ(ToPlatformModuleName((directory + L"/" + stem + L".dll").c_str()), directory + L"/lib" + stem + L".so");
}

TEST(ModuleNameTranslation, LeavesNameAndLastErrorAlone)
{
    const std::wstring name = L"/opt/Foo.DLL";
    std::wstring copy = name;
    errno = 77;
    ToPlatformModuleName(copy.c_str());
    ToPlatformModuleName(nullptr);
    EXPECT_EQ(errno, 77);
    EXPECT_EQ(copy, name);
}

int reportsSinceCreation()
{
    struct Layout
    {
        std::vector<const void*> slots;
        bool forbiddenUpdate;
        int nextIndex;
    };
    return reinterpret_cast<const Layout*>(KestPlatformCStringManager::getInstance())->nextIndex;
}

TEST(ModuleNameTranslation, ReportsItsStringsAndItsResult)
{
    for (const wchar_t* name : {L"/opt/foo.dll", L"foo", L"a much longer name than a string keeps in itself.dll"})
    {
        KestPlatformCStringManager::destroyInstance();
        const CStdStr<wchar_t> result = ToPlatformModuleName(name);
        ASSERT_NE(KestPlatformCStringManager::m_pInstance, nullptr);
        EXPECT_TRUE(KestPlatformCStringManager::m_pInstance->isElementValid(&result));
        // Directory, stem, extension, prefix and the joined name.
        EXPECT_EQ(reportsSinceCreation(), 5);
    }
    KestPlatformCStringManager::destroyInstance();
}

TEST(ModuleNameTranslation, ReportsAnEmptyResult)
{
    for (const wchar_t* name : {static_cast<const wchar_t*>(nullptr), L""})
    {
        KestPlatformCStringManager::destroyInstance();
        const CStdStr<wchar_t> result = ToPlatformModuleName(name);
        ASSERT_NE(KestPlatformCStringManager::m_pInstance, nullptr);
        EXPECT_TRUE(KestPlatformCStringManager::m_pInstance->isElementValid(&result));
    }
    KestPlatformCStringManager::destroyInstance();
}

TEST(ModuleNameTranslation, HasAPlainAndAnEncodedSymbol)
{
    using Translate = CStdStr<wchar_t> (*)(const wchar_t*);
    for (const char* symbol : {"ToPlatformModuleName", "_Z20ToPlatformModuleNamePKw"})
    {
        const auto translate = reinterpret_cast<Translate>(dlsym(RTLD_DEFAULT, symbol));
        ASSERT_NE(translate, nullptr) << symbol;
        EXPECT_EQ(translate(L"foo.dll"), L"libfoo.so") << symbol;
    }
}

} // namespace
