#include "kest/reference_host.h"

#include "harness/scratch_folder.h"
#include "harness/stub_services.h"
#include "kest/kernel.h"
#include "kest/registry.h"
#include "kest/shell_paths.h"

#include <cstdlib>
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
    setenv("KEST_REGISTRY", (folder.path() / "registry.db").c_str(), 1);
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

} // namespace
