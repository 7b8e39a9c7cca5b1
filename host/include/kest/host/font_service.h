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
    /**
     * 1 when text of the code page can be converted here: UTF-8 (65001) and what iconv knows by "CP" and the number.
     * 0 with ERROR_NOT_ENOUGH_MEMORY (8) in errno where iconv says that it lacks memory; else errno, which is the
     * last-error value, is left as it is. A page whose module iconv cannot load, for want of memory or descriptors, is
     * not known to it that time. If its list of modules cannot be read at the first conversion of the process, for
     * want of descriptors, it knows no module from then on.
     */
    BOOL IsValidCodePage(UINT CodePage) override;
};

} // namespace host
} // namespace kest

#endif
