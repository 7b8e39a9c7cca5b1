// The layout of the structures: Windows's, with wide characters of four bytes.
#include "kest/base_types.h"

#include <cstddef>

static_assert(sizeof(POINT) == 8);
static_assert(offsetof(POINT, x) == 0);
static_assert(offsetof(POINT, y) == 4);

static_assert(sizeof(SIZE) == 8);
static_assert(offsetof(SIZE, cx) == 0);
static_assert(offsetof(SIZE, cy) == 4);

static_assert(sizeof(RECT) == 16);
static_assert(offsetof(RECT, left) == 0);
static_assert(offsetof(RECT, top) == 4);
static_assert(offsetof(RECT, right) == 8);
static_assert(offsetof(RECT, bottom) == 12);

static_assert(sizeof(POINTL) == 8);
static_assert(offsetof(POINTL, x) == 0);
static_assert(offsetof(POINTL, y) == 4);

static_assert(sizeof(RECTL) == 16);
static_assert(offsetof(RECTL, left) == 0);
static_assert(offsetof(RECTL, top) == 4);
static_assert(offsetof(RECTL, right) == 8);
static_assert(offsetof(RECTL, bottom) == 12);

static_assert(sizeof(FILETIME) == 8);
static_assert(offsetof(FILETIME, dwLowDateTime) == 0);
static_assert(offsetof(FILETIME, dwHighDateTime) == 4);

static_assert(sizeof(SYSTEMTIME) == 16);
static_assert(offsetof(SYSTEMTIME, wYear) == 0);
static_assert(offsetof(SYSTEMTIME, wMonth) == 2);
static_assert(offsetof(SYSTEMTIME, wDayOfWeek) == 4);
static_assert(offsetof(SYSTEMTIME, wDay) == 6);
static_assert(offsetof(SYSTEMTIME, wHour) == 8);
static_assert(offsetof(SYSTEMTIME, wMinute) == 10);
static_assert(offsetof(SYSTEMTIME, wSecond) == 12);
static_assert(offsetof(SYSTEMTIME, wMilliseconds) == 14);

static_assert(sizeof(TIME_ZONE_INFORMATION) == 300);
static_assert(offsetof(TIME_ZONE_INFORMATION, Bias) == 0);
static_assert(offsetof(TIME_ZONE_INFORMATION, StandardName) == 4);
static_assert(offsetof(TIME_ZONE_INFORMATION, StandardDate) == 132);
static_assert(offsetof(TIME_ZONE_INFORMATION, StandardBias) == 148);
static_assert(offsetof(TIME_ZONE_INFORMATION, DaylightName) == 152);
static_assert(offsetof(TIME_ZONE_INFORMATION, DaylightDate) == 280);
static_assert(offsetof(TIME_ZONE_INFORMATION, DaylightBias) == 296);

static_assert(sizeof(SECURITY_ATTRIBUTES) == 24);
static_assert(offsetof(SECURITY_ATTRIBUTES, nLength) == 0);
static_assert(offsetof(SECURITY_ATTRIBUTES, lpSecurityDescriptor) == 8);
static_assert(offsetof(SECURITY_ATTRIBUTES, bInheritHandle) == 16);

static_assert(sizeof(GUID) == 16);
static_assert(offsetof(GUID, Data1) == 0);
static_assert(offsetof(GUID, Data2) == 4);
static_assert(offsetof(GUID, Data3) == 6);
static_assert(offsetof(GUID, Data4) == 8);

static_assert(sizeof(WIN32_FIND_DATAW) == 1140);
static_assert(offsetof(WIN32_FIND_DATAW, dwFileAttributes) == 0);
static_assert(offsetof(WIN32_FIND_DATAW, ftCreationTime) == 4);
static_assert(offsetof(WIN32_FIND_DATAW, ftLastAccessTime) == 12);
static_assert(offsetof(WIN32_FIND_DATAW, ftLastWriteTime) == 20);
static_assert(offsetof(WIN32_FIND_DATAW, nFileSizeHigh) == 28);
static_assert(offsetof(WIN32_FIND_DATAW, nFileSizeLow) == 32);
static_assert(offsetof(WIN32_FIND_DATAW, dwReserved0) == 36);
static_assert(offsetof(WIN32_FIND_DATAW, dwReserved1) == 40);
static_assert(offsetof(WIN32_FIND_DATAW, cFileName) == 44);
static_assert(offsetof(WIN32_FIND_DATAW, cAlternateFileName) == 1084);

