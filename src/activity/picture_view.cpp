// SPDX-License-Identifier: MIT
#include "activity/picture_view.h"

#include "activity/activity_screen.h"
#include "activity/masked_picture.h"
#include "input/events.h"
#include "media/resample.h"
#include "sprites/picture_pixels.h"
#include "sprites/sprite_builder.h"

#include <algorithm>
#include <vector>

namespace kez {

namespace {

constexpr StagePoint viewCentre { -32, -62 };
constexpr int viewWidth = 320;
constexpr int viewHeight = 240;
constexpr int frameThickness = -2;

MaskedPicture fitted(MaskedPicture picture)
{
    const double factor = std::min(static_cast<double>(viewWidth) / picture.width,
        static_cast<double>(viewHeight) / picture.height);
    if (factor == 1.0)
        return picture;
    // At least a pixel, however narrow the picture.
    const int width = std::max(static_cast<int>(picture.width * factor), 1);
    const int height = std::max(static_cast<int>(picture.height * factor), 1);
    MaskedPicture result { std::vector<std::uint8_t>(static_cast<std::size_t>(3 * width * height)),
        width, height };
    std::uint8_t* pixels = result.pixels.data();
    resamplePicture(picture.pixels.data(), picture.width, picture.height, &pixels, width, height);
    return result;
}

std::unique_ptr<DynaImage> imageOf(const MaskedPicture& picture, const char* name)
{
    std::vector<std::uint32_t> topRowFirst(picture.pixels.size() / 3);
    const auto width = static_cast<std::size_t>(picture.width);
    const std::uint8_t* row = picture.pixels.data();
    for (std::size_t end = topRowFirst.size(); end != 0; end -= width, row += 3 * width)
        toOpaquePixels(row, &topRowFirst[end - width], picture.width);
    SpriteRecord record;
    record.makeTrueColour(
        name, viewCentre.x, viewCentre.y, picture.width, picture.height, topRowFirst.data(), false);
    auto image = std::make_unique<DynaImage>(name, true);
    image->setRecord(record.serialise().data());
    return image;
}

} // namespace

PictureView& pictureView()
{
    static PictureView view;
    return view;
}

PictureView::PictureView()
    : view_(0, 0, 0, 0, 0, false, true)
    , frame_({ viewCentre.x, viewCentre.y, 0, viewWidth, viewHeight }, true, black, 0)
{
    clickService_.setClient(this);
    keyService_.setClient(this);
    view_.add(frame_);
}

void PictureView::open(const char* name, int cell, ThumbnailGrid& grid)
{
    grid_ = &grid;
    cell_ = cell;
    setName(name);
    enter();
}

void PictureView::enter()
{
    if (picture_ != nullptr)
        return;
    const MaskedPicture stored = readMaskedPicture(name().c_str());
    if (stored.pixels.empty())
        return;
    const MaskedPicture shown = fitted(stored);
    picture_ = imageOf(shown, name().c_str());
    view_.add(*picture_);
    frame_.thickness = frameThickness;
    frame_.width = shown.width;
    frame_.height = shown.height;
    clickService_.attach();
    view_.open();
    keyService_.attach();
}

void PictureView::leave()
{
    if (picture_ == nullptr)
        return;
    picture_.reset();
    clickService_.detach();
    keyService_.detach();
    view_.close();
}

void PictureView::serviceFired(Service& service)
{
    if (&service == &keyService_)
        stopDispatch();
    else if (&service == &clickService_)
        clicked();
}

void PictureView::clicked()
{
    if (pickedItem == &frame_) { // it lies in front of the picture and is as large
        stopDispatch();
        grid_->select(cell_);
    }
    leave();
    playTap();
}

} // namespace kez
