// The values of the constants, as Windows has them.
#include "kest/companions/crt.h"

static_assert(_TRUNCATE == 0xFFFFFFFFFFFFFFFF);
static_assert(STRUNCATE == 80);
