// Which line ends text files use, and which files mix them.
#include "plugins/analyser_plugin.h"
#include "support/content.h"
#include "support/table.h"
#include "support/text.h"

#include <array>

namespace
{

enum Kind : std::size_t
{
    OnlyLf,
    OnlyCrLf,
    OnlyCr,
    Mixed,
    Without,
    KindCount
};

constexpr std::array<const wchar_t*, KindCount> kindNames = {L"LF", L"CR LF", L"CR", L"mixed", L"none"};

struct Ends
{
    unsigned long long lf = 0;
    unsigned long long crLf = 0;
    unsigned long long cr = 0;
};

Kind kindOf(const Ends& ends)
{
    const int kinds = (ends.lf > 0 ? 1 : 0) + (ends.crLf > 0 ? 1 : 0) + (ends.cr > 0 ? 1 : 0);
    if (kinds != 1)
    {
        return kinds == 0 ? Without : Mixed;
    }
    return ends.lf > 0 ? OnlyLf : ends.crLf > 0 ? OnlyCrLf : OnlyCr;
}

struct MixedFile
{
    std::wstring path;
    Ends ends;
};

class LineEndings final : public AnalyserPlugin
{
public:
    const wchar_t* title() const override { return L"Line ends of text files"; }

    void analyse(const AnalysedFile& file) override
    {
        const TextContent content(file);
        if (!content.isText())
        {
            return;
        }
        Ends ends;
        LineReader reader(content.utf8());
        unsigned long long lines = 0;
        while (reader.next())
        {
            ++lines;
            ends.lf += reader.end() == LineEnd::Lf ? 1 : 0;
            ends.crLf += reader.end() == LineEnd::CrLf ? 1 : 0;
            ends.cr += reader.end() == LineEnd::Cr ? 1 : 0;
        }
        const Kind kind = kindOf(ends);
        ++files_[kind];
        lines_[kind] += lines;
        unfinished_ += lines > 0 && reader.end() == LineEnd::None ? 1 : 0;
        if (kind == Mixed)
        {
            mixed_.push_back({file.path, ends});
        }
    }

    void report(IReport& report) const override
    {
        {
            Table table(report, {L"Line end", L">Files", L">Lines"});
            for (std::size_t kind = 0; kind < KindCount; ++kind)
            {
                if (files_[kind] > 0)
                {
                    table.row({kindNames[kind], text::grouped(files_[kind]), text::grouped(lines_[kind])});
                }
            }
        }
        if (unfinished_ > 0)
        {
            report.line(L"");
            report.line((text::counted(unfinished_, L"file") + (unfinished_ == 1 ? L" leaves its" : L" leave their") +
                         L" last line without an end.")
                            .c_str());
        }
        if (!mixed_.empty())
        {
            reportMixed(report);
        }
    }

private:
    void reportMixed(IReport& report) const
    {
        report.line(L"");
        Table table(report, {L">LF", L">CR LF", L">CR", L"Mixed in"});
        for (std::size_t place = 0; place < mixed_.size() && place < topEntries(); ++place)
        {
            const MixedFile& file = mixed_[place];
            table.row(
                {text::grouped(file.ends.lf), text::grouped(file.ends.crLf), text::grouped(file.ends.cr), file.path});
        }
        if (mixed_.size() > topEntries())
        {
            table.row({L"", L"", L"", L"(" + text::counted(mixed_.size() - topEntries(), L"other") + L")"});
        }
    }

    std::array<unsigned long long, KindCount> files_ = {};
    std::array<unsigned long long, KindCount> lines_ = {};
    unsigned long long unfinished_ = 0;
    std::vector<MixedFile> mixed_;
};

} // namespace

std::unique_ptr<AnalyserPlugin> makePlugin()
{
    return std::make_unique<LineEndings>();
}
