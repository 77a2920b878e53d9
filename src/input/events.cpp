// SPDX-License-Identifier: MIT
#include "input/events.h"

#include "core/service.h"
#include "display/cursor.h"
#include "display/scene.h"
#include "display/view.h"
#include "input/input_services.h"

namespace kez {

namespace {

void clickItemUnderMouse()
{
    pickedItem = pick(mouseX, mouseY);
    if (pickedItem == nullptr)
        return;
    pickedTag = pickedItem->tag;
    pickedIndex = pickedItem->index;
    dispatchToClickServices();
}

} // namespace

void keyEvent(std::uint32_t code, KeyEvent kind)
{
    if (pendingScene() != nullptr)
        return;
    keyCode = code;
    keyDown = kind == KeyEvent::Press;
    keyChar = kind == KeyEvent::Character;
    dispatchToKeyServices();
}

void mouseEvent(int x, int y, MouseEvent kind)
{
    if (pendingScene() != nullptr)
        return;
    cursorPosition = { mouseX, mouseY }; // where the mouse was; drawing reads where it is
    mouseX = x;
    mouseY = y;
    mouseDown = kind == MouseEvent::Press;
    mouseMove = kind == MouseEvent::Move;
    dispatching = true;
    if (mouseDown)
        clickItemUnderMouse();
    if (dispatching)
        dispatchToMouseServices();
}

} // namespace kez
