// SPDX-License-Identifier: MIT
#include "display/view.h"

#include "display/canvas.h"
#include "display/cursor.h"
#include "display/screen.h"
#include "display/stage.h"

#include <algorithm>

namespace kez {

namespace {

View& viewOf(const List& node)
{
    return *static_cast<View*>(node.item());
}

Layer& layerOf(const List& node)
{
    return *static_cast<Layer*>(node.item());
}

Graphic& itemOf(const List& node)
{
    return *static_cast<Graphic*>(node.item());
}

Graphic* pickInLayer(Layer& layer, int px, int py)
{
    for (List* node = layer.items().last(); node != nullptr; node = node->prev()) {
        Graphic& item = itemOf(*node);
        if (item.visible && item.hitTest(px, py))
            return &item;
    }
    return nullptr;
}

Graphic* pickInView(View& view, int px, int py)
{
    for (List* node = view.layers().last(); node != nullptr; node = node->prev())
        if (Graphic* item = pickInLayer(layerOf(*node), px, py))
            return item;
    return nullptr;
}

void restoreLostPrimary()
{
    IDirectDrawSurface* primary = screen().primary();
    if (primary != nullptr && primary->IsLost() == DDERR_SURFACELOST)
        primary->Restore();
}

} // namespace

View::View(int ownX, int ownY, int ownDepth, int ownWidth, int ownHeight, bool shown, bool pickable)
    : x(ownX)
    , y(ownY)
    , depth(ownDepth)
    , width(ownWidth)
    , height(ownHeight)
    , visible(shown)
    , inputEnabled(pickable)
{
}

View::~View()
{
    // Out of the display list before the layers go.
    Service::detach();
}

List& View::registry()
{
    return displayList();
}

void View::attach()
{
    if (isRegistered())
        return;
    List& views = registry();
    List* before = nullptr;
    for (List* node = views.last(); node != nullptr && viewOf(*node).depth < depth;
         node = node->prev())
        before = node;
    registration_ = views.insertBefore(before, this, Ownership::Borrowed);
    invalidate();
}

void View::draw()
{
    if (!visible)
        return;
    for (List* node = layers_.first(); node != nullptr; node = node->next()) {
        Layer& shown = layerOf(*node);
        if (!shown.visible)
            continue;
        for (List* item = shown.items().first(); item != nullptr; item = item->next())
            drawItem(itemOf(*item));
    }
}

void View::invalidate() { }

Layer& View::layer(int n)
{
    const int wanted = std::max(n, 0);
    while (layers_.count() <= wanted)
        layers_.append(new Layer(*this));
    return layerOf(*layers_.at(wanted));
}

void View::realize()
{
    if (width == 0)
        width = Stage::width;
    if (height == 0)
        height = Stage::height;
    for (List* node = layers_.first(); node != nullptr; node = node->next()) {
        Layer& realized = layerOf(*node);
        for (List* item = realized.items().first(); item != nullptr; item = item->next())
            itemOf(*item).realize();
        realized.sortLayer();
    }
    invalidate();
}

void View::unrealize()
{
    for (List* node = layers_.first(); node != nullptr; node = node->next())
        for (List* item = layerOf(*node).items().first(); item != nullptr; item = item->next())
            itemOf(*item).unrealize();
}

void View::open()
{
    attach();
    realize();
    visible = true;
}

void View::close()
{
    detach();
    unrealize();
    visible = false;
}

List& displayList()
{
    // Never destroyed: static views leave it in any order at unload.
    static List& views = *new List;
    return views;
}

Graphic* pick(int px, int py)
{
    for (List* node = displayList().last(); node != nullptr; node = node->prev()) {
        View& view = viewOf(*node);
        if (!view.inputEnabled)
            continue;
        if (Graphic* item = pickInView(view, px, py))
            return item;
    }
    return nullptr;
}

void drawDisplayList()
{
    restoreLostPrimary();
    openTarget();
    for (List* node = displayList().first(); node != nullptr; node = node->next())
        viewOf(*node).draw();
    if (cursorObject != nullptr) {
        updateCursor();
        drawItem(*cursorObject);
    }
    closeTarget();
    screen().present();
}

} // namespace kez
