#include "kest/host/window_service.h"

namespace kest::host
{

SHORT ConsoleWindowService::GetKeyState(int)
{
    return 0;
}

HWND ConsoleWindowService::FindWindowW(const wchar_t*, const wchar_t*)
{
    return nullptr;
}

} // namespace kest::host
