// Windows's error codes, as far as the services answer with them beside those of kest/registry.h.
#pragma once

#include "kest/base_types.h"

namespace kest::host
{

constexpr int errorFileNotFound = 2;
constexpr int errorPathNotFound = 3;
constexpr int errorTooManyOpenFiles = 4;
constexpr int errorAccessDenied = 5;
constexpr int errorInvalidHandle = 6;
constexpr int errorNotEnoughMemory = 8;
constexpr int errorNoMoreFiles = 18;
constexpr int errorWriteProtect = 19;
constexpr int errorGeneralFailure = 31;
constexpr int errorInvalidParameter = 87;
constexpr int errorDiskFull = 112;
constexpr int errorInsufficientBuffer = 122;
constexpr int errorBusy = 170;
constexpr int errorFileNameTooLong = 206;
constexpr int errorRegistryCorrupt = 1015;
constexpr int errorRegistryIoFailed = 1016;

// The code as an HRESULT.
constexpr HRESULT resultOf(int code)
{
    return static_cast<HRESULT>(0x80070000U | static_cast<unsigned>(code));
}

// What one of the system's own error numbers is called on Windows.
int windowsErrorOf(int systemError);

} // namespace kest::host
