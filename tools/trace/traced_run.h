// A program run under the loader's audit interface, to its end.
#pragma once

#include "trace/call_table.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kest::trace
{

struct Run
{
    std::vector<std::string> command;  // the program and its arguments
    std::vector<std::string> emulator; // words that stand before the program; empty for none
    std::string audit_library;         // its path
    std::optional<std::string> calls;  // where calls are printed: a path, empty for the error output
};

// What stood in the way of starting the program.
struct StartFailure
{
    int error; // an errno
};

// The call table, in memory that has a path for other processes as long as it lives.
class SharedTable
{
public:
    SharedTable();
    ~SharedTable();
    SharedTable(const SharedTable&) = delete;
    SharedTable& operator=(const SharedTable&) = delete;

    const CallTable& operator*() const { return *table_; }
    std::string path() const;

private:
    int file_;
    CallTable* table_;
};

// Runs it and returns its wait status; interrupts from the terminal are left to the program, a request to end is
// handed on to it. Throws StartFailure, std::system_error.
int run(const Run& run, const SharedTable& table);

} // namespace kest::trace
