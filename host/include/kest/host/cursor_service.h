/*
 * Kest reference host: the mouse cursor of a program without a display.
 */
#ifndef KEST_HOST_CURSOR_SERVICE_H
#define KEST_HOST_CURSOR_SERVICE_H

#include "kest/platform_services.h"

#include <atomic>

namespace kest
{
namespace host
{

/** No display: the cursor is nowhere. The shape that is set is remembered, so that it can be set back. */
class KEST_API ConsoleCursorService : public ICursorService
{
public:
    /** Always 0, nothing is written: there is no position. */
    BOOL GetCursorPos(POINT* lpPoint) override;
    /** Always 0, the point stays: there is no window. */
    BOOL ScreenToClient(HWND hWnd, POINT* lpPoint) override;
    /** The shape set last; null before. */
    HCURSOR GetCursor() override;
    /** Remembers the shape; returns the one before. */
    HCURSOR SetCursor(HCURSOR hCursor) override;

private:
    std::atomic<HCURSOR> cursor_{nullptr};
};

} // namespace host
} // namespace kest

#endif
