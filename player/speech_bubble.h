// SPDX-License-Identifier: MIT
/// The bubble in which captions stand, with the guide beside it, over the top of a picture.
#pragma once

#include "picture.h"

#include <windows.h>

#include <ddraw.h>

#include <string>

namespace kez::player {

class SpeechBubble {
public:
    /// Reads the bubble's artwork from the directory; without it the bubble is a plain strip.
    explicit SpeechBubble(const std::string& artwork);

    void draw(IDirectDrawSurface& surface, const std::string& text) const;

private:
    Picture artwork_;
};

} // namespace kez::player
