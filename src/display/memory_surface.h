// SPDX-License-Identifier: MIT
/// Surfaces of our own, beside those of the host.
#pragma once

#include <windows.h>

#include <ddraw.h>

namespace kez {

/// A new surface in the system's memory, of 24 bits a pixel or of 32, which then hold opacity in
/// their top byte. The caller releases it. Null (and a diagnostic) when it cannot be made.
[[nodiscard]] IDirectDrawSurface* createMemorySurface(
    IDirectDraw& directDraw, int width, int height, int bitsPerPixel);

} // namespace kez
