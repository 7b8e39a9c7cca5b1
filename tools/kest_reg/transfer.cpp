// Registry files: importing and exporting.
#include "atomic_file.h"
#include "failure.h"
#include "keys.h"
#include "reg_text.h"
#include "verbs.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sys/stat.h>

using namespace kest::host;

namespace
{

Failure fileFailure(const std::wstring& file, int error)
{
    return Failure(L"file \"" + file + L"\": " + fromUtf8(std::strerror(error)));
}

void apply(RegistryStore& store, const RegTextKey& key)
{
    const std::optional<KeyName> name = parseKeyName(key.path);
    if (!name)
    {
        throw RegTextError(key.line, "the key does not begin with a predefined key");
    }
    if (key.removed)
    {
        if (store.removeTree(name->root, name->subPath) == RegistryStore::Deletion::refused)
        {
            throw RegTextError(key.line, "the key is a part of every registry and cannot be deleted");
        }
        return;
    }
    bool created = false;
    const std::int64_t id = store.create(name->root, name->subPath, {}, created).value().id;
    for (const RegTextValue& value : key.values)
    {
        if (value.removed)
        {
            store.removeValue(id, value.name);
        }
        else
        {
            store.writeValue(id, value.name, value.type, value.data);
        }
    }
}

// What is no regular file, such as a pipe, is written to as it is.
bool writeThrough(const std::string& path, const std::string& content)
{
    std::FILE* const file = std::fopen(path.c_str(), "w");
    if (file == nullptr)
    {
        return false;
    }
    const bool written = std::fwrite(content.data(), 1, content.size(), file) == content.size();
    return (std::fclose(file) == 0) && written;
}

void writeFile(const std::wstring& name, const std::string& content)
{
    std::string path = toUtf8(name);
    struct stat status;
    if (stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode))
    {
        if (!writeThrough(path, content))
        {
            throw fileFailure(name, errno);
        }
        return;
    }
    if (char* const target = realpath(path.c_str(), nullptr))
    {
        path = target;
        std::free(target);
    }
    const std::size_t slash = path.rfind('/');
    const FolderLock lock(slash == std::string::npos ? "." : path.substr(0, slash + 1));
    if (!lock.held() || !replaceFile(path, content))
    {
        throw fileFailure(name, errno);
    }
}

} // namespace

int importFile(RegistryStore& store, const Arguments& arguments)
{
    const std::wstring& file = arguments.operand(0);
    const std::optional<std::string> content = readWholeFile(toUtf8(file));
    if (!content)
    {
        throw fileFailure(file, errno);
    }
    try
    {
        const std::vector<RegTextKey> keys = readRegText(*content);
        store.inTransaction(
            [&]
            {
                for (const RegTextKey& key : keys)
                {
                    apply(store, key);
                }
            });
    }
    catch (const RegTextError& error)
    {
        throw Failure(L"file \"" + file + L"\", line " + std::to_wstring(error.line()) + L": " +
                      fromUtf8(error.what()) + L"; nothing is imported");
    }
    return statusDone;
}

int exportKey(RegistryStore& store, const Arguments& arguments)
{
    const std::wstring& file = arguments.operand(1);
    struct stat status;
    const bool present = stat(toUtf8(file).c_str(), &status) == 0 && S_ISREG(status.st_mode);
    RegTextWriter writer;
    int result = statusDone;
    store.inSnapshot(
        [&]
        {
            forEachBelow(store, findKey(store, arguments.operand(0)),
                         [&](const FoundKey& key)
                         {
                             writer.beginKey(key.path);
                             forEachValue(store, key,
                                          [&](const Value& value)
                                          {
                                              if (!writer.addValue(value.name, value.type, value.data))
                                              {
                                                  warn(L"value \"" + value.name + L"\" of key \"" + key.path +
                                                       L"\" is left out: its data is no text");
                                                  result = statusFailed;
                                              }
                                          });
                         });
        });
    if (present && !arguments.has(L"/y"))
    {
        ask(L"file \"" + file + L"\" is there: overwrite it?", L"/y");
    }
    writeFile(file, arguments.has(L"/utf8") ? writer.utf8() : writer.utf16());
    return result;
}
