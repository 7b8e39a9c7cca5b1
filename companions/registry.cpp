#include "kest/companions/registry.h"

#include "failure.h"
#include "kest/kernel/environment.h"
#include "kest/registry.h"

#include <cstring>
#include <cwchar>
#include <new>
#include <string>
#include <string_view>
#include <vector>

using namespace kest::companions;

namespace
{

bool isGiven(const wchar_t* subKey)
{
    return subKey != nullptr && *subKey != L'\0';
}

// A key of the caller's, or one below it that is closed with the object.
class Key
{
public:
    explicit Key(HKEY key) : handle_(key) {}
    ~Key()
    {
        if (opened_)
            RegCloseKey(handle_);
    }
    Key(const Key&) = delete;
    Key& operator=(const Key&) = delete;

    LONG open(const wchar_t* subKey, REGSAM rights)
    {
        const LONG result = RegOpenKeyExW(handle_, subKey, 0, rights, &handle_);
        opened_ = result == ERROR_SUCCESS;
        return result;
    }

    LONG create(const wchar_t* subKey, REGSAM rights)
    {
        const LONG result = RegCreateKeyExW(handle_, subKey, 0, nullptr, 0, rights, nullptr, &handle_, nullptr);
        opened_ = result == ERROR_SUCCESS;
        return result;
    }

    HKEY handle() const { return handle_; }

private:
    HKEY handle_;
    bool opened_ = false;
};

template <class Body>
LONG withoutExceptions(Body&& body)
{
    try
    {
        return body();
    }
    catch (const std::bad_alloc&)
    {
        return ERROR_OUTOFMEMORY;
    }
}

// ---- Reading values ------------------------------------------------------------------------------------------------

struct Value
{
    DWORD type = REG_NONE;
    std::string data;
};

LONG readValue(HKEY key, const wchar_t* name, Value& value)
{
    DWORD size = 0;
    LONG result = RegQueryValueExW(key, name, nullptr, &value.type, nullptr, &size);
    // Someone else may make it larger between the two calls.
    while (result == ERROR_SUCCESS || result == ERROR_MORE_DATA)
    {
        value.data.resize(size);
        result = RegQueryValueExW(key, name, nullptr, &value.type, reinterpret_cast<BYTE*>(value.data.data()), &size);
        if (result == ERROR_SUCCESS)
        {
            value.data.resize(size);
            break;
        }
    }
    return result;
}

std::wstring textOf(const Value& value)
{
    std::wstring text(value.data.size() / sizeof(wchar_t), L'\0');
    std::memcpy(text.data(), value.data.data(), text.size() * sizeof(wchar_t));
    return text;
}

void store(Value& value, const std::wstring& text)
{
    value.data.assign(reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t));
}

void terminate(Value& value)
{
    const std::size_t terminators = value.type == REG_MULTI_SZ ? 2 : 1;
    std::wstring text = textOf(value);
    std::size_t present = 0;
    while (present < terminators && present < text.size() && text[text.size() - 1 - present] == L'\0')
        ++present;
    text.append(terminators - present, L'\0');
    store(value, text);
}

std::wstring expanded(const wchar_t* text)
{
    // Without memory nothing is written: not even the terminator of an empty text.
    constexpr wchar_t untouched = L'?';
    std::wstring result(MAX_PATH, untouched);
    DWORD length = 0;
    // The variables may change between the calls.
    while ((length = ExpandEnvironmentStringsW(text, result.data(), static_cast<DWORD>(result.size()))) >=
           result.size())
        result.assign(length + 1, untouched);
    if (length == 0 && result.front() == untouched)
        throw std::bad_alloc();
    result.resize(length);
    return result;
}

LONG checkFlags(DWORD flags)
{
    const DWORD types = flags & RRF_RT_ANY;
    const bool expandsAmongChosenTypes =
        types != RRF_RT_ANY && (types & RRF_RT_REG_EXPAND_SZ) != 0 && (flags & RRF_NOEXPAND) == 0;
    constexpr DWORD bothViews = RRF_SUBKEY_WOW6464KEY | RRF_SUBKEY_WOW6432KEY;
    return types == 0 || expandsAmongChosenTypes || (flags & bothViews) == bothViews ? ERROR_INVALID_PARAMETER
                                                                                     : ERROR_SUCCESS;
}

DWORD flagOf(DWORD type)
{
    switch (type)
    {
    case REG_NONE:
        return RRF_RT_REG_NONE;
    case REG_SZ:
        return RRF_RT_REG_SZ;
    case REG_EXPAND_SZ:
        return RRF_RT_REG_EXPAND_SZ;
    case REG_BINARY:
        return RRF_RT_REG_BINARY;
    case REG_DWORD:
        return RRF_RT_REG_DWORD;
    case REG_MULTI_SZ:
        return RRF_RT_REG_MULTI_SZ;
    case REG_QWORD:
        return RRF_RT_REG_QWORD;
    default:
        return 0;
    }
}

LONG checkType(const Value& value, DWORD flags)
{
    const DWORD types = flags & RRF_RT_ANY;
    if (types == RRF_RT_ANY)
        return ERROR_SUCCESS;
    if ((flagOf(value.type) & types) == 0)
        return ERROR_UNSUPPORTED_TYPE;
    const std::size_t size = types == RRF_RT_DWORD   ? sizeof(DWORD)
                             : types == RRF_RT_QWORD ? sizeof(DWORD64)
                                                     : value.data.size();
    return value.type == REG_BINARY && value.data.size() != size ? ERROR_DATATYPE_MISMATCH : ERROR_SUCCESS;
}

