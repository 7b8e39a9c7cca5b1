// The one way of failing with an error code of Windows.
#pragma once

#include "kest/kernel/environment.h"

#include <kest_kit/system_errors.h>
#include <new>

namespace kest::companions
{

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
        return failWith(ERROR_NOT_ENOUGH_MEMORY, failure);
    }
}

} // namespace kest::companions
