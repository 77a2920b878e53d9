// SPDX-License-Identifier: MIT
#include "support/slots.h"

#include "display/scene.h"
#include "display/stage.h"
#include "display/view.h"

#include <gtest/gtest.h>

#include <vector>

namespace kez {
namespace {

using test::slotOf;

// The operations in the order of their slots, of which the first is given.
void expectSlots(int first, const std::vector<int>& slots)
{
    for (const int slot : slots)
        EXPECT_EQ(slot, first++);
}

TEST(Slots, areInTheirOrder)
{
    expectSlots(12,
        { slotOf(&Actor::create), slotOf(&Actor::enter), slotOf(&Actor::leave),
            slotOf(&Scene::onCreate), slotOf(&Scene::onEnter), slotOf(&Scene::onLeave) });
    expectSlots(11, { slotOf(&View::draw), slotOf(&View::invalidate) });
    expectSlots(7, { slotOf(&View::attach) });
    expectSlots(3, { slotOf(&Graphic::serialize) });
    expectSlots(5,
        { slotOf(&Graphic::setScale), slotOf(&Graphic::setHitMode), slotOf(&Graphic::left),
            slotOf(&Graphic::top), slotOf(&Graphic::right), slotOf(&Graphic::bottom),
            slotOf(&Graphic::hitTest), slotOf(&Graphic::fitInto), slotOf(&Graphic::changed),
            slotOf(&Graphic::draw), slotOf(&Graphic::realize), slotOf(&Graphic::unrealize),
            slotOf(&Graphic::drawsPixels), slotOf(&Graphic::moveToward) });
    using test::tableEntry; // the stage has no destructor among them
    expectSlots(0,
        { tableEntry(&Stage::onStart), tableEntry(&Stage::onReleased),
            tableEntry(&Stage::onStarted), tableEntry(&Stage::onReleasing),
            tableEntry(&Stage::frame), tableEntry(&Stage::hook5), tableEntry(&Stage::onInput) });
}

} // namespace
} // namespace kez
