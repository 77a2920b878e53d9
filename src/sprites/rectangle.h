// SPDX-License-Identifier: MIT
/// A filled rectangle (`thickness` 0) or a frame: `thickness` pixels wide inside its edges when
/// positive, outside them when negative. Writes canvas pixels.
#pragma once

#include "display/graphic.h"

namespace kez {

class Rectangle : public Graphic {
public:
    Rectangle(const Placement& placement, bool visible, Colour colour, int thickness);
    Rectangle* clone() const override;
    const String& className() const override;
    void draw() override;
    bool drawsPixels() const override;

protected:
    Rectangle(const Rectangle&) = default;
};

} // namespace kez
