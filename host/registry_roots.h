// The predefined keys: their handles, their names, and the keys that they stand for.
#pragma once

#include "kest/registry.h"
#include "registry_store.h"

#include <string_view>

namespace kest::host
{

struct RegistryRoot
{
    HKEY handle;
    std::wstring_view name;
    std::wstring_view shortName;
    KeyPlace place;
};

inline const RegistryRoot registryRoots[] = {
    {HKEY_CLASSES_ROOT, L"HKEY_CLASSES_ROOT", L"HKCR", {localMachineClasses, "HKEY_LOCAL_MACHINE\\SOFTWARE\\CLASSES"}},
    {HKEY_CURRENT_USER, L"HKEY_CURRENT_USER", L"HKCU", {currentUser, "HKEY_CURRENT_USER"}},
    {HKEY_LOCAL_MACHINE, L"HKEY_LOCAL_MACHINE", L"HKLM", {localMachine, "HKEY_LOCAL_MACHINE"}},
    {HKEY_USERS, L"HKEY_USERS", L"HKU", {users, "HKEY_USERS"}},
    {HKEY_CURRENT_CONFIG,
     L"HKEY_CURRENT_CONFIG",
     L"HKCC",
     {currentHardwareProfile, "HKEY_LOCAL_MACHINE\\SYSTEM\\CURRENTCONTROLSET\\HARDWARE PROFILES\\CURRENT"}},
};

} // namespace kest::host
