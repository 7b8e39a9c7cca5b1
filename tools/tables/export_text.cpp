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
    std::string text;
    if (!row.answer.empty())
    {
        text = row.answer == "nothing" ? "does nothing" : "always " + std::string(row.answer);
    }
    for (const Operation& operation : row.operations)
    {
        text += (text.empty() ? "" : "; ") + std::string(operation.name);
        text += operation.answer.empty() ? "" : ", " + std::string(operation.answer) + " without hub or service";
    }
    return text;
}

} // namespace kest::tools
