// SPDX-License-Identifier: MIT
#include "sprites/rectangle.h"

#include "sprites/fill_rect.h"

namespace kez {

Rectangle::Rectangle(const Placement& placement, bool shown, Colour ownColour, int ownThickness)
    : Graphic(placement, shown, ownColour, ownThickness)
{
}

Rectangle* Rectangle::clone() const
{
    return new Rectangle(*this);
}

const String& Rectangle::className() const
{
    static const String own("Rectangle");
    return own;
}

bool Rectangle::drawsPixels() const
{
    return true;
}

void Rectangle::draw()
{
    if (alphaOf(colour) == 0)
        return;
    const CanvasPixels canvas = targetPixels();
    const CanvasPixel pixel
        = alphaOf(colour) << 24 | redOf(colour) << 16 | greenOf(colour) << 8 | blueOf(colour);
    // An odd side reaches one pixel further to the left or the top than to the other side.
    const int leftEdge = canvas.width / 2 + x - width / 2 - width % 2;
    const int topEdge = canvas.height / 2 + y - height / 2 - height % 2;
    const auto strip = [&](int stripLeft, int stripTop, int stripWidth, int stripHeight) {
        fillRect(canvas, stripLeft, stripTop, stripWidth, stripHeight, pixel);
    };
    if (thickness == 0) {
        strip(leftEdge, topEdge, width, height);
    } else if (thickness < 0) {
        const int n = -thickness;
        strip(leftEdge - n, topEdge - n, width + 2 * n, n);
        strip(leftEdge - n, topEdge + height, width + 2 * n, n);
        strip(leftEdge - n, topEdge, n, height);
        strip(leftEdge + width, topEdge, n, height);
    } else {
        const int n = thickness;
        strip(leftEdge, topEdge, width, n);
        strip(leftEdge, topEdge + height - n, width, n);
        strip(leftEdge, topEdge + n, n, height - 2 * n);
        strip(leftEdge + width - n, topEdge + n, n, height - 2 * n);
    }
}

} // namespace kez
