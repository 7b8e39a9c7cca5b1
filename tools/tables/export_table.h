// What the tools know of the libraries' exports: the rows of the export tables, compiled in.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace kest::tools
{

// How a library answers, from what a porting team looks at last to what it looks at first.
enum class Kind : std::uint8_t
{
    variable,
    local,
    forward,
    checked_forward,
    fixed_result,
    ends_the_process
};

// What a host does for a function.
struct Operation
{
    std::string_view name;   // Service::Operation
    unsigned position;       // its slot in the service, counted from 1
    std::string_view answer; // without hub or service; empty where that is not looked at
};

struct Export
{
    std::string_view symbol;  // as it stands in an object file
    std::string_view name;    // the plain name where there is one; empty where all names are type-encoded
    std::string_view library; // the file that exports it
    std::string_view header;  // under include/
    std::string_view answer;  // of a fixed result
    Kind kind;
    std::span<const Operation> operations;
};

// Every export under each of its symbols, sorted by symbol.
std::span<const Export> exports();

// The files that export them.
std::span<const std::string_view> libraries();

// The library of the Windows API itself; the others are companions.
inline constexpr std::string_view core_library = "libKestPlatformBase.so";

// Null when no library exports the symbol.
const Export* findExport(std::string_view symbol);

std::string_view kindName(Kind kind);

// The name as C++ sources have it: decoded when it is type-encoded, else as it is.
std::string readableName(std::string_view symbol);

// An export's name for readers: the plain one, or the decoded one.
std::string readableName(const Export& row);

// What a reader should know beside the kind: the fixed answer, the operations behind the function. Empty for the rest.
std::string describeAnswer(const Export& row);

} // namespace kest::tools
