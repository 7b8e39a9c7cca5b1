// Each function has the signature that modules built elsewhere call it by.
#include "abi/signature.h"
#include "kest/user_interface/printers.h"

using namespace kest::test;

static_assert(hasSignature<BOOL(wchar_t*, HANDLE*, PRINTER_DEFAULTSW*), OpenPrinterW>);
static_assert(hasSignature<BOOL(HANDLE), ClosePrinter>);
static_assert(hasSignature<BOOL(HANDLE, DWORD, BYTE*, DWORD, DWORD*), GetPrinterW>);
static_assert(hasSignature<BOOL(HANDLE, DWORD, BYTE*, DWORD, DWORD*, DWORD*), EnumFormsW>);
static_assert(hasSignature<LONG(HWND, HANDLE, wchar_t*, DEVMODEW*, DEVMODEW*, DWORD), DocumentPropertiesW>);
static_assert(hasSignature<int(const wchar_t*, const wchar_t*, WORD, wchar_t*, const DEVMODEW*), DeviceCapabilitiesW>);
static_assert(hasSignature<BOOL(DWORD, wchar_t*, DWORD, BYTE*, DWORD, DWORD*, DWORD*), EnumPrintersW>);
