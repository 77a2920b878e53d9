// SPDX-License-Identifier: MIT
/// The screen: the host's DirectDraw objects, and how a finished canvas reaches the primary
/// surface. The module creates no host object and releases none. It has a picture surface of its
/// own, which is the canvas, when the host's secondary cannot be: when the display is not 32-bit,
/// or when the rows of a 32-bit secondary are not exactly 640 pixels apart.
#pragma once

#include "core/string.h"
#include "display/display_layout.h"
#include "display/surface_lock.h"

#include <windows.h>

#include <ddraw.h>

namespace kez {

class Screen {
public:
    /// Borrows the host's objects until `detach`. Null surfaces are reported and nothing is shown.
    /// Where the secondary's own pixel format tells another depth, that one counts.
    void attach(IDirectDraw* directDraw, IDirectDrawSurface* primary, IDirectDrawSurface* secondary,
        int bitsPerPixel);
    void present(); ///< Converts the closed canvas if it must and copies it onto the primary.
    void detach(); ///< Releases what the screen created and forgets the host's objects.

    /// After a Lock, GetDC or BltFast: true when the call should be repeated (surfaces that were
    /// lost have been restored). Other failures leave a diagnostic, and so does a surface that is
    /// lost again and again: the caller then goes without it for this frame.
    [[nodiscard]] bool checkResult(HRESULT result);

    [[nodiscard]] IDirectDraw* directDraw() const { return directDraw_; }

    [[nodiscard]] IDirectDrawSurface* primary() const { return primary_; }

    [[nodiscard]] IDirectDrawSurface* secondary() const { return secondary_; }

    [[nodiscard]] IDirectDrawSurface* picture() const { return picture_; }

    [[nodiscard]] int bitsPerPixel() const { return bitsPerPixel_; }

    [[nodiscard]] const DisplayLayout& layout() const { return layout_; }

private:
    void readPixelFormat();
    [[nodiscard]] bool secondaryCanBeCanvas();
    void createPicture();
    void convert();
    void copyToPrimary();

    IDirectDraw* directDraw_ = nullptr;
    IDirectDrawSurface* primary_ = nullptr;
    IDirectDrawSurface* secondary_ = nullptr;
    IDirectDrawSurface* picture_ = nullptr;
    int bitsPerPixel_ = 0;
    int losses_ = 0; ///< Losses reported one after the other.
    DisplayLayout layout_;
};

/// The one screen of the module.
Screen& screen();

/// Locks the surface, trying as often as `checkResult` asks.
[[nodiscard]] SurfaceLock lockSurface(IDirectDrawSurface& surface, DWORD flags);

/// The surface's device context, tried for in the same way. Null when there is none to be had; else
/// the caller gives it back to the surface.
[[nodiscard]] HDC takeDeviceContext(IDirectDrawSurface& surface);

/// Writes "Abort <operation>:" and the text of the result code as a diagnostic.
void abortReport(HRESULT result, const char* operation);

/// The documented description of a DirectDraw result code.
String directDrawErrorText(HRESULT result);

} // namespace kez
