// The values of the constants, as Windows has them.
#include "kest/kernel/strings.h"

// ---- Messages ----------------------------------------------------------------------------------------------------

static_assert(FORMAT_MESSAGE_ALLOCATE_BUFFER == 0x100);
static_assert(FORMAT_MESSAGE_IGNORE_INSERTS == 0x200);
static_assert(FORMAT_MESSAGE_FROM_STRING == 0x400);
static_assert(FORMAT_MESSAGE_FROM_HMODULE == 0x800);
static_assert(FORMAT_MESSAGE_FROM_SYSTEM == 0x1000);
static_assert(FORMAT_MESSAGE_ARGUMENT_ARRAY == 0x2000);
static_assert(FORMAT_MESSAGE_MAX_WIDTH_MASK == 0xFF);
