/*
 * Kest Platform Base, porting kit: variants, strings with a length, dates, decimals and arrays of automation.
 */
#ifndef KEST_WINDOWS_OLEAUTO_H
#define KEST_WINDOWS_OLEAUTO_H

#include "objbase.h"

#if __has_include("kest/companions/automation.h")
#include "kest/companions/automation.h"
#endif

typedef BSTR* LPBSTR;
typedef short VARIANT_BOOL;
typedef unsigned short VARTYPE;
typedef double DATE;
typedef LONG DISPID;
typedef DISPID MEMBERID;
typedef DWORD HREFTYPE;

#define VARIANT_TRUE ((VARIANT_BOOL)-1)
#define VARIANT_FALSE ((VARIANT_BOOL)0)

/* ---- Types of a variant ------------------------------------------------------------------------- */

enum VARENUM
{
    VT_EMPTY = 0,
    VT_NULL = 1,
    VT_I2 = 2,
    VT_I4 = 3,
    VT_R4 = 4,
    VT_R8 = 5,
    VT_CY = 6,
    VT_DATE = 7,
    VT_BSTR = 8,
    VT_DISPATCH = 9,
    VT_ERROR = 10,
    VT_BOOL = 11,
    VT_VARIANT = 12,
    VT_UNKNOWN = 13,
    VT_DECIMAL = 14,
    VT_I1 = 16,
    VT_UI1 = 17,
    VT_UI2 = 18,
    VT_UI4 = 19,
    VT_I8 = 20,
    VT_UI8 = 21,
    VT_INT = 22,
    VT_UINT = 23,
    VT_VOID = 24,
    VT_HRESULT = 25,
    VT_PTR = 26,
    VT_SAFEARRAY = 27,
    VT_CARRAY = 28,
    VT_USERDEFINED = 29,
    VT_LPSTR = 30,
    VT_LPWSTR = 31,
    VT_RECORD = 36,
    VT_INT_PTR = 37,
    VT_UINT_PTR = 38,
    VT_FILETIME = 64,
    VT_BLOB = 65,
    VT_STREAM = 66,
    VT_STORAGE = 67,
    VT_STREAMED_OBJECT = 68,
    VT_STORED_OBJECT = 69,
    VT_BLOB_OBJECT = 70,
    VT_CF = 71,
    VT_CLSID = 72,
    VT_VERSIONED_STREAM = 73,
    VT_BSTR_BLOB = 0xFFF,
    VT_VECTOR = 0x1000,
    VT_ARRAY = 0x2000,
    VT_BYREF = 0x4000,
    VT_RESERVED = 0x8000,
    VT_ILLEGAL = 0xFFFF,
    VT_ILLEGALMASKED = 0xFFF,
    VT_TYPEMASK = 0xFFF
};

/* ---- Values ------------------------------------------------------------------------------------- */

__extension__ typedef union tagCY
{
    struct
    {
        ULONG Lo;
        LONG Hi;
    };
    LONGLONG int64;
} CY, *LPCY;

__extension__ typedef struct tagDEC
{
    USHORT wReserved;
    __extension__ union
    {
        struct
        {
            BYTE scale;
            BYTE sign;
        };
        USHORT signscale;
    };
    ULONG Hi32;
    __extension__ union
    {
        struct
        {
            ULONG Lo32;
            ULONG Mid32;
        };
        ULONGLONG Lo64;
    };
} DECIMAL, *LPDECIMAL;

typedef struct tagSAFEARRAYBOUND
{
    ULONG cElements;
    LONG lLbound;
} SAFEARRAYBOUND, *LPSAFEARRAYBOUND;

typedef struct tagSAFEARRAY
{
    USHORT cDims;
    USHORT fFeatures;
    ULONG cbElements;
    ULONG cLocks;
    PVOID pvData;
    SAFEARRAYBOUND rgsabound[1];
} SAFEARRAY, *LPSAFEARRAY;

#ifdef __cplusplus
struct IDispatch;
struct IRecordInfo;
#else
typedef struct IDispatch IDispatch;
typedef struct IRecordInfo IRecordInfo;
#endif
typedef IDispatch* LPDISPATCH;

