#include "kest/companions/console.h"

#include "failure.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>

namespace
{

// Null for a stream that is not open.
HANDLE handleOf(std::FILE* stream)
{
    const int lastError = errno;
    const bool open = fcntl(fileno(stream), F_GETFD) != -1;
    errno = lastError;
    return open ? stream : nullptr;
}

} // namespace

HANDLE GetStdHandle(DWORD stream)
{
    switch (stream)
    {
    case STD_INPUT_HANDLE:
        return handleOf(stdin);
    case STD_OUTPUT_HANDLE:
        return handleOf(stdout);
    case STD_ERROR_HANDLE:
        return handleOf(stderr);
    default:
        return kest::companions::failWith(ERROR_INVALID_HANDLE, INVALID_HANDLE_VALUE);
    }
}
