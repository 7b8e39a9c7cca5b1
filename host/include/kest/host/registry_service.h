/*
 * Kest reference host: the registry, kept in an SQLite database.
 *
 * One file holds the whole registry; any number of processes and threads may use it at once. Results are Windows's
 * error codes. Names keep their case and are compared without it, by Unicode's simple case mapping, whatever the
 * program's locale. Sizes of data are bytes, of names characters; text is 4 bytes a character, stored as given.
 *
 * Without memory an operation answers ERROR_OUTOFMEMORY (14), without descriptors for the files that it opens first
 * ERROR_TOO_MANY_OPEN_FILES (4); the same service works once there are some.
 *
 * A child made with fork must not use a registry that its parent has used, unless it runs another program first.
 *
 * What differs from Windows:
 * - HKEY_CLASSES_ROOT is HKEY_LOCAL_MACHINE\Software\Classes, HKEY_CURRENT_CONFIG a key below HKEY_LOCAL_MACHINE;
 *   nothing is merged.
 * - Names of keys hold printable characters only; others answer ERROR_INVALID_PARAMETER.
 * - Volatile keys are kept like others; security attributes are ignored; access rights are those asked for at opening.
 * - Times of last writing count whole seconds since 1970, as all file times of the library do.
 */
#ifndef KEST_HOST_REGISTRY_SERVICE_H
#define KEST_HOST_REGISTRY_SERVICE_H

#include "kest/platform_services.h"

#include <memory>
#include <string>

namespace kest
{
namespace host
{

class KEST_API RegistryService : public IRegistryService
{
public:
    /**
     * Uses a database file, made with its folders on the first call that needs it (files 0600, folders 0700).
     * @param file  its path in the process's multibyte encoding; empty stands for defaultFile().
     * std::bad_alloc without memory.
     */
    explicit RegistryService(const std::string& file = std::string());
    ~RegistryService();
    RegistryService(const RegistryService&) = delete;
    RegistryService& operator=(const RegistryService&) = delete;

    /** $KEST_REGISTRY, else kest/registry.db below $XDG_DATA_HOME or ~/.local/share. */
    static std::string defaultFile();

    LONG RegQueryValueExW(HKEY hKey, const wchar_t* lpValueName, DWORD* lpReserved, DWORD* lpType, BYTE* lpData,
                          DWORD* lpcbData) override;
    LONG RegCreateKeyExW(HKEY hKey, const wchar_t* lpSubKey, DWORD Reserved, wchar_t* lpClass, DWORD dwOptions,
                         REGSAM samDesired, SECURITY_ATTRIBUTES* lpSecurityAttributes, HKEY** keyOut,
                         DWORD* lpdwDisposition) override;
    LONG RegOpenKeyExW(HKEY hKey, const wchar_t* lpSubKey, DWORD ulOptions, REGSAM samDesired, HKEY* keyOut) override;
    LONG RegOpenKeyW(HKEY hKey, const wchar_t* lpSubKey, HKEY* keyOut) override;
    LONG RegSetValueExW(HKEY hKey, const wchar_t* lpValueName, DWORD Reserved, DWORD dwType, const BYTE* lpData,
                        DWORD cbData) override;
    LONG RegCloseKey(HKEY hKey) override;
    LONG RegQueryInfoKeyW(HKEY hKey, wchar_t* lpClass, DWORD* lpcchClass, DWORD* lpReserved, DWORD* lpcSubKeys,
                          DWORD* lpcbMaxSubKeyLen, DWORD* lpcbMaxClassLen, DWORD* lpcValues, DWORD* lpcbMaxValueNameLen,
                          DWORD* lpcbMaxValueLen, DWORD* lpcbSecurityDescriptor, FILETIME* lpftLastWriteTime) override;
    LONG RegEnumKeyW(HKEY hKey, DWORD dwIndex, wchar_t* lpName, DWORD cchName) override;
    LONG RegDeleteKeyW(HKEY hKey, const wchar_t* lpSubKey) override;
    LONG RegDeleteValueW(HKEY hKey, const wchar_t* lpValueName) override;
    LONG RegEnumKeyExW(HKEY hKey, DWORD dwIndex, wchar_t* lpName, DWORD* lpcchName, DWORD* lpReserved, wchar_t* lpClass,
                       DWORD* lpcchClass, FILETIME* lpftLastWriteTime) override;
    LONG RegEnumValueW(HKEY hKey, DWORD dwIndex, wchar_t* lpValueName, DWORD* lpcchValueName, DWORD* lpReserved,
                       DWORD* lpType, BYTE* lpData, DWORD* lpcbData) override;
    LONG RegQueryValueW(HKEY hKey, const wchar_t* lpSubKey, wchar_t* lpData, LONG* lpcbData) override;
    LONG RegDeleteKeyExW(HKEY hKey, const wchar_t* lpSubKey, REGSAM samDesired, DWORD Reserved) override;
    LONG RegCreateKeyW(HKEY hKey, const wchar_t* lpSubKey, HKEY** keyOut) override;

private:
    struct Store;
    std::unique_ptr<Store> store_;
};

} // namespace host
} // namespace kest

#endif
