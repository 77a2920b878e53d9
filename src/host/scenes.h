// SPDX-License-Identifier: MIT
/// Which screen an activity starts with.
#pragma once

#include "display/scene.h"
#include "host/kez.h"

namespace kez {

/// The camera screen for `Kez::camera`, the photo book for every other value.
[[nodiscard]] Scene& sceneFor(Kez::Module module);

} // namespace kez
