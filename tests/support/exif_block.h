// SPDX-License-Identifier: MIT
/// What a camera writes into a photograph to say which side is up.
#pragma once

#include <cstdint>
#include <vector>

namespace kez::test {

/// An EXIF block (a TIFF file in small) with an orientation, in either byte order.
inline std::vector<std::uint8_t> exifBlock(int orientation, bool bigEndian = false)
{
    std::vector<std::uint8_t> block(2, bigEndian ? 'M' : 'I');
    const auto number = [&block, bigEndian](int count, unsigned value) {
        for (int i = 0; i < count; ++i)
            block.push_back(
                static_cast<std::uint8_t>(value >> 8 * (bigEndian ? count - 1 - i : i)));
    };
    number(2, 42);
    number(4, 8); // the directory follows at once
    number(2, 2);
    number(2, 0x010F); // the maker: a short text in the entry itself
    number(2, 2);
    number(4, 2);
    number(4, 0);
    number(2, 0x0112);
    number(2, 3);
    number(4, 1);
    number(2, static_cast<unsigned>(orientation));
    number(2, 0);
    number(4, 0); // no further directory
    return block;
}

} // namespace kez::test
