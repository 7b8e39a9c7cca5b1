/*
 * Kest reference host: number formatting and environment expansion.
 */
#ifndef KEST_HOST_SYSTEM_SERVICE_H
#define KEST_HOST_SYSTEM_SERVICE_H

#include "kest/platform_services.h"

namespace kest
{
namespace host
{

class KEST_API SystemService : public ISystemService
{
public:
    /**
     * Formats a decimal number ("-1234.5"), rounding halves away from zero. Without a format: two digits, groups of
     * three, the separators of the process's numeric locale (where it has none "." and ","), a leading minus.
     * @return characters stored, terminator included; with cchNumber 0 those needed; 0 on failure, with
     * ERROR_INSUFFICIENT_BUFFER (122) or ERROR_INVALID_PARAMETER (87) in errno.
     */
    int GetNumberFormatW(LCID Locale, DWORD dwFlags, const wchar_t* lpValue, const NUMBERFMTW* lpFormat,
                         wchar_t* lpNumberStr, int cchNumber) override;
    /**
     * Replaces %NAME% by the environment variable's value: the exact name first, else one that differs in case only.
     * Of names that Windows sets and nobody has set here, USERPROFILE, APPDATA, LOCALAPPDATA, TEMP, TMP, USERNAME and
     * COMPUTERNAME are known. Anything else stays as it stands. Without memory std::bad_alloc comes out, which the
     * library answers with 0.
     */
    std::wstring ExpandEnvironmentStringsW(const std::wstring& text) override;
};

} // namespace host
} // namespace kest

#endif
