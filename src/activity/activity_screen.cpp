// SPDX-License-Identifier: MIT
#include "activity/activity_screen.h"

#include "activity/guide.h"
#include "core/flags.h"
#include "display/cursor.h"
#include "input/events.h"

namespace kez {

namespace {

// The pointer's picture lies right of the mouse's point and below it.
constexpr StagePoint pointerHotSpot { -15, -15 };

} // namespace

ActivityScreen::ActivityScreen()
    : view_(0, 0, 0, 0, 0, false, true)
    , pointer_("cursor", true)
    , helpPointer_("help", true)
    , shutterSound_("shutter")
    , tapSound_("tap")
    , badSound_("bad")
    , trashSound_("trash")
{
    mouseService_.setClient(this);
    clickService_.setClient(this);
    keyService_.setClient(this);
}

void ActivityScreen::onEnter()
{
    restart();
    hoveredButton_ = nullptr;
    tapSound_.attach();
    if (!freshRun) // the first screen of a run starts silently
        tap();
    freshRun = false;

    mouseService_.attach();
    clickService_.attach();
    keyService_.attach();
    view_.attach();
    view_.realize();
    view_.visible = true;
    face_.show();

    pointer_.realize();
    helpPointer_.realize();
    shutterSound_.attach();
    badSound_.attach();
    trashSound_.attach();
    cursorObject = &pointer_;
    hotSpot = pointerHotSpot;
    hover(mouseService_);
}

void ActivityScreen::onLeave()
{
    mouseService_.detach();
    clickService_.detach();
    keyService_.detach();
    face_.hide();
    view_.detach();
    view_.unrealize();
    view_.visible = false;
    pointer_.unrealize();
    helpPointer_.unrealize();
    for (Sound* sound : sounds())
        sound->detach();
}

void ActivityScreen::lightButton(std::span<const Button> buttons)
{
    for (const Button& button : buttons)
        button.image->visible = false;
    hoveredButton_ = nullptr;
    for (const Button& button : buttons)
        if (hoverButton(*button.image))
            return;
}

// Lights the button when the pointer is on it.
bool ActivityScreen::hoverButton(Image& button)
{
    button.visible = button.hitTest(mouseX, mouseY);
    if (button.visible)
        hoveredButton_ = &button;
    return button.visible;
}

void ActivityScreen::explainClicked(std::span<const Button> buttons)
{
    for (const Button& button : buttons)
        if (button.image == pickedItem)
            explain(*button.image, button.helpClip);
    leaveHelpMode();
}

void ActivityScreen::enterHelpMode()
{
    cursorObject = &helpPointer_;
    helpMode = true;
}

// Nothing further hears the click that ended it.
void ActivityScreen::leaveHelpMode()
{
    cursorObject = &pointer_;
    helpMode = false;
    stopDispatch();
}

void ActivityScreen::introduceOnce()
{
    if (!guideIntro || introduced)
        return;
    introduced = true;
    sayGuide(clip::introduction);
}

void playTap()
{
    if (auto* screen = dynamic_cast<ActivityScreen*>(currentScene()))
        screen->tap();
}

} // namespace kez
