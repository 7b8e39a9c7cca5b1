// The layout of the structures: Windows's, with wide characters of four bytes.
#include "kest/user_interface/drawing.h"

#include <cstddef>

static_assert(sizeof(RGBQUAD) == 4);
static_assert(offsetof(RGBQUAD, rgbBlue) == 0);
static_assert(offsetof(RGBQUAD, rgbGreen) == 1);
static_assert(offsetof(RGBQUAD, rgbRed) == 2);
static_assert(offsetof(RGBQUAD, rgbReserved) == 3);

static_assert(sizeof(BITMAPINFOHEADER) == 40);
static_assert(offsetof(BITMAPINFOHEADER, biSize) == 0);
static_assert(offsetof(BITMAPINFOHEADER, biWidth) == 4);
static_assert(offsetof(BITMAPINFOHEADER, biHeight) == 8);
static_assert(offsetof(BITMAPINFOHEADER, biPlanes) == 12);
static_assert(offsetof(BITMAPINFOHEADER, biBitCount) == 14);
static_assert(offsetof(BITMAPINFOHEADER, biCompression) == 16);
static_assert(offsetof(BITMAPINFOHEADER, biSizeImage) == 20);
static_assert(offsetof(BITMAPINFOHEADER, biXPelsPerMeter) == 24);
static_assert(offsetof(BITMAPINFOHEADER, biYPelsPerMeter) == 28);
static_assert(offsetof(BITMAPINFOHEADER, biClrUsed) == 32);
static_assert(offsetof(BITMAPINFOHEADER, biClrImportant) == 36);

static_assert(sizeof(BITMAPINFO) == 44);
static_assert(offsetof(BITMAPINFO, bmiHeader) == 0);
static_assert(offsetof(BITMAPINFO, bmiColors) == 40);

static_assert(sizeof(PALETTEENTRY) == 4);
static_assert(offsetof(PALETTEENTRY, peRed) == 0);
static_assert(offsetof(PALETTEENTRY, peGreen) == 1);
static_assert(offsetof(PALETTEENTRY, peBlue) == 2);
static_assert(offsetof(PALETTEENTRY, peFlags) == 3);

static_assert(sizeof(LOGPALETTE) == 8);
static_assert(offsetof(LOGPALETTE, palVersion) == 0);
static_assert(offsetof(LOGPALETTE, palNumEntries) == 2);
static_assert(offsetof(LOGPALETTE, palPalEntry) == 4);

static_assert(sizeof(FONTSIGNATURE) == 24);
static_assert(offsetof(FONTSIGNATURE, fsUsb) == 0);
static_assert(offsetof(FONTSIGNATURE, fsCsb) == 16);

static_assert(sizeof(CHARSETINFO) == 32);
static_assert(offsetof(CHARSETINFO, ciCharset) == 0);
static_assert(offsetof(CHARSETINFO, ciACP) == 4);
static_assert(offsetof(CHARSETINFO, fs) == 8);

static_assert(sizeof(HANDLETABLE) == 8);
static_assert(offsetof(HANDLETABLE, objectHandle) == 0);

static_assert(sizeof(ENHMETARECORD) == 12);
static_assert(offsetof(ENHMETARECORD, iType) == 0);
static_assert(offsetof(ENHMETARECORD, nSize) == 4);
static_assert(offsetof(ENHMETARECORD, dParm) == 8);

static_assert(sizeof(ENHMETAHEADER) == 108);
static_assert(offsetof(ENHMETAHEADER, iType) == 0);
static_assert(offsetof(ENHMETAHEADER, nSize) == 4);
static_assert(offsetof(ENHMETAHEADER, rclBounds) == 8);
static_assert(offsetof(ENHMETAHEADER, rclFrame) == 24);
static_assert(offsetof(ENHMETAHEADER, dSignature) == 40);
static_assert(offsetof(ENHMETAHEADER, nVersion) == 44);
static_assert(offsetof(ENHMETAHEADER, nBytes) == 48);
static_assert(offsetof(ENHMETAHEADER, nRecords) == 52);
static_assert(offsetof(ENHMETAHEADER, nHandles) == 56);
static_assert(offsetof(ENHMETAHEADER, sReserved) == 58);
static_assert(offsetof(ENHMETAHEADER, nDescription) == 60);
static_assert(offsetof(ENHMETAHEADER, offDescription) == 64);
static_assert(offsetof(ENHMETAHEADER, nPalEntries) == 68);
static_assert(offsetof(ENHMETAHEADER, szlDevice) == 72);
static_assert(offsetof(ENHMETAHEADER, szlMillimeters) == 80);
static_assert(offsetof(ENHMETAHEADER, cbPixelFormat) == 88);
static_assert(offsetof(ENHMETAHEADER, offPixelFormat) == 92);
static_assert(offsetof(ENHMETAHEADER, bOpenGL) == 96);
static_assert(offsetof(ENHMETAHEADER, szlMicrometers) == 100);
