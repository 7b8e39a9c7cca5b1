// Windows's codes for what the companions report, and the one way of failing with them.
#pragma once

#include "kest/kernel/environment.h"

#include <new>

namespace kest::companions
{

enum Error : DWORD
{
    errorNotEnoughMemory = 8,
    errorInvalidParameter = 87,
    errorInsufficientBuffer = 122,
    errorInvalidFlags = 1004,
    errorNoUnicodeTranslation = 1113,
};

// Sets the last error and hands the answer on.
template <class Answer>
Answer failWith(DWORD error, Answer answer)
{
    SetLastError(error);
    return answer;
}

// What the body answers; without memory for it `failure`, with the last error set.
template <class Answer, class Body>
Answer reportingNoMemory(Answer failure, Body&& body)
{
    try
    {
        return body();
    }
    catch (const std::bad_alloc&)
    {
        return failWith(errorNotEnoughMemory, failure);
    }
}

} // namespace kest::companions
