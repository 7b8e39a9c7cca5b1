/*
 * Kest Platform Base: path splitting.
 */
#ifndef KEST_CRT_PATH_SPLITTING_H
#define KEST_CRT_PATH_SPLITTING_H

#include "kest/base_types.h"
#include "kest/export.h"

KEST_C_BEGIN

KEST_C_END

#endif
