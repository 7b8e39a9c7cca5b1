#include "trace/report.h"

#include "tables/export_table.h"

#include <algorithm>
#include <csignal>
#include <cstring>
#include <map>
#include <set>
#include <string>
#include <sys/wait.h>
#include <tuple>
#include <vector>

namespace kest::trace
{

namespace
{

using tools::Export;
using tools::Kind;

constexpr std::size_t column_gap = 2;

struct Line
{
    std::uint64_t calls = 0;
    std::string function;
    std::string module;
    std::string detail;
};

struct Group
{
    std::string title;
    std::vector<Line> lines;
};

std::string counted(std::uint64_t count, const std::string& thing)
{
    return std::to_string(count) + " " + thing + (count == 1 ? "" : "s");
}

std::string fileName(std::string_view path)
{
    return std::string(path.substr(path.rfind('/') + 1));
}

// Modules are told by their file's name, or by the whole path where two share it.
class ModuleNames
{
public:
    explicit ModuleNames(const CallTable& table)
    {
        for (std::uint32_t index = 0; index < table.entryCount(); ++index)
        {
            const std::string_view path = table.textAt(table.entries[index].module);
            paths_[fileName(path)].insert(path);
        }
    }

    std::string shortest(std::string_view path) const
    {
        std::string name = fileName(path);
        const auto found = paths_.find(name);
        return found != paths_.end() && found->second.size() > 1 ? std::string(path) : name;
    }

private:
    std::map<std::string, std::set<std::string_view>> paths_;
};

std::string ending(int status)
{
    if (WIFSIGNALED(status))
    {
        const int signal = WTERMSIG(status);
        const char* name = sigabbrev_np(signal);
        return "ended by signal " + std::to_string(signal) + (name != nullptr ? std::string(" (SIG") + name + ")" : "");
    }
    return "ended with status " + std::to_string(WEXITSTATUS(status));
}

// The groups in the order of the report: what a porting team must look at comes first.
std::vector<Group> grouped(const CallTable& table, const ModuleNames& modules)
{
    constexpr Kind order[] = {Kind::ends_the_process, Kind::fixed_result, Kind::forward, Kind::checked_forward,
                              Kind::local};
    // By function and caller: both names of a function count as one, and so do the processes.
    std::map<std::tuple<const Kind*, std::string, std::string>, Line> lines;
    for (std::uint32_t index = 0; index < table.entryCount(); ++index)
    {
        const Entry& entry = table.entries[index];
        const std::uint64_t calls = entry.calls.load();
        if (calls == 0)
        {
            continue;
        }
        const std::string_view symbol = table.textAt(entry.symbol.load());
        const Export* row = tools::findExport(symbol);
        const Kind* kind = row != nullptr ? std::ranges::find(order, row->kind) : std::ranges::end(order);
        const std::string function = row != nullptr ? tools::readableName(*row) : tools::readableName(symbol);
        const std::string module = modules.shortest(table.textAt(entry.module)) +
                                   (entry.reach == Reach::looked_up ? " (looked up by name)" : "");
        Line& line = lines[{kind, function, module}];
        line.calls += calls;
        line.function = function;
        line.module = module;
        line.detail = row != nullptr ? tools::describeAnswer(*row) : std::string();
    }
    std::vector<Group> groups;
    for (const Kind& kind : order)
    {
        groups.push_back({std::string(tools::kindName(kind)), {}});
    }
    groups.push_back({"not in this tool's tables", {}});
    for (auto& [key, line] : lines)
    {
        groups[static_cast<std::size_t>(std::get<0>(key) - order)].lines.push_back(std::move(line));
    }
    for (Group& group : groups)
    {
        std::ranges::stable_sort(group.lines, std::ranges::greater(), &Line::calls);
    }
    return groups;
}

std::string padded(const std::string& text, std::size_t width)
{
    return text + std::string(width > text.size() ? width - text.size() : 0, ' ');
}

std::size_t functionCount(const Group& group)
{
    std::set<std::string> functions;
    for (const Line& line : group.lines)
    {
        functions.insert(line.function);
    }
    return functions.size();
}

std::uint64_t callCount(const Group& group)
{
    std::uint64_t calls = 0;
    for (const Line& line : group.lines)
    {
        calls += line.calls;
    }
    return calls;
}

std::string summary(const std::vector<Group>& groups)
{
    std::size_t functions = 0;
    std::uint64_t calls = 0;
    for (const Group& group : groups)
    {
        functions += functionCount(group);
        calls += callCount(group);
    }
    return counted(functions, "function") + " reached in " + counted(calls, "call") + "\n";
}

std::string body(const std::vector<Group>& groups)
{
    std::size_t function_width = 0;
    std::size_t module_width = 0;
    for (const Group& group : groups)
    {
        for (const Line& line : group.lines)
        {
            function_width = std::max(function_width, line.function.size());
            module_width = std::max(module_width, line.module.size());
        }
    }
    std::string text;
    for (const Group& group : groups)
    {
        if (group.lines.empty())
        {
            continue;
        }
        text += "\n" + group.title + ": " + counted(functionCount(group), "function") + ", " +
                counted(callCount(group), "call") + "\n";
        for (const Line& line : group.lines)
        {
            const std::string calls = std::to_string(line.calls);
            std::string row = std::string(calls.size() < 10 ? 10 - calls.size() : 0, ' ') + calls + "  " +
                              padded(line.function, function_width + column_gap);
            row += line.detail.empty() ? line.module : padded(line.module, module_width + column_gap) + line.detail;
            text += row + "\n";
        }
    }
    return text;
}

// What the mechanism cannot see, with the modules for which that matters.
std::string unseen(const CallTable& table, const ModuleNames& modules)
{
    std::map<std::string, std::set<std::string>> held;
    for (std::uint32_t index = 0; index < table.entryCount(); ++index)
    {
        const Entry& entry = table.entries[index];
        const std::string_view symbol = table.textAt(entry.symbol.load());
        const Export* row = tools::findExport(symbol);
        if (entry.reach == Reach::address && row != nullptr)
        {
            held[modules.shortest(table.textAt(entry.module))].insert(tools::readableName(*row));
        }
    }
    std::string text = "\nNot counted: calls inside the library, calls compiled without a PLT, and calls through the "
                       "address of a function.\n";
    text += held.empty() ? "No module holds the address of an exported function.\n"
                         : "Modules that hold addresses, so that these counts may be too low:\n";
    for (const auto& [module, functions] : held)
    {
        text += "    " + module + ":";
        for (const std::string& function : functions)
        {
            text += (function == *functions.begin() ? " " : ", ") + function;
        }
        text += "\n";
    }
    if (const std::uint32_t lost = table.lost.load(); lost != 0)
    {
        text += "The table of calls was full: " + counted(lost, "further binding") + " not counted.\n";
    }
    return text;
}

} // namespace

std::string report(const CallTable& table, int status)
{
    const std::uint32_t programs = table.programs.load();
    std::string text = "kest-trace: the program " + ending(status);
    if (programs > 1)
    {
        text += "; " + counted(programs, "program") + " traced";
    }
    text += "\n";
    if (programs == 0)
    {
        return text + "Nothing was traced: the program is linked statically, runs with another user's rights, or its "
                      "loader has no audit interface.\n";
    }
    if (table.libraries.load() == 0)
    {
        return text + std::string(tools::core_library) + " was not loaded.\n";
    }
    const ModuleNames modules(table);
    const std::vector<Group> groups = grouped(table, modules);
    return text + summary(groups) + body(groups) + unseen(table, modules);
}

} // namespace kest::trace
