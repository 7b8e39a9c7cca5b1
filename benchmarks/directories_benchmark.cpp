// Directory functions beside the same system calls made bare.
#include "families.h"
#include "kest/crt/file_wrappers.h"
#include "kest/kernel/directories.h"
#include "kest/kernel/environment.h"
#include "kest/kernel/search_path.h"
#include "kest/shell_paths.h"
#include "pairs.h"
#include "surroundings.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace kest::benchmarks
{

namespace
{

constexpr double target = 1.3;

// PathIsDirectoryW and GetTempFileNameW leave descriptors open: the lowest free ones, which are closed between batches.
class DescriptorsOfBatch
{
public:
    void mark()
    {
        for (int descriptor = 0; descriptor < watched; ++descriptor)
        {
            open_[static_cast<std::size_t>(descriptor)] = isOpen(descriptor);
        }
    }

    void closeNew()
    {
        for (int descriptor = 0; descriptor < watched; ++descriptor)
        {
            if (!open_[static_cast<std::size_t>(descriptor)])
            {
                close(descriptor);
            }
        }
    }

private:
    static constexpr int watched = 1024;
    static bool isOpen(int descriptor) { return fcntl(descriptor, F_GETFD) != -1; }

    std::array<bool, watched> open_{};
};

Around closingDescriptors(std::function<void()> alsoAfter = [] {})
{
    const auto descriptors = std::make_shared<DescriptorsOfBatch>();
    return {[=] { descriptors->mark(); },
            [=]
            {
                descriptors->closeNew();
                alsoAfter();
            },
            256};
}

std::string treeOfFiles(long count)
{
    return (scratch().path() / ("tree-" + std::to_string(count))).string();
}

void fill(const std::string& folder, long count)
{
    if (mkdir(folder.c_str(), 0755) != 0)
    {
        throw std::runtime_error("cannot make " + folder);
    }
    for (long file = 0; file < count; ++file)
    {
        close(open((folder + "/file-" + std::to_string(file)).c_str(), O_CREAT | O_WRONLY, 0644));
    }
}

// A folder below the scratch folder, its own name so long.
std::string folderWithName(long length)
{
    constexpr std::size_t longestComponent = 200;
    std::string name;
    while (name.size() < static_cast<std::size_t>(length))
    {
        name += std::string(std::min(static_cast<std::size_t>(length) - name.size(), longestComponent), 'd') + "/";
    }
    const std::filesystem::path folder = scratch().path() / name;
    std::filesystem::create_directories(folder);
    return folder.string();
}

bool searchFolder(const char* folder, const char* name)
{
    DIR* const stream = opendir(folder);
    if (stream == nullptr)
    {
        return false;
    }
    struct stat status;
    bool found = false;
    if (fstatat(dirfd(stream), name, &status, AT_SYMLINK_NOFOLLOW) == 0)
    {
        while (const dirent* const entry = readdir(stream))
        {
            if (std::string_view(entry->d_name) == name)
            {
                found = true;
                break;
            }
        }
    }
    closedir(stream);
    return found;
}

// What SearchPathW without a folder promises: the program's folder, the current one, then PATH, asked of a shell.
bool searchEverywhere(const char* name)
{
    std::array<char, 4096> link;
    const ssize_t length = readlink("/proc/self/exe", link.data(), link.size());
    std::string folder(link.data(), static_cast<std::size_t>(length));
    folder.resize(folder.rfind('/'));
    if (searchFolder(folder.c_str(), name))
    {
        return true;
    }
    char* const current = getcwd(nullptr, 0);
    const bool found = searchFolder(current, name);
    std::free(current);
    if (found)
    {
        return true;
    }
    std::FILE* const shell = popen("echo $PATH", "r");
    std::array<char, 4096> line = {};
    benchmark::DoNotOptimize(std::fgets(line.data(), static_cast<int>(line.size()), shell));
    pclose(shell);
    std::string path = line.data();
    path.pop_back();
    for (std::size_t begin = 0; begin < path.size();)
    {
        const std::size_t end = std::min(path.find(':', begin), path.size());
        const std::string entry = path.substr(begin, end - begin);
        if (searchFolder(entry.c_str(), name))
        {
            return true;
        }
        begin = end + 1;
    }
    return false;
}

// A folder of files, without following anything.
int removeBare(const char* folder)
{
    DIR* const stream = opendir(folder);
    while (const dirent* const entry = readdir(stream))
    {
        if (entry->d_type == DT_REG)
        {
            unlinkat(dirfd(stream), entry->d_name, 0);
        }
    }
    closedir(stream);
    return rmdir(folder);
}

void addRemovals()
{
    constexpr long count = 10'000;
    const std::string folder = treeOfFiles(count);
    const Around filled = {[=] { fill(folder, count); }, [] {}, 1};
    const auto isGone = [=](int ours, int baseline)
    { return ours == 0 && baseline == 0 && access(folder.c_str(), F_OK) != 0; };
    addPair(
        "directories/DeleteDirectory, 10000 files", target, "rm -rf", [=] { return DeleteDirectory(folder.c_str()); },
        [=, command = "rm -rf " + folder] { return std::system(command.c_str()); }, filled, isGone);
    addPair(
        "directories/DeleteDirectory, 10000 files, beside bare calls", target, "opendir, readdir, unlinkat, rmdir",
        [=] { return DeleteDirectory(folder.c_str()); }, [=] { return removeBare(folder.c_str()); }, filled, isGone);
}

} // namespace

void addDirectories()
{
    const std::string folder = folderOfFiles(100);
    addPair(
        "directories/PathIsDirectoryW", target, "wcstombs, open",
        [name = wide(folder)] { return PathIsDirectoryW(name.c_str()); },
        [name = wide(folder)]
        {
            std::array<char, 4096> path;
            std::wcstombs(path.data(), name.c_str(), path.size());
            return open(path.data(), O_RDONLY | O_NONBLOCK | O_DIRECTORY | O_CLOEXEC);
        },
        closingDescriptors(), [](BOOL ours, int baseline) { return ours != 0 && baseline >= 0; });
    const std::string made = (scratch().path() / "made").string();
    addPair(
        "directories/CreateDirectoryW, RemoveDirectoryW", target, "mkdir, rmdir",
        [name = wide(made)] { return CreateDirectoryW(name.c_str(), nullptr) + RemoveDirectoryW(name.c_str()); },
        [=] { return mkdir(made.c_str(), 0755) + rmdir(made.c_str()); }, {},
        [](BOOL ours, int baseline) { return ours == 2 && baseline == 0; });
    addPair(
        "directories/SearchPathW, a folder given", target, "opendir, fstatat, readdir until found, closedir",
        [name = wide(folder), out = std::array<wchar_t, 1024>()]() mutable
        { return SearchPathW(name.c_str(), L"File50.txt", nullptr, 1024, out.data(), nullptr); },
        [=] { return searchFolder(folder.c_str(), "File50.txt"); }, {}, NoneZero());
    addPair(
        "directories/SearchPathW, along PATH", target,
        "readlink, getcwd, popen; opendir, fstatat, readdir until found, closedir",
        [out = std::array<wchar_t, 1024>()]() mutable
        { return SearchPathW(nullptr, L"sh", nullptr, 1024, out.data(), nullptr); },
        [] { return searchEverywhere("sh"); }, {}, NoneZero());
    addRemovals();

    // All sizes are filled before any batch: which one it will empty is not known there.
    constexpr long fewest = 20;
    const auto fillMissing = [=]
    {
        for (const long count : {fewest, fewest * 10, fewest * 100})
        {
            const std::string name = treeOfFiles(count);
            if (access(name.c_str(), F_OK) != 0)
            {
                fill(name, count);
            }
        }
    };
    addGrowth(
        "DeleteDirectory", "files", fewest,
        [](long count) { return [name = treeOfFiles(count)] { return DeleteDirectory(name.c_str()); }; },
        {fillMissing, [] {}, 1}, AllZero());
    // Nearly as deep as a path can lead.
    addGrowth("CreateDirectoryW, DeleteDirectory of nested folders", "folders", 10,
              [](long count)
              {
                  const std::string outermost = (scratch().path() / ("nested-" + std::to_string(count))).string();
                  std::string innermost = outermost;
                  for (long depth = 1; depth < count; ++depth)
                  {
                      innermost += "/d";
                  }
                  return [=, name = wide(innermost)]
                  { return CreateDirectoryW(name.c_str(), nullptr) + DeleteDirectory(outermost.c_str()); };
              },
              {[] {}, [] {}, 1});
    addGrowth("RemoveDirectoryW, missing", "characters", 40,
              [](long length) { return [name = absentName(length)] { return RemoveDirectoryW(name.c_str()); }; });
    addGrowth("PathIsDirectoryW, missing", "characters", 40,
              [](long length) { return [name = absentName(length)] { return PathIsDirectoryW(name.c_str()); }; });
    addGrowth("SetCurrentDirectoryW, GetCurrentDirectoryW", "characters", 10,
              [](long length)
              {
                  const std::string folder = folderWithName(length);
                  return [name = wide(folder), out = std::array<wchar_t, 4096>()]() mutable
                  { return SetCurrentDirectoryW(name.c_str()) != 0 && GetCurrentDirectoryW(4096, out.data()) != 0; };
              },
              {[] {}, [] { std::filesystem::current_path(scratch().path()); }});
    addGrowth("SetCurrentDirectoryW, _wgetcwd without buffer", "characters", 10,
              [](long length)
              {
                  const std::string folder = folderWithName(length);
                  return [name = wide(folder)]
                  {
                      SetCurrentDirectoryW(name.c_str());
                      std::free(_wgetcwd(nullptr, 0));
                  };
              },
              {[] {}, [] { std::filesystem::current_path(scratch().path()); }});
    addGrowth(
        "GetTempPathW", "characters", 40,
        [](long length)
        {
            return
                [folder = "/" + narrowText(length),
                 before = std::getenv("TMPDIR") == nullptr ? std::string("/tmp") : std::string(std::getenv("TMPDIR")),
                 out = wideText(length + 3)]() mutable
            {
                setenv("TMPDIR", folder.c_str(), 1);
                const DWORD result = GetTempPathW(static_cast<DWORD>(out.size()), out.data());
                setenv("TMPDIR", before.c_str(), 1);
                return result > folder.size() && result < out.size();
            };
        },
        {}, NoneZero());
    addGrowth("getEnvPATH", "entries", 10,
              [](long entries)
              {
                  std::string value = "/";
                  for (long entry = 1; entry < entries; ++entry)
                  {
                      value += ":/d";
                  }
                  return [=, before = std::string(std::getenv("PATH")),
                          directories = std::vector<CStdStr<wchar_t>>()]() mutable
                  {
                      setenv("PATH", value.c_str(), 1);
                      const bool result = getEnvPATH(directories);
                      setenv("PATH", before.c_str(), 1);
                      return result;
                  };
              });
    addGrowth("SearchPathW", "files in the folder", 100,
              [](long count)
              {
                  // The file that readdir comes upon last.
                  const std::string name = folderOfFiles(count);
                  std::filesystem::path last;
                  for (const auto& entry : std::filesystem::directory_iterator(name))
                  {
                      last = entry.path().filename();
                  }
                  return [name = wide(name), file = wide(last.string()), out = std::array<wchar_t, 1024>()]() mutable
                  { return SearchPathW(name.c_str(), file.c_str(), nullptr, 1024, out.data(), nullptr); };
              });
}

} // namespace kest::benchmarks
