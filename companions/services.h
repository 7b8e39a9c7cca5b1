// What is asked of the installed hub before a forward that makes no test of its own.
#pragma once

#include "kest/platform_services.h"

namespace kest::companions
{

inline bool hasFileSystemService()
{
    IPlatformServices* const hub = platformServices();
    return hub != nullptr && hub->fileSystemService() != nullptr;
}

} // namespace kest::companions
