// The host's interfaces: each operation has the signature of the function that it serves. Where it stands in its table
// is proved by the tests of the services.
#include "abi/signature.h"
#include "kest/platform_services.h"

#include <string>

using namespace kest::test;

// ---- IPlatformServices -----------------------------------------------------------------------------------------------

static_assert(hasMember<IWindowService* (IPlatformServices::*)(), &IPlatformServices::windowService>);
static_assert(hasMember<IFileSystemService* (IPlatformServices::*)(), &IPlatformServices::fileSystemService>);
static_assert(hasMember<ICursorService* (IPlatformServices::*)(), &IPlatformServices::cursorService>);
static_assert(hasMember<IFontService* (IPlatformServices::*)(), &IPlatformServices::fontService>);
static_assert(hasMember<IGraphicsService* (IPlatformServices::*)(), &IPlatformServices::graphicsService>);
static_assert(hasMember<IProfileService* (IPlatformServices::*)(), &IPlatformServices::profileService>);
static_assert(hasMember<IDialogService* (IPlatformServices::*)(), &IPlatformServices::dialogService>);
static_assert(hasMember<IRegistryService* (IPlatformServices::*)(), &IPlatformServices::registryService>);
static_assert(hasMember<ISystemService* (IPlatformServices::*)(), &IPlatformServices::systemService>);

// ---- IWindowService --------------------------------------------------------------------------------------------------

static_assert(hasMember<SHORT (IWindowService::*)(int), &IWindowService::GetKeyState>);
static_assert(hasMember<HWND (IWindowService::*)(const wchar_t*, const wchar_t*), &IWindowService::FindWindowW>);

// ---- IFileSystemService ----------------------------------------------------------------------------------------------

static_assert(
    hasMember<HANDLE (IFileSystemService::*)(const wchar_t*, WIN32_FIND_DATAW*), &IFileSystemService::FindFirstFileW>);
static_assert(hasMember<BOOL (IFileSystemService::*)(HANDLE, WIN32_FIND_DATAW*), &IFileSystemService::FindNextFileW>);
static_assert(hasMember<BOOL (IFileSystemService::*)(HANDLE), &IFileSystemService::FindClose>);
static_assert(
    hasMember<BOOL (IFileSystemService::*)(const wchar_t*, std::wstring&), &IFileSystemService::PathFileExistsW>);
static_assert(hasMember<BOOL (IFileSystemService::*)(const wchar_t*), &IFileSystemService::PathIsURLW>);
static_assert(hasMember<wchar_t* (IFileSystemService::*)(wchar_t*), &IFileSystemService::PathAddBackslashW>);
static_assert(hasMember<HRESULT (IFileSystemService::*)(HWND, int, HANDLE, DWORD, wchar_t*),
                        &IFileSystemService::SHGetFolderPathW>);
static_assert(hasMember<BOOL (IFileSystemService::*)(wchar_t*, const wchar_t*, DWORD, const wchar_t*, DWORD),
                        &IFileSystemService::PathRelativePathToW>);
static_assert(hasMember<DWORD (IFileSystemService::*)(DWORD, wchar_t*), &IFileSystemService::GetTempPathW>);
static_assert(hasMember<DWORD (IFileSystemService::*)(const wchar_t*), &IFileSystemService::GetFileAttributesW>);
static_assert(hasMember<BOOL (IFileSystemService::*)(const wchar_t*, DWORD), &IFileSystemService::SetFileAttributesW>);
static_assert(hasMember<BOOL (IFileSystemService::*)(const wchar_t*), &IFileSystemService::PathIsRelativeW>);
static_assert(hasMember<wchar_t* (IFileSystemService::*)(const wchar_t*), &IFileSystemService::PathFindExtensionW>);

// ---- ICursorService --------------------------------------------------------------------------------------------------

static_assert(hasMember<BOOL (ICursorService::*)(POINT*), &ICursorService::GetCursorPos>);
static_assert(hasMember<BOOL (ICursorService::*)(HWND, POINT*), &ICursorService::ScreenToClient>);
static_assert(hasMember<HCURSOR (ICursorService::*)(), &ICursorService::GetCursor>);
static_assert(hasMember<HCURSOR (ICursorService::*)(HCURSOR), &ICursorService::SetCursor>);

// ---- IFontService ----------------------------------------------------------------------------------------------------

static_assert(
    hasMember<int (IFontService::*)(HDC, LOGFONTW*, FONTENUMPROCW, LPARAM, DWORD), &IFontService::EnumFontFamiliesExW>);
static_assert(hasMember<BOOL (IFontService::*)(UINT), &IFontService::IsValidCodePage>);

// ---- IGraphicsService ------------------------------------------------------------------------------------------------

static_assert(hasMember<int (IGraphicsService::*)(HINSTANCE, UINT, wchar_t*, int), &IGraphicsService::LoadStringW>);
static_assert(hasMember<HANDLE (IGraphicsService::*)(HINSTANCE, const wchar_t*, UINT, int, int, UINT),
                        &IGraphicsService::LoadImageW>);
static_assert(hasMember<BOOL (IGraphicsService::*)(void*), &IGraphicsService::DeleteObject>);
static_assert(hasMember<int (IGraphicsService::*)(int), &IGraphicsService::GetSystemMetrics>);
static_assert(hasMember<BOOL (IGraphicsService::*)(DWORD, wchar_t*, DWORD, BYTE*, DWORD, DWORD*, DWORD*),
                        &IGraphicsService::EnumPrintersW>);
static_assert(hasMember<HMONITOR (IGraphicsService::*)(POINT, DWORD), &IGraphicsService::MonitorFromPoint>);
static_assert(hasMember<BOOL (IGraphicsService::*)(HMONITOR, MONITORINFO*), &IGraphicsService::GetMonitorInfoW>);

