/*
 * Kest Platform Base: resources.
 */
#ifndef KEST_USER_INTERFACE_RESOURCES_H
#define KEST_USER_INTERFACE_RESOURCES_H

#include "kest/base_types.h"
#include "kest/export.h"

KEST_C_BEGIN

KEST_C_END

#endif
