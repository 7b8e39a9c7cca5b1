// The registry where something goes wrong: damaged and foreign databases, disks and folders that take nothing, writers
// that are killed, keys that go away.
#include "full_disk.h"
#include "harness/in_child.h"
#include "harness/ordinary_user.h"
#include "harness/scratch_folder.h"
#include "kest/host/registry_service.h"
#include "kest/registry.h"

#include <chrono>
#include <filesystem>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <string>
#include <sys/stat.h>
#include <thread>
#include <vector>

namespace
{

namespace fs = std::filesystem;
using kest::host::RegistryService;
using namespace std::string_literals;

constexpr LONG diskFull = 112;
constexpr LONG registryCorrupt = 1015;

LONG open(RegistryService& service, const wchar_t* path, HKEY* key)
{
    return service.RegOpenKeyExW(HKEY_CURRENT_USER, path, 0, KEY_ALL_ACCESS, key);
}

LONG create(RegistryService& service, const std::wstring& path, HKEY* key)
{
    HKEY* created = nullptr;
    const LONG result = service.RegCreateKeyW(HKEY_CURRENT_USER, path.c_str(), &created);
    *key = result == 0 ? *created : nullptr;
    return result;
}

LONG setText(RegistryService& service, HKEY key, const wchar_t* name, const std::wstring& text)
{
    return service.RegSetValueExW(key, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                                  static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}

class RegistryFaults : public testing::Test
{
protected:
    void fill() const
    {
        RegistryService service(file_);
        for (int number = 0; number < 100; ++number)
        {
            HKEY key = nullptr;
            ASSERT_EQ(create(service, L"filled\\" + std::to_wstring(number), &key), 0);
            ASSERT_EQ(setText(service, key, L"x", std::wstring(100, L'x')), 0);
        }
    }

    std::string content() const { return folder_.read("registry.db"); }

    kest::test::ScratchFolder folder_;
    std::string file_ = (folder_.path() / "registry.db").string();
};

TEST_F(RegistryFaults, AnswerForDamagedPagesAndLeaveThemAsTheyAre)
{
    fill();
    std::string damaged = content();
    constexpr std::size_t page = 4096;
    ASSERT_GT(damaged.size(), 4 * page);
    damaged.replace(page, damaged.size() - page, damaged.size() - page, '\xFF');
    folder_.write("registry.db", damaged);
    {
        RegistryService service(file_);
        HKEY key = nullptr;
        EXPECT_EQ(open(service, L"filled\\7", &key), registryCorrupt);
        EXPECT_EQ(create(service, L"new", &key), registryCorrupt);
        EXPECT_EQ(service.RegDeleteKeyW(HKEY_CURRENT_USER, L"filled\\7"), registryCorrupt);
    }
    EXPECT_TRUE(content() == damaged);
}

TEST_F(RegistryFaults, LeaveDatabasesOfOtherProgramsAlone)
{
    for (const char* const sql :
         {"CREATE TABLE other(x)", "CREATE TABLE key(x); PRAGMA user_version = 1", "PRAGMA user_version = 2"})
    {
        fs::remove(file_);
        sqlite3* connection = nullptr;
        ASSERT_EQ(sqlite3_open(file_.c_str(), &connection), SQLITE_OK);
        ASSERT_EQ(sqlite3_exec(connection, sql, nullptr, nullptr, nullptr), SQLITE_OK);
        sqlite3_close(connection);
        const std::string before = content();
        {
            RegistryService service(file_);
            HKEY key = nullptr;
            EXPECT_EQ(create(service, L"a", &key), ERROR_BADDB) << sql;
            EXPECT_EQ(open(service, L"a", &key), ERROR_BADDB) << sql;
        }
        EXPECT_TRUE(content() == before) << sql;
    }
}

TEST_F(RegistryFaults, LeaveWhatIsNoRegularFileAlone)
{
    ASSERT_EQ(mkfifo(file_.c_str(), 0600), 0);
    for (const std::string& file : {file_, folder_.path().string(), "/dev/null"s})
    {
        RegistryService service(file);
        HKEY key = nullptr;
        EXPECT_EQ(create(service, L"a", &key), ERROR_CANTOPEN) << file;
    }
    EXPECT_TRUE(fs::is_fifo(file_));
}

TEST_F(RegistryFaults, AnswerForADiskThatIsFullFromTheBeginning)
{
    RegistryService service(file_);
    HKEY key = nullptr;
    {
        const kest::test::FullDisk full;
        EXPECT_EQ(create(service, L"a", &key), diskFull);
    }
    EXPECT_EQ(create(service, L"a", &key), 0);
}

TEST_F(RegistryFaults, LeaveEverythingAsItWasWhenADeletionFindsTheDiskFull)
{
    fill();
    RegistryService service(file_);
    HKEY key = nullptr;
    ASSERT_EQ(open(service, L"filled\\7", &key), 0);
    {
        const kest::test::FullDisk full;
        EXPECT_EQ(service.RegDeleteKeyW(HKEY_CURRENT_USER, L"filled\\7"), diskFull);
        EXPECT_EQ(service.RegDeleteValueW(key, L"x"), diskFull);
        EXPECT_EQ(setText(service, key, L"x", L"short"), diskFull);
    }
    DWORD bytes = 0;
    EXPECT_EQ(service.RegQueryValueExW(key, L"x", nullptr, nullptr, nullptr, &bytes), 0);
    EXPECT_EQ(bytes, 404U);
}

TEST_F(RegistryFaults, AnswerForFilesAndFoldersThatMayNotBeWritten)
{
    fill();
    const std::string before = content();
    fs::create_directory("closed");
    fs::copy_file("registry.db", "closed/registry.db");
    fs::copy_file("registry.db", "locked.db");
    fs::permissions(folder_.path(), fs::perms(0755));
    fs::permissions("closed/registry.db", fs::perms(0666));
    fs::permissions("closed", fs::perms(0555));
    fs::permissions("locked.db", fs::perms(0444));
    EXPECT_EQ(kest::test::statusOfOrdinaryUser(
                  []
                  {
                      for (const char* const file : {"closed/registry.db", "locked.db"})
                      {
                          RegistryService service(file);
                          HKEY key = nullptr;
                          EXPECT_EQ(create(service, L"a", &key), ERROR_ACCESS_DENIED) << file;
                      }
                  }),
              0);
    EXPECT_TRUE(folder_.read("closed/registry.db") == before);
    EXPECT_TRUE(folder_.read("locked.db") == before);
    fs::permissions("closed", fs::perms(0755));
}

// A writer is killed at some moment, a hundred times: no value is torn, nothing committed before is lost.
TEST_F(RegistryFaults, LoseNothingWhenAWriterIsKilled)
{
    fill();
    for (int round = 0; round < 100; ++round)
    {
        kest::test::killedInChild(
            [this]
            {
                RegistryService service(file_);
                for (wchar_t letter = L'a';; letter = letter == L'z' ? L'a' : static_cast<wchar_t>(letter + 1))
                {
                    HKEY key = nullptr;
                    create(service, L"torn\\" + std::wstring(1, letter) + L"\\deeper", &key);
                    setText(service, key, L"x", std::wstring(2000, letter));
                    service.RegCloseKey(key);
                }
            },
            std::chrono::microseconds(3000 + round * 137 % 12000));
        RegistryService service(file_);
        HKEY key = nullptr;
        ASSERT_EQ(open(service, L"filled\\99", &key), 0);
        for (wchar_t letter = L'a'; letter <= L'z'; letter = static_cast<wchar_t>(letter + 1))
        {
            const std::wstring path = L"torn\\" + std::wstring(1, letter);
            if (open(service, path.c_str(), &key) != 0)
            {
                continue;
            }
            ASSERT_EQ(open(service, (path + L"\\deeper").c_str(), &key), 0) << round;
            std::wstring text(2001, L'?');
            DWORD bytes = static_cast<DWORD>(text.size() * sizeof(wchar_t));
            const LONG result =
                service.RegQueryValueExW(key, L"x", nullptr, nullptr, reinterpret_cast<BYTE*>(text.data()), &bytes);
            ASSERT_TRUE(result == ERROR_FILE_NOT_FOUND || (result == 0 && bytes == 8004)) << round;
            std::wstring written(2001, letter);
            written.back() = L'\0';
            ASSERT_TRUE(result != 0 || text == written) << round;
        }
    }
    sqlite3* connection = nullptr;
    ASSERT_EQ(sqlite3_open(file_.c_str(), &connection), SQLITE_OK);
    std::string verdict;
    const auto store = [](void* text, int, char** columns, char**)
    {
        *static_cast<std::string*>(text) += columns[0];
        return 0;
    };
    EXPECT_EQ(sqlite3_exec(connection, "PRAGMA integrity_check", store, &verdict, nullptr), SQLITE_OK);
    EXPECT_EQ(verdict, "ok");
    sqlite3_close(connection);
}

// Several threads make and delete the same key, and use it through handles that may have outlived it.
TEST_F(RegistryFaults, AnswerForKeysThatOtherThreadsDelete)
{
    RegistryService service(file_);
    std::vector<std::thread> threads;
    for (int number = 0; number < 4; ++number)
    {
        threads.emplace_back(
            [&service]
            {
                for (int round = 0; round < 50; ++round)
                {
                    HKEY key = nullptr;
                    ASSERT_EQ(create(service, L"shared\\child", &key), 0);
                    const LONG written = setText(service, key, L"x", L"text");
                    EXPECT_TRUE(written == 0 || written == ERROR_KEY_DELETED) << written;
                    const LONG read = service.RegQueryValueExW(key, L"x", nullptr, nullptr, nullptr, nullptr);
                    EXPECT_TRUE(read == 0 || read == ERROR_KEY_DELETED) << read;
                    const LONG deleted = service.RegDeleteKeyW(HKEY_CURRENT_USER, L"shared\\child");
                    EXPECT_TRUE(deleted == 0 || deleted == ERROR_FILE_NOT_FOUND) << deleted;
                    EXPECT_EQ(service.RegCloseKey(key), 0);
                }
            });
    }
    for (std::thread& thread : threads)
    {
        thread.join();
    }
    HKEY key = nullptr;
    EXPECT_EQ(open(service, L"shared\\child", &key), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(open(service, L"shared", &key), 0);
}

} // namespace
