// SPDX-License-Identifier: MIT
/// A grid of cells for thumbnails, of which one may be selected. The grid draws the cells' frames
/// and reports clicks to its client by firing; the screen paints the thumbnails into its backdrop
/// beneath.
#pragma once

#include "display/cursor.h"
#include "display/scene.h"
#include "display/view.h"
#include "input/input_services.h"
#include "sprites/rectangle.h"

#include <array>
#include <cstddef>
#include <memory>
#include <span>
#include <vector>

namespace kez {

/// Cells of one size, by their centres in stage coordinates.
struct GridLayout {
    int cellWidth = 0;
    int cellHeight = 0;
    std::span<const StagePoint> cells {};
};

/// The centres of columns × rows cells, row by row; with `Columns`, column by column.
enum class CellOrder { Rows, Columns };

template <std::size_t columns, std::size_t rows>
constexpr std::array<StagePoint, columns * rows> cellCentres(
    const int (&columnX)[columns], const int (&rowY)[rows], CellOrder order)
{
    std::array<StagePoint, columns * rows> centres {};
    for (std::size_t column = 0; column < columns; ++column)
        for (std::size_t row = 0; row < rows; ++row)
            centres[order == CellOrder::Rows ? row * columns + column : column * rows + row]
                = { columnX[column], rowY[row] };
    return centres;
}

class ThumbnailGrid : public Actor {
public:
    /// What the last click hit.
    enum class Click { Cell, SelectedCell, Elsewhere, Help };

    static constexpr const char* tag = "selector"; ///< Of the cells and the selection frame.

    struct FrameStyle {
        Colour colour;
        int border; ///< A rectangle's thickness: negative lies outside the cell.
    };

    ThumbnailGrid();

    /// New cells, all of one size, centred at `positions` (stage coordinates).
    void setup(int cellWidth, int cellHeight, std::span<const StagePoint> positions,
        const FrameStyle& selection, const FrameStyle& cells);

    void create() override; ///< Makes the cells anew; done by `setup`.
    void enter() override; ///< Shows the grid.
    void leave() override; ///< Deselects and hides it.
    void serviceFired(Service& service) override;

    void select(int index); ///< A negative index deselects.
    void deselect();

    /// −1 when none. In help mode, while the client is told, the cell that was clicked.
    [[nodiscard]] int selectedIndex() const { return selectedIndex_; }

    [[nodiscard]] Click click() const { return click_; }

    [[nodiscard]] int count() const { return static_cast<int>(positions_.size()); }

    [[nodiscard]] const StagePoint& position(int index) const;

    [[nodiscard]] int cellWidth() const { return cellWidth_; }

    [[nodiscard]] int cellHeight() const { return cellHeight_; }

private:
    void askInHelpMode();
    void clicked();

    ClickService clickService_;
    View view_;
    Rectangle frame_;
    int cellWidth_ = 0;
    int cellHeight_ = 0;
    FrameStyle selectionStyle_ {};
    FrameStyle cellStyle_ {};
    std::vector<StagePoint> positions_;
    int selectedIndex_ = -1;
    std::vector<std::unique_ptr<Rectangle>> cells_;
    Click click_ = Click::Elsewhere;
};

} // namespace kez
