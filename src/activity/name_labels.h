// SPDX-License-Identifier: MIT
/// The names below the cells of the photo book, one label a cell, and the typing in them. The first
/// key after `startAnew` replaces the name; the others go on with it.
#pragma once

#include "activity/thumbnail_grid.h"
#include "sprites/text.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace kez {

class NameLabels {
public:
    /// Where the label of a cell lies.
    [[nodiscard]] static Placement placeBelow(
        const StagePoint& cell, int cellWidth, int cellHeight);

    /// One empty label below each cell of the grid.
    void create(View& view, const ThumbnailGrid& grid, Colour colour);
    void discard();

    void show(int cell, const String& name);
    [[nodiscard]] const String& shown(int cell) const;

    void startAnew() { startsAnew_ = true; }

    /// A character's code: backspace removes the last character; characters that no name may hold
    /// and more than the album's longest name are ignored.
    void type(int cell, std::uint32_t key);

private:
    [[nodiscard]] Text& label(int cell) const;

    std::vector<std::unique_ptr<Text>> labels_;
    bool startsAnew_ = false;
};

} // namespace kez
