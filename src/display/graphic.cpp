// SPDX-License-Identifier: MIT
#include "display/graphic.h"

#include "core/data_file.h"
#include "display/view.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kez {

namespace {

// Truncates toward zero; a value that no int holds gives the nearest int.
int truncated(double value)
{
    constexpr double lowest = std::numeric_limits<int>::min();
    constexpr double highest = std::numeric_limits<int>::max();
    if (std::isnan(value))
        return 0;
    return static_cast<int>(std::clamp(value, lowest, highest));
}

int scaled(int size, double percent)
{
    return truncated(std::floor(size * (percent / 100.0) + 0.5));
}

// A step of a move along one axis: never less than a pixel, unless the target is reached.
double step(double distance, double percent)
{
    const double part = distance * percent / 100.0;
    if (std::fabs(part) >= 1.0 || distance == 0.0)
        return part;
    return distance > 0.0 ? 1.0 : -1.0;
}

void transferUnsigned(DataFile& file, std::uint32_t& value)
{
    auto word = static_cast<std::int32_t>(value);
    if (file.transfer(word))
        value = static_cast<std::uint32_t>(word);
}

void transferBool(DataFile& file, bool& value)
{
    std::int32_t word = value ? 1 : 0;
    if (file.transfer(word))
        value = word != 0;
}

// Stored from the stage's origin, held from the view's.
void transferPosition(DataFile& file, std::int32_t& position, int origin)
{
    std::int32_t onStage = position + origin;
    if (file.transfer(onStage))
        position = onStage - origin;
}

} // namespace

Graphic::Graphic(const Placement& placement, bool shown, Colour ownColour, int ownThickness,
    int ownIndex, int ownAngle, int hitMode, Colour ownKeyColour)
    : colour(ownColour)
    , thickness(ownThickness)
    , visible(shown)
    , index(ownIndex)
    , angle(ownAngle)
    , keyColour(ownKeyColour)
    , hitMode_(hitMode)
{
    setPlacement(placement);
}

Graphic::Graphic(const Graphic& other)
    : Object(other)
    , baseX(other.baseX)
    , baseY(other.baseY)
    , baseDepth(other.baseDepth)
    , baseWidth(other.baseWidth)
    , baseHeight(other.baseHeight)
    , baseExtra(other.baseExtra)
    , x(other.x)
    , y(other.y)
    , depth(other.depth)
    , width(other.width)
    , height(other.height)
    , extra(other.extra)
    , scale(other.scale)
    , colour(other.colour)
    , thickness(other.thickness)
    , visible(other.visible)
    , index(other.index)
    , tag(other.tag)
    , angle(other.angle)
    , keyColour(other.keyColour)
    , hitMode_(other.hitMode_)
{
}

Graphic::~Graphic()
{
    removeFromLayer();
}

void Graphic::setPlacement(const Placement& placement)
{
    x = baseX = placement.x;
    y = baseY = placement.y;
    depth = baseDepth = placement.depth;
    width = baseWidth = placement.width;
    height = baseHeight = placement.height;
    extra = baseExtra = placement.extra;
}

void Graphic::serialize(DataFile& file)
{
    Object::serialize(file);
    for (int* word : { &baseX, &baseY, &baseDepth, &baseWidth, &baseHeight, &baseExtra })
        file.transfer(*word);
    file.transfer(scale);
    file.transfer(hitMode_);
    transferPosition(file, x, originX());
    transferPosition(file, y, originY());
    for (int* word : { &depth, &width, &height, &extra })
        file.transfer(*word);
    transferUnsigned(file, colour);
    file.transfer(thickness);
    transferBool(file, visible);
    file.transfer(index);
    file.transfer(angle);
    transferUnsigned(file, keyColour);
    transferBool(file, hitOnlyWhenVisible_);
}

double Graphic::setScale(double percent)
{
    const bool unscaled = percent == 100.0;
    width = unscaled ? baseWidth : scaled(baseWidth, percent);
    height = unscaled ? baseHeight : scaled(baseHeight, percent);
    changed();
    scale = percent;
    return percent;
}

void Graphic::setHitMode(int mode, bool onlyWhenVisible)
{
    hitOnlyWhenVisible_ = onlyWhenVisible;
    hitMode_ = mode;
}

int Graphic::originX() const
{
    return layer_ != nullptr ? layer_->view().x : 0;
}

int Graphic::originY() const
{
    return layer_ != nullptr ? layer_->view().y : 0;
}

int Graphic::left() const
{
    return x + originX() - (width >> 1);
}

int Graphic::top() const
{
    return y + originY() - (height >> 1);
}

int Graphic::right() const
{
    return x + originX() + width - (width >> 1);
}

int Graphic::bottom() const
{
    return y + originY() + height - (height >> 1);
}

bool Graphic::hitTest(int px, int py) const
{
    if (hitMode_ == 0 || (hitOnlyWhenVisible_ && !visible))
        return false;
    const int shownWidth = isTurnedSideways() ? height : width;
    const int shownHeight = isTurnedSideways() ? width : height;
    const int leftEdge = x + originX() - (shownWidth >> 1);
    const int topEdge = y + originY() - (shownHeight >> 1);
    return px >= leftEdge && px <= leftEdge + shownWidth && py >= topEdge
        && py <= topEdge + shownHeight;
}

void Graphic::fitInto(int w, int h)
{
    if (baseWidth == 0 || baseHeight == 0) // no size yet: no scale would fit it
        return;
    const double across = static_cast<double>(w) / baseWidth;
    const double down = static_cast<double>(h) / baseHeight;
    setScale(100.0 * std::min(across, down));
}

void Graphic::changed()
{
    if (layer_ != nullptr)
        layer_->view().invalidate();
}

void Graphic::draw() { }

void Graphic::realize()
{
    setHitMode(hitMode_, false);
}

void Graphic::unrealize() { }

bool Graphic::drawsPixels() const
{
    return false;
}

int Graphic::moveToward(int tx, int ty, double percent)
{
    const double stepX = step(static_cast<double>(tx) - x, percent);
    const double stepY = step(static_cast<double>(ty) - y, percent);
    x = truncated(x + stepX);
    y = truncated(y + stepY);
    return truncated(std::sqrt(stepX * stepX + stepY * stepY));
}

} // namespace kez
