/*
 * Kest Platform Base: registry.
 */
#ifndef KEST_REGISTRY_H
#define KEST_REGISTRY_H

#include "kest/base_types.h"
#include "kest/export.h"

KEST_C_BEGIN

KEST_C_END

#endif
