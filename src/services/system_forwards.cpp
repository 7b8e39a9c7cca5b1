// Forwards to the system service, in the order of its operations. The expansion of environment variables stands with
// its family.
#include "kest/kernel/locale.h"
#include "support/forwarding.h"

using kest::forwardChecked;

int GetNumberFormatW(LCID Locale, DWORD dwFlags, const wchar_t* lpValue, const NUMBERFMTW* lpFormat,
                     wchar_t* lpNumberStr, int cchNumber)
{
    return forwardChecked(0, &IPlatformServices::systemService, &ISystemService::GetNumberFormatW, Locale, dwFlags,
                          lpValue, lpFormat, lpNumberStr, cchNumber);
}