// ---- IProfileService -------------------------------------------------------------------------------------------------

static_assert(hasMember<DWORD (IProfileService::*)(const wchar_t*, const wchar_t*, const wchar_t*, wchar_t*, DWORD,
                                                   const wchar_t*),
                        &IProfileService::GetPrivateProfileStringW>);
static_assert(hasMember<DWORD (IProfileService::*)(const char*, const char*, const char*, char*, DWORD, const char*),
                        &IProfileService::GetPrivateProfileStringA>);
static_assert(hasMember<UINT (IProfileService::*)(const wchar_t*, const wchar_t*, INT, const wchar_t*),
                        &IProfileService::GetPrivateProfileIntW>);
static_assert(hasMember<UINT (IProfileService::*)(const char*, const char*, INT, const char*),
                        &IProfileService::GetPrivateProfileIntA>);
static_assert(hasMember<DWORD (IProfileService::*)(const wchar_t*, wchar_t*, DWORD, const wchar_t*),
                        &IProfileService::GetPrivateProfileSectionW>);
static_assert(hasMember<BOOL (IProfileService::*)(const wchar_t*, const wchar_t*, const wchar_t*, const wchar_t*),
                        &IProfileService::WritePrivateProfileStringW>);
static_assert(hasMember<BOOL (IProfileService::*)(const char*, const char*, const char*, const char*),
                        &IProfileService::WritePrivateProfileStringA>);

// ---- IDialogService --------------------------------------------------------------------------------------------------

static_assert(
    hasMember<int (IDialogService::*)(HWND, const wchar_t*, const wchar_t*, UINT), &IDialogService::MessageBoxW>);
static_assert(hasMember<BOOL (IDialogService::*)(HWND, UINT, WPARAM, LPARAM), &IDialogService::PostMessageW>);
static_assert(hasMember<LRESULT (IDialogService::*)(HWND, UINT, WPARAM, LPARAM), &IDialogService::SendMessageW>);
static_assert(hasMember<HRESULT (IDialogService::*)(const TASKDIALOGCONFIG*, int*, int*, BOOL*),
                        &IDialogService::TaskDialogIndirect>);

// ---- IRegistryService ------------------------------------------------------------------------------------------------

static_assert(hasMember<LONG (IRegistryService::*)(HKEY, const wchar_t*, DWORD*, DWORD*, BYTE*, DWORD*),
                        &IRegistryService::RegQueryValueExW>);
static_assert(hasMember<LONG (IRegistryService::*)(HKEY, const wchar_t*, DWORD, wchar_t*, DWORD, REGSAM,
                                                   SECURITY_ATTRIBUTES*, HKEY**, DWORD*),
                        &IRegistryService::RegCreateKeyExW>);
static_assert(hasMember<LONG (IRegistryService::*)(HKEY, const wchar_t*, DWORD, REGSAM, HKEY*),
                        &IRegistryService::RegOpenKeyExW>);
static_assert(hasMember<LONG (IRegistryService::*)(HKEY, const wchar_t*, HKEY*), &IRegistryService::RegOpenKeyW>);
static_assert(hasMember<LONG (IRegistryService::*)(HKEY, const wchar_t*, DWORD, DWORD, const BYTE*, DWORD),
                        &IRegistryService::RegSetValueExW>);
static_assert(hasMember<LONG (IRegistryService::*)(HKEY), &IRegistryService::RegCloseKey>);
static_assert(hasMember<LONG (IRegistryService::*)(HKEY, wchar_t*, DWORD*, DWORD*, DWORD*, DWORD*, DWORD*, DWORD*,
                                                   DWORD*, DWORD*, DWORD*, FILETIME*),
                        &IRegistryService::RegQueryInfoKeyW>);
static_assert(hasMember<LONG (IRegistryService::*)(HKEY, DWORD, wchar_t*, DWORD), &IRegistryService::RegEnumKeyW>);
static_assert(hasMember<LONG (IRegistryService::*)(HKEY, const wchar_t*), &IRegistryService::RegDeleteKeyW>);
static_assert(hasMember<LONG (IRegistryService::*)(HKEY, const wchar_t*), &IRegistryService::RegDeleteValueW>);
static_assert(hasMember<LONG (IRegistryService::*)(HKEY, DWORD, wchar_t*, DWORD*, DWORD*, wchar_t*, DWORD*, FILETIME*),
                        &IRegistryService::RegEnumKeyExW>);
static_assert(hasMember<LONG (IRegistryService::*)(HKEY, DWORD, wchar_t*, DWORD*, DWORD*, DWORD*, BYTE*, DWORD*),
                        &IRegistryService::RegEnumValueW>);
static_assert(
    hasMember<LONG (IRegistryService::*)(HKEY, const wchar_t*, wchar_t*, LONG*), &IRegistryService::RegQueryValueW>);
static_assert(
    hasMember<LONG (IRegistryService::*)(HKEY, const wchar_t*, REGSAM, DWORD), &IRegistryService::RegDeleteKeyExW>);
static_assert(hasMember<LONG (IRegistryService::*)(HKEY, const wchar_t*, HKEY**), &IRegistryService::RegCreateKeyW>);

// ---- ISystemService --------------------------------------------------------------------------------------------------

static_assert(hasMember<int (ISystemService::*)(LCID, DWORD, const wchar_t*, const NUMBERFMTW*, wchar_t*, int),
                        &ISystemService::GetNumberFormatW>);
static_assert(
    hasMember<std::wstring (ISystemService::*)(const std::wstring&), &ISystemService::ExpandEnvironmentStringsW>);
