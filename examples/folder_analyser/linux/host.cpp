#include "linux/host.h"

IPlatformServices* makeHost()
{
    return new Host;
}
