// SPDX-License-Identifier: MIT
/// Where a picture lies in a window of any size: as large as fits with its shape kept, in the
/// middle; and which pixel of the picture a point of the window is on.
#pragma once

#include "windef.h"

namespace kez::winapi {

struct Fit {
    SIZE picture; ///< Its own size.
    RECT place; ///< In the window; at least one pixel.

    /// All sides positive.
    static Fit of(SIZE window, SIZE picture);

    [[nodiscard]] bool isWhole() const; ///< Every pixel becomes a square of the same whole size.
    [[nodiscard]] POINT toPicture(POINT window) const; ///< Points beside it: the nearest pixel.
    [[nodiscard]] POINT toWindow(POINT picture) const; ///< About the middle of the pixel.
};

} // namespace kez::winapi
