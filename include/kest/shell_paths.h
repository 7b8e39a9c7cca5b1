/*
 * Kest Platform Base: shell paths.
 */
#ifndef KEST_SHELL_PATHS_H
#define KEST_SHELL_PATHS_H

#include "kest/base_types.h"
#include "kest/export.h"

KEST_C_BEGIN

KEST_C_END

#endif
