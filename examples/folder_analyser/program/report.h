// The report: headings, lines and tables with aligned columns, as one text.
#pragma once

#include "analyser.h"

#include <string>
#include <vector>

class Report final : public IReport
{
public:
    void title(const std::wstring& text);
    void heading(const std::wstring& text);

    void line(const wchar_t* text) override;
    void beginTable(const wchar_t* const* titles, std::size_t columns) override;
    void row(const wchar_t* const* cells) override;
    void totalRow(const wchar_t* const* cells) override;
    void endTable() override;

    const std::wstring& text() const { return text_; }

private:
    using Cells = std::vector<std::wstring>;

    void underlined(const std::wstring& text, wchar_t mark);
    void writeRow(const Cells& cells, const std::vector<std::size_t>& widths);

    std::wstring text_;
    std::vector<bool> alignedRight_;
    std::vector<Cells> rows_; // titles first; an empty row is a rule
};
