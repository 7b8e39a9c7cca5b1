/*
 * Kest reference host: windows and the keyboard of a program without a display.
 */
#ifndef KEST_HOST_WINDOW_SERVICE_H
#define KEST_HOST_WINDOW_SERVICE_H

#include "kest/platform_services.h"

namespace kest
{
namespace host
{

/** No display: no key is down, no window is found. */
class KEST_API ConsoleWindowService : public IWindowService
{
public:
    /** Always 0: up, and not toggled. */
    SHORT GetKeyState(int nVirtKey) override;
    /** Always null. */
    HWND FindWindowW(const wchar_t* lpClassName, const wchar_t* lpWindowName) override;
};

} // namespace host
} // namespace kest

#endif
