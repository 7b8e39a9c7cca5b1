// The values of the constants, as Windows has them.
#include "kest/kernel/files.h"

// ---- Access, sharing, disposition --------------------------------------------------------------------------------

static_assert(GENERIC_READ == 0x80000000);
static_assert(GENERIC_WRITE == 0x40000000);
static_assert(FILE_SHARE_READ == 0x1);
static_assert(FILE_SHARE_WRITE == 0x2);
static_assert(FILE_SHARE_DELETE == 0x4);
static_assert(CREATE_NEW == 1);
static_assert(CREATE_ALWAYS == 2);
static_assert(OPEN_EXISTING == 3);
static_assert(OPEN_ALWAYS == 4);
static_assert(TRUNCATE_EXISTING == 5);

// ---- Flags -------------------------------------------------------------------------------------------------------

static_assert(FILE_FLAG_WRITE_THROUGH == 0x80000000);
static_assert(FILE_FLAG_OVERLAPPED == 0x40000000);
static_assert(FILE_FLAG_NO_BUFFERING == 0x20000000);
static_assert(FILE_FLAG_RANDOM_ACCESS == 0x10000000);
static_assert(FILE_FLAG_SEQUENTIAL_SCAN == 0x8000000);
static_assert(FILE_FLAG_DELETE_ON_CLOSE == 0x4000000);
static_assert(FILE_FLAG_BACKUP_SEMANTICS == 0x2000000);
static_assert(FILE_FLAG_POSIX_SEMANTICS == 0x1000000);

// ---- Positions ---------------------------------------------------------------------------------------------------

static_assert(FILE_BEGIN == 0);
static_assert(FILE_CURRENT == 1);
static_assert(FILE_END == 2);
static_assert(INVALID_FILE_SIZE == 0xFFFFFFFF);
static_assert(INVALID_SET_FILE_POINTER == 0xFFFFFFFF);

// ---- Mappings ----------------------------------------------------------------------------------------------------

static_assert(PAGE_READONLY == 0x2);
static_assert(PAGE_READWRITE == 0x4);
static_assert(PAGE_WRITECOPY == 0x8);
static_assert(FILE_MAP_COPY == 0x1);
static_assert(FILE_MAP_WRITE == 0x2);
static_assert(FILE_MAP_READ == 0x4);

// ---- Errors ------------------------------------------------------------------------------------------------------

static_assert(ERROR_SHARING_VIOLATION == 32);
