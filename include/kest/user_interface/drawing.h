/*
 * Kest Platform Base: drawing.
 */
#ifndef KEST_USER_INTERFACE_DRAWING_H
#define KEST_USER_INTERFACE_DRAWING_H

#include "kest/base_types.h"
#include "kest/export.h"

KEST_C_BEGIN

/**
 * Lists fonts. Needs an installed hub with a font service; arguments reach it as they are, null included.
 * @param lpLogfont  which fonts: by character set, and by name unless that is empty.
 * @param lpProc  called by the service once a font; 0 ends the enumeration.
 * @param lParam  handed to lpProc.
 * @return what lpProc answered last.
 * @lasterror left to the host.
 * @kind forward: IFontService::EnumFontFamiliesExW
 */
KEST_API int EnumFontFamiliesExW(HDC hdc, LOGFONTW* lpLogfont, FONTENUMPROCW lpProc, LPARAM lParam, DWORD dwFlags);

KEST_C_END

#endif
