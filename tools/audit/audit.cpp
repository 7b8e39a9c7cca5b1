#include "audit/audit.h"

#include "audit/file_reader.h"
#include "audit/symbol_names.h"
#include "audit/system_libraries.h"

#include <algorithm>
#include <filesystem>
#include <llvm/Demangle/Demangle.h>
#include <tuple>
#include <unordered_set>

namespace kest::audit
{

namespace
{

using tools::Export;
using tools::Kind;

Answer answerOf(const Export& row)
{
    switch (row.kind)
    {
    case Kind::variable:
    case Kind::local:
        return row.library == tools::core_library ? Answer::local : Answer::companion;
    case Kind::forward:
    case Kind::checked_forward:
        return Answer::forwarded;
    case Kind::fixed_result:
        return Answer::fixed_result;
    case Kind::ends_the_process:
        return Answer::ends_the_process;
    }
    return Answer::not_provided;
}

// What a porting team can use in place of a symbol that no library exports.
std::string hintFor(const std::string& symbol, const std::string& readable, const SystemLibraries& system)
{
    if (symbol.starts_with('_') && system.standardDefine(symbol.substr(1)))
    {
        return "the C library has " + symbol.substr(1);
    }
    if (symbol.ends_with('A'))
    {
        const std::string wide = symbol.substr(0, symbol.size() - 1) + "W";
        return tools::findExport(wide) != nullptr ? wide + " is provided" : std::string();
    }
    const std::string function = readable.substr(0, readable.find('('));
    if (function != symbol && tools::findExport(function) != nullptr)
    {
        return function + " is provided with C linkage or other argument types";
    }
    return {};
}

class Auditor
{
public:
    Audit run(const std::vector<std::string>& paths, const std::vector<std::string>& definers)
    {
        for (const std::string& path : paths)
        {
            addDefinitions(audit_.files.emplace_back(readFile(path)));
        }
        for (const std::string& path : definers)
        {
            FileContents definer = readFile(path);
            addDefinitions(definer);
            definer.needs.clear();
            if (!definer.problems.empty())
            {
                audit_.files.push_back(std::move(definer));
            }
        }
        for (const FileContents& file : audit_.files)
        {
            system_.addStandard(file.machine);
            system_.addNeeded(file);
        }
        for (const FileContents& file : audit_.files)
        {
            for (const Need& need : file.needs)
            {
                add(need, file.path);
            }
        }
        audit_.missing_libraries = system_.missing();
        std::erase_if(audit_.missing_libraries, [this](const auto& missing) { return given_.contains(missing.first); });
        finish();
        return std::move(audit_);
    }

private:
    void addDefinitions(const FileContents& file)
    {
        given_.insert(lowerCase(std::filesystem::path(file.path).filename().string()));
        given_.insert(file.soname);
        const auto libraries = tools::libraries();
        if (std::ranges::find(libraries, file.soname) == libraries.end())
        {
            defined_.insert(file.defines.begin(), file.defines.end());
        }
    }

    void add(const Need& need, const std::string& path)
    {
        const bool imported = !need.module.empty();
        if (imported ? given_.contains(lowerCase(need.module)) : defined_.contains(need.symbol))
        {
            return;
        }
        const Export* row = tools::findExport(need.symbol);
        Answer answer = Answer::not_provided;
        if (row != nullptr)
        {
            answer = answerOf(*row);
        }
        else if (need.optional || (!imported && (system_.define(need.symbol) || isLinkersOwn(need.symbol))))
        {
            return;
        }
        else if (isCompilerSupport(need.symbol))
        {
            answer = Answer::compiler;
        }
        else if (imported && isRuntimeModule(need.module) && inStandardLibrary(need.symbol))
        {
            answer = Answer::c_library;
        }
        // A name that stands for different things in different modules is answered for each.
        Function& function = functions_[{answer, need.symbol}];
        function.answer = answer;
        function.symbol = need.symbol;
        function.row = row;
        if (imported)
        {
            function.modules.insert(lowerCase(need.module));
        }
        function.needed_by.insert(path);
    }

    // Encoded names of a runtime are the C++ library's; it has the same functions under names of its own.
    bool inStandardLibrary(const std::string& symbol) const
    {
        return symbol.starts_with('?') || system_.standardDefine(symbol);
    }

    void finish()
    {
        std::map<std::tuple<std::string, unsigned, std::string>, std::set<std::string>> operations;
        for (const Answer answer : answers)
        {
            for (auto& [key, function] : functions_)
            {
                if (function.answer != answer)
                {
                    continue;
                }
                function.name =
                    function.row != nullptr ? tools::readableName(*function.row) : llvm::demangle(function.symbol);
                function.hint = answer == Answer::not_provided ? hintFor(function.symbol, function.name, system_) : "";
                for (const tools::Operation& operation :
                     function.row != nullptr ? function.row->operations : std::span<const tools::Operation>())
                {
                    const std::size_t colons = operation.name.find("::");
                    operations[{std::string(operation.name.substr(0, colons)), operation.position,
                                std::string(operation.name.substr(colons + 2))}]
                        .insert(function.name);
                }
                audit_.functions.push_back(std::move(function));
            }
        }
        for (auto& [key, functions] : operations)
        {
            const auto& [service, position, name] = key;
            audit_.operations.push_back({service, name, position, std::move(functions)});
        }
    }

    Audit audit_;
    SystemLibraries system_;
    std::unordered_set<std::string> defined_;
    std::unordered_set<std::string> given_; // names under which other files know the given ones
    std::map<std::pair<Answer, std::string>, Function> functions_;
};

} // namespace

const char* answerName(Answer answer)
{
    switch (answer)
    {
    case Answer::compiler:
        return "compiler";
    case Answer::c_library:
        return "C library";
    case Answer::companion:
        return "companion";
    case Answer::local:
        return "local";
    case Answer::forwarded:
        return "forwarded";
    case Answer::fixed_result:
        return "fixed result";
    case Answer::ends_the_process:
        return "ends the process";
    case Answer::not_provided:
        return "not provided";
    }
    return "";
}

bool Audit::hasProblems() const
{
    return std::ranges::any_of(files, [](const FileContents& file) { return !file.problems.empty(); });
}

std::size_t Audit::count(Answer answer) const
{
    return static_cast<std::size_t>(std::ranges::count(functions, answer, &Function::answer));
}

Answer Audit::worst() const
{
    return functions.empty() ? Answer::compiler : functions.front().answer;
}

Audit audit(const std::vector<std::string>& paths, const std::vector<std::string>& definers)
{
    return Auditor().run(paths, definers);
}

} // namespace kest::audit
