/* The same names, values and layouts, compiled for 64-bit Windows with another maker's headers. Literals there may have
   another signedness, so that the low 32 bits are compared. */
#include "value_headers.h"

#define KEST_CONSTANT(name, value)                                                                                     \
    _Static_assert((unsigned int)(long long)(name) == (unsigned int)(value), #name " has another value");
#define KEST_LATE_CONSTANT(name, value)
#include "constants.inc"

#define KEST_SIZE(type, size) _Static_assert(sizeof(type) == (size), #type " has another size");
#define KEST_FIELD(type, field, place)                                                                                 \
    _Static_assert(offsetof(type, field) == (place), #type "." #field " has another place");
#include "layouts.inc"
