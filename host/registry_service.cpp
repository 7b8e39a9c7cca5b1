#include "kest/host/registry_service.h"

#include "kest/registry.h"
#include "out_parameters.h"
#include "registry_roots.h"
#include "registry_store.h"
#include "text.h"

#include <cstring>
#include <cwchar>
#include <kest_kit/system_errors.h>
#include <limits>
#include <mutex>
#include <new>
#include <unordered_map>

namespace kest::host
{

namespace
{

constexpr REGSAM maximumAllowed = 0x02000000;
constexpr REGSAM genericAll = 0x10000000;
constexpr REGSAM genericExecute = 0x20000000;
constexpr REGSAM genericWrite = 0x40000000;
constexpr REGSAM genericRead = 0x80000000;

LONG windowsError(const DatabaseError& error)
{
    switch (error.code())
    {
    case SQLITE_FULL:
        return ERROR_DISK_FULL;
    case SQLITE_PERM:
    case SQLITE_READONLY:
    case SQLITE_AUTH:
        return ERROR_ACCESS_DENIED;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return ERROR_BUSY;
    case SQLITE_NOTADB:
    case SQLITE_ERROR: // the tables are not ours
        return ERROR_BADDB;
    case SQLITE_CORRUPT:
        return ERROR_REGISTRY_CORRUPT;
    case SQLITE_CANTOPEN:
        return error.lacksDescriptors() ? ERROR_TOO_MANY_OPEN_FILES : ERROR_CANTOPEN;
    case SQLITE_NOMEM:
        return ERROR_OUTOFMEMORY;
    default:
        return ERROR_REGISTRY_IO_FAILED;
    }
}

// The rights that a wish for access gives.
REGSAM granted(REGSAM wish)
{
    REGSAM rights = wish;
    rights |= (wish & (maximumAllowed | genericAll)) != 0 ? KEY_ALL_ACCESS : 0U;
    rights |= (wish & (genericRead | genericExecute)) != 0 ? KEY_READ : 0U;
    rights |= (wish & genericWrite) != 0 ? KEY_WRITE : 0U;
    return rights;
}

// A path below a key: it may end in a backslash, must not begin with one, and its names are Windows's.
LONG checkSubPath(std::wstring_view path)
{
    if (path.starts_with(L'\\'))
    {
        return ERROR_BAD_PATHNAME;
    }
    return isKeyPath(path) ? ERROR_SUCCESS : ERROR_INVALID_PARAMETER;
}

// Stores a text and its terminator, if there is room, and its length in characters in any case but a null one.
LONG storeName(std::wstring_view name, wchar_t* buffer, DWORD* characters)
{
    if (name.size() >= *characters)
    {
        return ERROR_MORE_DATA;
    }
    name.copy(buffer, name.size());
    buffer[name.size()] = L'\0';
    *characters = static_cast<DWORD>(name.size());
    return ERROR_SUCCESS;
}

// An optional class buffer, likewise; without a buffer only the length is told.
LONG storeClass(std::wstring_view name, wchar_t* buffer, DWORD* characters)
{
    if (buffer != nullptr)
    {
        return storeName(name, buffer, characters);
    }
    if (characters != nullptr)
    {
        *characters = static_cast<DWORD>(name.size());
    }
    return ERROR_SUCCESS;
}

// Stores a value's type, size and, if there is room, data, each where a pointer is given.
LONG storeValue(const Value& value, DWORD* type, BYTE* data, DWORD* bytes)
{
    if (type != nullptr)
    {
        *type = value.type;
    }
    if (bytes == nullptr)
    {
        return ERROR_SUCCESS;
    }
    const bool fits = data == nullptr || *bytes >= value.data.size();
    *bytes = static_cast<DWORD>(value.data.size());
    if (!fits)
    {
        return ERROR_MORE_DATA;
    }
    if (data != nullptr && !value.data.empty())
    {
        std::memcpy(data, value.data.data(), value.data.size());
    }
    return ERROR_SUCCESS;
}

void storeTime(FILETIME* out, std::int64_t seconds)
{
    if (out != nullptr)
    {
        out->dwLowDateTime = static_cast<DWORD>(seconds);
        out->dwHighDateTime = static_cast<DWORD>(static_cast<std::uint64_t>(seconds) >> 32);
    }
}

struct OpenKey
{
    HKEY handle = nullptr;
    KeyPlace place;
    REGSAM rights = 0;
    EnumerationPlace keys;
    EnumerationPlace values;
};

} // namespace

struct RegistryService::Store
{
    explicit Store(std::string file) : registry(std::move(file))
    {
        for (const RegistryRoot& root : registryRoots)
        {
            keys[root.handle] = std::make_unique<OpenKey>(OpenKey{root.handle, root.place, KEY_ALL_ACCESS, {}, {}});
        }
    }

