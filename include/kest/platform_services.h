/*
 * Kest Platform Base: the hub and its nine services, which the host application implements.
 *
 * The library does the local half of the Windows API itself and hands everything that needs a desktop,
 * a registry, fonts or the host's own knowledge to one object, the hub. A host derives from
 * IPlatformServices and from the services it supplies, overrides what it supports, and installs the
 * hub once, before any other thread calls into the library:
 *
 *     class Host final : public IPlatformServices { IRegistryService* registryService() override; ... };
 *     static Host host;
 *     setPlatformServices(&host);
 *
 * The order of the operations is a binary contract: one operation is one slot of the virtual table,
 * counted from 1 (the numbers on the right). Positions that the library never calls are reserved
 * operations with an empty body, so that a host overrides only what is called. Nothing has a virtual
 * destructor, which would take two slots: the library never destroys a hub or a service.
 *
 * Every operation takes the arguments of the Windows function that it serves, in that order, and its
 * result is handed back unchanged, except where a comment says otherwise. Text in std::wstring is
 * UTF-32. Operations may be called from any thread; serialising them is the host's concern.
 */
#ifndef KEST_PLATFORM_SERVICES_H
#define KEST_PLATFORM_SERVICES_H

#include "kest/base_types.h"
#include "kest/export.h"

#include <string>

/** Windows and the keyboard. */
class IWindowService
{
public:
    virtual void reserved1() {}                                                            // 1
    virtual SHORT GetKeyState(int nVirtKey) = 0; /**< serves GetAsyncKeyState as well */   // 2
    virtual void reserved3() {}                                                            // 3
    virtual HWND FindWindowW(const wchar_t* lpClassName, const wchar_t* lpWindowName) = 0; // 4

protected:
    ~IWindowService() = default;
};

/** Finding files, attributes, known folders and paths. */
class IFileSystemService
{
public:
    virtual HANDLE FindFirstFileW(const wchar_t* lpFileName, WIN32_FIND_DATAW* lpFindFileData) = 0; // 1
    virtual BOOL FindNextFileW(HANDLE hFindFile, WIN32_FIND_DATAW* lpFindFileData) = 0;             // 2
    virtual BOOL FindClose(HANDLE hFindFile) = 0;                                                   // 3
    /** Tests existence; on success fills actualPath with the name under which the object exists. */
    virtual BOOL PathFileExistsW(const wchar_t* path, std::wstring& actualPath) = 0; // 4
    virtual BOOL PathIsURLW(const wchar_t* pszPath) = 0;                             // 5
    virtual wchar_t* PathAddBackslashW(wchar_t* pszPath) = 0;                        // 6
    virtual HRESULT SHGetFolderPathW(HWND hwnd, int nFolder, HANDLE hToken, DWORD dwFlags,
                                     wchar_t* pszPath) = 0; // 7
    virtual BOOL PathRelativePathToW(wchar_t* pszPath, const wchar_t* pszFrom, DWORD dwAttrFrom, const wchar_t* pszTo,
                                     DWORD dwAttrTo) = 0;                                   // 8
    virtual DWORD GetTempPathW(DWORD nBufferLength, wchar_t* lpBuffer) = 0;                 // 9
    virtual DWORD GetFileAttributesW(const wchar_t* lpFileName) = 0;                        // 10
    virtual BOOL SetFileAttributesW(const wchar_t* lpFileName, DWORD dwFileAttributes) = 0; // 11
    virtual BOOL PathIsRelativeW(const wchar_t* pszPath) = 0;                               // 12
    virtual wchar_t* PathFindExtensionW(const wchar_t* pszPath) = 0;                        // 13

protected:
    ~IFileSystemService() = default;
};

/** The mouse cursor. */
class ICursorService
{
public:
    virtual void reserved1() {}                                 // 1
    virtual void reserved2() {}                                 // 2
    virtual BOOL GetCursorPos(POINT* lpPoint) = 0;              // 3
    virtual void reserved4() {}                                 // 4
    virtual BOOL ScreenToClient(HWND hWnd, POINT* lpPoint) = 0; // 5
    virtual HCURSOR GetCursor() = 0;                            // 6
    virtual HCURSOR SetCursor(HCURSOR hCursor) = 0;             // 7

protected:
    ~ICursorService() = default;
};

/** Fonts and code pages. */
class IFontService
{
public:
    virtual void reserved1() {} // 1
    virtual void reserved2() {} // 2
    virtual int EnumFontFamiliesExW(HDC hdc, LOGFONTW* lpLogfont, FONTENUMPROCW lpProc, LPARAM lParam,
                                    DWORD dwFlags) = 0; // 3
    virtual void reserved4() {}                         // 4
    virtual void reserved5() {}                         // 5
    virtual BOOL IsValidCodePage(UINT CodePage) = 0;    // 6

protected:
    ~IFontService() = default;
};

