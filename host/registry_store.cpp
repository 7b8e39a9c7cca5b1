#include "registry_store.h"

#include "folders.h"
#include "kest/registry.h"
#include "unicode.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace kest::host
{

namespace
{

constexpr const char* schema = R"(
CREATE TABLE key(
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    parent INTEGER REFERENCES key(id),
    path TEXT NOT NULL UNIQUE,
    folded TEXT NOT NULL,
    name TEXT NOT NULL,
    class TEXT NOT NULL,
    written INTEGER NOT NULL);
CREATE UNIQUE INDEX child_key ON key(parent, folded);
CREATE TABLE value(
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    key INTEGER NOT NULL REFERENCES key(id) ON DELETE CASCADE,
    folded TEXT NOT NULL,
    name TEXT NOT NULL,
    type INTEGER NOT NULL,
    data BLOB NOT NULL);
CREATE UNIQUE INDEX value_name ON value(key, folded);
CREATE INDEX value_order ON value(key);
PRAGMA user_version = 1;
)";
constexpr std::int64_t schemaVersion = 1;
constexpr const char* notOurs = "this is no registry that this version can use";

struct SystemKeyRow
{
    std::int64_t id;
    std::int64_t parent; // 0 for none
    const wchar_t* name;
};

constexpr SystemKeyRow systemKeys[] = {
    {localMachine, 0, L"HKEY_LOCAL_MACHINE"},
    {currentUser, 0, L"HKEY_CURRENT_USER"},
    {users, 0, L"HKEY_USERS"},
    {4, localMachine, L"Software"},
    {localMachineClasses, 4, L"Classes"},
    {6, localMachine, L"System"},
    {7, 6, L"CurrentControlSet"},
    {8, 7, L"Hardware Profiles"},
    {currentHardwareProfile, 8, L"Current"},
};

std::int64_t now()
{
    return std::time(nullptr);
}

[[noreturn]] void throwSystemError()
{
    const int code = errno == EACCES || errno == EPERM ? SQLITE_PERM
                     : errno == EROFS                  ? SQLITE_READONLY
                     : errno == ENOSPC                 ? SQLITE_FULL
                     : errno == ENOMEM                 ? SQLITE_NOMEM
                                                       : SQLITE_CANTOPEN;
    throw DatabaseError(code, std::strerror(errno));
}

// Hands out the components of a path one by one; empty ones do not count.
std::wstring_view takeComponent(std::wstring_view& path)
{
    path.remove_prefix(std::min(path.find_first_not_of(L'\\'), path.size()));
    const std::wstring_view component = path.substr(0, path.find(L'\\'));
    path.remove_prefix(component.size());
    return component;
}

std::string pathBelow(const std::string& base, std::wstring_view subPath)
{
    std::string path = base;
    const std::wstring foldedPath = folded(subPath);
    std::wstring_view rest = foldedPath;
    for (std::wstring_view component = takeComponent(rest); !component.empty(); component = takeComponent(rest))
    {
        path += '\\';
        path += toUtf8(component);
    }
    return path;
}

} // namespace

