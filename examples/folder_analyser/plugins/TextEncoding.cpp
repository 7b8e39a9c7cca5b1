// In which encodings the files are written.
#include "plugins/analyser_plugin.h"
#include "support/content.h"
#include "support/table.h"
#include "support/text.h"

#include <array>

namespace
{

constexpr std::array<const wchar_t*, encodingCount> encodingNames = {L"empty",
                                                                     L"ASCII",
                                                                     L"UTF-8",
                                                                     L"UTF-8 with byte order mark",
                                                                     L"UTF-16, low byte first",
                                                                     L"UTF-16, high byte first",
                                                                     L"8-bit text",
                                                                     L"binary"};

class TextEncoding final : public AnalyserPlugin
{
public:
    const wchar_t* title() const override { return L"Encodings"; }

    void analyse(const AnalysedFile& file) override
    {
        const auto encoding = static_cast<std::size_t>(encodingOf(file));
        ++files_[encoding];
        bytes_[encoding] += file.size;
        ++allFiles_;
    }

    void report(IReport& report) const override
    {
        Table table(report, {L"Encoding", L">Files", L">Share", L">Bytes"});
        for (std::size_t encoding = 0; encoding < encodingCount; ++encoding)
        {
            if (files_[encoding] > 0)
            {
                table.row({encodingNames[encoding], text::grouped(files_[encoding]),
                           text::percentage(files_[encoding], allFiles_), text::grouped(bytes_[encoding])});
            }
        }
    }

private:
    std::array<unsigned long long, encodingCount> files_ = {};
    std::array<unsigned long long, encodingCount> bytes_ = {};
    unsigned long long allFiles_ = 0;
};

} // namespace

std::unique_ptr<AnalyserPlugin> makePlugin()
{
    return std::make_unique<TextEncoding>();
}
