// Needs a header of the library and the library itself at run time.
#include <kest/platform_services.h>

#include <cstdio>

int main()
{
    const bool uninstalled = platformServices() == nullptr;
    std::puts(uninstalled ? "no hub" : "a hub");
    return uninstalled ? 0 : 1;
}
