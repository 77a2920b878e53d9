// SPDX-License-Identifier: MIT
/// The two run-length codings of BMP files, bottom row first. A pair of bytes, count and value, is
/// a run of `count` pixels: of the value, or of its two nibbles in turn. After a count of 0 the
/// second byte is a command:
///
///     0         the row ends
///     1         the picture ends
///     2, x, y   x columns to the right, y rows up; what is skipped keeps the first colour
///     n         n pixels follow, a byte or a nibble each, padded to an even number of bytes
///
/// 3 pixels of colour 7, then 1, 2 and 3 each once, as bytes: 03 07 00 03 01 02 03 00 00 01.
#pragma once

#include "bmp_decoder.h"
#include "bmp_header.h"

namespace kez::winapi {

class BmpRuns {
public:
    BmpRuns(const BmpHeader& header, Bitmap& bitmap);

    /// Pixels outside the bitmap are dropped. NO_ERROR also when the file ends without saying so,
    /// once every row is full; ERROR_HANDLE_EOF when it ends earlier.
    [[nodiscard]] DWORD decode();

private:
    [[nodiscard]] bool has(std::size_t count) const { return header_.pixels.size() - at_ >= count; }

    BYTE take() { return header_.pixels[at_++]; }

    void put(unsigned index);
    void run(int count, BYTE value);
    bool literal(int count); ///< False when the file ends in it.
    bool command(BYTE code, bool& isLast); ///< False when the file ends in it.
    [[nodiscard]] bool isFull() const;

    const BmpHeader& header_;
    Bitmap& bitmap_;
    bool areNibbles_;
    std::size_t at_ = 0;
    std::int64_t x_ = 0;
    std::int64_t y_ = 0;
};

} // namespace kez::winapi
