#include "harness/child_program.h"
#include "harness/in_child.h"
#include "harness/open_descriptors.h"
#include "harness/ordinary_user.h"
#include "harness/scoped_locale.h"
#include "harness/scoped_variable.h"
#include "harness/scratch_folder.h"
#include "harness/sentinel_buffer.h"
#include "harness/stub_services.h"
#include "kest/kernel/search_path.h"
#include "kest/shell_paths.h"

#include <cstdio>
#include <cwchar>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace
{

namespace fs = std::filesystem;

using kest::test::InstalledHub;
using kest::test::openDescriptorCount;
using kest::test::ScopedLocale;
using kest::test::ScopedVariable;
using kest::test::ScratchFolder;
using kest::test::statusInChild;
using kest::test::statusOfOrdinaryUser;
using kest::test::StubFileSystemService;
using kest::test::StubHub;
using Buffer = kest::test::SentinelBuffer<wchar_t, 1200>;
using Strings = std::vector<std::wstring>;

// Ends every path with a slash, the empty one included; notes what it is given.
class AddsSlashes : public StubFileSystemService
{
public:
    wchar_t* PathAddBackslashW(wchar_t* path) override
    {
        given.emplace_back(path);
        const std::size_t length = std::wcslen(path);
        if (length == 0 || path[length - 1] != L'/')
        {
            path[length] = L'/';
            path[length + 1] = L'\0';
        }
        return path + std::wcslen(path);
    }
    BOOL PathFileExistsW(const wchar_t* path, std::wstring& actualPath) override
    {
        asked = path;
        givenActualPath = actualPath;
        actualPath = L"dropped";
        return 5;
    }

    Strings given;
    const wchar_t* asked = nullptr;
    std::wstring givenActualPath = L"none";
};

class SearchPath : public testing::Test
{
protected:
    SearchPath() : installed_(&hub_) { hub_.fileSystem = &service_; }

    // The absolute path of a name in the scratch folder.
    std::wstring inFolder(const std::wstring& name) const { return folder_.path().wstring() + L"/" + name; }

    const ScratchFolder folder_;
    AddsSlashes service_;
    StubHub hub_;
    const InstalledHub installed_;
};

// ---- The running program ----------------------------------------------------------------------------------------

fs::path testProgram()
{
    return fs::read_symlink("/proc/self/exe");
}

// What the location program says, started at a path of its own.
std::string toldAt(const fs::path& program, const std::string& what, const std::string& locale = "C.UTF-8")
{
    fs::create_directories(program.parent_path());
    fs::copy_file(KEST_LOCATION_PROGRAM, program, fs::copy_options::overwrite_existing);
    const std::string command = kest::test::emulatorPrefix() + "'" + program.string() + "' " + what + " " + locale;
    FILE* const pipe = popen(command.c_str(), "r");
    if (pipe == nullptr)
    {
        throw std::runtime_error(command);
    }
    std::string told(8192, '\0');
    told.resize(fread(told.data(), 1, told.size(), pipe));
    EXPECT_EQ(pclose(pipe), 0) << command;
    return told;
}

// A path of the given length, in bytes, for a program in the folder.
fs::path programPath(const fs::path& folder, std::size_t length)
{
    std::string path = folder.string();
    while (path.size() + 202 < length)
    {
        path += "/" + std::string(200, 'd');
    }
    return path + "/" + std::string(length - path.size() - 1, 'p');
}

TEST(ProgramPath, IsThatOfThisProgram)
{
    CStdStr<wchar_t> path(L"before");
    EXPECT_TRUE(getCurProcessFilePath(path));
    EXPECT_EQ(path, testProgram().wstring());
    CStdStr<wchar_t> directory(L"before");
    EXPECT_TRUE(getCurProcessDirPath(directory));
    EXPECT_EQ(directory, testProgram().parent_path().wstring() + L"/");
}

TEST(ProgramPath, FollowsTheProgram)
{
    const ScratchFolder folder;
    const fs::path program = folder.path() / "opt/app/bin/run";
    EXPECT_EQ(toldAt(program, "file"), "1 " + program.string());
    EXPECT_EQ(toldAt(program, "directory"), "1 " + folder.path().string() + "/opt/app/bin/");
}

TEST(ProgramPath, IsConvertedAsFarAsTheLocaleGoes)
{
    const ScratchFolder folder;
    const fs::path program = folder.path() / "a\xC3\xA4\xE4\xB8\x96/run";
    EXPECT_EQ(toldAt(program, "file"), "1 " + program.string());
    EXPECT_EQ(toldAt(program, "directory"), "1 " + program.parent_path().string() + "/");
    EXPECT_EQ(toldAt(program, "file", "C"), "1 " + folder.path().string() + "/a");
    EXPECT_EQ(toldAt(program, "directory", "C"), "1 " + folder.path().string() + "/");
}

TEST(ProgramPath, IsToldUpTo1023Bytes)
{
    const ScratchFolder folder;
    const fs::path longest = programPath(folder.path(), 1023);
    EXPECT_EQ(toldAt(longest, "file"), "1 " + longest.string());
    EXPECT_EQ(toldAt(longest, "directory"), "1 " + longest.parent_path().string() + "/");
    const fs::path tooLong = programPath(folder.path(), 1024);
    EXPECT_EQ(toldAt(tooLong, "file"), "0 before");
    EXPECT_EQ(toldAt(tooLong, "directory"), "0 before");
}

// ---- PATH -------------------------------------------------------------------------------------------------------

Strings plain(const std::vector<CStdStr<wchar_t>>& dirs)
{
    return {dirs.begin(), dirs.end()};
}

TEST_F(SearchPath, ListsThePathWithSeparators)
{
    const ScopedVariable path("PATH", "/bin:/usr/bin/:relative");
    std::vector<CStdStr<wchar_t>> dirs = {L"before"};
    const std::size_t before = openDescriptorCount();
    EXPECT_TRUE(getEnvPATH(dirs));
    EXPECT_EQ(plain(dirs), (Strings{L"/bin/", L"/usr/bin/", L"relative/"}));
    EXPECT_EQ(service_.given, (Strings{L"/bin", L"/usr/bin/", L"relative"}));
    EXPECT_EQ(openDescriptorCount(), before);
}

TEST_F(SearchPath, KeepsEmptyEntriesAndDuplicates)
{
    std::vector<CStdStr<wchar_t>> dirs;
    {
        const ScopedVariable path("PATH", "/bin::/usr/bin");
        EXPECT_TRUE(getEnvPATH(dirs));
        EXPECT_EQ(plain(dirs), (Strings{L"/bin/", L"/", L"/usr/bin/"}));
    }
    {
        const ScopedVariable path("PATH", ":/bin:/bin:");
        EXPECT_TRUE(getEnvPATH(dirs));
        EXPECT_EQ(plain(dirs), (Strings{L"/", L"/bin/", L"/bin/", L"/"}));
    }
    const ScopedVariable path("PATH", "");
    EXPECT_TRUE(getEnvPATH(dirs));
    EXPECT_EQ(plain(dirs), Strings{L"/"});
    EXPECT_EQ(service_.given, (Strings{L"/bin", L"", L"/usr/bin", L"", L"/bin", L"/bin", L"", L""}));
}

TEST_F(SearchPath, ConvertsEntries)
{
    const ScopedLocale locale("C.UTF-8");
    const ScopedVariable path("PATH", "/\xC3\xA4:/\xE4\xB8\x96");
    std::vector<CStdStr<wchar_t>> dirs;
    EXPECT_TRUE(getEnvPATH(dirs));
    EXPECT_EQ(plain(dirs), (Strings{L"/\u00e4/", L"/\u4e16/"}));
}

TEST_F(SearchPath, TakesEntriesOf1023Characters)
{
    std::vector<CStdStr<wchar_t>> dirs;
    {
        const ScopedVariable path("PATH", ("/a:" + std::string(1023, 'b') + ":/c").c_str());
        EXPECT_TRUE(getEnvPATH(dirs));
        EXPECT_EQ(plain(dirs), (Strings{L"/a/", std::wstring(1023, L'b') + L"/", L"/c/"}));
    }
    const ScopedVariable path("PATH", ("/a:/b:" + std::string(1024, 'b') + ":/c").c_str());
    EXPECT_FALSE(getEnvPATH(dirs));
    EXPECT_EQ(plain(dirs), (Strings{L"/a/", L"/b/"}));
}

TEST_F(SearchPath, EndsWhereTheShellsLineIsCut)
{
    const std::string thousand(999, 'a');
    const ScopedVariable path("PATH",
                              (thousand + ":" + thousand + ":" + thousand + ":" + thousand + ":" + thousand).c_str());
    std::vector<CStdStr<wchar_t>> dirs;
    EXPECT_TRUE(getEnvPATH(dirs));
    ASSERT_EQ(dirs.size(), 5U);
    EXPECT_EQ(dirs[3], std::wstring(999, L'a') + L"/");
    EXPECT_EQ(dirs[4], std::wstring(95, L'a') + L"/");
}

TEST_F(SearchPath, LeavesTheListWhenNoShellStarts)
{
    EXPECT_EQ(statusInChild(
                  []
                  {
                      const rlimit none = {0, 0};
                      ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &none), 0);
                      std::vector<CStdStr<wchar_t>> dirs = {L"before"};
                      EXPECT_FALSE(getEnvPATH(dirs));
                      EXPECT_EQ(plain(dirs), Strings{L"before"});
                  }),
              0);
}

