/*
 * Kest Platform Base: profiles.
 */
#ifndef KEST_KERNEL_PROFILES_H
#define KEST_KERNEL_PROFILES_H

#include "kest/base_types.h"
#include "kest/export.h"

KEST_C_BEGIN

KEST_C_END

#endif
