// SPDX-License-Identifier: MIT
#include "display_mode.h"

#include "surface.h"

namespace kez::winapi {

Display& display()
{
    static auto& only = *new Display;
    return only;
}

void Display::setMode(const DisplayMode& wanted)
{
    if (wanted == mode)
        return;
    mode = wanted;
    if (primary != nullptr)
        primary->lose();
}

} // namespace kez::winapi
