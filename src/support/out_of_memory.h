// What an exported function does when it finds no memory: it answers as in any other failure. Only the module functions
// let std::bad_alloc out.
#pragma once

#include <cerrno>
#include <new>

namespace kest
{

// What the body answers, or `failure` with the last error as it was when there is no memory for the body.
template <class Answer, class Body>
Answer answerWithoutMemory(Answer failure, Body&& body)
{
    const int lastError = errno;
    try
    {
        return body();
    }
    catch (const std::bad_alloc&)
    {
        errno = lastError;
        return failure;
    }
}

} // namespace kest
