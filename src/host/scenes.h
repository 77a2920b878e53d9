// SPDX-License-Identifier: MIT
/// Which screen an activity starts with.
#pragma once

#include "display/scene.h"
#include "host/kez.h"

namespace kez {

/// The camera screen, whatever the module: this version has no other screen to start with. A host
/// that asks for the photo book gets it too.
[[nodiscard]] Scene& sceneFor(Kez::Module module);

} // namespace kez
