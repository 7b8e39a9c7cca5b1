// The layout of the structures: Windows's, with wide characters of four bytes.
#include "kest/kernel/certificates.h"

#include <cstddef>

static_assert(sizeof(CRYPT_OBJID_BLOB) == 16);
static_assert(offsetof(CRYPT_OBJID_BLOB, cbData) == 0);
static_assert(offsetof(CRYPT_OBJID_BLOB, pbData) == 8);

static_assert(sizeof(CRYPT_BIT_BLOB) == 24);
static_assert(offsetof(CRYPT_BIT_BLOB, cbData) == 0);
static_assert(offsetof(CRYPT_BIT_BLOB, pbData) == 8);
static_assert(offsetof(CRYPT_BIT_BLOB, cUnusedBits) == 16);

static_assert(sizeof(CRYPT_ALGORITHM_IDENTIFIER) == 24);
static_assert(offsetof(CRYPT_ALGORITHM_IDENTIFIER, pszObjId) == 0);
static_assert(offsetof(CRYPT_ALGORITHM_IDENTIFIER, Parameters) == 8);

static_assert(sizeof(CERT_PUBLIC_KEY_INFO) == 48);
static_assert(offsetof(CERT_PUBLIC_KEY_INFO, Algorithm) == 0);
static_assert(offsetof(CERT_PUBLIC_KEY_INFO, PublicKey) == 24);

static_assert(sizeof(CERT_EXTENSION) == 32);
static_assert(offsetof(CERT_EXTENSION, pszObjId) == 0);
static_assert(offsetof(CERT_EXTENSION, fCritical) == 8);
static_assert(offsetof(CERT_EXTENSION, Value) == 16);

static_assert(sizeof(CERT_INFO) == 208);
static_assert(offsetof(CERT_INFO, dwVersion) == 0);
static_assert(offsetof(CERT_INFO, SerialNumber) == 8);
static_assert(offsetof(CERT_INFO, SignatureAlgorithm) == 24);
static_assert(offsetof(CERT_INFO, Issuer) == 48);
static_assert(offsetof(CERT_INFO, NotBefore) == 64);
static_assert(offsetof(CERT_INFO, NotAfter) == 72);
static_assert(offsetof(CERT_INFO, Subject) == 80);
static_assert(offsetof(CERT_INFO, SubjectPublicKeyInfo) == 96);
static_assert(offsetof(CERT_INFO, IssuerUniqueId) == 144);
static_assert(offsetof(CERT_INFO, SubjectUniqueId) == 168);
static_assert(offsetof(CERT_INFO, cExtension) == 192);
static_assert(offsetof(CERT_INFO, rgExtension) == 200);

static_assert(sizeof(CERT_CONTEXT) == 40);
static_assert(offsetof(CERT_CONTEXT, dwCertEncodingType) == 0);
static_assert(offsetof(CERT_CONTEXT, pbCertEncoded) == 8);
static_assert(offsetof(CERT_CONTEXT, cbCertEncoded) == 16);
static_assert(offsetof(CERT_CONTEXT, pCertInfo) == 24);
static_assert(offsetof(CERT_CONTEXT, hCertStore) == 32);

static_assert(sizeof(WINTRUST_FILE_INFO) == 32);
static_assert(offsetof(WINTRUST_FILE_INFO, cbStruct) == 0);
static_assert(offsetof(WINTRUST_FILE_INFO, pcwszFilePath) == 8);
static_assert(offsetof(WINTRUST_FILE_INFO, hFile) == 16);
static_assert(offsetof(WINTRUST_FILE_INFO, pgKnownSubject) == 24);

static_assert(sizeof(WINTRUST_DATA) == 88);
static_assert(offsetof(WINTRUST_DATA, cbStruct) == 0);
static_assert(offsetof(WINTRUST_DATA, pPolicyCallbackData) == 8);
static_assert(offsetof(WINTRUST_DATA, pSIPClientData) == 16);
static_assert(offsetof(WINTRUST_DATA, dwUIChoice) == 24);
static_assert(offsetof(WINTRUST_DATA, fdwRevocationChecks) == 28);
static_assert(offsetof(WINTRUST_DATA, dwUnionChoice) == 32);
static_assert(offsetof(WINTRUST_DATA, pFile) == 40);
static_assert(offsetof(WINTRUST_DATA, dwStateAction) == 48);
static_assert(offsetof(WINTRUST_DATA, hWVTStateData) == 56);
static_assert(offsetof(WINTRUST_DATA, pwszURLReference) == 64);
static_assert(offsetof(WINTRUST_DATA, dwProvFlags) == 72);
static_assert(offsetof(WINTRUST_DATA, dwUIContext) == 76);
static_assert(offsetof(WINTRUST_DATA, pSignatureSettings) == 80);
