/*
 * Kest Platform Base, porting kit: the multibyte string functions, most of which end the process: see
 * kest/crt/strings.h.
 */
#ifndef KEST_WINDOWS_MBSTRING_H
#define KEST_WINDOWS_MBSTRING_H

#include "kest/crt/strings.h"

#endif
