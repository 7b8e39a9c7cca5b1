// A process-wide locale for a test's duration.
#pragma once

#include <clocale>
#include <stdexcept>
#include <string>

namespace kest::test
{

class ScopedLocale
{
public:
    explicit ScopedLocale(const char* name) : previous_(std::setlocale(LC_ALL, nullptr))
    {
        if (std::setlocale(LC_ALL, name) == nullptr)
        {
            throw std::runtime_error(std::string("no locale ") + name);
        }
    }
    ~ScopedLocale() { std::setlocale(LC_ALL, previous_.c_str()); }
    ScopedLocale(const ScopedLocale&) = delete;
    ScopedLocale& operator=(const ScopedLocale&) = delete;

private:
    std::string previous_;
};

} // namespace kest::test
