// SPDX-License-Identifier: MIT
#include "core/flags.h"
#include "display/view.h"

namespace kez {

namespace {

int compareDepths(const List& first, const List& second)
{
    const int a = static_cast<Graphic*>(first.item())->depth;
    const int b = static_cast<Graphic*>(second.item())->depth;
    return a < b ? -1 : (a > b ? 1 : 0);
}

} // namespace

Layer::Layer(View& view)
    : view_(view)
{
}

Layer::~Layer()
{
    if (quitting)
        return;
    while (List* node = items_.last()) {
        auto* item = static_cast<Graphic*>(node->item());
        item->layer_ = nullptr; // its position stays as it is, relative to a view that is gone
        item->removeFromLayer();
    }
}

void Layer::addToLayer(Graphic& item)
{
    if (item.layer_ == this)
        return;
    item.removeFromLayer();

    List* before = nullptr;
    for (List* node = items_.last();
         node != nullptr && static_cast<Graphic*>(node->item())->depth < item.depth;
         node = node->prev())
        before = node;

    item.x -= view_.x;
    item.y -= view_.y;
    item.layerNode_ = items_.insertBefore(before, &item, Ownership::Borrowed);
    item.layer_ = this;
    view_.invalidate();
}

void Layer::sortLayer()
{
    items_.bubbleSort(compareDepths, List::Direction::Descending);
    view_.invalidate();
}

void Graphic::removeFromLayer()
{
    if (quitting || layerNode_ == nullptr)
        return;
    x += originX();
    y += originY();
    changed();
    layer_ = nullptr;
    delete layerNode_;
    layerNode_ = nullptr;
}

} // namespace kez
