#include "module/module_world.h"

#include "harness/child_program.h"
#include "module/modules/hooks.h"

#include <array>
#include <cstdio>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <stdexcept>

namespace kest::test
{

namespace fs = std::filesystem;

namespace
{

using Open = void* (*)(const char*, int);
using Close = int (*)(void*);
using SetLocale = char* (*)(int, const char*);
using ReadLink = ssize_t (*)(const char*, char*, std::size_t);

// The function behind the one of the same name here.
template <class Function>
Function real(const char* name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

} // namespace

Record& record()
{
    static Record theRecord;
    return theRecord;
}

ModuleWorld::ModuleWorld()
{
    record().forget();
}

ModuleWorld::~ModuleWorld()
{
    record().forget();
    while (!g_loadedModuleMap.empty())
    {
        FreeLibrary(g_loadedModuleMap.begin()->second.handle);
    }
    SetDllDirectoryW(nullptr);
}

fs::path ModuleWorld::install(std::string_view module, const fs::path& place) const
{
    const fs::path source = fs::path(KEST_TEST_MODULE_FOLDER) / ("lib" + std::string(module) + ".so");
    const fs::path target = path() / place;
    fs::create_directories(target.parent_path());
    fs::copy_file(source, target);
    return target;
}

std::vector<std::pair<std::string, unsigned>> table()
{
    std::vector<std::pair<std::string, unsigned>> entries;
    for (const auto& [key, info] : g_loadedModuleMap)
    {
        entries.emplace_back(key, info.count);
    }
    return entries;
}

bool isInMemory(const fs::path& path)
{
    void* const handle = real<Open>("dlopen")(path.c_str(), RTLD_LAZY | RTLD_NOLOAD);
    if (handle != nullptr)
    {
        real<Close>("dlclose")(handle);
    }
    return handle != nullptr;
}

std::string outputOf(std::string_view program, std::string_view environment)
{
    const std::string command = std::string(environment) + " " + emulatorPrefix() + "'" +
                                (fs::path(KEST_TEST_MODULE_FOLDER) / program).string() + "'";
    std::FILE* const pipe = popen(command.c_str(), "r");
    if (pipe == nullptr)
    {
        throw std::runtime_error("cannot start " + command);
    }
    std::string output;
    std::array<char, 256> part;
    while (std::fgets(part.data(), static_cast<int>(part.size()), pipe) != nullptr)
    {
        output += part.data();
    }
    EXPECT_EQ(pclose(pipe), 0) << command;
    return output;
}

} // namespace kest::test

// ---- What modules call --------------------------------------------------------------------------------------------

using kest::test::record;

void moduleTestDllMain(HMODULE module, DWORD reason, LPVOID reserved)
{
    record().dllMainCalls.push_back({module, reason, reserved});
    if (record().duringDllMain)
    {
        record().duringDllMain(module, reason);
    }
}

void moduleTestConstructed()
{
    // Taken out first: what happens may construct other modules.
    const auto happening = std::exchange(record().duringConstruction, nullptr);
    if (happening)
    {
        happening();
    }
}

void moduleTestDestroyed()
{
}

// ---- In place of the loader and the C library ---------------------------------------------------------------------

extern "C"
{
    KEST_API void* observedOpen(const char* path, int flags) __asm__("dlopen");
    KEST_API int observedClose(void* handle) __asm__("dlclose");
    KEST_API char* observedSetLocale(int category, const char* name) __asm__("setlocale");
    KEST_API ssize_t observedReadLink(const char* path, char* buffer, std::size_t size) __asm__("readlink");
}

void* observedOpen(const char* path, int flags)
{
    record().opens.push_back({path == nullptr ? "(null)" : path, flags});
    return kest::test::real<kest::test::Open>("dlopen")(path, flags);
}

int observedClose(void* handle)
{
    record().closes.push_back(static_cast<HMODULE>(handle));
    const int result = kest::test::real<kest::test::Close>("dlclose")(handle);
    const auto answer = std::exchange(record().closing, nullptr);
    return answer ? answer() : result;
}

char* observedSetLocale(int category, const char* name)
{
    record().locales.push_back({category, name == nullptr ? "(null)" : name});
    return kest::test::real<kest::test::SetLocale>("setlocale")(category, name);
}

ssize_t observedReadLink(const char* path, char* buffer, std::size_t size)
{
    if (const auto answer = std::exchange(record().readingLink, nullptr))
    {
        return answer(buffer, size);
    }
    return kest::test::real<kest::test::ReadLink>("readlink")(path, buffer, size);
}
