#include "kest/host/cursor_service.h"

namespace kest::host
{

BOOL ConsoleCursorService::GetCursorPos(POINT*)
{
    return 0;
}

BOOL ConsoleCursorService::ScreenToClient(HWND, POINT*)
{
    return 0;
}

HCURSOR ConsoleCursorService::GetCursor()
{
    return cursor_;
}

HCURSOR ConsoleCursorService::SetCursor(HCURSOR hCursor)
{
    return cursor_.exchange(hCursor);
}

} // namespace kest::host
