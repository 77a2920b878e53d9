// SPDX-License-Identifier: MIT
/// What a BMP file says of itself, checked. All numbers are little-endian.
///
///     offset  size  contents
///          0  2     "BM"
///         10  u32   where the pixels begin; 0: right behind the palette
///         14  u32   size of the header that begins here; what it is too short for counts as 0:
///                   12: OS/2 1; 16 to 64 but for those below: OS/2 2; 40, 52, 56, 108, 124:
///                   Windows
///     with a header of 12 bytes:
///         18  u16 × 2  width, height (bottom row first)
///         22  u16 × 2  planes, bits a pixel; then the palette, three bytes a colour
///     with the others:
///         18  i32 × 2  width, height (negative: top row first)
///         26  u16 × 2  planes, bits a pixel
///         30  u32      coding: 0 none, 1 runs of bytes, 2 runs of nibbles, 3 and 6 bit fields
///         46  u32      colours in the palette; 0: as many as the bits can tell apart
///         54  u32 × 3  red, green and blue mask; in or behind the header, for bit fields only
///     then the palette, four bytes a colour: blue, green, red, 0
#pragma once

#include "pixel_format.h"

#include <array>
#include <span>

namespace kez::winapi {

/// More pixels than this are refused: they would take 300 MB.
constexpr std::int64_t mostBmpPixels = 100'000'000;

enum class BmpCoding { None, ByteRuns, NibbleRuns, BitFields };

struct BmpHeader {
    int width = 0; ///< From 1 on, as the height.
    int height = 0;
    bool topRowFirst = false;
    int bits = 0; ///< 1, 4, 8, 16, 24 or 32.
    BmpCoding coding = BmpCoding::None;
    std::array<DWORD, 3> masks {}; ///< Red, green and blue, where there is no palette.
    std::array<Colour, 256> palette {}; ///< Black where the file has no colour.
    std::span<const BYTE> pixels; ///< Of the file, up to its end.

    /// NO_ERROR, or why the file cannot be read.
    DWORD parse(std::span<const BYTE> file);

    /// Bytes from one row to the next, where rows are not coded as runs.
    [[nodiscard]] std::size_t pitch() const
    {
        return (static_cast<std::size_t>(width) * static_cast<std::size_t>(bits) + 31) / 32 * 4;
    }

private:
    DWORD parseSize(std::span<const BYTE> file, DWORD headerSize);
    DWORD parseCoding(std::span<const BYTE> file, DWORD headerSize);
    void chooseMasks(std::span<const BYTE> file);
    void readPalette(std::span<const BYTE> colours, DWORD count, std::size_t colourBytes);
};

} // namespace kez::winapi
