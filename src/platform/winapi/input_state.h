// SPDX-License-Identifier: MIT
/// Where the mouse is, which keys are down, who has the focus, what the pointer looks like.
#pragma once

#include "winuser.h"

#include <array>

namespace kez::winapi {

struct InputState {
    POINT cursor { 0, 0 }; ///< In window pixels.
    std::array<bool, 256> down {}; ///< Keys that are down now.
    std::array<bool, 256> seenDown {}; ///< Keys that are down as far as messages were taken.
    std::array<bool, 256> pressed {}; ///< Pressed since GetAsyncKeyState was last asked.
    HWND focus = nullptr;
    bool active = false;
    HCURSOR shape = LoadCursorA(nullptr, IDC_ARROW);
    int showCount = 0;

    [[nodiscard]] bool cursorShown() const { return shape != nullptr && showCount >= 0; }
};

InputState& inputState();

/// A key or button message has been taken from the queue.
void seeKey(UINT message, WPARAM key);

} // namespace kez::winapi
