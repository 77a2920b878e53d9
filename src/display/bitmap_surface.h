// SPDX-License-Identifier: MIT
/// Bitmaps of the host's program, and BMP files, as surfaces.
#pragma once

#include <windows.h>

#include <ddraw.h>

namespace kez {

/// A new off-screen surface of 24 bits with the bitmap of that name: a resource of the host's
/// program, or else a file, whose path follows our rules. A width and height of 0 mean the bitmap's
/// own. `description` may be null; it is filled once the bitmap was loaded. The caller releases the
/// surface. Null (and a diagnostic naming the bitmap) when it cannot be loaded.
[[nodiscard]] IDirectDrawSurface* loadBitmapSurface(
    const char* name, int width, int height, BITMAP* description);

} // namespace kez
