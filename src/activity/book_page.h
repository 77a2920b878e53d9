// SPDX-License-Identifier: MIT
/// A page of the photo book: the 24 album entries that it shows, by cell. Pages are numbered from 0
/// and may reach beyond the album's end; the cells there are empty.
#pragma once

#include "core/list.h"

#include <array>

namespace kez {

class BookPage {
public:
    static constexpr int cells = 24;

    void open(int number); ///< Reads the album anew.
    void showLast(); ///< The album's last page, as it is in memory.
    void refill(); ///< From the album as it is in memory.

    /// The page that far on, read anew. False, and nothing happens, when it is in front of the
    /// first one or has no picture.
    bool turn(int direction);

    /// Opens the page anew after the entry's picture has been deleted: the page before, when the
    /// picture was alone on the last one.
    void openWithout(const List& entry);

    void clear(); ///< Forgets the entries.

    [[nodiscard]] int number() const { return number_; }

    [[nodiscard]] List* entry(int cell) const; ///< Null for an empty cell. The album's.

private:
    int number_ = 0;
    std::array<List*, cells> entries_ {};
};

} // namespace kez
