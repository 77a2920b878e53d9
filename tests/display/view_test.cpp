// SPDX-License-Identifier: MIT
#include "display/view.h"

#include "core/flags.h"
#include "display/canvas.h"
#include "display/cursor.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace kez {
namespace {

std::string trace;

/// Writes its letter into the trace when it is drawn, realized ('+') or unrealized ('-').
class Item : public Graphic {
public:
    Item(char ownLetter, int ownDepth, int size = 10)
        : Graphic({ .depth = ownDepth, .width = size, .height = size }, true, black)
        , letter(ownLetter)
    {
    }

    void draw() override { trace += letter; }

    bool drawsPixels() const override { return true; }

    void realize() override { (trace += '+') += letter; }

    void unrealize() override { (trace += '-') += letter; }

    char letter;
};

class SpyView : public View {
public:
    explicit SpyView(int ownDepth, int ownX = 0, int ownY = 0)
        : View(ownX, ownY, ownDepth, 0, 0, true, true)
    {
    }

    void invalidate() override { ++invalidations; }

    int invalidations = 0;
};

class ViewTest : public testing::Test {
protected:
    ViewTest() { trace.clear(); }

    ~ViewTest() override { EXPECT_EQ(displayList().count(), 0); }

    static std::string lettersOf(Layer& layer)
    {
        std::string letters;
        for (List* node = layer.items().first(); node != nullptr; node = node->next())
            letters += static_cast<Item*>(node->item())->letter;
        return letters;
    }

    static std::string drawn(View& view)
    {
        trace.clear();
        std::vector<CanvasPixel> pixels(16);
        const MemoryCanvas canvas(pixels.data(), 4, 4);
        view.draw();
        return trace;
    }
};

TEST_F(ViewTest, displayListRunsFromTheBack)
{
    SpyView front(5);
    SpyView back(10);
    SpyView sameDepth(5);
    front.attach();
    back.attach();
    sameDepth.attach();
    sameDepth.attach();
    ASSERT_EQ(displayList().count(), 3);
    EXPECT_EQ(displayList().at(0)->item(), &back);
    EXPECT_EQ(displayList().at(1)->item(), &front);
    EXPECT_EQ(displayList().at(2)->item(), &sameDepth);
    EXPECT_EQ(sameDepth.invalidations, 1);
}

TEST_F(ViewTest, ordersItemsByDepthAndArrival)
{
    SpyView view(0);
    Item a('a', 9), b('b', 3), c('c', 1), d('d', 3);
    for (Item* item : { &a, &b, &c, &d })
        view.add(*item);
    EXPECT_EQ(lettersOf(view.layer(0)), "abdc");
    c.depth = 9;
    view.layer(0).sortLayer();
    EXPECT_EQ(lettersOf(view.layer(0)), "acbd");
    EXPECT_EQ(drawn(view), "acbd");
}

TEST_F(ViewTest, positionsAreRelativeWhileInALayer)
{
    SpyView view(0, 100, 50);
    SpyView other(0, 10, 10);
    Item item('a', 0);
    item.x = 120;
    item.y = 60;
    view.add(item);
    view.add(item); // it is there already
    EXPECT_EQ(item.x, 20);
    EXPECT_EQ(item.y, 10);
    EXPECT_EQ(view.invalidations, 1);
    other.add(item);
    EXPECT_EQ(item.x, 110);
    EXPECT_EQ(view.layer(0).items().count(), 0);
    EXPECT_EQ(view.invalidations, 2);
    item.removeFromLayer();
    item.removeFromLayer();
    EXPECT_EQ(item.x, 120);
    EXPECT_EQ(item.y, 60);
    EXPECT_EQ(item.layer(), nullptr);
}

TEST_F(ViewTest, drawsOnlyWhatIsVisible)
{
    SpyView view(0);
    Item a('a', 0), b('b', 0), c('c', 0);
    view.layer(0).addToLayer(a);
    view.layer(1).addToLayer(b);
    view.layer(2).addToLayer(c);
    EXPECT_EQ(drawn(view), "abc");
    view.layer(1).visible = false;
    a.visible = false;
    EXPECT_EQ(drawn(view), "c");
    view.visible = false;
    EXPECT_EQ(drawn(view), "");
}

TEST_F(ViewTest, picksTheTopmostVisibleHit)
{
    SpyView back(10), front(5);
    back.attach();
    front.attach();
    Item a('a', 0, 40), b('b', 5), c('c', 0), d('d', 0);
    back.add(a);
    front.add(b);
    front.add(c);
    front.layer(1).addToLayer(d);
    front.layer(1).visible = false; // of no account to the mouse
    EXPECT_EQ(pick(0, 0), &d);
    d.visible = false;
    EXPECT_EQ(pick(0, 0), &c);
    EXPECT_EQ(pick(18, 0), &a);
    EXPECT_EQ(pick(100, 0), nullptr);
    front.inputEnabled = false;
    EXPECT_EQ(pick(0, 0), &a);
}

TEST_F(ViewTest, realizingResolvesTheSizeAndSorts)
{
    SpyView view(0);
    Item a('a', 1), b('b', 1);
    view.layer(0).addToLayer(a);
    view.layer(0).addToLayer(b);
    b.depth = 7;
    view.realize();
    EXPECT_EQ(view.width, 640);
    EXPECT_EQ(view.height, 480);
    EXPECT_EQ(lettersOf(view.layer(0)), "ba");
    view.unrealize();
    EXPECT_EQ(trace, "+a+b-b-a");
}

TEST_F(ViewTest, aViewThatGoesLetsItsItemsGo)
{
    Item item('a', 0);
    item.x = 120;
    {
        SpyView view(0, 100, 50);
        view.attach();
        view.add(item);
    }
    EXPECT_EQ(item.layer(), nullptr);
    EXPECT_EQ(item.x, 20); // relative still: the view is gone
    SpyView other(0);
    other.add(item);
    EXPECT_EQ(other.layer(0).items().count(), 1);
}

TEST_F(ViewTest, nothingTouchesAnythingElseWhileQuitting)
{
    auto view = std::make_unique<SpyView>(0);
    auto item = std::make_unique<Item>('a', 0);
    view->add(*item);
    quitting = true;
    item->removeFromLayer();
    EXPECT_NE(item->layer(), nullptr);
    view.reset(); // the item's layer is gone now, and the item must not ask for it
    item.reset();
    quitting = false;
}

TEST_F(ViewTest, theCursorIsDrawnLast)
{
    SpyView view(0);
    Item a('a', 0), pointer('p', 0);
    view.attach();
    view.add(a);
    std::vector<CanvasPixel> pixels(16);
    const MemoryCanvas canvas(pixels.data(), 4, 4);
    cursorObject = &pointer;
    hotSpot = { -15, -15 };
    drawDisplayList();
    cursorObject = nullptr;
    hotSpot = {};
    EXPECT_EQ(trace, "ap");
    EXPECT_EQ(pointer.x, cursorPosition.x + 15);
    EXPECT_EQ(pointer.y, cursorPosition.y + 15);
}

} // namespace
} // namespace kez
