/*
 * Kest Platform Base: input method.
 */
#ifndef KEST_USER_INTERFACE_INPUT_METHOD_H
#define KEST_USER_INTERFACE_INPUT_METHOD_H

#include "kest/base_types.h"
#include "kest/export.h"

KEST_C_BEGIN

KEST_C_END

#endif
