#include "failure.h"
#include "kest/registry.h"
#include "keys.h"
#include "value_text.h"
#include "verbs.h"

using namespace kest::host;

namespace
{

std::wstring valueName(const Arguments& arguments)
{
    std::wstring name = arguments.value(L"/v").value_or(L"");
    if (name.size() > longestValueName)
    {
        throw Failure(L"the value's name has more than " + std::to_wstring(longestValueName) + L" characters");
    }
    return name;
}

std::wstring shownName(const std::wstring& name)
{
    return name.empty() ? L"the default value" : L"value \"" + name + L"\"";
}

bool hasValue(RegistryStore& store, const KeyPlace& key, const std::wstring& name)
{
    return store.readValue(key.id, name, [](const Value&) {});
}

void removeKey(RegistryStore& store, const KeyName& name, const FoundKey& key)
{
    switch (store.removeTree(name.root, name.subPath))
    {
    case RegistryStore::Deletion::done:
        return;
    case RegistryStore::Deletion::notFound:
        throw Failure(L"key \"" + key.path + L"\" is not there any more");
    default:
        throw Failure(L"key \"" + key.path + L"\" is a part of every registry and cannot be deleted");
    }
}

} // namespace

int add(RegistryStore& store, const Arguments& arguments)
{
    arguments.allowOneOf({L"/v", L"/ve"});
    const bool withValue = arguments.has(L"/v") || arguments.has(L"/ve");
    for (const std::wstring_view option : {L"/t", L"/d", L"/s"})
    {
        if (arguments.has(option) && !withValue)
        {
            throw Failure(L"option " + std::wstring(option) + L" needs /v or /ve", statusBadCommandLine);
        }
    }
    const std::uint32_t type = typeNamed(arguments.value(L"/t").value_or(L"REG_SZ"));
    const std::wstring separator = arguments.value(L"/s").value_or(L"\\0");
    if (separator.empty())
    {
        throw Failure(L"option /s needs a value", statusBadCommandLine);
    }
    if (arguments.has(L"/s") && type != REG_MULTI_SZ)
    {
        throw Failure(L"option /s needs the type REG_MULTI_SZ", statusBadCommandLine);
    }
    const std::vector<unsigned char> data = dataOf(type, arguments.value(L"/d").value_or(L""), separator);
    const std::wstring value = valueName(arguments);
    const KeyName name = keyNamed(arguments.operand(0));
    if (withValue && !arguments.has(L"/f"))
    {
        if (const std::optional<KeyPlace> key = store.find(name.root, name.subPath);
            key && hasValue(store, *key, value))
        {
            ask(shownName(value) + L" is there: overwrite it?", L"/f");
        }
    }
    store.inTransaction(
        [&]
        {
            bool created = false;
            const std::optional<KeyPlace> key = store.create(name.root, name.subPath, {}, created);
            if (withValue)
            {
                store.writeValue(key.value().id, value, type, data);
            }
        });
    return statusDone;
}

int remove(RegistryStore& store, const Arguments& arguments)
{
    arguments.allowOneOf({L"/v", L"/ve", L"/va"});
    const KeyName name = keyNamed(arguments.operand(0));
    const FoundKey key = findKey(store, arguments.operand(0));
    const bool oneValue = arguments.has(L"/v") || arguments.has(L"/ve");
    const std::wstring value = valueName(arguments);
    if (oneValue && !hasValue(store, key.place, value))
    {
        throw Failure(L"key \"" + key.path + L"\" has no " + shownName(value).substr(value.empty() ? 4 : 0));
    }
    const bool allValues = arguments.has(L"/va");
    if (!arguments.has(L"/f"))
    {
        const std::wstring what = oneValue ? shownName(value) + L" of key \"" + key.path + L"\""
                                           : (allValues ? L"all values of key \"" : L"key \"") + key.path + L"\"" +
                                                 (allValues ? L"" : L" with all below it");
        ask(L"delete " + what + L"?", L"/f");
    }
    if (oneValue)
    {
        store.removeValue(key.place.id, value);
    }
    else if (allValues)
    {
        store.removeValues(key.place.id);
    }
    else
    {
        removeKey(store, name, key);
    }
    return statusDone;
}
