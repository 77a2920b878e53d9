// SPDX-License-Identifier: MIT
/// What is asked of our own times, as ratios within one run.
#pragma once

#include <string>

namespace kez::bench {

/// The benchmark "<name>/kez" is to take at most `ratio` times what "<name>/<peer>" takes. Names of
/// cases that do not exist are reported.
void addGoal(const std::string& name, const std::string& peer, double ratio);

/// The same in microseconds, whatever the peers take.
void addTimeGoal(const std::string& name, double microseconds);

} // namespace kez::bench
