/*
 * Kest Platform Base: drawing.
 */
#ifndef KEST_USER_INTERFACE_DRAWING_H
#define KEST_USER_INTERFACE_DRAWING_H

#include "kest/base_types.h"
#include "kest/export.h"

/* ---- Bitmaps and palettes ---------------------------------------------------------------------- */

typedef struct tagRGBQUAD
{
    BYTE rgbBlue;
    BYTE rgbGreen;
    BYTE rgbRed;
    BYTE rgbReserved;
} RGBQUAD, *LPRGBQUAD;

typedef struct tagBITMAPINFOHEADER
{
    DWORD biSize;
    LONG biWidth;
    LONG biHeight;
    WORD biPlanes;
    WORD biBitCount;
    DWORD biCompression;
    DWORD biSizeImage;
    LONG biXPelsPerMeter;
    LONG biYPelsPerMeter;
    DWORD biClrUsed;
    DWORD biClrImportant;
} BITMAPINFOHEADER, *PBITMAPINFOHEADER, *LPBITMAPINFOHEADER;

typedef struct tagBITMAPINFO
{
    BITMAPINFOHEADER bmiHeader;
    RGBQUAD bmiColors[1];
} BITMAPINFO, *PBITMAPINFO, *LPBITMAPINFO;

typedef struct tagPALETTEENTRY
{
    BYTE peRed;
    BYTE peGreen;
    BYTE peBlue;
    BYTE peFlags;
} PALETTEENTRY, *PPALETTEENTRY, *LPPALETTEENTRY;

typedef struct tagLOGPALETTE
{
    WORD palVersion;
    WORD palNumEntries;
    PALETTEENTRY palPalEntry[1];
} LOGPALETTE, *PLOGPALETTE, *LPLOGPALETTE;

/* biCompression */
#define BI_RGB 0
#define BI_RLE8 1
#define BI_RLE4 2
#define BI_BITFIELDS 3

/* Meaning of a bitmap's colour table */
#define DIB_RGB_COLORS 0
#define DIB_PAL_COLORS 1

/* Raster operations of BitBlt */
#define SRCCOPY 0x00CC0020
#define SRCPAINT 0x00EE0086
#define SRCAND 0x008800C6
#define SRCINVERT 0x00660046
#define SRCERASE 0x00440328
#define NOTSRCCOPY 0x00330008
#define NOTSRCERASE 0x001100A6
#define MERGECOPY 0x00C000CA
#define MERGEPAINT 0x00BB0226
#define PATCOPY 0x00F00021
#define PATPAINT 0x00FB0A09
#define PATINVERT 0x005A0049
#define DSTINVERT 0x00550009
#define BLACKNESS 0x00000042
#define WHITENESS 0x00FF0062

KEST_C_BEGIN

/* ---- Bitmaps and palettes ---------------------------------------------------------------------- */

/** Always null: no device contexts exist here. @kind fixed result */
KEST_API HDC CreateCompatibleDC(HDC hdc);

/** Always null. @kind fixed result */
KEST_API HBITMAP CreateBitmap(int nWidth, int nHeight, UINT nPlanes, UINT nBitCount, const void* lpBits);

/** Always null; ppvBits is left as it was. @kind fixed result */
KEST_API HBITMAP CreateDIBSection(HDC hdc, const BITMAPINFO* pbmi, UINT usage, void** ppvBits, HANDLE hSection,
                                  DWORD offset);

/** Always 1: nothing is drawn. @kind fixed result */
KEST_API BOOL BitBlt(HDC hdc, int x, int y, int cx, int cy, HDC hdcSrc, int x1, int y1, DWORD rop);

/** Always null. @kind fixed result */
KEST_API HPALETTE CreatePalette(const LOGPALETTE* plpal);

/** Always the palette that it is given. @kind fixed result */
KEST_API HPALETTE SelectPalette(HDC hdc, HPALETTE hPal, BOOL bForceBkgd);

/** Always 0: no palette entry is changed. @kind fixed result */
KEST_API UINT RealizePalette(HDC hdc);

/* ---- Fonts ------------------------------------------------------------------------------------ */

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
