#include "kest/crt.h"
#include "kest/kernel.h"
#include "kest/user_interface.h"
#include "services/fixed_results.h"

#include <cstdint>
#include <dlfcn.h>

namespace
{

using namespace kest::test;

TEST(FixedResults, OfDeviceContextsDrawingAndFonts)
{
    const FixedResult rows[] = {
        answers("GetDC", GetDC, nullptr),
        answers("ReleaseDC", ReleaseDC, 0),
        answers("DeleteDC", DeleteDC, 0),
        answers("SelectObject", SelectObject, nullptr),
        answers("SelectClipRgn", SelectClipRgn, 0),
        answers("SetBkColor", SetBkColor, 0),
        answers("GetBkColor", GetBkColor, 0),
        answers("FillRect", FillRect, 0),
        answers("GetDeviceCaps", GetDeviceCaps, 0),
        answers("GetSysColor", GetSysColor, 0),
        answers("GetSysColorBrush", GetSysColorBrush, nullptr),
        answers("CreateSolidBrush", CreateSolidBrush, nullptr),
        answers("GetStockObject", GetStockObject, nullptr),
        answers("CreateCompatibleBitmap", CreateCompatibleBitmap, nullptr),
        answers("StretchBlt", StretchBlt, 0),
        answers("SetStretchBltMode", SetStretchBltMode, 0),
        answers("CreateFontIndirectW", CreateFontIndirectW, nullptr),
        answers("GetFontData", GetFontData, 0),
        answers("ExtTextOutW", ExtTextOutW, 0),
        answers("TranslateCharsetInfo", TranslateCharsetInfo, 0),
        answers("CreateEnhMetaFileW", CreateEnhMetaFileW, nullptr),
        answers("CloseEnhMetaFile", CloseEnhMetaFile, nullptr),
        answers("DeleteEnhMetaFile", DeleteEnhMetaFile, 0),
        answers("EnumEnhMetaFile", EnumEnhMetaFile, 0),
    };
    expectFixedResults(rows);
}

TEST(FixedResults, OfWindowsMenusMessagesAndTimers)
{
    const FixedResult rows[] = {
        answers("CallWindowProcW", CallWindowProcW, 0),
        answers("SystemParametersInfoW", SystemParametersInfoW, 0),
        answers("RegisterWindowMessageW", RegisterWindowMessageW, 0),
        answers("DestroyAcceleratorTable", DestroyAcceleratorTable, 0),
        answers("DestroyMenu", DestroyMenu, 0),
        answers("CreatePopupMenu", CreatePopupMenu, nullptr),
        answers("AppendMenuW", AppendMenuW, 0),
        answers("GetMenuItemCount", GetMenuItemCount, 0),
        answers("GetMenuItemInfoW", GetMenuItemInfoW, 0),
        answers("EnableMenuItem", EnableMenuItem, 0),
        answers("CheckMenuItem", CheckMenuItem, 0),
        answers("GetSubMenu", GetSubMenu, nullptr),
        answers("SetTimer", SetTimer, 0),
        answers("KillTimer", KillTimer, 0),
        answers("IsWindow", IsWindow, 1),
        answers("GetKeyboardLayout", GetKeyboardLayout, nullptr),
    };
    expectFixedResults(rows);
}

TEST(FixedResults, OfPrinters)
{
    const FixedResult rows[] = {
        answers("OpenPrinterW", OpenPrinterW, 0),
        answers("ClosePrinter", ClosePrinter, 0),
        answers("GetPrinterW", GetPrinterW, 0),
        answers("EnumFormsW", EnumFormsW, 0),
        answers("DocumentPropertiesW", DocumentPropertiesW, 0),
        answers("DeviceCapabilitiesW", DeviceCapabilitiesW, 0),
    };
    expectFixedResults(rows);
}

TEST(FixedResults, OfThreadsWaitingAndSynchronisation)
{
    const FixedResult rows[] = {
        answersNothing("InitializeCriticalSection", InitializeCriticalSection),
        answersNothing("DeleteCriticalSection", DeleteCriticalSection),
        answersNothing("EnterCriticalSection", EnterCriticalSection),
        answersNothing("LeaveCriticalSection", LeaveCriticalSection),
        answers("CreateSemaphoreW", CreateSemaphoreW, nullptr),
        answers("CreateEventW", CreateEventW, nullptr),
        answers("SetEvent", SetEvent, 0),
        answers("ReleaseSemaphore", ReleaseSemaphore, 0),
        answers("WaitForSingleObject", WaitForSingleObject, 0),
        answers("WaitForMultipleObjects", WaitForMultipleObjects, 0),
        answers("CreateThread", CreateThread, nullptr),
        answers("SetThreadPriority", SetThreadPriority, 0),
        answers("ResumeThread", ResumeThread, 0),
        answers("FindCloseChangeNotification", FindCloseChangeNotification, 0),
        answers("FindNextChangeNotification", FindNextChangeNotification, 0),
    };
    expectFixedResults(rows);
}

TEST(FixedResults, OfLanguagesCodePagesAndText)
{
    const FixedResult rows[] = {
        answers("GetSystemDefaultLCID", GetSystemDefaultLCID, 2052),
        answers("GetACP", GetACP, 0x3A8),
        answers("GetUserDefaultLCID", GetUserDefaultLCID, 0),
        answers("GetThreadLocale", GetThreadLocale, 0),
        answers("SetThreadLocale", SetThreadLocale, 0),
        answers("GetUserDefaultLocaleName", GetUserDefaultLocaleName, 0),
        answers("LCIDToLocaleName", LCIDToLocaleName, 0),
        answers("GetLocaleInfoW", GetLocaleInfoW, 0),
        answers("GetTimeFormatW", GetTimeFormatW, 0),
        answers("GetDateFormatW", GetDateFormatW, 0),
        answers("LCMapStringW", LCMapStringW, 0),
        answers("GetVersion", GetVersion, 0),
        answers("GetVersionExW", GetVersionExW, 0),
        answers("Beep", Beep, 0),
    };
    expectFixedResults(rows);
}

TEST(FixedResults, OfLeadBytes)
{
    for (int byte = 0; byte <= 255; ++byte)
    {
        EXPECT_EQ(IsDBCSLeadByte(static_cast<BYTE>(byte)), 0) << byte;
        EXPECT_EQ(isleadbyte(byte), 0) << byte;
    }
    EXPECT_EQ(isleadbyte(-1), 0);
}

TEST(FixedResults, OfInputMethods)
{
    const FixedResult rows[] = {
        answers("ImmGetContext", ImmGetContext, nullptr),
        answers("ImmAssociateContext", ImmAssociateContext, nullptr),
        answers("ImmReleaseContext", ImmReleaseContext, 0),
        answers("ImmSetCompositionWindow", ImmSetCompositionWindow, 0),
        answers("ImmSetCandidateWindow", ImmSetCandidateWindow, 0),
        answers("ImmGetCompositionStringW", ImmGetCompositionStringW, 0),
    };
    expectFixedResults(rows);
}

TEST(FixedResults, OfImageLists)
{
    const FixedResult rows[] = {
        answers("ImageList_Create", ImageList_Create, nullptr),
        answers("ImageList_GetIcon", ImageList_GetIcon, nullptr),
        answers("ImageList_ReplaceIcon", ImageList_ReplaceIcon, 0),
        answers("ImageList_Destroy", ImageList_Destroy, 0),
    };
    expectFixedResults(rows);
}

TEST(FixedResults, OfCertificatesAndTrust)
{
    const FixedResult rows[] = {
        answers("WinVerifyTrust", WinVerifyTrust, 0),
        answers("CryptQueryObject", CryptQueryObject, 0),
        answers("CertGetNameStringW", CertGetNameStringW, 0),
        answers("CertFreeCertificateContext", CertFreeCertificateContext, 0),
        answers("CryptMsgClose", CryptMsgClose, 0),
        answers("CertCloseStore", CertCloseStore, 0),
        answers("CertFindCertificateInStore", CertFindCertificateInStore, nullptr),
    };
    expectFixedResults(rows);
}

TEST(FixedResults, OfCom)
{
    const FixedResult rows[] = {
        answers("CoCreateGuid", CoCreateGuid, 0),
        answers("StringFromCLSID", StringFromCLSID, 0),
        answersNothing("CoTaskMemFree", CoTaskMemFree),
    };
    expectFixedResults(rows);
}

TEST(FixedResults, OfTheProcessAndDiagnostics)
{
    const FixedResult rows[] = {
        answers("GetProcessHeap", GetProcessHeap, nullptr),
        answers("DisableThreadLibraryCalls", DisableThreadLibraryCalls, 0),
        answersNothing("ExitProcess", ExitProcess),
        answers("IsBadReadPtr", IsBadReadPtr, 0),
        answers("IsWow64Process", IsWow64Process, 1),
        answersNothing("GetSystemInfo", GetSystemInfo),
        answersNothing("RaiseException", RaiseException),
        answersNothing("OutputDebugStringW", OutputDebugStringW),
        answersNothing("DebugBreak", DebugBreak),
    };
    expectFixedResults(rows);
}

TEST(FixedResults, OfComplexScripts)
{
    const FixedResult rows[] = {
        answers("ScriptBreak", ScriptBreak, 0),
        answers("ScriptFreeCache", ScriptFreeCache, 0),
        answers("ScriptGetProperties", ScriptGetProperties, 0),
        answers("ScriptStringAnalyse", ScriptStringAnalyse, 0),
        answers("ScriptStringFree", ScriptStringFree, 0),
        answers("ScriptStringOut", ScriptStringOut, 0),
    };
    expectFixedResults(rows);
}

// Both symbols of a function are one function.
TEST(FixedResults, AreTheSameUnderBothNames)
{
    const struct
    {
        const char *plain, *encoded;
    } rows[] = {
        {"SelectObject", "_Z12SelectObjectP5HDC__Pv"},
        {"IsDBCSLeadByte", "_Z14IsDBCSLeadByteh"},
    };
    for (const auto& row : rows)
    {
        void* const plain = dlsym(RTLD_DEFAULT, row.plain);
        EXPECT_NE(plain, nullptr) << row.plain;
        EXPECT_EQ(plain, dlsym(RTLD_DEFAULT, row.encoded)) << row.encoded;
    }
}

// Answers are as wide as Windows has them.
TEST(FixedResults, HaveTheWidthsOfWindows)
{
    static_assert(sizeof(GetSystemDefaultLCID()) == 4 && sizeof(GetACP()) == 4 && sizeof(GetBkColor(nullptr)) == 4);
    static_assert(sizeof(WinVerifyTrust(nullptr, nullptr, nullptr)) == 4);
    static_assert(sizeof(CallWindowProcW(nullptr, nullptr, 0, 0, 0)) == 8 &&
                  sizeof(SetTimer(nullptr, 0, 0, nullptr)) == 8);
    static_assert(sizeof(SCRIPT_STATE) == 2 && sizeof(SCRIPT_ANALYSIS) == 4 && sizeof(SCRIPT_ITEM) == 8);
    static_assert(sizeof(SCRIPT_CONTROL) == 4 && sizeof(SCRIPT_LOGATTR) == 1 && sizeof(SCRIPT_PROPERTIES) == 8);
    static_assert(sizeof(CRITICAL_SECTION) == 40 && sizeof(SYSTEM_INFO) == 48 && sizeof(GUID) == 16);
    static_assert(sizeof(MENUITEMINFOW) == 80 && sizeof(CHARSETINFO) == 32 && sizeof(ENHMETAHEADER) == 108);
    static_assert(sizeof(COMPOSITIONFORM) == 28 && sizeof(CANDIDATEFORM) == 32);
    static_assert(sizeof(CERT_CONTEXT) == 40 && sizeof(CERT_INFO) == 208 && sizeof(WINTRUST_DATA) == 88);
    static_assert(sizeof(OSVERSIONINFOW) == 20 + 128 * sizeof(wchar_t));
    static_assert(sizeof(DEVMODEW) == 96 + 64 * sizeof(wchar_t));
    static_assert(sizeof(PRINTER_INFO_2W) == 136 && sizeof(FORM_INFO_1W) == 40);
    EXPECT_EQ(GetFontData(nullptr, 0, 0, nullptr, 0), 0U);
}

} // namespace
