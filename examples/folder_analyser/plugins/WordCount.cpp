// Lines, words and characters of text files.
#include "plugins/analyser_plugin.h"
#include "support/content.h"
#include "support/ranking.h"
#include "support/table.h"
#include "support/text.h"

namespace
{

struct Counts
{
    unsigned long long files = 0;
    unsigned long long lines = 0;
    unsigned long long words = 0;
    unsigned long long characters = 0;

    void add(const Counts& other)
    {
        files += other.files;
        lines += other.lines;
        words += other.words;
        characters += other.characters;
    }
};

// Words are what blanks separate.
unsigned long long wordCount(std::string_view line)
{
    unsigned long long words = 0;
    bool inWord = false;
    for (const char character : line)
    {
        const bool blank = character == ' ' || (character >= '\t' && character <= '\r');
        words += !blank && !inWord ? 1 : 0;
        inWord = !blank;
    }
    return words;
}

class WordCount final : public AnalyserPlugin
{
public:
    const wchar_t* title() const override { return L"Lines and words of text files"; }

    void analyse(const AnalysedFile& file) override
    {
        const TextContent content(file);
        if (!content.isText())
        {
            return;
        }
        Counts counts;
        counts.files = 1;
        counts.characters = characterCount(content.utf8());
        for (LineReader reader(content.utf8()); reader.next();)
        {
            ++counts.lines;
            counts.words += wordCount(reader.line());
        }
        types_[file.type].add(counts);
    }

    void report(IReport& report) const override
    {
        Table table(report, {L"Type", L">Files", L">Lines", L">Words", L">Characters", L">Lines per file"});
        Counts others;
        Counts all;
        std::size_t shown = 0;
        for (const auto& [type, counts] : ranked(types_, [](const Counts& entry) { return entry.lines; }))
        {
            all.add(counts);
            if (shown < topEntries())
            {
                ++shown;
                table.row(cells(type, counts));
                continue;
            }
            others.add(counts);
        }
        if (types_.size() > shown)
        {
            table.row(cells(L"(" + text::counted(types_.size() - shown, L"other") + L")", others));
        }
        table.totalRow(cells(L"Total", all));
    }

private:
    static std::vector<std::wstring> cells(const std::wstring& name, const Counts& counts)
    {
        return {name,
                text::grouped(counts.files),
                text::grouped(counts.lines),
                text::grouped(counts.words),
                text::grouped(counts.characters),
                text::grouped(counts.files == 0 ? 0 : (counts.lines + counts.files / 2) / counts.files)};
    }

    std::map<std::wstring, Counts> types_;
};

} // namespace

std::unique_ptr<AnalyserPlugin> makePlugin()
{
    return std::make_unique<WordCount>();
}
