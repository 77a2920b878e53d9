// SPDX-License-Identifier: MIT
#include "fit.h"

#include <algorithm>
#include <cstdint>

namespace kez::winapi {

namespace {

LONG scaled(LONG value, LONG to, LONG from)
{
    return static_cast<LONG>(std::int64_t { value } * to / from);
}

LONG pixelAt(LONG offset, LONG placeSide, LONG pictureSide)
{
    return scaled(std::clamp(offset, LONG { 0 }, placeSide - 1), pictureSide, placeSide);
}

// The middle of the pixel, or its first point where a pixel is too narrow to have one.
LONG pointOf(LONG pixel, LONG placeSide, LONG pictureSide)
{
    const LONG first = scaled(pixel, placeSide, pictureSide);
    const bool exact = std::int64_t { pixel } * placeSide % pictureSide == 0;
    return std::max(exact ? first : first + 1, scaled(2 * pixel + 1, placeSide, 2 * pictureSide));
}

} // namespace

Fit Fit::of(SIZE window, SIZE picture)
{
    const bool widthDecides
        = std::int64_t { window.cx } * picture.cy <= std::int64_t { window.cy } * picture.cx;
    const LONG width = widthDecides ? window.cx : scaled(picture.cx, window.cy, picture.cy);
    const LONG height = widthDecides ? scaled(picture.cy, window.cx, picture.cx) : window.cy;
    const SIZE size { std::max(LONG { 1 }, width), std::max(LONG { 1 }, height) };
    const LONG left = (window.cx - size.cx) / 2;
    const LONG top = (window.cy - size.cy) / 2;
    return { picture, { left, top, left + size.cx, top + size.cy } };
}

bool Fit::isWhole() const
{
    const LONG width = place.right - place.left;
    const LONG height = place.bottom - place.top;
    return width % picture.cx == 0 && height % picture.cy == 0
        && width / picture.cx == height / picture.cy;
}

POINT Fit::toPicture(POINT window) const
{
    return { pixelAt(window.x - place.left, place.right - place.left, picture.cx),
        pixelAt(window.y - place.top, place.bottom - place.top, picture.cy) };
}

POINT Fit::toWindow(POINT point) const
{
    return { place.left + pointOf(point.x, place.right - place.left, picture.cx),
        place.top + pointOf(point.y, place.bottom - place.top, picture.cy) };
}

} // namespace kez::winapi
