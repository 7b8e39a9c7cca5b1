// The reference host's stores without memory: Windows's answer for it, what stands on disk stays, nothing leaks.
#include "faults/allocation_faults.h"
#include "harness/in_child.h"
#include "harness/scoped_variable.h"
#include "harness/scratch_folder.h"
#include "harness/sentinel_buffer.h"
#include "kest/host/dialog_service.h"
#include "kest/host/file_system_service.h"
#include "kest/host/font_service.h"
#include "kest/host/profile_service.h"
#include "kest/host/registry_service.h"
#include "kest/host/system_service.h"
#include "kest/reference_host.h"
#include "kest/registry.h"
#include "kest/shell_paths.h"

#include <array>
#include <cerrno>
#include <cwchar>
#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <string>
#include <unistd.h>
#include <vector>

namespace
{

using namespace kest::test;
namespace fs = std::filesystem;
using kest::host::FileSystemService;
using kest::host::ProfileService;
using kest::host::RegistryService;
using kest::host::SystemService;
using kest::host::TerminalDialogService;

constexpr int notEnoughMemory = 8;

// ---- Profiles ------------------------------------------------------------------------------------------------------

class HostProfiles : public testing::Test
{
protected:
    const std::string before = "; a comment\r\n[Section]\r\nKey=a value that is long enough for the heap\r\n";
    const std::string after = "; a comment\r\n[Section]\r\nKey=another value\r\n";

    ScratchFolder folder;
    ScopedVariable configuration{"XDG_CONFIG_HOME", (folder.path() / "config").c_str()};
    const std::wstring file = folder.path().wstring() + L"/settings.ini";
    const std::string narrowFile = folder.path().string() + "/settings.ini";
    ProfileService service;
    SentinelBuffer<wchar_t, 200> wide;
    SentinelBuffer<char, 200> narrow;

    void writeOld()
    {
        folder.write("settings.ini", before);
        wide = {};
        narrow = {};
        errno = 0;
    }

    // The file is the old one or the new one, and the only one there.
    void expectWhole(bool succeeded) const
    {
        EXPECT_EQ(folder.read("settings.ini"), succeeded ? after : before);
        EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator()), 1);
    }
};

TEST_F(HostProfiles, AreReadWholeOrNotAtAll)
{
    const std::wstring value = L"a value that is long enough for the heap";
    const auto prepare = [this] { writeOld(); };
    const auto expectText = [this, &value](bool succeeded)
    {
        EXPECT_EQ(std::wstring(wide.data()), succeeded ? value : L"");
        EXPECT_TRUE(succeeded || errno == notEnoughMemory) << errno;
    };
    expectEveryFailureHandled(std::vector<AllocatingCall>{
        {.name = "GetPrivateProfileStringW",
         .call =
             [this]
         {
             return static_cast<long>(
                 service.GetPrivateProfileStringW(L"section", L"key", L"?", wide.data(), 200, file.c_str()));
         },
         .success = static_cast<long>(value.size()),
         .failure = 0,
         .check = expectText,
         .prepare = prepare},
        {.name = "GetPrivateProfileStringW, a list",
         .call =
             [this] {
                 return static_cast<long>(
                     service.GetPrivateProfileStringW(nullptr, nullptr, L"?", wide.data(), 200, file.c_str()));
             },
         .success = 8,
         .failure = 0,
         .check = [this](bool succeeded)
         { EXPECT_EQ(wide.contents().substr(0, 2), succeeded ? std::wstring(L"Se") : std::wstring(2, L'\0')); },
         .prepare = prepare},
        {.name = "GetPrivateProfileStringA",
         .call =
             [this]
         {
             return static_cast<long>(
                 service.GetPrivateProfileStringA("section", "key", "?", narrow.data(), 200, narrowFile.c_str()));
         },
         .success = static_cast<long>(value.size()),
         .failure = 0,
         .check = [this](bool succeeded) { EXPECT_EQ(*narrow.data(), succeeded ? 'a' : '\0'); },
         .prepare = prepare},
        {.name = "GetPrivateProfileIntW",
         .call = [this]
         { return static_cast<long>(service.GetPrivateProfileIntW(L"section", L"key", 7, file.c_str())); },
         .success = 0,
         .failure = 7,
         .prepare = prepare},
        {.name = "GetPrivateProfileIntA",
         .call = [this]
         { return static_cast<long>(service.GetPrivateProfileIntA("section", "key", 7, narrowFile.c_str())); },
         .success = 0,
         .failure = 7,
         .prepare = prepare},
        {.name = "GetPrivateProfileSectionW",
         .call = [this]
         { return static_cast<long>(service.GetPrivateProfileSectionW(L"section", wide.data(), 200, file.c_str())); },
         .success = static_cast<long>(value.size()) + 5,
         .failure = 0,
         .check = [this](bool succeeded)
         { EXPECT_EQ(wide.contents().substr(0, 2), succeeded ? std::wstring(L"Ke") : std::wstring(2, L'\0')); },
         .prepare = prepare},
    });
}

