// Keys as the command line and .reg files name them, and walks over what is below them.
#pragma once

#include "registry_store.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

// A path taken apart: its predefined key and the rest.
struct KeyName
{
    kest::host::KeyPlace root;
    std::wstring rootName; // in full
    std::wstring_view subPath;
};

// Nothing where the path does not begin with a predefined key's full or short name.
std::optional<KeyName> parseKeyName(std::wstring_view path);

struct FoundKey
{
    kest::host::KeyPlace place;
    std::wstring path; // from its root on, as it is spelled
};

// A key that the command line names; throws Failure for a path without a predefined key or with names that no key
// can have.
KeyName keyNamed(std::wstring_view path);
// The key itself; throws Failure where it is not there.
FoundKey findKey(kest::host::RegistryStore& store, std::wstring_view path);

// Hands out the keys directly below a key, in the order of their names.
void forEachChild(kest::host::RegistryStore& store, const FoundKey& key,
                  const std::function<void(FoundKey child, std::wstring_view name)>& use);
void forEachValue(kest::host::RegistryStore& store, const FoundKey& key,
                  const std::function<void(const kest::host::Value&)>& use);
// Hands out a key and all keys below it, each before those below it.
void forEachBelow(kest::host::RegistryStore& store, FoundKey key, const std::function<void(const FoundKey&)>& use);
