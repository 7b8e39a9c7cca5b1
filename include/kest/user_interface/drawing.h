/*
 * Kest Platform Base: device contexts, drawing and fonts.
 *
 * There are no device contexts here: nothing is drawn, and no brush, bitmap or font object is made. Drawing is the
 * host's, with its own toolkit.
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

/* ---- Character sets --------------------------------------------------------------------------- */

typedef struct tagFONTSIGNATURE
{
    DWORD fsUsb[4];
    DWORD fsCsb[2];
} FONTSIGNATURE, *PFONTSIGNATURE, *LPFONTSIGNATURE;

typedef struct tagCHARSETINFO
{
    UINT ciCharset;
    UINT ciACP;
    FONTSIGNATURE fs;
} CHARSETINFO, *PCHARSETINFO, *LPCHARSETINFO;

/* Flags of TranslateCharsetInfo */
#define TCI_SRCCHARSET 1
#define TCI_SRCCODEPAGE 2
#define TCI_SRCFONTSIG 3
#define TCI_SRCLOCALE 0x1000

/* ---- Enhanced metafiles ----------------------------------------------------------------------- */

typedef struct tagHANDLETABLE
{
    HGDIOBJ objectHandle[1];
} HANDLETABLE, *PHANDLETABLE, *LPHANDLETABLE;

typedef struct tagENHMETARECORD
{
    DWORD iType;
    DWORD nSize;
    DWORD dParm[1];
} ENHMETARECORD, *PENHMETARECORD, *LPENHMETARECORD;

typedef struct tagENHMETAHEADER
{
    DWORD iType;
    DWORD nSize;
    RECTL rclBounds;
    RECTL rclFrame;
    DWORD dSignature;
    DWORD nVersion;
    DWORD nBytes;
    DWORD nRecords;
    WORD nHandles;
    WORD sReserved;
    DWORD nDescription;
    DWORD offDescription;
    DWORD nPalEntries;
    SIZEL szlDevice;
    SIZEL szlMillimeters;
    DWORD cbPixelFormat;
    DWORD offPixelFormat;
    DWORD bOpenGL;
    SIZEL szlMicrometers;
} ENHMETAHEADER, *PENHMETAHEADER, *LPENHMETAHEADER;

typedef int (*ENHMFENUMPROC)(HDC, HANDLETABLE*, const ENHMETARECORD*, int, LPARAM);

/* ---- Image lists ------------------------------------------------------------------------------ */

typedef struct _IMAGELIST* HIMAGELIST;

/* Flags of ImageList_Create */
#define ILC_MASK 0x00000001
#define ILC_COLOR 0x00000000
#define ILC_COLOR4 0x00000004
#define ILC_COLOR8 0x00000008
#define ILC_COLOR16 0x00000010
#define ILC_COLOR24 0x00000018
#define ILC_COLOR32 0x00000020
#define ILC_COLORDDB 0x000000FE

/* Flags of ImageList_GetIcon */
#define ILD_NORMAL 0x00000000
#define ILD_TRANSPARENT 0x00000001
#define ILD_BLEND25 0x00000002
#define ILD_BLEND50 0x00000004
#define ILD_MASK 0x00000010
#define ILD_IMAGE 0x00000020

/* ---- Failures --------------------------------------------------------------------------------- */

#define CLR_INVALID 0xFFFFFFFF
#define GDI_ERROR 0xFFFFFFFF
#define HGDI_ERROR ((HGDIOBJ)(LONG_PTR)-1)

/* ---- Regions: results of SelectClipRgn -------------------------------------------------------- */

#define RGN_ERROR 0
#define NULLREGION 1
#define SIMPLEREGION 2
#define COMPLEXREGION 3

/* ---- Indexes of GetDeviceCaps ----------------------------------------------------------------- */