    // Runs an operation on an open key with the store to itself, and turns what goes wrong into codes.
    template <class Operation>
    LONG withKey(HKEY handle, REGSAM needed, Operation operation)
    {
        const std::lock_guard lock(mutex);
        const auto key = keys.find(handle);
        if (key == keys.end())
        {
            return ERROR_INVALID_HANDLE;
        }
        if ((key->second->rights & needed) != needed)
        {
            return ERROR_ACCESS_DENIED;
        }
        try
        {
            registry.open();
            return operation(*key->second);
        }
        catch (const DatabaseError& error)
        {
            return windowsError(error);
        }
        catch (const std::bad_alloc&)
        {
            return ERROR_OUTOFMEMORY;
        }
    }

    // What a failed search means: the searched is not there, or the open key itself has been deleted.
    LONG missing(const OpenKey& key, LONG code) { return registry.exists(key.place.id) ? code : ERROR_KEY_DELETED; }

    OpenKey& hold(KeyPlace place, REGSAM wish)
    {
        auto key = std::make_unique<OpenKey>();
        key->handle = reinterpret_cast<HKEY>(key.get());
        key->place = std::move(place);
        key->rights = granted(wish);
        OpenKey& held = *key;
        keys[held.handle] = std::move(key);
        return held;
    }

