#include "kest/host/graphics_service.h"

namespace kest::host
{

int ConsoleGraphicsService::LoadStringW(HINSTANCE, UINT, wchar_t* lpBuffer, int cchBufferMax)
{
    if (lpBuffer != nullptr && cchBufferMax > 0)
    {
        *lpBuffer = L'\0';
    }
    return 0;
}

HANDLE ConsoleGraphicsService::LoadImageW(HINSTANCE, const wchar_t*, UINT, int, int, UINT)
{
    return nullptr;
}

BOOL ConsoleGraphicsService::DeleteObject(HGDIOBJ ho)
{
    return ho != nullptr;
}

int ConsoleGraphicsService::GetSystemMetrics(int)
{
    return 0;
}

BOOL ConsoleGraphicsService::EnumPrintersW(DWORD, wchar_t*, DWORD, BYTE*, DWORD, DWORD* pcbNeeded, DWORD* pcReturned)
{
    for (DWORD* const count : {pcbNeeded, pcReturned})
    {
        if (count != nullptr)
        {
            *count = 0;
        }
    }
    return 1;
}

HMONITOR ConsoleGraphicsService::MonitorFromPoint(POINT, DWORD)
{
    return nullptr;
}

BOOL ConsoleGraphicsService::GetMonitorInfoW(HMONITOR, MONITORINFO*)
{
    return 0;
}

} // namespace kest::host
