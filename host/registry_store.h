// The registry's keys and values in an SQLite database: what RegistryService's operations are made of.
#pragma once

#include "database.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace kest::host
{

// The keys that always exist. Their numbers are part of the database's schema.
enum SystemKey : std::int64_t
{
    localMachine = 1,
    currentUser = 2,
    users = 3,
    localMachineClasses = 5,
    currentHardwareProfile = 9,
    lastSystemKey = 9,
};

// Windows's limits, in characters.
constexpr std::size_t longestKeyName = 255;
constexpr std::size_t longestValueName = 16'383;

// Whether each name on a path below a key is short enough and made of printable characters.
bool isKeyPath(std::wstring_view path);

// Whether values of a type (REG_*) are text.
bool isRegistryText(std::uint32_t type);

// $KEST_REGISTRY, else kest/registry.db below $XDG_DATA_HOME or ~/.local/share.
std::string defaultRegistryFile();

// A key by its number and by its full path: folded names with backslashes between them.
struct KeyPlace
{
    std::int64_t id = 0;
    std::string path;
};

struct KeyDetails
{
    std::wstring name;
    std::wstring className;
    std::int64_t written = 0; // seconds since 1970
};

struct KeyStatistics
{
    std::wstring className;
    std::int64_t written = 0;
    std::int64_t keys = 0;
    std::int64_t longestKeyName = 0;   // characters
    std::int64_t longestClassName = 0; // characters
    std::int64_t values = 0;
    std::int64_t longestValueName = 0; // characters
    std::int64_t largestValue = 0;     // bytes
};

struct Value
{
    std::wstring name;
    std::uint32_t type = 0;
    std::span<const unsigned char> data; // valid while the store hands it out
};

// Changes with every change of the database: those of other processes, our own.
using DatabaseStamp = std::pair<std::int64_t, std::int64_t>;

// Where an enumeration stands: the last item handed out. Worth nothing once the database has changed.
struct EnumerationPlace
{
    std::uint32_t index = 0;
    std::string name;     // of a key, folded
    std::int64_t row = 0; // of a value
    DatabaseStamp stamp = {-1, -1};
};

class RegistryStore
{
public:
    explicit RegistryStore(std::string file);
    ~RegistryStore();

    // Opens the database, making the file and its schema if needed. Errors are thrown as DatabaseError by
    // this and every other operation; a failing one leaves the database as it was.
    void open();

    bool exists(std::int64_t key);
    // The key of a path below another, which must still exist. One query, however long the path.
    std::optional<KeyPlace> find(const KeyPlace& base, std::wstring_view subPath);
    // Finds it, or makes it and the keys on its way; nothing if the base does not exist any more.
    std::optional<KeyPlace> create(const KeyPlace& base, std::wstring_view subPath, std::wstring_view className,
                                   bool& created);
    enum class Deletion
    {
        done,
        notFound,
        hasChildren,
        refused,
    };
    Deletion remove(const KeyPlace& base, std::wstring_view subPath);
    // Removes a key with all that is below it.
    Deletion removeTree(const KeyPlace& base, std::wstring_view subPath);
    // The names on the way from a key above to a key, as they are spelled, each with a backslash in front.
    std::wstring spelledPath(std::int64_t above, std::int64_t key);
    std::optional<KeyDetails> child(std::int64_t key, std::uint32_t index, EnumerationPlace& place);
    std::optional<KeyStatistics> statistics(std::int64_t key);

    // Call `use` with the value while its data is in reach; false if there is no such value. By name, the
    // value's own name is not filled in.
    using ValueUse = std::function<void(const Value&)>;
    bool readValue(std::int64_t key, std::wstring_view name, const ValueUse& use);
    bool readValue(std::int64_t key, std::uint32_t index, EnumerationPlace& place, const ValueUse& use);
    // False if the key does not exist any more.
    bool writeValue(std::int64_t key, std::wstring_view name, std::uint32_t type, std::span<const unsigned char> data);
    bool removeValue(std::int64_t key, std::wstring_view name);
    void removeValues(std::int64_t key);

    // Runs several operations as one: all of them happen, or, if the body throws, none.
    void inTransaction(const std::function<void()>& body);
    // Runs reading operations that all see the same state, whatever others write meanwhile.
    void inSnapshot(const std::function<void()>& body);

private:
    struct Statements;

    void createFile() const;
    void useWriteAheadLog();
    void makeSchema();
    DatabaseStamp stamp();
    void touch(std::int64_t key);

    std::string file_;
    Database database_;
    std::unique_ptr<Statements> statements_;
};

} // namespace kest::host
