// System calls that fail: no descriptors left, no space, no permission, a signal in the middle. What stands on disk
// stays, and the answer is that of any other failure.
#include "faults/system_call_faults.h"
#include "harness/in_child.h"
#include "harness/ordinary_user.h"
#include "harness/scoped_variable.h"
#include "harness/scratch_folder.h"
#include "harness/sentinel_buffer.h"
#include "harness/stub_services.h"
#include "kest/companions/crt.h"
#include "kest/companions/encodings.h"
#include "kest/companions/kernel.h"
#include "kest/crt/file_wrappers.h"
#include "kest/crt/formatted_output.h"
#include "kest/host/file_system_service.h"
#include "kest/host/font_service.h"
#include "kest/host/profile_service.h"
#include "kest/host/registry_service.h"
#include "kest/kernel.h"
#include "kest/registry.h"
#include "kest/shell_paths.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cwchar>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace
{

using namespace kest::test;
namespace fs = std::filesystem;
using kest::host::FileSystemService;
using kest::host::ProfileService;
using kest::host::RegistryService;

using Buffer = SentinelBuffer<wchar_t, 4200>;

// What the companions and the host report.
constexpr int tooManyOpenFiles = 4;
constexpr int accessDenied = 5;
constexpr int generalFailure = 31;
constexpr int diskFull = 112;
constexpr int moduleNotFound = 126;

// Runs the body in a process that can open nothing more, or no more than `left` files at once.
template <class Body>
int statusWithoutDescriptors(Body body, int left = 0)
{
    return statusInChild(
        [&body, left]
        {
            const int next = dup(STDIN_FILENO);
            close(next);
            rlimit limit;
            ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &limit), 0);
            limit.rlim_cur = static_cast<rlim_t>(next + left);
            ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &limit), 0);
            body();
            limit.rlim_cur = limit.rlim_max;
            ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &limit), 0);
        });
}

// Runs the body in a process whose files must not grow beyond `size` bytes, as on a disk without more space.
template <class Body>
int statusWithoutSpaceBehind(rlim_t size, Body body)
{
    return statusInChild(
        [&body, size]
        {
            const rlimit limit = {size, size};
            ASSERT_NE(std::signal(SIGXFSZ, SIG_IGN), SIG_ERR);
            ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
            body();
        });
}

// Signals keep arriving while this lives, and interrupt what waits.
class Interruptions
{
public:
    Interruptions()
    {
        struct sigaction action = {};
        action.sa_handler = [](int) {};
        sigaction(SIGALRM, &action, &previous_);
        const itimerval often = {{0, 1000}, {0, 1000}};
        setitimer(ITIMER_REAL, &often, nullptr);
    }
    ~Interruptions()
    {
        const itimerval never = {};
        setitimer(ITIMER_REAL, &never, nullptr);
        sigaction(SIGALRM, &previous_, nullptr);
    }
    Interruptions(const Interruptions&) = delete;
    Interruptions& operator=(const Interruptions&) = delete;

private:
    struct sigaction previous_ = {};
};

class SystemCallFaults : public testing::Test
{
protected:
    ScratchFolder folder;
};

// ---- No descriptors ------------------------------------------------------------------------------------------------

TEST_F(SystemCallFaults, WithoutDescriptorsFilesStayAsTheyAre)
{
    folder.write("source", "new");
    folder.write("target", "old");
    folder.write("tree/deeper/file", "1");
    EXPECT_EQ(statusWithoutDescriptors(
                  []
                  {
                      constexpr DWORD dispositions[] = {CREATE_ALWAYS, OPEN_EXISTING, OPEN_ALWAYS, TRUNCATE_EXISTING};
                      for (const DWORD disposition : dispositions)
                      {
                          EXPECT_EQ(CreateFileW(L"target", GENERIC_READ | GENERIC_WRITE, 0, nullptr, disposition,
                                                FILE_ATTRIBUTE_NORMAL, nullptr),
                                    INVALID_HANDLE_VALUE);
                      }
                      errno = 0;
                      EXPECT_EQ(_wfopen(static_cast<const wchar_t*>(L"target"), L"w"), nullptr);
                      EXPECT_EQ(errno, EMFILE);
                      std::FILE* stream = nullptr;
                      EXPECT_EQ(_wfopen_s(&stream, L"target", L"w"), EMFILE);
                      EXPECT_EQ(fopen_s(&stream, "target", "w"), EMFILE);
                      EXPECT_EQ(stream, nullptr);
                      {
                          const FailingCall otherFileSystem(SystemCall::moveWithoutReplacing, EXDEV);
                          EXPECT_EQ(MoveFileW(L"source", L"moved"), 0);
                          EXPECT_EQ(errno, generalFailure);
                      }
                      EXPECT_EQ(CopyFileW(L"source", L"target", 0), 1);
                      EXPECT_EQ(DeleteDirectory("tree"), 0);
                      Buffer name;
                      EXPECT_EQ(GetTempFileNameW(L".", L"x", 7, name.data()), 8U);
                      EXPECT_EQ(std::wstring(name.data()), L"./x7.tmp");
                  }),
              0);
    EXPECT_EQ(folder.read("target"), "old");
    EXPECT_EQ(folder.read("source"), "new");
    EXPECT_EQ(folder.read("tree/deeper/file"), "1");
    EXPECT_FALSE(fs::exists("moved"));
    EXPECT_FALSE(fs::exists("x7.tmp"));
}

