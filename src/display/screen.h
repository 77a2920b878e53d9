// SPDX-License-Identifier: MIT
/// The screen: the host's DirectDraw objects, and how a finished canvas reaches the primary
/// surface. The module creates no host object and releases none; its own picture surface exists
/// only when the display is not 32-bit.
#pragma once

#include "core/string.h"

#include <windows.h>

#include <ddraw.h>

#include <cstdint>

namespace kez {

enum class DisplayFormat { rgb565, rgb555, rgbOther };

/// One colour channel of a 16-bit display.
struct ChannelMask {
    std::uint32_t mask = 0;
    int topBit = 0; ///< Highest set bit, 15 downward.
    int width = 0; ///< Contiguous set bits from there down.
};

/// The layout of a 16-bit display, from its colour masks.
struct DisplayLayout {
    DisplayFormat format = DisplayFormat::rgb565;
    ChannelMask red, green, blue;

    static DisplayLayout fromMasks(
        std::uint32_t redMask, std::uint32_t greenMask, std::uint32_t blueMask);
};

class Screen {
public:
    void attach(IDirectDraw* directDraw, IDirectDrawSurface* primary, IDirectDrawSurface* secondary,
        int bitsPerPixel);
    void present(); ///< Converts the closed canvas if it must and copies it onto the primary.
    void detach(); ///< Releases what the screen created.

    /// After a Lock, GetDC or BltFast: true when the call should be repeated (surfaces that were
    /// lost have been restored). Other failures leave a diagnostic.
    [[nodiscard]] bool checkResult(HRESULT result);

    /// A new system-memory surface holding a bitmap: a resource of the host program of that name,
    /// else a file. A size of 0 × 0 keeps the bitmap's own. The caller releases it. Null on
    /// failure.
    IDirectDrawSurface* loadBitmapSurface(
        const char* name, int width, int height, BITMAP* description);

    [[nodiscard]] IDirectDraw* directDraw() const { return directDraw_; }

    [[nodiscard]] IDirectDrawSurface* primary() const { return primary_; }

    [[nodiscard]] IDirectDrawSurface* secondary() const { return secondary_; }

    [[nodiscard]] IDirectDrawSurface* picture() const { return picture_; }

    [[nodiscard]] int bitsPerPixel() const { return bitsPerPixel_; }

    [[nodiscard]] const DisplayLayout& layout() const { return layout_; }

private:
    void detectLayout();
    void createPicture();
    void convert();

    IDirectDraw* directDraw_ = nullptr;
    IDirectDrawSurface* primary_ = nullptr;
    IDirectDrawSurface* secondary_ = nullptr;
    IDirectDrawSurface* picture_ = nullptr;
    int bitsPerPixel_ = 0;
    DisplayLayout layout_;
};

/// The one screen of the module.
Screen& screen();

/// Writes "Abort <operation>:" and the text of the result code as a diagnostic.
void abortReport(HRESULT result, const char* operation);

/// The documented description of a DirectDraw result code.
String directDrawErrorText(HRESULT result);

} // namespace kez
