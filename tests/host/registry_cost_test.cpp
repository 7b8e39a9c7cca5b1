// What the registry asks of SQLite and of the disk: counted, never timed.
#include "harness/scratch_folder.h"
#include "kest/host/registry_service.h"
#include "kest/registry.h"

#include <atomic>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <string>
#include <sys/syscall.h>
#include <unistd.h>
#include <vector>

namespace
{

std::atomic<int> syncs = 0;

} // namespace

extern "C" __attribute__((visibility("default"))) int fsync(int descriptor);
extern "C" int fsync(int descriptor)
{
    ++syncs;
    return static_cast<int>(syscall(SYS_fsync, descriptor));
}

extern "C" __attribute__((visibility("default"))) int fdatasync(int descriptor);
extern "C" int fdatasync(int descriptor)
{
    ++syncs;
    return static_cast<int>(syscall(SYS_fdatasync, descriptor));
}

namespace
{

using kest::host::RegistryService;

std::vector<std::string> statements;

int note(unsigned, void*, void* statement, void*)
{
    statements.emplace_back(sqlite3_sql(static_cast<sqlite3_stmt*>(statement)));
    return 0;
}

int traceConnection(sqlite3* connection, char**, const void*)
{
    return sqlite3_trace_v2(connection, SQLITE_TRACE_STMT, note, nullptr);
}

// A registry whose statements are noted down, with a key five levels deep among others.
class RegistryCost : public testing::Test
{
protected:
    RegistryCost()
    {
        sqlite3_auto_extension(reinterpret_cast<void (*)()>(traceConnection));
        for (const wchar_t* const path : {L"a\\b\\c\\d\\e", L"a\\b\\c\\d\\f", L"b\\b\\b\\b\\b"})
        {
            HKEY* key = nullptr;
            EXPECT_EQ(service_.RegCreateKeyW(HKEY_CURRENT_USER, path, &key), 0);
            const DWORD number = 42;
            const auto* const data = reinterpret_cast<const BYTE*>(&number);
            EXPECT_EQ(service_.RegSetValueExW(*key, L"Value", 0, REG_DWORD, data, sizeof number), 0);
        }
        statements.clear();
        syncs = 0;
    }
    ~RegistryCost() override { sqlite3_reset_auto_extension(); }

    HKEY open(const wchar_t* path)
    {
        HKEY key = nullptr;
        EXPECT_EQ(service_.RegOpenKeyExW(HKEY_CURRENT_USER, path, 0, KEY_ALL_ACCESS, &key), 0);
        return key;
    }

    // How SQLite carries a statement out, a step a line.
    std::string planOf(const std::string& sql) const
    {
        sqlite3* connection = nullptr;
        sqlite3_stmt* statement = nullptr;
        EXPECT_EQ(sqlite3_open(file_.c_str(), &connection), SQLITE_OK);
        EXPECT_EQ(sqlite3_prepare_v2(connection, ("EXPLAIN QUERY PLAN " + sql).c_str(), -1, &statement, nullptr),
                  SQLITE_OK);
        std::string plan;
        while (sqlite3_step(statement) == SQLITE_ROW)
        {
            plan.append(reinterpret_cast<const char*>(sqlite3_column_text(statement, 3))).append("\n");
        }
        sqlite3_finalize(statement);
        sqlite3_close(connection);
        return plan;
    }

    void expectOneIndexedQuery() const
    {
        ASSERT_EQ(statements.size(), 1U);
        const std::string plan = planOf(statements.front());
        EXPECT_NE(plan.find("SEARCH"), std::string::npos) << plan;
        EXPECT_NE(plan.find("INDEX"), std::string::npos) << plan;
        EXPECT_EQ(plan.find("SCAN"), std::string::npos) << plan;
    }

    kest::test::ScratchFolder folder_;
    std::string file_ = (folder_.path() / "registry.db").string();
    RegistryService service_{file_};
};

TEST_F(RegistryCost, OpeningAKeyFiveLevelsDeepIsOneIndexedQuery)
{
    open(L"A\\B\\C\\D\\E");
    expectOneIndexedQuery();
}

TEST_F(RegistryCost, ReadingAValueIsOneIndexedQuery)
{
    const HKEY key = open(L"a\\b\\c\\d\\f");
    statements.clear();
    DWORD number = 0;
    DWORD bytes = sizeof number;
    EXPECT_EQ(service_.RegQueryValueExW(key, L"VALUE", nullptr, nullptr, reinterpret_cast<BYTE*>(&number), &bytes), 0);
    EXPECT_EQ(number, 42U);
    expectOneIndexedQuery();
}

TEST_F(RegistryCost, ReadingWaitsForNoDisk)
{
    const HKEY key = open(L"a");
    wchar_t name[10];
    EXPECT_EQ(service_.RegEnumKeyW(key, 0, name, 10), 0);
    DWORD values = 9;
    EXPECT_EQ(service_.RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &values, nullptr,
                                        nullptr, nullptr, nullptr),
              0);
    EXPECT_EQ(values, 0U);
    EXPECT_EQ(service_.RegQueryValueExW(key, L"none", nullptr, nullptr, nullptr, nullptr), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(syncs, 0);
    // The count does see the disk: closing the database brings the log into it.
    {
        RegistryService other(folder_.path() / "other.db");
        HKEY* created = nullptr;
        EXPECT_EQ(other.RegCreateKeyW(HKEY_USERS, L"x", &created), 0);
    }
    EXPECT_GT(syncs, 0);
}

// Each step of a walk goes on where the last one stood, however many keys there are.
TEST_F(RegistryCost, WalkingThroughKeysCountsNoneOfThemTwice)
{
    const HKEY key = open(L"a");
    for (int number = 0; number < 20; ++number)
    {
        HKEY* child = nullptr;
        ASSERT_EQ(service_.RegCreateKeyW(key, std::to_wstring(number).c_str(), &child), 0);
    }
    wchar_t name[10];
    ASSERT_EQ(service_.RegEnumKeyW(key, 0, name, 10), 0);
    statements.clear();
    DWORD index = 1;
    while (service_.RegEnumKeyW(key, index, name, 10) == 0)
    {
        ++index;
    }
    EXPECT_EQ(index, 21U);
    for (const std::string& statement : statements)
    {
        EXPECT_EQ(statement.find("parent = ?1 ORDER BY folded LIMIT 1 OFFSET ?2"), std::string::npos) << statement;
    }
}

} // namespace
