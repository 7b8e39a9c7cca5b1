#include "kest/host/file_system_service.h"

#include "harness/ordinary_user.h"
#include "harness/scoped_locale.h"
#include "harness/scratch_folder.h"
#include "harness/sentinel_buffer.h"
#include "kest/shell_paths.h"

#include <cerrno>
#include <cstdlib>
#include <cwchar>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace
{

using kest::test::ScratchFolder;
using kest::test::SentinelBuffer;
using namespace std::string_literals;

class Files : public testing::Test
{
protected:
    std::vector<std::wstring> find(const wchar_t* pattern)
    {
        std::vector<std::wstring> names;
        WIN32_FIND_DATAW data;
        const HANDLE search = service_.FindFirstFileW(pattern, &data);
        if (search == INVALID_HANDLE_VALUE)
        {
            return names;
        }
        do
        {
            names.emplace_back(data.cFileName);
        } while (service_.FindNextFileW(search, &data) != 0);
        EXPECT_EQ(errno, 18);
        EXPECT_EQ(service_.FindClose(search), 1);
        return names;
    }

    ScratchFolder folder_;
    kest::test::ScopedLocale locale_{"C.UTF-8"};
    kest::host::FileSystemService service_;
};

using Names = std::vector<std::wstring>;

TEST_F(Files, AreFoundByWindowsWildcards)
{
    for (const char* const name : {"sub/b.TXT", "sub/a.txt", "sub/A1.doc", "sub/plain", "sub/ärger.txt", "sub/a.b.c"})
    {
        folder_.write(name, "x");
    }
    EXPECT_EQ(find(L"sub\\*"), (Names{L".", L"..", L"a.b.c", L"a.txt", L"A1.doc", L"b.TXT", L"plain", L"ärger.txt"}));
    EXPECT_EQ(find(L"SUB/*.*"), find(L"sub/*"));
    EXPECT_EQ(find(L"sub\\*.txt"), (Names{L"a.txt", L"b.TXT", L"ärger.txt"}));
    EXPECT_EQ(find(L"sub\\ÄRGER.*"), (Names{L"ärger.txt"}));
    EXPECT_EQ(find(L"sub\\a?.*"), (Names{L"a.b.c", L"a.txt", L"A1.doc"}));
    EXPECT_EQ(find(L"sub\\?.txt"), (Names{L"a.txt", L"b.TXT"}));
    EXPECT_EQ(find(L"sub\\*."), (Names{L".", L"..", L"plain"}));
    EXPECT_EQ(find(L"sub\\a*c"), (Names{L"a.b.c", L"A1.doc"}));
    EXPECT_EQ(find(L"sub\\PLAIN???"), (Names{L"plain"}));
    EXPECT_EQ(find(L"sub"), (Names{L"sub"}));
    EXPECT_EQ(find(L"sub\\none*"), Names());
    EXPECT_EQ(errno, 2);
    EXPECT_EQ(find(L"none\\*"), Names());
    EXPECT_EQ(errno, 3);
}

TEST_F(Files, AreDescribedInTheFindRecord)
{
    folder_.write("file.bin", std::string(1234, 'x'));
    struct stat status = {};
    ASSERT_EQ(stat("file.bin", &status), 0);
    WIN32_FIND_DATAW data;
    const HANDLE search = service_.FindFirstFileW(L"file.bin", &data);
    ASSERT_NE(search, INVALID_HANDLE_VALUE);
    EXPECT_EQ(data.dwFileAttributes, 0x20U);
    EXPECT_EQ(data.nFileSizeLow, 1234U);
    EXPECT_EQ(data.nFileSizeHigh, 0U);
    EXPECT_EQ(data.ftLastWriteTime.dwLowDateTime, static_cast<DWORD>(status.st_mtime));
    EXPECT_EQ(data.ftLastWriteTime.dwHighDateTime, 0U);
    EXPECT_STREQ(data.cFileName, L"file.bin");
    EXPECT_STREQ(data.cAlternateFileName, L"");
    EXPECT_EQ(service_.FindClose(search), 1);
    EXPECT_EQ(service_.FindClose(search), 0);
    EXPECT_EQ(errno, 6);
    EXPECT_EQ(service_.FindNextFileW(search, &data), 0);
    EXPECT_EQ(errno, 6);
    EXPECT_EQ(service_.FindFirstFileW(nullptr, &data), INVALID_HANDLE_VALUE);
    EXPECT_EQ(service_.FindFirstFileW(L"*", nullptr), INVALID_HANDLE_VALUE);
}

TEST_F(Files, ExistUnderTheirNamesOnDisk)
{
    folder_.write("Mixed/Case.Txt", "x");
    folder_.write("Mixed/case.txt", "exact");
    std::wstring actual = L"untouched";
    EXPECT_EQ(service_.PathFileExistsW(L"mixed\\CASE.txt", actual), 1);
    EXPECT_EQ(actual, L"Mixed/Case.Txt");
    EXPECT_EQ(service_.PathFileExistsW(L"mixed\\case.txt", actual), 1);
    EXPECT_EQ(actual, L"Mixed/case.txt");
    const std::wstring absolute = folder_.path().wstring() + L"\\MIXED\\";
    EXPECT_EQ(service_.PathFileExistsW(absolute.c_str(), actual), 1);
    EXPECT_EQ(actual, folder_.path().wstring() + L"/Mixed");
    actual = L"untouched";
    for (const wchar_t* const path : {L"mixed\\none", L"", static_cast<const wchar_t*>(nullptr)})
    {
        EXPECT_EQ(service_.PathFileExistsW(path, actual), 0);
        EXPECT_EQ(actual, L"untouched");
    }
}

TEST_F(Files, HaveWindowsAttributes)
{
    folder_.write("file", "x");
    folder_.write(".hidden", "x");
    folder_.write("locked", "x");
    std::filesystem::permissions("locked", std::filesystem::perms::owner_read);
    std::filesystem::create_directory("folder");
    std::filesystem::create_symlink("folder", "link");
    std::filesystem::create_symlink("nowhere", "dangling");
    EXPECT_EQ(service_.GetFileAttributesW(L"FILE"), 0x20U);
    EXPECT_EQ(service_.GetFileAttributesW(L".hidden"), 0x22U);
    EXPECT_EQ(service_.GetFileAttributesW(L"locked"), 0x21U);
    EXPECT_EQ(service_.GetFileAttributesW(L"folder"), 0x10U);
    EXPECT_EQ(service_.GetFileAttributesW(L"link"), 0x410U);
    EXPECT_EQ(service_.GetFileAttributesW(L"dangling"), 0x420U);
    EXPECT_EQ(service_.GetFileAttributesW(L"/dev/null"), 0x40U);
    EXPECT_EQ(service_.GetFileAttributesW(L"none"), 0xFFFFFFFFU);
    EXPECT_EQ(service_.GetFileAttributesW(nullptr), 0xFFFFFFFFU);
}

TEST_F(Files, TakeAndGiveBackWritePermission)
{
    folder_.write("file", "x");
    std::filesystem::permissions("file", std::filesystem::perms(0664));
    EXPECT_EQ(service_.SetFileAttributesW(L"FILE", 0x21), 1);
    EXPECT_EQ(std::filesystem::status("file").permissions(), std::filesystem::perms(0444));
    EXPECT_EQ(service_.SetFileAttributesW(L"file", 0x80), 1);
    EXPECT_EQ(std::filesystem::status("file").permissions(), std::filesystem::perms(0644));
    EXPECT_EQ(service_.SetFileAttributesW(L"none", 0x80), 0);
    EXPECT_EQ(service_.SetFileAttributesW(nullptr, 0x80), 0);
}

TEST_F(Files, OfOthersKeepTheirPermissions)
{
    EXPECT_EQ(kest::test::statusOfOrdinaryUser(
                  [this]
                  {
                      EXPECT_EQ(service_.SetFileAttributesW(L"/usr", 0x1), 0);
                      EXPECT_EQ(errno, 5);
                  }),
              0);
}

TEST_F(Files, TellUrlsFromPaths)
{
    for (const wchar_t* const url : {L"http://x", L"mailto:a@b", L"x-y.z+1:"})
    {
        EXPECT_EQ(service_.PathIsURLW(url), 1) << url;
    }
    for (const wchar_t* const path : {L"c:\\x", L"/usr:x", L"plain", L"", L":x", L"1a:x", L"a b:c"})
    {
        EXPECT_EQ(service_.PathIsURLW(path), 0) << path;
    }
    EXPECT_EQ(service_.PathIsURLW(nullptr), 0);
    EXPECT_EQ(service_.PathIsRelativeW(L"a/b"), 1);
    EXPECT_EQ(service_.PathIsRelativeW(L""), 1);
    EXPECT_EQ(service_.PathIsRelativeW(nullptr), 1);
    EXPECT_EQ(service_.PathIsRelativeW(L"/a"), 0);
    EXPECT_EQ(service_.PathIsRelativeW(L"\\a"), 0);
    EXPECT_EQ(service_.PathIsRelativeW(L"c:a"), 0);
}

TEST_F(Files, GetTrailingSeparators)
{
    const auto added = [this](const wchar_t* text)
    {
        SentinelBuffer<wchar_t, 20> buffer(text);
        const wchar_t* const end = service_.PathAddBackslashW(buffer.data());
        EXPECT_EQ(*end, L'\0');
        EXPECT_EQ(end, buffer.data() + std::wcslen(buffer.data()));
        return std::wstring(buffer.data());
    };
    EXPECT_EQ(added(L"/usr"), L"/usr/");
    EXPECT_EQ(added(L"/usr/"), L"/usr/");
    EXPECT_EQ(added(L"a\\"), L"a\\");
    EXPECT_EQ(added(L""), L"");
    EXPECT_EQ(service_.PathAddBackslashW(nullptr), nullptr);
}

TEST_F(Files, HaveExtensions)
{
    const auto extension = [this](const wchar_t* path) { return std::wstring(service_.PathFindExtensionW(path)); };
    EXPECT_EQ(extension(L"/a.b/c.tar.gz"), L".gz");
    EXPECT_EQ(extension(L"/a.b/c"), L"");
    EXPECT_EQ(extension(L"a\\b.c\\d"), L"");
    EXPECT_EQ(extension(L"a. b"), L"");
    EXPECT_EQ(extension(L".x"), L".x");
    EXPECT_EQ(service_.PathFindExtensionW(nullptr), nullptr);
}

TEST_F(Files, AreReachedByRelativePaths)
{
    const auto relative = [this](const wchar_t* from, DWORD attributes, const wchar_t* to)
    {
        SentinelBuffer<wchar_t, MAX_PATH> buffer;
        return service_.PathRelativePathToW(buffer.data(), from, attributes, to, 0) != 0 ? std::wstring(buffer.data())
                                                                                         : L"refused";
    };
    EXPECT_EQ(relative(L"/a/b", 0x10, L"/a/b/c"), L"./c");
    EXPECT_EQ(relative(L"/a/b", 0, L"/a/b/c"), L"./b/c");
    EXPECT_EQ(relative(L"/a/b/c", 0x10, L"/a/x/y"), L"../../x/y");
    EXPECT_EQ(relative(L"a\\b", 0x10, L"a\\c"), L"../c");
    EXPECT_EQ(relative(L"/a", 0x10, L"/a"), L".");
    EXPECT_EQ(relative(L"/a", 0x10, L"a"), L"refused");
    const std::wstring longPath = L"/" + std::wstring(300, L'x');
    EXPECT_EQ(relative(L"/a", 0x10, longPath.c_str()), L"refused");
    EXPECT_EQ(service_.PathRelativePathToW(nullptr, L"a", 0, L"b", 0), 0);
}

TEST_F(Files, HaveATemporaryFolder)
{
    setenv("TMPDIR", "/scratch", 1);
    SentinelBuffer<wchar_t, 20> buffer;
    EXPECT_EQ(service_.GetTempPathW(9, buffer.data()), 10U);
    EXPECT_EQ(buffer.contents(), buffer.untouched());
    EXPECT_EQ(service_.GetTempPathW(10, buffer.data()), 9U);
    EXPECT_EQ(buffer.contents(), buffer.startingWith(L"/scratch/\0"s));
    unsetenv("TMPDIR");
    unsetenv("TMP");
    unsetenv("TEMP");
    EXPECT_EQ(service_.GetTempPathW(0, nullptr), 6U);
    EXPECT_EQ(service_.GetTempPathW(20, buffer.data()), 5U);
    EXPECT_STREQ(buffer.data(), L"/tmp/");
}

TEST_F(Files, HaveKnownFolders)
{
    const std::string home = (folder_.path() / "home").string();
    setenv("HOME", home.c_str(), 1);
    for (const char* const name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
    {
        unsetenv(name);
    }
    folder_.write("home/.config/user-dirs.dirs",
                  "# comment\nXDG_MUSIC_DIR=\"$HOME/Musik\"\nXDG_VIDEOS_DIR=\"/films\"\n");
    const auto folder = [this](int number, HRESULT expected)
    {
        wchar_t path[MAX_PATH] = L"unset";
        EXPECT_EQ(service_.SHGetFolderPathW(nullptr, number, nullptr, 0, path), expected) << number;
        return std::wstring(path);
    };
    const std::wstring wideHome(home.begin(), home.end());
    const auto notFound = static_cast<HRESULT>(0x80070002);
    EXPECT_EQ(folder(CSIDL_PROFILE, 0), wideHome);
    EXPECT_EQ(folder(CSIDL_APPDATA, 0), wideHome + L"/.config");
    EXPECT_EQ(folder(CSIDL_MYMUSIC, notFound), L"");
    EXPECT_EQ(folder(CSIDL_MYMUSIC | CSIDL_FLAG_CREATE, 0), wideHome + L"/Musik");
    EXPECT_EQ(folder(CSIDL_MYMUSIC, 0), wideHome + L"/Musik");
    EXPECT_EQ(folder(CSIDL_PERSONAL | CSIDL_FLAG_CREATE, 0), wideHome + L"/Documents");
    EXPECT_EQ(folder(CSIDL_LOCAL_APPDATA | CSIDL_FLAG_CREATE, 0), wideHome + L"/.local/share");
    EXPECT_EQ(folder(CSIDL_MYVIDEO, notFound), L"");
    EXPECT_EQ(folder(CSIDL_PRINTERS, static_cast<HRESULT>(0x80070057)), L"");
    EXPECT_EQ(service_.SHGetFolderPathW(nullptr, CSIDL_PROFILE, nullptr, 0, nullptr), static_cast<HRESULT>(0x80070057));
    setenv("XDG_DATA_HOME", ("/" + std::string(300, 'x')).c_str(), 1);
    EXPECT_EQ(folder(CSIDL_LOCAL_APPDATA, notFound), L"");
}

} // namespace
