// SPDX-License-Identifier: MIT
#include "activity/name_labels.h"

#include "activity/album.h"
#include "activity/picture_names.h"

#include <utility>

namespace kez {

namespace {

constexpr const char* tag = "names";
constexpr int belowCell = 10; // from the cell's lower edge to the label's centre
constexpr int labelHeight = 14;
constexpr std::uint32_t backspace = 8;

} // namespace

Placement NameLabels::placeBelow(const StagePoint& cell, int cellWidth, int cellHeight)
{
    return { .x = cell.x,
        .y = cell.y + cellHeight / 2 + belowCell,
        .width = cellWidth,
        .height = labelHeight };
}

void NameLabels::create(View& view, const ThumbnailGrid& grid, Colour colour)
{
    discard();
    for (int cell = 0; cell < grid.count(); ++cell) {
        const Placement below
            = placeBelow(grid.position(cell), grid.cellWidth(), grid.cellHeight());
        auto& text = labels_.emplace_back(std::make_unique<Text>("", below, true, colour));
        text->index = cell;
        text->tag = tag;
        view.add(*text);
    }
}

void NameLabels::discard()
{
    labels_.clear();
}

Text& NameLabels::label(int cell) const
{
    return *labels_.at(static_cast<std::size_t>(cell));
}

void NameLabels::show(int cell, const String& name)
{
    label(cell).setText(name.c_str(), Text::Fit::Keep);
}

const String& NameLabels::shown(int cell) const
{
    return label(cell).text();
}

void NameLabels::type(int cell, std::uint32_t key)
{
    String name;
    if (!std::exchange(startsAnew_, false))
        name = shown(cell);
    if (key == backspace)
        name.cut(1);
    else if (mayStandInName(key) && name.length() < longestAlbumName)
        name.append(static_cast<char>(key));
    show(cell, name);
}

} // namespace kez
