// SPDX-License-Identifier: MIT
#include "picture.h"

#include "media/resample.h"

#include <algorithm>

namespace kez::player {

namespace {

constexpr std::size_t bytesPerPixel = 3;

std::uint32_t blend(std::uint32_t below, std::uint32_t above)
{
    const std::uint32_t opacity = above >> 24;
    std::uint32_t result = 0xFF000000u;
    for (const int shift : { 16, 8, 0 }) {
        const std::uint32_t mixed
            = (above >> shift & 0xFF) * opacity + (below >> shift & 0xFF) * (255 - opacity);
        result |= mixed / 255 << shift;
    }
    return result;
}

std::vector<std::uint8_t> packed(const Picture& picture)
{
    std::vector<std::uint8_t> bytes;
    bytes.reserve(picture.pixels.size() * bytesPerPixel);
    for (const std::uint32_t pixel : picture.pixels) {
        for (const int shift : { 0, 8, 16 })
            bytes.push_back(static_cast<std::uint8_t>(pixel >> shift));
    }
    return bytes;
}

} // namespace

void overlay(Picture& below, const Picture& above)
{
    for (int y = 0; y < std::min(below.height, above.height); ++y) {
        for (int x = 0; x < std::min(below.width, above.width); ++x)
            below.at(x, y) = blend(below.at(x, y), above.at(x, y));
    }
}

Picture resized(const Picture& picture, int width, int height)
{
    Picture result = blankPicture(width, height, 0);
    std::vector<std::uint8_t> bytes(result.pixels.size() * bytesPerPixel);
    std::uint8_t* const destination = bytes.data();
    std::uint8_t* filled = destination;
    resamplePicture(packed(picture).data(), picture.width, picture.height, &filled, width, height);
    for (std::size_t i = 0; i < result.pixels.size(); ++i) {
        const std::uint8_t* from = destination + i * bytesPerPixel;
        result.pixels[i] = 0xFF000000u | std::uint32_t { from[2] } << 16
            | std::uint32_t { from[1] } << 8 | from[0];
    }
    return result;
}

} // namespace kez::player
