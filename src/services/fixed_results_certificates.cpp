// Fixed results of certificates and trust.
#include "kest/kernel/certificates.h"

LONG WinVerifyTrust(HWND, GUID*, LPVOID)
{
    return 0;
}

BOOL CryptQueryObject(DWORD, const void*, DWORD, DWORD, DWORD, DWORD*, DWORD*, DWORD*, HCERTSTORE*, HCRYPTMSG*,
                      const void**)
{
    return 0;
}

DWORD CertGetNameStringW(PCCERT_CONTEXT, DWORD, DWORD, void*, wchar_t*, DWORD)
{
    return 0;
}

BOOL CertFreeCertificateContext(PCCERT_CONTEXT)
{
    return 0;
}

BOOL CryptMsgClose(HCRYPTMSG)
{
    return 0;
}

BOOL CertCloseStore(HCERTSTORE, DWORD)
{
    return 0;
}

PCCERT_CONTEXT CertFindCertificateInStore(HCERTSTORE, DWORD, DWORD, DWORD, const void*, PCCERT_CONTEXT)
{
    return nullptr;
}
