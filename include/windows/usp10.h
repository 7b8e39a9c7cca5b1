/*
 * Kest Platform Base, porting kit: the shaping of complex text, as kest/user_interface/text_shaping.h declares it.
 */
#ifndef KEST_WINDOWS_USP10_H
#define KEST_WINDOWS_USP10_H

#include "windef.h"
#include "winerror.h"

#include "kest/user_interface/text_shaping.h"

#endif
