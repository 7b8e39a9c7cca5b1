// The last-error value is errno, which the C library and the loader use for themselves as well.
#pragma once

#include <cerrno>

namespace kest
{

// Keeps the last error over its scope, for functions that promise to leave it alone.
class KeptLastError
{
public:
    KeptLastError() : value_(errno) {}
    ~KeptLastError() { errno = value_; }
    KeptLastError(const KeptLastError&) = delete;
    KeptLastError& operator=(const KeptLastError&) = delete;

private:
    int value_;
};

} // namespace kest
