/*
 * Kest reference host: fonts of a program without a display, and code pages.
 */
#ifndef KEST_HOST_FONT_SERVICE_H
#define KEST_HOST_FONT_SERVICE_H

#include "kest/platform_services.h"

namespace kest
{
namespace host
{

/** No display: no fonts. Code pages are those that iconv knows. */
class KEST_API ConsoleFontService : public IFontService
{
public:
    /** Always 0: the callback is never called. */
    int EnumFontFamiliesExW(HDC hdc, LOGFONTW* lpLogfont, FONTENUMPROCW lpProc, LPARAM lParam, DWORD dwFlags) override;
    /** 1 when text of the code page can be converted here: UTF-8 (65001) and what iconv knows by "CP" and the number. */
    BOOL IsValidCodePage(UINT CodePage) override;
};

} // namespace host
} // namespace kest

#endif