/** Resources, graphic objects, metrics, printers and monitors. */
class IGraphicsService
{
public:
    virtual void reserved1() {}                                                                      // 1
    virtual void reserved2() {}                                                                      // 2
    virtual int LoadStringW(HINSTANCE hInstance, UINT uID, wchar_t* lpBuffer, int cchBufferMax) = 0; // 3
    virtual HANDLE LoadImageW(HINSTANCE hInst, const wchar_t* name, UINT type, int cx, int cy,
                              UINT fuLoad) = 0;                                                   // 4
    virtual void reserved5() {}                                                                   // 5
    virtual void reserved6() {}                                                                   // 6
    virtual void reserved7() {}                                                                   // 7
    virtual BOOL DeleteObject(HGDIOBJ ho) = 0; /**< serves DestroyIcon as well; result ignored */ // 8
    virtual int GetSystemMetrics(int nIndex) = 0;                                                 // 9
    virtual void reserved10() {}                                                                  // 10
    virtual void reserved11() {}                                                                  // 11
    virtual void reserved12() {}                                                                  // 12
    virtual BOOL EnumPrintersW(DWORD Flags, wchar_t* Name, DWORD Level, BYTE* pPrinterEnum, DWORD cbBuf,
                               DWORD* pcbNeeded, DWORD* pcReturned) = 0;    // 13
    virtual HMONITOR MonitorFromPoint(POINT pt, DWORD dwFlags) = 0;         // 14
    virtual BOOL GetMonitorInfoW(HMONITOR hMonitor, MONITORINFO* lpmi) = 0; // 15

protected:
    ~IGraphicsService() = default;
};

/** Profile (INI) data. Narrow text is in the process's multibyte encoding. */
class IProfileService
{
public:
    virtual void reserved1() {} // 1
    virtual void reserved2() {} // 2
    virtual DWORD GetPrivateProfileStringW(const wchar_t* lpAppName, const wchar_t* lpKeyName, const wchar_t* lpDefault,
                                           wchar_t* lpReturnedString, DWORD nSize,
                                           const wchar_t* lpFileName) = 0; // 3
    virtual DWORD GetPrivateProfileStringA(const char* lpAppName, const char* lpKeyName, const char* lpDefault,
                                           char* lpReturnedString, DWORD nSize,
                                           const char* lpFileName) = 0; // 4
    virtual UINT GetPrivateProfileIntW(const wchar_t* lpAppName, const wchar_t* lpKeyName, INT nDefault,
                                       const wchar_t* lpFileName) = 0; // 5
    virtual UINT GetPrivateProfileIntA(const char* lpAppName, const char* lpKeyName, INT nDefault,
                                       const char* lpFileName) = 0; // 6
    virtual void reserved7() {}                                     // 7
    virtual DWORD GetPrivateProfileSectionW(const wchar_t* lpAppName, wchar_t* lpReturnedString, DWORD nSize,
                                            const wchar_t* lpFileName) = 0; // 8
    virtual BOOL WritePrivateProfileStringW(const wchar_t* lpAppName, const wchar_t* lpKeyName, const wchar_t* lpString,
                                            const wchar_t* lpFileName) = 0; // 9
    virtual BOOL WritePrivateProfileStringA(const char* lpAppName, const char* lpKeyName, const char* lpString,
                                            const char* lpFileName) = 0; // 10

protected:
    ~IProfileService() = default;
};

/** Message boxes, task dialogs and messages. */
class IDialogService
{
public:
    virtual int MessageBoxW(HWND hWnd, const wchar_t* lpText, const wchar_t* lpCaption, UINT uType) = 0; // 1
    virtual BOOL PostMessageW(HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam) = 0;                    // 2
    virtual LRESULT SendMessageW(HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam) = 0;                 // 3
    virtual HRESULT TaskDialogIndirect(const TASKDIALOGCONFIG* pTaskConfig, int* pnButton, int* pnRadioButton,
                                       BOOL* pfVerificationFlagChecked) = 0; // 4

protected:
    ~IDialogService() = default;
};

