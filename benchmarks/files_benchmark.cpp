// File functions beside the same system calls made bare.
#include "families.h"
#include "kest/kernel/directories.h"
#include "kest/kernel/files.h"
#include "kest/shell_paths.h"
#include "pairs.h"
#include "surroundings.h"

#include <array>
#include <climits>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace kest::benchmarks
{

namespace
{

constexpr double target = 1.3;
constexpr long block = 65536;
constexpr long kibibyte = 1024;
constexpr long mebibyte = 1024 * kibibyte;

// What CreateFileW promises to find out before it hands out an open file.
int openAskingFirst(const char* path)
{
    struct stat status;
    if (access(path, R_OK) != 0 || stat(path, &status) != 0 || S_ISDIR(status.st_mode))
    {
        return -1;
    }
    const int descriptor = open(path, O_RDWR);
    struct flock range = {};
    range.l_type = F_WRLCK;
    fcntl(descriptor, F_GETLK, &range);
    flock(descriptor, LOCK_EX | LOCK_NB);
    flock(descriptor, LOCK_UN | LOCK_NB);
    return descriptor;
}

HANDLE openExisting(const std::wstring& name)
{
    return CreateFileW(name.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
}

ssize_t copyInKernel(const char* source, const char* destination)
{
    const int in = open(source, O_RDONLY);
    const int out = open(destination, O_WRONLY | O_CREAT | O_TRUNC, 0666);
    ssize_t copied = 0;
    while (const ssize_t count = copy_file_range(in, nullptr, out, nullptr, INT_MAX, 0))
    {
        if (count < 0)
        {
            return count;
        }
        copied += count;
    }
    close(in);
    close(out);
    return copied;
}

void addCopies(const std::string& size, long bytes, double copyTarget)
{
    addPreparedPair(
        "files/CopyFileW, " + size, copyTarget, "open twice, copy_file_range, close",
        [=]
        {
            const std::string source = fileOfSize(bytes);
            const std::string copy = source + "-copy";
            return std::pair([source = wide(source), copy = wide(copy)]
                             { return CopyFileW(source.c_str(), copy.c_str(), 0); },
                             [=] { return copyInKernel(source.c_str(), copy.c_str()); });
        },
        {}, [=](BOOL ours, ssize_t baseline) { return ours != 0 && baseline == bytes; });
}

} // namespace

void addFiles()
{
    const std::string small = fileOfSize(4 * kibibyte);
    const std::string large = fileOfSize(mebibyte);
    addPair(
        "files/CreateFileW, CloseHandle", target, "access, stat, open, fcntl, flock twice, close",
        [name = wide(small)] { return CloseHandle(openExisting(name)); },
        [=] { return close(openAskingFirst(small.c_str())); }, {},
        [](BOOL ours, int baseline) { return ours != 0 && baseline == 0; });
    addPair(
        "files/CreateFileW, GetFileSize, CloseHandle", target, "the same, lseek twice before close",
        [name = wide(small)]
        {
            const HANDLE file = openExisting(name);
            const DWORD size = GetFileSize(file, nullptr);
            CloseHandle(file);
            return size;
        },
        [=]
        {
            const int file = openAskingFirst(small.c_str());
            lseek(file, 0, SEEK_END);
            const off_t size = lseek(file, 0, SEEK_CUR);
            close(file);
            return size;
        },
        {}, [](DWORD ours, off_t baseline) { return ours == 4 * kibibyte && baseline == 4 * kibibyte; });

    const HANDLE file = openExisting(wide(large));
    const int descriptor = open(large.c_str(), O_RDONLY);
    const auto addRead = [=](const std::string& name, long count)
    {
        addPair(
            name, target, "lseek and read a MiB",
            [=, bytes = std::string(static_cast<std::size_t>(count), '\0')]() mutable
            {
                DWORD read = 0;
                long sum = 0;
                SetFilePointer(file, 0, nullptr, SEEK_SET);
                while (ReadFile(file, bytes.data(), static_cast<DWORD>(count), &read, nullptr) != 0)
                {
                    sum += read;
                }
                return sum;
            },
            [=, bytes = std::string(block, '\0')]() mutable
            {
                long sum = 0;
                lseek(descriptor, 0, SEEK_SET);
                while (const ssize_t taken = read(descriptor, bytes.data(), bytes.size()))
                {
                    if (taken < 0)
                    {
                        return taken;
                    }
                    sum += taken;
                }
                return sum;
            },
            {}, [](long ours, long baseline) { return ours == mebibyte && baseline == mebibyte; });
    };
    addRead("files/ReadFile a MiB, 64 KiB a call", block);
    addPair(
        "files/GetFullPathNameW", target, "wcstombs, realpath, stat, mbstowcs",
        [name = wide(small), out = std::array<wchar_t, PATH_MAX>()]() mutable
        {
            wchar_t* part = nullptr;
            return GetFullPathNameW(name.c_str(), PATH_MAX, out.data(), &part);
        },
        [name = wide(small), out = std::array<wchar_t, PATH_MAX>()]() mutable
        {
            std::array<char, PATH_MAX> path;
            std::array<char, PATH_MAX> resolved;
            struct stat status;
            std::wcstombs(path.data(), name.c_str(), path.size());
            benchmark::DoNotOptimize(realpath(path.data(), resolved.data()));
            stat(resolved.data(), &status);
            return std::mbstowcs(out.data(), resolved.data(), out.size());
        },
        {}, EqualResults());
    addPair(
        "files/GetFileAttributesA", target, "stat", [=] { return GetFileAttributesA(small.c_str()); },
        [=]
        {
            struct stat status;
            return stat(small.c_str(), &status) == 0 ? status.st_mode : INVALID_FILE_ATTRIBUTES;
        },
        {}, [](DWORD ours, DWORD baseline) { return ours == baseline && ours != INVALID_FILE_ATTRIBUTES; });
    addCopies("4 KiB", 4 * kibibyte, 1.3);
    addCopies("64 MiB", 64 * mebibyte, 1.1);

    addGrowth(
        "CopyFileW", "bytes", 64 * kibibyte,
        [](long bytes)
        {
            const std::wstring source = wide(fileOfSize(bytes));
            return [=, copy = source + L"-copy"] { return CopyFileW(source.c_str(), copy.c_str(), 0); };
        },
        {}, NoneZero());
    // Components of one character, as many as a path can have.
    const auto dots = [](long length)
    {
        std::string name;
        while (name.size() < static_cast<std::size_t>(length))
        {
            name += "./";
        }
        return name;
    };
    addGrowth(
        "GetFileAttributesW", "characters", 10,
        [=](long length) { return [name = wide(dots(length))] { return GetFileAttributesW(name.c_str()); }; }, {},
        [](DWORD result) { return result != INVALID_FILE_ATTRIBUTES; });
    addGrowth(
        "PathFileExistsW", "characters", 10,
        [=](long length) { return [name = wide(dots(length))] { return PathFileExistsW(name.c_str()); }; }, {},
        NoneZero());
    addGrowth(
        "CreateFileW, missing", "characters", 40,
        [](long length) { return [name = absentName(length)] { return openExisting(name); }; }, {},
        [](HANDLE result) { return result == INVALID_HANDLE_VALUE; });
    addGrowth(
        "DeleteFileW, missing", "characters", 40,
        [](long length) { return [name = absentName(length)] { return DeleteFileW(name.c_str()); }; }, {}, AllZero());
    const auto growTransfer = [](const std::string& name, auto transfer)
    {
        addGrowth(
            name, "bytes", 16 * kibibyte,
            [=](long bytes)
            {
                const HANDLE stream = openExisting(wide(fileOfSize(bytes)));
                return [=, content = narrowText(bytes)]() mutable
                {
                    DWORD count = 0;
                    SetFilePointer(stream, 0, nullptr, SEEK_SET);
                    return transfer(stream, content.data(), static_cast<DWORD>(bytes), &count, nullptr) != 0 &&
                           count == bytes;
                };
            },
            {}, NoneZero());
    };
    growTransfer("ReadFile", ReadFile);
    growTransfer("WriteFile", WriteFile);
    addGrowth(
        "GetFullPathNameW", "characters", 10,
        [=](long length)
        {
            return [name = wide(dots(length)), out = std::array<wchar_t, PATH_MAX>()]() mutable
            { return GetFullPathNameW(name.c_str(), PATH_MAX, out.data(), nullptr); };
        },
        {}, NoneZero());
    addGrowth(
        "GetFullPathNameA", "bytes", 10,
        [=](long length)
        {
            return [name = dots(length), out = std::array<char, PATH_MAX>()]() mutable
            { return GetFullPathNameA(name.c_str(), PATH_MAX, out.data(), nullptr); };
        },
        {}, NoneZero());
    // The name is longer than what it resolves to, and kept; the file part is then looked for in it.
    addGrowth(
        "GetFullPathNameW, of a missing file", "characters", 40,
        [](long length)
        {
            return [name = absentName(length), out = std::array<wchar_t, PATH_MAX>()]() mutable
            {
                wchar_t* part = nullptr;
                GetFullPathNameW(name.c_str(), PATH_MAX, out.data(), &part);
                return part;
            };
        },
        {}, NoneZero());
    addGrowth(
        "GetFullPathNameA, of a missing file", "bytes", 40,
        [](long length)
        {
            const std::wstring name = absentName(length);
            return [name = std::string(name.begin(), name.end()), out = std::array<char, PATH_MAX>()]() mutable
            {
                char* part = nullptr;
                GetFullPathNameA(name.c_str(), PATH_MAX, out.data(), &part);
                return part;
            };
        },
        {}, NoneZero());
    addGrowth(
        "GetTempFileNameW", "characters", 40,
        [](long length)
        {
            return [folder = absentName(length), out = std::array<wchar_t, 2 * PATH_MAX>()]() mutable
            { return GetTempFileNameW(folder.c_str(), L"pre", 1, out.data()); };
        },
        {}, NoneZero());
    addGrowth(
        "GetTempFileNameA", "bytes", 40,
        [](long length)
        {
            return [folder = narrowText(length), out = std::array<char, 2 * PATH_MAX>()]() mutable
            { return GetTempFileNameA(folder.c_str(), "pre", 1, out.data()); };
        },
        {}, NoneZero());
}

} // namespace kest::benchmarks
