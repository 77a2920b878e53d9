// SPDX-License-Identifier: MIT
/// The software cursor: a graphic object that the current screen chooses and that follows the
/// mouse, drawn after everything else.
#pragma once

namespace kez {

class Graphic;

struct StagePoint {
    int x = 0;
    int y = 0;
};

inline StagePoint cursorPosition; ///< The mouse in stage coordinates.
inline Graphic* cursorObject = nullptr; ///< Drawn as the cursor; borrowed, null for none.
inline StagePoint hotSpot; ///< Subtracted from the mouse's position to place the object.

/// Reads the system cursor into `cursorPosition` and moves the object there.
StagePoint updateCursor();

} // namespace kez
