// The layout of the structures: Windows's, with wide characters of four bytes.
#include "kest/user_interface/text_shaping.h"

#include <cstddef>

static_assert(sizeof(SCRIPT_CONTROL) == 4);

static_assert(sizeof(SCRIPT_STATE) == 2);

static_assert(sizeof(SCRIPT_ANALYSIS) == 4);
static_assert(offsetof(SCRIPT_ANALYSIS, s) == 2);

static_assert(sizeof(SCRIPT_ITEM) == 8);
static_assert(offsetof(SCRIPT_ITEM, iCharPos) == 0);
static_assert(offsetof(SCRIPT_ITEM, a) == 4);

static_assert(sizeof(SCRIPT_LOGATTR) == 1);

static_assert(sizeof(SCRIPT_PROPERTIES) == 8);

static_assert(sizeof(SCRIPT_TABDEF) == 24);
static_assert(offsetof(SCRIPT_TABDEF, cTabStops) == 0);
static_assert(offsetof(SCRIPT_TABDEF, iScale) == 4);
static_assert(offsetof(SCRIPT_TABDEF, pTabStops) == 8);
static_assert(offsetof(SCRIPT_TABDEF, iTabOrigin) == 16);
