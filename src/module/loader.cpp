#include "kest/kernel/modules.h"
#include "support/checked_entry_points.h"
#include "support/last_error.h"
#include "support/locale.h"
#include "support/second_name.h"
#include "support/text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <dlfcn.h>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <strings.h>
#include <utility>

std::map<std::string, ModuleInfo> g_loadedModuleMap;
CStdStr<wchar_t> g_strDllPath{kest::UnreportedConstruction()};

using LoadedModuleMap = std::map<std::string, ModuleInfo>;
// Weak: a program that takes a copy of the variable into its own data then takes it under both names.
KEST_SECOND_NAME(LoadedModuleMap taggedLoadedModuleMap, "g_loadedModuleMap", "_Z17g_loadedModuleMapB5cxx11")
__attribute__((weak));

namespace
{

using kest::KeptLastError;
using DllMainFunction = BOOL (*)(HMODULE, DWORD, LPVOID);

const HMODULE wholeProcess = reinterpret_cast<HMODULE>(1);

struct CloseModule
{
    using pointer = HMODULE;
    void operator()(HMODULE module) const { dlclose(module); }
};
using OpenedModule = std::unique_ptr<void, CloseModule>;

OpenedModule open(const std::string& path, int binding)
{
    const KeptLastError kept;
    return OpenedModule(static_cast<HMODULE>(dlopen(path.c_str(), binding)));
}

// Whole, in the process's multibyte encoding; nothing when that cannot encode the text.
std::optional<std::string> narrowed(const std::wstring& text)
{
    const KeptLastError kept;
    std::string narrow((text.size() + 1) * sizeof(wchar_t), '\0');
    const std::size_t length = kest::narrowIntoScratch(narrow.data(), text.c_str(), narrow.size());
    if (length == kest::conversionFailed)
    {
        return std::nullopt;
    }
    narrow.resize(length);
    return narrow;
}

std::optional<std::string> platformPath(const wchar_t* name)
{
    const CStdStr<wchar_t> translated = ToPlatformModuleName(name);
    kest::setCharacterTypeToUtf8();
    return narrowed(translated);
}

std::string fileName(const std::string& path)
{
    return path.substr(path.rfind('/') + 1);
}

constexpr int deepBinding = RTLD_LAZY | RTLD_DEEPBIND;

OpenedModule openInDllDirectory(const std::string& path)
{
    const std::optional<std::string> directory = narrowed(g_strDllPath);
    return directory ? open(*directory + "/" + path, deepBinding) : OpenedModule();
}

// Null when the key is not in the table.
HMODULE addReference(const std::string& key)
{
    const auto entry = g_loadedModuleMap.find(key);
    if (entry == g_loadedModuleMap.end())
    {
        return nullptr;
    }
    ++entry->second.count;
    return entry->second.handle;
}

struct Registration
{
    HMODULE handle;
    bool isNew;
};

// Enters a module with one reference. Its constructors may have loaded a module under the same key meanwhile: that one
// counts, and what has just been opened is closed again.
Registration enter(std::string key, OpenedModule module)
{
    const auto [entry, isNew] = g_loadedModuleMap.try_emplace(std::move(key), ModuleInfo{0, module.get()});
    ModuleInfo& info = entry->second;
    ++info.count;
    const HMODULE handle = info.handle;
    if (isNew)
    {
        module.release();
    }
    return {handle, isNew};
}

void callDllMain(HMODULE module, DWORD reason)
{
    const FARPROC entryPoint = GetProcAddress(module, "DllMain");
    if (entryPoint != nullptr)
    {
        reinterpret_cast<DllMainFunction>(reinterpret_cast<void*>(entryPoint))(module, reason, nullptr);
    }
}

// The narrow loader's file name, of a name without ".dll".
std::string prefixedPath(std::string_view name)
{
    const std::size_t fileStart = name.rfind('/') + 1;
    std::string path(name.substr(0, fileStart));
    path.append("lib").append(name.substr(fileStart)).append(".so");
    return path;
}

} // namespace

HMODULE LoadLibraryW(const wchar_t* name)
{
    const std::optional<std::string> path = platformPath(name);
    if (!path)
    {
        return nullptr;
    }
    std::string key = fileName(*path);
    if (const HMODULE loaded = addReference(key))
    {
        return loaded;
    }
    OpenedModule module = open(*path, deepBinding);
    if (!module)
    {
        module = openInDllDirectory(*path);
    }
    if (!module)
    {
        return nullptr;
    }
    const auto [handle, isNew] = enter(std::move(key), std::move(module));
    if (isNew)
    {
        callDllMain(handle, DLL_PROCESS_ATTACH);
    }
    return handle;
}

HMODULE LoadLibraryExW(const wchar_t* name, HANDLE, DWORD)
{
    return LoadLibraryW(name);
}

HMODULE LoadLibraryA(const char* name)
{
    std::array<char, 512> work;
    __strcpy_chk(work.data(), name, work.size());

    std::string path;
    char* const dot = std::strrchr(work.data(), '.');
    if (dot != nullptr && strcasecmp(dot, ".qlx") == 0)
    {
        path = work.data();
    }
    else
    {
        if (dot != nullptr && strcasecmp(dot, ".dll") == 0)
        {
            *dot = '\0';
            const_cast<char*>(name)[dot - work.data()] = '\0';
        }
        path = prefixedPath(work.data());
    }

    if (const HMODULE loaded = addReference(path))
    {
        return loaded;
    }
    OpenedModule module = open(path, RTLD_LAZY);
    return module ? enter(std::move(path), std::move(module)).handle : nullptr;
}

BOOL FreeLibrary(HMODULE module)
{
    if (module == nullptr || module == wholeProcess)
    {
        return -1; // the loader would crash on these
    }
    const auto entry = std::find_if(g_loadedModuleMap.begin(), g_loadedModuleMap.end(),
                                    [module](const auto& candidate) { return candidate.second.handle == module; });
    if (entry != g_loadedModuleMap.end())
    {
        if (--entry->second.count > 0)
        {
            return 1;
        }
        g_loadedModuleMap.erase(entry);
    }
    callDllMain(module, DLL_PROCESS_DETACH);
    const KeptLastError kept;
    return dlclose(module);
}

FARPROC GetProcAddress(HMODULE module, LPCSTR name)
{
    constexpr std::uintptr_t endOfOrdinals = 0x10000;
    if (reinterpret_cast<std::uintptr_t>(name) < endOfOrdinals)
    {
        return nullptr;
    }
    // Never a tail call: the loader's default search depends on which module it returns to.
    const KeptLastError kept;
    return reinterpret_cast<FARPROC>(dlsym(module == wholeProcess ? RTLD_DEFAULT : module, name));
}

HMODULE GetModuleHandleW(const wchar_t* name)
{
    if (name == nullptr || *name == L'\0')
    {
        return nullptr;
    }
    const std::optional<std::string> path = platformPath(name);
    if (!path)
    {
        return nullptr;
    }
    const auto entry = g_loadedModuleMap.find(fileName(*path));
    return entry == g_loadedModuleMap.end() ? nullptr : entry->second.handle;
}

BOOL GetModuleHandleExW(DWORD, const wchar_t* name, HMODULE*)
{
    GetModuleHandleW(name);
    return 1;
}

BOOL SetDllDirectoryW(const wchar_t* path)
{
    g_strDllPath = path;
    return 1;
}
