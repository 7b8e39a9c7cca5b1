#include "audit/reports.h"

#include <algorithm>
#include <filesystem>

namespace kest::audit
{

namespace
{

constexpr const char* indent = "    ";
constexpr std::size_t column_gap = 2;
constexpr std::size_t columns = 4;
constexpr std::size_t files_shown = 3;

std::string counted(std::size_t count, const std::string& thing)
{
    return std::to_string(count) + " " + thing + (count == 1 ? "" : "s");
}

// Names come from files that anybody may have made: nothing in them reaches a terminal as a command.
std::string printable(std::string text)
{
    std::ranges::replace_if(
        text, [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; }, '?');
    return text;
}

std::string joined(const std::set<std::string>& words, std::size_t most)
{
    std::string text;
    std::size_t shown = 0;
    for (const std::string& word : words)
    {
        if (shown == most)
        {
            return text + " and " + std::to_string(words.size() - shown) + " more";
        }
        text += (shown++ == 0 ? "" : ", ") + word;
    }
    return text;
}

using Row = std::array<std::string, columns>;

// Cells in columns as wide as they need; columns without text take no room.
std::string table(const std::vector<Row>& rows)
{
    std::array<std::size_t, columns> widths{};
    for (const Row& row : rows)
    {
        for (std::size_t column = 0; column < columns; ++column)
        {
            widths[column] = std::max(widths[column], row[column].size());
        }
    }
    std::string text;
    for (const Row& row : rows)
    {
        std::string line = indent;
        for (std::size_t column = 0; column < columns; ++column)
        {
            if (widths[column] != 0)
            {
                line += row[column] + std::string(widths[column] - row[column].size() + column_gap, ' ');
            }
        }
        text += line.substr(0, line.find_last_not_of(' ') + 1) + "\n";
    }
    return text;
}

std::string detail(const Function& function)
{
    return function.row != nullptr ? tools::describeAnswer(*function.row) : function.hint;
}

std::string functionTable(const Audit& audit, Answer answer)
{
    std::vector<Row> rows;
    for (const Function& function : audit.functions)
    {
        if (function.answer == answer)
        {
            std::set<std::string> files;
            for (const std::string& path : function.needed_by)
            {
                files.insert(std::filesystem::path(path).filename().string());
            }
            rows.push_back({printable(function.name), printable(joined(function.modules, files_shown)),
                            audit.files.size() > 1 ? printable(joined(files, files_shown)) : "", detail(function)});
        }
    }
    return table(rows);
}

} // namespace

std::string textReport(const Audit& audit)
{
    std::string text =
        counted(audit.functions.size(), "function") + " needed by " + counted(audit.files.size(), "file") + "\n";
    std::vector<Row> totals;
    for (const Answer answer : answers)
    {
        totals.push_back({answerName(answer), std::to_string(audit.count(answer)), "", ""});
    }
    text += table(totals);
    for (const Answer answer : answers)
    {
        if (audit.count(answer) != 0)
        {
            text += std::string("\n") + answerName(answer) + ":\n" + functionTable(audit, answer);
        }
    }
    if (!audit.operations.empty())
    {
        text += "\nservice operations that the host supplies:\n";
        std::vector<Row> rows;
        for (const HostOperation& operation : audit.operations)
        {
            rows.push_back({operation.service + "::" + operation.name, "position " + std::to_string(operation.position),
                            "for " + joined(operation.functions, operation.functions.size()), ""});
        }
        text += table(rows);
    }
    return text;
}

} // namespace kest::audit
