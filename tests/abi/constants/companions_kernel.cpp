// The values of the constants, as Windows has them.
#include "kest/companions/kernel.h"

static_assert(FIND_FIRST_EX_CASE_SENSITIVE == 0x1);
static_assert(FIND_FIRST_EX_LARGE_FETCH == 0x2);
static_assert(FIND_FIRST_EX_ON_DISK_ENTRIES_ONLY == 0x4);
static_assert(PROCESSOR_AMD_X8664 == 8664);
static_assert(FindExInfoStandard == 0);
static_assert(FindExInfoBasic == 1);
static_assert(FindExInfoMaxInfoLevel == 2);
static_assert(FindExSearchNameMatch == 0);
static_assert(FindExSearchLimitToDirectories == 1);
static_assert(FindExSearchLimitToDevices == 2);
static_assert(FindExSearchMaxSearchOp == 3);
