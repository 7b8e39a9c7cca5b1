// The values of the constants, as Windows has them.
#include "kest/companions/registry.h"

static_assert(RRF_RT_REG_NONE == 0x1);
static_assert(RRF_RT_REG_SZ == 0x2);
static_assert(RRF_RT_REG_EXPAND_SZ == 0x4);
static_assert(RRF_RT_REG_BINARY == 0x8);
static_assert(RRF_RT_REG_DWORD == 0x10);
static_assert(RRF_RT_REG_MULTI_SZ == 0x20);
static_assert(RRF_RT_REG_QWORD == 0x40);
static_assert(RRF_RT_DWORD == 0x18);
static_assert(RRF_RT_QWORD == 0x48);
static_assert(RRF_RT_ANY == 0xFFFF);
static_assert(RRF_SUBKEY_WOW6464KEY == 0x10000);
static_assert(RRF_SUBKEY_WOW6432KEY == 0x20000);
static_assert(RRF_NOEXPAND == 0x10000000);
static_assert(RRF_ZEROONFAILURE == 0x20000000);