/** The registry. Results are Windows error codes, 0 for success; sizes of data are bytes. */
class IRegistryService
{
public:
    virtual LONG RegQueryValueExW(HKEY hKey, const wchar_t* lpValueName, DWORD* lpReserved, DWORD* lpType, BYTE* lpData,
                                  DWORD* lpcbData) = 0; // 1
    /** On success stores the address of a key handle that the service owns; the library reads it at once. */
    virtual LONG RegCreateKeyExW(HKEY hKey, const wchar_t* lpSubKey, DWORD Reserved, wchar_t* lpClass, DWORD dwOptions,
                                 REGSAM samDesired, SECURITY_ATTRIBUTES* lpSecurityAttributes, HKEY** keyOut,
                                 DWORD* lpdwDisposition) = 0; // 2
    virtual LONG RegOpenKeyExW(HKEY hKey, const wchar_t* lpSubKey, DWORD ulOptions, REGSAM samDesired,
                               HKEY* keyOut) = 0;                                   // 3
    virtual LONG RegOpenKeyW(HKEY hKey, const wchar_t* lpSubKey, HKEY* keyOut) = 0; // 4
    virtual LONG RegSetValueExW(HKEY hKey, const wchar_t* lpValueName, DWORD Reserved, DWORD dwType, const BYTE* lpData,
                                DWORD cbData) = 0; // 5
    virtual LONG RegCloseKey(HKEY hKey) = 0;       // 6
    virtual LONG RegQueryInfoKeyW(HKEY hKey, wchar_t* lpClass, DWORD* lpcchClass, DWORD* lpReserved, DWORD* lpcSubKeys,
                                  DWORD* lpcbMaxSubKeyLen, DWORD* lpcbMaxClassLen, DWORD* lpcValues,
                                  DWORD* lpcbMaxValueNameLen, DWORD* lpcbMaxValueLen, DWORD* lpcbSecurityDescriptor,
                                  FILETIME* lpftLastWriteTime) = 0;                         // 7
    virtual LONG RegEnumKeyW(HKEY hKey, DWORD dwIndex, wchar_t* lpName, DWORD cchName) = 0; // 8
    virtual LONG RegDeleteKeyW(HKEY hKey, const wchar_t* lpSubKey) = 0;                     // 9
    virtual LONG RegDeleteValueW(HKEY hKey, const wchar_t* lpValueName) = 0;                // 10
    virtual LONG RegEnumKeyExW(HKEY hKey, DWORD dwIndex, wchar_t* lpName, DWORD* lpcchName, DWORD* lpReserved,
                               wchar_t* lpClass, DWORD* lpcchClass, FILETIME* lpftLastWriteTime) = 0; // 11
    virtual LONG RegEnumValueW(HKEY hKey, DWORD dwIndex, wchar_t* lpValueName, DWORD* lpcchValueName, DWORD* lpReserved,
                               DWORD* lpType, BYTE* lpData, DWORD* lpcbData) = 0;                            // 12
    virtual LONG RegQueryValueW(HKEY hKey, const wchar_t* lpSubKey, wchar_t* lpData, LONG* lpcbData) = 0;    // 13
    virtual LONG RegDeleteKeyExW(HKEY hKey, const wchar_t* lpSubKey, REGSAM samDesired, DWORD Reserved) = 0; // 14
    /** Hands the key back as RegCreateKeyExW does. */
    virtual LONG RegCreateKeyW(HKEY hKey, const wchar_t* lpSubKey, HKEY** keyOut) = 0; // 15

protected:
    ~IRegistryService() = default;
};

/** Number formats and environment expansion. */
class ISystemService
{
public:
    virtual int GetNumberFormatW(LCID Locale, DWORD dwFlags, const wchar_t* lpValue, const NUMBERFMTW* lpFormat,
                                 wchar_t* lpNumberStr, int cchNumber) = 0; // 1
    /** Returns text with its variables expanded; the expansion syntax is the host's. */
    virtual std::wstring ExpandEnvironmentStringsW(const std::wstring& text) = 0; // 2

protected:
    ~ISystemService() = default;
};

/**
 * The hub. Each getter hands out one service, or null when the host does not supply it. A getter must
 * return the same object every time and have no side effects: checked forwards call it twice.
 */
class IPlatformServices
{
public:
    virtual void reserved1() {}                          // 1
    virtual void reserved2() {}                          // 2
    virtual IWindowService* windowService() = 0;         // 3
    virtual void reserved4() {}                          // 4
    virtual IFileSystemService* fileSystemService() = 0; // 5
    virtual ICursorService* cursorService() = 0;         // 6
    virtual IFontService* fontService() = 0;             // 7
    virtual IGraphicsService* graphicsService() = 0;     // 8
    virtual IProfileService* profileService() = 0;       // 9
    virtual IDialogService* dialogService() = 0;         // 10
    virtual IRegistryService* registryService() = 0;     // 11
    virtual void reserved12() {}                         // 12
    virtual ISystemService* systemService() = 0;         // 13

protected:
    ~IPlatformServices() = default;
};

extern "C"
{
    /** The installed hub; null until the host installs one. Install through setPlatformServices. */
    extern KEST_API IPlatformServices* g_platformServices;
}

/**
 * Returns the installed hub, or null before installation. No locking, no side effect.
 * @kind local
 */
KEST_API IPlatformServices* platformServices();

/**
 * Installs the hub. The first hub wins: with one installed the call does nothing. Null leaves the library
 * uninstalled. There is no way to remove or replace a hub. A plain test and store: call it before other
 * threads call into the library.
 * @param services  the hub; stays the host's and must outlive every call into the library.
 * @kind local
 */
KEST_API void setPlatformServices(IPlatformServices* services);

#endif
