/*
 * Kest Platform Base, porting kit: the current directory by wide name: _wgetcwd.
 */
#ifndef KEST_WINDOWS_DIRECT_H
#define KEST_WINDOWS_DIRECT_H

#include "kest/crt/file_wrappers.h"

#if __has_include("kest/companions/crt.h")
#include "kest/companions/crt.h"
#endif

#endif
