// Forwards to the font service, in the order of its operations.
#include "kest/kernel/locale.h"
#include "kest/user_interface/drawing.h"
#include "support/forwarding.h"

using kest::forward;
using kest::forwardChecked;

namespace
{
constexpr auto service = &IPlatformServices::fontService;
}

int EnumFontFamiliesExW(HDC hdc, LOGFONTW* lpLogfont, FONTENUMPROCW lpProc, LPARAM lParam, DWORD dwFlags)
{
    return forward(service, &IFontService::EnumFontFamiliesExW, hdc, lpLogfont, lpProc, lParam, dwFlags);
}

BOOL IsValidCodePage(UINT CodePage)
{
    return forwardChecked(0, service, &IFontService::IsValidCodePage, CodePage);
}
