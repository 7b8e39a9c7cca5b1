// The reference host's registry beside bare prepared queries on the same database.
#include "families.h"
#include "kest/registry.h"
#include "pairs.h"
#include "surroundings.h"

#include <array>
#include <sqlite3.h>
#include <stdexcept>
#include <string>
#include <string_view>

namespace kest::benchmarks
{

namespace
{

constexpr double target = 1.5;

HKEY created(const std::wstring& path)
{
    HKEY key = nullptr;
    if (RegCreateKeyW(HKEY_CURRENT_USER, path.c_str(), &key) != ERROR_SUCCESS)
    {
        throw std::runtime_error("cannot create a registry key");
    }
    return key;
}

void setValue(HKEY key, const std::wstring& name, const std::wstring& text)
{
    RegSetValueExW(key, name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                   static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}

// A connection of its own to the registry's database, with a prepared query of one text parameter.
class BareQuery
{
public:
    BareQuery(const std::string& sql, const std::string& parameter) : parameter_(parameter)
    {
        const std::string file = (scratch().path() / "registry.db").string();
        if (sqlite3_open_v2(file.c_str(), &connection_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr) !=
                SQLITE_OK ||
            sqlite3_prepare_v3(connection_, sql.c_str(), -1, SQLITE_PREPARE_PERSISTENT, &statement_, nullptr) !=
                SQLITE_OK)
        {
            throw std::runtime_error(sqlite3_errmsg(connection_));
        }
        if (run() == 0)
        {
            throw std::runtime_error("no row for: " + sql);
        }
    }
    ~BareQuery()
    {
        sqlite3_finalize(statement_);
        sqlite3_close(connection_);
    }
    BareQuery(const BareQuery&) = delete;
    BareQuery& operator=(const BareQuery&) = delete;

    // The first column as a number, the second as data that is copied out.
    sqlite3_int64 run()
    {
        sqlite3_bind_text(statement_, 1, parameter_.data(), static_cast<int>(parameter_.size()), SQLITE_STATIC);
        sqlite3_int64 number = 0;
        if (sqlite3_step(statement_) == SQLITE_ROW)
        {
            number = sqlite3_column_int64(statement_, 0);
            const auto* const data = static_cast<const char*>(sqlite3_column_blob(statement_, 1));
            const int size = sqlite3_column_bytes(statement_, 1);
            std::copy_n(data, size, data_.data());
        }
        sqlite3_reset(statement_);
        return number;
    }

private:
    sqlite3* connection_ = nullptr;
    sqlite3_stmt* statement_ = nullptr;
    std::string parameter_;
    std::array<char, 256> data_;
};

LONG queryValue(HKEY key, const wchar_t* name)
{
    std::array<BYTE, 256> data;
    DWORD type = 0;
    DWORD size = data.size();
    return RegQueryValueExW(key, name, nullptr, &type, data.data(), &size);
}

LONG openAndClose(const wchar_t* path)
{
    HKEY key = nullptr;
    RegOpenKeyExW(HKEY_CURRENT_USER, path, 0, KEY_READ, &key);
    return RegCloseKey(key);
}

} // namespace

void addRegistry()
{
    const HKEY settings = created(L"Software\\Application\\Settings");
    for (const wchar_t* const name : {L"Width", L"Height", L"Title", L"Folder", L"Language"})
    {
        setValue(settings, name, L"what the application keeps there");
    }
    created(L"One\\Two\\Three\\Four\\Five");
    const auto value =
        std::make_shared<BareQuery>("SELECT type, data FROM value WHERE key = (SELECT id FROM key WHERE path = "
                                    "'HKEY_CURRENT_USER\\SOFTWARE\\APPLICATION\\SETTINGS') AND folded = ?1",
                                    "LANGUAGE");
    addPair(
        "registry/RegQueryValueExW", target, "prepared SQLite query of the row",
        [=] { return queryValue(settings, L"Language"); }, [=] { return value->run(); });
    const auto key = std::make_shared<BareQuery>("SELECT id FROM key WHERE path = ?1",
                                                 "HKEY_CURRENT_USER\\ONE\\TWO\\THREE\\FOUR\\FIVE");
    addPair(
        "registry/RegOpenKeyExW five levels deep, RegCloseKey", target, "prepared SQLite query of one path",
        [] { return openAndClose(L"One\\Two\\Three\\Four\\Five"); }, [=] { return key->run(); });
    addPair(
        "registry/RegOpenKeyExW five levels deep", target, "RegOpenKeyExW one level deep",
        [] { return openAndClose(L"One\\Two\\Three\\Four\\Five"); }, [] { return openAndClose(L"One"); });

    addGrowth("RegEnumValueW over all values", "values", 5,
              [](long count)
              {
                  const HKEY full = created(L"Values" + std::to_wstring(count));
                  for (long index = 0; index < count; ++index)
                  {
                      setValue(full, L"Value" + std::to_wstring(index), L"text");
                  }
                  return [=]
                  {
                      std::array<wchar_t, 64> name;
                      DWORD index = 0;
                      for (DWORD size = name.size(); RegEnumValueW(full, index, name.data(), &size, nullptr, nullptr,
                                                                   nullptr, nullptr) == ERROR_SUCCESS;
                           size = name.size())
                      {
                          ++index;
                      }
                      return index;
                  };
              });
    addGrowth("RegEnumKeyExW over all keys", "keys", 5,
              [](long count)
              {
                  const std::wstring parent = L"Keys" + std::to_wstring(count);
                  for (long index = 0; index < count; ++index)
                  {
                      RegCloseKey(created(parent + L"\\Key" + std::to_wstring(index)));
                  }
                  return [key = created(parent)]
                  {
                      std::array<wchar_t, 64> name;
                      DWORD index = 0;
                      for (DWORD size = name.size(); RegEnumKeyExW(key, index, name.data(), &size, nullptr, nullptr,
                                                                   nullptr, nullptr) == ERROR_SUCCESS;
                           size = name.size())
                      {
                          ++index;
                      }
                      return index;
                  };
              });
    addGrowth("RegQueryValueExW", "bytes", 10'000,
              [](long bytes)
              {
                  const HKEY key = created(L"Data" + std::to_wstring(bytes));
                  setValue(key, L"Data", std::wstring(static_cast<std::size_t>(bytes) / sizeof(wchar_t), L'x'));
                  return [=, data = std::string(static_cast<std::size_t>(bytes) + 4, '\0')]() mutable
                  {
                      auto size = static_cast<DWORD>(data.size());
                      return RegQueryValueExW(key, L"Data", nullptr, nullptr, reinterpret_cast<BYTE*>(data.data()),
                                              &size);
                  };
              });
    addGrowth(
        "RegSetValueExW", "bytes", 10'000,
        [](long bytes)
        {
            const HKEY key = created(L"Set" + std::to_wstring(bytes));
            return [=, data = std::string(static_cast<std::size_t>(bytes), 'x')]
            {
                return RegSetValueExW(key, L"Data", 0, REG_BINARY, reinterpret_cast<const BYTE*>(data.data()),
                                      static_cast<DWORD>(data.size()));
            };
        },
        {}, AllZero());
}

} // namespace kest::benchmarks
