// Scalars keep their Windows widths and are the types that type-encoded names are made of; handles are pointers to
// structures of Windows's tags.
#include "kest/base_types.h"
#include "kest/kernel/certificates.h"
#include "kest/kernel/synchronisation.h"
#include "kest/user_interface.h"

#include <type_traits>

template <class Type, class Expected>
inline constexpr bool isExactly = std::is_same_v<Type, Expected>;

// ---- Scalars -----------------------------------------------------------------------------------------------------

static_assert(isExactly<BOOL, int> && isExactly<INT, int> && isExactly<LONG, int> && isExactly<HRESULT, int>);
static_assert(isExactly<UINT, unsigned int> && isExactly<ULONG, unsigned int> && isExactly<DWORD, unsigned int>);
static_assert(isExactly<LCID, unsigned int> && isExactly<LCTYPE, unsigned int> && isExactly<COLORREF, unsigned int>);
static_assert(isExactly<REGSAM, unsigned int> && isExactly<ACCESS_MASK, unsigned int>);
static_assert(isExactly<SHORT, short> && isExactly<WORD, unsigned short> && isExactly<USHORT, unsigned short>);
static_assert(isExactly<ATOM, unsigned short> && isExactly<LANGID, unsigned short>);
static_assert(isExactly<CHAR, char> && isExactly<BYTE, unsigned char> && isExactly<UCHAR, unsigned char>);
static_assert(isExactly<BOOLEAN, unsigned char> && isExactly<INT8, signed char>);
static_assert(isExactly<WCHAR, wchar_t> && isExactly<OLECHAR, wchar_t> && sizeof(WCHAR) == 4);
static_assert(isExactly<LONGLONG, long long> && isExactly<ULONGLONG, unsigned long long>);
static_assert(isExactly<DWORDLONG, unsigned long long> && isExactly<DWORD64, unsigned long long>);
static_assert(isExactly<FLOAT, float>);
static_assert(isExactly<INT_PTR, long> && isExactly<LONG_PTR, long> && isExactly<UINT_PTR, unsigned long>);
static_assert(isExactly<ULONG_PTR, unsigned long> && isExactly<DWORD_PTR, unsigned long>);
static_assert(isExactly<SIZE_T, unsigned long>);
static_assert(isExactly<WPARAM, unsigned long> && isExactly<LPARAM, long> && isExactly<LRESULT, long>);

// ---- Pointers ----------------------------------------------------------------------------------------------------

static_assert(isExactly<PVOID, void*> && isExactly<LPVOID, void*> && isExactly<LPCVOID, const void*>);
static_assert(isExactly<LPBOOL, BOOL*> && isExactly<LPBYTE, BYTE*> && isExactly<PBYTE, BYTE*>);
static_assert(isExactly<LPWORD, WORD*> && isExactly<LPINT, int*> && isExactly<PUINT, UINT*>);
static_assert(isExactly<LPLONG, LONG*> && isExactly<PLONG, LONG*>);
static_assert(isExactly<LPDWORD, DWORD*> && isExactly<PDWORD, DWORD*>);
static_assert(isExactly<LPSTR, char*> && isExactly<LPCSTR, const char*>);
static_assert(isExactly<LPWSTR, wchar_t*> && isExactly<PWSTR, wchar_t*>);
static_assert(isExactly<LPCWSTR, const wchar_t*> && isExactly<PCWSTR, const wchar_t*>);
static_assert(isExactly<LPOLESTR, wchar_t*> && isExactly<LPCOLESTR, const wchar_t*>);
static_assert(isExactly<LPRECT, RECT*> && isExactly<LPCRECT, const RECT*> && isExactly<LPPOINT, POINT*>);
static_assert(isExactly<LPCGUID, const GUID*> && isExactly<REFGUID, const GUID&>);
static_assert(isExactly<REFIID, const GUID&> && isExactly<REFCLSID, const GUID&>);

// ---- Handles -----------------------------------------------------------------------------------------------------

static_assert(isExactly<HANDLE, void*> && isExactly<LPHANDLE, void**>);
static_assert(isExactly<HGLOBAL, void*> && isExactly<HLOCAL, void*> && isExactly<HGDIOBJ, void*>);
static_assert(isExactly<HACCEL, struct HACCEL__*>);
static_assert(isExactly<HBITMAP, struct HBITMAP__*>);
static_assert(isExactly<HBRUSH, struct HBRUSH__*>);
static_assert(isExactly<HDC, struct HDC__*>);
static_assert(isExactly<HENHMETAFILE, struct HENHMETAFILE__*>);
static_assert(isExactly<HFONT, struct HFONT__*>);
static_assert(isExactly<HICON, struct HICON__*> && isExactly<HCURSOR, HICON>);
static_assert(isExactly<HIMC, struct HIMC__*>);
static_assert(isExactly<HIMAGELIST, struct _IMAGELIST*>);
static_assert(isExactly<HINSTANCE, struct HINSTANCE__*> && isExactly<HMODULE, HINSTANCE>);
static_assert(isExactly<HKEY, struct HKEY__*> && isExactly<PHKEY, HKEY*>);
static_assert(isExactly<HKL, struct HKL__*>);
static_assert(isExactly<HMENU, struct HMENU__*>);
static_assert(isExactly<HMONITOR, struct HMONITOR__*>);
static_assert(isExactly<HPALETTE, struct HPALETTE__*>);
static_assert(isExactly<HRGN, struct HRGN__*>);
static_assert(isExactly<HRSRC, struct HRSRC__*>);
static_assert(isExactly<HWND, struct HWND__*>);
static_assert(isExactly<HCERTSTORE, void*> && isExactly<HCRYPTMSG, void*>);
static_assert(isExactly<SCRIPT_CACHE, void*> && isExactly<SCRIPT_STRING_ANALYSIS, void*>);

// ---- Structures under their tags ---------------------------------------------------------------------------------

static_assert(isExactly<RECT, tagRECT> && isExactly<POINT, tagPOINT> && isExactly<SIZE, tagSIZE>);
static_assert(isExactly<MSG, tagMSG> && isExactly<LOGFONTW, tagLOGFONTW> && isExactly<GUID, _GUID>);
static_assert(isExactly<FILETIME, _FILETIME> && isExactly<SYSTEMTIME, _SYSTEMTIME>);
static_assert(isExactly<WIN32_FIND_DATAW, _WIN32_FIND_DATAW>);
static_assert(isExactly<CRITICAL_SECTION, RTL_CRITICAL_SECTION>);
static_assert(isExactly<SECURITY_ATTRIBUTES, _SECURITY_ATTRIBUTES> && isExactly<OVERLAPPED, _OVERLAPPED>);

// ---- Functions that are handed over ------------------------------------------------------------------------------

static_assert(isExactly<FARPROC, long (*)()>);
static_assert(isExactly<WNDPROC, LRESULT (*)(HWND, UINT, WPARAM, LPARAM)>);
static_assert(isExactly<TIMERPROC, void (*)(HWND, UINT, UINT_PTR, DWORD)>);
static_assert(isExactly<FONTENUMPROCW, int (*)(const LOGFONTW*, const TEXTMETRICW*, DWORD, LPARAM)>);
static_assert(isExactly<ENHMFENUMPROC, int (*)(HDC, HANDLETABLE*, const ENHMETARECORD*, int, LPARAM)>);
static_assert(isExactly<PFTASKDIALOGCALLBACK, HRESULT (*)(HWND, UINT, WPARAM, LPARAM, LONG_PTR)>);
static_assert(isExactly<LPTHREAD_START_ROUTINE, DWORD (*)(void*)>);