TEST_F(HostProfiles, AreWrittenWholeOrNotAtAll)
{
    const auto prepare = [this] { writeOld(); };
    const auto check = [this](bool succeeded) { expectWhole(succeeded); };
    const std::wstring otherLetters = folder.path().wstring() + L"/Settings.INI";
    expectEveryFailureHandled(std::vector<AllocatingCall>{
        {.name = "WritePrivateProfileStringW",
         .call =
             [&]
         {
             return static_cast<long>(
                 service.WritePrivateProfileStringW(L"Section", L"Key", L"another value", otherLetters.c_str()));
         },
         .success = 1,
         .failure = 0,
         .check = check,
         .prepare = prepare},
        {.name = "WritePrivateProfileStringW",
         .call =
             [this] {
                 return static_cast<long>(
                     service.WritePrivateProfileStringW(L"Section", L"Key", L"another value", file.c_str()));
             },
         .success = 1,
         .failure = 0,
         .check = check,
         .prepare = prepare},
        {.name = "WritePrivateProfileStringA",
         .call =
             [this]
         {
             return static_cast<long>(
                 service.WritePrivateProfileStringA("Section", "Key", "another value", narrowFile.c_str()));
         },
         .success = 1,
         .failure = 0,
         .check = check,
         .prepare = prepare},
    });
}

// ---- The registry --------------------------------------------------------------------------------------------------

// One that nothing derives from, so that it can be destroyed where it stands.
class Registry final : public RegistryService
{
    using RegistryService::RegistryService;
};

class HostRegistry : public testing::Test
{
protected:
    HostRegistry()
    {
        RegistryService made((folder.path() / "registry.db").string());
        open(made);
        const BYTE old[] = "old data of a value";
        EXPECT_EQ(made.RegSetValueExW(key, L"Value", 0, REG_BINARY, old, sizeof old), ERROR_SUCCESS);
        EXPECT_EQ(made.RegCloseKey(key), ERROR_SUCCESS);
    }

    void open(RegistryService& registry)
    {
        HKEY* made = nullptr;
        EXPECT_EQ(
            registry.RegCreateKeyExW(HKEY_CURRENT_USER, path, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &made, nullptr),
            ERROR_SUCCESS);
        key = *made;
    }

    // An operation on an open key; before it the value is the old one.
    AllocatingCall operation(const char* name, std::function<LONG()> call, std::function<void(bool)> check)
    {
        return {.name = name,
                .call = [call] { return static_cast<long>(call()); },
                .success = ERROR_SUCCESS,
                .failure = ERROR_OUTOFMEMORY,
                .check = std::move(check),
                .prepare =
                    [this]
                {
                    fs::copy_file("registry.db", "copy.db", fs::copy_options::overwrite_existing);
                    service.emplace((folder.path() / "copy.db").string());
                    open(*service);
                    child = nullptr;
                    size = sizeof data;
                },
                .release =
                    [this]
                {
                    service.reset();
                    fs::remove("copy.db");
                }};
    }

    // What a fresh connection finds.
    std::string valueOnDisk()
    {
        RegistryService fresh((folder.path() / "copy.db").string());
        HKEY opened = nullptr;
        if (fresh.RegOpenKeyExW(HKEY_CURRENT_USER, path, 0, KEY_READ, &opened) != ERROR_SUCCESS)
        {
            return "none";
        }
        BYTE found[100] = {};
        DWORD length = sizeof found;
        const LONG result = fresh.RegQueryValueExW(opened, L"Value", nullptr, nullptr, found, &length);
        return result == ERROR_SUCCESS ? reinterpret_cast<const char*>(found) : "none";
    }

