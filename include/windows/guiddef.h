/*
 * Kest Platform Base, porting kit: identifiers. DEFINE_GUID declares one; a source that defines INITGUID before it
 * includes this header defines it.
 */
#ifndef KEST_WINDOWS_GUIDDEF_H
#define KEST_WINDOWS_GUIDDEF_H

#include "windef.h"

#include <string.h>

#ifdef INITGUID
#define DEFINE_GUID(name, l, w1, w2, b1, b2, b3, b4, b5, b6, b7, b8)                                                   \
    EXTERN_C __attribute__((weak)) const GUID name;                                                                    \
    const GUID name = {l, w1, w2, {b1, b2, b3, b4, b5, b6, b7, b8}}
#else
#define DEFINE_GUID(name, l, w1, w2, b1, b2, b3, b4, b5, b6, b7, b8) EXTERN_C const GUID name
#endif
#define DEFINE_OLEGUID(name, l, w1, w2) DEFINE_GUID(name, l, w1, w2, 0xC0, 0, 0, 0, 0, 0, 0, 0x46)

typedef GUID FMTID;
typedef FMTID* LPFMTID;
typedef GUID UUID;
#ifdef __cplusplus
#define REFFMTID const FMTID&
#else
#define REFFMTID const FMTID*
#endif

/* The identifier of nothing. */
static __attribute__((unused)) const GUID GUID_NULL = {0, 0, 0, {0, 0, 0, 0, 0, 0, 0, 0}};
#define IID_NULL GUID_NULL
#define CLSID_NULL GUID_NULL
#define FMTID_NULL GUID_NULL

#ifdef __cplusplus
inline int IsEqualGUID(REFGUID a, REFGUID b)
{
    return memcmp(&a, &b, sizeof(GUID)) == 0;
}
inline bool operator==(REFGUID a, REFGUID b)
{
    return IsEqualGUID(a, b) != 0;
}
inline bool operator!=(REFGUID a, REFGUID b)
{
    return IsEqualGUID(a, b) == 0;
}
#define InlineIsEqualGUID(a, b) IsEqualGUID(a, b)
#else
#define IsEqualGUID(a, b) (memcmp((a), (b), sizeof(GUID)) == 0)
#define InlineIsEqualGUID(a, b) IsEqualGUID(a, b)
#endif
#define IsEqualIID(a, b) IsEqualGUID(a, b)
#define IsEqualCLSID(a, b) IsEqualGUID(a, b)
#define IsEqualFMTID(a, b) IsEqualGUID(a, b)

#endif