TEST_F(SearchPath, ReportsItsStrings)
{
    const ScopedVariable path("PATH", "/one:/two:/three");
    KestPlatformCStringManager::destroyInstance();
    std::vector<CStdStr<wchar_t>> dirs;
    EXPECT_TRUE(getEnvPATH(dirs));
    for (const CStdStr<wchar_t>& dir : dirs)
    {
        EXPECT_TRUE(KestPlatformCStringManager::getInstance()->isElementValid(&dir));
    }
    KestPlatformCStringManager::destroyInstance();
}

// ---- findFile ---------------------------------------------------------------------------------------------------

TEST(FindingFiles, ComparesNamesExactly)
{
    const ScratchFolder folder;
    folder.write("d/foo.txt", "");
    folder.write("d/sub/other", "");
    ASSERT_EQ(symlink("missing", "d/dangling"), 0);
    const std::size_t before = openDescriptorCount();
    EXPECT_TRUE(findFile(L"d", L"foo.txt"));
    EXPECT_TRUE(findFile(L"d/", L"foo.txt"));
    EXPECT_TRUE(findFile(L"d", L"sub"));
    EXPECT_TRUE(findFile(L"d", L"dangling"));
    EXPECT_TRUE(findFile(L"d", L"."));
    EXPECT_TRUE(findFile(L"d", L".."));
    EXPECT_FALSE(findFile(L"d", L"Foo.txt"));
    EXPECT_FALSE(findFile(L"d", L"foo"));
    EXPECT_FALSE(findFile(L"d", L"foo.txt2"));
    EXPECT_FALSE(findFile(L"d", L"*"));
    EXPECT_FALSE(findFile(L"d", L""));
    EXPECT_FALSE(findFile(L"d", L"sub/"));
    EXPECT_FALSE(findFile(L"d", L"sub/other"));
    EXPECT_FALSE(findFile(L"d", L"./foo.txt"));
    EXPECT_FALSE(findFile(L"d", std::wstring(300, L'n').c_str()));
    EXPECT_FALSE(findFile(L"d/foo.txt", L"foo.txt"));
    EXPECT_FALSE(findFile(L"missing", L"foo.txt"));
    EXPECT_FALSE(findFile(L"", L"foo.txt"));
    EXPECT_EQ(openDescriptorCount(), before);
}

