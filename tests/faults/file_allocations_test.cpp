// Files, folders and paths without memory: the function fails as it does otherwise, and what is on disk stays.
#include "faults/allocation_faults.h"
#include "harness/scoped_variable.h"
#include "harness/scratch_folder.h"
#include "harness/sentinel_buffer.h"
#include "harness/stub_services.h"
#include "kest/kernel/directories.h"
#include "kest/kernel/files.h"
#include "kest/kernel/search_path.h"
#include "kest/shell_paths.h"

#include <cerrno>
#include <cstdio>
#include <cwchar>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <unistd.h>
#include <vector>

namespace
{

using namespace kest::test;
namespace fs = std::filesystem;

using WideBuffer = SentinelBuffer<wchar_t, 4200>;
using NarrowBuffer = SentinelBuffer<char, 4200>;

// Longer than a string keeps in itself.
const std::wstring longName = L"a file whose name takes its place on the heap";

// Spells every name in a new text.
class SpellingFileSystem final : public StubFileSystemService
{
public:
    BOOL PathFileExistsW(const wchar_t* path, std::wstring& actualPath) override
    {
        actualPath = std::wstring(path) + L" as it is spelled on the disk";
        return 1;
    }
    DWORD GetFileAttributesW(const wchar_t* path) override { return static_cast<DWORD>(std::wcslen(path)); }
    wchar_t* PathAddBackslashW(wchar_t* path) override
    {
        std::wcscat(path, L"/");
        return path;
    }
};

class FileAllocations : public testing::Test
{
protected:
    FileAllocations() { hub.fileSystem = &fileSystem; }

    // What the tests hand to the functions, which must not allocate.
    ScratchFolder folder;
    SpellingFileSystem fileSystem;
    StubHub hub;
    InstalledHub installed{&hub};
    WideBuffer wide;
    NarrowBuffer narrow;
    std::FILE* stream = nullptr;

    // Back to sentinels.
    void clear()
    {
        wide = WideBuffer();
        narrow = NarrowBuffer();
    }