    static constexpr const wchar_t* path = L"Software\\A key of a longer name";

    ScratchFolder folder;
    std::optional<Registry> service;
    HKEY key = nullptr;
    HKEY* child = nullptr;
    HKEY opened = nullptr;
    BYTE data[100] = {};
    DWORD size = 0;
    wchar_t name[100] = {};
};

TEST_F(HostRegistry, KeepsItsValuesWithoutMemory)
{
    static const BYTE newData[] = "new data of the value, which is longer than the old";
    expectEveryFailureHandled(std::vector<AllocatingCall>{
        operation(
            "RegSetValueExW",
            [this] { return service->RegSetValueExW(key, L"Value", 0, REG_BINARY, newData, sizeof newData); },
            [this](bool succeeded)
            {
                EXPECT_EQ(valueOnDisk(), succeeded ? reinterpret_cast<const char*>(newData) : "old data of a value");
                if (!succeeded)
                {
                    // The same connection has forgotten the attempt as well, and can make another.
                    EXPECT_EQ(service->RegQueryValueExW(key, L"Value", nullptr, nullptr, data, &size), ERROR_SUCCESS);
                    EXPECT_STREQ(reinterpret_cast<const char*>(data), "old data of a value");
                    EXPECT_EQ(service->RegSetValueExW(key, L"Value", 0, REG_BINARY, newData, sizeof newData),
                              ERROR_SUCCESS);
                    EXPECT_EQ(valueOnDisk(), reinterpret_cast<const char*>(newData));
                }
            }),
        operation(
            "RegDeleteValueW", [this] { return service->RegDeleteValueW(key, L"Value"); },
            [this](bool succeeded) { EXPECT_EQ(valueOnDisk(), succeeded ? "none" : "old data of a value"); }),
    });
}

TEST_F(HostRegistry, KeepsItsKeysWithoutMemory)
{
    expectEveryFailureHandled(std::vector<AllocatingCall>{
        operation(
            "RegDeleteKeyW", [this] { return service->RegDeleteKeyW(HKEY_CURRENT_USER, path); },
            [this](bool succeeded) { EXPECT_EQ(valueOnDisk(), succeeded ? "none" : "old data of a value"); }),
        operation(
            "RegDeleteKeyExW", [this] { return service->RegDeleteKeyExW(HKEY_CURRENT_USER, path, 0, 0); },
            [this](bool succeeded) { EXPECT_EQ(valueOnDisk(), succeeded ? "none" : "old data of a value"); }),
    });
}

TEST_F(HostRegistry, MakesNoKeysWithoutMemory)
{
    expectEveryFailureHandled(std::vector<AllocatingCall>{
        operation(
            "RegCreateKeyW", [this] { return service->RegCreateKeyW(key, L"Deeper\\And deeper still", &child); },
            [this](bool succeeded)
            {
                EXPECT_EQ(child != nullptr, succeeded);
                EXPECT_EQ(valueOnDisk(), "old data of a value");
            }),
        operation(
            "RegCreateKeyExW",
            [this]
            {
                return service->RegCreateKeyExW(key, L"Deeper\\And deeper still", 0, nullptr, 0, KEY_ALL_ACCESS,
                                                nullptr, &child, nullptr);
            },
            [this](bool succeeded)
            {
                EXPECT_EQ(child != nullptr, succeeded);
                EXPECT_EQ(valueOnDisk(), "old data of a value");
            }),
    });
}

TEST_F(HostRegistry, AnswersItsValuesOrItsWantOfMemory)
{
    const auto readValue = [this] { return service->RegQueryValueExW(key, L"Value", nullptr, nullptr, data, &size); };
    const auto stays = [this](bool) { EXPECT_EQ(valueOnDisk(), "old data of a value"); };
    expectEveryFailureHandled(std::vector<AllocatingCall>{
        operation("RegQueryValueExW", readValue, stays),
        operation(
            "RegQueryValueW",
            [this]
            {
                LONG length = sizeof name;
                return service->RegQueryValueW(HKEY_CURRENT_USER, path, name, &length);
            },
            stays),
        operation(
            "RegEnumValueW",
            [this]
            {
                DWORD length = 100;
                return service->RegEnumValueW(key, 0, name, &length, nullptr, nullptr, nullptr, nullptr);
            },
            stays),
    });
}