TEST(FindingFiles, ConvertsNames)
{
    const ScratchFolder folder;
    folder.write("\xC3\xA4/\xE4\xB8\x96", "");
    folder.write("ab/cd", "");
    {
        const ScopedLocale locale("C.UTF-8");
        EXPECT_TRUE(findFile(L"\u00e4", L"\u4e16"));
        EXPECT_FALSE(findFile(L"\u00e4", L"\u4e17"));
    }
    const ScopedLocale locale("C");
    EXPECT_TRUE(findFile(L"ab\u00e4", L"cd\u00e4"));
}

TEST(FindingFiles, CutsLongDirectories)
{
    const ScratchFolder folder;
    folder.write("a/file", "");
    std::wstring directory(1024, L'/');
    directory.front() = L'.';
    directory.back() = L'a';
    EXPECT_TRUE(findFile(directory.c_str(), L"file"));
    EXPECT_TRUE(findFile((directory + L"bcd").c_str(), L"file"));
    EXPECT_FALSE(findFile((L"/" + directory).c_str(), L"file"));
}

TEST(FindingFiles, ReadsTheDirectory)
{
    const ScratchFolder folder;
    ASSERT_EQ(chmod(folder.path().c_str(), 0777), 0);
    EXPECT_EQ(statusOfOrdinaryUser(
                  [&folder]
                  {
                      folder.write("unsearchable/file", "");
                      folder.write("unreadable/file", "");
                      ASSERT_EQ(chmod("unsearchable", 0400), 0);
                      ASSERT_EQ(chmod("unreadable", 0300), 0);
                      EXPECT_TRUE(findFile(L"unsearchable", L"file"));
                      EXPECT_FALSE(findFile(L"unsearchable", L"other"));
                      EXPECT_FALSE(findFile(L"unsearchable", L"File"));
                      EXPECT_FALSE(findFile(L"unreadable", L"file"));
                  }),
              0);
}

