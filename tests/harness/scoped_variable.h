// An environment variable for a test's duration.
#pragma once

#include <cstdlib>
#include <optional>
#include <string>
#include <utility>

namespace kest::test
{

class ScopedVariable
{
public:
    // Null unsets the variable.
    ScopedVariable(std::string name, const char* value) : name_(std::move(name))
    {
        if (const char* const previous = std::getenv(name_.c_str()))
        {
            previous_ = previous;
        }
        set(value);
    }
    ~ScopedVariable() { set(previous_ ? previous_->c_str() : nullptr); }
    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;

    void set(const char* value)
    {
        if (value == nullptr)
        {
            unsetenv(name_.c_str());
        }
        else
        {
            setenv(name_.c_str(), value, 1);
        }
    }

private:
    std::string name_;
    std::optional<std::string> previous_;
};

} // namespace kest::test
