// The values of the constants, as Windows has them.
#include "kest/companions/console.h"

static_assert(STD_INPUT_HANDLE == 0xFFFFFFF6);
static_assert(STD_OUTPUT_HANDLE == 0xFFFFFFF5);
static_assert(STD_ERROR_HANDLE == 0xFFFFFFF4);
