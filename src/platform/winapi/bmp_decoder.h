// SPDX-License-Identifier: MIT
/// Reads BMP files of every usual kind into one form. What a run-length coded file leaves out has
/// the first colour of its palette; a colour number that the palette does not have is black.
#pragma once

#include "pixel_format.h"

#include <memory>
#include <span>

namespace kez::winapi {

/// A bitmap in memory: 24 bits a pixel (blue, green, red), bottom row first, rows padded to a
/// multiple of four bytes.
struct Bitmap {
    int width = 0;
    int height = 0;
    std::unique_ptr<BYTE[]> bytes;

    [[nodiscard]] int pitch() const { return (width * 3 + 3) / 4 * 4; }

    /// The row, counted from the bottom.
    [[nodiscard]] BYTE* row(int y) const
    {
        return bytes.get() + static_cast<std::ptrdiff_t>(y) * pitch();
    }

    bool allocate(int wide, int high); ///< Black; false when there is no memory.
    [[nodiscard]] PixelView view() const; ///< Top row first; none while there are no bytes.
};

/// NO_ERROR, or why the file cannot be read; the bitmap is then of no use.
[[nodiscard]] DWORD decodeBmp(std::span<const BYTE> file, Bitmap& bitmap);

} // namespace kez::winapi
