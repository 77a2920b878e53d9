// SPDX-License-Identifier: MIT
/// A stored picture, enlarged or reduced to 320 × 240 at most, in front of a screen. Any click
/// closes it; a click on the picture selects the cell from which it was opened again and goes no
/// further. Keys do not reach the screen below.
#pragma once

#include "activity/thumbnail_grid.h"
#include "display/scene.h"
#include "sprites/dyna_image.h"

#include <memory>

namespace kez {

class PictureView : public Actor {
public:
    PictureView();

    /// Shows the picture of that name, its masked pixels white. While one is shown it stays; a
    /// picture that cannot be read opens nothing (diagnostic).
    void open(const char* name, int cell, ThumbnailGrid& grid);

    void enter() override; ///< Shows the picture after which the view is named.
    void leave() override;
    void serviceFired(Service& service) override;

    [[nodiscard]] const DynaImage* picture() const { return picture_.get(); } ///< Null: hidden.

private:
    void clicked();

    View view_;
    ClickService clickService_;
    Rectangle frame_;
    KeyService keyService_;
    std::unique_ptr<DynaImage> picture_;
    ThumbnailGrid* grid_ = nullptr;
    int cell_ = -1;
};

/// The one picture view, which the screens share.
PictureView& pictureView();

} // namespace kez