    void expectWide(const std::wstring& written)
    {
        EXPECT_TRUE(wide.contents() == WideBuffer::startingWith(written)) << testing::PrintToString(wide.data());
    }
};

TEST_F(FileAllocations, NameNoFileThatTheyCannotAskFor)
{
    const auto spelled = static_cast<long>(longName.size() + std::wcslen(L" as it is spelled on the disk"));
    expectEveryFailureHandled(std::vector<AllocatingCall>{
        {.name = "GetFileAttributesW",
         .call = [] { return static_cast<long>(GetFileAttributesW(longName.c_str())); },
         .success = spelled,
         .failure = static_cast<long>(INVALID_FILE_ATTRIBUTES)},
        {.name = "PathFileExistsW",
         .call = [] { return static_cast<long>(PathFileExistsW(longName.c_str())); },
         .success = 1,
         .failure = 0},
    });
}

TEST_F(FileAllocations, LeaveFilesAsTheyAre)
{
    const fs::path source = folder.write("source", "new content");
    const fs::path target = folder.path() / "target";
    const std::wstring targetName = target.wstring();
    const auto writeOld = [this]
    {
        clear();
        folder.write("target", "old content");
    };
    const auto close = [this] { EXPECT_TRUE(stream == nullptr || std::fclose(stream) == 0); };
    const auto open = [this, &targetName](DWORD disposition)
    {
        const HANDLE handle = CreateFileW(targetName.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, disposition,
                                          FILE_ATTRIBUTE_NORMAL, nullptr);
        stream = handle == INVALID_HANDLE_VALUE ? nullptr : static_cast<std::FILE*>(handle);
        return stream != nullptr ? 1L : 0L;
    };
    expectEveryFailureHandled(std::vector<AllocatingCall>{
        // It reports success in every case.
        {.name = "CopyFileW",
         .call = [&targetName] { return static_cast<long>(CopyFileW(L"source", targetName.c_str(), 0)); },
         .success = 1,
         .failure = 1,
         .check =
             [this](bool)
         {
             const std::string content = folder.read("target");
             EXPECT_TRUE(content == "new content" || content == "old content") << content;
             EXPECT_EQ(folder.read("source"), "new content");
         },
         .prepare = writeOld},
        {.name = "CreateFileW, emptying",
         .call = [&open] { return open(CREATE_ALWAYS); },
         .success = 1,
         .failure = 0,
         .check = [this](bool succeeded) { EXPECT_EQ(folder.read("target"), succeeded ? "" : "old content"); },
         .prepare = writeOld,
         .release = close},
        {.name = "CreateFileW, opening",
         .call = [&open] { return open(OPEN_EXISTING); },
         .success = 1,
         .failure = 0,
         .check = [this](bool) { EXPECT_EQ(folder.read("target"), "old content"); },
         .prepare = writeOld,
         .release = close},
    });
}

// Streams do without the buffers that they cannot have.
TEST_F(FileAllocations, ReadAndWriteWithoutBuffers)
{
    HANDLE handle = nullptr;
    const auto open = [this, &handle]
    {
        folder.write("file", "content");
        handle = CreateFileW(L"file", GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL,
                             nullptr);
        ASSERT_NE(handle, INVALID_HANDLE_VALUE);
    };
    const auto close = [&handle] { EXPECT_EQ(CloseHandle(handle), 1); };
    const auto row =
        [&](const char* name, long success, long failure, std::function<long()> call, const char* left = "content")
    {
        return AllocatingCall{.name = name,
                              .call = std::move(call),
                              .success = success,
                              .failure = failure,
                              .prepare = open,
                              .release = [=, this]
                              {
                                  close();
                                  EXPECT_EQ(folder.read("file"), left);
                              }};
    };
    expectEveryFailureHandled(std::vector<AllocatingCall>{
        row("ReadFile", 1, 0,
            [&handle]
            {
                char read[7] = {};
                DWORD count = 0;
                return ReadFile(handle, read, 7, &count, nullptr) == 1 && std::string_view(read, 7) == "content" ? 1L
                                                                                                                 : 0L;
            }),
        row(
            "WriteFile", 1, 0,
            [&handle]
            {
                DWORD count = 0;
                return static_cast<long>(WriteFile(handle, "another", 7, &count, nullptr));
            },
            "another"),
        row("SetFilePointer", 0, -1,
            [&handle] { return static_cast<long>(SetFilePointer(handle, 3, nullptr, FILE_BEGIN)); }),
        row("GetFileSize", 7, static_cast<long>(INVALID_FILE_SIZE),
            [&handle] { return static_cast<long>(GetFileSize(handle, nullptr)); }),
        row("GetFileInformationByHandle", 7, 0,
            [&handle]
            {
                BY_HANDLE_FILE_INFORMATION information;
                return GetFileInformationByHandle(handle, &information) == 1
                           ? static_cast<long>(information.nFileSizeLow)
                           : 0L;
            }),
    });
}

TEST_F(FileAllocations, RemoveNoMoreThanTheyCouldLookAt)
{
    expectEveryFailureHandled(
        AllocatingCall{.name = "DeleteDirectory",
                       .call = [] { return static_cast<long>(DeleteDirectory("tree")); },
                       .success = 0,
                       .failure = 0,
                       .check = [this](bool) { EXPECT_EQ(folder.read("beside"), "stays"); },
                       .prepare =
                           [this]
                       {
                           folder.write("tree/a folder whose name takes its place on the heap/deeper down/file", "1");
                           folder.write("tree/another folder of a long name, too/file", "2");
                           folder.write("beside", "stays");
                       },
                       .release = [] { fs::remove_all("tree"); }});
}

TEST_F(FileAllocations, MakeNoTemporaryFileWithoutItsName)
{
    const std::wstring directory = folder.path().wstring() + L"/";
    const std::string narrowDirectory = folder.path().string() + "/";
    expectEveryFailureHandled(std::vector<AllocatingCall>{
        {.name = "GetTempFileNameA",
         .call = [&] { return static_cast<long>(GetTempFileNameA(narrowDirectory.c_str(), "x", 7, narrow.data())); },
         .success = static_cast<long>(narrowDirectory.size()) + 6,
         .failure = 0,
         .check =
             [&](bool succeeded)
         {
             EXPECT_TRUE(narrow.contents() ==
                         NarrowBuffer::startingWith(succeeded ? narrowDirectory + "x7.tmp" + '\0' : std::string()));
         },
         .prepare = [this] { clear(); }},
        {.name = "GetTempFileNameW",
         .call = [&] { return static_cast<long>(GetTempFileNameW(directory.c_str(), L"x", 7, wide.data())); },
         .success = static_cast<long>(directory.size()) + 6,
         .failure = 0,
         .check =
             [&](bool succeeded)
         {
             expectWide(succeeded ? directory + L"x7.tmp" + L'\0' : std::wstring());
             EXPECT_EQ(fs::exists("x7.tmp"), succeeded);
         },
         .prepare = [this] { clear(); },
         .release =
             [this]
         {
             // The one that the function leaves open.
             const auto isTheFile = [this](const fs::directory_entry& entry)
             {
                 std::error_code gone;
                 return fs::read_symlink(entry.path(), gone) == folder.path() / "x7.tmp";
             };
             int left = -1;
             for (const auto& entry : fs::directory_iterator("/proc/self/fd"))
             {
                 left = isTheFile(entry) ? std::stoi(entry.path().filename()) : left;
             }
             close(left);
             fs::remove("x7.tmp");
         }},
    });
}

TEST_F(FileAllocations, ComposeWholePathsOrNone)
{
    const std::wstring directory = folder.path().wstring();
    const std::wstring joined = directory + L"/" + longName + L'\0';
    expectEveryFailureHandled(AllocatingCall{
        .name = "PathCombineW",
        .call = [&] { return PathCombineW(wide.data(), directory.c_str(), longName.c_str()) == wide.data() ? 1L : 0L; },
        .success = 1,
        .failure = 0,
        .check = [&](bool succeeded) { expectWide(succeeded ? joined : std::wstring()); },
        .prepare = [this] { clear(); }});
    // Appending needs none.
    const FailingAllocation failing(1, FailingAllocation::Extent::thisOneAndAllBehindIt);
    clear();
    std::wmemcpy(wide.data(), directory.c_str(), directory.size() + 1);
    errno = 77;
    EXPECT_EQ(PathAppendW(wide.data(), longName.c_str()), 1);
    EXPECT_EQ(errno, 77);
    EXPECT_FALSE(failing.reached());
    EXPECT_EQ(std::wcscmp(wide.data(), joined.c_str()), 0);
}

TEST_F(FileAllocations, KeepTheLastErrorWhereThatIsPromised)
{
    const FailingAllocation failing(1, FailingAllocation::Extent::thisOneAndAllBehindIt);
    errno = 77;
    EXPECT_EQ(PathCombineW(wide.data(), longName.c_str(), longName.c_str()), nullptr);
    EXPECT_EQ(GetFileAttributesW(longName.c_str()), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(PathFileExistsW(longName.c_str()), 0);
    EXPECT_EQ(GetTempFileNameW(longName.c_str(), L"x", 7, wide.data()), 0U);
    EXPECT_EQ(errno, 77);
    EXPECT_TRUE(failing.reached());
}

TEST_F(FileAllocations, FindTheFirstDirectoryOrNone)
{
    const std::wstring directory = folder.path().wstring();
    folder.write(longName, "content");
    const std::wstring found = directory + L"/" + longName;
    const fs::path program = fs::read_symlink("/proc/self/exe");
    const ScopedVariable searched("PATH", "/usr/bin:/a directory that is not there:/bin");
    CStdStr<wchar_t> path;
    std::vector<CStdStr<wchar_t>> directories;
    const auto drop = [&path, &directories]
    {
        path = CStdStr<wchar_t>();
        path.shrink_to_fit();
        directories = {};
        KestPlatformCStringManager::destroyInstance();
    };
    expectEveryFailureHandled(std::vector<AllocatingCall>{
        {.name = "getCurProcessFilePath",
         .call = [&path] { return getCurProcessFilePath(path) ? 1L : 0L; },
         .success = 1,
         .failure = 0,
         .check = [&](bool succeeded) { EXPECT_EQ(path, succeeded ? program.wstring() : std::wstring()); },
         .release = drop},
        {.name = "getCurProcessDirPath",
         .call = [&path] { return getCurProcessDirPath(path) ? 1L : 0L; },
         .success = 1,
         .failure = 0,
         .check = [&](bool succeeded)
         { EXPECT_EQ(path, succeeded ? program.parent_path().wstring() + L"/" : std::wstring()); },
         .release = drop},
        {.name = "findFile",
         .call = [&] { return findFile(directory.c_str(), longName.c_str()) ? 1L : 0L; },
         .success = 1,
         .failure = 0},
        {.name = "getEnvPATH",
         .call = [&directories] { return getEnvPATH(directories) ? 1L : 0L; },
         .success = 1,
         .failure = 0,
         .check =
             [&](bool succeeded)
         {
             EXPECT_LE(directories.size(), 3U);
             EXPECT_TRUE(!succeeded || directories.size() == 3);
         },
         .release = drop},
        {.name = "SearchPathW in a directory",
         .call =
             [&] {
                 return static_cast<long>(
                     SearchPathW(directory.c_str(), longName.c_str(), nullptr, 4200, wide.data(), nullptr));
             },
         .success = static_cast<long>(found.size()),
         .failure = 0,
         .check = [&](bool succeeded) { expectWide(succeeded ? found : std::wstring()); },
         .prepare = [this] { clear(); },
         .release = drop},
    });
}

// The C library resolves long paths in blocks of its own. What it cannot resolve stays as it is.
TEST_F(FileAllocations, ResolveLongPathsOrAnswerTheName)
{
    fs::path deep = folder.path();
    for (int level = 0; level < 8; ++level)
    {
        deep /= std::string(200, 'd');
    }
    fs::create_directories(deep);
    const std::string name = deep.lexically_relative(folder.path()).string();
    const std::wstring wideName = fs::path(name).wstring();
    const auto prepare = [this] { clear(); };
    const auto resolved = static_cast<long>(deep.string().size());
    const auto unresolved = static_cast<long>(name.size());
    expectEveryFailureHandled(std::vector<AllocatingCall>{
        {.name = "GetFullPathNameW",
         .call = [&] { return static_cast<long>(GetFullPathNameW(wideName.c_str(), 4200, wide.data(), nullptr)); },
         .success = resolved,
         .failure = unresolved,
         .check = [&](bool succeeded) { expectWide((succeeded ? deep.wstring() : wideName) + L'\0'); },
         .prepare = prepare},
        {.name = "GetFullPathNameA",
         .call = [&] { return static_cast<long>(GetFullPathNameA(name.c_str(), 4200, narrow.data(), nullptr)); },
         .success = resolved,
         .failure = unresolved,
         .check = [&](bool succeeded) { EXPECT_EQ(narrow.data(), succeeded ? deep.string() : name); },
         .prepare = prepare},
    });
}

// In the current directory stands a file of the program's name: it is not taken for the program's own.
TEST_F(FileAllocations, SearchNoFurtherThanWhereTheyCouldNotLook)
{
    const fs::path program = fs::read_symlink("/proc/self/exe");
    const std::wstring name = program.filename().wstring();
    folder.write(program.filename(), "no program");
    KestPlatformCStringManager::getInstance();
    EXPECT_EQ(SearchPathW(nullptr, name.c_str(), nullptr, 0, nullptr, nullptr), program.wstring().size());
    const FailingAllocation failing(1, FailingAllocation::Extent::thisOne);
    EXPECT_EQ(SearchPathW(nullptr, name.c_str(), nullptr, 0, nullptr, nullptr), 0U);
}

} // namespace