TEST_F(HostRegistry, AnswersItsKeysOrItsWantOfMemory)
{
    const auto stays = [this](bool) { EXPECT_EQ(valueOnDisk(), "old data of a value"); };
    expectEveryFailureHandled(std::vector<AllocatingCall>{
        operation(
            "RegOpenKeyExW",
            [this] { return service->RegOpenKeyExW(HKEY_CURRENT_USER, L"Software", 0, KEY_READ, &opened); }, stays),
        operation(
            "RegOpenKeyW", [this] { return service->RegOpenKeyW(HKEY_CURRENT_USER, path, &opened); }, stays),
        operation(
            "RegQueryInfoKeyW",
            [this]
            {
                DWORD values = 0;
                return service->RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &values,
                                                 nullptr, nullptr, nullptr, nullptr);
            },
            stays),
        operation(
            "RegEnumKeyW", [this] { return service->RegEnumKeyW(HKEY_CURRENT_USER, 0, name, 100); }, stays),
        operation(
            "RegEnumKeyExW",
            [this]
            {
                DWORD length = 100;
                return service->RegEnumKeyExW(HKEY_CURRENT_USER, 0, name, &length, nullptr, nullptr, nullptr, nullptr);
            },
            stays),
    });
}

// The first call of a service opens the database.
TEST_F(HostRegistry, OpensItsDatabaseOrAnswersItsWantOfMemory)
{
    AllocatingCall row = operation(
        "RegOpenKeyExW",
        [this] { return service->RegOpenKeyExW(HKEY_CURRENT_USER, L"Software", 0, KEY_READ, &opened); },
        [this](bool succeeded)
        {
            if (!succeeded)
            {
                // The same service works once there is memory.
                EXPECT_EQ(service->RegOpenKeyExW(HKEY_CURRENT_USER, L"Software", 0, KEY_READ, &opened), ERROR_SUCCESS);
            }
        });
    row.prepare = [this]
    {
        fs::copy_file("registry.db", "copy.db", fs::copy_options::overwrite_existing);
        service.emplace((folder.path() / "copy.db").string());
    };
    row.oneAlone = true;
    expectEveryFailureHandled(row);
}

// ---- Code pages ----------------------------------------------------------------------------------------------------

TEST(HostCodePages, AreNotKnownWithoutMemory)
{
    constexpr int untouched = 77;
    kest::host::ConsoleFontService service;
    const auto row = [&](const char* name, UINT page, BOOL valid)
    {
        return AllocatingCall{.name = name,
                              .call = [&service, page] { return static_cast<long>(service.IsValidCodePage(page)); },
                              .success = valid,
                              .failure = 0,
                              .check = [](bool succeeded)
                              { EXPECT_TRUE(errno == notEnoughMemory || (succeeded && errno == untouched)) << errno; },
                              .prepare = [] { errno = untouched; }};
    };
    expectEveryFailureHandled(std::vector<AllocatingCall>{
        row("IsValidCodePage, of a module that is loaded already", 1250, 1),
        row("IsValidCodePage, built in", 65001, 1),
        row("IsValidCodePage, unknown", 4711, 0),
    });
}

// ---- Making services -----------------------------------------------------------------------------------------------

// One that nothing derives from, so that it can be destroyed where it stands.
class Dialogs final : public TerminalDialogService
{
};

TEST(HostServices, AreMadeWholeOrNotAtAll)
{
    const ScopedVariable data("XDG_DATA_HOME", "/a folder of a name that is too long to be kept in place");
    const std::string file = "/a file of a name that is too long to be kept in place";
    std::optional<KestReferenceHost> host;
    std::optional<Registry> registry;
    std::optional<Dialogs> dialogs;
    const auto row = [](const char* name, auto& made, auto make)
    {
        return AllocatingCall{.name = name,
                              .call =
                                  [make]
                              {
                                  make();
                                  return 1L;
                              },
                              .success = 1,
                              .failure = std::nullopt,
                              .check = [&made](bool succeeded) { EXPECT_EQ(made.has_value(), succeeded); },
                              .release = [&made] { made.reset(); }};
    };
    expectEveryFailureHandled(std::vector<AllocatingCall>{
        row("KestReferenceHost", host, [&] { host.emplace(); }),
        row("RegistryService, its file given", registry, [&] { registry.emplace(file); }),
        row("RegistryService", registry, [&] { registry.emplace(); }),
        row("TerminalDialogService", dialogs, [&] { dialogs.emplace(); }),
    });
}

