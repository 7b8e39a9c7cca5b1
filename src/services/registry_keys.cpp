// The four registry functions that hand out a key. They differ in when they clear the caller's variable, and the
// service hands created keys back by the address of a handle that it keeps.
#include "kest/registry.h"
#include "support/forwarding.h"

using kest::forward;
using kest::forwardChecked;
using kest::hasService;

namespace
{

constexpr auto service = &IPlatformServices::registryService;
constexpr LONG noRegistry = 1;

void clear(HKEY* key)
{
    if (key != nullptr)
    {
        *key = nullptr;
    }
}

// What a created key is received through. A service that reports success and gives no address has created none.
struct CreatedKey
{
    HKEY none = nullptr;
    HKEY* address = &none;
};

} // namespace

LONG RegOpenKeyW(HKEY hKey, const wchar_t* lpSubKey, HKEY* phkResult)
{
    clear(phkResult);
    HKEY opened = nullptr;
    const LONG result = forwardChecked(noRegistry, service, &IRegistryService::RegOpenKeyW, hKey, lpSubKey, &opened);
    if (result == ERROR_SUCCESS)
    {
        *phkResult = opened;
    }
    return result;
}

LONG RegOpenKeyExW(HKEY hKey, const wchar_t* lpSubKey, DWORD ulOptions, REGSAM samDesired, HKEY* phkResult)
{
    if (!hasService(service))
    {
        return noRegistry;
    }
    clear(phkResult);
    HKEY opened = nullptr;
    const LONG result =
        forward(service, &IRegistryService::RegOpenKeyExW, hKey, lpSubKey, ulOptions, samDesired, &opened);
    if (result == ERROR_SUCCESS)
    {
        *phkResult = opened;
    }
    return result;
}

LONG RegCreateKeyExW(HKEY hKey, const wchar_t* lpSubKey, DWORD Reserved, wchar_t* lpClass, DWORD dwOptions,
                     REGSAM samDesired, SECURITY_ATTRIBUTES* lpSecurityAttributes, HKEY* phkResult,
                     DWORD* lpdwDisposition)
{
    CreatedKey created;
    const LONG result =
        forwardChecked(noRegistry, service, &IRegistryService::RegCreateKeyExW, hKey, lpSubKey, Reserved, lpClass,
                       dwOptions, samDesired, lpSecurityAttributes, &created.address, lpdwDisposition);
    if (result == ERROR_SUCCESS)
    {
        *phkResult = *created.address;
    }
    return result;
}

LONG RegCreateKeyW(HKEY hKey, const wchar_t* lpSubKey, HKEY* phkResult)
{
    CreatedKey created;
    const LONG result =
        forwardChecked(noRegistry, service, &IRegistryService::RegCreateKeyW, hKey, lpSubKey, &created.address);
    if (result == ERROR_SUCCESS)
    {
        *phkResult = *created.address;
    }
    return result;
}
