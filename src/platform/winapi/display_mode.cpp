// SPDX-License-Identifier: MIT
#include "display_mode.h"

#include "surface.h"

#include <vector>

namespace kez::winapi {

namespace {

// Never destroyed: static objects of the program may outlive those of this library.
std::vector<PixelFormat>& chosenMasks()
{
    static auto& formats = *new std::vector<PixelFormat>;
    return formats;
}

} // namespace

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

PixelFormat Display::formatOfDepth(DWORD bits)
{
    for (const PixelFormat& format : chosenMasks()) {
        if (format.bits() == bits)
            return format;
    }
    return PixelFormat::ofDepth(bits);
}

void Display::useMasks(const PixelFormat& format)
{
    auto& formats = chosenMasks();
    std::erase_if(formats, [&](const PixelFormat& old) { return old.bits() == format.bits(); });
    formats.push_back(format);
}

void Display::useUsualMasks()
{
    chosenMasks().clear();
}

} // namespace kez::winapi
