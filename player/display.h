// SPDX-License-Identifier: MIT
/// The DirectDraw objects that the player owns and lends to the module.
#pragma once

#include "com_pointer.h"
#include "picture.h"
#include "speech_bubble.h"

#include <windows.h>

#include <ddraw.h>

#include <optional>
#include <string>

namespace kez::player {

/// Where the picture is to be seen.
enum class DisplayPlace { FullScreen, InWindow, OffScreen };

/// A display of 640 × 480 pixels: a primary surface, which is what a person sees, and a secondary
/// one of the same format, through which every frame goes.
class Display {
public:
    /// When the display cannot be had, the object is false and `problem` says why. When the screen
    /// does not offer the depth, the surfaces are off the screen and `problem` says so.
    Display(HWND window, int bitsPerPixel, DisplayPlace place);

    explicit operator bool() const { return secondary_ != nullptr; }

    [[nodiscard]] const std::string& problem() const { return problem_; }

    [[nodiscard]] IDirectDraw* directDraw() const { return directDraw_.get(); }

    /// What the module draws on: the screen, or the stage below the captions.
    [[nodiscard]] IDirectDrawSurface* primary() const
    {
        return stage_ != nullptr ? stage_.get() : primary_.get();
    }

    [[nodiscard]] IDirectDrawSurface* secondary() const { return secondary_.get(); }

    [[nodiscard]] int bitsPerPixel() const { return bitsPerPixel_; }

    /// From now on the module draws off the screen, and `showStage` brings its picture there.
    bool makeStage(const std::string& artwork); ///< The bubble's, for captions.
    void showStage(const std::string& caption); ///< With a caption over it, unless empty.

    /// Brings a picture of 640 × 480 pixels to the primary surface.
    void show(const Picture& picture);

    /// What the primary surface shows.
    [[nodiscard]] std::optional<Picture> shown() const;

    /// A surface of 640 × 480 pixels and 32 bits, to draw on with a device context; or null.
    [[nodiscard]] ComPointer<IDirectDrawSurface> makePaper() const;

private:
    bool setMode();
    [[nodiscard]] ComPointer<IDirectDrawSurface> makePrimary() const;
    [[nodiscard]] ComPointer<IDirectDrawSurface> makeOffScreen(int bits) const;
    void bringToScreen(IDirectDrawSurface& surface);

    int bitsPerPixel_;
    std::string problem_;
    ComPointer<IDirectDraw> directDraw_;
    ComPointer<IDirectDrawSurface> primary_;
    ComPointer<IDirectDrawSurface> secondary_;
    ComPointer<IDirectDrawSurface> stage_; ///< With captions only, and so are the next.
    ComPointer<IDirectDrawSurface> captioned_;
    std::optional<SpeechBubble> bubble_;
};

} // namespace kez::player
