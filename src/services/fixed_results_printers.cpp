// Fixed results of printers.
#include "kest/user_interface/printers.h"

BOOL OpenPrinterW(wchar_t*, LPHANDLE, LPPRINTER_DEFAULTSW)
{
    return 0;
}

BOOL ClosePrinter(HANDLE)
{
    return 0;
}

BOOL GetPrinterW(HANDLE, DWORD, BYTE*, DWORD, DWORD*)
{
    return 0;
}

BOOL EnumFormsW(HANDLE, DWORD, BYTE*, DWORD, DWORD*, DWORD*)
{
    return 0;
}

LONG DocumentPropertiesW(HWND, HANDLE, wchar_t*, LPDEVMODEW, LPDEVMODEW, DWORD)
{
    return 0;
}

int DeviceCapabilitiesW(const wchar_t*, const wchar_t*, WORD, wchar_t*, const DEVMODEW*)
{
    return 0;
}
