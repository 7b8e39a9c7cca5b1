// Module functions beside the dynamic loader's own calls.
#include "families.h"
#include "kest/kernel/modules.h"
#include "pairs.h"
#include "surroundings.h"

#include <array>
#include <clocale>
#include <cstdlib>
#include <cwchar>
#include <dlfcn.h>
#include <map>
#include <memory>
#include <string>
#include <unistd.h>

namespace kest::benchmarks
{

namespace
{

constexpr double target = 1.3;

// A module that every system has, under a name that translates to its own.
constexpr const wchar_t* present = L"libm.so.6";
// One that every system has and nothing here needs: opening it maps it, and closing it unmaps it.
constexpr const wchar_t* unused = L"libanl.so.1";
constexpr const wchar_t* missing = L"kest-no-such-module";

} // namespace

void addModules()
{
    const HMODULE module = LoadLibraryW(present);
    const auto isSameModule = [=](HMODULE ours, void* baseline)
    { return module != nullptr && ours == module && baseline == module; };
    addPair(
        "modules/LoadLibraryW, loaded before", target, "setlocale, dlopen", [] { return LoadLibraryW(present); },
        []
        {
            std::setlocale(LC_CTYPE, "UTF-8");
            return dlopen("libm.so.6", RTLD_LAZY | RTLD_DEEPBIND);
        },
        {}, isSameModule);
    addPair(
        "modules/LoadLibraryW, FreeLibrary, of a module not in memory", target, "setlocale, dlopen, dlclose",
        [] { return FreeLibrary(LoadLibraryW(unused)); },
        []
        {
            std::setlocale(LC_CTYPE, "UTF-8");
            return dlclose(dlopen("libanl.so.1", RTLD_LAZY | RTLD_DEEPBIND));
        },
        {},
        // Both closed it, and it has left.
        [](BOOL ours, int baseline)
        { return ours == 0 && baseline == 0 && dlopen("libanl.so.1", RTLD_LAZY | RTLD_NOLOAD) == nullptr; });
    addPair(
        "modules/LoadLibraryW, missing", target, "setlocale, dlopen twice", [] { return LoadLibraryW(missing); },
        []
        {
            std::setlocale(LC_CTYPE, "UTF-8");
            benchmark::DoNotOptimize(dlopen("libkest-no-such-module.so", RTLD_LAZY | RTLD_DEEPBIND));
            return dlopen("/libkest-no-such-module.so", RTLD_LAZY | RTLD_DEEPBIND);
        },
        {}, AllZero());
    addPair(
        "modules/GetModuleHandleW", target, "setlocale, dlopen", [] { return GetModuleHandleW(present); },
        []
        {
            std::setlocale(LC_CTYPE, "UTF-8");
            return dlopen("libm.so.6", RTLD_LAZY | RTLD_NOLOAD);
        },
        {}, isSameModule);
    addPair(
        "modules/GetProcAddress", target, "dlsym", [=] { return GetProcAddress(module, "cos"); },
        [=] { return dlsym(module, "cos"); }, {},
        [](FARPROC ours, void* baseline) { return baseline != nullptr && reinterpret_cast<void*>(ours) == baseline; });
    addPair(
        "modules/GetModuleFileNameW", target, "readlink, mbstowcs",
        [out = std::array<wchar_t, 1024>()]() mutable { return GetModuleFileNameW(nullptr, out.data(), 1024); },
        [out = std::array<wchar_t, 1024>()]() mutable
        {
            std::array<char, 4096> name;
            const ssize_t length = readlink("/proc/self/exe", name.data(), name.size() - 1);
            name[static_cast<std::size_t>(length)] = '\0';
            return std::mbstowcs(out.data(), name.data(), out.size());
        },
        {}, EqualResults());

    addGrowth(
        "ToPlatformModuleName", "characters", 100,
        [](long length) { return [text = wideText(length)] { return ToPlatformModuleName(text.c_str()).size(); }; }, {},
        NoneZero());
    addGrowth(
        "GetModuleHandleW", "characters", 100,
        [](long length) { return [text = wideText(length)] { return GetModuleHandleW(text.c_str()); }; }, {},
        AllZero());
    addGrowth(
        "LoadLibraryW, missing", "characters", 40,
        [](long length) { return [text = wideText(length)] { return LoadLibraryW(text.c_str()); }; }, {}, AllZero());
    // Names can have 511 bytes.
    addGrowth(
        "LoadLibraryA, missing", "bytes", 5,
        [](long length) { return [text = narrowText(length)] { return LoadLibraryA(text.c_str()); }; }, {}, AllZero());
    addGrowth(
        "LoadLibraryW, FreeLibrary", "loaded modules", 10,
        [](long count)
        {
            auto table = std::make_shared<std::map<std::string, ModuleInfo>>();
            for (long number = 0; number < count; ++number)
            {
                table->emplace("a-module-" + std::to_string(number), ModuleInfo{1, nullptr});
            }
            return [table]
            {
                g_loadedModuleMap.swap(*table);
                const BOOL result = FreeLibrary(LoadLibraryW(present));
                g_loadedModuleMap.swap(*table);
                return result;
            };
        },
        {}, AllZero());
    addGrowth(
        "GetProcAddress, missing", "bytes", 100,
        [=](long length) { return [=, text = narrowText(length)] { return GetProcAddress(module, text.c_str()); }; },
        {}, AllZero());
    addGrowth(
        "SetDllDirectoryW", "characters", 100,
        [](long length) { return [text = wideText(length)] { return SetDllDirectoryW(text.c_str()); }; },
        {[] {}, [] { SetDllDirectoryW(L""); }}, NoneZero());
    addGrowth(
        "GetLongPathNameW", "characters", 100,
        [](long length)
        {
            return [text = wideText(length), out = wideText(length)]() mutable
            { return GetLongPathNameW(text.c_str(), out.data(), static_cast<DWORD>(out.size())); };
        },
        {}, NoneZero());
}

} // namespace kest::benchmarks
