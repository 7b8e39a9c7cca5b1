#include "audit/system_libraries.h"

#include "audit/file_reader.h"
#include "tables/export_table.h"

#include <llvm/BinaryFormat/ELF.h>

#include <algorithm>
#include <filesystem>
#include <optional>

namespace kest::audit
{

namespace
{

namespace fs = std::filesystem;

#if defined(__aarch64__)
constexpr std::uint16_t this_machine = llvm::ELF::EM_AARCH64;
#else
constexpr std::uint16_t this_machine = llvm::ELF::EM_X86_64;
#endif

constexpr const char* standard_libraries[] = {
    "libc.so.6",  "libm.so.6",  "libstdc++.so.6", "libgcc_s.so.1",        "libpthread.so.0",
    "libdl.so.2", "librt.so.1", "libresolv.so.2", "ld-linux-x86-64.so.2", "ld-linux-aarch64.so.1"};

// Where the loader of a machine looks.
std::vector<std::string> folders(std::uint16_t machine)
{
    switch (machine)
    {
    case llvm::ELF::EM_AARCH64:
        return {"/lib/aarch64-linux-gnu", "/usr/lib/aarch64-linux-gnu", "/usr/aarch64-linux-gnu/lib"};
    case llvm::ELF::EM_X86_64:
        return {"/lib/x86_64-linux-gnu",
                "/usr/lib/x86_64-linux-gnu",
                "/usr/local/lib",
                "/lib64",
                "/usr/lib64",
                "/lib",
                "/usr/lib"};
    default:
        return {};
    }
}

// A library's content: the first file of that name that can be read and is for the machine.
std::optional<FileContents> findLibrary(const std::string& name, const std::vector<std::string>& places,
                                        std::uint16_t machine)
{
    for (const std::string& place : places)
    {
        const fs::path path = fs::path(place) / name;
        std::error_code ignored;
        if (!fs::is_regular_file(path, ignored))
        {
            continue;
        }
        FileContents contents = readFile(path);
        if (contents.problems.empty() && contents.machine == machine)
        {
            return contents;
        }
    }
    return std::nullopt;
}

} // namespace

void SystemLibraries::addStandard(std::uint16_t machine)
{
    if (!machines_.insert(machine).second)
    {
        return;
    }
    const bool installed = findLibrary(standard_libraries[0], folders(machine), machine).has_value();
    const std::uint16_t used = installed ? machine : this_machine;
    for (const char* name : standard_libraries)
    {
        if (const std::optional<FileContents> library = findLibrary(name, folders(used), used))
        {
            standard_.insert(library->defines.begin(), library->defines.end());
        }
    }
}

void SystemLibraries::addNeeded(const FileContents& file)
{
    std::vector<std::string> places;
    for (const std::string& folder : file.library_folders)
    {
        std::string place = folder;
        for (const std::string& origin : {std::string("${ORIGIN}"), std::string("$ORIGIN")})
        {
            if (const std::size_t at = place.find(origin); at != std::string::npos)
            {
                place.replace(at, origin.size(), fs::absolute(file.path).parent_path().string());
            }
        }
        places.push_back(place);
    }
    const std::vector<std::string> usual = folders(file.machine);
    places.insert(places.end(), usual.begin(), usual.end());
    for (const std::string& name : file.libraries)
    {
        // What these export is answered by the tables.
        const bool ours = std::ranges::find(tools::libraries(), name) != tools::libraries().end();
        if (ours || !seen_.insert(std::to_string(file.machine) + name).second)
        {
            continue;
        }
        const std::optional<FileContents> library = findLibrary(name, places, file.machine);
        if (!library)
        {
            missing_.emplace(name, file.path);
            continue;
        }
        symbols_.insert(library->defines.begin(), library->defines.end());
        addNeeded(*library);
    }
}

} // namespace kest::audit
