// SPDX-License-Identifier: MIT
#include "activity/save_dialog.h"

#include "activity/camera_screen.h"
#include "activity/camera_slots.h"
#include "activity/guide.h"
#include "input/events.h"

namespace kez {

SaveDialog& saveDialog()
{
    static SaveDialog dialog;
    return dialog;
}

SaveDialog::SaveDialog()
    : Popup("savePop")
    , yesButton_("saveYesRoll", false)
    , noButton_("saveNoRoll", false)
{
    addButtons({ &yesButton_, &noButton_ });
}

void SaveDialog::ask(Destination destination)
{
    destination_ = destination;
    sayGuide(clip::saveQuestion);
    enter();
}

void SaveDialog::clicked()
{
    leave();
    if (pickedItem == &noButton_)
        return cameraScreen().goOnTo(destination_);
    if (pickedItem != &yesButton_)
        return;
    requestSave();
    // There was room, and yet a file could not be written: whoever leaves now loses the picture.
    if (unsavedPictures && hasRoomNow)
        return;
    cameraScreen().goOnTo(destination_);
}

} // namespace kez
