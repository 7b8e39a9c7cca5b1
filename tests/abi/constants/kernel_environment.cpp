// The values of the constants, as Windows has them.
#include "kest/kernel/environment.h"

// ---- Versions ----------------------------------------------------------------------------------------------------

static_assert(VER_PLATFORM_WIN32s == 0);
static_assert(VER_PLATFORM_WIN32_WINDOWS == 1);
static_assert(VER_PLATFORM_WIN32_NT == 2);
static_assert(VER_NT_WORKSTATION == 1);
static_assert(VER_NT_DOMAIN_CONTROLLER == 2);
static_assert(VER_NT_SERVER == 3);

// ---- Processors --------------------------------------------------------------------------------------------------

static_assert(PROCESSOR_ARCHITECTURE_INTEL == 0);
static_assert(PROCESSOR_ARCHITECTURE_ARM == 5);
static_assert(PROCESSOR_ARCHITECTURE_AMD64 == 9);
static_assert(PROCESSOR_ARCHITECTURE_ARM64 == 12);
static_assert(PROCESSOR_ARCHITECTURE_UNKNOWN == 0xFFFF);

// ---- Exceptions --------------------------------------------------------------------------------------------------

static_assert(EXCEPTION_NONCONTINUABLE == 0x1);
static_assert(EXCEPTION_MAXIMUM_PARAMETERS == 15);
