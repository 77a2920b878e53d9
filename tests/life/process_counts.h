// SPDX-License-Identifier: MIT
/// What this process holds of the system's, by name: threads, handles, GDI objects and the like.
/// What a library leaves behind makes a number grow.
#pragma once

#include <windows.h>

#include <ddraw.h>

#include <map>
#include <string>

namespace kez::life {

using ProcessCounts = std::map<std::string, long>;

[[nodiscard]] ProcessCounts processCounts();

/// The surfaces made from an object that are alive.
[[nodiscard]] int surfacesOf(IDirectDraw& directDraw);

} // namespace kez::life
