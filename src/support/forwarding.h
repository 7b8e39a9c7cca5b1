// The ways in which an exported function reaches an operation of the host's services.
#pragma once

#include "kest/platform_services.h"

#include <utility>

namespace kest
{

// Unchecked: the hub and the service must be there.
template <class Service, class Result, class... Parameters, class... Arguments>
Result forward(Service* (IPlatformServices::*getter)(), Result (Service::*operation)(Parameters...),
               Arguments&&... arguments)
{
    return ((g_platformServices->*getter)()->*operation)(std::forward<Arguments>(arguments)...);
}

// The hub hands out the service.
template <class Service>
bool hasService(Service* (IPlatformServices::*getter)())
{
    IPlatformServices* const hub = g_platformServices;
    return hub != nullptr && (hub->*getter)() != nullptr;
}

// Checked: answers `missing` without hub or service. The getter is called once to test and once to
// call; hosts count on seeing both.
template <class Answer, class Service, class Result, class... Parameters, class... Arguments>
Result forwardChecked(Answer missing, Service* (IPlatformServices::*getter)(),
                      Result (Service::*operation)(Parameters...), Arguments&&... arguments)
{
    if (!hasService(getter))
    {
        return static_cast<Result>(missing);
    }
    return forward(getter, operation, std::forward<Arguments>(arguments)...);
}

// Checked, with one getter call: the service that was tested is the one that is called.
template <class Answer, class Service, class Result, class... Parameters, class... Arguments>
Result forwardCheckedOnce(Answer missing, Service* (IPlatformServices::*getter)(),
                          Result (Service::*operation)(Parameters...), Arguments&&... arguments)
{
    IPlatformServices* const hub = g_platformServices;
    Service* const service = hub == nullptr ? nullptr : (hub->*getter)();
    if (service == nullptr)
    {
        return static_cast<Result>(missing);
    }
    return (service->*operation)(std::forward<Arguments>(arguments)...);
}

} // namespace kest
