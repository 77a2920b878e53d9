// SPDX-License-Identifier: MIT
/// Photographs made for tests: pixels in a rectangle, as JPEG or PNG files in memory.
#pragma once

#include "picture.h"
#include "support/plain_jpeg.h"

#include <functional>
#include <string>
#include <vector>

namespace kez::driver::test {

struct Colour {
    int red, green, blue;

    friend bool operator==(const Colour&, const Colour&) = default;
};

/// Rows from the top; each pixel red, green and blue.
struct Photograph {
    int width;
    int height;
    std::vector<std::uint8_t> pixels;

    Photograph(int w, int h, const std::function<Colour(int x, int y)>& colourAt);
};

/// A good one with every field in its own colour, otherwise as `form` says: of 1, 3 or 4
/// components.
[[nodiscard]] std::string jpegFile(const Photograph& photograph, kez::test::PlainJpeg form = {});

struct PngOptions {
    int orientation = 0; ///< 0: no EXIF block.
    bool interlaced = false;
    int opacity = -1; ///< -1: no opacity channel.
};

[[nodiscard]] std::string pngFile(const Photograph& photograph, const PngOptions& options = {});

[[nodiscard]] Colour colourOf(const Picture& picture, int x, int y);

/// A picture all of one colour, to tell pictures apart.
[[nodiscard]] Picture plainPicture(int red, int green, int blue);

} // namespace kez::driver::test
