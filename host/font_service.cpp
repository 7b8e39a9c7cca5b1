#include "kest/host/font_service.h"

#include "out_of_memory.h"

#include <cerrno>
#include <iconv.h>
#include <string>

namespace kest::host
{

namespace
{

constexpr UINT utf8CodePage = 65001;

} // namespace

int ConsoleFontService::EnumFontFamiliesExW(HDC, LOGFONTW*, FONTENUMPROCW, LPARAM, DWORD)
{
    return 0;
}

BOOL ConsoleFontService::IsValidCodePage(UINT CodePage)
{
    // Short enough to be kept without memory of its own.
    const std::string name = CodePage == utf8CodePage ? "UTF-8" : "CP" + std::to_string(CodePage);
    const int lastError = errno;
    const iconv_t conversion = iconv_open("UTF-8", name.c_str());
    if (conversion == reinterpret_cast<iconv_t>(-1))
    {
        if (errno == ENOMEM)
        {
            return withoutMemory(0);
        }
        errno = lastError;
        return 0;
    }
    iconv_close(conversion);
    errno = lastError;
    return 1;
}

} // namespace kest::host
