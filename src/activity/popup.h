// SPDX-License-Identifier: MIT
/// A box that opens over a screen: a picture and rollover buttons. Any click is told to it first;
/// it closes on most of them, so at most one is open. The screen below goes on hearing its input.
#pragma once

#include "activity/guide_face.h"
#include "display/scene.h"
#include "display/view.h"
#include "input/input_services.h"
#include "sprites/image.h"

#include <initializer_list>
#include <vector>

namespace kez {

class Popup : public Actor {
public:
    void enter() override; ///< Opens.
    void leave() override; ///< Closes.
    void serviceFired(Service& service) override;

    [[nodiscard]] bool isOpen() const { return open_; }

    [[nodiscard]] std::vector<Image*> images(); ///< The picture, which shows, and the buttons.

    [[nodiscard]] const GuideFace& face() const { return face_; }

protected:
    explicit Popup(const char* pictureName);

    /// In the order in which they are looked for under the pointer. They stay the caller's.
    void addButtons(std::initializer_list<Image*> buttons);

    virtual void clicked() = 0; ///< `pickedItem` tells what.

    [[nodiscard]] static bool isPicked(const char* name); ///< The clicked object has that name.

    [[nodiscard]] bool isPicturePicked() const;

    View view_;

private:
    void lightButton();
    void hideButtons();

    ClickService clickService_;
    MouseService mouseService_;
    Image picture_;
    GuideFace face_;
    std::vector<Image*> buttons_;
    bool open_ = false;
};

void closePopup(); ///< The open one, if any; for a screen that is left.

} // namespace kez
