// Each function has the signature that modules built elsewhere call it by.
#include "abi/signature.h"
#include "kest/kernel/certificates.h"

using namespace kest::test;

static_assert(hasSignature<LONG(HWND, GUID*, void*), WinVerifyTrust>);
static_assert(
    hasSignature<BOOL(DWORD, const void*, DWORD, DWORD, DWORD, DWORD*, DWORD*, DWORD*, void**, void**, const void**),
                 CryptQueryObject>);
static_assert(hasSignature<DWORD(const CERT_CONTEXT*, DWORD, DWORD, void*, wchar_t*, DWORD), CertGetNameStringW>);
static_assert(hasSignature<BOOL(const CERT_CONTEXT*), CertFreeCertificateContext>);
static_assert(hasSignature<BOOL(void*), CryptMsgClose>);
static_assert(hasSignature<BOOL(void*, DWORD), CertCloseStore>);
static_assert(hasSignature<const CERT_CONTEXT*(void*, DWORD, DWORD, DWORD, const void*, const CERT_CONTEXT*),
                           CertFindCertificateInStore>);
