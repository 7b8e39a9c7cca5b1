/*
 * Kest Platform Base, porting kit: the user interface functions and their generic names.
 */
#ifndef KEST_WINDOWS_WINUSER_H
#define KEST_WINDOWS_WINUSER_H

#include "windef.h"

#include "kest/user_interface.h"

#ifdef UNICODE
#define CharLower CharLowerW
#define CharUpper CharUpperW
#define wsprintf wsprintfW
#endif

#endif
