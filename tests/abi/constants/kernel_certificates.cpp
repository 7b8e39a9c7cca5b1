// The values of the constants, as Windows has them.
#include "kest/kernel/certificates.h"

// ---- Encodings ---------------------------------------------------------------------------------------------------

static_assert(X509_ASN_ENCODING == 0x1);
static_assert(PKCS_7_ASN_ENCODING == 0x10000);

// ---- Names -------------------------------------------------------------------------------------------------------

static_assert(CERT_NAME_EMAIL_TYPE == 1);
static_assert(CERT_NAME_RDN_TYPE == 2);
static_assert(CERT_NAME_ATTR_TYPE == 3);
static_assert(CERT_NAME_SIMPLE_DISPLAY_TYPE == 4);
static_assert(CERT_NAME_FRIENDLY_DISPLAY_TYPE == 5);
static_assert(CERT_NAME_ISSUER_FLAG == 0x1);

// ---- Searches: what is compared in the high word, what it is compared with in the low word -----------------------

static_assert(CERT_FIND_ANY == 0);
static_assert(CERT_FIND_SUBJECT_CERT == 0xB0000);
static_assert(CERT_FIND_SUBJECT_STR_W == 0x80007);
static_assert(CERT_FIND_ISSUER_STR_W == 0x80004);

// ---- Objects that are queried ------------------------------------------------------------------------------------

static_assert(CERT_QUERY_OBJECT_FILE == 1);
static_assert(CERT_QUERY_OBJECT_BLOB == 2);
static_assert(CERT_QUERY_CONTENT_CERT == 1);
static_assert(CERT_QUERY_CONTENT_PKCS7_SIGNED == 8);
static_assert(CERT_QUERY_CONTENT_PKCS7_SIGNED_EMBED == 10);
static_assert(CERT_QUERY_CONTENT_FLAG_CERT == 0x2);
static_assert(CERT_QUERY_CONTENT_FLAG_PKCS7_SIGNED == 0x100);
static_assert(CERT_QUERY_CONTENT_FLAG_PKCS7_SIGNED_EMBED == 0x400);
static_assert(CERT_QUERY_CONTENT_FLAG_ALL == 0x3FFE);
static_assert(CERT_QUERY_FORMAT_BINARY == 1);
static_assert(CERT_QUERY_FORMAT_BASE64_ENCODED == 2);
static_assert(CERT_QUERY_FORMAT_FLAG_BINARY == 0x2);
static_assert(CERT_QUERY_FORMAT_FLAG_BASE64_ENCODED == 0x4);
static_assert(CERT_QUERY_FORMAT_FLAG_ALL == 0xE);

// ---- Trust -------------------------------------------------------------------------------------------------------

static_assert(WTD_UI_ALL == 1);
static_assert(WTD_UI_NONE == 2);
static_assert(WTD_UI_NOBAD == 3);
static_assert(WTD_UI_NOGOOD == 4);
static_assert(WTD_REVOKE_NONE == 0);
static_assert(WTD_REVOKE_WHOLECHAIN == 1);
static_assert(WTD_CHOICE_FILE == 1);
static_assert(WTD_CHOICE_CATALOG == 2);
static_assert(WTD_CHOICE_BLOB == 3);
static_assert(WTD_CHOICE_SIGNER == 4);
static_assert(WTD_CHOICE_CERT == 5);
static_assert(WTD_STATEACTION_IGNORE == 0);
static_assert(WTD_STATEACTION_VERIFY == 1);
static_assert(WTD_STATEACTION_CLOSE == 2);
static_assert(WTD_SAFER_FLAG == 0x100);
