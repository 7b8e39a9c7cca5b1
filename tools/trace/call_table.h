// The memory that kest-trace and the programs it runs share: who called which export, and how often. It outlives
// every way in which a program can end.
#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace kest::trace
{

// In the traced program's environment.
inline constexpr const char* table_variable = "KEST_TRACE_TABLE"; // the table's path
inline constexpr const char* calls_variable = "KEST_TRACE_CALLS"; // where calls are printed: a path, empty for
                                                                  // the standard error output; unset to print none

// How a module came to an export.
enum class Reach : std::uint32_t
{
    linked,    // through the loader's binding of an undefined symbol
    looked_up, // by dlsym, GetProcAddress included
    address    // it holds the function's address: calls through it are not seen
};

// Calls of one export by one module. Processes that bind the same pair share the entry.
struct Entry
{
    std::atomic<std::uint64_t> calls;
    std::atomic<std::uint32_t> symbol; // where its text begins; 0 until the entry is complete
    std::uint32_t module;
    Reach reach;
    std::uint32_t reserved;
};

// Text and entries are only ever added, by several processes at once.
struct CallTable
{
    static constexpr std::size_t entry_capacity = 8192;
    static constexpr std::size_t text_capacity = std::size_t{1} << 20;

    std::atomic<std::uint32_t> programs;  // started under the audit library
    std::atomic<std::uint32_t> libraries; // times that an exporting library was loaded
    std::atomic<std::uint32_t> lost;      // bindings for which no entry was left
    std::atomic<std::uint32_t> entries_used;
    std::atomic<std::uint32_t> text_used;
    std::uint32_t reserved;
    std::array<Entry, entry_capacity> entries;
    std::array<char, text_capacity> text;

    // The text that begins at an offset; empty for an offset outside the table.
    std::string_view textAt(std::uint32_t offset) const;

    // Entries handed out so far.
    std::uint32_t entryCount() const;

    // Adds an entry and returns its index; nothing when the table is full.
    std::optional<std::uint32_t> add(std::string_view symbol, std::string_view module, Reach reach);
};

static_assert(std::atomic<std::uint64_t>::is_always_lock_free && std::atomic<std::uint32_t>::is_always_lock_free);

} // namespace kest::trace
