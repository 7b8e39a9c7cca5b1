// SQLite connections and statements that clean up after themselves and report errors as exceptions.
#pragma once

#include <cstdint>
#include <span>
#include <sqlite3.h>
#include <stdexcept>
#include <string>
#include <string_view>

namespace kest::host
{

class DatabaseError : public std::runtime_error
{
public:
    DatabaseError(int code, const std::string& message, bool lacksDescriptors = false)
        : std::runtime_error(message), code_(code), lacksDescriptors_(lacksDescriptors)
    {
    }

    // SQLite's primary result code.
    int code() const { return code_ & 0xFF; }
    // Whether SQLITE_CANTOPEN means that no further file can be opened, whatever its name.
    bool lacksDescriptors() const { return lacksDescriptors_; }

private:
    int code_;
    bool lacksDescriptors_;
};

class Database
{
public:
    Database() = default;
    ~Database() { close(); }
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    // The file must exist. Waits for other processes instead of failing while they write.
    void open(const std::string& file);
    void close();
    bool isOpen() const { return connection_ != nullptr; }

    void execute(const char* sql);
    // Ends a transaction that could not be rolled back at its own end, for want of memory say. Throws if it still cannot.
    void endAbandonedTransaction();
    std::int64_t lastInsertedRow() const { return sqlite3_last_insert_rowid(connection_); }
    // Changes whenever this connection or, after its next read, another one has changed the database.
    std::int64_t ownChanges() const { return sqlite3_total_changes64(connection_); }

private:
    friend class Statement;
    friend class Transaction;
    void check(int code) const;

    sqlite3* connection_ = nullptr;
    bool transactionRuns_ = false;
};

class Statement
{
public:
    Statement(Database& database, std::string_view sql);
    ~Statement() { sqlite3_finalize(statement_); }
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    // Parameters and columns are counted from 0. Bound text and data must stay until the run ends.
    void bind(int parameter, std::int64_t value);
    void bind(int parameter, std::string_view text);
    void bind(int parameter, std::span<const unsigned char> data);

    // Steps to the next row; false after the last.
    bool step();
    // Ends a run, so that the statement can be run again.
    void reset() { sqlite3_reset(statement_); }

    std::int64_t number(int column) const { return sqlite3_column_int64(statement_, column); }
    std::string_view text(int column) const;
    std::span<const unsigned char> data(int column) const;

private:
    Database& database_;
    sqlite3_stmt* statement_ = nullptr;
};

// One run of a prepared statement: binds, hands out rows, and resets the statement when it ends.
class Run
{
public:
    template <class... Arguments>
    explicit Run(Statement& statement, const Arguments&... arguments) : statement_(statement)
    {
        int parameter = 0;
        (statement_.bind(parameter++, arguments), ...);
    }
    ~Run() { statement_.reset(); }
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;

    bool next() { return statement_.step(); }
    // For statements without rows.
    void finish()
    {
        while (next())
        {
        }
    }
    std::int64_t number(int column) const { return statement_.number(column); }
    std::string_view text(int column) const { return statement_.text(column); }
    std::span<const unsigned char> data(int column) const { return statement_.data(column); }

private:
    Statement& statement_;
};

// A transaction, rolled back unless committed: a writing one keeps other writers out from its beginning, a reading one
// sees one state of the database all the time. Within another it is a part of that one.
class Transaction
{
public:
    enum class Kind
    {
        reading,
        writing,
    };

    explicit Transaction(Database& database, Kind kind = Kind::writing);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void commit();

private:
    Database& database_;
    bool open_;
};

} // namespace kest::host
