// How many files of which type there are, and how much room they take.
#include "plugins/analyser_plugin.h"
#include "support/ranking.h"
#include "support/table.h"
#include "support/text.h"

namespace
{

struct Total
{
    unsigned long long files = 0;
    unsigned long long bytes = 0;
};

class FileTypes final : public AnalyserPlugin
{
public:
    const wchar_t* title() const override { return L"File types"; }

    void analyse(const AnalysedFile& file) override
    {
        for (Total* total : {&types_[file.type], &all_})
        {
            ++total->files;
            total->bytes += file.size;
        }
    }

    void report(IReport& report) const override
    {
        Table table(report, {L"Type", L">Files", L">Share", L">Bytes", L">Share", L""});
        Total others;
        std::size_t shown = 0;
        for (const auto& [type, total] : ranked(types_, [](const Total& entry) { return entry.bytes; }))
        {
            if (shown < topEntries())
            {
                ++shown;
                row(table, type, total);
                continue;
            }
            others.files += total.files;
            others.bytes += total.bytes;
        }
        if (types_.size() > shown)
        {
            row(table, L"(" + text::counted(types_.size() - shown, L"other") + L")", others);
        }
        table.totalRow({L"Total", text::grouped(all_.files), L"", text::grouped(all_.bytes), L"", L""});
    }

private:
    void row(Table& table, const std::wstring& type, const Total& total) const
    {
        const unsigned long long barLength = all_.bytes == 0 ? 0 : (total.bytes * 20 + all_.bytes / 2) / all_.bytes;
        table.row({type, text::grouped(total.files), text::percentage(total.files, all_.files),
                   text::grouped(total.bytes), text::percentage(total.bytes, all_.bytes),
                   std::wstring(static_cast<std::size_t>(barLength), L'#')});
    }

    std::map<std::wstring, Total> types_;
    Total all_;
};

} // namespace

std::unique_ptr<AnalyserPlugin> makePlugin()
{
    return std::make_unique<FileTypes>();
}
