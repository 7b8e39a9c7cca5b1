// Forwards to the registry service, in the order of its operations. Those that hand out keys stand in
// registry_keys.cpp.
#include "kest/registry.h"
#include "support/forwarding.h"

using kest::forwardChecked;

namespace
{
constexpr auto service = &IPlatformServices::registryService;
constexpr LONG noRegistry = 1;
} // namespace

LONG RegQueryValueExW(HKEY hKey, const wchar_t* lpValueName, DWORD* lpReserved, DWORD* lpType, BYTE* lpData,
                      DWORD* lpcbData)
{
    return forwardChecked(noRegistry, service, &IRegistryService::RegQueryValueExW, hKey, lpValueName, lpReserved,
                          lpType, lpData, lpcbData);
}

LONG RegSetValueExW(HKEY hKey, const wchar_t* lpValueName, DWORD Reserved, DWORD dwType, const BYTE* lpData,
                    DWORD cbData)
{
    return forwardChecked(noRegistry, service, &IRegistryService::RegSetValueExW, hKey, lpValueName, Reserved, dwType,
                          lpData, cbData);
}

LONG RegCloseKey(HKEY hKey)
{
    return forwardChecked(noRegistry, service, &IRegistryService::RegCloseKey, hKey);
}

LONG RegQueryInfoKeyW(HKEY hKey, wchar_t* lpClass, DWORD* lpcchClass, DWORD* lpReserved, DWORD* lpcSubKeys,
                      DWORD* lpcbMaxSubKeyLen, DWORD* lpcbMaxClassLen, DWORD* lpcValues, DWORD* lpcbMaxValueNameLen,
                      DWORD* lpcbMaxValueLen, DWORD* lpcbSecurityDescriptor, FILETIME* lpftLastWriteTime)
{
    return forwardChecked(noRegistry, service, &IRegistryService::RegQueryInfoKeyW, hKey, lpClass, lpcchClass,
                          lpReserved, lpcSubKeys, lpcbMaxSubKeyLen, lpcbMaxClassLen, lpcValues, lpcbMaxValueNameLen,
                          lpcbMaxValueLen, lpcbSecurityDescriptor, lpftLastWriteTime);
}

LONG RegEnumKeyW(HKEY hKey, DWORD dwIndex, wchar_t* lpName, DWORD cchName)
{
    return forwardChecked(noRegistry, service, &IRegistryService::RegEnumKeyW, hKey, dwIndex, lpName, cchName);
}

LONG RegDeleteKeyW(HKEY hKey, const wchar_t* lpSubKey)
{
    return forwardChecked(noRegistry, service, &IRegistryService::RegDeleteKeyW, hKey, lpSubKey);
}

LONG RegDeleteValueW(HKEY hKey, const wchar_t* lpValueName)
{
    return forwardChecked(noRegistry, service, &IRegistryService::RegDeleteValueW, hKey, lpValueName);
}

LONG RegEnumKeyExW(HKEY hKey, DWORD dwIndex, wchar_t* lpName, DWORD* lpcchName, DWORD* lpReserved, wchar_t* lpClass,
                   DWORD* lpcchClass, FILETIME* lpftLastWriteTime)
{
    return forwardChecked(noRegistry, service, &IRegistryService::RegEnumKeyExW, hKey, dwIndex, lpName, lpcchName,
                          lpReserved, lpClass, lpcchClass, lpftLastWriteTime);
}

LONG RegEnumValueW(HKEY hKey, DWORD dwIndex, wchar_t* lpValueName, DWORD* lpcchValueName, DWORD* lpReserved,
                   DWORD* lpType, BYTE* lpData, DWORD* lpcbData)
{
    return forwardChecked(noRegistry, service, &IRegistryService::RegEnumValueW, hKey, dwIndex, lpValueName,
                          lpcchValueName, lpReserved, lpType, lpData, lpcbData);
}

LONG RegQueryValueW(HKEY hKey, const wchar_t* lpSubKey, wchar_t* lpData, LONG* lpcbData)
{
    return forwardChecked(noRegistry, service, &IRegistryService::RegQueryValueW, hKey, lpSubKey, lpData, lpcbData);
}

LONG RegDeleteKeyExW(HKEY hKey, const wchar_t* lpSubKey, REGSAM samDesired, DWORD Reserved)
{
    return forwardChecked(noRegistry, service, &IRegistryService::RegDeleteKeyExW, hKey, lpSubKey, samDesired,
                          Reserved);
}
