// SPDX-License-Identifier: MIT
/// What tests see of the display's half of this layer beyond the Win32 names: how much of it is
/// alive. Exists off Windows only.
#pragma once

namespace kez::winapi {

struct LiveObjects {
    int surfaces = 0;
    int deviceContexts = 0;
    int gdiObjects = 0; ///< Without the stock objects.
    int windows = 0;

    friend bool operator==(const LiveObjects&, const LiveObjects&) = default;
};

[[nodiscard]] LiveObjects liveObjects();

} // namespace kez::winapi