static_assert(sizeof(BY_HANDLE_FILE_INFORMATION) == 52);
static_assert(offsetof(BY_HANDLE_FILE_INFORMATION, dwFileAttributes) == 0);
static_assert(offsetof(BY_HANDLE_FILE_INFORMATION, ftCreationTime) == 4);
static_assert(offsetof(BY_HANDLE_FILE_INFORMATION, ftLastAccessTime) == 12);
static_assert(offsetof(BY_HANDLE_FILE_INFORMATION, ftLastWriteTime) == 20);
static_assert(offsetof(BY_HANDLE_FILE_INFORMATION, dwVolumeSerialNumber) == 28);
static_assert(offsetof(BY_HANDLE_FILE_INFORMATION, nFileSizeHigh) == 32);
static_assert(offsetof(BY_HANDLE_FILE_INFORMATION, nFileSizeLow) == 36);
static_assert(offsetof(BY_HANDLE_FILE_INFORMATION, nNumberOfLinks) == 40);
static_assert(offsetof(BY_HANDLE_FILE_INFORMATION, nFileIndexHigh) == 44);
static_assert(offsetof(BY_HANDLE_FILE_INFORMATION, nFileIndexLow) == 48);

static_assert(sizeof(OVERLAPPED) == 32);
static_assert(offsetof(OVERLAPPED, Internal) == 0);
static_assert(offsetof(OVERLAPPED, InternalHigh) == 8);
static_assert(offsetof(OVERLAPPED, Offset) == 16);
static_assert(offsetof(OVERLAPPED, OffsetHigh) == 20);
static_assert(offsetof(OVERLAPPED, Pointer) == 16);
static_assert(offsetof(OVERLAPPED, hEvent) == 24);

static_assert(sizeof(LOGFONTW) == 156);
static_assert(offsetof(LOGFONTW, lfHeight) == 0);
static_assert(offsetof(LOGFONTW, lfWidth) == 4);
static_assert(offsetof(LOGFONTW, lfEscapement) == 8);
static_assert(offsetof(LOGFONTW, lfOrientation) == 12);
static_assert(offsetof(LOGFONTW, lfWeight) == 16);
static_assert(offsetof(LOGFONTW, lfItalic) == 20);
static_assert(offsetof(LOGFONTW, lfUnderline) == 21);
static_assert(offsetof(LOGFONTW, lfStrikeOut) == 22);
static_assert(offsetof(LOGFONTW, lfCharSet) == 23);
static_assert(offsetof(LOGFONTW, lfOutPrecision) == 24);
static_assert(offsetof(LOGFONTW, lfClipPrecision) == 25);
static_assert(offsetof(LOGFONTW, lfQuality) == 26);
static_assert(offsetof(LOGFONTW, lfPitchAndFamily) == 27);
static_assert(offsetof(LOGFONTW, lfFaceName) == 28);

static_assert(sizeof(TEXTMETRICW) == 68);
static_assert(offsetof(TEXTMETRICW, tmHeight) == 0);
static_assert(offsetof(TEXTMETRICW, tmAscent) == 4);
static_assert(offsetof(TEXTMETRICW, tmDescent) == 8);
static_assert(offsetof(TEXTMETRICW, tmInternalLeading) == 12);
static_assert(offsetof(TEXTMETRICW, tmExternalLeading) == 16);
static_assert(offsetof(TEXTMETRICW, tmAveCharWidth) == 20);
static_assert(offsetof(TEXTMETRICW, tmMaxCharWidth) == 24);
static_assert(offsetof(TEXTMETRICW, tmWeight) == 28);
static_assert(offsetof(TEXTMETRICW, tmOverhang) == 32);
static_assert(offsetof(TEXTMETRICW, tmDigitizedAspectX) == 36);
static_assert(offsetof(TEXTMETRICW, tmDigitizedAspectY) == 40);
static_assert(offsetof(TEXTMETRICW, tmFirstChar) == 44);
static_assert(offsetof(TEXTMETRICW, tmLastChar) == 48);
static_assert(offsetof(TEXTMETRICW, tmDefaultChar) == 52);
static_assert(offsetof(TEXTMETRICW, tmBreakChar) == 56);
static_assert(offsetof(TEXTMETRICW, tmItalic) == 60);
static_assert(offsetof(TEXTMETRICW, tmUnderlined) == 61);
static_assert(offsetof(TEXTMETRICW, tmStruckOut) == 62);
static_assert(offsetof(TEXTMETRICW, tmPitchAndFamily) == 63);
static_assert(offsetof(TEXTMETRICW, tmCharSet) == 64);

