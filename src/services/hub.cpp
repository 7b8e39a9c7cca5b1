#include "kest/platform_services.h"
#include "support/second_name.h"

constinit IPlatformServices* g_platformServices = nullptr;

IPlatformServices* platformServices()
{
    return g_platformServices;
}

void setPlatformServices(IPlatformServices* services)
{
    if (g_platformServices == nullptr)
    {
        g_platformServices = services;
    }
}

KEST_SECOND_NAME(IPlatformServices* plainPlatformServices(), "_Z16platformServicesv", "platformServices");
KEST_SECOND_NAME(void plainSetPlatformServices(IPlatformServices*), "_Z19setPlatformServicesP17IPlatformServices",
                 "setPlatformServices");
