// Forwards beside the same virtual calls made by hand.
#include "families.h"
#include "kest/platform_services.h"
#include "kest/user_interface.h"
#include "pairs.h"

namespace kest::benchmarks
{

void addForwards()
{
    addPair(
        "forwards/GetKeyState (unchecked)", 1.5, "hub, getter, operation", [] { return GetKeyState(65); },
        [] { return g_platformServices->windowService()->GetKeyState(65); });
    addPair(
        "forwards/PostMessageW (checked)", 2.5, "hub, getter, operation", [] { return PostMessageW(nullptr, 1, 2, 3); },
        [] { return g_platformServices->dialogService()->PostMessageW(nullptr, 1, 2, 3); });
}

} // namespace kest::benchmarks
