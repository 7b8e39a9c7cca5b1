// The values of the constants, as Windows has them.
#include "kest/kernel/modules.h"

// ---- Loading -----------------------------------------------------------------------------------------------------

static_assert(DONT_RESOLVE_DLL_REFERENCES == 0x1);
static_assert(LOAD_LIBRARY_AS_DATAFILE == 0x2);
static_assert(LOAD_WITH_ALTERED_SEARCH_PATH == 0x8);
static_assert(LOAD_IGNORE_CODE_AUTHZ_LEVEL == 0x10);
static_assert(LOAD_LIBRARY_AS_IMAGE_RESOURCE == 0x20);
static_assert(LOAD_LIBRARY_AS_DATAFILE_EXCLUSIVE == 0x40);
static_assert(LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR == 0x100);
static_assert(LOAD_LIBRARY_SEARCH_APPLICATION_DIR == 0x200);
static_assert(LOAD_LIBRARY_SEARCH_USER_DIRS == 0x400);
static_assert(LOAD_LIBRARY_SEARCH_SYSTEM32 == 0x800);
static_assert(LOAD_LIBRARY_SEARCH_DEFAULT_DIRS == 0x1000);

// ---- Handles -----------------------------------------------------------------------------------------------------

static_assert(GET_MODULE_HANDLE_EX_FLAG_PIN == 0x1);
static_assert(GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT == 0x2);
static_assert(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS == 0x4);
