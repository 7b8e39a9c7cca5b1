// Services that answer zero or null to everything: a test derives from one and overrides what it looks at.
#pragma once

#include "kest/platform_services.h"

namespace kest::test
{

class StubWindowService : public IWindowService
{
public:
    SHORT GetKeyState(int) override { return {}; }
    HWND FindWindowW(const wchar_t*, const wchar_t*) override { return {}; }
};

class StubFileSystemService : public IFileSystemService
{
public:
    HANDLE FindFirstFileW(const wchar_t*, WIN32_FIND_DATAW*) override { return {}; }
    BOOL FindNextFileW(HANDLE, WIN32_FIND_DATAW*) override { return {}; }
    BOOL FindClose(HANDLE) override { return {}; }
    BOOL PathFileExistsW(const wchar_t*, std::wstring&) override { return {}; }
    BOOL PathIsURLW(const wchar_t*) override { return {}; }
    wchar_t* PathAddBackslashW(wchar_t*) override { return {}; }
    HRESULT SHGetFolderPathW(HWND, int, HANDLE, DWORD, wchar_t*) override { return {}; }
    BOOL PathRelativePathToW(wchar_t*, const wchar_t*, DWORD, const wchar_t*, DWORD) override { return {}; }
    DWORD GetTempPathW(DWORD, wchar_t*) override { return {}; }
    DWORD GetFileAttributesW(const wchar_t*) override { return {}; }
    BOOL SetFileAttributesW(const wchar_t*, DWORD) override { return {}; }
    BOOL PathIsRelativeW(const wchar_t*) override { return {}; }
    wchar_t* PathFindExtensionW(const wchar_t*) override { return {}; }
};

class StubCursorService : public ICursorService
{
public:
    BOOL GetCursorPos(POINT*) override { return {}; }
    BOOL ScreenToClient(HWND, POINT*) override { return {}; }
    HCURSOR GetCursor() override { return {}; }
    HCURSOR SetCursor(HCURSOR) override { return {}; }
};

class StubFontService : public IFontService
{
public:
    int EnumFontFamiliesExW(HDC, LOGFONTW*, FONTENUMPROCW, LPARAM, DWORD) override { return {}; }
    BOOL IsValidCodePage(UINT) override { return {}; }
};

class StubGraphicsService : public IGraphicsService
{
public:
    int LoadStringW(HINSTANCE, UINT, wchar_t*, int) override { return {}; }
    HANDLE LoadImageW(HINSTANCE, const wchar_t*, UINT, int, int, UINT) override { return {}; }
    BOOL DeleteObject(HGDIOBJ) override { return {}; }
    int GetSystemMetrics(int) override { return {}; }
    BOOL EnumPrintersW(DWORD, wchar_t*, DWORD, BYTE*, DWORD, DWORD*, DWORD*) override { return {}; }
    HMONITOR MonitorFromPoint(POINT, DWORD) override { return {}; }
    BOOL GetMonitorInfoW(HMONITOR, MONITORINFO*) override { return {}; }
};

class StubProfileService : public IProfileService
{
public:
    DWORD GetPrivateProfileStringW(const wchar_t*, const wchar_t*, const wchar_t*, wchar_t*, DWORD,
                                   const wchar_t*) override
    {
        return {};
    }
    DWORD GetPrivateProfileStringA(const char*, const char*, const char*, char*, DWORD, const char*) override
    {
        return {};
    }
    UINT GetPrivateProfileIntW(const wchar_t*, const wchar_t*, INT, const wchar_t*) override { return {}; }
    UINT GetPrivateProfileIntA(const char*, const char*, INT, const char*) override { return {}; }
    DWORD GetPrivateProfileSectionW(const wchar_t*, wchar_t*, DWORD, const wchar_t*) override { return {}; }
    BOOL WritePrivateProfileStringW(const wchar_t*, const wchar_t*, const wchar_t*, const wchar_t*) override
    {
        return {};
    }
    BOOL WritePrivateProfileStringA(const char*, const char*, const char*, const char*) override { return {}; }
};

class StubDialogService : public IDialogService
{
public:
    int MessageBoxW(HWND, const wchar_t*, const wchar_t*, UINT) override { return {}; }
    BOOL PostMessageW(HWND, UINT, WPARAM, LPARAM) override { return {}; }
    LRESULT SendMessageW(HWND, UINT, WPARAM, LPARAM) override { return {}; }
    HRESULT TaskDialogIndirect(const TASKDIALOGCONFIG*, int*, int*, BOOL*) override { return {}; }
};

class StubRegistryService : public IRegistryService
{
public:
    LONG RegQueryValueExW(HKEY, const wchar_t*, DWORD*, DWORD*, BYTE*, DWORD*) override { return {}; }
    LONG RegCreateKeyExW(HKEY, const wchar_t*, DWORD, wchar_t*, DWORD, REGSAM, SECURITY_ATTRIBUTES*, HKEY**,
                         DWORD*) override
    {
        return {};
    }
    LONG RegOpenKeyExW(HKEY, const wchar_t*, DWORD, REGSAM, HKEY*) override { return {}; }
    LONG RegOpenKeyW(HKEY, const wchar_t*, HKEY*) override { return {}; }
    LONG RegSetValueExW(HKEY, const wchar_t*, DWORD, DWORD, const BYTE*, DWORD) override { return {}; }
    LONG RegCloseKey(HKEY) override { return {}; }
    LONG RegQueryInfoKeyW(HKEY, wchar_t*, DWORD*, DWORD*, DWORD*, DWORD*, DWORD*, DWORD*, DWORD*, DWORD*, DWORD*,
                          FILETIME*) override
    {
        return {};
    }
    LONG RegEnumKeyW(HKEY, DWORD, wchar_t*, DWORD) override { return {}; }
    LONG RegDeleteKeyW(HKEY, const wchar_t*) override { return {}; }
    LONG RegDeleteValueW(HKEY, const wchar_t*) override { return {}; }
    LONG RegEnumKeyExW(HKEY, DWORD, wchar_t*, DWORD*, DWORD*, wchar_t*, DWORD*, FILETIME*) override { return {}; }
    LONG RegEnumValueW(HKEY, DWORD, wchar_t*, DWORD*, DWORD*, DWORD*, BYTE*, DWORD*) override { return {}; }
    LONG RegQueryValueW(HKEY, const wchar_t*, wchar_t*, LONG*) override { return {}; }
    LONG RegDeleteKeyExW(HKEY, const wchar_t*, REGSAM, DWORD) override { return {}; }
    LONG RegCreateKeyW(HKEY, const wchar_t*, HKEY**) override { return {}; }
};

class StubSystemService : public ISystemService
{
public:
    int GetNumberFormatW(LCID, DWORD, const wchar_t*, const NUMBERFMTW*, wchar_t*, int) override { return {}; }
    std::wstring ExpandEnvironmentStringsW(const std::wstring&) override { return {}; }
};

// A hub whose services are set one by one; null until then.
class StubHub : public IPlatformServices
{
public:
    IWindowService* windowService() override { return window; }
    IFileSystemService* fileSystemService() override { return fileSystem; }
    ICursorService* cursorService() override { return cursor; }
    IFontService* fontService() override { return font; }
    IGraphicsService* graphicsService() override { return graphics; }
    IProfileService* profileService() override { return profile; }
    IDialogService* dialogService() override { return dialog; }
    IRegistryService* registryService() override { return registry; }
    ISystemService* systemService() override { return system; }

    IWindowService* window = nullptr;
    IFileSystemService* fileSystem = nullptr;
    ICursorService* cursor = nullptr;
    IFontService* font = nullptr;
    IGraphicsService* graphics = nullptr;
    IProfileService* profile = nullptr;
    IDialogService* dialog = nullptr;
    IRegistryService* registry = nullptr;
    ISystemService* system = nullptr;
};

// Installs a hub for a test's duration. Programs install one for good; tests must be able to part with theirs.
class InstalledHub
{
public:
    explicit InstalledHub(IPlatformServices* hub) : previous_(g_platformServices) { g_platformServices = hub; }
    ~InstalledHub() { g_platformServices = previous_; }
    InstalledHub(const InstalledHub&) = delete;
    InstalledHub& operator=(const InstalledHub&) = delete;

private:
    IPlatformServices* previous_;
};

} // namespace kest::test
