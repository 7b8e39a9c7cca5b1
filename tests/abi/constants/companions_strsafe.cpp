// The values of the constants, as Windows has them.
#include "kest/companions/strsafe.h"

static_assert(STRSAFE_MAX_CCH == 2147483647);
static_assert(STRSAFE_IGNORE_NULLS == 0x100);
static_assert(STRSAFE_FILL_BEHIND_NULL == 0x200);
static_assert(STRSAFE_FILL_ON_FAILURE == 0x400);
static_assert(STRSAFE_NULL_ON_FAILURE == 0x800);
static_assert(STRSAFE_NO_TRUNCATION == 0x1000);
static_assert(STRSAFE_E_INSUFFICIENT_BUFFER == static_cast<HRESULT>(0x8007007A));
static_assert(STRSAFE_E_INVALID_PARAMETER == static_cast<HRESULT>(0x80070057));
static_assert(STRSAFE_E_END_OF_FILE == static_cast<HRESULT>(0x80070026));
