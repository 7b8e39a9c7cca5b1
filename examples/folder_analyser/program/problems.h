// What could not be done: told at once on standard error, and again at the end of the report.
#pragma once

#include <string>
#include <vector>

class Problems
{
public:
    void add(const std::wstring& message);
    const std::vector<std::wstring>& all() const { return all_; }

private:
    std::vector<std::wstring> all_;
};
