// SPDX-License-Identifier: MIT
/// The base of the full screens: a view with a backdrop and rollover buttons, three input services,
/// two pointers and four sounds. The backdrop shows every button in its normal look; a rollover
/// button lies over it and is visible only while the pointer is on it.
///
/// In help mode a click on a button only asks what it does; it ends help mode and does nothing
/// else.
#pragma once

#include "activity/guide_face.h"
#include "display/scene.h"
#include "display/view.h"
#include "input/input_services.h"
#include "media/sound.h"
#include "sprites/image.h"

#include <array>
#include <span>

namespace kez {

inline bool helpMode = false; ///< Survives a change of screens.

class ActivityScreen : public Scene {
public:
    ActivityScreen();
    void onEnter() override; ///< Restarts the body and takes what the screen shows and hears with.
    void onLeave() override; ///< Gives it back.

    /// Slot 18: the pointer moved. Lights the button under it.
    virtual void hover(Service& service) = 0;

    void tap() { tapSound_.play(false); }

    [[nodiscard]] std::array<const Image*, 2> pointers() const
    {
        return { &pointer_, &helpPointer_ };
    }

    [[nodiscard]] std::array<Sound*, 4> sounds()
    {
        return { &shutterSound_, &tapSound_, &badSound_, &trashSound_ };
    }

    [[nodiscard]] const GuideFace& face() const { return face_; }

protected:
    /// A rollover button, and the guide's clip that explains it.
    struct Button {
        Image* image;
        int helpClip;
    };

    /// Lights the first button that the pointer is on, and no other.
    void lightButton(std::span<const Button> buttons);

    /// Explains the button that was clicked in help mode. What is no button explains nothing, but
    /// ends help mode as well.
    void explainClicked(std::span<const Button> buttons);

    void enterHelpMode();

    /// The guide introduces the activity if the host asked for it, once in the module's lifetime.
    static void introduceOnce();

    View view_;
    GuideFace face_; ///< On the pictures that the screen names.
    MouseService mouseService_;
    ClickService clickService_;
    KeyService keyService_;
    Image pointer_;
    Image helpPointer_;
    Image* hoveredButton_ = nullptr;
    Sound shutterSound_; ///< A picture was stored.
    Sound tapSound_; ///< A button or cell was clicked, or the screen has changed.
    Sound badSound_; ///< A request cannot be done.
    Sound trashSound_; ///< A picture was removed.

private:
    bool hoverButton(Image& button);
    void leaveHelpMode();
};

void playTap(); ///< The current screen's; for what lies over a screen.

} // namespace kez