#define DRIVERVERSION 0
#define TECHNOLOGY 2
#define HORZSIZE 4
#define VERTSIZE 6
#define HORZRES 8
#define VERTRES 10
#define BITSPIXEL 12
#define PLANES 14
#define NUMBRUSHES 16
#define NUMPENS 18
#define NUMFONTS 22
#define NUMCOLORS 24
#define RASTERCAPS 38
#define ASPECTX 40
#define ASPECTY 42
#define ASPECTXY 44
#define LOGPIXELSX 88
#define LOGPIXELSY 90
#define SIZEPALETTE 104
#define NUMRESERVED 106
#define COLORRES 108
#define PHYSICALWIDTH 110
#define PHYSICALHEIGHT 111
#define PHYSICALOFFSETX 112
#define PHYSICALOFFSETY 113

/* ---- Indexes of GetSysColor and GetSysColorBrush ---------------------------------------------- */

#define COLOR_SCROLLBAR 0
#define COLOR_BACKGROUND 1
#define COLOR_ACTIVECAPTION 2
#define COLOR_INACTIVECAPTION 3
#define COLOR_MENU 4
#define COLOR_WINDOW 5
#define COLOR_WINDOWFRAME 6
#define COLOR_MENUTEXT 7
#define COLOR_WINDOWTEXT 8
#define COLOR_CAPTIONTEXT 9
#define COLOR_ACTIVEBORDER 10
#define COLOR_INACTIVEBORDER 11
#define COLOR_APPWORKSPACE 12
#define COLOR_HIGHLIGHT 13
#define COLOR_HIGHLIGHTTEXT 14
#define COLOR_BTNFACE 15
#define COLOR_3DFACE COLOR_BTNFACE
#define COLOR_BTNSHADOW 16
#define COLOR_GRAYTEXT 17
#define COLOR_BTNTEXT 18
#define COLOR_INACTIVECAPTIONTEXT 19
#define COLOR_BTNHIGHLIGHT 20
#define COLOR_3DDKSHADOW 21
#define COLOR_3DLIGHT 22
#define COLOR_INFOTEXT 23
#define COLOR_INFOBK 24
#define COLOR_HOTLIGHT 26

/* ---- Indexes of GetStockObject ---------------------------------------------------------------- */

#define WHITE_BRUSH 0
#define LTGRAY_BRUSH 1
#define GRAY_BRUSH 2
#define DKGRAY_BRUSH 3
#define BLACK_BRUSH 4
#define NULL_BRUSH 5
#define HOLLOW_BRUSH NULL_BRUSH
#define WHITE_PEN 6
#define BLACK_PEN 7
#define NULL_PEN 8
#define OEM_FIXED_FONT 10
#define ANSI_FIXED_FONT 11
#define ANSI_VAR_FONT 12
#define SYSTEM_FONT 13
#define DEVICE_DEFAULT_FONT 14
#define DEFAULT_PALETTE 15
#define SYSTEM_FIXED_FONT 16
#define DEFAULT_GUI_FONT 17

/* ---- Modes of SetStretchBltMode --------------------------------------------------------------- */

#define BLACKONWHITE 1
#define WHITEONBLACK 2
#define COLORONCOLOR 3
#define HALFTONE 4

/* ---- Options of ExtTextOutW ------------------------------------------------------------------- */

#define ETO_OPAQUE 0x0002
#define ETO_CLIPPED 0x0004
#define ETO_GLYPH_INDEX 0x0010
#define ETO_RTLREADING 0x0080
#define ETO_NUMERICSLOCAL 0x0400
#define ETO_NUMERICSLATIN 0x0800
#define ETO_IGNORELANGUAGE 0x1000
#define ETO_PDY 0x2000

KEST_C_BEGIN

/* ---- Device contexts -------------------------------------------------------------------------- */

/** Always null: there are no device contexts. @kind fixed result */
KEST_API HDC GetDC(HWND hWnd);

/** Always 0: nothing to release. @kind fixed result */
KEST_API int ReleaseDC(HWND hWnd, HDC hDC);
KEST_API BOOL DeleteDC(HDC hdc);

/** Always null: nothing was selected before. @kind fixed result */
KEST_API HGDIOBJ SelectObject(HDC hdc, HGDIOBJ h);

