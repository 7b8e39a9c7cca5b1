/*
 * Kest Platform Base, porting kit: the words that COM interfaces are declared with, IUnknown, and the functions of
 * kest/kernel/com.h. There is no COM runtime: these serve objects that the program makes itself.
 *
 * "interface" is a word of this header; other headers use it as a name, so it is defined only for sources that define
 * KEST_WINDOWS_INTERFACE, which then include those first. DECLARE_INTERFACE does without.
 */
#ifndef KEST_WINDOWS_OBJBASE_H
#define KEST_WINDOWS_OBJBASE_H

#include "guiddef.h"
#include "winerror.h"
#include "winnt.h"

#include "kest/kernel/com.h"

/* ---- Declaring methods -------------------------------------------------------------------------- */

#define STDMETHODCALLTYPE
#define STDMETHODVCALLTYPE
#define STDAPICALLTYPE
#define STDAPIVCALLTYPE
#define STDAPI EXTERN_C HRESULT STDAPICALLTYPE
#define STDAPI_(type) EXTERN_C type STDAPICALLTYPE
#define STDMETHODIMP HRESULT STDMETHODCALLTYPE
#define STDMETHODIMP_(type) type STDMETHODCALLTYPE
#ifdef KEST_WINDOWS_INTERFACE
#define interface struct
#endif
#ifdef __cplusplus
#define STDMETHOD(method) virtual HRESULT STDMETHODCALLTYPE method
#define STDMETHOD_(type, method) virtual type STDMETHODCALLTYPE method
#define PURE = 0
#define THIS_
#define THIS void
#define DECLARE_INTERFACE(name) struct name
#define DECLARE_INTERFACE_(name, base) struct name : public base
#define BEGIN_INTERFACE
#define END_INTERFACE

/** The root of all interfaces. No virtual destructor, as on Windows: Release ends an object. */
struct IUnknown
{
    virtual HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) = 0;
    virtual ULONG STDMETHODCALLTYPE AddRef() = 0;
    virtual ULONG STDMETHODCALLTYPE Release() = 0;
};

struct IClassFactory : public IUnknown
{
    virtual HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) = 0;
    virtual HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) = 0;
};
#else
typedef struct IUnknown IUnknown;
typedef struct IClassFactory IClassFactory;
#endif
typedef IUnknown* LPUNKNOWN;
typedef IClassFactory* LPCLASSFACTORY;

/* ---- Memory of COM ------------------------------------------------------------------------------ */

typedef WCHAR* BSTR;
typedef unsigned short CLIPFORMAT;

/* ---- Where an object's code runs -------------------------------------------------------------- */

#define CLSCTX_INPROC_SERVER 0x1
#define CLSCTX_INPROC_HANDLER 0x2
#define CLSCTX_LOCAL_SERVER 0x4
#define CLSCTX_REMOTE_SERVER 0x10
#define CLSCTX_NO_CODE_DOWNLOAD 0x400
#define CLSCTX_NO_CUSTOM_MARSHAL 0x1000
#define CLSCTX_ENABLE_CODE_DOWNLOAD 0x2000
#define CLSCTX_NO_FAILURE_LOG 0x4000
#define CLSCTX_DISABLE_AAA 0x8000
#define CLSCTX_ENABLE_AAA 0x10000
#define CLSCTX_INPROC 0x3
#define CLSCTX_SERVER 0x15
#define CLSCTX_ALL 0x17

/* ---- How COM is initialised ------------------------------------------------------------------- */

#define COINIT_MULTITHREADED 0x0
#define COINIT_APARTMENTTHREADED 0x2
#define COINIT_DISABLE_OLE1DDE 0x4
#define COINIT_SPEED_OVER_MEMORY 0x8

/* ---- Storage and streams ---------------------------------------------------------------------- */

#define STGM_READ 0x00000000
#define STGM_WRITE 0x00000001
#define STGM_READWRITE 0x00000002
#define STGM_SHARE_EXCLUSIVE 0x00000010
#define STGM_SHARE_DENY_WRITE 0x00000020
#define STGM_SHARE_DENY_READ 0x00000030
#define STGM_SHARE_DENY_NONE 0x00000040
#define STGM_FAILIFTHERE 0x00000000
#define STGM_CREATE 0x00001000
#define STGM_TRANSACTED 0x00010000
#define STGM_DIRECT 0x00000000
#define STGM_CONVERT 0x00020000
#define STGM_PRIORITY 0x00040000
#define STGM_NOSCRATCH 0x00100000
#define STGM_NOSNAPSHOT 0x00200000
#define STGM_DIRECT_SWMR 0x00400000
#define STGM_DELETEONRELEASE 0x04000000
#define STGM_SIMPLE 0x08000000
#define STGTY_STORAGE 1
#define STGTY_STREAM 2
#define STGTY_LOCKBYTES 3
#define STGTY_PROPERTY 4
#define STREAM_SEEK_SET 0
#define STREAM_SEEK_CUR 1
#define STREAM_SEEK_END 2
#define STATFLAG_DEFAULT 0
#define STATFLAG_NONAME 1
#define STGC_DEFAULT 0
#define STGC_OVERWRITE 1
#define STGC_ONLYIFCURRENT 2

/* ---- Formatted data --------------------------------------------------------------------------- */

#define TYMED_HGLOBAL 1
#define TYMED_FILE 2
#define TYMED_ISTREAM 4
#define TYMED_ISTORAGE 8
#define TYMED_GDI 16
#define TYMED_MFPICT 32
#define TYMED_ENHMF 64
#define TYMED_NULL 0
#define DVASPECT_CONTENT 1
#define DVASPECT_THUMBNAIL 2
#define DVASPECT_ICON 4
#define DVASPECT_DOCPRINT 8
#define ROTFLAGS_REGISTRATIONKEEPSALIVE 0x1
#define ROTFLAGS_ALLOWANYCLIENT 0x2
#define REGCLS_SINGLEUSE 0
#define REGCLS_MULTIPLEUSE 1
#define REGCLS_MULTI_SEPARATE 2
#define REGCLS_SUSPENDED 4

#endif