// ---- Files ---------------------------------------------------------------------------------------------------------

TEST(HostFiles, AreNotFoundWithoutMemory)
{
    const ScratchFolder folder;
    folder.write("a folder of a longer name/a file of a longer name", "content");
    const std::wstring path = folder.path().wstring() + L"/A FOLDER of a longer name/a file of a longer NAME";
    const std::wstring pattern = folder.path().wstring() + L"/a folder of a longer NAME/*.*";
    const ScopedVariable temporary("TMPDIR", "/a folder of a name that is too long to be kept in place");
    FileSystemService service;
    WIN32_FIND_DATAW found;
    HANDLE search = INVALID_HANDLE_VALUE;
    std::wstring actual;
    SentinelBuffer<wchar_t, MAX_PATH> buffer;
    const auto forget = [&]
    {
        actual = std::wstring();
        buffer = {};
        errno = 0;
    };
    const auto tellsWhy = [](bool succeeded) { EXPECT_TRUE(succeeded || errno == notEnoughMemory) << errno; };
    expectEveryFailureHandled(std::vector<AllocatingCall>{
        {.name = "PathFileExistsW",
         .call = [&] { return static_cast<long>(service.PathFileExistsW(path.c_str(), actual)); },
         .success = 1,
         .failure = 0,
         .check = tellsWhy,
         .prepare = forget,
         .release = forget},
        {.name = "GetFileAttributesW",
         .call = [&] { return service.GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES ? 1L : 0L; },
         .success = 1,
         .failure = 0,
         .check = tellsWhy,
         .prepare = forget},
        {.name = "SetFileAttributesW",
         .call = [&] { return static_cast<long>(service.SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL)); },
         .success = 1,
         .failure = 0,
         .check = tellsWhy,
         .prepare = forget},
        {.name = "FindFirstFileW",
         .call =
             [&]
         {
             search = service.FindFirstFileW(pattern.c_str(), &found);
             return search != INVALID_HANDLE_VALUE ? 1L : 0L;
         },
         .success = 1,
         .failure = 0,
         .check = tellsWhy,
         .prepare = forget,
         .release =
             [&]
         {
             if (search != INVALID_HANDLE_VALUE)
             {
                 service.FindClose(search);
             }
         }},
        {.name = "PathRelativePathToW",
         .call = [&]
         { return static_cast<long>(service.PathRelativePathToW(buffer.data(), L"/a/b", 0x10, L"/a/c/d/e", 0)); },
         .success = 1,
         .failure = 0,
         .check = tellsWhy,
         .prepare = forget},
        {.name = "GetTempPathW",
         .call = [&] { return static_cast<long>(service.GetTempPathW(MAX_PATH, buffer.data())); },
         .success = 57,
         .failure = 0,
         .check = tellsWhy,
         .prepare = forget},
        {.name = "SHGetFolderPathW",
         .call = [&]
         { return static_cast<long>(service.SHGetFolderPathW(nullptr, CSIDL_FONTS, nullptr, 0, buffer.data())); },
         .success = service.SHGetFolderPathW(nullptr, CSIDL_FONTS, nullptr, 0, buffer.data()),
         .failure = E_OUTOFMEMORY,
         .prepare = forget},
    });
}

