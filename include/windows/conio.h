/*
 * Kest Platform Base, porting kit: the keyboard of a console: kbhit, for C++.
 */
#ifndef KEST_WINDOWS_CONIO_H
#define KEST_WINDOWS_CONIO_H

#include "kest/kernel/environment.h"

#ifdef __cplusplus
#define _kbhit kbhit
#endif

#endif
