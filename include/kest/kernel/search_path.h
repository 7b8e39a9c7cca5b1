/*
 * Kest Platform Base: search path.
 */
#ifndef KEST_KERNEL_SEARCH_PATH_H
#define KEST_KERNEL_SEARCH_PATH_H

#include "kest/base_types.h"
#include "kest/export.h"

KEST_C_BEGIN

KEST_C_END

#endif
