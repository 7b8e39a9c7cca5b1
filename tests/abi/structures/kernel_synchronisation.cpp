// The layout of the structures: Windows's, with wide characters of four bytes.
#include "kest/kernel/synchronisation.h"

#include <cstddef>

static_assert(sizeof(RTL_CRITICAL_SECTION) == 40);
static_assert(offsetof(RTL_CRITICAL_SECTION, DebugInfo) == 0);
static_assert(offsetof(RTL_CRITICAL_SECTION, LockCount) == 8);
static_assert(offsetof(RTL_CRITICAL_SECTION, RecursionCount) == 12);
static_assert(offsetof(RTL_CRITICAL_SECTION, OwningThread) == 16);
static_assert(offsetof(RTL_CRITICAL_SECTION, LockSemaphore) == 24);
static_assert(offsetof(RTL_CRITICAL_SECTION, SpinCount) == 32);
