// SPDX-License-Identifier: MIT
/// The save question: asked when the child leaves the camera screen while pictures are unsaved. Any
/// click closes it; one on neither button leaves everything as it is.
#pragma once

#include "activity/popup.h"

namespace kez {

class SaveDialog : public Popup {
public:
    enum class Destination { PhotoBook, Host }; ///< Where the child is going.

    SaveDialog();
    void ask(Destination destination);

private:
    void clicked() override;

    Image yesButton_;
    Image noButton_;
    Destination destination_ = Destination::Host;
};

SaveDialog& saveDialog();

} // namespace kez
