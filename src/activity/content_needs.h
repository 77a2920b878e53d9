// SPDX-License-Identifier: MIT
/// What the activity asks of its content, as the screens, the popups and the guide themselves name
/// and place it: for tools that see whether an artist's pictures and sounds will do.
#pragma once

#include "display/graphic.h"

#include <string>
#include <vector>

namespace kez {

/// A screen or a popup.
struct ScreenNeeds {
    std::string title; ///< As a person calls it, "the camera screen".
    std::string ground; ///< The picture that everything else lies on.
    bool fillsScreen = false; ///< The ground is a whole screen, and thumbnails are painted into it.
    std::vector<std::string> buttons; ///< Each as it looks while the pointer is on it.

    /// What the program puts onto the ground, with what it is ("the cell", "the name").
    struct Place {
        std::string title;
        Placement at;
    };

    std::vector<Place> places;
};

/// A picture with the guide on it, and those that make its face move. Content may lack them.
struct FaceNeeds {
    std::string bearer;
    std::vector<std::string> parts;
};

struct ContentNeeds {
    std::vector<ScreenNeeds> screens;
    std::vector<FaceNeeds> faces;
    std::vector<std::string> pointers;
    std::vector<std::string> sounds; ///< Of the screens.
    std::vector<std::string> clips; ///< Of the guide: those that are asked for.
};

[[nodiscard]] ContentNeeds contentNeeds();

} // namespace kez