TEST_F(SystemCallFaults, WithoutDescriptorsNothingIsFound)
{
    folder.write("settings.ini", "[section]\nkey=value\n");
    fs::copy_file(fs::path(KEST_TEST_MODULE_FOLDER) / "librecorder.so", "libmodule.so");
    EXPECT_EQ(statusWithoutDescriptors(
                  []
                  {
                      Buffer out;
                      EXPECT_EQ(GetEnvironmentVariableW(L"PATH", out.data(), 4096), 0U);
                      EXPECT_EQ(out.contents(), Buffer::untouched());
                      EXPECT_EQ(SearchPathW(L".", L"settings.ini", nullptr, 4096, out.data(), nullptr), 0U);
                      EXPECT_EQ(out.contents(), Buffer::untouched());
                      EXPECT_FALSE(findFile(L".", L"settings.ini"));
                      EXPECT_EQ(PathIsDirectoryW(L"."), 0);
                      EXPECT_EQ(LoadLibraryW(L"./module.dll"), nullptr);
                      char narrowName[] = "./module.dll";
                      EXPECT_EQ(LoadLibraryExA(narrowName, nullptr, 0), nullptr);
                      EXPECT_EQ(errno, moduleNotFound);
                      EXPECT_EQ(LoadLibraryA(narrowName), nullptr);
                      EXPECT_TRUE(g_loadedModuleMap.empty());
                      std::vector<CStdStr<wchar_t>> directories;
                      EXPECT_FALSE(getEnvPATH(directories));
                      DWORD size = 0;
                      // The system may know the user otherwise than from its files.
                      const bool known = GetUserNameW(out.data(), &size) != 0;
                      EXPECT_EQ(known, out.contents() != Buffer::untouched());
                      EXPECT_EQ(known, size != 0);
                      EXPECT_EQ(
                          GetPrivateProfileStringW(L"section", L"key", L"default", out.data(), 64, L"settings.ini"),
                          7U);
                      EXPECT_EQ(std::wstring(out.data()), L"default");
                  }),
              0);
}

TEST_F(SystemCallFaults, WithoutDescriptorsTheCommandLineIsNotToldYet)
{
    EXPECT_EQ(statusWithoutDescriptors(
                  []
                  {
                      EXPECT_EQ(std::wstring(GetCommandLineW()), L"");
                      rlimit limit;
                      ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &limit), 0);
                      limit.rlim_cur = limit.rlim_max;
                      ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &limit), 0);
                      EXPECT_NE(std::wstring(GetCommandLineW()), L"");
                  }),
              0);
}

TEST_F(SystemCallFaults, WithoutDescriptorsTheHostsStoresStayAsTheyAre)
{
    const std::wstring file = folder.write("settings.ini", "[section]\nkey=value\n").wstring();
    const std::string database = (folder.path() / "registry.db").string();
    const auto write = [&database](const char* text)
    {
        RegistryService registry(database);
        return registry.RegSetValueExW(HKEY_CURRENT_USER, L"Value", 0, REG_SZ, reinterpret_cast<const BYTE*>(text), 4);
    };
    ASSERT_EQ(write("old"), ERROR_SUCCESS);
    EXPECT_EQ(statusWithoutDescriptors(
                  [&]
                  {
                      ProfileService profiles;
                      EXPECT_EQ(profiles.WritePrivateProfileStringW(L"section", L"key", L"new", file.c_str()), 0);
                      EXPECT_EQ(errno, tooManyOpenFiles);
                      EXPECT_EQ(write("new"), tooManyOpenFiles);
                  }),
              0);
    EXPECT_EQ(folder.read("settings.ini"), "[section]\nkey=value\n");
    RegistryService registry(database);
    BYTE data[4] = {};
    DWORD size = sizeof data;
    EXPECT_EQ(registry.RegQueryValueExW(HKEY_CURRENT_USER, L"Value", nullptr, nullptr, data, &size), ERROR_SUCCESS);
    EXPECT_STREQ(reinterpret_cast<const char*>(data), "old");
}

