// SPDX-License-Identifier: MIT
/// The guide's face on a screen or a popup, alive: the mouth moves while a clip plays, the eyes
/// blink now and then and look at what is explained. It lies over the view whose pictures have the
/// guide on them, below whatever opens later, and is never in the mouse's way. What it shows
/// depends on the frame's time and on what is said, on nothing else.
#pragma once

#include "activity/face_pictures.h"
#include "display/view.h"

#include <cstdint>
#include <deque>

namespace kez {

class GuideFace : public View {
public:
    GuideFace();

    /// A picture with the guide on it. From back to front; the foremost that is visible counts.
    void addBearer(const Image& bearer);

    void show(); ///< In front of what is shown now. The face begins with open eyes.
    void hide();
    void draw() override;

    [[nodiscard]] const std::deque<FacePictures>& pictures() const { return pictures_; }

private:
    [[nodiscard]] FacePictures* shown();
    [[nodiscard]] bool isForemost();

    std::deque<FacePictures> pictures_;
    std::uint32_t shownAt_ = 0; ///< The frame's time.
};

} // namespace kez
