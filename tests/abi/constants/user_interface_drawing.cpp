// The values of the constants, as Windows has them.
#include "kest/user_interface/drawing.h"

// ---- Bitmaps -----------------------------------------------------------------------------------------------------

static_assert(BI_RGB == 0);
static_assert(BI_RLE8 == 1);
static_assert(BI_RLE4 == 2);
static_assert(BI_BITFIELDS == 3);
static_assert(DIB_RGB_COLORS == 0);
static_assert(DIB_PAL_COLORS == 1);

// ---- Raster operations -------------------------------------------------------------------------------------------

static_assert(SRCCOPY == 0x00CC0020);
static_assert(SRCPAINT == 0x00EE0086);
static_assert(SRCAND == 0x008800C6);
static_assert(SRCINVERT == 0x00660046);
static_assert(SRCERASE == 0x00440328);
static_assert(NOTSRCCOPY == 0x00330008);
static_assert(NOTSRCERASE == 0x001100A6);
static_assert(MERGECOPY == 0x00C000CA);
static_assert(MERGEPAINT == 0x00BB0226);
static_assert(PATCOPY == 0x00F00021);
static_assert(PATPAINT == 0x00FB0A09);
static_assert(PATINVERT == 0x005A0049);
static_assert(DSTINVERT == 0x00550009);
static_assert(BLACKNESS == 0x00000042);
static_assert(WHITENESS == 0x00FF0062);

// ---- Character sets ----------------------------------------------------------------------------------------------

static_assert(TCI_SRCCHARSET == 1);
static_assert(TCI_SRCCODEPAGE == 2);
static_assert(TCI_SRCFONTSIG == 3);
static_assert(TCI_SRCLOCALE == 0x1000);

// ---- Image lists -------------------------------------------------------------------------------------------------

static_assert(ILC_MASK == 0x1);
static_assert(ILC_COLOR == 0);
static_assert(ILC_COLOR4 == 0x4);
static_assert(ILC_COLOR8 == 0x8);
static_assert(ILC_COLOR16 == 0x10);
static_assert(ILC_COLOR24 == 0x18);
static_assert(ILC_COLOR32 == 0x20);
static_assert(ILC_COLORDDB == 0xFE);
static_assert(ILD_NORMAL == 0);
static_assert(ILD_TRANSPARENT == 0x1);
static_assert(ILD_BLEND25 == 0x2);
static_assert(ILD_BLEND50 == 0x4);
static_assert(ILD_MASK == 0x10);
static_assert(ILD_IMAGE == 0x20);

// ---- Failures and regions ----------------------------------------------------------------------------------------

static_assert(CLR_INVALID == 0xFFFFFFFF);
static_assert(GDI_ERROR == 0xFFFFFFFF);
static_assert(RGN_ERROR == 0);
static_assert(NULLREGION == 1);
static_assert(SIMPLEREGION == 2);
static_assert(COMPLEXREGION == 3);

// ---- Capabilities ------------------------------------------------------------------------------------------------

static_assert(DRIVERVERSION == 0);
static_assert(TECHNOLOGY == 2);
static_assert(HORZSIZE == 4);
static_assert(VERTSIZE == 6);
static_assert(HORZRES == 8);
static_assert(VERTRES == 10);
static_assert(BITSPIXEL == 12);
static_assert(PLANES == 14);
static_assert(NUMBRUSHES == 16);
static_assert(NUMPENS == 18);
static_assert(NUMFONTS == 22);
static_assert(NUMCOLORS == 24);
static_assert(RASTERCAPS == 38);
static_assert(ASPECTX == 40);
static_assert(ASPECTY == 42);
static_assert(ASPECTXY == 44);
static_assert(LOGPIXELSX == 88);
static_assert(LOGPIXELSY == 90);
static_assert(SIZEPALETTE == 104);
static_assert(NUMRESERVED == 106);
static_assert(COLORRES == 108);
static_assert(PHYSICALWIDTH == 110);
static_assert(PHYSICALHEIGHT == 111);
static_assert(PHYSICALOFFSETX == 112);
static_assert(PHYSICALOFFSETY == 113);

// ---- Colours -----------------------------------------------------------------------------------------------------

static_assert(COLOR_SCROLLBAR == 0);
static_assert(COLOR_BACKGROUND == 1);
static_assert(COLOR_ACTIVECAPTION == 2);
static_assert(COLOR_INACTIVECAPTION == 3);
static_assert(COLOR_MENU == 4);
static_assert(COLOR_WINDOW == 5);
static_assert(COLOR_WINDOWFRAME == 6);
static_assert(COLOR_MENUTEXT == 7);
static_assert(COLOR_WINDOWTEXT == 8);
static_assert(COLOR_CAPTIONTEXT == 9);
static_assert(COLOR_ACTIVEBORDER == 10);
static_assert(COLOR_INACTIVEBORDER == 11);
static_assert(COLOR_APPWORKSPACE == 12);
static_assert(COLOR_HIGHLIGHT == 13);
static_assert(COLOR_HIGHLIGHTTEXT == 14);
static_assert(COLOR_BTNFACE == 15);
static_assert(COLOR_BTNSHADOW == 16);
static_assert(COLOR_GRAYTEXT == 17);
static_assert(COLOR_BTNTEXT == 18);
static_assert(COLOR_INACTIVECAPTIONTEXT == 19);
static_assert(COLOR_BTNHIGHLIGHT == 20);
static_assert(COLOR_3DDKSHADOW == 21);
static_assert(COLOR_3DLIGHT == 22);
static_assert(COLOR_INFOTEXT == 23);
static_assert(COLOR_INFOBK == 24);
static_assert(COLOR_3DFACE == 15);
static_assert(COLOR_HOTLIGHT == 26);

// ---- Stock objects -----------------------------------------------------------------------------------------------

static_assert(WHITE_BRUSH == 0);
static_assert(LTGRAY_BRUSH == 1);
static_assert(GRAY_BRUSH == 2);
static_assert(DKGRAY_BRUSH == 3);
static_assert(BLACK_BRUSH == 4);
static_assert(NULL_BRUSH == 5);
static_assert(WHITE_PEN == 6);
static_assert(BLACK_PEN == 7);
static_assert(NULL_PEN == 8);
static_assert(HOLLOW_BRUSH == 5);
static_assert(OEM_FIXED_FONT == 10);
static_assert(ANSI_FIXED_FONT == 11);
static_assert(ANSI_VAR_FONT == 12);
static_assert(SYSTEM_FONT == 13);
static_assert(DEVICE_DEFAULT_FONT == 14);
static_assert(DEFAULT_PALETTE == 15);
static_assert(SYSTEM_FIXED_FONT == 16);
static_assert(DEFAULT_GUI_FONT == 17);

// ---- Stretching --------------------------------------------------------------------------------------------------

static_assert(BLACKONWHITE == 1);
static_assert(WHITEONBLACK == 2);
static_assert(COLORONCOLOR == 3);
static_assert(HALFTONE == 4);

// ---- Text --------------------------------------------------------------------------------------------------------

static_assert(ETO_OPAQUE == 0x2);
static_assert(ETO_CLIPPED == 0x4);
static_assert(ETO_GLYPH_INDEX == 0x10);
static_assert(ETO_RTLREADING == 0x80);
static_assert(ETO_NUMERICSLOCAL == 0x400);
static_assert(ETO_NUMERICSLATIN == 0x800);
static_assert(ETO_IGNORELANGUAGE == 0x1000);
static_assert(ETO_PDY == 0x2000);
