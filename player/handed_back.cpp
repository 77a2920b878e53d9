// SPDX-License-Identifier: MIT
#include "handed_back.h"

#include "host/kez.h"

#include <cstdint>

namespace kez::player {

namespace {

// The module writes what it declares constant to its hosts; a compiler must not remember it.
template <class Value>
Value readAnew(const Value& exported)
{
    return *const_cast<const volatile Value*>(&exported);
}

// The module's rows come bottom row first, three bytes a pixel: blue, green, red.
Picture pictureOf(const unsigned char* from, int width, int height)
{
    Picture picture = blankPicture(width, height, 0);
    for (int y = height - 1; y >= 0; --y) {
        for (int x = 0; x < width; ++x, from += 3)
            picture.at(x, y) = 0xFF000000u | std::uint32_t { from[2] } << 16
                | std::uint32_t { from[1] } << 8 | from[0];
    }
    return picture;
}

} // namespace

HandedBack takeHandedBack()
{
    const char* name = readAnew(Kez::imageName);
    const unsigned char* pixels = readAnew(Kez::image);
    HandedBack result { name != nullptr ? name : "", {} };
    if (pixels != nullptr && Kez::imageWidth > 0 && Kez::imageHeight > 0)
        result.picture = pictureOf(pixels, Kez::imageWidth, Kez::imageHeight);
    return result;
}

} // namespace kez::player
