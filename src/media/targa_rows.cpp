// SPDX-License-Identifier: MIT
#include "media/targa_rows.h"

#include <algorithm>

namespace kez {

void mirrorRows(std::span<std::uint8_t> picture, std::size_t rowBytes)
{
    for (std::size_t start = 0; start < picture.size(); start += rowBytes) {
        std::uint8_t* left = &picture[start];
        std::uint8_t* right = left + rowBytes - 3;
        for (; left < right; left += 3, right -= 3)
            std::swap_ranges(left, left + 3, right);
    }
}

void flipRows(std::span<std::uint8_t> picture, std::size_t rowBytes)
{
    std::uint8_t* first = picture.data();
    std::uint8_t* last = first + picture.size() - rowBytes;
    for (; first < last; first += rowBytes, last -= rowBytes)
        std::swap_ranges(first, first + rowBytes, last);
}

void deinterleave(std::span<const std::uint8_t> picture, std::span<std::uint8_t> out,
    std::size_t rowBytes, std::size_t ways)
{
    const std::size_t height = picture.size() / rowBytes;
    std::size_t source = height;
    for (std::size_t way = 0; way < ways; ++way) {
        for (std::size_t place = way; place < height; place += ways)
            std::copy_n(
                &picture[--source * rowBytes], rowBytes, &out[(height - 1 - place) * rowBytes]);
    }
}

} // namespace kez