// The value of the types asked for, expanded and terminated.
LONG fetchValue(HKEY key, const wchar_t* subKey, const wchar_t* name, DWORD flags, Value& value)
{
    Key source(key);
    if (isGiven(subKey))
    {
        const REGSAM view = (flags & RRF_SUBKEY_WOW6464KEY) != 0   ? KEY_WOW64_64KEY
                            : (flags & RRF_SUBKEY_WOW6432KEY) != 0 ? KEY_WOW64_32KEY
                                                                   : 0;
        if (const LONG result = source.open(subKey, KEY_QUERY_VALUE | view); result != ERROR_SUCCESS)
            return result;
    }
    if (const LONG result = readValue(source.handle(), name, value); result != ERROR_SUCCESS)
        return result;
    if (value.type == REG_SZ || value.type == REG_EXPAND_SZ || value.type == REG_MULTI_SZ)
        terminate(value);
    if (value.type == REG_EXPAND_SZ && (flags & RRF_NOEXPAND) == 0)
    {
        const std::wstring text = expanded(textOf(value).c_str());
        store(value, text + L'\0');
        value.type = REG_SZ;
    }
    return checkType(value, flags);
}

LONG handOut(const Value& value, DWORD* type, void* data, DWORD* size)
{
    const auto needed = static_cast<DWORD>(value.data.size());
    if (type != nullptr)
        *type = value.type;
    const bool fits = data == nullptr || *size >= needed;
    if (size != nullptr)
        *size = needed;
    if (!fits)
        return ERROR_MORE_DATA;
    if (data != nullptr && needed != 0)
        std::memcpy(data, value.data.data(), needed);
    return ERROR_SUCCESS;
}

} // namespace

LONG RegGetValueW(HKEY key, const wchar_t* subKey, const wchar_t* value, DWORD flags, DWORD* type, void* data,
                  DWORD* size)
{
    if (data != nullptr && size == nullptr)
        return ERROR_INVALID_PARAMETER;
    const DWORD room = data == nullptr ? 0 : *size;
    LONG result = checkFlags(flags);
    if (result == ERROR_SUCCESS)
    {
        result = withoutExceptions(
            [&]
            {
                Value found;
                const LONG fetched = fetchValue(key, subKey, value, flags, found);
                return fetched == ERROR_SUCCESS ? handOut(found, type, data, size) : fetched;
            });
    }
    if (result != ERROR_SUCCESS && room != 0 && (flags & RRF_ZEROONFAILURE) != 0)
        std::memset(data, 0, room);
    return result;
}

// ---- Deleting trees ------------------------------------------------------------------------------------------------

namespace
{

// With their terminators.
constexpr std::size_t longestKeyName = 1024;
constexpr std::size_t longestValueName = 16384;
constexpr REGSAM deletingRights = KEY_ENUMERATE_SUB_KEYS | KEY_QUERY_VALUE | KEY_SET_VALUE;

LONG deleteKeysBelow(HKEY key);

LONG deleteKey(HKEY parent, const wchar_t* name)
{
    {
        Key key(parent);
        if (const LONG result = key.open(name, deletingRights); result != ERROR_SUCCESS)
            return result;
        if (const LONG result = deleteKeysBelow(key.handle()); result != ERROR_SUCCESS)
            return result;
    }
    return RegDeleteKeyW(parent, name);
}

// Deletes what an enumeration names first until it names nothing.
template <class Enumerate, class Delete>
LONG deleteAll(std::size_t longestName, Enumerate enumerate, Delete deleteOne)
{
    std::vector<wchar_t> name(longestName);
    LONG result = ERROR_SUCCESS;
    while (result == ERROR_SUCCESS)
    {
        auto length = static_cast<DWORD>(name.size());
        result = enumerate(name.data(), &length);
        if (result == ERROR_SUCCESS)
            result = deleteOne(name.data());
        else if (result == ERROR_NO_MORE_ITEMS)
            return ERROR_SUCCESS;
    }
    return result;
}

LONG deleteKeysBelow(HKEY key)
{
    return deleteAll(
        longestKeyName,
        [key](wchar_t* name, DWORD* length)
        { return RegEnumKeyExW(key, 0, name, length, nullptr, nullptr, nullptr, nullptr); },
        [key](const wchar_t* name) { return deleteKey(key, name); });
}

LONG deleteValues(HKEY key)
{
    return deleteAll(
        longestValueName,
        [key](wchar_t* name, DWORD* length)
        { return RegEnumValueW(key, 0, name, length, nullptr, nullptr, nullptr, nullptr); },
        [key](const wchar_t* name) { return RegDeleteValueW(key, name); });
}

} // namespace

LONG RegDeleteTreeW(HKEY key, const wchar_t* subKey)
{
    return withoutExceptions(
        [=]
        {
            if (isGiven(subKey))
                return deleteKey(key, subKey);
            const LONG result = deleteKeysBelow(key);
            return result == ERROR_SUCCESS ? deleteValues(key) : result;
        });
}

// ---- A key's own value ---------------------------------------------------------------------------------------------

LONG RegSetValueW(HKEY key, const wchar_t* subKey, DWORD type, const wchar_t* text, DWORD)
{
    if (type != REG_SZ || text == nullptr)
        return ERROR_INVALID_PARAMETER;
    Key target(key);
    if (isGiven(subKey))
    {
        if (const LONG result = target.create(subKey, KEY_SET_VALUE); result != ERROR_SUCCESS)
            return result;
    }
    return RegSetValueExW(target.handle(), nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(text),
                          static_cast<DWORD>((std::wcslen(text) + 1) * sizeof(wchar_t)));
}
