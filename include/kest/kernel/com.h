/*
 * Kest Platform Base: COM. There is no COM here: nothing is made, nothing is freed.
 */
#ifndef KEST_KERNEL_COM_H
#define KEST_KERNEL_COM_H

#include "kest/base_types.h"
#include "kest/export.h"

KEST_C_BEGIN

/** Always 0, success, with pguid left as it was: random_uuid makes identifiers. @kind fixed result */
KEST_API HRESULT CoCreateGuid(GUID* pguid);

/** Always 0, success, with lplpsz left as it was. @kind fixed result */
KEST_API HRESULT StringFromCLSID(REFCLSID rclsid, LPOLESTR* lplpsz);

/** Does nothing. @kind fixed result */
KEST_API void CoTaskMemFree(LPVOID pv);

KEST_C_END

#endif
