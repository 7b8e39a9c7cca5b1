// Puts what a plug-in has collected into the order of the report.
#pragma once

#include <algorithm>
#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

// The entries of a map by falling key figure; equal ones by name.
template <class Value, class Figure>
std::vector<std::pair<std::wstring, Value>> ranked(const std::map<std::wstring, Value>& entries, Figure figure)
{
    std::vector<std::pair<std::wstring, Value>> result(entries.begin(), entries.end());
    std::stable_sort(result.begin(), result.end(),
                     [&](const auto& left, const auto& right) { return figure(left.second) > figure(right.second); });
    return result;
}

// Keeps the greatest `limit` of the entries offered, the greatest first; among equal ones the first offered.
template <class Entry, class Greater>
void keepTop(std::vector<Entry>& top, Entry entry, std::size_t limit, Greater greater)
{
    if (top.size() == limit && (limit == 0 || !greater(entry, top.back())))
    {
        return;
    }
    top.insert(std::upper_bound(top.begin(), top.end(), entry, greater), std::move(entry));
    if (top.size() > limit)
    {
        top.pop_back();
    }
}
