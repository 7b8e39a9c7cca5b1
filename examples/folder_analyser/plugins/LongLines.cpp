// Text files with lines longer than the settings allow.
#include "plugins/analyser_plugin.h"
#include "support/content.h"
#include "support/ranking.h"
#include "support/table.h"
#include "support/text.h"

#include <cstdlib>

namespace
{

struct FileWithLongLines
{
    std::wstring path;
    unsigned long long lines = 0;
    unsigned long long longest = 0;      // in characters
    unsigned long long longestPlace = 0; // its number, from 1
};

class LongLines final : public AnalyserPlugin
{
public:
    const wchar_t* title() const override { return L"Long lines"; }

    void start(const AnalyserSettings& settings) override
    {
        AnalyserPlugin::start(settings);
        wchar_t limit[16];
        GetPrivateProfileStringW(L"LongLines", L"LineLimit", L"120", limit, 16, settings.file);
        limit_ = static_cast<unsigned long long>(_wtoi(limit) > 0 ? _wtoi(limit) : 120);
    }

    void analyse(const AnalysedFile& file) override
    {
        const TextContent content(file);
        FileWithLongLines result;
        result.path = file.path;
        unsigned long long place = 0;
        for (LineReader reader(content.utf8()); reader.next();)
        {
            ++place;
            const unsigned long long characters = characterCount(reader.line());
            result.lines += characters > limit_ ? 1 : 0;
            if (characters > result.longest)
            {
                result.longest = characters;
                result.longestPlace = place;
            }
        }
        if (result.lines > 0)
        {
            ++files_;
            lines_ += result.lines;
            keepTop(top_, result, topEntries(),
                    [](const FileWithLongLines& left, const FileWithLongLines& right)
                    { return left.longest > right.longest; });
        }
    }

    void report(IReport& report) const override
    {
        const std::wstring limit = L" longer than " + text::counted(limit_, L"character") + L".";
        if (files_ == 0)
        {
            report.line((L"No line is" + limit).c_str());
            return;
        }
        report.line((text::counted(lines_, L"line") + L" in " + text::counted(files_, L"file") +
                     (lines_ == 1 ? L" is" : L" are") + limit)
                        .c_str());
        report.line(L"");
        Table table(report, {L">Longest", L">At line", L">Long lines", L"File"});
        for (const FileWithLongLines& file : top_)
        {
            table.row(
                {text::grouped(file.longest), text::grouped(file.longestPlace), text::grouped(file.lines), file.path});
        }
    }

private:
    unsigned long long limit_ = 0;
    unsigned long long lines_ = 0;
    unsigned long long files_ = 0;
    std::vector<FileWithLongLines> top_;
};

} // namespace

std::unique_ptr<AnalyserPlugin> makePlugin()
{
    return std::make_unique<LongLines>();
}