TEST_F(SystemCallFaults, WithoutDescriptorsTheHostsStoresAnswerThatTheyCannotRead)
{
    const std::wstring file = folder.write("settings.ini", "[section]\nkey=value\n").wstring();
    const std::string database = (folder.path() / "registry.db").string();
    const DWORD number = 77;
    EXPECT_EQ(RegistryService(database).RegSetValueExW(HKEY_CURRENT_USER, L"Value", 0, REG_DWORD,
                                                       reinterpret_cast<const BYTE*>(&number), sizeof number),
              ERROR_SUCCESS);
    EXPECT_EQ(statusWithoutDescriptors(
                  [&]
                  {
                      RegistryService registry(database);
                      HKEY key = nullptr;
                      EXPECT_EQ(registry.RegOpenKeyExW(HKEY_CURRENT_USER, L"Software", 0, KEY_READ, &key),
                                tooManyOpenFiles);
                      EXPECT_EQ(key, nullptr);
                      DWORD data = 5;
                      DWORD size = sizeof data;
                      EXPECT_EQ(registry.RegQueryValueExW(HKEY_CURRENT_USER, L"Value", nullptr, nullptr,
                                                          reinterpret_cast<BYTE*>(&data), &size),
                                tooManyOpenFiles);
                      EXPECT_EQ(data, 5U);
                      ProfileService profiles;
                      Buffer text;
                      EXPECT_EQ(profiles.GetPrivateProfileStringW(L"section", L"key", L"default", text.data(), 64,
                                                                  file.c_str()),
                                7U);
                      EXPECT_EQ(std::wstring(text.data()), L"default");
                      EXPECT_EQ(profiles.GetPrivateProfileIntW(L"section", L"key", 3, file.c_str()), 3U);
                  }),
              0);
}

// The database, its log and the log's index are opened one after the other.
TEST_F(SystemCallFaults, WithTooFewDescriptorsTheRegistryWorksOnceThereAreEnough)
{
    constexpr int enough = 10;
    for (const bool isNew : {true, false})
    {
        int refusals = 0;
        for (int left = 0; left <= enough; ++left)
        {
            const std::string database = (folder.path() / "registry.db").string();
            if (isNew)
            {
                for (const char* const rest : {"", "-wal", "-shm", "-journal"})
                {
                    fs::remove(database + rest);
                }
            }
            const int status = statusWithoutDescriptors(
                [&]
                {
                    RegistryService registry(database);
                    DWORD number = 77;
                    const auto write = [&]
                    {
                        return registry.RegSetValueExW(HKEY_CURRENT_USER, L"Value", 0, REG_DWORD,
                                                       reinterpret_cast<const BYTE*>(&number), sizeof number);
                    };
                    const LONG result = write();
                    EXPECT_TRUE(result == ERROR_SUCCESS || result == tooManyOpenFiles) << result;
                    fs::remove("refused");
                    if (result != ERROR_SUCCESS)
                    {
                        rlimit limit;
                        ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &limit), 0);
                        limit.rlim_cur = limit.rlim_max;
                        ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &limit), 0);
                        EXPECT_EQ(write(), ERROR_SUCCESS);
                        folder.write("refused", "");
                    }
                },
                left);
            EXPECT_EQ(status, 0) << (isNew ? "a new registry with " : "one with ") << left << " descriptors left";
            refusals += fs::exists("refused") ? 1 : 0;
        }
        EXPECT_GE(refusals, 3);
        EXPECT_LT(refusals, enough);
    }
}

TEST_F(SystemCallFaults, WithoutDescriptorsTheHostSaysThatItCannotLook)
{
    folder.write("a folder/settings.ini", "[section]\nkey=value\n");
    const std::wstring otherLetters = folder.path().wstring() + L"/A FOLDER/settings.ini";
    EXPECT_EQ(statusWithoutDescriptors(
                  [&]
                  {
                      FileSystemService files;
                      std::wstring actual;
                      errno = 0;
                      EXPECT_EQ(files.PathFileExistsW(otherLetters.c_str(), actual), 0);
                      EXPECT_EQ(errno, tooManyOpenFiles);
                      errno = 0;
                      EXPECT_EQ(files.GetFileAttributesW(otherLetters.c_str()), INVALID_FILE_ATTRIBUTES);
                      EXPECT_EQ(errno, tooManyOpenFiles);
                      WIN32_FIND_DATAW found;
                      errno = 0;
                      EXPECT_EQ(files.FindFirstFileW(L"a folder/*", &found), INVALID_HANDLE_VALUE);
                      EXPECT_EQ(errno, tooManyOpenFiles);
                      errno = 0;
                      EXPECT_EQ(ProfileService().WritePrivateProfileStringW(L"a", L"b", L"c", otherLetters.c_str()), 0);
                      EXPECT_EQ(errno, tooManyOpenFiles);
                  }),
              0);
    EXPECT_EQ(std::distance(fs::directory_iterator("."), fs::directory_iterator()), 1);
}

