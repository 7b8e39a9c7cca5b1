// The layout of the structures: a map of modules is shared with other objects.
#include "kest/kernel/modules.h"

#include <cstddef>

static_assert(sizeof(ModuleInfo) == 16);
static_assert(offsetof(ModuleInfo, count) == 0);
static_assert(offsetof(ModuleInfo, handle) == 8);
