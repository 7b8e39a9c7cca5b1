/*
 * Kest Platform Base, porting kit: what sources mean by <windows.h>. Its parts forward to the headers of include/kest,
 * which hold every declaration and its contract, and add types, constants and the generic names.
 *
 * WIN32_LEAN_AND_MEAN leaves out printing, the shell, COM and cryptography, as on Windows. No min and max are defined
 * unless KEST_WINDOWS_MIN_MAX is: see windef.h.
 */
#ifndef KEST_WINDOWS_WINDOWS_H
#define KEST_WINDOWS_WINDOWS_H

#include "imm.h"
#include "winbase.h"
#include "wincon.h"
#include "windef.h"
#include "winerror.h"
#include "wingdi.h"
#include "winnls.h"
#include "winnt.h"
#include "winreg.h"
#include "winuser.h"
#include "winver.h"
#ifndef WIN32_LEAN_AND_MEAN
#include "objbase.h"
#include "oleauto.h"
#include "shellapi.h"
#include "wincrypt.h"
#include "winspool.h"
#endif

/* Names that sources get from the C runtime's own headers on Windows, such as _wtoi from <stdlib.h>. */
#include "kest_kit/crt_names.h"

#endif
