// The layout of the structures: Windows's, with wide characters of four bytes.
#include "kest/crt/file_wrappers.h"

#include <cstddef>

static_assert(sizeof(_wfinddata_t) == 1072);
static_assert(offsetof(_wfinddata_t, attrib) == 0);
static_assert(offsetof(_wfinddata_t, time_access) == 8);
static_assert(offsetof(_wfinddata_t, time_write) == 16);
static_assert(offsetof(_wfinddata_t, size) == 24);
static_assert(offsetof(_wfinddata_t, name) == 32);
