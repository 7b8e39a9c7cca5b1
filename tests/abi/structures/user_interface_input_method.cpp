// The layout of the structures: Windows's, with wide characters of four bytes.
#include "kest/user_interface/input_method.h"

#include <cstddef>

static_assert(sizeof(COMPOSITIONFORM) == 28);
static_assert(offsetof(COMPOSITIONFORM, dwStyle) == 0);
static_assert(offsetof(COMPOSITIONFORM, ptCurrentPos) == 4);
static_assert(offsetof(COMPOSITIONFORM, rcArea) == 12);

static_assert(sizeof(CANDIDATEFORM) == 32);
static_assert(offsetof(CANDIDATEFORM, dwIndex) == 0);
static_assert(offsetof(CANDIDATEFORM, dwStyle) == 4);
static_assert(offsetof(CANDIDATEFORM, ptCurrentPos) == 8);
static_assert(offsetof(CANDIDATEFORM, rcArea) == 16);