    std::mutex mutex;
    RegistryStore registry;
    std::unordered_map<HKEY, std::unique_ptr<OpenKey>> keys;
};

RegistryService::RegistryService(const std::string& file)
    : store_(std::make_unique<Store>(file.empty() ? defaultFile() : file))
{
}

RegistryService::~RegistryService() = default;

std::string RegistryService::defaultFile()
{
    return defaultRegistryFile();
}

// ---- Keys ----------------------------------------------------------------------------------------------------------

LONG RegistryService::RegOpenKeyExW(HKEY hKey, const wchar_t* lpSubKey, DWORD, REGSAM samDesired, HKEY* keyOut)
{
    return store_->withKey(hKey, 0,
                           [&](OpenKey& key) -> LONG
                           {
                               const std::wstring_view path = textOrEmpty(lpSubKey);
                               const LONG wellFormed = checkSubPath(path);
                               if (wellFormed != ERROR_SUCCESS || keyOut == nullptr)
                               {
                                   return keyOut == nullptr ? ERROR_INVALID_PARAMETER : wellFormed;
                               }
                               std::optional<KeyPlace> place = store_->registry.find(key.place, path);
                               if (!place)
                               {
                                   return store_->missing(key, ERROR_FILE_NOT_FOUND);
                               }
                               *keyOut = store_->hold(*std::move(place), samDesired).handle;
                               return ERROR_SUCCESS;
                           });
}

LONG RegistryService::RegOpenKeyW(HKEY hKey, const wchar_t* lpSubKey, HKEY* keyOut)
{
    if (textOrEmpty(lpSubKey).empty() && keyOut != nullptr)
    {
        return store_->withKey(hKey, 0,
                               [&](OpenKey& key)
                               {
                                   *keyOut = key.handle;
                                   return ERROR_SUCCESS;
                               });
    }
    return RegOpenKeyExW(hKey, lpSubKey, 0, maximumAllowed, keyOut);
}

LONG RegistryService::RegCreateKeyExW(HKEY hKey, const wchar_t* lpSubKey, DWORD Reserved, wchar_t* lpClass, DWORD,
                                      REGSAM samDesired, SECURITY_ATTRIBUTES*, HKEY** keyOut, DWORD* lpdwDisposition)
{
    return store_->withKey(hKey, 0,
                           [&](OpenKey& key) -> LONG
                           {
                               if (lpSubKey == nullptr || Reserved != 0 || keyOut == nullptr)
                               {
                                   return ERROR_INVALID_PARAMETER;
                               }
                               const std::wstring_view path = lpSubKey;
                               if (const LONG wellFormed = checkSubPath(path); wellFormed != ERROR_SUCCESS)
                               {
                                   return wellFormed;
                               }
                               bool created = false;
                               std::optional<KeyPlace> place = store_->registry.find(key.place, path);
                               if (!place)
                               {
                                   if ((key.rights & KEY_CREATE_SUB_KEY) == 0)
                                   {
                                       return store_->missing(key, ERROR_ACCESS_DENIED);
                                   }
                                   place = store_->registry.create(key.place, path, textOrEmpty(lpClass), created);
                               }
                               if (!place)
                               {
                                   return ERROR_KEY_DELETED;
                               }
                               *keyOut = &store_->hold(*std::move(place), samDesired).handle;
                               storeIfWanted(lpdwDisposition, created ? REG_CREATED_NEW_KEY : REG_OPENED_EXISTING_KEY);
                               return ERROR_SUCCESS;
                           });
}

LONG RegistryService::RegCreateKeyW(HKEY hKey, const wchar_t* lpSubKey, HKEY** keyOut)
{
    return RegCreateKeyExW(hKey, lpSubKey == nullptr ? L"" : lpSubKey, 0, nullptr, 0, maximumAllowed, nullptr, keyOut,
                           nullptr);
}

LONG RegistryService::RegCloseKey(HKEY hKey)
{
    const std::lock_guard lock(store_->mutex);
    const auto key = store_->keys.find(hKey);
    if (key == store_->keys.end())
    {
        return ERROR_INVALID_HANDLE;
    }
    // A predefined key's handle is not the address of its record, and it stays open.
    if (key->first == reinterpret_cast<HKEY>(key->second.get()))
    {
        store_->keys.erase(key);
    }
    return ERROR_SUCCESS;
}

LONG RegistryService::RegDeleteKeyExW(HKEY hKey, const wchar_t* lpSubKey, REGSAM, DWORD Reserved)
{
    return store_->withKey(hKey, 0,
                           [&](OpenKey& key) -> LONG
                           {
                               if (lpSubKey == nullptr || Reserved != 0)
                               {
                                   return ERROR_INVALID_PARAMETER;
                               }
                               if (const LONG wellFormed = checkSubPath(lpSubKey); wellFormed != ERROR_SUCCESS)
                               {
                                   return wellFormed;
                               }
                               switch (store_->registry.remove(key.place, lpSubKey))
                               {
                               case RegistryStore::Deletion::done:
                                   return ERROR_SUCCESS;
                               case RegistryStore::Deletion::notFound:
                                   return store_->missing(key, ERROR_FILE_NOT_FOUND);
                               default:
                                   return ERROR_ACCESS_DENIED;
                               }
                           });
}

LONG RegistryService::RegDeleteKeyW(HKEY hKey, const wchar_t* lpSubKey)
{
    return RegDeleteKeyExW(hKey, lpSubKey, 0, 0);
}

LONG RegistryService::RegEnumKeyExW(HKEY hKey, DWORD dwIndex, wchar_t* lpName, DWORD* lpcchName, DWORD* lpReserved,
                                    wchar_t* lpClass, DWORD* lpcchClass, FILETIME* lpftLastWriteTime)
{
    return store_->withKey(hKey, KEY_ENUMERATE_SUB_KEYS,
                           [&](OpenKey& key) -> LONG
                           {
                               if (lpName == nullptr || lpcchName == nullptr || lpReserved != nullptr ||
                                   (lpClass != nullptr && lpcchClass == nullptr))
                               {
                                   return ERROR_INVALID_PARAMETER;
                               }
                               const std::optional<KeyDetails> child =
                                   store_->registry.child(key.place.id, dwIndex, key.keys);
                               if (!child)
                               {
                                   return store_->missing(key, ERROR_NO_MORE_ITEMS);
                               }
                               const LONG stored = storeName(child->name, lpName, lpcchName);
                               if (stored != ERROR_SUCCESS)
                               {
                                   return stored;
                               }
                               storeTime(lpftLastWriteTime, child->written);
                               return storeClass(child->className, lpClass, lpcchClass);
                           });
}

LONG RegistryService::RegEnumKeyW(HKEY hKey, DWORD dwIndex, wchar_t* lpName, DWORD cchName)
{
    return RegEnumKeyExW(hKey, dwIndex, lpName, &cchName, nullptr, nullptr, nullptr, nullptr);
}

LONG RegistryService::RegQueryInfoKeyW(HKEY hKey, wchar_t* lpClass, DWORD* lpcchClass, DWORD* lpReserved,
                                       DWORD* lpcSubKeys, DWORD* lpcbMaxSubKeyLen, DWORD* lpcbMaxClassLen,
                                       DWORD* lpcValues, DWORD* lpcbMaxValueNameLen, DWORD* lpcbMaxValueLen,
                                       DWORD* lpcbSecurityDescriptor, FILETIME* lpftLastWriteTime)
{
    return store_->withKey(hKey, KEY_QUERY_VALUE,
                           [&](OpenKey& key) -> LONG
                           {
                               if (lpReserved != nullptr || (lpClass != nullptr && lpcchClass == nullptr))
                               {
                                   return ERROR_INVALID_PARAMETER;
                               }
                               const std::optional<KeyStatistics> found = store_->registry.statistics(key.place.id);
                               if (!found)
                               {
                                   return ERROR_KEY_DELETED;
                               }
                               storeIfWanted(lpcSubKeys, found->keys);
                               storeIfWanted(lpcbMaxSubKeyLen, found->longestKeyName);
                               storeIfWanted(lpcbMaxClassLen, found->longestClassName);
                               storeIfWanted(lpcValues, found->values);
                               storeIfWanted(lpcbMaxValueNameLen, found->longestValueName);
                               storeIfWanted(lpcbMaxValueLen, found->largestValue);
                               storeIfWanted(lpcbSecurityDescriptor, 0);
                               storeTime(lpftLastWriteTime, found->written);
                               return storeClass(found->className, lpClass, lpcchClass);
                           });
}

// ---- Values --------------------------------------------------------------------------------------------------------

LONG RegistryService::RegQueryValueExW(HKEY hKey, const wchar_t* lpValueName, DWORD* lpReserved, DWORD* lpType,
                                       BYTE* lpData, DWORD* lpcbData)
{
    return store_->withKey(
        hKey, KEY_QUERY_VALUE,
        [&](OpenKey& key) -> LONG
        {
            if (lpReserved != nullptr || (lpData != nullptr && lpcbData == nullptr))
            {
                return ERROR_INVALID_PARAMETER;
            }
            LONG stored = ERROR_SUCCESS;
            const auto store = [&](const Value& value) { stored = storeValue(value, lpType, lpData, lpcbData); };
            return store_->registry.readValue(key.place.id, textOrEmpty(lpValueName), std::cref(store))
                       ? stored
                       : store_->missing(key, ERROR_FILE_NOT_FOUND);
        });
}

LONG RegistryService::RegQueryValueW(HKEY hKey, const wchar_t* lpSubKey, wchar_t* lpData, LONG* lpcbData)
{
    return store_->withKey(hKey, KEY_QUERY_VALUE,
                           [&](OpenKey& key) -> LONG
                           {
                               if (lpData != nullptr && lpcbData == nullptr)
                               {
                                   return ERROR_INVALID_PARAMETER;
                               }
                               const std::optional<KeyPlace> place =
                                   store_->registry.find(key.place, textOrEmpty(lpSubKey));
                               if (!place)
                               {
                                   return store_->missing(key, ERROR_FILE_NOT_FOUND);
                               }
                               DWORD bytes = lpcbData == nullptr || *lpcbData < 0 ? 0 : static_cast<DWORD>(*lpcbData);
                               LONG result = ERROR_SUCCESS;
                               const auto store = [&](const Value& value)
                               { result = storeValue(value, nullptr, reinterpret_cast<BYTE*>(lpData), &bytes); };
                               if (!store_->registry.readValue(place->id, {}, std::cref(store)))
                               {
                                   // A key without a default value reads as empty text.
                                   constexpr wchar_t empty = L'\0';
                                   const auto* const data = reinterpret_cast<const unsigned char*>(&empty);
                                   store(Value{{}, REG_SZ, {data, sizeof empty}});
                               }
                               storeIfWanted(lpcbData, bytes);
                               return result;
                           });
}

LONG RegistryService::RegSetValueExW(HKEY hKey, const wchar_t* lpValueName, DWORD Reserved, DWORD dwType,
                                     const BYTE* lpData, DWORD cbData)
{
    return store_->withKey(
        hKey, KEY_SET_VALUE,
        [&](OpenKey& key) -> LONG
        {
            const std::wstring_view name = textOrEmpty(lpValueName);
            if (Reserved != 0 || (lpData == nullptr && cbData != 0) || name.size() > longestValueName)
            {
                return ERROR_INVALID_PARAMETER;
            }
            return store_->registry.writeValue(key.place.id, name, dwType, {lpData, cbData}) ? ERROR_SUCCESS
                                                                                             : ERROR_KEY_DELETED;
        });
}

LONG RegistryService::RegDeleteValueW(HKEY hKey, const wchar_t* lpValueName)
{
    return store_->withKey(hKey, KEY_SET_VALUE,
                           [&](OpenKey& key)
                           {
                               return store_->registry.removeValue(key.place.id, textOrEmpty(lpValueName))
                                          ? ERROR_SUCCESS
                                          : store_->missing(key, ERROR_FILE_NOT_FOUND);
                           });
}

LONG RegistryService::RegEnumValueW(HKEY hKey, DWORD dwIndex, wchar_t* lpValueName, DWORD* lpcchValueName,
                                    DWORD* lpReserved, DWORD* lpType, BYTE* lpData, DWORD* lpcbData)
{
    return store_->withKey(hKey, KEY_QUERY_VALUE,
                           [&](OpenKey& key) -> LONG
                           {
                               if (lpValueName == nullptr || lpcchValueName == nullptr || lpReserved != nullptr ||
                                   (lpData != nullptr && lpcbData == nullptr))
                               {
                                   return ERROR_INVALID_PARAMETER;
                               }
                               LONG stored = ERROR_SUCCESS;
                               const auto store = [&](const Value& value)
                               {
                                   const LONG data = storeValue(value, lpType, lpData, lpcbData);
                                   stored = storeName(value.name, lpValueName, lpcchValueName);
                                   stored = stored == ERROR_SUCCESS ? data : stored;
                               };
                               return store_->registry.readValue(key.place.id, dwIndex, key.values, std::cref(store))
                                          ? stored
                                          : store_->missing(key, ERROR_NO_MORE_ITEMS);
                           });
}

} // namespace kest::host
