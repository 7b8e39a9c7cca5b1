/*
 * Kest Platform Base: strings.
 */
#ifndef KEST_CRT_STRINGS_H
#define KEST_CRT_STRINGS_H

#include "kest/base_types.h"
#include "kest/export.h"

KEST_C_BEGIN

KEST_C_END

#endif