// The code page that no other test of this program asks for.
TEST_F(SystemCallFaults, WithoutDescriptorsCodePagesOfModulesAreUnknown)
{
    EXPECT_EQ(statusWithoutDescriptors(
                  []
                  {
                      constexpr int invalidParameter = 87;
                      Buffer wide;
                      errno = 0;
                      EXPECT_EQ(MultiByteToWideChar(1257, 0, "a", 1, wide.data(), 10), 0);
                      EXPECT_EQ(errno, invalidParameter);
                      EXPECT_EQ(wide.contents(), Buffer::untouched());
                      SentinelBuffer<char, 10> narrow;
                      errno = 0;
                      EXPECT_EQ(WideCharToMultiByte(1257, 0, L"a", 1, narrow.data(), 10, nullptr, nullptr), 0);
                      EXPECT_EQ(errno, invalidParameter);
                      EXPECT_EQ(narrow.contents(), narrow.untouched());
                      EXPECT_EQ(kest::host::ConsoleFontService().IsValidCodePage(1257), 0);
                      EXPECT_EQ(kest::host::ConsoleFontService().IsValidCodePage(65001), 1);
                      EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0, "a", 1, wide.data(), 10), 1);
                  }),
              0);
}

// ---- No processes --------------------------------------------------------------------------------------------------

TEST_F(SystemCallFaults, WithoutProcessesNothingIsRun)
{
    fs::permissions(".", fs::perms::all);
    EXPECT_EQ(statusOfOrdinaryUser(
                  []
                  {
                      const rlimit none = {0, 0};
                      ASSERT_EQ(setrlimit(RLIMIT_NPROC, &none), 0);
                      Buffer out;
                      EXPECT_EQ(GetEnvironmentVariableW(L"PATH", out.data(), 4096), 0U);
                      EXPECT_EQ(out.contents(), Buffer::untouched());
                      EXPECT_EQ(SetEnvironmentVariableW(L"KEST_TEST_VARIABLE", L"$(touch made)"), 1);
                      EXPECT_EQ(CreateProcessW(nullptr, const_cast<wchar_t*>(L"touch made"), nullptr, nullptr, 0, 0,
                                               nullptr, nullptr, nullptr, nullptr),
                                1);
                      EXPECT_EQ(ShellExecuteW(nullptr, L"touch", L"made", nullptr, nullptr, 0),
                                reinterpret_cast<HINSTANCE>(33));
                  }),
              0);
    EXPECT_FALSE(fs::exists("made"));
}

// ---- No space ------------------------------------------------------------------------------------------------------

TEST_F(SystemCallFaults, WithoutSpaceACopyKeepsItsSource)
{
    const std::string content(100000, 'c');
    folder.write("source", content);
    folder.write("more", "more");
    EXPECT_EQ(statusWithoutSpaceBehind(10000, [] { EXPECT_EQ(CopyFileW(L"source", L"target", 0), 1); }), 0);
    EXPECT_EQ(folder.read("source"), content);
    EXPECT_EQ(folder.read("target"), content.substr(0, 10000));
}

TEST_F(SystemCallFaults, WithoutSpaceClosingFails)
{
    EXPECT_EQ(statusWithoutSpaceBehind(10,
                                       []
                                       {
                                           const HANDLE file =
                                               CreateFileW(L"target", GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                                           FILE_ATTRIBUTE_NORMAL, nullptr);
                                           ASSERT_NE(file, INVALID_HANDLE_VALUE);
                                           DWORD written = 0;
                                           EXPECT_EQ(WriteFile(file, "0123456789abcdef", 16, &written, nullptr), 1);
                                           EXPECT_EQ(CloseHandle(file), 0);
                                       }),
              0);
    EXPECT_EQ(folder.read("target"), "0123456789");
}

