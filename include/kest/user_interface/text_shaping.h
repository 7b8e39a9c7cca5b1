/*
 * Kest Platform Base: text shaping.
 */
#ifndef KEST_USER_INTERFACE_TEXT_SHAPING_H
#define KEST_USER_INTERFACE_TEXT_SHAPING_H

#include "kest/base_types.h"
#include "kest/export.h"

KEST_C_BEGIN

KEST_C_END

#endif
