// Each function has the signature that modules built elsewhere call it by.
#include "abi/signature.h"
#include "kest/user_interface/drawing.h"

using namespace kest::test;

static_assert(hasSignature<HDC(HWND), GetDC>);
static_assert(hasSignature<int(HWND, HDC), ReleaseDC>);
static_assert(hasSignature<BOOL(HDC), DeleteDC>);
static_assert(hasSignature<void*(HDC, void*), SelectObject>);
static_assert(hasSignature<int(HDC, HRGN), SelectClipRgn>);
static_assert(hasSignature<COLORREF(HDC, COLORREF), SetBkColor>);
static_assert(hasSignature<COLORREF(HDC), GetBkColor>);
static_assert(hasSignature<int(HDC, const RECT*, HBRUSH), FillRect>);
static_assert(hasSignature<int(HDC, int), GetDeviceCaps>);
static_assert(hasSignature<int(HDC, int), SetStretchBltMode>);
static_assert(hasSignature<DWORD(int), GetSysColor>);
static_assert(hasSignature<HBRUSH(int), GetSysColorBrush>);
static_assert(hasSignature<HBRUSH(COLORREF), CreateSolidBrush>);
static_assert(hasSignature<void*(int), GetStockObject>);
static_assert(hasSignature<HBITMAP(HDC, int, int), CreateCompatibleBitmap>);
static_assert(hasSignature<BOOL(HDC, int, int, int, int, HDC, int, int, int, int, DWORD), StretchBlt>);
static_assert(hasSignature<HFONT(const LOGFONTW*), CreateFontIndirectW>);
static_assert(hasSignature<DWORD(HDC, DWORD, DWORD, void*, DWORD), GetFontData>);
static_assert(hasSignature<BOOL(HDC, int, int, UINT, const RECT*, const wchar_t*, UINT, const INT*), ExtTextOutW>);
static_assert(hasSignature<BOOL(DWORD*, CHARSETINFO*, DWORD), TranslateCharsetInfo>);
static_assert(hasSignature<HDC(HDC, const wchar_t*, const RECT*, const wchar_t*), CreateEnhMetaFileW>);
static_assert(hasSignature<HENHMETAFILE(HDC), CloseEnhMetaFile>);
static_assert(hasSignature<BOOL(HENHMETAFILE), DeleteEnhMetaFile>);
static_assert(hasSignature<BOOL(HDC, HENHMETAFILE, ENHMFENUMPROC, void*, const RECT*), EnumEnhMetaFile>);
static_assert(hasSignature<HIMAGELIST(int, int, UINT, int, int), ImageList_Create>);
static_assert(hasSignature<HICON(HIMAGELIST, int, UINT), ImageList_GetIcon>);
static_assert(hasSignature<int(HIMAGELIST, int, HICON), ImageList_ReplaceIcon>);
static_assert(hasSignature<BOOL(HIMAGELIST), ImageList_Destroy>);
static_assert(hasSignature<HDC(HDC), CreateCompatibleDC>);
static_assert(hasSignature<HBITMAP(int, int, UINT, UINT, const void*), CreateBitmap>);
static_assert(hasSignature<HBITMAP(HDC, const BITMAPINFO*, UINT, void**, HANDLE, DWORD), CreateDIBSection>);
static_assert(hasSignature<BOOL(HDC, int, int, int, int, HDC, int, int, DWORD), BitBlt>);
static_assert(hasSignature<HPALETTE(const LOGPALETTE*), CreatePalette>);
static_assert(hasSignature<HPALETTE(HDC, HPALETTE, BOOL), SelectPalette>);
static_assert(hasSignature<UINT(HDC), RealizePalette>);
static_assert(hasSignature<int(HDC, LOGFONTW*, FONTENUMPROCW, LPARAM, DWORD), EnumFontFamiliesExW>);