TEST_F(SystemCallFaults, WithoutSpaceWritingFails)
{
    const HANDLE file =
        CreateFileW(L"/dev/full", GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    const std::string more(100000, 'm');
    DWORD written = 77;
    EXPECT_EQ(WriteFile(file, more.data(), 100000, &written, nullptr), 0);
    EXPECT_EQ(errno, ENOSPC);
    EXPECT_EQ(written, 77U);
    CloseHandle(file);

    std::FILE* const stream = std::fopen("/dev/full", "w");
    ASSERT_NE(stream, nullptr);
    std::setvbuf(stream, nullptr, _IONBF, 0);
    EXPECT_EQ(_tarfwprintf(stream, L"%s", L"text"), -1);
    EXPECT_EQ(errno, ENOSPC);
    std::fclose(stream);
}

TEST_F(SystemCallFaults, WithoutSpaceAMoveKeepsItsFile)
{
    const std::string content(200000, 'c');
    folder.write("source", content);
    {
        const FailingCall otherFileSystem(SystemCall::moveWithoutReplacing, EXDEV);
        const FailingCall noSpace(SystemCall::write, ENOSPC, 2);
        EXPECT_EQ(MoveFileW(L"source", L"target"), 0);
        EXPECT_EQ(errno, diskFull);
        EXPECT_TRUE(noSpace.reached());
    }
    EXPECT_EQ(folder.read("source"), content);
    EXPECT_FALSE(fs::exists("target"));
}

TEST_F(SystemCallFaults, WithoutSpaceNothingIsMade)
{
    const FailingCall noDirectory(SystemCall::makeDirectory, ENOSPC);
    const FailingCall noFile(SystemCall::create, ENOSPC);
    EXPECT_EQ(CreateDirectoryW(L"new/deeper", nullptr), 0);
    EXPECT_EQ(SHCreateDirectoryExW(nullptr, L"new", nullptr), E_FAIL);
    EXPECT_EQ(_wmkdir(L"new"), -1);
    EXPECT_EQ(errno, ENOSPC);
    Buffer name;
    EXPECT_EQ(GetTempFileNameW(L".", L"x", 7, name.data()), 8U);
    EXPECT_TRUE(noDirectory.reached() && noFile.reached());
    EXPECT_TRUE(fs::is_empty("."));
}

TEST_F(SystemCallFaults, WithoutSpaceTheHostMakesNoKnownFolder)
{
    const ScopedVariable data("XDG_DATA_HOME", (folder.path() / "new/deeper").c_str());
    FileSystemService files;
    wchar_t path[MAX_PATH] = L"before";
    {
        const FailingCall noDirectory(SystemCall::makeDirectory, ENOSPC);
        EXPECT_EQ(files.SHGetFolderPathW(nullptr, CSIDL_LOCAL_APPDATA | CSIDL_FLAG_CREATE, nullptr, 0, path),
                  static_cast<HRESULT>(0x80070002));
        EXPECT_TRUE(noDirectory.reached());
    }
    EXPECT_EQ(std::wstring(path), L"");
    EXPECT_TRUE(fs::is_empty("."));
    EXPECT_EQ(files.SHGetFolderPathW(nullptr, CSIDL_LOCAL_APPDATA | CSIDL_FLAG_CREATE, nullptr, 0, path), 0);
    EXPECT_EQ(path, (folder.path() / "new/deeper").wstring());
}

TEST_F(SystemCallFaults, WithoutSpaceAProfileStaysAsItIs)
{
    const std::string before = "[section]\nkey=" + std::string(200, 'v') + "\n";
    const std::wstring file = folder.write("settings.ini", before).wstring();
    EXPECT_EQ(statusWithoutSpaceBehind(
                  100,
                  [&file]
                  {
                      ProfileService profiles;
                      EXPECT_EQ(profiles.WritePrivateProfileStringW(L"section", L"key", L"new", file.c_str()), 1);
                      EXPECT_EQ(profiles.WritePrivateProfileStringW(L"section", L"other",
                                                                    std::wstring(200, L'o').c_str(), file.c_str()),
                                0);
                  }),
              0);
    EXPECT_EQ(folder.read("settings.ini"), "[section]\nkey=new\n");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator()), 1);
}

// ---- No permission -------------------------------------------------------------------------------------------------

TEST_F(SystemCallFaults, WithoutPermissionFilesStayAsTheyAre)
{
    folder.write("source", "new");
    folder.write("target", "old");
    folder.write("tree/file", "1");
    fs::create_directory("empty");
    fs::permissions(".", fs::perms::owner_all | fs::perms::others_read | fs::perms::others_exec);
    for (const char* const name : {"source", "target", "tree/file"})
    {
        fs::permissions(name, fs::perms::owner_read | fs::perms::others_read);
    }
    fs::permissions(".", fs::perms::owner_write | fs::perms::group_write, fs::perm_options::remove);
    fs::permissions("tree", fs::perms::owner_write | fs::perms::group_write, fs::perm_options::remove);
    EXPECT_EQ(statusOfOrdinaryUser(
                  []
                  {
                      EXPECT_EQ(CopyFileW(L"source", L"target", 0), 1);
                      EXPECT_EQ(DeleteFileW(L"target"), 0);
                      EXPECT_EQ(_wremove(L"target"), -1);
                      EXPECT_EQ(errno, EACCES);
                      EXPECT_EQ(_wrename(L"source", L"target"), -1);
                      EXPECT_EQ(DeleteDirectory("tree"), 0);
                      EXPECT_EQ(CreateDirectoryW(L"new/deeper", nullptr), 0);
                      EXPECT_EQ(SHCreateDirectoryExW(nullptr, L"new", nullptr), E_FAIL);
                      EXPECT_EQ(RemoveDirectoryW(L"empty"), 0);
                      EXPECT_EQ(_wrmdir(L"empty"), -1);
                      EXPECT_EQ(errno, EACCES);
                      EXPECT_EQ(_wunlink(L"target"), -1);
                      EXPECT_EQ(errno, EACCES);
                      EXPECT_EQ(MoveFileW(L"source", L"moved"), 0);
                      EXPECT_EQ(errno, accessDenied);
                      Buffer name;
                      EXPECT_EQ(GetTempFileNameW(L".", L"x", 7, name.data()), 8U);
                      std::FILE* stream = nullptr;
                      EXPECT_EQ(_wfopen_s(&stream, L"target", L"w"), EACCES);
                      EXPECT_EQ(fopen_s(&stream, "target", "w"), EACCES);
                      EXPECT_EQ(CreateFileW(L"target", GENERIC_READ | GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                            FILE_ATTRIBUTE_NORMAL, nullptr),
                                INVALID_HANDLE_VALUE);
                  }),
              0);
    fs::permissions(".", fs::perms::owner_all);
    fs::permissions("tree", fs::perms::owner_all);
    EXPECT_EQ(folder.read("source"), "new");
    EXPECT_EQ(folder.read("target"), "old");
    EXPECT_EQ(folder.read("tree/file"), "1");
    EXPECT_TRUE(fs::exists("empty"));
    for (const char* const name : {"new", "moved", "x7.tmp"})
    {
        EXPECT_FALSE(fs::exists(name));
    }
}

