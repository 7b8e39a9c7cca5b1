#include "database.h"

#include <cerrno>

namespace kest::host
{

namespace
{

constexpr int patienceMilliseconds = 60'000;

} // namespace

void Database::check(int code) const
{
    if (code != SQLITE_OK && code != SQLITE_ROW && code != SQLITE_DONE)
    {
        // SQLite's code is the same for a file that it may not open, one that it cannot, and the one too many.
        const int systemError = connection_ == nullptr ? 0 : sqlite3_system_errno(connection_);
        const bool notOpened = (code & 0xFF) == SQLITE_CANTOPEN;
        const bool denied = notOpened && (systemError == EACCES || systemError == EROFS);
        const bool lacksDescriptors = notOpened && (systemError == EMFILE || systemError == ENFILE);
        throw DatabaseError(denied ? SQLITE_PERM : code,
                            connection_ == nullptr ? sqlite3_errstr(code) : sqlite3_errmsg(connection_),
                            lacksDescriptors);
    }
}

void Database::open(const std::string& file)
{
    const int code = sqlite3_open_v2(file.c_str(), &connection_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    try
    {
        check(code);
        check(sqlite3_busy_timeout(connection_, patienceMilliseconds));
    }
    catch (...)
    {
        close();
        throw;
    }
}

void Database::close()
{
    sqlite3_close(connection_);
    connection_ = nullptr;
}

void Database::execute(const char* sql)
{
    check(sqlite3_exec(connection_, sql, nullptr, nullptr, nullptr));
}

Statement::Statement(Database& database, std::string_view sql) : database_(database)
{
    database_.check(sqlite3_prepare_v3(database_.connection_, sql.data(), static_cast<int>(sql.size()),
                                       SQLITE_PREPARE_PERSISTENT, &statement_, nullptr));
}

void Statement::bind(int parameter, std::int64_t value)
{
    database_.check(sqlite3_bind_int64(statement_, parameter + 1, value));
}

void Statement::bind(int parameter, std::string_view text)
{
    database_.check(
        sqlite3_bind_text64(statement_, parameter + 1, text.data(), text.size(), SQLITE_STATIC, SQLITE_UTF8));
}

void Statement::bind(int parameter, std::span<const unsigned char> data)
{
    // A null pointer would bind NULL instead of empty data.
    const void* const bytes = data.empty() ? static_cast<const void*>("") : data.data();
    database_.check(sqlite3_bind_blob64(statement_, parameter + 1, bytes, data.size(), SQLITE_STATIC));
}

bool Statement::step()
{
    const int code = sqlite3_step(statement_);
    database_.check(code);
    return code == SQLITE_ROW;
}

std::string_view Statement::text(int column) const
{
    const auto* const text = reinterpret_cast<const char*>(sqlite3_column_text(statement_, column));
    return {text == nullptr ? "" : text, static_cast<std::size_t>(sqlite3_column_bytes(statement_, column))};
}

std::span<const unsigned char> Statement::data(int column) const
{
    const auto* const data = static_cast<const unsigned char*>(sqlite3_column_blob(statement_, column));
    return {data, static_cast<std::size_t>(sqlite3_column_bytes(statement_, column))};
}

void Database::endAbandonedTransaction()
{
    if (!transactionRuns_ && sqlite3_get_autocommit(connection_) == 0)
    {
        execute("ROLLBACK");
    }
}

Transaction::Transaction(Database& database, Kind kind) : database_(database), open_(!database.transactionRuns_)
{
    if (open_)
    {
        database_.endAbandonedTransaction();
        database_.execute(kind == Kind::writing ? "BEGIN IMMEDIATE" : "BEGIN");
        database_.transactionRuns_ = true;
    }
}

Transaction::~Transaction()
{
    if (open_)
    {
        // Fails where SQLite has rolled back by itself, as it does after a full disk, and without memory: then it is
        // made up for before the next operation.
        sqlite3_exec(database_.connection_, "ROLLBACK", nullptr, nullptr, nullptr);
        database_.transactionRuns_ = false;
    }
}

void Transaction::commit()
{
    if (open_)
    {
        database_.execute("COMMIT");
        database_.transactionRuns_ = false;
        open_ = false;
    }
}

} // namespace kest::host
