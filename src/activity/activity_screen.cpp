// SPDX-License-Identifier: MIT
#include "activity/activity_screen.h"

#include "activity/guide.h"
#include "activity/picture_export.h"
#include "activity/picture_import.h"
#include "activity/stored_pictures.h"
#include "core/flags.h"
#include "display/cursor.h"
#include "input/events.h"

#include <utility>

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
    grid_.setClient(this);
}

void ActivityScreen::create()
{
    for (Image* image : images())
        view_.add(*image);
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
    view_.open();
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
    view_.close();
    pointer_.unrealize();
    helpPointer_.unrealize();
    for (Sound* sound : sounds())
        sound->detach();
}

void ActivityScreen::serviceFired(Service& service)
{
    if (&service == &clickService_) {
        if (helpMode)
            explainClicked();
    } else if (&service == &keyService_) {
        if (keyChar)
            keyTyped(keyCode);
    } else if (&service == &mouseService_) {
        if (mouseMove)
            hover(service);
        else if (mouseDown)
            buttonPressed();
    } else if (&service == &grid_) {
        gridClicked();
    }
}

void ActivityScreen::keyTyped(std::uint32_t /*key*/) { }

// No more than one button is lit: the first that the pointer is on.
void ActivityScreen::hover(Service& /*service*/)
{
    for (const Button& button : buttons_)
        button.image->visible = false;
    hoveredButton_ = nullptr;
    for (const Button& button : buttons_) {
        if (!button.image->hitTest(mouseX, mouseY))
            continue;
        button.image->visible = true;
        hoveredButton_ = button.image;
        return;
    }
}

// What is no button explains nothing, but ends help mode as well.
void ActivityScreen::explainClicked()
{
    for (const Button& button : buttons_)
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

void ActivityScreen::tellOfFiles()
{
    if (std::exchange(importDone, false))
        sayGuide(importClip());
    // A picture that could not be stored may be lost, which weighs more than a file well written:
    // until another one has been stored, the guide goes on warning.
    if (std::exchange(exportDone, false))
        sayGuide(importFailed ? clip::notStored : clip::exported);
}

// What the guide says of the last import.
int ActivityScreen::importClip()
{
    if (importFailed)
        return clip::notStored;
    return importUnreadable ? clip::unreadable : showImported();
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