TEST_F(SystemCallFaults, WithoutPermissionNothingIsFound)
{
    folder.write("locked/file", "content");
    folder.write("settings.ini", "[section]\nkey=value\n");
    fs::copy_file(fs::path(KEST_TEST_MODULE_FOLDER) / "librecorder.so", "libmodule.so");
    fs::permissions(".", fs::perms::owner_all | fs::perms::others_read | fs::perms::others_exec);
    fs::permissions("settings.ini", fs::perms::owner_read | fs::perms::others_read);
    fs::permissions("libmodule.so", fs::perms::none);
    fs::permissions("locked", fs::perms::none);
    EXPECT_EQ(statusOfOrdinaryUser(
                  []
                  {
                      Buffer out;
                      EXPECT_FALSE(findFile(L"locked", L"file"));
                      EXPECT_EQ(SearchPathW(L"locked", L"file", nullptr, 4096, out.data(), nullptr), 0U);
                      EXPECT_EQ(PathIsDirectoryW(L"locked"), 0);
                      EXPECT_EQ(GetFileAttributesA("locked/file"), INVALID_FILE_ATTRIBUTES);
                      EXPECT_EQ(_waccess(L"locked/file", 0), -1);
                      EXPECT_EQ(errno, EACCES);
                      EXPECT_EQ(SetCurrentDirectoryW(L"locked"), 0);
                      EXPECT_EQ(_wchdir(L"locked"), -1);
                      EXPECT_EQ(LoadLibraryW(L"./module.dll"), nullptr);
                      EXPECT_TRUE(g_loadedModuleMap.empty());
                      EXPECT_EQ(out.contents(), Buffer::untouched());
                      // What cannot be written counts as missing.
                      EXPECT_EQ(
                          GetPrivateProfileStringW(L"section", L"key", L"default", out.data(), 64, L"settings.ini"),
                          7U);
                      EXPECT_EQ(std::wstring(out.data()), L"default");
                  }),
              0);
    fs::permissions("locked", fs::perms::owner_all);
}

// ---- Interrupted ---------------------------------------------------------------------------------------------------

TEST_F(SystemCallFaults, SignalsLoseNothingOfAVariable)
{
    const ScopedVariable variable("KEST_TEST_VARIABLE", "a");
    const Interruptions interruptions;
    for (int time = 0; time < 3; ++time)
    {
        Buffer out;
        // The shell has its answer later than the first signals.
        EXPECT_EQ(GetEnvironmentVariableW(L"KEST_TEST_VARIABLE$(sleep 0.01; echo b)", out.data(), 4096), 1U);
        EXPECT_EQ(out.contents(), Buffer::startingWith(std::wstring(out.data()) + L'\0'));
        EXPECT_EQ(std::wstring(out.data()), L"ab\n");
    }
}

TEST_F(SystemCallFaults, SignalsEndNoWaitForAProgram)
{
    const Interruptions interruptions;
    EXPECT_EQ(CreateProcessW(nullptr, const_cast<wchar_t*>(L"sleep 0.02; touch ended"), nullptr, nullptr, 0, 0, nullptr,
                             nullptr, nullptr, nullptr),
              1);
    EXPECT_TRUE(fs::exists("ended"));
    EXPECT_EQ(SetEnvironmentVariableW(L"KEST_TEST_VARIABLE", L"$(sleep 0.02; touch set)"), 1);
    EXPECT_TRUE(fs::exists("set"));
    EXPECT_EQ(ShellExecuteW(nullptr, L"sleep", L"0.02", L"; touch opened", nullptr, 0),
              reinterpret_cast<HINSTANCE>(33));
    EXPECT_TRUE(fs::exists("opened"));
}