TEST(FindingFiles, LooksThroughLargeDirectories)
{
    const ScratchFolder folder;
    for (int number = 0; number < 1000; ++number)
    {
        folder.write("name of some length " + std::to_string(number), "");
    }
    for (const int number : {0, 500, 999})
    {
        EXPECT_TRUE(findFile(L".", (L"name of some length " + std::to_wstring(number)).c_str())) << number;
    }
    EXPECT_FALSE(findFile(L".", L"name of some length 1000"));
}

// ---- PathFileExistsW --------------------------------------------------------------------------------------------

TEST_F(SearchPath, AsksTheServiceWhetherAPathExists)
{
    KestPlatformCStringManager::destroyInstance();
    const wchar_t path[] = L"name";
    EXPECT_EQ(PathFileExistsW(path), 5);
    EXPECT_EQ(service_.asked, path);
    EXPECT_EQ(service_.givenActualPath, L"");
    EXPECT_EQ(PathFileExistsW(nullptr), 5);
    EXPECT_EQ(service_.asked, nullptr);
    EXPECT_EQ(KestPlatformCStringManager::m_pInstance, nullptr);
}

// ---- SearchPathW ------------------------------------------------------------------------------------------------

// Expects the file to be found at the path, in a buffer with just enough room.
void expectFound(const wchar_t* path, const wchar_t* fileName, const std::wstring& found)
{
    SCOPED_TRACE(testing::PrintToString(fileName));
    Buffer buffer;
    const auto length = static_cast<DWORD>(found.size());
    EXPECT_EQ(SearchPathW(path, fileName, nullptr, length + 1, buffer.data(), nullptr), length);
    EXPECT_EQ(buffer.contents(), Buffer::startingWith(found));
}

void expectNotFound(const wchar_t* path, const wchar_t* fileName)
{
    SCOPED_TRACE(testing::PrintToString(fileName));
    Buffer buffer;
    EXPECT_EQ(SearchPathW(path, fileName, nullptr, Buffer::size(), buffer.data(), nullptr), 0U);
    EXPECT_EQ(buffer.contents(), Buffer::untouched());
}

TEST_F(SearchPath, FindsAFileInAGivenDirectory)
{
    folder_.write("dir/file.txt", "");
    folder_.write("file.txt", "");
    expectFound(L"dir", L"file.txt", L"dir/file.txt");
    expectFound(L"dir/", L"file.txt", L"dir/file.txt");
    expectFound(L"..", L"..", L"../..");
    expectFound(inFolder(L"dir").c_str(), L"file.txt", inFolder(L"dir/file.txt"));
    expectNotFound(L"dir", L"File.txt");
    expectNotFound(L"dir", L"");
    expectNotFound(L"missing", L"file.txt");
    expectNotFound(L"", L"file.txt");
}