struct RegistryStore::Statements
{
    explicit Statements(Database& database)
        : dataVersion(database, "PRAGMA data_version"), exists(database, "SELECT 1 FROM key WHERE id = ?1"),
          find(database, "SELECT id FROM key WHERE path = ?1 AND EXISTS(SELECT 1 FROM key WHERE id = ?2)"),
          addKey(database,
                 "INSERT INTO key(parent, path, folded, name, class, written) VALUES(?1, ?2, ?3, ?4, ?5, ?6)"),
          hasChildren(database, "SELECT 1 FROM key WHERE parent = ?1 LIMIT 1"),
          removeKey(database, "DELETE FROM key WHERE id = ?1 RETURNING parent"),
          // The paths below a key are those between it with a backslash and it with the next character behind that.
          isRequired(database, "SELECT 1 FROM key WHERE id <= ?3 AND (path = ?1 OR (path > ?1 || '\\' AND path < ?2))"),
          removeBelow(database, "DELETE FROM key WHERE path > ?1 || '\\' AND path < ?2"),
          nameOf(database, "SELECT name, parent FROM key WHERE id = ?1"),
          touch(database, "UPDATE key SET written = ?2 WHERE id = ?1"),
          childAt(database, "SELECT name, class, written, folded FROM key WHERE parent = ?1 "
                            "ORDER BY folded LIMIT 1 OFFSET ?2"),
          childFrom(database, "SELECT name, class, written, folded FROM key WHERE parent = ?1 AND folded >= ?2 "
                              "ORDER BY folded LIMIT 1 OFFSET ?3"),
          statistics(database, "SELECT class, written, "
                               "(SELECT count(*) FROM key WHERE parent = ?1), "
                               "(SELECT ifnull(max(length(name)), 0) FROM key WHERE parent = ?1), "
                               "(SELECT ifnull(max(length(class)), 0) FROM key WHERE parent = ?1), "
                               "(SELECT count(*) FROM value WHERE key = ?1), "
                               "(SELECT ifnull(max(length(name)), 0) FROM value WHERE key = ?1), "
                               "(SELECT ifnull(max(length(data)), 0) FROM value WHERE key = ?1) "
                               "FROM key WHERE id = ?1"),
          valueNamed(database, "SELECT type, data FROM value WHERE key = ?1 AND folded = ?2"),
          valueAt(database, "SELECT type, data, name, id FROM value WHERE key = ?1 ORDER BY id LIMIT 1 OFFSET ?2"),
          valueFrom(database, "SELECT type, data, name, id FROM value WHERE key = ?1 AND id >= ?2 "
                              "ORDER BY id LIMIT 1 OFFSET ?3"),
          writeValue(database, "INSERT INTO value(key, folded, name, type, data) VALUES(?1, ?2, ?3, ?4, ?5) "
                               "ON CONFLICT(key, folded) DO UPDATE SET type = excluded.type, data = excluded.data"),
          removeValue(database, "DELETE FROM value WHERE key = ?1 AND folded = ?2 RETURNING id"),
          removeValues(database, "DELETE FROM value WHERE key = ?1")
    {
    }

    Statement dataVersion;
    Statement exists;
    Statement find;
    Statement addKey;
    Statement hasChildren;
    Statement removeKey;
    Statement isRequired;
    Statement removeBelow;
    Statement nameOf;
    Statement touch;
    Statement childAt;
    Statement childFrom;
    Statement statistics;
    Statement valueNamed;
    Statement valueAt;
    Statement valueFrom;
    Statement writeValue;
    Statement removeValue;
    Statement removeValues;
};

bool isKeyPath(std::wstring_view path)
{
    for (std::wstring_view name = takeComponent(path); !name.empty(); name = takeComponent(path))
    {
        const auto printable = [](wchar_t character) { return static_cast<std::uint32_t>(character) >= 0x20; };
        if (name.size() > longestKeyName || !std::all_of(name.begin(), name.end(), printable))
        {
            return false;
        }
    }
    return true;
}

bool isRegistryText(std::uint32_t type)
{
    return type == REG_SZ || type == REG_EXPAND_SZ || type == REG_LINK || type == REG_MULTI_SZ;
}

std::string defaultRegistryFile()
{
    if (const char* const file = std::getenv("KEST_REGISTRY"); file != nullptr && *file != '\0')
    {
        return file;
    }
    return baseFolder("XDG_DATA_HOME", ".local/share") + "/kest/registry.db";
}

RegistryStore::RegistryStore(std::string file) : file_(std::move(file))
{
}

RegistryStore::~RegistryStore() = default;

void RegistryStore::open()
{
    if (statements_ != nullptr)
    {
        database_.endAbandonedTransaction();
        return;
    }
    createFile();
    database_.open(file_);
    try
    {
        makeSchema();
        auto statements = std::make_unique<Statements>(database_);
        useWriteAheadLog();
        statements_ = std::move(statements);
    }
    catch (...)
    {
        database_.close();
        throw;
    }
}

// The file is ours alone from its first moment; SQLite gives its companions the same mode. It is made without a
// descriptor: to close one would give up every lock that this process has on the file, another store's too.
void RegistryStore::createFile() const
{
    if (!makeFolders(file_.substr(0, file_.rfind('/') + 1)))
    {
        throwSystemError();
    }
    struct stat status;
    if ((mknod(file_.c_str(), S_IFREG | S_IRUSR | S_IWUSR, 0) != 0 && errno != EEXIST) ||
        stat(file_.c_str(), &status) != 0)
    {
        throwSystemError();
    }
    if (S_ISDIR(status.st_mode))
    {
        errno = EISDIR;
        throwSystemError();
    }
    if (!S_ISREG(status.st_mode))
    {
        throw DatabaseError(SQLITE_CANTOPEN, "this is no regular file");
    }
    if (access(file_.c_str(), R_OK | W_OK) != 0)
    {
        throwSystemError();
    }
}

