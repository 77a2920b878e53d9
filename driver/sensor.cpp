// SPDX-License-Identifier: MIT
#include "sensor.h"

#include <algorithm>
#include <cstddef>

namespace kez::driver {

namespace {

constexpr int border = (rawLines - pictureHeight) / 2;
static_assert(border == (rawLineBytes - pictureWidth) / 2);

enum Colour { Red, Green, Blue };

constexpr Colour colourAt(int line, int column)
{
    if ((line + column) % 2 != 0)
        return Green;
    return line % 2 == 0 ? Red : Blue;
}

constexpr std::size_t pixelAt(int y, int x)
{
    return static_cast<std::size_t>(y * pictureWidth + x) * 3;
}

constexpr std::uint8_t toByte(int value)
{
    return static_cast<std::uint8_t>(std::clamp(value, 0, 255));
}

// The picture's point under a point of the sensor; the border repeats the edge.
const std::uint8_t* pixelUnder(const Picture& picture, int line, int column)
{
    const int y = std::clamp(line - border, 0, pictureHeight - 1);
    const int x = std::clamp(column - border, 0, pictureWidth - 1);
    return &picture[pixelAt(y, x)];
}

constexpr int brightness(const std::uint8_t* pixel)
{
    return (pixel[Red] + 2 * pixel[Green] + pixel[Blue]) / 4;
}

// How far a colour lies from the brightness, evened out over 3 × 3 points by the weights 1 2 1.
// Colour that changes from point to point is more than a quarter of the points can tell; without
// this it comes back as coloured speckles along every edge.
int colourOffset(const Picture& picture, int line, int column, Colour colour)
{
    int sum = 0;
    for (int dy = -1; dy <= 1; ++dy)
        for (int dx = -1; dx <= 1; ++dx) {
            const std::uint8_t* pixel = pixelUnder(picture, line + dy, column + dx);
            const int weight = (2 - dy * dy) * (2 - dx * dx);
            sum += weight * (pixel[colour] - brightness(pixel));
        }
    return (sum + (sum < 0 ? -8 : 8)) / 16;
}

/// The points around one point of the sensor.
struct Neighbourhood {
    const std::uint8_t* centre;

    int at(int dy, int dx) const { return centre[dy * rawLineBytes + dx]; }

    int beside(int distance) const { return at(0, -distance) + at(0, distance); }

    int above(int distance) const { return at(-distance, 0) + at(distance, 0); }

    int diagonal() const { return at(-1, -1) + at(-1, 1) + at(1, -1) + at(1, 1); }
};

constexpr std::uint8_t sixteenth(int sum)
{
    return toByte((sum + 8) >> 4);
}

// The mean of the neighbours of a colour, corrected by how much brighter or darker the centre is
// than its own colour's neighbours two points on. Weights in sixteenths.
std::uint8_t greenAtColour(const Neighbourhood& n)
{
    return sixteenth(
        8 * n.at(0, 0) + 4 * (n.beside(1) + n.above(1)) - 2 * (n.beside(2) + n.above(2)));
}

std::uint8_t colourBesideGreen(const Neighbourhood& n)
{
    return sixteenth(
        10 * n.at(0, 0) + 8 * n.beside(1) - 2 * n.beside(2) - 2 * n.diagonal() + n.above(2));
}

std::uint8_t colourAboveGreen(const Neighbourhood& n)
{
    return sixteenth(
        10 * n.at(0, 0) + 8 * n.above(1) - 2 * n.above(2) - 2 * n.diagonal() + n.beside(2));
}

std::uint8_t colourAcross(const Neighbourhood& n)
{
    return sixteenth(12 * n.at(0, 0) + 4 * n.diagonal() - 3 * (n.beside(2) + n.above(2)));
}

struct Pixel {
    std::uint8_t red, green, blue;
};

Pixel colourPoint(const Neighbourhood& n, int line, int column)
{
    const auto own = *n.centre;
    switch (colourAt(line, column)) {
    case Red:
        return { own, greenAtColour(n), colourAcross(n) };
    case Blue:
        return { colourAcross(n), greenAtColour(n), own };
    case Green:
        break;
    }
    const std::uint8_t beside = colourBesideGreen(n);
    const std::uint8_t above = colourAboveGreen(n);
    return line % 2 == 0 ? Pixel { beside, own, above } : Pixel { above, own, beside };
}

} // namespace

RawPicture expose(const Picture& picture)
{
    RawPicture raw;
    std::size_t at = 0;
    for (int line = 0; line < rawLines; ++line)
        for (int column = 0; column < rawLineBytes; ++column) {
            const Colour colour = colourAt(line, column);
            const int light = brightness(pixelUnder(picture, line, column));
            raw[at++] = toByte(light + colourOffset(picture, line, column, colour));
        }
    return raw;
}

RawPicture unexposed()
{
    constexpr std::uint8_t dark = 40;
    RawPicture raw;
    raw.fill(dark);
    return raw;
}

void colourize(std::span<const std::uint8_t, MVI_RAW_BYTES> raw,
    std::span<std::uint8_t, MVI_PICTURE_BYTES> picture)
{
    for (int y = 0; y < pictureHeight; ++y)
        for (int x = 0; x < pictureWidth; ++x) {
            const int line = y + border;
            const int column = x + border;
            const Pixel pixel
                = colourPoint({ raw.data() + line * rawLineBytes + column }, line, column);
            std::uint8_t* const to = picture.data() + pixelAt(pictureHeight - 1 - y, x);
            to[0] = pixel.blue;
            to[1] = pixel.green;
            to[2] = pixel.red;
        }
}

void enlarge(std::span<const std::uint8_t, MVI_PICTURE_BYTES> picture,
    std::span<std::uint8_t, MVI_ENLARGED_BYTES> enlarged)
{
    std::uint8_t* to = enlarged.data();
    for (int y = 0; y < 2 * pictureHeight; ++y)
        for (int x = 0; x < 2 * pictureWidth; ++x) {
            // The half in which the new pixel lies decides which neighbours are nearest.
            const int nearY = std::clamp(y / 2 + (y % 2 == 0 ? -1 : 1), 0, pictureHeight - 1);
            const int nearX = std::clamp(x / 2 + (x % 2 == 0 ? -1 : 1), 0, pictureWidth - 1);
            const std::uint8_t* const own = picture.data() + pixelAt(y / 2, x / 2);
            const std::uint8_t* const beside = picture.data() + pixelAt(y / 2, nearX);
            const std::uint8_t* const above = picture.data() + pixelAt(nearY, x / 2);
            const std::uint8_t* const across = picture.data() + pixelAt(nearY, nearX);
            for (int i = 0; i < 3; ++i)
                *to++ = sixteenth(9 * own[i] + 3 * (beside[i] + above[i]) + across[i]);
        }
}

} // namespace kez::driver
