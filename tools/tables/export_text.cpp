#include "tables/export_table.h"

#include <cstdlib>
#include <cxxabi.h>
#include <memory>

namespace kest::tools
{

std::string readableName(std::string_view symbol)
{
    const std::string name(symbol);
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> decoded(
        name.starts_with("_Z") ? abi::__cxa_demangle(name.c_str(), nullptr, nullptr, &status) : nullptr, &std::free);
    return decoded ? decoded.get() : name;
}

std::string readableName(const Export& row)
{
    return row.name.empty() ? readableName(row.symbol) : std::string(row.name);
}

std::string describeAnswer(const Export& row)
{
    switch (row.kind)
    {
    case Kind::fixed_result:
        return "always " + std::string(row.answer);
    case Kind::forward:
        return std::string(row.operation);
    case Kind::checked_forward:
        return std::string(row.operation) + ", " + std::string(row.answer) + " without hub or service";
    case Kind::variable:
    case Kind::local:
    case Kind::ends_the_process:
        break;
    }
    return {};
}

} // namespace kest::tools
