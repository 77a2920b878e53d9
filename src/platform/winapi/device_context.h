// SPDX-License-Identifier: MIT
/// What drawing with GDI needs: where it goes, with which font, colours and origin.
#pragma once

#include "gdi_objects.h"

namespace kez::winapi {

class Surface;

struct DeviceContext {
    enum class Kind { Memory, Window, Surface };

    explicit DeviceContext(Kind kindOf, Surface* drawnOn = nullptr);
    ~DeviceContext(); ///< Lets go of what is selected.
    DeviceContext(const DeviceContext&) = delete;
    DeviceContext& operator=(const DeviceContext&) = delete;

    Kind kind;
    Surface* surface; ///< Of a surface's context.
    GdiObject* font;
    GdiObject* brush;
    GdiObject* bitmap; ///< Of a memory context; has no pixels until the program selects one.
    COLORREF textColour = 0;
    COLORREF backColour = 0xFFFFFF;
    int backMode; ///< OPAQUE or TRANSPARENT.
    POINT origin { 0, 0 };
    bool drawn = false; ///< Something has been drawn on the window.

    /// The pixels to draw on: the surface's, the primary's for a window, the bitmap's for memory.
    [[nodiscard]] PixelView target();

    /// Puts the object in the place of the one that was selected, which is returned. Null: a bitmap
    /// that another context has, or for a context that is not of memory.
    GdiObject* select(GdiObject& object);

    [[nodiscard]] Font& textFont() { return std::get<Font>(font->what); }
};

HandleTable<DeviceContext, HDC>& contexts();
[[nodiscard]] HDC openSurfaceContext(Surface& surface);
void closeContext(HDC context);

/// Paints the part of `area`, in device pixels, that is on the target.
void fillPixels(DeviceContext& context, RECT area, Colour colour);

[[nodiscard]] RECT intersection(const RECT& a, const RECT& b);

} // namespace kez::winapi
