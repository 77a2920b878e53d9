// SPDX-License-Identifier: MIT
#include "activity/book_page.h"

#include "activity/album.h"

namespace kez {

void BookPage::open(int number)
{
    number_ = number;
    scanAlbum();
    refill();
}

void BookPage::showLast()
{
    number_ = (album().count() - 1) / cells;
    refill();
}

void BookPage::refill()
{
    int position = cells * number_;
    for (List*& entry : entries_)
        entry = album().at(position++);
}

bool BookPage::turn(int direction)
{
    const int next = number_ + direction;
    if (next < 0 || album().at(cells * next) == nullptr)
        return false;
    open(next);
    return true;
}

void BookPage::openWithout(const List& entry)
{
    const bool wasAlone = &entry == album().last() && entry.index() % cells == 0;
    open(wasAlone && number_ > 0 ? number_ - 1 : number_);
}

void BookPage::clear()
{
    entries_.fill(nullptr);
}

List* BookPage::entry(int cell) const
{
    return cell >= 0 && cell < cells ? entries_[static_cast<std::size_t>(cell)] : nullptr;
}

} // namespace kez
