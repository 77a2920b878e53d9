// SPDX-License-Identifier: MIT
/// `kez-player --doctor`: looks at each thing that the activity needs on this computer and says in
/// plain words what is there and what to do about what is not.
#pragma once

#include "options.h"
#include "places.h"

#include <string>
#include <vector>

namespace kez::player {

/// One thing that was looked at. The text says what to do as well, unless it is fine.
struct Finding {
    const char* what;
    bool isFine;
    std::string text;
};

/// The files and folders.
[[nodiscard]] std::vector<Finding> examineFiles(const Options& options, const Places& places);

/// The display, the sound and the camera. A window opens for a moment, unless the options are for a
/// start without one.
[[nodiscard]] std::vector<Finding> examineDevices(const Options& options, const Places& places);

/// A line for each finding, and one that sums up.
[[nodiscard]] std::string reportOn(const std::vector<Finding>& findings);

} // namespace kez::player
