// A table of the report, written by a plug-in.
#pragma once

#include "analyser.h"

#include <initializer_list>
#include <string>
#include <vector>

class Table
{
public:
    Table(IReport& report, std::initializer_list<const wchar_t*> titles) : report_(report)
    {
        report_.beginTable(titles.begin(), titles.size());
    }
    ~Table() { report_.endTable(); }
    Table(const Table&) = delete;
    Table& operator=(const Table&) = delete;

    void row(const std::vector<std::wstring>& cells) { report_.row(pointers(cells).data()); }
    void totalRow(const std::vector<std::wstring>& cells) { report_.totalRow(pointers(cells).data()); }

private:
    static std::vector<const wchar_t*> pointers(const std::vector<std::wstring>& cells)
    {
        std::vector<const wchar_t*> result;
        for (const std::wstring& cell : cells)
        {
            result.push_back(cell.c_str());
        }
        return result;
    }

    IReport& report_;
};