TEST_F(SearchPath, PrefersTheProgramsDirectory)
{
    const std::string program = testProgram().filename().string();
    folder_.write(program, "");
    folder_.write("path/" + program, "");
    const ScopedVariable path("PATH", (folder_.path() / "path").c_str());
    expectFound(nullptr, testProgram().filename().wstring().c_str(), testProgram().wstring());
}

TEST_F(SearchPath, TakesTheCurrentDirectoryBeforeThePath)
{
    folder_.write("file.txt", "");
    folder_.write("path/file.txt", "");
    const ScopedVariable path("PATH", (folder_.path() / "path").c_str());
    expectFound(nullptr, L"file.txt", inFolder(L"file.txt"));
    EXPECT_EQ(service_.given, Strings{});
}

TEST_F(SearchPath, NeedsNoHubBeforeThePath)
{
    const InstalledHub none(nullptr);
    folder_.write("file.txt", "");
    expectFound(nullptr, L"file.txt", inFolder(L"file.txt"));
    expectFound(L"..", L".", L"../.");
}

TEST_F(SearchPath, TakesTheEntriesOfThePathInOrder)
{
    folder_.write("one/other", "");
    folder_.write("two/file.txt", "");
    folder_.write("three/file.txt", "");
    const std::string folder = folder_.path().string();
    const ScopedVariable path("PATH", (folder + "/one:" + folder + "/two:" + folder + "/three").c_str());
    expectFound(nullptr, L"file.txt", inFolder(L"two/file.txt"));
    expectNotFound(nullptr, L"nowhere.txt");
}

TEST_F(SearchPath, FindsNothingInAPathThatCannotBeRead)
{
    folder_.write("one/file.txt", "");
    const ScopedVariable path("PATH", (folder_.path().string() + "/one:" + std::string(1024, 'b')).c_str());
    expectNotFound(nullptr, L"file.txt");
}

TEST_F(SearchPath, LeavesOutACurrentDirectoryOf1024Characters)
{
    const ScopedVariable path("PATH", "/kest-test-missing");
    for (const std::size_t length : {1023U, 1024U})
    {
        // The program's path without a program is a directory's.
        const fs::path directory = programPath(folder_.path(), length);
        fs::create_directories(directory);
        ASSERT_EQ(chdir(directory.c_str()), 0);
        folder_.write(fs::relative(directory, folder_.path()) / "file.txt", "");
        if (length == 1023)
        {
            expectFound(nullptr, L"file.txt", directory.wstring() + L"/file.txt");
        }
        else
        {
            expectNotFound(nullptr, L"file.txt");
        }
        ASSERT_EQ(chdir(folder_.path().c_str()), 0);
    }
}

TEST_F(SearchPath, GoesOnWithoutACurrentDirectory)
{
    folder_.write("path/file.txt", "");
    fs::create_directory("gone");
    const ScopedVariable path("PATH", (folder_.path() / "path").c_str());
    ASSERT_EQ(chdir("gone"), 0);
    ASSERT_EQ(rmdir((folder_.path() / "gone").c_str()), 0);
    expectFound(nullptr, L"file.txt", inFolder(L"path/file.txt"));
    ASSERT_EQ(chdir(folder_.path().c_str()), 0);
}

TEST_F(SearchPath, ConvertsWhatItFinds)
{
    const ScopedLocale locale("C.UTF-8");
    folder_.write("a\xC3\xA4/\xE4\xB8\x96", "");
    expectFound(L"a\u00e4", L"\u4e16", L"a\u00e4/\u4e16");
    ASSERT_EQ(chdir("a\xC3\xA4"), 0);
    expectFound(nullptr, L"\u4e16", inFolder(L"a\u00e4/\u4e16"));
    ASSERT_EQ(chdir(".."), 0);
}