TEST(HostFiles, AreNotPassedOverInASearchWithoutMemory)
{
    const ScratchFolder folder;
    const std::wstring name = L"\u00e9 a name that takes memory to be told";
    folder.write("1", "");
    folder.write("\u00e9 a name that takes memory to be told", "");
    FileSystemService service;
    WIN32_FIND_DATAW found;
    HANDLE search = INVALID_HANDLE_VALUE;
    expectEveryFailureHandled(
        AllocatingCall{.name = "FindNextFileW",
                       .call = [&] { return static_cast<long>(service.FindNextFileW(search, &found)); },
                       .success = 1,
                       .failure = 0,
                       .check =
                           [&](bool succeeded)
                       {
                           if (!succeeded)
                           {
                               EXPECT_EQ(errno, notEnoughMemory);
                               EXPECT_EQ(service.FindNextFileW(search, &found), 1);
                           }
                           EXPECT_EQ(std::wstring(found.cFileName), name);
                           EXPECT_EQ(service.FindNextFileW(search, &found), 0);
                       },
                       .prepare =
                           [&]
                       {
                           search = service.FindFirstFileW((folder.path().wstring() + L"/*").c_str(), &found);
                           while (std::wstring(found.cFileName) != L"1")
                           {
                               ASSERT_EQ(service.FindNextFileW(search, &found), 1);
                           }
                       },
                       .release = [&] { service.FindClose(search); }});
}

// ---- Numbers and the environment -----------------------------------------------------------------------------------

TEST(HostSystem, AnswersItsWantOfMemory)
{
    const ScopedVariable variable("KEST_TEST_VARIABLE", "a value that is long enough for the heap");
    const std::wstring text = L"%KEST_test_VARIABLE% and what stands behind it";
    SystemService service;
    SentinelBuffer<wchar_t, 100> out;
    std::wstring expanded;
    expectEveryFailureHandled(std::vector<AllocatingCall>{
        {.name = "GetNumberFormatW",
         .call = [&] { return service.GetNumberFormatW(0, 0, L"-12345678901234.567", nullptr, out.data(), 100); },
         .success = 23,
         .failure = 0,
         .check =
             [&](bool succeeded)
         {
             EXPECT_TRUE(succeeded || errno == notEnoughMemory) << errno;
             EXPECT_TRUE(succeeded || out.contents() == out.untouched());
         },
         .prepare =
             [&]
         {
             out = {};
             errno = 0;
         }},
        {.name = "ExpandEnvironmentStringsW",
         .call =
             [&]
         {
             expanded = service.ExpandEnvironmentStringsW(text);
             return 1L;
         },
         .success = 1,
         .failure = std::nullopt,
         .check =
             [&](bool succeeded) {
                 EXPECT_EQ(expanded,
                           succeeded ? L"a value that is long enough for the heap and what stands behind it" : L"");
             },
         .prepare = [&] { expanded = std::wstring(); },
         .release = [&] { expanded = std::wstring(); }},
    });
}

// ---- Dialogs and messages ------------------------------------------------------------------------------------------

// Where nobody can be asked.
int statusUnattended(const std::function<void()>& body)
{
    return statusInChild(
        [&body]
        {
            const int nothing = open("/dev/null", O_RDWR);
            ASSERT_NE(dup2(nothing, STDIN_FILENO), -1);
            ASSERT_NE(dup2(nothing, STDERR_FILENO), -1);
            ASSERT_EQ(close(nothing), 0);
            body();
        });
}

TEST(HostDialogs, AnswerTheirWantOfMemoryAndStoreNothing)
{
    constexpr int no = 7;
    constexpr int untouched = -77;
    TASKDIALOG_BUTTON radios[] = {{101, L"&One"}, {102, L"&Two"}};
    TASKDIALOGCONFIG dialog = {};
    dialog.cbSize = sizeof dialog;
    dialog.pszWindowTitle = L"A title that takes memory";
    dialog.pszMainInstruction = L"An instruction that takes memory";
    dialog.dwCommonButtons = 0x02 | 0x04;
    dialog.nDefaultButton = no;
    dialog.pRadioButtons = radios;
    dialog.cRadioButtons = 2;
    dialog.nDefaultRadioButton = 102;
    dialog.pszVerificationText = L"A verification that takes memory";
    TerminalDialogService service;
    int button = untouched;
    int radio = untouched;
    BOOL verified = untouched;
    EXPECT_EQ(
        statusUnattended(
            [&]
            {
                expectEveryFailureHandled(std::vector<AllocatingCall>{
                    {.name = "MessageBoxW",
                     .call = [&] { return service.MessageBoxW(nullptr, L"A text that takes memory", nullptr, 4); },
                     .success = 6,
                     .failure = 0,
                     .check = [](bool succeeded) { EXPECT_TRUE(succeeded || errno == notEnoughMemory) << errno; }},
                    {.name = "TaskDialogIndirect",
                     .call = [&] { return service.TaskDialogIndirect(&dialog, &button, &radio, &verified); },
                     .success = 0,
                     .failure = E_OUTOFMEMORY,
                     .check =
                         [&](bool succeeded)
                     {
                         EXPECT_EQ(button, succeeded ? no : untouched);
                         EXPECT_EQ(radio, succeeded ? 102 : untouched);
                         EXPECT_EQ(verified, succeeded ? 0 : untouched);
                     },
                     .prepare = [&] { button = radio = verified = untouched; }},
                });
            }),
        0);
}

