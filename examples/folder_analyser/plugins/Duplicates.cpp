// Files with the same content, found by size and hash.
#include "plugins/analyser_plugin.h"
#include "support/table.h"
#include "support/text.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <tuple>

namespace
{

struct Fingerprint
{
    std::size_t size;
    std::uint64_t first;
    std::uint64_t second;

    bool operator<(const Fingerprint& other) const
    {
        return std::tie(size, first, second) < std::tie(other.size, other.first, other.second);
    }
};

// Two hashes with different multipliers: not against an opponent, but far beyond chance.
Fingerprint fingerprintOf(const AnalysedFile& file)
{
    Fingerprint result = {file.size, 0xCBF29CE484222325U, 0x9E3779B97F4A7C15U};
    for (std::size_t place = 0; place < file.size; ++place)
    {
        result.first = (result.first ^ file.bytes[place]) * 0x100000001B3U;
        result.second = (result.second + file.bytes[place]) * 0xBF58476D1CE4E5B9U;
        result.second ^= result.second >> 29;
    }
    return result;
}

struct Group
{
    std::size_t size;
    std::vector<std::wstring> paths;

    unsigned long long wasted() const { return static_cast<unsigned long long>(size) * (paths.size() - 1); }
};

class Duplicates final : public AnalyserPlugin
{
public:
    const wchar_t* title() const override { return L"Files with the same content"; }

    void analyse(const AnalysedFile& file) override
    {
        if (file.size > 0)
        {
            files_[fingerprintOf(file)].push_back(file.path);
        }
    }

    void report(IReport& report) const override
    {
        const std::vector<Group> groups = duplicateGroups();
        if (groups.empty())
        {
            report.line(L"No two files have the same content.");
            return;
        }
        unsigned long long wasted = 0;
        for (const Group& group : groups)
        {
            wasted += group.wasted();
        }
        report.line((text::counted(groups.size(), L"content") + (groups.size() == 1 ? L" stands" : L" stand") +
                     L" in more than one file; the copies take " + text::counted(wasted, L"byte") + L".")
                        .c_str());
        report.line(L"");
        Table table(report, {L">Wasted", L">Copies", L"Files"});
        for (std::size_t place = 0; place < groups.size() && place < topEntries(); ++place)
        {
            reportGroup(table, groups[place]);
        }
        if (groups.size() > topEntries())
        {
            table.row({L"", L"", L"(" + text::counted(groups.size() - topEntries(), L"other") + L")"});
        }
    }

private:
    std::vector<Group> duplicateGroups() const
    {
        std::vector<Group> groups;
        for (const auto& [fingerprint, paths] : files_)
        {
            if (paths.size() > 1)
            {
                groups.push_back({fingerprint.size, paths});
            }
        }
        std::sort(groups.begin(), groups.end(),
                  [](const Group& left, const Group& right) {
                      return left.wasted() != right.wasted() ? left.wasted() > right.wasted()
                                                             : left.paths < right.paths;
                  });
        return groups;
    }

    // The figures beside the first file, the other files below it.
    void reportGroup(Table& table, const Group& group) const
    {
        for (std::size_t place = 0; place < group.paths.size() && place < topEntries(); ++place)
        {
            const bool first = place == 0;
            table.row({first ? text::grouped(group.wasted()) : L"", first ? text::grouped(group.paths.size()) : L"",
                       group.paths[place]});
        }
        if (group.paths.size() > topEntries())
        {
            table.row({L"", L"", L"(" + text::counted(group.paths.size() - topEntries(), L"other") + L")"});
        }
    }

    std::map<Fingerprint, std::vector<std::wstring>> files_;
};

} // namespace

std::unique_ptr<AnalyserPlugin> makePlugin()
{
    return std::make_unique<Duplicates>();
}
