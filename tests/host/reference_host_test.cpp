#include "kest/reference_host.h"

#include "harness/in_child.h"
#include "harness/scoped_variable.h"
#include "harness/scratch_folder.h"
#include "harness/stub_services.h"
#include "kest/kernel.h"
#include "kest/registry.h"
#include "kest/shell_paths.h"

#include <gtest/gtest.h>
#include <string>

namespace
{

using kest::test::InstalledHub;
using kest::test::ScratchFolder;

// The exported functions over the whole host: what one run writes, the next finds.
TEST(ReferenceHost, ServesTheExportedFunctions)
{
    ScratchFolder folder;
    const kest::test::ScopedVariable registry("KEST_REGISTRY", (folder.path() / "registry.db").c_str());
    for (int run = 0; run < 2; ++run)
    {
        KestReferenceHost host;
        const InstalledHub installed(&host);
        HKEY key = nullptr;
        DWORD disposition = 0;
        ASSERT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, L"Software\\Kest", 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key,
                                  &disposition),
                  0);
        EXPECT_EQ(disposition, static_cast<DWORD>(run == 0 ? REG_CREATED_NEW_KEY : REG_OPENED_EXISTING_KEY));
        EXPECT_EQ(RegCloseKey(key), 0);
        const std::wstring file = folder.path().wstring() + L"/settings.ini";
        EXPECT_EQ(GetPrivateProfileIntW(L"run", L"number", 0, file.c_str()), static_cast<UINT>(run));
        EXPECT_EQ(WritePrivateProfileStringW(L"run", L"number", std::to_wstring(run + 1).c_str(), file.c_str()), 1);
        EXPECT_EQ(GetFileAttributesW(L"SETTINGS.INI"), 0x20U);
        EXPECT_EQ(PathIsURLW(L"https://x"), 1);
        EXPECT_EQ(IsValidCodePage(65001), 1);
    }
}

// A host that brings its own windows derives and replaces that getter.
TEST(ReferenceHost, LetsOneServiceBeReplaced)
{
    class Windows : public kest::test::StubWindowService
    {
    public:
        SHORT GetKeyState(int) override { return 77; }
    };
    class Host : public KestReferenceHost
    {
    public:
        IWindowService* windowService() override { return &windows_; }

    private:
        Windows windows_;
    };
    Host host;
    IPlatformServices* const hub = &host;
    EXPECT_EQ(hub->windowService()->GetKeyState(1), 77);
    EXPECT_NE(hub->registryService(), nullptr);
    EXPECT_EQ(hub->registryService(), hub->registryService());
}

TEST(ReferenceHost, SuppliesEveryService)
{
    KestReferenceHost host;
    IPlatformServices* const hub = &host;
    EXPECT_NE(hub->windowService(), nullptr);
    EXPECT_NE(hub->fileSystemService(), nullptr);
    EXPECT_NE(hub->cursorService(), nullptr);
    EXPECT_NE(hub->fontService(), nullptr);
    EXPECT_NE(hub->graphicsService(), nullptr);
    EXPECT_NE(hub->profileService(), nullptr);
    EXPECT_NE(hub->dialogService(), nullptr);
    EXPECT_NE(hub->registryService(), nullptr);
    EXPECT_NE(hub->systemService(), nullptr);
}

// A port runs as several programs, and all of them keep their settings.
TEST(ReferenceHost, LosesNoWriteOfEightProcessesToItsStores)
{
    ScratchFolder folder;
    const kest::test::ScopedVariable registry("KEST_REGISTRY", (folder.path() / "registry.db").c_str());
    const std::wstring file = folder.path().wstring() + L"/settings.ini";
    const auto nameOf = [](int process, int number)
    { return std::to_wstring(process) + L" " + std::to_wstring(number); };
    constexpr int writes = 10;
    EXPECT_EQ(kest::test::failuresInChildren(
                  8,
                  [&](int process)
                  {
                      KestReferenceHost host;
                      const InstalledHub installed(&host);
                      HKEY key = nullptr;
                      ASSERT_EQ(RegCreateKeyW(HKEY_CURRENT_USER, L"Shared", &key), 0);
                      for (int number = 0; number < writes; ++number)
                      {
                          const std::wstring name = nameOf(process, number);
                          ASSERT_EQ(RegSetValueExW(key, name.c_str(), 0, REG_DWORD,
                                                   reinterpret_cast<const BYTE*>(&number), sizeof number),
                                    0);
                          ASSERT_EQ(WritePrivateProfileStringW(L"shared", name.c_str(), name.c_str(), file.c_str()), 1);
                      }
                  }),
              0);
    KestReferenceHost host;
    const InstalledHub installed(&host);
    HKEY key = nullptr;
    ASSERT_EQ(RegOpenKeyW(HKEY_CURRENT_USER, L"Shared", &key), 0);
    for (int process = 0; process < 8; ++process)
    {
        for (int number = 0; number < writes; ++number)
        {
            const std::wstring name = nameOf(process, number);
            int value = -1;
            DWORD bytes = sizeof value;
            EXPECT_EQ(RegQueryValueExW(key, name.c_str(), nullptr, nullptr, reinterpret_cast<BYTE*>(&value), &bytes),
                      0);
            EXPECT_EQ(value, number);
            wchar_t text[20] = {};
            GetPrivateProfileStringW(L"shared", name.c_str(), L"", text, 20, file.c_str());
            EXPECT_EQ(text, name);
        }
    }
}

} // namespace
