/*
 * Kest Platform Base: certificates and trust. None are known here: no certificate is ever found.
 */
#ifndef KEST_KERNEL_CERTIFICATES_H
#define KEST_KERNEL_CERTIFICATES_H

#include "kest/base_types.h"
#include "kest/export.h"

typedef void* HCERTSTORE;
typedef void* HCRYPTMSG;

/* ---- Certificates ----------------------------------------------------------------------------- */

typedef struct _CRYPTOAPI_BLOB
{
    DWORD cbData;
    BYTE* pbData;
} CRYPT_INTEGER_BLOB, *PCRYPT_INTEGER_BLOB, CRYPT_OBJID_BLOB, *PCRYPT_OBJID_BLOB, CERT_NAME_BLOB, *PCERT_NAME_BLOB,
    CERT_BLOB, *PCERT_BLOB, CRYPT_DATA_BLOB, *PCRYPT_DATA_BLOB, CRYPT_HASH_BLOB, *PCRYPT_HASH_BLOB, CRYPT_ATTR_BLOB,
    *PCRYPT_ATTR_BLOB;

typedef struct _CRYPT_BIT_BLOB
{
    DWORD cbData;
    BYTE* pbData;
    DWORD cUnusedBits;
} CRYPT_BIT_BLOB, *PCRYPT_BIT_BLOB;

typedef struct _CRYPT_ALGORITHM_IDENTIFIER
{
    LPSTR pszObjId;
    CRYPT_OBJID_BLOB Parameters;
} CRYPT_ALGORITHM_IDENTIFIER, *PCRYPT_ALGORITHM_IDENTIFIER;

typedef struct _CERT_PUBLIC_KEY_INFO
{
    CRYPT_ALGORITHM_IDENTIFIER Algorithm;
    CRYPT_BIT_BLOB PublicKey;
} CERT_PUBLIC_KEY_INFO, *PCERT_PUBLIC_KEY_INFO;

typedef struct _CERT_EXTENSION
{
    LPSTR pszObjId;
    BOOL fCritical;
    CRYPT_OBJID_BLOB Value;
} CERT_EXTENSION, *PCERT_EXTENSION;

typedef struct _CERT_INFO
{
    DWORD dwVersion;
    CRYPT_INTEGER_BLOB SerialNumber;
    CRYPT_ALGORITHM_IDENTIFIER SignatureAlgorithm;
    CERT_NAME_BLOB Issuer;
    FILETIME NotBefore;
    FILETIME NotAfter;
    CERT_NAME_BLOB Subject;
    CERT_PUBLIC_KEY_INFO SubjectPublicKeyInfo;
    CRYPT_BIT_BLOB IssuerUniqueId;
    CRYPT_BIT_BLOB SubjectUniqueId;
    DWORD cExtension;
    PCERT_EXTENSION rgExtension;
} CERT_INFO, *PCERT_INFO;

typedef struct _CERT_CONTEXT
{
    DWORD dwCertEncodingType;
    BYTE* pbCertEncoded;
    DWORD cbCertEncoded;
    PCERT_INFO pCertInfo;
    HCERTSTORE hCertStore;
} CERT_CONTEXT, *PCERT_CONTEXT;
typedef const CERT_CONTEXT* PCCERT_CONTEXT;

#define X509_ASN_ENCODING 0x00000001
#define PKCS_7_ASN_ENCODING 0x00010000

/* Arguments of CertGetNameStringW */
#define CERT_NAME_EMAIL_TYPE 1
#define CERT_NAME_RDN_TYPE 2
#define CERT_NAME_ATTR_TYPE 3
#define CERT_NAME_SIMPLE_DISPLAY_TYPE 4
#define CERT_NAME_FRIENDLY_DISPLAY_TYPE 5
#define CERT_NAME_ISSUER_FLAG 0x1

/* Arguments of CertFindCertificateInStore */
#define CERT_FIND_ANY 0
#define CERT_FIND_SUBJECT_CERT 0x000B0000
#define CERT_FIND_SUBJECT_STR_W 0x00080007
#define CERT_FIND_ISSUER_STR_W 0x00080004

/* ---- Objects that CryptQueryObject reads ------------------------------------------------------ */

#define CERT_QUERY_OBJECT_FILE 0x00000001
#define CERT_QUERY_OBJECT_BLOB 0x00000002
#define CERT_QUERY_CONTENT_CERT 1
#define CERT_QUERY_CONTENT_PKCS7_SIGNED 8
#define CERT_QUERY_CONTENT_PKCS7_SIGNED_EMBED 10
#define CERT_QUERY_CONTENT_FLAG_CERT (1 << CERT_QUERY_CONTENT_CERT)
#define CERT_QUERY_CONTENT_FLAG_PKCS7_SIGNED (1 << CERT_QUERY_CONTENT_PKCS7_SIGNED)
#define CERT_QUERY_CONTENT_FLAG_PKCS7_SIGNED_EMBED (1 << CERT_QUERY_CONTENT_PKCS7_SIGNED_EMBED)
#define CERT_QUERY_CONTENT_FLAG_ALL 0x00003FFE
#define CERT_QUERY_FORMAT_BINARY 1
#define CERT_QUERY_FORMAT_BASE64_ENCODED 2
#define CERT_QUERY_FORMAT_FLAG_BINARY (1 << CERT_QUERY_FORMAT_BINARY)
#define CERT_QUERY_FORMAT_FLAG_BASE64_ENCODED (1 << CERT_QUERY_FORMAT_BASE64_ENCODED)
#define CERT_QUERY_FORMAT_FLAG_ALL 0x0000000E

