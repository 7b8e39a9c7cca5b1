// Forwards to the window service, in the order of its operations.
#include "kest/user_interface/windows_and_input.h"
#include "support/forwarding.h"
#include "support/second_name.h"

using kest::forward;
using kest::forwardChecked;

namespace
{
constexpr auto service = &IPlatformServices::windowService;
}

SHORT GetKeyState(int nVirtKey)
{
    return forward(service, &IWindowService::GetKeyState, nVirtKey);
}

SHORT GetAsyncKeyState(int nVirtKey)
{
    return forward(service, &IWindowService::GetKeyState, nVirtKey);
}

HWND FindWindowW(const wchar_t* lpClassName, const wchar_t* lpWindowName)
{
    return forwardChecked(nullptr, service, &IWindowService::FindWindowW, lpClassName, lpWindowName);
}

KEST_SECOND_NAME(SHORT encodedGetKeyState(int), "GetKeyState", "_Z11GetKeyStatei");
KEST_SECOND_NAME(SHORT encodedGetAsyncKeyState(int), "GetAsyncKeyState", "_Z16GetAsyncKeyStatei");
