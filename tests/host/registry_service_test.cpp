#include "kest/host/registry_service.h"

#include "full_disk.h"
#include "harness/in_child.h"
#include "harness/ordinary_user.h"
#include "harness/scratch_folder.h"
#include "harness/sentinel_buffer.h"
#include "kest/registry.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace
{

using kest::host::RegistryService;
using kest::test::ScratchFolder;

void waitForFile(const std::string& name)
{
    while (!std::filesystem::exists(name))
    {
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
}

// A registry in a scratch folder, and shorter spellings of its operations.
class Registry : public testing::Test
{
protected:
    Registry() : file_(folder_.path() / "data" / "registry.db"), service_(file_.string()) {}

    HKEY create(const wchar_t* path, HKEY base = HKEY_CURRENT_USER, REGSAM access = KEY_ALL_ACCESS)
    {
        HKEY* key = nullptr;
        EXPECT_EQ(service_.RegCreateKeyExW(base, path, 0, nullptr, 0, access, nullptr, &key, nullptr), 0);
        return key == nullptr ? nullptr : *key;
    }

    LONG setText(HKEY key, const wchar_t* name, const std::wstring& text)
    {
        return service_.RegSetValueExW(key, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                                       static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
    }

    std::wstring text(HKEY key, const wchar_t* name)
    {
        wchar_t buffer[100] = {};
        DWORD bytes = sizeof buffer;
        DWORD type = 0;
        EXPECT_EQ(service_.RegQueryValueExW(key, name, nullptr, &type, reinterpret_cast<BYTE*>(buffer), &bytes), 0);
        EXPECT_EQ(type, static_cast<DWORD>(REG_SZ));
        EXPECT_EQ(bytes, (std::wcslen(buffer) + 1) * sizeof(wchar_t));
        return buffer;
    }

    std::vector<std::wstring> children(HKEY key)
    {
        std::vector<std::wstring> names;
        wchar_t name[300];
        for (DWORD index = 0; service_.RegEnumKeyW(key, index, name, 300) == 0; ++index)
        {
            names.emplace_back(name);
        }
        return names;
    }

    ScratchFolder folder_;
    std::filesystem::path file_;
    RegistryService service_;
};

TEST_F(Registry, MakesItsFileForTheOwnerOnly)
{
    EXPECT_FALSE(std::filesystem::exists(file_));
    ASSERT_NE(create(L"Software\\Kest"), nullptr);
    struct stat status = {};
    ASSERT_EQ(stat(file_.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0600U);
    ASSERT_EQ(stat((file_.string() + "-wal").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0600U);
    ASSERT_EQ(stat(file_.parent_path().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0700U);
}

TEST_F(Registry, TakesItsFileFromTheEnvironment)
{
    setenv("KEST_REGISTRY", "/somewhere/registry.db", 1);
    EXPECT_EQ(RegistryService::defaultFile(), "/somewhere/registry.db");
    unsetenv("KEST_REGISTRY");
    setenv("XDG_DATA_HOME", "/data", 1);
    EXPECT_EQ(RegistryService::defaultFile(), "/data/kest/registry.db");
    unsetenv("XDG_DATA_HOME");
    setenv("HOME", "/home/user", 1);
    EXPECT_EQ(RegistryService::defaultFile(), "/home/user/.local/share/kest/registry.db");
}

TEST_F(Registry, TellsNewKeysFromExistingOnes)
{
    HKEY* key = nullptr;
    DWORD disposition = 99;
    EXPECT_EQ(
        service_.RegCreateKeyExW(HKEY_CURRENT_USER, L"a\\b\\c", 0, nullptr, 0, KEY_READ, nullptr, &key, &disposition),
        0);
    EXPECT_EQ(disposition, static_cast<DWORD>(REG_CREATED_NEW_KEY));
    EXPECT_EQ(
        service_.RegCreateKeyExW(HKEY_CURRENT_USER, L"A\\B\\C\\", 0, nullptr, 0, KEY_READ, nullptr, &key, &disposition),
        0);
    EXPECT_EQ(disposition, static_cast<DWORD>(REG_OPENED_EXISTING_KEY));
    EXPECT_EQ(service_.RegCreateKeyExW(HKEY_CURRENT_USER, L"", 0, nullptr, 0, KEY_READ, nullptr, &key, &disposition),
              0);
    EXPECT_EQ(disposition, static_cast<DWORD>(REG_OPENED_EXISTING_KEY));
}

TEST_F(Registry, ComparesNamesWithoutCaseAndKeepsTheirSpelling)
{
    const HKEY key = create(L"Größe\\Ключ");
    ASSERT_NE(key, nullptr);
    EXPECT_EQ(setText(key, L"Étage", L"drei"), 0);
    HKEY opened = nullptr;
    ASSERT_EQ(service_.RegOpenKeyExW(HKEY_CURRENT_USER, L"GRößE\\кЛЮЧ", 0, KEY_READ, &opened), 0);
    EXPECT_EQ(text(opened, L"éTAGE"), L"drei");
    EXPECT_EQ(children(HKEY_CURRENT_USER), std::vector<std::wstring>{L"Größe"});
    EXPECT_EQ(setText(key, L"ÉTAGE", L"vier"), 0);
    wchar_t name[20];
    DWORD length = 20;
    EXPECT_EQ(service_.RegEnumValueW(key, 0, name, &length, nullptr, nullptr, nullptr, nullptr), 0);
    EXPECT_STREQ(name, L"Étage");
    EXPECT_EQ(length, 5U);
    length = 20;
    EXPECT_EQ(service_.RegEnumValueW(key, 1, name, &length, nullptr, nullptr, nullptr, nullptr), ERROR_NO_MORE_ITEMS);
}

TEST_F(Registry, KeepsEveryTypeOfValueByteForByte)
{
    const HKEY key = create(L"types");
    const std::vector<BYTE> data = {0, 1, 2, 0, 255, 128};
    const std::vector<DWORD> types = {
        REG_NONE, REG_SZ,       REG_EXPAND_SZ,     REG_BINARY, REG_DWORD, REG_DWORD_BIG_ENDIAN,
        REG_LINK, REG_MULTI_SZ, REG_RESOURCE_LIST, REG_QWORD,  12345};
    for (const DWORD type : types)
    {
        const std::wstring name = L"value " + std::to_wstring(type);
        ASSERT_EQ(service_.RegSetValueExW(key, name.c_str(), 0, type, data.data(), static_cast<DWORD>(data.size())), 0);
        kest::test::SentinelBuffer<BYTE, 10> buffer;
        DWORD readType = 0;
        DWORD bytes = 10;
        ASSERT_EQ(service_.RegQueryValueExW(key, name.c_str(), nullptr, &readType, buffer.data(), &bytes), 0);
        EXPECT_EQ(readType, type);
        EXPECT_EQ(bytes, data.size());
        EXPECT_EQ(buffer.contents(), buffer.startingWith({data.begin(), data.end()}));
    }
    ASSERT_EQ(service_.RegSetValueExW(key, L"empty", 0, REG_BINARY, nullptr, 0), 0);
    DWORD bytes = 7;
    EXPECT_EQ(service_.RegQueryValueExW(key, L"empty", nullptr, nullptr, nullptr, &bytes), 0);
    EXPECT_EQ(bytes, 0U);
}

TEST_F(Registry, AnswersQueriesOfValuesAsWindowsDoes)
{
    const HKEY key = create(L"values");
    ASSERT_EQ(setText(key, nullptr, L"default"), 0);
    EXPECT_EQ(text(key, L""), L"default");
    DWORD reserved = 0;
    DWORD bytes = 0;
    DWORD type = 0;
    BYTE byte = 0x5A;
    EXPECT_EQ(service_.RegQueryValueExW(key, nullptr, nullptr, &type, nullptr, &bytes), 0);
    EXPECT_EQ(bytes, 32U);
    bytes = 1;
    EXPECT_EQ(service_.RegQueryValueExW(key, nullptr, nullptr, nullptr, &byte, &bytes), ERROR_MORE_DATA);
    EXPECT_EQ(bytes, 32U);
    EXPECT_EQ(byte, 0x5A);
    EXPECT_EQ(service_.RegQueryValueExW(key, nullptr, nullptr, nullptr, &byte, nullptr), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(service_.RegQueryValueExW(key, nullptr, &reserved, nullptr, nullptr, nullptr), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(service_.RegQueryValueExW(key, L"no", nullptr, nullptr, nullptr, nullptr), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(service_.RegQueryValueExW(key, nullptr, nullptr, nullptr, nullptr, nullptr), 0);
    EXPECT_EQ(service_.RegSetValueExW(key, L"x", 0, REG_SZ, nullptr, 4), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(service_.RegSetValueExW(key, L"x", 1, REG_SZ, &byte, 1), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(service_.RegDeleteValueW(key, L"no"), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(service_.RegDeleteValueW(key, L""), 0);
    EXPECT_EQ(service_.RegQueryValueExW(key, nullptr, nullptr, nullptr, nullptr, nullptr), ERROR_FILE_NOT_FOUND);
}

TEST_F(Registry, ReadsTheDefaultValueOfASubkey)
{
    const HKEY key = create(L"outer");
    ASSERT_EQ(setText(create(L"outer\\inner"), nullptr, L"text"), 0);
    kest::test::SentinelBuffer<wchar_t, 6> buffer;
    LONG bytes = 6 * sizeof(wchar_t);
    EXPECT_EQ(service_.RegQueryValueW(key, L"inner", buffer.data(), &bytes), 0);
    EXPECT_EQ(bytes, 20);
    EXPECT_EQ(buffer.contents(), buffer.startingWith(std::wstring(L"text\0", 5)));
    bytes = 4;
    EXPECT_EQ(service_.RegQueryValueW(key, L"inner", buffer.data(), &bytes), ERROR_MORE_DATA);
    EXPECT_EQ(bytes, 20);
    EXPECT_EQ(service_.RegQueryValueW(key, L"inner", nullptr, &bytes), 0);
    EXPECT_EQ(bytes, 20);
    EXPECT_EQ(service_.RegQueryValueW(key, L"no", nullptr, &bytes), ERROR_FILE_NOT_FOUND);
    bytes = 24;
    EXPECT_EQ(service_.RegQueryValueW(key, nullptr, buffer.data(), &bytes), 0);
    EXPECT_EQ(bytes, 4);
    EXPECT_EQ(buffer.data()[0], L'\0');
}

TEST_F(Registry, AnswersBadHandlesAndPaths)
{
    HKEY key = nullptr;
    const auto bad = reinterpret_cast<HKEY>(std::uintptr_t{0x1234});
    EXPECT_EQ(service_.RegOpenKeyExW(bad, L"a", 0, KEY_READ, &key), ERROR_INVALID_HANDLE);
    EXPECT_EQ(service_.RegOpenKeyExW(nullptr, L"a", 0, KEY_READ, &key), ERROR_INVALID_HANDLE);
    EXPECT_EQ(service_.RegCloseKey(bad), ERROR_INVALID_HANDLE);
    EXPECT_EQ(service_.RegCloseKey(HKEY_LOCAL_MACHINE), 0);
    EXPECT_EQ(service_.RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"no", 0, KEY_READ, &key), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(service_.RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"\\a", 0, KEY_READ, &key), ERROR_BAD_PATHNAME);
    EXPECT_EQ(service_.RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"a", 0, KEY_READ, nullptr), ERROR_INVALID_PARAMETER);
    const std::wstring longName(256, L'n');
    HKEY* out = nullptr;
    EXPECT_EQ(service_.RegCreateKeyW(HKEY_LOCAL_MACHINE, longName.c_str(), &out), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(service_.RegCreateKeyW(HKEY_LOCAL_MACHINE, longName.substr(1).c_str(), &out), 0);
    EXPECT_EQ(service_.RegCreateKeyExW(HKEY_LOCAL_MACHINE, nullptr, 0, nullptr, 0, KEY_READ, nullptr, &out, nullptr),
              ERROR_INVALID_PARAMETER);
    key = create(L"closed");
    EXPECT_EQ(service_.RegCloseKey(key), 0);
    EXPECT_EQ(service_.RegCloseKey(key), ERROR_INVALID_HANDLE);
    EXPECT_EQ(service_.RegSetValueExW(key, L"x", 0, REG_DWORD, nullptr, 0), ERROR_INVALID_HANDLE);
}

TEST_F(Registry, GivesTheRightsThatWereAskedFor)
{
    const HKEY reading = create(L"rights", HKEY_CURRENT_USER, KEY_READ);
    const HKEY writing = create(L"rights", HKEY_CURRENT_USER, KEY_WRITE);
    HKEY* out = nullptr;
    EXPECT_EQ(setText(reading, L"x", L"1"), ERROR_ACCESS_DENIED);
    EXPECT_EQ(service_.RegCreateKeyW(reading, L"sub", &out), ERROR_ACCESS_DENIED);
    EXPECT_EQ(setText(writing, L"x", L"1"), 0);
    EXPECT_EQ(service_.RegQueryValueExW(writing, L"x", nullptr, nullptr, nullptr, nullptr), ERROR_ACCESS_DENIED);
    EXPECT_EQ(service_.RegQueryValueExW(reading, L"x", nullptr, nullptr, nullptr, nullptr), 0);
    const HKEY generic = create(L"rights", HKEY_CURRENT_USER, 0x80000000);
    EXPECT_EQ(service_.RegQueryValueExW(generic, L"x", nullptr, nullptr, nullptr, nullptr), 0);
    EXPECT_EQ(setText(generic, L"x", L"1"), ERROR_ACCESS_DENIED);
}

TEST_F(Registry, RefusesToDeleteKeysWithChildrenAndPredefinedOnes)
{
    const HKEY key = create(L"parent\\child");
    EXPECT_EQ(service_.RegDeleteKeyW(HKEY_CURRENT_USER, L"parent"), ERROR_ACCESS_DENIED);
    EXPECT_EQ(service_.RegDeleteKeyW(HKEY_LOCAL_MACHINE, L"Software"), ERROR_ACCESS_DENIED);
    EXPECT_EQ(service_.RegDeleteKeyW(HKEY_CURRENT_USER, L""), ERROR_ACCESS_DENIED);
    EXPECT_EQ(service_.RegDeleteKeyW(HKEY_CURRENT_USER, nullptr), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(service_.RegDeleteKeyExW(HKEY_CURRENT_USER, L"parent\\child", 0, 1), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(service_.RegDeleteKeyW(HKEY_CURRENT_USER, L"no"), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(service_.RegDeleteKeyExW(HKEY_CURRENT_USER, L"PARENT\\CHILD", KEY_WOW64_64KEY, 0), 0);
    EXPECT_EQ(service_.RegDeleteKeyW(HKEY_CURRENT_USER, L"parent"), 0);
    // The child's handle outlived it.
    HKEY opened = nullptr;
    DWORD length = 10;
    wchar_t name[10];
    EXPECT_EQ(setText(key, L"x", L"1"), ERROR_KEY_DELETED);
    EXPECT_EQ(service_.RegQueryValueExW(key, L"x", nullptr, nullptr, nullptr, nullptr), ERROR_KEY_DELETED);
    EXPECT_EQ(service_.RegOpenKeyExW(key, L"y", 0, KEY_READ, &opened), ERROR_KEY_DELETED);
    EXPECT_EQ(service_.RegEnumKeyW(key, 0, name, 10), ERROR_KEY_DELETED);
    EXPECT_EQ(service_.RegEnumValueW(key, 0, name, &length, nullptr, nullptr, nullptr, nullptr), ERROR_KEY_DELETED);
    create(L"parent\\child");
    EXPECT_EQ(setText(key, L"x", L"1"), ERROR_KEY_DELETED);
    EXPECT_EQ(service_.RegCloseKey(key), 0);
}

TEST_F(Registry, EnumeratesKeysByNameAndValuesByAge)
{
    const HKEY key = create(L"list");
    const std::vector<std::wstring> names = {L"delta", L"Alpha", L"charlie", L"Bravo"};
    for (const std::wstring& name : names)
    {
        create(name.c_str(), key);
        ASSERT_EQ(setText(key, name.c_str(), name), 0);
    }
    EXPECT_EQ(children(key), (std::vector<std::wstring>{L"Alpha", L"Bravo", L"charlie", L"delta"}));
    for (DWORD index = 0; index < 4; ++index)
    {
        wchar_t name[10];
        DWORD characters = 10;
        DWORD bytes = 0;
        EXPECT_EQ(service_.RegEnumValueW(key, index, name, &characters, nullptr, nullptr, nullptr, &bytes), 0);
        EXPECT_EQ(name, names[index]);
        EXPECT_EQ(bytes, (names[index].size() + 1) * sizeof(wchar_t));
    }
}

TEST_F(Registry, EnumerationSurvivesChangesBetweenTheSteps)
{
    const HKEY key = create(L"list");
    for (int number = 0; number < 10; ++number)
    {
        create((L"key " + std::to_wstring(number)).c_str(), key);
    }
    wchar_t name[20];
    EXPECT_EQ(service_.RegEnumKeyW(key, 3, name, 20), 0);
    EXPECT_STREQ(name, L"key 3");
    EXPECT_EQ(service_.RegDeleteKeyW(key, L"key 0"), 0);
    EXPECT_EQ(service_.RegEnumKeyW(key, 4, name, 20), 0);
    EXPECT_STREQ(name, L"key 5");
    EXPECT_EQ(service_.RegEnumKeyW(key, 3, name, 20), 0);
    EXPECT_STREQ(name, L"key 4");
    // A second process's change counts as much.
    RegistryService other(file_.string());
    EXPECT_EQ(other.RegDeleteKeyW(HKEY_CURRENT_USER, L"list\\key 1"), 0);
    EXPECT_EQ(service_.RegEnumKeyW(key, 4, name, 20), 0);
    EXPECT_STREQ(name, L"key 6");
    // The usual way to empty a key.
    while (service_.RegEnumKeyW(key, 0, name, 20) == 0)
    {
        ASSERT_EQ(service_.RegDeleteKeyW(key, name), 0);
    }
    EXPECT_TRUE(children(key).empty());
}

TEST_F(Registry, TellsTooSmallNameBuffers)
{
    const HKEY key = create(L"list");
    HKEY* child = nullptr;
    wchar_t className[] = L"class";
    ASSERT_EQ(service_.RegCreateKeyExW(key, L"abcdef", 0, className, 0, KEY_READ, nullptr, &child, nullptr), 0);
    ASSERT_EQ(setText(key, L"abcdef", L"x"), 0);
    kest::test::SentinelBuffer<wchar_t, 10> name;
    DWORD characters = 6;
    EXPECT_EQ(service_.RegEnumKeyExW(key, 0, name.data(), &characters, nullptr, nullptr, nullptr, nullptr),
              ERROR_MORE_DATA);
    EXPECT_EQ(service_.RegEnumKeyW(key, 0, name.data(), 6), ERROR_MORE_DATA);
    EXPECT_EQ(service_.RegEnumValueW(key, 0, name.data(), &characters, nullptr, nullptr, nullptr, nullptr),
              ERROR_MORE_DATA);
    EXPECT_EQ(name.contents(), name.untouched());
    characters = 7;
    wchar_t classBuffer[10];
    DWORD classCharacters = 10;
    FILETIME written = {};
    EXPECT_EQ(
        service_.RegEnumKeyExW(key, 0, name.data(), &characters, nullptr, classBuffer, &classCharacters, &written), 0);
    EXPECT_EQ(name.contents(), name.startingWith(std::wstring(L"abcdef\0", 7)));
    EXPECT_EQ(characters, 6U);
    EXPECT_STREQ(classBuffer, L"class");
    EXPECT_EQ(classCharacters, 5U);
    EXPECT_NEAR(static_cast<double>(written.dwLowDateTime), static_cast<double>(std::time(nullptr)), 60);
}

TEST_F(Registry, CountsKeysAndValues)
{
    const HKEY key = create(L"info");
    create(L"short", key);
    create(L"much longer", key);
    ASSERT_EQ(setText(key, L"näme", L"1234567"), 0);
    wchar_t className[10] = L"unset";
    DWORD classLength = 10;
    DWORD keys = 99;
    DWORD longestKey = 99;
    DWORD longestClass = 99;
    DWORD values = 99;
    DWORD longestName = 99;
    DWORD largest = 99;
    DWORD security = 99;
    FILETIME written = {};
    EXPECT_EQ(service_.RegQueryInfoKeyW(key, className, &classLength, nullptr, &keys, &longestKey, &longestClass,
                                        &values, &longestName, &largest, &security, &written),
              0);
    EXPECT_STREQ(className, L"");
    EXPECT_EQ(classLength, 0U);
    EXPECT_EQ(keys, 2U);
    EXPECT_EQ(longestKey, 11U);
    EXPECT_EQ(longestClass, 0U);
    EXPECT_EQ(values, 1U);
    EXPECT_EQ(longestName, 4U);
    EXPECT_EQ(largest, 32U);
    EXPECT_EQ(security, 0U);
    EXPECT_EQ(written.dwHighDateTime, 0U);
    EXPECT_EQ(service_.RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                        nullptr, nullptr, nullptr),
              0);
    EXPECT_EQ(service_.RegQueryInfoKeyW(key, className, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                        nullptr, nullptr, nullptr),
              ERROR_INVALID_PARAMETER);
}

TEST_F(Registry, SharesClassesBetweenTheirTwoNames)
{
    ASSERT_EQ(setText(create(L".txt", HKEY_CLASSES_ROOT), nullptr, L"textfile"), 0);
    HKEY key = nullptr;
    ASSERT_EQ(service_.RegOpenKeyW(HKEY_LOCAL_MACHINE, L"Software\\Classes\\.txt", &key), 0);
    EXPECT_EQ(text(key, nullptr), L"textfile");
}

TEST_F(Registry, OpensTheSameKeyForAnEmptyPath)
{
    HKEY key = nullptr;
    EXPECT_EQ(service_.RegOpenKeyW(HKEY_CURRENT_USER, nullptr, &key), 0);
    EXPECT_EQ(key, HKEY_CURRENT_USER);
    EXPECT_EQ(service_.RegOpenKeyExW(HKEY_CURRENT_USER, nullptr, 0, KEY_READ, &key), 0);
    EXPECT_NE(key, HKEY_CURRENT_USER);
    EXPECT_EQ(service_.RegCloseKey(key), 0);
}

TEST_F(Registry, KeepsItsDataForTheNextRun)
{
    ASSERT_EQ(setText(create(L"kept"), L"x", L"still here"), 0);
    RegistryService next(file_.string());
    HKEY key = nullptr;
    ASSERT_EQ(next.RegOpenKeyExW(HKEY_CURRENT_USER, L"kept", 0, KEY_READ, &key), 0);
    DWORD bytes = 0;
    EXPECT_EQ(next.RegQueryValueExW(key, L"x", nullptr, nullptr, nullptr, &bytes), 0);
    EXPECT_EQ(bytes, 44U);
}

TEST_F(Registry, ServesSeveralThreads)
{
    std::vector<std::thread> threads;
    for (int number = 0; number < 4; ++number)
    {
        threads.emplace_back(
            [this, number]
            {
                const HKEY key = create(L"threads");
                for (int round = 0; round < 25; ++round)
                {
                    const std::wstring name = std::to_wstring(number) + L" " + std::to_wstring(round);
                    EXPECT_EQ(setText(key, name.c_str(), name), 0);
                    EXPECT_EQ(text(key, name.c_str()), name);
                }
                EXPECT_EQ(service_.RegCloseKey(key), 0);
            });
    }
    for (std::thread& thread : threads)
    {
        thread.join();
    }
    DWORD values = 0;
    service_.RegQueryInfoKeyW(create(L"threads"), nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &values,
                              nullptr, nullptr, nullptr, nullptr);
    EXPECT_EQ(values, 100U);
}

// Also the first opening: all eight find no database yet.
TEST_F(Registry, LosesNoWriteOfEightProcesses)
{
    constexpr int processes = 8;
    constexpr int writes = 20;
    const auto pathOf = [](int process, int number)
    { return L"shared\\" + std::to_wstring(process) + L"\\" + std::to_wstring(number); };
    EXPECT_EQ(kest::test::failuresInChildren(
                  processes,
                  [&](int process)
                  {
                      RegistryService service(file_.string());
                      for (int number = 0; number < writes; ++number)
                      {
                          HKEY* key = nullptr;
                          const std::wstring path = pathOf(process, number);
                          ASSERT_EQ(service.RegCreateKeyW(HKEY_CURRENT_USER, path.c_str(), &key), 0);
                          ASSERT_EQ(service.RegSetValueExW(*key, L"x", 0, REG_DWORD,
                                                           reinterpret_cast<const BYTE*>(&number), sizeof number),
                                    0);
                      }
                  }),
              0);
    for (int process = 0; process < processes; ++process)
    {
        for (int number = 0; number < writes; ++number)
        {
            HKEY key = nullptr;
            ASSERT_EQ(service_.RegOpenKeyExW(HKEY_CURRENT_USER, pathOf(process, number).c_str(), 0, KEY_READ, &key), 0);
            int value = -1;
            DWORD bytes = sizeof value;
            EXPECT_EQ(service_.RegQueryValueExW(key, L"x", nullptr, nullptr, reinterpret_cast<BYTE*>(&value), &bytes),
                      0);
            EXPECT_EQ(value, number);
            service_.RegCloseKey(key);
        }
    }
}

// In a process of its own, which waits for its turn: "go" followed by its number.
std::thread inTurn(int number, const std::function<void()>& body)
{
    const std::string suffix = std::to_string(number);
    std::thread thread(
        [=]
        {
            EXPECT_EQ(kest::test::statusInChild(
                          [&]
                          {
                              std::ofstream("ready" + suffix);
                              waitForFile("go" + suffix);
                              body();
                          }),
                      0);
        });
    waitForFile("ready" + suffix);
    return thread;
}

// A process loses its locks on a file when it closes any descriptor of that file; the next process to end would then
// take the first service's last writes with it.
TEST_F(Registry, LosesNothingWhenTwoServicesOfAProcessShareAFile)
{
    // Begun before this process opens the registry, which no child may inherit.
    std::thread writer = inTurn(1,
                                [&]
                                {
                                    RegistryService service(file_.string());
                                    HKEY* key = nullptr;
                                    EXPECT_EQ(service.RegCreateKeyW(HKEY_CURRENT_USER, L"other", &key), 0);
                                });
    std::thread reader = inTurn(2,
                                [&]
                                {
                                    RegistryService service(file_.string());
                                    HKEY key = nullptr;
                                    EXPECT_EQ(service.RegOpenKeyExW(HKEY_CURRENT_USER, L"later", 0, KEY_READ, &key), 0);
                                });
    create(L"earlier");
    RegistryService second(file_.string());
    HKEY key = nullptr;
    EXPECT_EQ(second.RegOpenKeyExW(HKEY_CURRENT_USER, L"earlier", 0, KEY_READ, &key), 0);
    std::ofstream("go1");
    writer.join();
    create(L"later");
    std::ofstream("go2");
    reader.join();
}

TEST_F(Registry, AnswersForADamagedDatabaseAndLeavesItAsItWas)
{
    folder_.write("data/registry.db", std::string(5000, 'x'));
    HKEY key = nullptr;
    EXPECT_EQ(service_.RegOpenKeyExW(HKEY_CURRENT_USER, L"a", 0, KEY_READ, &key), ERROR_BADDB);
    HKEY* out = nullptr;
    EXPECT_EQ(service_.RegCreateKeyW(HKEY_CURRENT_USER, L"a", &out), ERROR_BADDB);
    EXPECT_EQ(folder_.read("data/registry.db"), std::string(5000, 'x'));
    // Once somebody has put it right, the same service goes on.
    std::filesystem::remove(file_);
    EXPECT_EQ(service_.RegCreateKeyW(HKEY_CURRENT_USER, L"a", &out), 0);
}

TEST_F(Registry, AnswersForAFullDiskAndLosesNothing)
{
    const HKEY key = create(L"disk");
    ASSERT_EQ(setText(key, L"before", L"kept"), 0);
    {
        const kest::test::FullDisk full;
        EXPECT_EQ(setText(key, L"during", std::wstring(100'000, L'x')), 112);
        EXPECT_EQ(text(key, L"before"), L"kept");
    }
    EXPECT_EQ(service_.RegQueryValueExW(key, L"during", nullptr, nullptr, nullptr, nullptr), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(text(key, L"before"), L"kept");
    EXPECT_EQ(setText(key, L"after", L"works"), 0);
    EXPECT_EQ(text(key, L"after"), L"works");
}

TEST_F(Registry, AnswersForAReadOnlyFolder)
{
    ASSERT_EQ(setText(create(L"kept"), L"x", L"1"), 0);
    std::filesystem::create_directory("closed");
    std::filesystem::permissions("closed", std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec |
                                               std::filesystem::perms::others_read |
                                               std::filesystem::perms::others_exec);
    std::filesystem::permissions(folder_.path(),
                                 std::filesystem::perms::others_read | std::filesystem::perms::others_exec,
                                 std::filesystem::perm_options::add);
    const std::string file = (folder_.path() / "closed" / "registry.db").string();
    EXPECT_EQ(kest::test::statusOfOrdinaryUser(
                  [&]
                  {
                      RegistryService service(file);
                      HKEY* key = nullptr;
                      EXPECT_EQ(service.RegCreateKeyW(HKEY_CURRENT_USER, L"a", &key), ERROR_ACCESS_DENIED);
                  }),
              0);
    EXPECT_TRUE(std::filesystem::is_empty("closed"));
}

} // namespace
