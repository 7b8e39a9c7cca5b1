/*
 * Kest Platform Base: windows and input.
 */
#ifndef KEST_USER_INTERFACE_WINDOWS_AND_INPUT_H
#define KEST_USER_INTERFACE_WINDOWS_AND_INPUT_H

#include "kest/base_types.h"
#include "kest/export.h"

KEST_C_BEGIN

KEST_C_END

#endif
