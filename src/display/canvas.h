// SPDX-License-Identifier: MIT
/// The canvas: the one surface that everything is drawn into, opened either for its pixels or for a
/// device context. Consecutive items that need the same access share one opening.
///
/// A canvas pixel is 0xAARRGGBB (bytes blue, green, red, alpha), rows top to bottom without gaps.
#pragma once

#include <windows.h>

#include <ddraw.h>

#include <cstdint>
#include <memory>

namespace kez {

class Graphic;

using CanvasPixel = std::uint32_t;

/// The open canvas. `pixels` is null when it is not open for pixels, or could not be opened: what
/// would draw then draws nothing.
struct CanvasPixels {
    CanvasPixel* pixels = nullptr;
    int width = 0; ///< Pixels a row, and pixels from one row to the next.
    int height = 0;
};

/// Makes `surface` the canvas; the stage point (x, y) is its centre. Not opened.
void setTarget(IDirectDrawSurface* surface, int x, int y, int width, int height);

/// Opens the canvas in the current mode (see `pixelMode`). When that fails, or the surface's rows
/// are not exactly `width` pixels apart, it stays closed and `drawItem` draws nothing until the
/// next opening.
void openTarget();
void closeTarget(); ///< Nothing when it is not open.
[[nodiscard]] CanvasPixels targetPixels();
[[nodiscard]] HDC targetDeviceContext(); ///< Null when the canvas is not open for GDI.
[[nodiscard]] IDirectDrawSurface* targetSurface();

/// Draws the item if it is visible, reopening the canvas first if the item needs the other access.
void drawItem(Graphic& item);

inline bool pixelMode = false; ///< The canvas is, or will next be, opened for its pixels.

/// A canvas of the caller's own pixels for the life of the object, already open for pixels: for
/// tests and benchmarks of what draws. Restores the previous target when destroyed.
class MemoryCanvas {
public:
    MemoryCanvas(CanvasPixel* pixels, int width, int height);
    ~MemoryCanvas();
    MemoryCanvas(const MemoryCanvas&) = delete;
    MemoryCanvas& operator=(const MemoryCanvas&) = delete;

private:
    struct Previous;
    std::unique_ptr<Previous> previous_;
};

} // namespace kez
