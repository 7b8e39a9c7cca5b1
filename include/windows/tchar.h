/*
 * Kest Platform Base, porting kit: generic text of the C runtime, wide where _UNICODE is defined.
 */
#ifndef KEST_WINDOWS_TCHAR_H
#define KEST_WINDOWS_TCHAR_H

#include "windef.h"

#ifdef _UNICODE
#define _T(literal) KEST_WIDE_TEXT(literal)
#define _tmain wmain
#else
#define _T(literal) literal
#define _tmain main
#endif
#define KEST_WIDE_TEXT(literal) L##literal
#define _TEXT(literal) _T(literal)

#endif
