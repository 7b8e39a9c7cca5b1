/*
 * Kest Platform Base: geometry.
 */
#ifndef KEST_GEOMETRY_H
#define KEST_GEOMETRY_H

#include "kest/base_types.h"
#include "kest/export.h"

KEST_C_BEGIN

KEST_C_END

#endif
