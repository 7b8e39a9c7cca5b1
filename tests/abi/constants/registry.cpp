// The values of the constants, as Windows has them.
#include "kest/registry.h"

// ---- Types of values ---------------------------------------------------------------------------------------------

static_assert(REG_NONE == 0);
static_assert(REG_SZ == 1);
static_assert(REG_EXPAND_SZ == 2);
static_assert(REG_BINARY == 3);
static_assert(REG_DWORD == 4);
static_assert(REG_DWORD_BIG_ENDIAN == 5);
static_assert(REG_LINK == 6);
static_assert(REG_MULTI_SZ == 7);
static_assert(REG_RESOURCE_LIST == 8);
static_assert(REG_FULL_RESOURCE_DESCRIPTOR == 9);
static_assert(REG_RESOURCE_REQUIREMENTS_LIST == 10);
static_assert(REG_QWORD == 11);
static_assert(REG_DWORD_LITTLE_ENDIAN == 4);
static_assert(REG_QWORD_LITTLE_ENDIAN == 11);

// ---- Access ------------------------------------------------------------------------------------------------------

static_assert(KEY_QUERY_VALUE == 0x1);
static_assert(KEY_SET_VALUE == 0x2);
static_assert(KEY_CREATE_SUB_KEY == 0x4);
static_assert(KEY_ENUMERATE_SUB_KEYS == 0x8);
static_assert(KEY_NOTIFY == 0x10);
static_assert(KEY_CREATE_LINK == 0x20);
static_assert(KEY_WOW64_64KEY == 0x100);
static_assert(KEY_WOW64_32KEY == 0x200);
static_assert(KEY_READ == 0x20019);
static_assert(KEY_WRITE == 0x20006);
static_assert(KEY_EXECUTE == 0x20019);
static_assert(KEY_ALL_ACCESS == 0xF003F);

// ---- Options and dispositions ------------------------------------------------------------------------------------

static_assert(REG_OPTION_RESERVED == 0);
static_assert(REG_OPTION_NON_VOLATILE == 0);
static_assert(REG_OPTION_VOLATILE == 0x1);
static_assert(REG_OPTION_CREATE_LINK == 0x2);
static_assert(REG_OPTION_BACKUP_RESTORE == 0x4);
static_assert(REG_OPTION_OPEN_LINK == 0x8);
static_assert(REG_CREATED_NEW_KEY == 1);
static_assert(REG_OPENED_EXISTING_KEY == 2);

// ---- Errors ------------------------------------------------------------------------------------------------------

static_assert(ERROR_SUCCESS == 0);
static_assert(ERROR_INVALID_FUNCTION == 1);
static_assert(ERROR_FILE_NOT_FOUND == 2);
static_assert(ERROR_ACCESS_DENIED == 5);
static_assert(ERROR_INVALID_HANDLE == 6);
static_assert(ERROR_NOT_ENOUGH_MEMORY == 8);
static_assert(ERROR_OUTOFMEMORY == 14);
static_assert(ERROR_INVALID_PARAMETER == 87);
static_assert(ERROR_CALL_NOT_IMPLEMENTED == 120);
static_assert(ERROR_INSUFFICIENT_BUFFER == 122);
static_assert(ERROR_INVALID_NAME == 123);
static_assert(ERROR_BAD_PATHNAME == 161);
static_assert(ERROR_ALREADY_EXISTS == 183);
static_assert(ERROR_MORE_DATA == 234);
static_assert(ERROR_NO_MORE_ITEMS == 259);
static_assert(ERROR_BADDB == 1009);
static_assert(ERROR_BADKEY == 1010);
static_assert(ERROR_CANTOPEN == 1011);
static_assert(ERROR_CANTREAD == 1012);
static_assert(ERROR_CANTWRITE == 1013);
static_assert(ERROR_KEY_DELETED == 1018);
static_assert(ERROR_KEY_HAS_CHILDREN == 1020);
static_assert(ERROR_CHILD_MUST_BE_VOLATILE == 1021);