// Opening one end of a pipe waits for the other, and reading it for what is written there.
TEST_F(SystemCallFaults, SignalsLoseNothingOfACopy)
{
    ASSERT_EQ(mkfifo("pipe", 0600), 0);
    folder.write("target", "old");
    std::fflush(nullptr);
    const pid_t writer = fork();
    ASSERT_NE(writer, -1);
    if (writer == 0)
    {
        alarm(30); // should nobody read
        usleep(20000);
        const int pipe = open("pipe", O_WRONLY);
        for (const char part : {'a', 'b', 'c'})
        {
            usleep(5000);
            if (write(pipe, &part, 1) != 1)
            {
                _exit(1);
            }
        }
        _exit(0);
    }
    {
        const Interruptions interruptions;
        EXPECT_EQ(CopyFileW(L"pipe", L"target", 0), 1);
    }
    kill(writer, SIGALRM);
    int status = 0;
    EXPECT_EQ(waitpid(writer, &status, 0), writer);
    EXPECT_EQ(folder.read("target"), "abc");
}

TEST_F(SystemCallFaults, SignalsLoseNothingInTheHostsStores)
{
    const std::wstring file = folder.path().wstring() + L"/settings.ini";
    const Interruptions interruptions;
    ProfileService profiles;
    RegistryService registry((folder.path() / "registry.db").string());
    for (DWORD number = 1; number <= 20; ++number)
    {
        const std::wstring text = std::to_wstring(number);
        EXPECT_EQ(profiles.WritePrivateProfileStringW(L"section", text.c_str(), text.c_str(), file.c_str()), 1);
        EXPECT_EQ(profiles.GetPrivateProfileIntW(L"section", text.c_str(), 0, file.c_str()), number);
        EXPECT_EQ(registry.RegSetValueExW(HKEY_CURRENT_USER, text.c_str(), 0, REG_DWORD,
                                          reinterpret_cast<const BYTE*>(&number), sizeof number),
                  ERROR_SUCCESS);
    }
    EXPECT_EQ(profiles.GetPrivateProfileIntW(L"section", L"1", 0, file.c_str()), 1U);
}

// Nobody opens the other end.
TEST_F(SystemCallFaults, SignalsEndTheOpeningOfAPipe)
{
    ASSERT_EQ(mkfifo("pipe", 0600), 0);
    const Interruptions interruptions;
    errno = 0;
    EXPECT_EQ(CreateFileW(L"pipe", GENERIC_READ, 1, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr),
              INVALID_HANDLE_VALUE);
    EXPECT_EQ(errno, EINTR);
    errno = 0;
    EXPECT_EQ(_wfopen(static_cast<const wchar_t*>(L"pipe"), L"r"), nullptr);
    EXPECT_EQ(errno, EINTR);
    std::FILE* stream = nullptr;
    EXPECT_EQ(_wfopen_s(&stream, L"pipe", L"r"), EINTR);
    EXPECT_EQ(stream, nullptr);
}

