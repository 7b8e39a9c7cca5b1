/*
 * Kest Platform Base: formatted output.
 */
#ifndef KEST_CRT_FORMATTED_OUTPUT_H
#define KEST_CRT_FORMATTED_OUTPUT_H

#include "kest/base_types.h"
#include "kest/export.h"

KEST_C_BEGIN

KEST_C_END

#endif
