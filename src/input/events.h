// SPDX-License-Identifier: MIT
/// The records of the latest key and mouse event, overwritten by the next one; clients read them in
/// their `serviceFired`. A key release has neither key flag set, a button release neither mouse
/// flag.
#pragma once

#include <cstdint>

namespace kez {

class Graphic;

inline std::uint32_t keyCode = 0; ///< Virtual-key code; for a character its code.
inline bool keyDown = false;
inline bool keyChar = false;

inline int mouseX = 0; ///< Stage coordinates.
inline int mouseY = 0;
inline bool mouseDown = false;
inline bool mouseMove = false;
inline Graphic* pickedItem = nullptr; ///< After a press: the topmost item under the mouse, or null.
inline const char* pickedTag = nullptr; ///< The picked item's tag.
inline int pickedIndex = 0; ///< The picked item's index.

enum class KeyEvent { Press, Release, Character };
enum class MouseEvent { Move, Press, Release };

/// Fill the record and dispatch to the services. Dropped while a scene switch is pending.
void keyEvent(std::uint32_t code, KeyEvent kind);
void mouseEvent(int x, int y, MouseEvent kind);

} // namespace kez
