#include "program/report.h"

#include <algorithm>

void Report::title(const std::wstring& text)
{
    underlined(text, L'=');
}

void Report::heading(const std::wstring& text)
{
    text_ += L'\n';
    underlined(text, L'-');
}

void Report::line(const wchar_t* text)
{
    text_ += text;
    text_ += L'\n';
}

void Report::beginTable(const wchar_t* const* titles, std::size_t columns)
{
    alignedRight_.clear();
    rows_.assign(1, Cells());
    for (std::size_t column = 0; column < columns; ++column)
    {
        const wchar_t* const title = titles[column];
        alignedRight_.push_back(title[0] == L'>');
        rows_[0].push_back(alignedRight_.back() ? title + 1 : title);
    }
}

void Report::row(const wchar_t* const* cells)
{
    rows_.emplace_back(cells, cells + alignedRight_.size());
}

void Report::totalRow(const wchar_t* const* cells)
{
    rows_.emplace_back();
    row(cells);
}

void Report::endTable()
{
    std::vector<std::size_t> widths(alignedRight_.size());
    for (const Cells& cells : rows_)
    {
        for (std::size_t column = 0; column < cells.size(); ++column)
        {
            widths[column] = std::max(widths[column], cells[column].size());
        }
    }
    Cells rule;
    for (const std::size_t width : widths)
    {
        rule.emplace_back(width, L'-');
    }
    for (const Cells& cells : rows_)
    {
        writeRow(cells.empty() ? rule : cells, widths);
    }
}

void Report::underlined(const std::wstring& text, wchar_t mark)
{
    text_ += text + L'\n' + std::wstring(text.size(), mark) + L'\n';
}

void Report::writeRow(const Cells& cells, const std::vector<std::size_t>& widths)
{
    std::wstring line;
    for (std::size_t column = 0; column < cells.size(); ++column)
    {
        const std::wstring padding(widths[column] - cells[column].size(), L' ');
        line += column == 0 ? L"" : L"  ";
        line += alignedRight_[column] ? padding + cells[column] : cells[column] + padding;
    }
    line.erase(line.find_last_not_of(L' ') + 1);
    text_ += line + L'\n';
}
