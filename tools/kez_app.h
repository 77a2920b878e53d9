// SPDX-License-Identifier: MIT
/// The command line of kez. Returns the exit status: 0, 1 when something was refused (one line on
/// standard error says what and why), 2 when the command line itself makes no sense.
#pragma once

namespace kez::tools {

int runKez(int argc, const char* const* argv);

} // namespace kez::tools
