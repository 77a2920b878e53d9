// SPDX-License-Identifier: MIT
/// Views hold numbered layers, layers hold graphic objects. An attached view is in the display list
/// and is drawn; the display list runs from back (large depth) to front. A layer's items run from
/// back to front as well; of equal depths the one added later is in front.
#pragma once

#include "core/service.h"
#include "display/graphic.h"

namespace kez {

class View;

class Layer : public Object {
public:
    explicit Layer(View& view);
    Layer(const Layer&) = delete;
    Layer& operator=(const Layer&) = delete;
    ~Layer() override;

    /// Puts the item into its place by depth, out of any other layer. Its position becomes relative
    /// to the view. The item stays the caller's.
    void addToLayer(Graphic& item);
    void sortLayer(); ///< By decreasing depth; equal depths keep their order.

    [[nodiscard]] List& items() { return items_; }

    [[nodiscard]] View& view() const { return view_; }

    bool visible = true; ///< Drawn. Picking does not ask.

private:
    View& view_;
    List items_;
};

class View : public Service {
public:
    View(int x, int y, int depth, int width, int height, bool visible, bool inputEnabled);
    ~View() override;

    List& registry() override; ///< The display list.
    void attach() override; ///< Behind views of smaller depth, in front of those of equal depth.
    virtual void draw(); ///< Slot 11.
    virtual void invalidate(); ///< Slot 12: the content changed; nothing for a plain view.

    Layer& layer(int n); ///< Made on demand, with all lower ones.

    void add(Graphic& item) { layer(0).addToLayer(item); }

    void open(); ///< Attached, realized and shown.
    void close(); ///< None of these.

    void realize(); ///< Resolves sizes of 0, realizes every item and sorts the layers.
    void unrealize();

    int x, y, depth;
    int width, height; ///< 0: the stage's, from `realize` on.
    bool visible;
    bool inputEnabled; ///< The view's items can be picked.

    [[nodiscard]] List& layers() { return layers_; }

private:
    List layers_;
};

List& displayList();

/// The topmost visible item that the stage point hits, or null.
Graphic* pick(int px, int py);

/// Draws all attached views and the software cursor into the canvas and presents it.
void drawDisplayList();

} // namespace kez
