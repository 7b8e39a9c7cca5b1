#include "audit/reports.h"

#include <llvm/Support/FormatVariadic.h>
#include <llvm/Support/JSON.h>

namespace kest::audit
{

namespace
{

namespace json = llvm::json;

// Names come from files that anybody may have made.
json::Value text(std::string_view bytes)
{
    const llvm::StringRef reference(bytes.data(), bytes.size());
    return json::isUTF8(reference) ? json::Value(reference.str()) : json::Value(json::fixUTF8(reference));
}

template <typename Texts>
json::Array list(const Texts& texts)
{
    json::Array array;
    for (const std::string& entry : texts)
    {
        array.push_back(text(entry));
    }
    return array;
}

json::Object described(const FileContents& file)
{
    return json::Object{{"path", text(file.path)}, {"format", text(file.format)}, {"problems", list(file.problems)}};
}

json::Object described(const Function& function)
{
    json::Object object{{"name", text(function.name)},
                        {"symbol", text(function.symbol)},
                        {"answer", answerName(function.answer)},
                        {"modules", list(function.modules)},
                        {"neededBy", list(function.needed_by)}};
    if (!function.hint.empty())
    {
        object["hint"] = text(function.hint);
    }
    if (function.row == nullptr)
    {
        return object;
    }
    const tools::Export& row = *function.row;
    object["library"] = text(row.library);
    object["header"] = text(row.header);
    object["kind"] = text(tools::kindName(row.kind));
    if (!row.answer.empty())
    {
        object["result"] = text(row.answer);
    }
    json::Array operations;
    for (const tools::Operation& operation : row.operations)
    {
        json::Object entry{{"operation", text(operation.name)}, {"position", operation.position}};
        if (!operation.answer.empty())
        {
            entry["withoutService"] = text(operation.answer);
        }
        operations.push_back(std::move(entry));
    }
    if (!operations.empty())
    {
        object["operations"] = std::move(operations);
    }
    return object;
}

} // namespace

std::string jsonReport(const Audit& audit)
{
    json::Array files;
    for (const FileContents& file : audit.files)
    {
        files.push_back(described(file));
    }
    json::Object totals;
    for (const Answer answer : answers)
    {
        totals[answerName(answer)] = audit.count(answer);
    }
    json::Array functions;
    for (const Function& function : audit.functions)
    {
        functions.push_back(described(function));
    }
    json::Array operations;
    for (const HostOperation& operation : audit.operations)
    {
        operations.push_back(json::Object{{"service", text(operation.service)},
                                          {"operation", text(operation.name)},
                                          {"position", operation.position},
                                          {"neededFor", list(operation.functions)}});
    }
    json::Array missing;
    for (const auto& [library, file] : audit.missing_libraries)
    {
        missing.push_back(json::Object{{"library", text(library)}, {"neededBy", text(file)}});
    }
    const json::Value whole = json::Object{{"files", std::move(files)},
                                           {"totals", std::move(totals)},
                                           {"functions", std::move(functions)},
                                           {"operations", std::move(operations)},
                                           {"missingLibraries", std::move(missing)}};
    return llvm::formatv("{0:2}", whole).str() + "\n";
}

} // namespace kest::audit
