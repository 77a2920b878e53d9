// SPDX-License-Identifier: MIT
#include "sample_picture.h"

#include <algorithm>

namespace kez::driver {

namespace {

struct Light {
    double red, green, blue;
};

// Half of the axes' lengths about a centre.
struct Ellipse {
    double x, y, width, height;

    // 0 at the centre, 1 on the rim.
    [[nodiscard]] double distanceSquared(double atX, double atY) const
    {
        const double dx = (atX - x) / width;
        const double dy = (atY - y) / height;
        return dx * dx + dy * dy;
    }
};

struct Shape {
    Ellipse ellipse;
    Light top, bottom; // Runs from one to the other down the shape.
};

constexpr Light white { 255, 255, 255 };
constexpr Light honey { 255, 200, 69 };

// From the back to the front.
constexpr Shape shapes[] = {
    { { 80, 60, 400, 400 }, { 0, 120, 190 }, { 255, 255, 255 } }, // The sky, in its middle part.
    { { 42, 36, 23, 23 }, { 255, 236, 170 }, { 255, 236, 170 } },
    { { 42, 36, 16, 16 }, { 255, 220, 110 }, honey },
    { { 100, 36, 12, 9 }, white, white },
    { { 116, 31, 15, 13 }, white, white },
    { { 132, 37, 13, 9 }, white, white },
    { { 124, 152, 96, 76 }, { 179, 215, 124 }, { 127, 180, 76 } },
    { { 36, 164, 104, 74 }, { 140, 190, 84 }, { 70, 130, 50 } },
};

Light mixed(const Light& one, const Light& other, double share)
{
    return { one.red + (other.red - one.red) * share, one.green + (other.green - one.green) * share,
        one.blue + (other.blue - one.blue) * share };
}

Light lightAt(double x, double y)
{
    Light light = white;
    for (const Shape& shape : shapes) {
        const Ellipse& ellipse = shape.ellipse;
        if (ellipse.distanceSquared(x, y) <= 1)
            light = mixed(shape.top, shape.bottom, (y - ellipse.y) / ellipse.height / 2 + 0.5);
    }
    return light;
}

} // namespace

Picture samplePicture()
{
    constexpr int parts = 3; // Of a pixel either way, so that rims are smooth.
    Picture picture;
    auto* out = picture.data();
    for (int y = 0; y < pictureHeight; ++y)
        for (int x = 0; x < pictureWidth; ++x) {
            Light light {};
            for (int part = 0; part < parts * parts; ++part) {
                const double atX = x + (part % parts + 0.5) / parts;
                const double atY = y + (part / parts + 0.5) / parts;
                light = mixed(light, lightAt(atX, atY), 1.0 / (part + 1));
            }
            for (const double channel : { light.red, light.green, light.blue })
                *out++ = static_cast<std::uint8_t>(std::clamp(channel, 0.0, 255.0));
        }
    return picture;
}

} // namespace kez::driver
