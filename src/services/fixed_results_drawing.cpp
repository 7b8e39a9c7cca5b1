// Fixed results of device contexts, drawing, fonts and image lists.
#include "kest/user_interface/drawing.h"
#include "support/second_name.h"

// ---- Device contexts ---------------------------------------------------------------------------------------------

HDC GetDC(HWND)
{
    return nullptr;
}

int ReleaseDC(HWND, HDC)
{
    return 0;
}

BOOL DeleteDC(HDC)
{
    return 0;
}

HGDIOBJ SelectObject(HDC, HGDIOBJ)
{
    return nullptr;
}

KEST_SECOND_NAME(HGDIOBJ encodedSelectObject(HDC, void*), "SelectObject", "_Z12SelectObjectP5HDC__Pv");

int SelectClipRgn(HDC, HRGN)
{
    return 0;
}

COLORREF SetBkColor(HDC, COLORREF)
{
    return 0;
}

COLORREF GetBkColor(HDC)
{
    return 0;
}

int FillRect(HDC, const RECT*, HBRUSH)
{
    return 0;
}

int GetDeviceCaps(HDC, int)
{
    return 0;
}

// ---- Colours, brushes and bitmaps --------------------------------------------------------------------------------

DWORD GetSysColor(int)
{
    return 0;
}

HBRUSH GetSysColorBrush(int)
{
    return nullptr;
}

HBRUSH CreateSolidBrush(COLORREF)
{
    return nullptr;
}

HGDIOBJ GetStockObject(int)
{
    return nullptr;
}

HBITMAP CreateCompatibleBitmap(HDC, int, int)
{
    return nullptr;
}

BOOL StretchBlt(HDC, int, int, int, int, HDC, int, int, int, int, DWORD)
{
    return 0;
}

int SetStretchBltMode(HDC, int)
{
    return 0;
}

// ---- Fonts and text ----------------------------------------------------------------------------------------------

HFONT CreateFontIndirectW(const LOGFONTW*)
{
    return nullptr;
}

DWORD GetFontData(HDC, DWORD, DWORD, PVOID, DWORD)
{
    return 0;
}

BOOL ExtTextOutW(HDC, int, int, UINT, const RECT*, const wchar_t*, UINT, const INT*)
{
    return 0;
}

BOOL TranslateCharsetInfo(DWORD*, LPCHARSETINFO, DWORD)
{
    return 0;
}

// ---- Enhanced metafiles ------------------------------------------------------------------------------------------

HDC CreateEnhMetaFileW(HDC, const wchar_t*, const RECT*, const wchar_t*)
{
    return nullptr;
}

HENHMETAFILE CloseEnhMetaFile(HDC)
{
    return nullptr;
}

BOOL DeleteEnhMetaFile(HENHMETAFILE)
{
    return 0;
}

BOOL EnumEnhMetaFile(HDC, HENHMETAFILE, ENHMFENUMPROC, LPVOID, const RECT*)
{
    return 0;
}

// ---- Image lists -------------------------------------------------------------------------------------------------

HIMAGELIST ImageList_Create(int, int, UINT, int, int)
{
    return nullptr;
}

HICON ImageList_GetIcon(HIMAGELIST, int, UINT)
{
    return nullptr;
}

int ImageList_ReplaceIcon(HIMAGELIST, int, HICON)
{
    return 0;
}

BOOL ImageList_Destroy(HIMAGELIST)
{
    return 0;
}
