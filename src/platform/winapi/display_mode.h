// SPDX-License-Identifier: MIT
/// The one display: its mode, and the surface that it shows.
#pragma once

#include "pixel_format.h"

namespace kez::winapi {

class Surface;

struct DisplayMode {
    int width = 640;
    int height = 480;
    PixelFormat format = PixelFormat::ofDepth(32);

    friend bool operator==(const DisplayMode&, const DisplayMode&) = default;
};

struct Display {
    DisplayMode mode;
    Surface* primary = nullptr; ///< Borrowed; it leaves by itself when it is destroyed.

    void setMode(const DisplayMode& wanted); ///< Another mode loses the primary surface.
};

Display& display();

} // namespace kez::winapi