TEST_F(SystemCallFaults, SignalsEndTheReadingAndWritingOfAPipe)
{
    ASSERT_EQ(mkfifo("pipe", 0600), 0);
    // Opened for both, which waits for nobody.
    const HANDLE pipe =
        CreateFileW(L"pipe", GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(pipe, INVALID_HANDLE_VALUE);
    const int otherEnd = open("pipe", O_RDWR | O_NONBLOCK);
    ASSERT_NE(otherEnd, -1);
    char text[4] = {};
    DWORD count = 77;
    {
        const Interruptions interruptions;
        EXPECT_EQ(ReadFile(pipe, text, 4, &count, nullptr), 0);
        EXPECT_EQ(errno, EINTR);
        EXPECT_EQ(count, 77U);
    }
    ASSERT_EQ(write(otherEnd, "text", 4), 4);
    EXPECT_EQ(ReadFile(pipe, text, 4, &count, nullptr), 1);
    EXPECT_EQ(std::string(text, 4), "text");
    EXPECT_EQ(count, 4U);

    // More than a pipe holds.
    std::string more(1 << 20, 'm');
    count = 77;
    {
        const Interruptions interruptions;
        EXPECT_EQ(WriteFile(pipe, more.data(), static_cast<DWORD>(more.size()), &count, nullptr), 0);
        EXPECT_EQ(errno, EINTR);
        EXPECT_EQ(count, 77U);
    }
    while (read(otherEnd, more.data(), more.size()) > 0)
    {
    }
    EXPECT_EQ(CloseHandle(pipe), 1);
    EXPECT_EQ(close(otherEnd), 0);
}

// ---- Interrupted and partial readings and writings -----------------------------------------------------------------

TEST_F(SystemCallFaults, InterruptedCallsReadProfilesWhole)
{
    std::string value(100, 'v');
    folder.write("settings.ini", "[section]\nkey=" + value + "\n");
    const ReluctantCalls calls;
    Buffer out;
    EXPECT_EQ(GetPrivateProfileStringW(L"section", L"key", L"default", out.data(), 4096, L"settings.ini"), 100U);
    EXPECT_EQ(std::wstring(out.data()), std::wstring(100, L'v'));
}

TEST_F(SystemCallFaults, InterruptedCallsCopyFilesWhole)
{
    std::string content;
    for (int number = 0; number < 1000; ++number)
    {
        content += std::to_string(number);
    }
    folder.write("source", content);
    {
        const ReluctantCalls calls;
        EXPECT_EQ(CopyFileW(L"source", L"target", 0), 1);
    }
    EXPECT_EQ(folder.read("target"), content);
    {
        const ReluctantCalls calls;
        const FailingCall otherFileSystem(SystemCall::moveWithoutReplacing, EXDEV);
        EXPECT_EQ(MoveFileW(L"source", L"moved"), 1);
    }
    EXPECT_EQ(folder.read("moved"), content);
    EXPECT_FALSE(fs::exists("source"));
}

TEST_F(SystemCallFaults, InterruptedCallsWriteTheHostsProfilesWhole)
{
    const std::wstring file = folder.write("settings.ini", "[section]\nkey=value\n").wstring();
    {
        const ReluctantCalls calls;
        ProfileService profiles;
        EXPECT_EQ(profiles.WritePrivateProfileStringW(L"section", L"other", L"new value", file.c_str()), 1);
    }
    EXPECT_EQ(folder.read("settings.ini"), "[section]\nkey=value\nother=new value\n");
}

// ---- Broken disks --------------------------------------------------------------------------------------------------

TEST_F(SystemCallFaults, OnABrokenDiskTheHostsProfileStaysAsItIs)
{
    const std::wstring file = folder.write("settings.ini", "[section]\nkey=value\n").wstring();
    for (const SystemCall call : {SystemCall::read, SystemCall::write, SystemCall::sync, SystemCall::rename})
    {
        {
            const FailingCall failing(call, EIO);
            ProfileService profiles;
            EXPECT_EQ(profiles.WritePrivateProfileStringW(L"section", L"key", L"new", file.c_str()), 0);
            EXPECT_TRUE(failing.reached());
        }
        EXPECT_EQ(folder.read("settings.ini"), "[section]\nkey=value\n");
        EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator()), 1);
    }
}

TEST_F(SystemCallFaults, OnABrokenDiskACopyKeepsItsSource)
{
    const std::string content(200000, 'c');
    folder.write("source", content);
    for (const SystemCall call : {SystemCall::read, SystemCall::write})
    {
        {
            const FailingCall noRange(SystemCall::copyFileRange, ENOSYS);
            const FailingCall noSending(SystemCall::sendFile, ENOSYS);
            const FailingCall failing(call, EIO, 2);
            EXPECT_EQ(CopyFileW(L"source", L"target", 0), 1);
            EXPECT_TRUE(failing.reached());
        }
        EXPECT_EQ(folder.read("source"), content);
        EXPECT_EQ(folder.read("target"), content.substr(0, folder.read("target").size()));
    }
}

TEST_F(SystemCallFaults, OnABrokenDiskAMoveKeepsItsFile)
{
    const std::string content(200000, 'c');
    folder.write("source", content);
    for (const SystemCall call : {SystemCall::read, SystemCall::write})
    {
        {
            const FailingCall otherFileSystem(SystemCall::moveWithoutReplacing, EXDEV);
            const FailingCall failing(call, EIO, 2);
            EXPECT_EQ(MoveFileW(L"source", L"target"), 0);
            EXPECT_EQ(errno, generalFailure);
            EXPECT_TRUE(failing.reached());
        }
        EXPECT_EQ(folder.read("source"), content);
        EXPECT_FALSE(fs::exists("target"));
    }
}

TEST_F(SystemCallFaults, OnABrokenDiskAProfileReadsAsNothing)
{
    folder.write("settings.ini", "[section]\nkey=value\n");
    const FailingCall failing(SystemCall::read, EIO);
    Buffer out;
    EXPECT_EQ(GetPrivateProfileStringW(L"section", L"key", L"default", out.data(), 4096, L"settings.ini"), 0U);
    EXPECT_EQ(out.contents(), Buffer::startingWith(std::wstring(1, L'\0')));
}

} // namespace