/* ---- Trust ------------------------------------------------------------------------------------ */

typedef struct WINTRUST_FILE_INFO_
{
    DWORD cbStruct;
    LPCWSTR pcwszFilePath;
    HANDLE hFile;
    GUID* pgKnownSubject;
} WINTRUST_FILE_INFO, *PWINTRUST_FILE_INFO;

typedef struct _WINTRUST_DATA
{
    DWORD cbStruct;
    LPVOID pPolicyCallbackData;
    LPVOID pSIPClientData;
    DWORD dwUIChoice;
    DWORD fdwRevocationChecks;
    DWORD dwUnionChoice;
    union
    {
        struct WINTRUST_FILE_INFO_* pFile;
        struct WINTRUST_CATALOG_INFO_* pCatalog;
        struct WINTRUST_BLOB_INFO_* pBlob;
        struct WINTRUST_SGNR_INFO_* pSgnr;
        struct WINTRUST_CERT_INFO_* pCert;
    };
    DWORD dwStateAction;
    HANDLE hWVTStateData;
    WCHAR* pwszURLReference;
    DWORD dwProvFlags;
    DWORD dwUIContext;
    struct WINTRUST_SIGNATURE_SETTINGS_* pSignatureSettings;
} WINTRUST_DATA, *PWINTRUST_DATA;

/* The action that verifies a file's signature. */
#define WINTRUST_ACTION_GENERIC_VERIFY_V2                                                                              \
    {                                                                                                                  \
        0x00AAC56B, 0xCD44, 0x11D0,                                                                                    \
        {                                                                                                              \
            0x8C, 0xC2, 0x00, 0xC0, 0x4F, 0xC2, 0x95, 0xEE                                                             \
        }                                                                                                              \
    }

/* dwUIChoice, fdwRevocationChecks, dwUnionChoice and dwStateAction of WINTRUST_DATA */
#define WTD_UI_ALL 1
#define WTD_UI_NONE 2
#define WTD_UI_NOBAD 3
#define WTD_UI_NOGOOD 4
#define WTD_REVOKE_NONE 0
#define WTD_REVOKE_WHOLECHAIN 1
#define WTD_CHOICE_FILE 1
#define WTD_CHOICE_CATALOG 2
#define WTD_CHOICE_BLOB 3
#define WTD_CHOICE_SIGNER 4
#define WTD_CHOICE_CERT 5
#define WTD_STATEACTION_IGNORE 0
#define WTD_STATEACTION_VERIFY 1
#define WTD_STATEACTION_CLOSE 2
#define WTD_SAFER_FLAG 0x00000100

KEST_C_BEGIN

/** Always 0, which callers take for trusted: nothing is verified. @kind fixed result */
KEST_API LONG WinVerifyTrust(HWND hwnd, GUID* pgActionID, LPVOID pWVTData);

/** Always 0: nothing is read, every output stays as it was. @kind fixed result */
KEST_API BOOL CryptQueryObject(DWORD dwObjectType, const void* pvObject, DWORD dwExpectedContentTypeFlags,
                               DWORD dwExpectedFormatTypeFlags, DWORD dwFlags, DWORD* pdwMsgAndCertEncodingType,
                               DWORD* pdwContentType, DWORD* pdwFormatType, HCERTSTORE* phCertStore, HCRYPTMSG* phMsg,
                               const void** ppvContext);

/** Always 0: pszNameString stays as it was, not even terminated. @kind fixed result */
KEST_API DWORD CertGetNameStringW(PCCERT_CONTEXT pCertContext, DWORD dwType, DWORD dwFlags, void* pvTypePara,
                                  wchar_t* pszNameString, DWORD cchNameString);

/** Always 0: nothing to free or to close. @kind fixed result */
KEST_API BOOL CertFreeCertificateContext(PCCERT_CONTEXT pCertContext);
KEST_API BOOL CryptMsgClose(HCRYPTMSG hCryptMsg);
KEST_API BOOL CertCloseStore(HCERTSTORE hCertStore, DWORD dwFlags);

/** Always null: no certificate is found. @kind fixed result */
KEST_API PCCERT_CONTEXT CertFindCertificateInStore(HCERTSTORE hCertStore, DWORD dwCertEncodingType, DWORD dwFindFlags,
                                                   DWORD dwFindType, const void* pvFindPara,
                                                   PCCERT_CONTEXT pPrevCertContext);

KEST_C_END

#endif
