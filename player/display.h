// SPDX-License-Identifier: MIT
/// The DirectDraw objects that the player owns and lends to the module.
#pragma once

#include "picture.h"

#include <windows.h>

#include <ddraw.h>

#include <memory>
#include <optional>
#include <string>

namespace kez::player {

/// Releases a COM object when its owner goes.
struct ComRelease {
    void operator()(IUnknown* object) const { object->Release(); }
};

template <class Interface>
using ComPointer = std::unique_ptr<Interface, ComRelease>;

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

    [[nodiscard]] IDirectDrawSurface* primary() const { return primary_.get(); }

    [[nodiscard]] IDirectDrawSurface* secondary() const { return secondary_.get(); }

    [[nodiscard]] int bitsPerPixel() const { return bitsPerPixel_; }

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

    int bitsPerPixel_;
    std::string problem_;
    ComPointer<IDirectDraw> directDraw_;
    ComPointer<IDirectDrawSurface> primary_;
    ComPointer<IDirectDrawSurface> secondary_;
};

} // namespace kez::player