TEST(HostMessages, ReachTheHandlerBeforeWhereANewOneFindsNoMemory)
{
    const auto window = reinterpret_cast<HWND>(0x10);
    // More than a function object keeps in place.
    const std::array<LRESULT, 20> added = {1000};
    std::optional<Dialogs> service;
    TerminalDialogService::WindowHandler handler;
    const auto fresh = [&]
    {
        service.emplace();
        handler = [added](HWND, UINT, WPARAM, LPARAM lParam) -> LRESULT { return lParam + added[0]; };
    };
    const auto registerHandler = [&]
    {
        service->registerWindow(window, std::move(handler));
        return 1L;
    };
    const auto end = [&]
    {
        service.reset();
        handler = nullptr;
    };
    expectEveryFailureHandled(std::vector<AllocatingCall>{
        {.name = "registerWindow",
         .call = registerHandler,
         .success = 1,
         .failure = std::nullopt,
         .check =
             [&](bool succeeded)
         {
             EXPECT_EQ(service->SendMessageW(window, 1, 0, 1), succeeded ? 1001 : 0);
             EXPECT_EQ(service->PostMessageW(window, 1, 0, 1), succeeded ? 1 : 0);
         },
         .prepare = fresh,
         .release = end},
        {.name = "registerWindow, a second time",
         .call = registerHandler,
         .success = 1,
         .failure = std::nullopt,
         .check = [&](bool succeeded) { EXPECT_EQ(service->SendMessageW(window, 1, 0, 1), succeeded ? 1001 : 2); },
         .prepare =
             [&]
         {
             fresh();
             service->registerWindow(window, [](HWND, UINT, WPARAM, LPARAM lParam) -> LRESULT { return lParam + 1; });
         },
         .release = end},
    });
}

TEST(HostMessages, AreSentWithoutMemoryAndPostedWholeOrNotAtAll)
{
    TerminalDialogService service;
    const auto window = reinterpret_cast<HWND>(0x10);
    std::vector<LPARAM> seen;
    // More than a function object keeps in place.
    const std::array<LPARAM, 20> added = {1000};
    service.registerWindow(window,
                           [&seen, added](HWND, UINT, WPARAM, LPARAM lParam) -> LRESULT
                           {
                               if (lParam >= 0)
                               {
                                   seen.push_back(lParam);
                               }
                               return lParam + added[0];
                           });
    {
        const FailingAllocation failing(1, FailingAllocation::Extent::thisOneAndAllBehindIt);
        EXPECT_EQ(service.SendMessageW(window, 1, 0, -1), 999);
    }

    std::vector<LPARAM> posted;
    posted.reserve(2000);
    const auto post = [&](LPARAM message)
    {
        const BOOL done = service.PostMessageW(window, 1, 0, message);
        if (done != 0)
        {
            posted.push_back(message);
        }
        return done;
    };
    {
        const FailingAllocation failing(1, FailingAllocation::Extent::thisOneAndAllBehindIt);
        for (LPARAM message = 0; message < 1000; ++message)
        {
            EXPECT_TRUE(post(message) == 1 || errno == notEnoughMemory);
        }
        EXPECT_TRUE(failing.reached());
    }
    EXPECT_LT(posted.size(), 1000U);
    EXPECT_EQ(post(1000), 1);
    EXPECT_EQ(service.dispatchPosted(), static_cast<int>(posted.size()));
    EXPECT_EQ(seen, posted);
}

} // namespace
