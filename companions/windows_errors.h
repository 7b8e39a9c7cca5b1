// Windows's codes for what the companions report, and the one way of failing with them.
#pragma once

#include "kest/kernel/environment.h"

#include <new>

namespace kest::companions
{

enum Error : DWORD
{
    errorFileNotFound = 2,
    errorPathNotFound = 3,
    errorAccessDenied = 5,
    errorInvalidHandle = 6,
    errorNotEnoughMemory = 8,
    errorWriteProtect = 19,
    errorGeneralFailure = 31,
    errorSharingViolation = 32,
    errorNotSupported = 50,
    errorInvalidParameter = 87,
    errorDiskFull = 112,
    errorCallNotImplemented = 120,
    errorInsufficientBuffer = 122,
    errorInvalidName = 123,
    errorModuleNotFound = 126,
    errorAlreadyExists = 183,
    errorVariableNotFound = 203,
    errorFileNameTooLong = 206,
    errorInvalidFlags = 1004,
    errorNoUnicodeTranslation = 1113,
    errorDataTypeMismatch = 1629,
    errorUnsupportedType = 1630,
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
