// SPDX-License-Identifier: MIT
/// What a command cannot do for its user: one line that names the file (and the line of it) and
/// says what to do. `main` prints it and exits with status 1.
#pragma once

#include <stdexcept>

namespace kez::tools {

struct UserError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

} // namespace kez::tools