__extension__ typedef struct tagVARIANT
{
    __extension__ union
    {
        __extension__ struct
        {
            VARTYPE vt;
            WORD wReserved1;
            WORD wReserved2;
            WORD wReserved3;
            __extension__ union
            {
                LONGLONG llVal;
                LONG lVal;
                BYTE bVal;
                SHORT iVal;
                FLOAT fltVal;
                DOUBLE dblVal;
                VARIANT_BOOL boolVal;
                SCODE scode;
                CY cyVal;
                DATE date;
                BSTR bstrVal;
                IUnknown* punkVal;
                IDispatch* pdispVal;
                SAFEARRAY* parray;
                BYTE* pbVal;
                SHORT* piVal;
                LONG* plVal;
                LONGLONG* pllVal;
                FLOAT* pfltVal;
                DOUBLE* pdblVal;
                VARIANT_BOOL* pboolVal;
                SCODE* pscode;
                CY* pcyVal;
                DATE* pdate;
                BSTR* pbstrVal;
                IUnknown** ppunkVal;
                IDispatch** ppdispVal;
                SAFEARRAY** pparray;
                struct tagVARIANT* pvarVal;
                PVOID byref;
                CHAR cVal;
                USHORT uiVal;
                ULONG ulVal;
                ULONGLONG ullVal;
                INT intVal;
                UINT uintVal;
                DECIMAL* pdecVal;
                CHAR* pcVal;
                USHORT* puiVal;
                ULONG* pulVal;
                ULONGLONG* pullVal;
                INT* pintVal;
                UINT* puintVal;
                __extension__ struct
                {
                    PVOID pvRecord;
                    IRecordInfo* pRecInfo;
                };
            };
        };
        DECIMAL decVal;
    };
} VARIANT, *LPVARIANT;
typedef VARIANT VARIANTARG;
typedef VARIANTARG* LPVARIANTARG;

typedef struct tagDISPPARAMS
{
    VARIANTARG* rgvarg;
    DISPID* rgdispidNamedArgs;
    UINT cArgs;
    UINT cNamedArgs;
} DISPPARAMS;

typedef struct tagEXCEPINFO
{
    WORD wCode;
    WORD wReserved;
    BSTR bstrSource;
    BSTR bstrDescription;
    BSTR bstrHelpFile;
    DWORD dwHelpContext;
    PVOID pvReserved;
    HRESULT (*pfnDeferredFillIn)(struct tagEXCEPINFO*);
    SCODE scode;
} EXCEPINFO, *LPEXCEPINFO;

/* The type of a variant, and its value by type. */
#define V_VT(variant) ((variant)->vt)
#define V_ISBYREF(variant) (V_VT(variant) & VT_BYREF)
#define V_ISARRAY(variant) (V_VT(variant) & VT_ARRAY)
#define V_I1(variant) ((variant)->cVal)
#define V_I2(variant) ((variant)->iVal)
#define V_I4(variant) ((variant)->lVal)
#define V_I8(variant) ((variant)->llVal)
#define V_UI1(variant) ((variant)->bVal)
#define V_UI2(variant) ((variant)->uiVal)
#define V_UI4(variant) ((variant)->ulVal)
#define V_UI8(variant) ((variant)->ullVal)
#define V_INT(variant) ((variant)->intVal)
#define V_UINT(variant) ((variant)->uintVal)
#define V_R4(variant) ((variant)->fltVal)
#define V_R8(variant) ((variant)->dblVal)
#define V_CY(variant) ((variant)->cyVal)
#define V_DATE(variant) ((variant)->date)
#define V_BOOL(variant) ((variant)->boolVal)
#define V_BSTR(variant) ((variant)->bstrVal)
#define V_ERROR(variant) ((variant)->scode)
#define V_UNKNOWN(variant) ((variant)->punkVal)
#define V_DISPATCH(variant) ((variant)->pdispVal)
#define V_ARRAY(variant) ((variant)->parray)
#define V_BYREF(variant) ((variant)->byref)

/* ---- Invoking --------------------------------------------------------------------------------- */

#define DISPATCH_METHOD 0x1
#define DISPATCH_PROPERTYGET 0x2
#define DISPATCH_PROPERTYPUT 0x4
#define DISPATCH_PROPERTYPUTREF 0x8
#define DISPID_UNKNOWN (-1)
#define DISPID_VALUE 0
#define DISPID_PROPERTYPUT (-3)
#define DISPID_NEWENUM (-4)
#define DISPID_EVALUATE (-5)
#define DISPID_CONSTRUCTOR (-6)
#define DISPID_DESTRUCTOR (-7)
#define DISPID_COLLECT (-8)
#define MEMBERID_NIL (-1)

/* ---- Changing a variant's type ---------------------------------------------------------------- */

#define VARIANT_NOVALUEPROP 0x01
#define VARIANT_ALPHABOOL 0x02
#define VARIANT_NOUSEROVERRIDE 0x04
#define VARIANT_LOCALBOOL 0x10
#define VARCMP_LT 0
#define VARCMP_EQ 1
#define VARCMP_GT 2
#define VARCMP_NULL 3

/* ---- Safe arrays ------------------------------------------------------------------------------ */

#define FADF_AUTO 0x0001
#define FADF_STATIC 0x0002
#define FADF_EMBEDDED 0x0004
#define FADF_FIXEDSIZE 0x0010
#define FADF_RECORD 0x0020
#define FADF_HAVEIID 0x0040
#define FADF_HAVEVARTYPE 0x0080
#define FADF_BSTR 0x0100
#define FADF_UNKNOWN 0x0200
#define FADF_DISPATCH 0x0400
#define FADF_VARIANT 0x0800

#endif
