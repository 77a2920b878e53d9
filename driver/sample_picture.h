// SPDX-License-Identifier: MIT
/// What a new camera's places hold: the maker's sample, a sunny landscape.
#pragma once

#include "picture.h"

namespace kez::driver {

[[nodiscard]] Picture samplePicture();

} // namespace kez::driver
