/*
 * Kest Platform Base, porting kit: CRect, CPoint and CSize.
 */
#ifndef KEST_WINDOWS_ATLTYPES_H
#define KEST_WINDOWS_ATLTYPES_H

#include "windef.h"

#include "kest/geometry.h"

#endif
