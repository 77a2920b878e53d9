// SPDX-License-Identifier: MIT
/// Everything that can be placed on a screen: an item of the display list with a position, a depth,
/// a displayed size and a hit test. Kinds: `Image`, `DynaImage`, `Rectangle`, `Text`.
///
/// Stage coordinates have their origin at the centre of the 640 × 480 picture, x to the right and y
/// downward. An item's position is its centre; while it is in a layer the position is relative to
/// the layer's view.
#pragma once

#include "core/list.h"
#include "core/object.h"

#include <cstdint>

namespace kez {

class Layer;

/// A graphic object's colour: alpha << 24 | blue << 16 | green << 8 | red, the platform's colour
/// reference with alpha on top. (Canvas pixels have red and blue the other way round.)
using Colour = std::uint32_t;

constexpr Colour makeColour(unsigned red, unsigned green, unsigned blue, unsigned alpha = 255)
{
    return alpha << 24 | blue << 16 | green << 8 | red;
}

constexpr unsigned redOf(Colour colour)
{
    return colour & 255;
}

constexpr unsigned greenOf(Colour colour)
{
    return colour >> 8 & 255;
}

constexpr unsigned blueOf(Colour colour)
{
    return colour >> 16 & 255;
}

constexpr unsigned alphaOf(Colour colour)
{
    return colour >> 24;
}

constexpr Colour black = makeColour(0, 0, 0);
constexpr Colour magenta = makeColour(255, 0, 255);

/// Centre, depth (larger is further back) and size of a graphic object; `extra` is carried along.
struct Placement {
    int x = 0;
    int y = 0;
    int depth = 0;
    int width = 0;
    int height = 0;
    int extra = 0;
};

class Graphic : public Object {
public:
    Graphic(const Placement& placement, bool visible, Colour colour, int thickness = 0,
        int index = 0, int angle = 0, int hitMode = -1, Colour keyColour = magenta);
    Graphic& operator=(const Graphic&) = delete;
    ~Graphic() override; ///< Leaves its layer.

    /// Slot 3: the name, the caption, then every field but the tag and the layer. The position is
    /// stored in stage coordinates, whether the object is in a layer or not.
    void serialize(DataFile& file) override;

    virtual double setScale(double percent); ///< Slot 5: displayed size in percent of the base.
    virtual void setHitMode(int mode, bool onlyWhenVisible); ///< Slot 6.
    virtual int left() const; ///< Slots 7 to 10: the edges in stage coordinates.
    virtual int top() const;
    virtual int right() const;
    virtual int bottom() const;

    /// Slot 11: is the stage point on the object? Right and bottom edge included; width and height
    /// exchanged at 90 and 270 degrees.
    virtual bool hitTest(int px, int py) const;

    virtual void fitInto(
        int w, int h); ///< Slot 12: the largest scale that fits; needs a base size.
    virtual void changed(); ///< Slot 13: tells the layer's view.
    virtual void draw(); ///< Slot 14: into the open canvas.
    virtual void realize(); ///< Slot 15: takes the resources that drawing needs.
    virtual void unrealize(); ///< Slot 16: gives them back.
    virtual bool drawsPixels() const; ///< Slot 17: canvas pixels (true) or device context (false).

    /// Slot 18: moves part of the way, at least one pixel on an axis that is not there yet. Returns
    /// the length of the step, truncated; 0 at the target.
    virtual int moveToward(int tx, int ty, double percent);

    void removeFromLayer(); ///< Nothing while `quitting`.

    [[nodiscard]] Layer* layer() const { return layer_; }

    int baseX = 0, baseY = 0, baseDepth = 0; ///< Reference placement.
    int baseWidth = 0, baseHeight = 0, baseExtra = 0;
    int x = 0, y = 0, depth = 0; ///< Displayed placement.
    int width = 0, height = 0, extra = 0;
    double scale = 100.0;
    Colour colour = black;
    int thickness = 0;
    bool visible = true;
    int index = 0; ///< The owner's number for this object.
    const char* tag = nullptr; ///< The owner's group label, a static text; copied, not stored.
    int angle = 0;
    Colour keyColour = magenta;

    [[nodiscard]] int hitMode() const { return hitMode_; }

protected:
    Graphic(const Graphic& other); ///< A copy is in no layer.

    void setPlacement(const Placement& placement); ///< Both the reference and the displayed one.

private:
    friend class Layer;

    [[nodiscard]] int originX() const; ///< The view's position; 0 in no layer.
    [[nodiscard]] int originY() const;

    [[nodiscard]] bool isTurnedSideways() const { return angle == 90 || angle == 270; }

    List* layerNode_ = nullptr;
    Layer* layer_ = nullptr;
    int hitMode_ = -1;
    bool hitOnlyWhenVisible_ = false;
};

} // namespace kez
