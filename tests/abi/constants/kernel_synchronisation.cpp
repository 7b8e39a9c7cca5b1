// The values of the constants, as Windows has them.
#include "kest/kernel/synchronisation.h"

// ---- Waiting -----------------------------------------------------------------------------------------------------

static_assert(INFINITE == 0xFFFFFFFF);
static_assert(WAIT_OBJECT_0 == 0);
static_assert(WAIT_ABANDONED == 0x80);
static_assert(WAIT_ABANDONED_0 == 0x80);
static_assert(WAIT_TIMEOUT == 258);
static_assert(WAIT_FAILED == 0xFFFFFFFF);
static_assert(MAXIMUM_WAIT_OBJECTS == 64);

// ---- Threads -----------------------------------------------------------------------------------------------------

static_assert(CREATE_SUSPENDED == 0x4);
static_assert(STACK_SIZE_PARAM_IS_A_RESERVATION == 0x10000);
static_assert(THREAD_PRIORITY_IDLE == -15);
static_assert(THREAD_PRIORITY_LOWEST == -2);
static_assert(THREAD_PRIORITY_BELOW_NORMAL == -1);
static_assert(THREAD_PRIORITY_NORMAL == 0);
static_assert(THREAD_PRIORITY_ABOVE_NORMAL == 1);
static_assert(THREAD_PRIORITY_HIGHEST == 2);
static_assert(THREAD_PRIORITY_TIME_CRITICAL == 15);

// ---- Watching directories ----------------------------------------------------------------------------------------

static_assert(FILE_NOTIFY_CHANGE_FILE_NAME == 0x1);
static_assert(FILE_NOTIFY_CHANGE_DIR_NAME == 0x2);
static_assert(FILE_NOTIFY_CHANGE_ATTRIBUTES == 0x4);
static_assert(FILE_NOTIFY_CHANGE_SIZE == 0x8);
static_assert(FILE_NOTIFY_CHANGE_LAST_WRITE == 0x10);
static_assert(FILE_NOTIFY_CHANGE_SECURITY == 0x100);
