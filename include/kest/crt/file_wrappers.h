/*
 * Kest Platform Base: file wrappers.
 */
#ifndef KEST_CRT_FILE_WRAPPERS_H
#define KEST_CRT_FILE_WRAPPERS_H

#include "kest/base_types.h"
#include "kest/export.h"

KEST_C_BEGIN

/** Always 0: a descriptor has no text mode. @kind fixed result */
KEST_API int _setmode(int descriptor, int mode);

KEST_C_END

#endif
