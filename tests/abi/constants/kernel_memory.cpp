// The values of the constants, as Windows has them.
#include "kest/kernel/memory.h"

// ---- Allocation --------------------------------------------------------------------------------------------------

static_assert(GMEM_FIXED == 0);
static_assert(GMEM_MOVEABLE == 0x2);
static_assert(GMEM_ZEROINIT == 0x40);
static_assert(GHND == 0x42);
static_assert(GPTR == 0x40);
static_assert(HEAP_ZERO_MEMORY == 0x8);
