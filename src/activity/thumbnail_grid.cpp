// SPDX-License-Identifier: MIT
#include "activity/thumbnail_grid.h"

#include "activity/activity_screen.h"
#include "input/events.h"

namespace kez {

namespace {

constexpr int cellDepth = 100; // the selection frame has 0 and lies in front

} // namespace

ThumbnailGrid::ThumbnailGrid()
    : view_(0, 0, 0, 0, 0, false, true)
    , frame_(Placement {}, false, black, 0)
{
    clickService_.setClient(this);
}

void ThumbnailGrid::setup(int cellWidth, int cellHeight, std::span<const StagePoint> positions,
    const FrameStyle& selection, const FrameStyle& cells)
{
    cellWidth_ = cellWidth;
    cellHeight_ = cellHeight;
    positions_.assign(positions.begin(), positions.end());
    selectionStyle_ = selection;
    cellStyle_ = cells;
    create();
}

void ThumbnailGrid::create()
{
    cells_.clear();
    for (int i = 0; i < count(); ++i) {
        const Placement place { position(i).x, position(i).y, cellDepth, cellWidth_, cellHeight_ };
        auto& cell = cells_.emplace_back(
            std::make_unique<Rectangle>(place, true, cellStyle_.colour, cellStyle_.border));
        cell->tag = tag;
        cell->index = i;
        view_.add(*cell);
    }
    frame_.tag = tag;
    frame_.index = -1;
    frame_.width = cellWidth_;
    frame_.height = cellHeight_;
    frame_.colour = selectionStyle_.colour;
    frame_.thickness = selectionStyle_.border;
    view_.add(frame_);
}

void ThumbnailGrid::enter()
{
    clickService_.attach();
    view_.open();
}

void ThumbnailGrid::leave()
{
    deselect();
    clickService_.detach();
    view_.close();
}

const StagePoint& ThumbnailGrid::position(int index) const
{
    return positions_.at(static_cast<std::size_t>(index));
}

void ThumbnailGrid::select(int index)
{
    if (index < 0 || index >= count())
        return deselect();
    selectedIndex_ = index;
    frame_.x = position(index).x;
    frame_.y = position(index).y;
    frame_.visible = true;
}

void ThumbnailGrid::deselect()
{
    selectedIndex_ = -1;
    frame_.visible = false;
}

void ThumbnailGrid::serviceFired(Service& /*service*/)
{
    if (helpMode)
        askInHelpMode();
    else
        clicked();
}

// The client sees the clicked cell as if it were selected.
void ThumbnailGrid::askInHelpMode()
{
    if (pickedTag != tag)
        return;
    const int before = selectedIndex_;
    click_ = Click::Help;
    selectedIndex_ = pickedIndex;
    fire();
    select(before);
}

void ThumbnailGrid::clicked()
{
    if (pickedItem == &frame_) {
        click_ = Click::SelectedCell;
    } else if (pickedTag == tag) {
        click_ = Click::Cell;
        select(pickedIndex);
    } else {
        click_ = Click::Elsewhere;
    }
    fire();
}

} // namespace kez
