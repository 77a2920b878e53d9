// SPDX-License-Identifier: MIT
/// What a run of the module leaves to its host.
#pragma once

#include "picture.h"

#include <string>

namespace kez::player {

/// What the last run handed back; `picture` is empty when the child chose none.
struct HandedBack {
    std::string name;
    Picture picture;
};

/// Copied out of the module, which keeps it only until the next run.
[[nodiscard]] HandedBack takeHandedBack();

} // namespace kez::player
