// SPDX-License-Identifier: MIT
/// Pictures into and out of DirectDraw surfaces of any true-colour format.
#pragma once

#include "picture.h"

#include <windows.h>

#include <ddraw.h>

#include <optional>

namespace kez::player {

/// What the surface shows, opaque. Empty when it cannot be locked.
[[nodiscard]] std::optional<Picture> readSurface(IDirectDrawSurface& surface);

/// Puts the picture into the surface's top left corner, cut off at its sides; opacity is ignored.
bool writeSurface(IDirectDrawSurface& surface, const Picture& picture);

} // namespace kez::player
