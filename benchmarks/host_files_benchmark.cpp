// The reference host's find operations beside readdir and stat.
#include "families.h"
#include "kest/kernel/files.h"
#include "kest/shell_paths.h"
#include "pairs.h"
#include "surroundings.h"

#include <dirent.h>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <utility>

namespace kest::benchmarks
{

namespace
{

constexpr double target = 1.5;

long walk(const std::wstring& pattern)
{
    WIN32_FIND_DATAW data;
    const HANDLE search = FindFirstFileW(pattern.c_str(), &data);
    long count = 1;
    while (FindNextFileW(search, &data) != 0)
    {
        ++count;
    }
    FindClose(search);
    return count;
}

long walkBare(const std::string& folder)
{
    DIR* const stream = opendir(folder.c_str());
    long count = 0;
    while (const dirent* const entry = readdir(stream))
    {
        struct stat status;
        count += fstatat(dirfd(stream), entry->d_name, &status, AT_SYMLINK_NOFOLLOW) == 0;
    }
    closedir(stream);
    return count;
}

} // namespace

void addHostFiles()
{
    addPreparedPair("host files/FindFirstFileW walk, 10000 entries", target, "readdir, fstatat",
                    []
                    {
                        const std::string folder = folderOfFiles(10'000);
                        return std::pair([pattern = wide(folder) + L"/*"] { return walk(pattern); },
                                         [=] { return walkBare(folder); });
                    });
    addGrowth("FindFirstFileW walk", "entries", 20,
              [](long count) { return [pattern = wide(folderOfFiles(count)) + L"/*"] { return walk(pattern); }; });
    addGrowth(
        "host: PathFileExistsW, a name in another case", "files in the folder", 20,
        [](long count)
        {
            return [name = wide(folderOfFiles(count)) + L"/FILE" + std::to_wstring(count - 1) + L".TXT"]
            { return PathFileExistsW(name.c_str()); };
        },
        {}, NoneZero());
    // What is written can have 259 characters: the paths part at their ends.
    addGrowth(
        "host: PathRelativePathToW", "components", 10,
        [](long count)
        {
            std::wstring folder;
            for (long component = 0; component < count; ++component)
            {
                folder += L"/f";
            }
            return [from = folder + L"/from", to = folder + L"/to", out = std::wstring(MAX_PATH, L'\0')]() mutable
            { return PathRelativePathToW(out.data(), from.c_str(), FILE_ATTRIBUTE_DIRECTORY, to.c_str(), 0); };
        },
        {}, NoneZero());
}

} // namespace kest::benchmarks