void RegistryStore::useWriteAheadLog()
{
    // Several processes may turn a new file into a write-ahead log at once; SQLite then refuses all but one
    // without waiting.
    for (int attempt = 0;; ++attempt)
    {
        try
        {
            database_.execute("PRAGMA journal_mode = WAL");
            break;
        }
        catch (const DatabaseError& error)
        {
            if (error.code() != SQLITE_BUSY || attempt == 1000)
            {
                throw;
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
    }
    database_.execute("PRAGMA synchronous = NORMAL");
    database_.execute("PRAGMA foreign_keys = ON");
}

void RegistryStore::makeSchema()
{
    const auto number = [this](const char* query)
    {
        Statement statement(database_, query);
        return statement.step() ? statement.number(0) : 0;
    };
    // Databases of other programs, and those of a later version, are left alone.
    const auto isReady = [&]
    {
        const std::int64_t version = number("PRAGMA user_version");
        if (version != 0 && version != schemaVersion)
        {
            throw DatabaseError(SQLITE_NOTADB, notOurs);
        }
        return version == schemaVersion;
    };
    if (isReady())
    {
        return;
    }
    Transaction transaction(database_);
    if (!isReady())
    {
        if (number("SELECT count(*) FROM sqlite_master") != 0)
        {
            throw DatabaseError(SQLITE_NOTADB, notOurs);
        }
        database_.execute(schema);
        Statement add(database_, "INSERT INTO key(id, parent, path, folded, name, class, written) "
                                 "SELECT ?1, nullif(?2, 0), ifnull((SELECT path || '\\' FROM key WHERE id = ?2), '') "
                                 "|| ?3, ?3, ?4, '', ?5");
        for (const SystemKeyRow& row : systemKeys)
        {
            Run(add, row.id, row.parent, toUtf8(folded(row.name)), toUtf8(row.name), now()).finish();
        }
    }
    transaction.commit();
}

DatabaseStamp RegistryStore::stamp()
{
    Run run(statements_->dataVersion);
    run.next();
    return {run.number(0), database_.ownChanges()};
}

void RegistryStore::touch(std::int64_t key)
{
    Run(statements_->touch, key, now()).finish();
}

bool RegistryStore::exists(std::int64_t key)
{
    return Run(statements_->exists, key).next();
}

std::optional<KeyPlace> RegistryStore::find(const KeyPlace& base, std::wstring_view subPath)
{
    std::string path = pathBelow(base.path, subPath);
    Run run(statements_->find, path, base.id);
    if (!run.next())
    {
        return std::nullopt;
    }
    return KeyPlace{run.number(0), std::move(path)};
}

std::optional<KeyPlace> RegistryStore::create(const KeyPlace& base, std::wstring_view subPath,
                                              std::wstring_view className, bool& created)
{
    created = false;
    Transaction transaction(database_);
    if (!exists(base.id))
    {
        return std::nullopt;
    }
    KeyPlace place = base;
    for (std::wstring_view component = takeComponent(subPath); !component.empty(); component = takeComponent(subPath))
    {
        if (std::optional<KeyPlace> present = find(place, component))
        {
            place = *std::move(present);
            continue;
        }
        const std::string foldedName = toUtf8(folded(component));
        std::string path = place.path + '\\' + foldedName;
        Run(statements_->addKey, place.id, path, foldedName, toUtf8(component), toUtf8(className), now()).finish();
        const std::int64_t id = database_.lastInsertedRow();
        touch(place.id);
        place = KeyPlace{id, std::move(path)};
        created = true;
    }
    transaction.commit();
    return place;
}

RegistryStore::Deletion RegistryStore::remove(const KeyPlace& base, std::wstring_view subPath)
{
    Transaction transaction(database_);
    const std::optional<KeyPlace> place = find(base, subPath);
    if (!place)
    {
        return Deletion::notFound;
    }
    if (place->id <= lastSystemKey)
    {
        return Deletion::refused;
    }
    if (Run(statements_->hasChildren, place->id).next())
    {
        return Deletion::hasChildren;
    }
    std::int64_t parent = 0;
    {
        Run run(statements_->removeKey, place->id);
        run.next();
        parent = run.number(0);
        run.finish();
    }
    touch(parent);
    transaction.commit();
    return Deletion::done;
}

RegistryStore::Deletion RegistryStore::removeTree(const KeyPlace& base, std::wstring_view subPath)
{
    Transaction transaction(database_);
    const std::optional<KeyPlace> place = find(base, subPath);
    if (!place)
    {
        return Deletion::notFound;
    }
    const std::string behind = place->path + ']';
    if (Run(statements_->isRequired, place->path, behind, std::int64_t{lastSystemKey}).next())
    {
        return Deletion::refused;
    }
    Run(statements_->removeBelow, place->path, behind).finish();
    const Deletion deletion = remove(*place, {});
    transaction.commit();
    return deletion;
}

std::wstring RegistryStore::spelledPath(std::int64_t above, std::int64_t key)
{
    std::wstring path;
    while (key != above)
    {
        Run run(statements_->nameOf, key);
        if (!run.next())
        {
            break;
        }
        path.insert(0, L'\\' + fromUtf8(run.text(0)));
        key = run.number(1);
    }
    return path;
}

std::optional<KeyDetails> RegistryStore::child(std::int64_t key, std::uint32_t index, EnumerationPlace& place)
{
    const auto read = [&](Run& run) -> std::optional<KeyDetails>
    {
        if (!run.next())
        {
            return std::nullopt;
        }
        place.index = index;
        place.name = run.text(3);
        return KeyDetails{fromUtf8(run.text(0)), fromUtf8(run.text(1)), run.number(2)};
    };
    // The usual walk asks for the same index again or for the next: both are found without counting.
    const DatabaseStamp present = stamp();
    const std::int64_t ahead = std::int64_t{index} - std::int64_t{place.index};
    if (place.stamp == present && (ahead == 0 || ahead == 1))
    {
        const std::string from = place.name;
        Run run(statements_->childFrom, key, from, ahead);
        return read(run);
    }
    Run run(statements_->childAt, key, std::int64_t{index});
    std::optional<KeyDetails> details = read(run);
    place.stamp = details ? present : DatabaseStamp(-1, -1);
    return details;
}

std::optional<KeyStatistics> RegistryStore::statistics(std::int64_t key)
{
    Run run(statements_->statistics, key);
    if (!run.next())
    {
        return std::nullopt;
    }
    KeyStatistics result;
    result.className = fromUtf8(run.text(0));
    result.written = run.number(1);
    result.keys = run.number(2);
    result.longestKeyName = run.number(3);
    result.longestClassName = run.number(4);
    result.values = run.number(5);
    result.longestValueName = run.number(6);
    result.largestValue = run.number(7);
    return result;
}

bool RegistryStore::readValue(std::int64_t key, std::wstring_view name, const ValueUse& use)
{
    const std::string foldedName = toUtf8(folded(name));
    Run run(statements_->valueNamed, key, foldedName);
    if (!run.next())
    {
        return false;
    }
    use(Value{{}, static_cast<std::uint32_t>(run.number(0)), run.data(1)});
    return true;
}

bool RegistryStore::readValue(std::int64_t key, std::uint32_t index, EnumerationPlace& place, const ValueUse& use)
{
    const auto read = [&](Run& run)
    {
        if (!run.next())
        {
            return false;
        }
        place.index = index;
        place.row = run.number(3);
        use(Value{fromUtf8(run.text(2)), static_cast<std::uint32_t>(run.number(0)), run.data(1)});
        return true;
    };
    const DatabaseStamp present = stamp();
    const std::int64_t ahead = std::int64_t{index} - std::int64_t{place.index};
    if (place.stamp == present && (ahead == 0 || ahead == 1))
    {
        Run run(statements_->valueFrom, key, place.row, ahead);
        return read(run);
    }
    Run run(statements_->valueAt, key, std::int64_t{index});
    const bool found = read(run);
    place.stamp = found ? present : DatabaseStamp(-1, -1);
    return found;
}

bool RegistryStore::writeValue(std::int64_t key, std::wstring_view name, std::uint32_t type,
                               std::span<const unsigned char> data)
{
    Transaction transaction(database_);
    if (!exists(key))
    {
        return false;
    }
    Run(statements_->writeValue, key, toUtf8(folded(name)), toUtf8(name), std::int64_t{type}, data).finish();
    touch(key);
    transaction.commit();
    return true;
}

bool RegistryStore::removeValue(std::int64_t key, std::wstring_view name)
{
    Transaction transaction(database_);
    if (!Run(statements_->removeValue, key, toUtf8(folded(name))).next())
    {
        return false;
    }
    touch(key);
    transaction.commit();
    return true;
}

void RegistryStore::removeValues(std::int64_t key)
{
    Transaction transaction(database_);
    Run(statements_->removeValues, key).finish();
    touch(key);
    transaction.commit();
}

void RegistryStore::inTransaction(const std::function<void()>& body)
{
    Transaction transaction(database_);
    body();
    transaction.commit();
}

void RegistryStore::inSnapshot(const std::function<void()>& body)
{
    Transaction transaction(database_, Transaction::Kind::reading);
    body();
    transaction.commit();
}

} // namespace kest::host
