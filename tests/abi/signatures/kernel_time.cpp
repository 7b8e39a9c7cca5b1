// Each function has the signature that modules built elsewhere call it by.
#include "abi/signature.h"
#include "kest/kernel/time.h"

using namespace kest::test;

static_assert(hasSignature<DWORD(), GetTickCount>);
static_assert(hasSignature<ULONGLONG(), GetTickCount64>);
static_assert(hasSignature<void(SYSTEMTIME*), GetLocalTime>);
static_assert(hasSignature<void(SYSTEMTIME*), GetSystemTime>);
static_assert(hasSignature<BOOL(const FILETIME*, SYSTEMTIME*), FileTimeToSystemTime>);
static_assert(hasSignature<BOOL(const SYSTEMTIME*, FILETIME*), SystemTimeToFileTime>);
static_assert(hasSignature<BOOL(const FILETIME*, FILETIME*), FileTimeToLocalFileTime>);
static_assert(
    hasSignature<BOOL(const TIME_ZONE_INFORMATION*, const SYSTEMTIME*, SYSTEMTIME*), SystemTimeToTzSpecificLocalTime>);
static_assert(hasSignature<LONG(const FILETIME*, const FILETIME*), CompareFileTime>);