TEST_F(SearchPath, LeavesNothingOpen)
{
    folder_.write("dir/file.txt", "");
    const ScopedVariable path("PATH", (folder_.path() / "dir").c_str());
    const std::size_t before = openDescriptorCount();
    expectFound(nullptr, L"file.txt", inFolder(L"dir/file.txt"));
    expectNotFound(nullptr, L"nowhere.txt");
    EXPECT_EQ(openDescriptorCount(), before);
}

TEST(SearchPathW, WritesNoTerminator)
{
    const ScratchFolder folder;
    folder.write("dir/file", "");
    Buffer buffer;
    EXPECT_EQ(SearchPathW(L"dir", L"file", nullptr, Buffer::size(), buffer.data(), nullptr), 8U);
    EXPECT_EQ(buffer.contents(), Buffer::startingWith(L"dir/file"));
}

TEST(SearchPathW, AsksForNoTerminator)
{
    const ScratchFolder folder;
    folder.write("dir/file", "");
    Buffer buffer;
    for (const DWORD size : {8U, 7U, 1U, 0U})
    {
        EXPECT_EQ(SearchPathW(L"dir", L"file", nullptr, size, buffer.data(), nullptr), 8U) << size;
    }
    EXPECT_EQ(SearchPathW(L"dir", L"file", nullptr, 0, nullptr, nullptr), 8U);
    EXPECT_EQ(buffer.contents(), Buffer::untouched());
}

TEST(SearchPathW, FindsNothingInDirectoriesOfOneCharacter)
{
    const ScratchFolder folder;
    folder.write("file", "");
    // Something that "/" holds. What "/" is differs under an emulator, which shows a folder of its own there.
    const fs::path inRoot = fs::directory_iterator("/")->path().filename();
    const std::wstring name = inRoot.wstring();
    folder.write("path" / inRoot, "");
    AddsSlashes service;
    StubHub hub;
    hub.fileSystem = &service;
    const InstalledHub installed(&hub);
    expectNotFound(L"/", name.c_str());
    expectNotFound(L".", L"file");
    // The current directory has it and is taken: the search does not go on.
    const ScopedVariable path("PATH", (folder.path() / "path").c_str());
    ASSERT_EQ(chdir("/"), 0);
    expectNotFound(nullptr, name.c_str());
    ASSERT_EQ(chdir(folder.path().c_str()), 0);
    expectFound(nullptr, name.c_str(), (folder.path() / "path" / inRoot).wstring());
}

TEST(SearchPathW, IgnoresTheExtension)
{
    const ScratchFolder folder;
    folder.write("dir/file.txt", "");
    Buffer buffer;
    EXPECT_EQ(SearchPathW(L"dir", L"file", L".txt", Buffer::size(), buffer.data(), nullptr), 0U);
    EXPECT_EQ(SearchPathW(L"dir", L"file.txt", L".txt", Buffer::size(), buffer.data(), nullptr), 12U);
    EXPECT_EQ(buffer.contents(), Buffer::startingWith(L"dir/file.txt"));
}

TEST(SearchPathW, WritesNoFilePart)
{
    const ScratchFolder folder;
    folder.write("dir/file", "");
    Buffer buffer;
    wchar_t other = L'x';
    wchar_t* filePart = &other;
    EXPECT_EQ(SearchPathW(L"dir", L"file", nullptr, Buffer::size(), buffer.data(), &filePart), 8U);
    EXPECT_EQ(filePart, &other);
}

TEST(SearchPathW, SearchesOneDirectoryNotAList)
{
    const ScratchFolder folder;
    folder.write("one/file", "");
    folder.write("two;three/file", "");
    expectNotFound(L"one;two", L"file");
    expectFound(L"two;three", L"file", L"two;three/file");
}

TEST(SearchPathW, TakesBareNamesOnly)
{
    const ScratchFolder folder;
    const std::string file = folder.write("dir/sub/file", "").string();
    expectNotFound(L"dir", L"sub/file");
    expectNotFound(L"dir", std::wstring(file.begin(), file.end()).c_str());
}

} // namespace
