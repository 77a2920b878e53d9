// SPDX-License-Identifier: MIT
/// The base of the full screens: a view with a backdrop and rollover buttons, a grid of thumbnails,
/// three input services, two pointers and four sounds. The backdrop shows every button in its
/// normal look; a rollover button lies over it and is visible only while the pointer is on it.
///
/// In help mode a click on a button only asks what it does; it ends help mode and does nothing
/// else.
#pragma once

#include "activity/guide_face.h"
#include "activity/thumbnail_grid.h"
#include "display/scene.h"
#include "display/view.h"
#include "input/input_services.h"
#include "media/sound.h"
#include "sprites/image.h"

#include <array>
#include <cstdint>
#include <vector>

namespace kez {

inline bool helpMode = false; ///< Survives a change of screens.

class ActivityScreen : public Scene {
public:
    ActivityScreen();
    void serviceFired(Service& service) override; ///< Tells the screen what its input means.
    void create() override; ///< Puts the images into the view.
    void onEnter() override; ///< Restarts the body and takes what the screen shows and hears with.
    void onLeave() override; ///< Gives it back.

    /// Slot 18: the pointer moved. Lights the button under it.
    virtual void hover(Service& service);

    /// What lies in its view, in the order in which it is added; the backdrop shows.
    [[nodiscard]] virtual std::vector<Image*> images() = 0;

    void tap() { tapSound_.play(false); }

    [[nodiscard]] ThumbnailGrid& grid() { return grid_; }

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

    virtual void buttonPressed() = 0; ///< A press of the mouse; `hoveredButton_` tells where.
    virtual void gridClicked() = 0;
    virtual void keyTyped(std::uint32_t key); ///< A character's code; nothing unless overridden.

    /// A picture was imported: shows it. Returns the clip that tells the child so.
    virtual int showImported() = 0;

    void enterHelpMode();

    /// What came of an import or an export that has ended since the last call: a step of the body.
    void tellOfFiles();

    /// The guide introduces the activity if the host asked for it, once in the module's lifetime.
    static void introduceOnce();

    View view_;
    ThumbnailGrid grid_;
    std::vector<Button> buttons_; ///< In the order in which they are looked at.
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
    void explainClicked();
    void leaveHelpMode();
    int importClip();
};

void playTap(); ///< The current screen's; for what lies over a screen.

} // namespace kez
