// SPDX-License-Identifier: MIT
#include "enlarge.h"

#include <algorithm>

namespace kez::driver {

namespace {

// The neighbour on the side on which the new row or column lies in its pixel.
constexpr int nearest(int position, int count)
{
    return std::clamp(position / 2 + (position % 2 == 0 ? -1 : 1), 0, count - 1);
}

} // namespace

void enlarge(std::span<const std::uint8_t, MVI_PICTURE_BYTES> picture,
    std::span<std::uint8_t, MVI_ENLARGED_BYTES> enlarged)
{
    const auto pixel = [picture](int y, int x) {
        return picture.data() + std::ptrdiff_t { 3 } * (y * pictureWidth + x);
    };
    std::uint8_t* to = enlarged.data();
    for (int y = 0; y < 2 * pictureHeight; ++y)
        for (int x = 0; x < 2 * pictureWidth; ++x) {
            const int nearY = nearest(y, pictureHeight);
            const int nearX = nearest(x, pictureWidth);
            const std::uint8_t* const own = pixel(y / 2, x / 2);
            const std::uint8_t* const beside = pixel(y / 2, nearX);
            const std::uint8_t* const above = pixel(nearY, x / 2);
            const std::uint8_t* const across = pixel(nearY, nearX);
            for (int i = 0; i < 3; ++i)
                *to++ = static_cast<std::uint8_t>(
                    (9 * own[i] + 3 * (beside[i] + above[i]) + across[i] + 8) / 16);
        }
}

} // namespace kez::driver
