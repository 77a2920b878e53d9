// SPDX-License-Identifier: MIT
/// The one camera behind the C interface.
#pragma once

#include "serial_camera.h"

namespace kez::driver {

[[nodiscard]] SerialCamera& theCamera();

} // namespace kez::driver
