// Forwards to the graphics service, in the order of its operations. Those that do more stand with their families.
#include "kest/user_interface/printers.h"
#include "kest/user_interface/resources.h"
#include "kest/user_interface/windows_and_input.h"
#include "support/forwarding.h"
#include "support/second_name.h"

using kest::forward;
using kest::forwardChecked;

namespace
{
constexpr auto service = &IPlatformServices::graphicsService;
}

int LoadStringW(HINSTANCE hInstance, UINT uID, wchar_t* lpBuffer, int cchBufferMax)
{
    return forward(service, &IGraphicsService::LoadStringW, hInstance, uID, lpBuffer, cchBufferMax);
}

HANDLE LoadImageW(HINSTANCE hInst, const wchar_t* name, UINT type, int cx, int cy, UINT fuLoad)
{
    return forward(service, &IGraphicsService::LoadImageW, hInst, name, type, cx, cy, fuLoad);
}

BOOL DeleteObject(HGDIOBJ ho)
{
    forward(service, &IGraphicsService::DeleteObject, ho);
    return 1;
}

int GetSystemMetrics(int nIndex)
{
    return forward(service, &IGraphicsService::GetSystemMetrics, nIndex);
}

BOOL EnumPrintersW(DWORD Flags, wchar_t* Name, DWORD Level, BYTE* pPrinterEnum, DWORD cbBuf, DWORD* pcbNeeded,
                   DWORD* pcReturned)
{
    return forward(service, &IGraphicsService::EnumPrintersW, Flags, Name, Level, pPrinterEnum, cbBuf, pcbNeeded,
                   pcReturned);
}

HMONITOR MonitorFromPoint(POINT pt, DWORD dwFlags)
{
    return forwardChecked(nullptr, service, &IGraphicsService::MonitorFromPoint, pt, dwFlags);
}

BOOL GetMonitorInfoW(HMONITOR hMonitor, MONITORINFO* lpmi)
{
    return forwardChecked(0, service, &IGraphicsService::GetMonitorInfoW, hMonitor, lpmi);
}

KEST_SECOND_NAME(int encodedGetSystemMetrics(int), "GetSystemMetrics", "_Z16GetSystemMetricsi");
KEST_SECOND_NAME(HMONITOR encodedMonitorFromPoint(POINT, DWORD), "MonitorFromPoint", "_Z16MonitorFromPoint8tagPOINTj");
