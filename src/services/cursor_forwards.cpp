// Forwards to the cursor service, in the order of its operations.
#include "kest/user_interface/windows_and_input.h"
#include "support/forwarding.h"
#include "support/second_name.h"

using kest::forward;

namespace
{
constexpr auto service = &IPlatformServices::cursorService;
}

BOOL GetCursorPos(POINT* lpPoint)
{
    return forward(service, &ICursorService::GetCursorPos, lpPoint);
}

BOOL ScreenToClient(HWND hWnd, POINT* lpPoint)
{
    return forward(service, &ICursorService::ScreenToClient, hWnd, lpPoint);
}

HCURSOR GetCursor()
{
    return forward(service, &ICursorService::GetCursor);
}

HCURSOR SetCursor(HCURSOR hCursor)
{
    return forward(service, &ICursorService::SetCursor, hCursor);
}

KEST_SECOND_NAME(HCURSOR encodedGetCursor(), "GetCursor", "_Z9GetCursorv");
KEST_SECOND_NAME(HCURSOR encodedSetCursor(HCURSOR), "SetCursor", "_Z9SetCursorP7HICON__");
