// Fixed results: images and resources, which are the host's.
#include "kest/user_interface/drawing.h"
#include "kest/user_interface/resources.h"

// ---- Resources ------------------------------------------------------------------------------------------------------

HRSRC FindResourceW(HMODULE, const wchar_t*, const wchar_t*)
{
    return nullptr;
}

LPVOID LockResource(HGLOBAL hResData)
{
    return hResData;
}

HICON LoadIconW(HINSTANCE, const wchar_t*)
{
    return nullptr;
}

// ---- Bitmaps --------------------------------------------------------------------------------------------------------

HDC CreateCompatibleDC(HDC)
{
    return nullptr;
}

HBITMAP CreateBitmap(int, int, UINT, UINT, const void*)
{
    return nullptr;
}

HBITMAP CreateDIBSection(HDC, const BITMAPINFO*, UINT, void**, HANDLE, DWORD)
{
    return nullptr;
}

BOOL BitBlt(HDC, int, int, int, int, HDC, int, int, DWORD)
{
    return 1;
}

// ---- Palettes -------------------------------------------------------------------------------------------------------

HPALETTE CreatePalette(const LOGPALETTE*)
{
    return nullptr;
}

HPALETTE SelectPalette(HDC, HPALETTE hPal, BOOL)
{
    return hPal;
}

UINT RealizePalette(HDC)
{
    return 0;
}
