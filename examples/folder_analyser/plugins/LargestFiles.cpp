// The largest files, and how much of the whole they take.
#include "plugins/analyser_plugin.h"
#include "support/ranking.h"
#include "support/table.h"
#include "support/text.h"

namespace
{

struct LargeFile
{
    unsigned long long bytes;
    std::wstring path;
};

class LargestFiles final : public AnalyserPlugin
{
public:
    const wchar_t* title() const override { return L"Largest files"; }

    void analyse(const AnalysedFile& file) override
    {
        allBytes_ += file.size;
        keepTop(top_, {file.size, file.path}, topEntries(),
                [](const LargeFile& left, const LargeFile& right) { return left.bytes > right.bytes; });
    }

    void report(IReport& report) const override
    {
        Table table(report, {L">Bytes", L">Share", L"File"});
        for (const LargeFile& file : top_)
        {
            table.row({text::grouped(file.bytes), text::percentage(file.bytes, allBytes_), file.path});
        }
    }

private:
    unsigned long long allBytes_ = 0;
    std::vector<LargeFile> top_;
};

} // namespace

std::unique_ptr<AnalyserPlugin> makePlugin()
{
    return std::make_unique<LargestFiles>();
}
