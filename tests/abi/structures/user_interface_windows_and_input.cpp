// The layout of the structures: Windows's, with wide characters of four bytes.
#include "kest/user_interface/windows_and_input.h"

#include <cstddef>

static_assert(sizeof(MSG) == 48);
static_assert(offsetof(MSG, hwnd) == 0);
static_assert(offsetof(MSG, message) == 8);
static_assert(offsetof(MSG, wParam) == 16);
static_assert(offsetof(MSG, lParam) == 24);
static_assert(offsetof(MSG, time) == 32);
static_assert(offsetof(MSG, pt) == 36);
