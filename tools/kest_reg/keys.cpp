#include "keys.h"

#include "failure.h"
#include "registry_roots.h"
#include "unicode.h"

#include <algorithm>

using namespace kest::host;

std::optional<KeyName> parseKeyName(std::wstring_view path)
{
    const std::wstring_view first = path.substr(0, path.find(L'\\'));
    const std::wstring wanted = folded(first);
    for (const RegistryRoot& root : registryRoots)
    {
        if (wanted == root.name || wanted == root.shortName)
        {
            return KeyName{root.place, std::wstring(root.name), path.substr(std::min(first.size() + 1, path.size()))};
        }
    }
    return std::nullopt;
}

KeyName keyNamed(std::wstring_view path)
{
    if (path.starts_with(L"\\\\"))
    {
        throw Failure(L"key \"" + std::wstring(path) + L"\": the registry of another computer cannot be reached");
    }
    std::optional<KeyName> name = parseKeyName(path);
    if (!name)
    {
        throw Failure(L"key \"" + std::wstring(path) +
                      L"\" does not begin with HKLM, HKCU, HKCR, HKU, HKCC or one of " + L"their full names");
    }
    if (!isKeyPath(name->subPath))
    {
        throw Failure(L"key \"" + std::wstring(path) + L"\": a name has more than " + std::to_wstring(longestKeyName) +
                      L" characters or one that cannot be printed");
    }
    return *std::move(name);
}

FoundKey findKey(RegistryStore& store, std::wstring_view path)
{
    const KeyName name = keyNamed(path);
    std::optional<KeyPlace> place = store.find(name.root, name.subPath);
    if (!place)
    {
        throw Failure(L"key \"" + std::wstring(path) + L"\" is not there");
    }
    std::wstring spelled = name.rootName + store.spelledPath(name.root.id, place->id);
    return {*std::move(place), std::move(spelled)};
}

void forEachChild(RegistryStore& store, const FoundKey& key,
                  const std::function<void(FoundKey child, std::wstring_view name)>& use)
{
    EnumerationPlace place;
    for (std::uint32_t index = 0;; ++index)
    {
        const std::optional<KeyDetails> child = store.child(key.place.id, index, place);
        if (!child)
        {
            return;
        }
        if (std::optional<KeyPlace> found = store.find(key.place, child->name))
        {
            use({*std::move(found), key.path + L'\\' + child->name}, child->name);
        }
    }
}

void forEachValue(RegistryStore& store, const FoundKey& key, const std::function<void(const Value&)>& use)
{
    EnumerationPlace place;
    for (std::uint32_t index = 0; store.readValue(key.place.id, index, place, use); ++index)
    {
    }
}

void forEachBelow(RegistryStore& store, FoundKey key, const std::function<void(const FoundKey&)>& use)
{
    std::vector<FoundKey> waiting{std::move(key)};
    while (!waiting.empty())
    {
        const FoundKey next = std::move(waiting.back());
        waiting.pop_back();
        use(next);
        const std::size_t begin = waiting.size();
        forEachChild(store, next, [&](FoundKey child, std::wstring_view) { waiting.push_back(std::move(child)); });
        std::reverse(waiting.begin() + static_cast<std::ptrdiff_t>(begin), waiting.end());
    }
}