/** Always 0, the failure RGN_ERROR. @kind fixed result */
KEST_API int SelectClipRgn(HDC hdc, HRGN hrgn);

/** Always 0, the colour black. @kind fixed result */
KEST_API COLORREF SetBkColor(HDC hdc, COLORREF color);
KEST_API COLORREF GetBkColor(HDC hdc);

/** Always 0: nothing is filled. @kind fixed result */
KEST_API int FillRect(HDC hDC, const RECT* lprc, HBRUSH hbr);

/** Always 0, whatever capability is asked for. @kind fixed result */
KEST_API int GetDeviceCaps(HDC hdc, int index);

/* ---- Colours, brushes and bitmaps ------------------------------------------------------------- */

/** Always 0, the colour black. @kind fixed result */
KEST_API DWORD GetSysColor(int nIndex);

/** Always null: there are no brushes, stock objects and bitmaps. @kind fixed result */
KEST_API HBRUSH GetSysColorBrush(int nIndex);
KEST_API HBRUSH CreateSolidBrush(COLORREF color);
KEST_API HGDIOBJ GetStockObject(int i);
KEST_API HBITMAP CreateCompatibleBitmap(HDC hdc, int cx, int cy);

/** Always 0: nothing is copied. @kind fixed result */
KEST_API BOOL StretchBlt(HDC hdcDest, int xDest, int yDest, int wDest, int hDest, HDC hdcSrc, int xSrc, int ySrc,
                         int wSrc, int hSrc, DWORD rop);

/** Always 0: there was no mode. @kind fixed result */
KEST_API int SetStretchBltMode(HDC hdc, int mode);

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

/* ---- Fonts and text --------------------------------------------------------------------------- */

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

/** Always null: there are no font objects. @kind fixed result */
KEST_API HFONT CreateFontIndirectW(const LOGFONTW* lplf);

/** Always 0, which is not the failure GDI_ERROR: the font has no such data. @kind fixed result */
KEST_API DWORD GetFontData(HDC hdc, DWORD dwTable, DWORD dwOffset, PVOID pvBuffer, DWORD cjBuffer);

/** Always 0: nothing is drawn. @kind fixed result */
KEST_API BOOL ExtTextOutW(HDC hdc, int x, int y, UINT options, const RECT* lprect, const wchar_t* lpString, UINT c,
                          const INT* lpDx);

/** Always 0: lpCs stays as it was. @kind fixed result */
KEST_API BOOL TranslateCharsetInfo(DWORD* lpSrc, LPCHARSETINFO lpCs, DWORD dwFlags);

/* ---- Enhanced metafiles ----------------------------------------------------------------------- */

/** Always null: nothing is recorded, and no file is made. @kind fixed result */
KEST_API HDC CreateEnhMetaFileW(HDC hdc, const wchar_t* lpFilename, const RECT* lprc, const wchar_t* lpDesc);
KEST_API HENHMETAFILE CloseEnhMetaFile(HDC hdc);

/** Always 0: there are no metafiles, and proc is never called. @kind fixed result */
KEST_API BOOL DeleteEnhMetaFile(HENHMETAFILE hmf);
KEST_API BOOL EnumEnhMetaFile(HDC hdc, HENHMETAFILE hmf, ENHMFENUMPROC proc, LPVOID param, const RECT* lpRect);

/* ---- Image lists ------------------------------------------------------------------------------ */

/** Always null: there are no image lists. @kind fixed result */
KEST_API HIMAGELIST ImageList_Create(int cx, int cy, UINT flags, int cInitial, int cGrow);
KEST_API HICON ImageList_GetIcon(HIMAGELIST himl, int i, UINT flags);

/** Always 0, the index of the first image, as if the icon had become that. @kind fixed result */
KEST_API int ImageList_ReplaceIcon(HIMAGELIST himl, int i, HICON hicon);

/** Always 0: nothing to destroy. @kind fixed result */
KEST_API BOOL ImageList_Destroy(HIMAGELIST himl);

KEST_C_END

#endif
