// What ends the program early: a message for the user and an exit status.
#pragma once

#include "unicode.h"

#include <stdexcept>
#include <string_view>

constexpr int statusDone = 0;
constexpr int statusFailed = 1;
constexpr int statusBadCommandLine = 2;

class Failure : public std::runtime_error
{
public:
    explicit Failure(std::wstring_view message, int status = statusFailed)
        : std::runtime_error(kest::host::toUtf8(message)), status_(status)
    {
    }

    int status() const { return status_; }

private:
    int status_;
};
