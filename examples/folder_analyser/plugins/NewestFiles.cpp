// The files written last.
#include "plugins/analyser_plugin.h"
#include "support/date.h"
#include "support/ranking.h"
#include "support/table.h"

namespace
{

struct DatedFile
{
    FILETIME lastWrite;
    std::wstring path;
};

unsigned long long wholeTime(const FILETIME& time)
{
    return static_cast<unsigned long long>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
}

class NewestFiles final : public AnalyserPlugin
{
public:
    const wchar_t* title() const override { return L"Files written last"; }

    void analyse(const AnalysedFile& file) override
    {
        keepTop(top_, {file.lastWrite, file.path}, topEntries(),
                [](const DatedFile& left, const DatedFile& right)
                { return wholeTime(left.lastWrite) > wholeTime(right.lastWrite); });
    }

    void report(IReport& report) const override
    {
        Table table(report, {L"Written", L"File"});
        for (const DatedFile& file : top_)
        {
            table.row({dateText(file.lastWrite), file.path});
        }
    }

private:
    std::vector<DatedFile> top_;
};

} // namespace

std::unique_ptr<AnalyserPlugin> makePlugin()
{
    return std::make_unique<NewestFiles>();
}
