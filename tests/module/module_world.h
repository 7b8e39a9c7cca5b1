// Modules to load in a folder of a test's own, and a record of all that the loader and the C library are asked.
#pragma once

#include "harness/scratch_folder.h"
#include "kest/kernel/modules.h"

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <utility>
#include <vector>

namespace kest::test
{

struct DllMainCall
{
    HMODULE module;
    DWORD reason;
    LPVOID reserved;

    bool operator==(const DllMainCall&) const = default;
};

struct OpenCall
{
    std::string path;
    int flags;

    bool operator==(const OpenCall&) const = default;
};

struct LocaleCall
{
    int category;
    std::string name;

    bool operator==(const LocaleCall&) const = default;
};

// What has happened since the last forget(). A test may add something to happen during the calls.
struct Record
{
    std::vector<DllMainCall> dllMainCalls;
    std::vector<OpenCall> opens;
    std::vector<HMODULE> closes;
    std::vector<LocaleCall> locales;

    std::function<void(HMODULE, DWORD)> duringDllMain;
    std::function<void()> duringConstruction;
    // Answers the next reading of a link in place of the system.
    std::function<ssize_t(char*, std::size_t)> readingLink;
    // Answers the next closing of a module in place of the loader, which still closes it.
    std::function<int()> closing;

    void forget() { *this = Record(); }
};

Record& record();

// The calls that a loaded module's DllMain sees.
inline DllMainCall attached(HMODULE module)
{
    return {module, DLL_PROCESS_ATTACH, nullptr};
}
inline DllMainCall detached(HMODULE module)
{
    return {module, DLL_PROCESS_DETACH, nullptr};
}

// How the two loading functions open modules: lazily and deeply bound, and lazily.
inline constexpr int deepBinding = 9;
inline constexpr int plainBinding = 1;

// The last error that tests put in place to see it left alone.
inline constexpr int untouchedError = 77;

// An empty folder, entered; an empty table, no DLL directory, an empty record. Whatever a test leaves loaded is freed.
class ModuleWorld
{
public:
    ModuleWorld();
    ~ModuleWorld();
    ModuleWorld(const ModuleWorld&) = delete;
    ModuleWorld& operator=(const ModuleWorld&) = delete;

    // Copies the built module, of that plain name ("recorder"), to a place in the folder; returns its absolute path.
    std::filesystem::path install(std::string_view module, const std::filesystem::path& place) const;

    const ScratchFolder& folder() const { return folder_; }
    const std::filesystem::path& path() const { return folder_.path(); }

private:
    ScratchFolder folder_;
};

// A function of a module, as GetProcAddress finds it.
template <class Function>
Function* functionOf(HMODULE module, const char* name)
{
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

// The keys of the table with their counts, in order.
std::vector<std::pair<std::string, unsigned>> table();

// Whether the loader has a module of that path in memory.
bool isInMemory(const std::filesystem::path& path);

// The output of a test program of that name, its environment extended; its result must be 0.
std::string outputOf(std::string_view program, std::string_view environment);

} // namespace kest::test
