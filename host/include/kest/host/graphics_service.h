/*
 * Kest reference host: resources, metrics, printers and monitors of a program without a display.
 */
#ifndef KEST_HOST_GRAPHICS_SERVICE_H
#define KEST_HOST_GRAPHICS_SERVICE_H

#include "kest/platform_services.h"

namespace kest
{
namespace host
{

/** No display: no resources, no metrics, no printers, no monitors. */
class KEST_API ConsoleGraphicsService : public IGraphicsService
{
public:
    /** Always 0; an empty text is stored where there is a buffer with room for its terminator. */
    int LoadStringW(HINSTANCE hInstance, UINT uID, wchar_t* lpBuffer, int cchBufferMax) override;
    /** Always null. */
    HANDLE LoadImageW(HINSTANCE hInst, const wchar_t* name, UINT type, int cx, int cy, UINT fuLoad) override;
    /** 1 for a handle, 0 for null: there is nothing to delete. */
    BOOL DeleteObject(HGDIOBJ ho) override;
    /** Always 0, Windows's answer for what does not exist. */
    int GetSystemMetrics(int nIndex) override;
    /** 1 with no printers: both counts, where given, become 0. */
    BOOL EnumPrintersW(DWORD Flags, wchar_t* Name, DWORD Level, BYTE* pPrinterEnum, DWORD cbBuf, DWORD* pcbNeeded,
                       DWORD* pcReturned) override;
    /** Always null. */
    HMONITOR MonitorFromPoint(POINT pt, DWORD dwFlags) override;
    /** Always 0, nothing is written. */
    BOOL GetMonitorInfoW(HMONITOR hMonitor, MONITORINFO* lpmi) override;
};

} // namespace host
} // namespace kest

#endif
