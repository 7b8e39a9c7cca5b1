#include "kest/kernel/search_path.h"
#include "fs/directory_stream.h"
#include "kest/kernel/environment.h"
#include "kest/platform_services.h"
#include "kest/shell_paths.h"
#include "support/forwarding.h"
#include "support/out_of_memory.h"
#include "support/second_name.h"
#include "support/text.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <cwchar>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

// Bytes of the running program's path, its terminator included.
constexpr std::size_t programPathSize = 1024;

// Characters of PATH, and of one of its entries: with the separator that is added and the terminator an entry takes
// two more.
constexpr std::size_t environmentSize = 10240;
constexpr std::size_t longestEntry = 1023;

// Bytes of findFile's arguments, their terminators included.
constexpr std::size_t argumentSize = 1025;

// Characters asked for of the current directory.
constexpr DWORD currentDirectorySize = 1024;

// Below this length a directory is not a hit.
constexpr std::size_t shortestDirectory = 2;

bool isMissing(int directory, const char* name)
{
    struct stat status;
    return fstatat(directory, name, &status, AT_SYMLINK_NOFOLLOW) != 0 && errno == ENOENT;
}

// These three let std::bad_alloc out: the search must end over it, or it would take a later directory for the first.

bool readProgramPath(CStdStr<wchar_t>& path)
{
    std::array<char, programPathSize> link;
    const ssize_t length = readlink("/proc/self/exe", link.data(), link.size());
    if (length < 1 || static_cast<std::size_t>(length) >= link.size())
    {
        return false;
    }
    link[static_cast<std::size_t>(length)] = '\0';
    std::array<wchar_t, programPathSize> wide;
    kest::widenTerminated(wide.data(), link.data(), wide.size());
    path = wide.data();
    return !path.empty();
}

bool readProgramDirectory(CStdStr<wchar_t>& directory)
{
    CStdStr<wchar_t> path;
    if (!readProgramPath(path))
    {
        return false;
    }
    const std::size_t separator = path.rfind(L'/');
    if (separator == std::wstring::npos)
    {
        return false;
    }
    directory.assign(path, 0, separator + 1);
    return true;
}

bool listPathDirectories(std::vector<CStdStr<wchar_t>>& directories)
{
    std::array<wchar_t, environmentSize> value = {};
    if (GetEnvironmentVariableW(L"PATH", value.data(), environmentSize - 1) == 0)
    {
        return false;
    }
    directories.clear();
    std::array<wchar_t, longestEntry + 2> entry = {};
    std::size_t length = 0;
    for (const wchar_t character : value)
    {
        if (character == L'\n')
        {
            continue;
        }
        if (character != L':' && character != L'\0')
        {
            if (length == longestEntry)
            {
                return false;
            }
            entry[length++] = character;
            continue;
        }
        PathAddBackslashW(entry.data());
        directories.emplace_back(entry.data());
        if (character == L'\0')
        {
            return true;
        }
        entry.fill(L'\0');
        length = 0;
    }
    return false;
}

bool findInPath(const wchar_t* fileName, CStdStr<wchar_t>& directory)
{
    std::vector<CStdStr<wchar_t>> candidates;
    if (!listPathDirectories(candidates))
    {
        return false;
    }
    for (const CStdStr<wchar_t>& candidate : candidates)
    {
        if (findFile(candidate.c_str(), fileName))
        {
            directory = candidate;
            return true;
        }
    }
    return false;
}

bool findInCurrentDirectory(const wchar_t* fileName, CStdStr<wchar_t>& directory)
{
    std::array<wchar_t, currentDirectorySize> current;
    const DWORD length = GetCurrentDirectoryW(currentDirectorySize, current.data());
    if (length < 1 || length >= currentDirectorySize || !findFile(current.data(), fileName))
    {
        return false;
    }
    directory.assign(current.data(), length);
    return true;
}

// The directory that has the file; false when none has.
bool findDirectory(const wchar_t* path, const wchar_t* fileName, CStdStr<wchar_t>& directory)
{
    if (path != nullptr)
    {
        directory = path;
        return findFile(path, fileName);
    }
    return (readProgramDirectory(directory) && findFile(directory.c_str(), fileName)) ||
           findInCurrentDirectory(fileName, directory) || findInPath(fileName, directory);
}

DWORD search(const wchar_t* path, const wchar_t* fileName, DWORD bufferLength, wchar_t* buffer)
{
    CStdStr<wchar_t> found;
    if (!findDirectory(path, fileName, found) || found.size() < shortestDirectory)
    {
        return 0;
    }
    if (found.back() != L'/')
    {
        found += L'/';
    }
    found += fileName;
    if (bufferLength > found.size())
    {
        std::wmemcpy(buffer, found.data(), found.size());
    }
    return static_cast<DWORD>(found.size());
}

} // namespace

bool getCurProcessFilePath(CStdStr<wchar_t>& path)
{
    return kest::answerWithoutMemory(false, [&] { return readProgramPath(path); });
}

bool getCurProcessDirPath(CStdStr<wchar_t>& dir)
{
    return kest::answerWithoutMemory(false, [&] { return readProgramDirectory(dir); });
}

bool getEnvPATH(std::vector<CStdStr<wchar_t>>& dirs)
{
    return kest::answerWithoutMemory(false, [&] { return listPathDirectories(dirs); });
}

bool findFile(const wchar_t* dir, const wchar_t* name)
{
    const kest::FixedNarrowText<argumentSize> directory(dir);
    const kest::FixedNarrowText<argumentSize> wanted(name);
    const kest::DirectoryStream stream(opendir(directory.c_str()));
    // What the system does not find need not be looked for; what it finds may be spelled differently in the directory.
    if (stream == nullptr || isMissing(dirfd(stream.get()), wanted.c_str()))
    {
        return false;
    }
    while (const dirent* const entry = readdir(stream.get()))
    {
        if (std::strcmp(entry->d_name, wanted.c_str()) == 0)
        {
            return true;
        }
    }
    return false;
}

BOOL PathFileExistsW(const wchar_t* path)
{
    return kest::answerWithoutMemory(0,
                                     [path]
                                     {
                                         std::wstring actualPath;
                                         return kest::forward(&IPlatformServices::fileSystemService,
                                                              &IFileSystemService::PathFileExistsW, path, actualPath);
                                     });
}

DWORD SearchPathW(const wchar_t* path, const wchar_t* fileName, const wchar_t*, DWORD bufferLength, wchar_t* buffer,
                  wchar_t**)
{
    return kest::answerWithoutMemory(DWORD{0}, [=] { return search(path, fileName, bufferLength, buffer); });
}

KEST_SECOND_NAME(bool plainGetCurProcessFilePath(CStdStr<wchar_t>&), "_Z21getCurProcessFilePathR7CStdStrIwE",
                 "getCurProcessFilePath");
KEST_SECOND_NAME(bool plainGetCurProcessDirPath(CStdStr<wchar_t>&), "_Z20getCurProcessDirPathR7CStdStrIwE",
                 "getCurProcessDirPath");
KEST_SECOND_NAME(bool plainGetEnvPath(std::vector<CStdStr<wchar_t>>&), "_Z10getEnvPATHRSt6vectorI7CStdStrIwESaIS1_EE",
                 "getEnvPATH");
KEST_SECOND_NAME(bool plainFindFile(const wchar_t*, const wchar_t*), "_Z8findFilePKwS0_", "findFile");
