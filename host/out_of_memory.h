// What an operation answers when it finds no memory. No exception may reach the library that called it: each operation
// that allocates is a try block whose handler of std::bad_alloc answers through this.
#pragma once

#include <cerrno>
#include <kest_kit/system_errors.h>

namespace kest::host
{

// The answer, with ERROR_NOT_ENOUGH_MEMORY for the last error.
template <class Answer>
Answer withoutMemory(Answer answer)
{
    errno = ERROR_NOT_ENOUGH_MEMORY;
    return answer;
}

} // namespace kest::host
