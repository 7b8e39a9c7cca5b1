// A module that calls an export; opened late and with deep binding.
#include <kest/kernel.h>

extern "C" __attribute__((visibility("default"))) int enter()
{
    return static_cast<int>(GetACP());
}
