// SPDX-License-Identifier: MIT
// The mouse of a visit is where the visit put it. What the system tells of its own one comes when
// it likes, and would put the mouse back to where it was before.
#include "support/windows/imported.h"

namespace {

POINT mouse = {};

BOOL WINAPI putMouse(int x, int y)
{
    mouse = { x, y };
    return TRUE;
}

BOOL WINAPI tellMouse(POINT* where)
{
    *where = mouse;
    return TRUE;
}

// Left out: moves to where the visit's mouse is not. The window lies at the screen's corner.
LRESULT WINAPI dispatchOwn(const MSG* message)
{
    static auto* const dispatch
        = kez::winapi::systemFunction<LRESULT WINAPI(const MSG*)>("user32.dll", "DispatchMessageA");
    if (message->message == WM_MOUSEMOVE && message->lParam != MAKELPARAM(mouse.x, mouse.y))
        return 0;
    return dispatch(message);
}

KEZ_IN_PLACE_OF("SetCursorPos@8", putMouse);
KEZ_IN_PLACE_OF("GetCursorPos@4", tellMouse);
KEZ_IN_PLACE_OF("DispatchMessageA@4", dispatchOwn);

} // namespace
