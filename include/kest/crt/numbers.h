/*
 * Kest Platform Base: numbers.
 */
#ifndef KEST_CRT_NUMBERS_H
#define KEST_CRT_NUMBERS_H

#include "kest/base_types.h"
#include "kest/export.h"

KEST_C_BEGIN

KEST_C_END

#endif