static_assert(sizeof(MONITORINFO) == 40);
static_assert(offsetof(MONITORINFO, cbSize) == 0);
static_assert(offsetof(MONITORINFO, rcMonitor) == 4);
static_assert(offsetof(MONITORINFO, rcWork) == 20);
static_assert(offsetof(MONITORINFO, dwFlags) == 36);

static_assert(sizeof(TASKDIALOG_BUTTON) == 12);
static_assert(offsetof(TASKDIALOG_BUTTON, nButtonID) == 0);
static_assert(offsetof(TASKDIALOG_BUTTON, pszButtonText) == 4);

static_assert(sizeof(TASKDIALOGCONFIG) == 160);
static_assert(offsetof(TASKDIALOGCONFIG, cbSize) == 0);
static_assert(offsetof(TASKDIALOGCONFIG, hwndParent) == 4);
static_assert(offsetof(TASKDIALOGCONFIG, hInstance) == 12);
static_assert(offsetof(TASKDIALOGCONFIG, dwFlags) == 20);
static_assert(offsetof(TASKDIALOGCONFIG, dwCommonButtons) == 24);
static_assert(offsetof(TASKDIALOGCONFIG, pszWindowTitle) == 28);
static_assert(offsetof(TASKDIALOGCONFIG, hMainIcon) == 36);
static_assert(offsetof(TASKDIALOGCONFIG, pszMainIcon) == 36);
static_assert(offsetof(TASKDIALOGCONFIG, pszMainInstruction) == 44);
static_assert(offsetof(TASKDIALOGCONFIG, pszContent) == 52);
static_assert(offsetof(TASKDIALOGCONFIG, cButtons) == 60);
static_assert(offsetof(TASKDIALOGCONFIG, pButtons) == 64);
static_assert(offsetof(TASKDIALOGCONFIG, nDefaultButton) == 72);
static_assert(offsetof(TASKDIALOGCONFIG, cRadioButtons) == 76);
static_assert(offsetof(TASKDIALOGCONFIG, pRadioButtons) == 80);
static_assert(offsetof(TASKDIALOGCONFIG, nDefaultRadioButton) == 88);
static_assert(offsetof(TASKDIALOGCONFIG, pszVerificationText) == 92);
static_assert(offsetof(TASKDIALOGCONFIG, pszExpandedInformation) == 100);
static_assert(offsetof(TASKDIALOGCONFIG, pszExpandedControlText) == 108);
static_assert(offsetof(TASKDIALOGCONFIG, pszCollapsedControlText) == 116);
static_assert(offsetof(TASKDIALOGCONFIG, hFooterIcon) == 124);
static_assert(offsetof(TASKDIALOGCONFIG, pszFooterIcon) == 124);
static_assert(offsetof(TASKDIALOGCONFIG, pszFooter) == 132);
static_assert(offsetof(TASKDIALOGCONFIG, pfCallback) == 140);
static_assert(offsetof(TASKDIALOGCONFIG, lpCallbackData) == 148);
static_assert(offsetof(TASKDIALOGCONFIG, cxWidth) == 156);

static_assert(sizeof(NUMBERFMTW) == 40);
static_assert(offsetof(NUMBERFMTW, NumDigits) == 0);
static_assert(offsetof(NUMBERFMTW, LeadingZero) == 4);
static_assert(offsetof(NUMBERFMTW, Grouping) == 8);
static_assert(offsetof(NUMBERFMTW, lpDecimalSep) == 16);
static_assert(offsetof(NUMBERFMTW, lpThousandSep) == 24);
static_assert(offsetof(NUMBERFMTW, NegativeOrder) == 32);
