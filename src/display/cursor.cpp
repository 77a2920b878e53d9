// SPDX-License-Identifier: MIT
#include "display/cursor.h"

#include "display/graphic.h"
#include "display/stage.h"

#include <windows.h>

namespace kez {

StagePoint updateCursor()
{
    POINT mouse;
    if (GetCursorPos(&mouse) != FALSE)
        cursorPosition = { static_cast<int>(mouse.x) - Stage::width / 2,
            static_cast<int>(mouse.y) - Stage::height / 2 };
    if (cursorObject != nullptr) {
        cursorObject->x = cursorPosition.x - hotSpot.x;
        cursorObject->y = cursorPosition.y - hotSpot.y;
    }
    return cursorPosition;
}

} // namespace kez
