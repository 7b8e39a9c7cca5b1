/*
 * Kest Platform Base, porting kit: what sources mean by <windows.h>. It forwards to the headers of include/kest, which
 * hold every declaration and its contract, and adds the generic names. It defines no min and max.
 */
#ifndef KEST_WINDOWS_WINDOWS_H
#define KEST_WINDOWS_WINDOWS_H

#include "winbase.h"
#include "windef.h"
#include "winreg.h"
#include "winuser.h"

/* Names that sources get from the C runtime's own headers on Windows, such as _wtoi from <stdlib.h>. */
#include "kest/crt.h"

#endif
