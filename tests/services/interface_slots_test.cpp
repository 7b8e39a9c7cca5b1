// The declarations of the hub and of its services against a host laid out by hand: every position, the unused ones
// included, leads where the binary contract says.
#include "harness/hand_laid_host.h"
#include "kest/platform_services.h"

#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace
{

using namespace kest::test;

struct Slot
{
    std::string name;
    Service service;
    int position;
    std::function<Outcome()> call;
    Word result;
};

template <class Interface, class Result, class... Parameters>
Slot slot(const char* name, Service service, Interface* (IPlatformServices::*getter)(), int position,
          Result (Interface::*operation)(Parameters...))
{
    const auto call = [=](auto&... arguments) { return ((platformServices()->*getter)()->*operation)(arguments...); };
    return {name, service, position, [call] { return callWithDistinctArguments<Result, Parameters...>(call); },
            toWord(fromWord<Result>(HandLaidHost::answer))};
}

std::vector<Slot> slots()
{
    using enum Service;
    const auto windowService = &IPlatformServices::windowService;
    const auto fileSystemService = &IPlatformServices::fileSystemService;
    const auto cursorService = &IPlatformServices::cursorService;
    const auto fontService = &IPlatformServices::fontService;
    const auto graphicsService = &IPlatformServices::graphicsService;
    const auto profileService = &IPlatformServices::profileService;
    const auto dialogService = &IPlatformServices::dialogService;
    const auto registryService = &IPlatformServices::registryService;
    const auto systemService = &IPlatformServices::systemService;
    return {
        slot("GetKeyState", window, windowService, 2, &IWindowService::GetKeyState),
        slot("FindWindowW", window, windowService, 4, &IWindowService::FindWindowW),

        slot("FindFirstFileW", fileSystem, fileSystemService, 1, &IFileSystemService::FindFirstFileW),
        slot("FindNextFileW", fileSystem, fileSystemService, 2, &IFileSystemService::FindNextFileW),
        slot("FindClose", fileSystem, fileSystemService, 3, &IFileSystemService::FindClose),
        slot("PathFileExistsW", fileSystem, fileSystemService, 4, &IFileSystemService::PathFileExistsW),
        slot("PathIsURLW", fileSystem, fileSystemService, 5, &IFileSystemService::PathIsURLW),
        slot("PathAddBackslashW", fileSystem, fileSystemService, 6, &IFileSystemService::PathAddBackslashW),
        slot("SHGetFolderPathW", fileSystem, fileSystemService, 7, &IFileSystemService::SHGetFolderPathW),
        slot("PathRelativePathToW", fileSystem, fileSystemService, 8, &IFileSystemService::PathRelativePathToW),
        slot("GetTempPathW", fileSystem, fileSystemService, 9, &IFileSystemService::GetTempPathW),
        slot("GetFileAttributesW", fileSystem, fileSystemService, 10, &IFileSystemService::GetFileAttributesW),
        slot("SetFileAttributesW", fileSystem, fileSystemService, 11, &IFileSystemService::SetFileAttributesW),
        slot("PathIsRelativeW", fileSystem, fileSystemService, 12, &IFileSystemService::PathIsRelativeW),
        slot("PathFindExtensionW", fileSystem, fileSystemService, 13, &IFileSystemService::PathFindExtensionW),

        slot("GetCursorPos", cursor, cursorService, 3, &ICursorService::GetCursorPos),
        slot("ScreenToClient", cursor, cursorService, 5, &ICursorService::ScreenToClient),
        slot("GetCursor", cursor, cursorService, 6, &ICursorService::GetCursor),
        slot("SetCursor", cursor, cursorService, 7, &ICursorService::SetCursor),

        slot("EnumFontFamiliesExW", font, fontService, 3, &IFontService::EnumFontFamiliesExW),
        slot("IsValidCodePage", font, fontService, 6, &IFontService::IsValidCodePage),

        slot("LoadStringW", graphics, graphicsService, 3, &IGraphicsService::LoadStringW),
        slot("LoadImageW", graphics, graphicsService, 4, &IGraphicsService::LoadImageW),
        slot("DeleteObject", graphics, graphicsService, 8, &IGraphicsService::DeleteObject),
        slot("GetSystemMetrics", graphics, graphicsService, 9, &IGraphicsService::GetSystemMetrics),
        slot("EnumPrintersW", graphics, graphicsService, 13, &IGraphicsService::EnumPrintersW),
        slot("MonitorFromPoint", graphics, graphicsService, 14, &IGraphicsService::MonitorFromPoint),
        slot("GetMonitorInfoW", graphics, graphicsService, 15, &IGraphicsService::GetMonitorInfoW),

        slot("GetPrivateProfileStringW", profile, profileService, 3, &IProfileService::GetPrivateProfileStringW),
        slot("GetPrivateProfileStringA", profile, profileService, 4, &IProfileService::GetPrivateProfileStringA),
        slot("GetPrivateProfileIntW", profile, profileService, 5, &IProfileService::GetPrivateProfileIntW),
        slot("GetPrivateProfileIntA", profile, profileService, 6, &IProfileService::GetPrivateProfileIntA),
        slot("GetPrivateProfileSectionW", profile, profileService, 8, &IProfileService::GetPrivateProfileSectionW),
        slot("WritePrivateProfileStringW", profile, profileService, 9, &IProfileService::WritePrivateProfileStringW),
        slot("WritePrivateProfileStringA", profile, profileService, 10, &IProfileService::WritePrivateProfileStringA),

        slot("MessageBoxW", dialog, dialogService, 1, &IDialogService::MessageBoxW),
        slot("PostMessageW", dialog, dialogService, 2, &IDialogService::PostMessageW),
        slot("SendMessageW", dialog, dialogService, 3, &IDialogService::SendMessageW),
        slot("TaskDialogIndirect", dialog, dialogService, 4, &IDialogService::TaskDialogIndirect),

        slot("RegQueryValueExW", registry, registryService, 1, &IRegistryService::RegQueryValueExW),
        slot("RegCreateKeyExW", registry, registryService, 2, &IRegistryService::RegCreateKeyExW),
        slot("RegOpenKeyExW", registry, registryService, 3, &IRegistryService::RegOpenKeyExW),
        slot("RegOpenKeyW", registry, registryService, 4, &IRegistryService::RegOpenKeyW),
        slot("RegSetValueExW", registry, registryService, 5, &IRegistryService::RegSetValueExW),
        slot("RegCloseKey", registry, registryService, 6, &IRegistryService::RegCloseKey),
        slot("RegQueryInfoKeyW", registry, registryService, 7, &IRegistryService::RegQueryInfoKeyW),
        slot("RegEnumKeyW", registry, registryService, 8, &IRegistryService::RegEnumKeyW),
        slot("RegDeleteKeyW", registry, registryService, 9, &IRegistryService::RegDeleteKeyW),
        slot("RegDeleteValueW", registry, registryService, 10, &IRegistryService::RegDeleteValueW),
        slot("RegEnumKeyExW", registry, registryService, 11, &IRegistryService::RegEnumKeyExW),
        slot("RegEnumValueW", registry, registryService, 12, &IRegistryService::RegEnumValueW),
        slot("RegQueryValueW", registry, registryService, 13, &IRegistryService::RegQueryValueW),
        slot("RegDeleteKeyExW", registry, registryService, 14, &IRegistryService::RegDeleteKeyExW),
        slot("RegCreateKeyW", registry, registryService, 15, &IRegistryService::RegCreateKeyW),

        slot("GetNumberFormatW", system, systemService, 1, &ISystemService::GetNumberFormatW),
    };
}

TEST(InterfaceSlots, LeadToTheirOperations)
{
    for (const Slot& slot : slots())
    {
        SCOPED_TRACE(slot.name);
        const HandLaidHost host;
        const Outcome outcome = slot.call();
        EXPECT_EQ(host.calls(), (std::vector<ServiceCall>{{slot.service, slot.position, outcome.arguments}}));
        EXPECT_EQ(outcome.result, slot.result);
        EXPECT_EQ(host.getterCalls(slot.service), 1);
        EXPECT_EQ(host.getterCalls(), 1);
    }
}

// Text handed back travels through a hidden pointer.
TEST(InterfaceSlots, HandTextBack)
{
    const HandLaidHost host;
    const std::wstring text = L"%PATH%";
    EXPECT_EQ(platformServices()->systemService()->ExpandEnvironmentStringsW(text), HandLaidHost::textAnswer);
    EXPECT_EQ(host.calls(), (std::vector<ServiceCall>{{Service::system, 2, {toWord(text)}}}));
}

TEST(InterfaceSlots, KeepUnusedPositions)
{
    HandLaidHost host;
    IPlatformServices* const hub = platformServices();
    hub->reserved1();
    hub->reserved2();
    hub->reserved4();
    hub->reserved12();
    hub->windowService()->reserved1();
    hub->windowService()->reserved3();
    hub->cursorService()->reserved1();
    hub->cursorService()->reserved2();
    hub->cursorService()->reserved4();
    hub->fontService()->reserved1();
    hub->fontService()->reserved2();
    hub->fontService()->reserved4();
    hub->fontService()->reserved5();
    hub->graphicsService()->reserved1();
    hub->graphicsService()->reserved2();
    hub->graphicsService()->reserved5();
    hub->graphicsService()->reserved6();
    hub->graphicsService()->reserved7();
    hub->graphicsService()->reserved10();
    hub->graphicsService()->reserved11();
    hub->graphicsService()->reserved12();
    hub->profileService()->reserved1();
    hub->profileService()->reserved2();
    hub->profileService()->reserved7();
    EXPECT_EQ(host.takeUnusedCalls(),
              (std::vector<std::string>{
                  "hub 1",       "hub 2",       "hub 4",       "hub 12",     "window 1",   "window 3",
                  "cursor 1",    "cursor 2",    "cursor 4",    "font 1",     "font 2",     "font 4",
                  "font 5",      "graphics 1",  "graphics 2",  "graphics 5", "graphics 6", "graphics 7",
                  "graphics 10", "graphics 11", "graphics 12", "profile 1",  "profile 2",  "profile 7",
              }));
    EXPECT_TRUE(host.calls().empty());
}

} // namespace
