// SPDX-License-Identifier: MIT
/// What the driver tells the debugger output: which file it could not use, and why.
#pragma once

#include <string_view>

namespace kez::driver {

void tell(
    std::string_view file, std::string_view problem); ///< "camera: FILE PROBLEM; it is skipped"

} // namespace kez::driver
