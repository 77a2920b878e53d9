// SPDX-License-Identifier: MIT
#include "support/slots.h"

#include "display/scene.h"
#include "display/stage.h"
#include "display/view.h"

#include <gtest/gtest.h>

namespace kez {
namespace {

using test::slotOf;

TEST(Slots, ofActorAndScene)
{
    EXPECT_EQ(slotOf(&Actor::create), 12);
    EXPECT_EQ(slotOf(&Actor::enter), 13);
    EXPECT_EQ(slotOf(&Actor::leave), 14);
    EXPECT_EQ(slotOf(&Scene::onCreate), 15);
    EXPECT_EQ(slotOf(&Scene::onEnter), 16);
    EXPECT_EQ(slotOf(&Scene::onLeave), 17);
}

TEST(Slots, ofView)
{
    EXPECT_EQ(slotOf(&View::attach), 7);
    EXPECT_EQ(slotOf(&View::draw), 11);
    EXPECT_EQ(slotOf(&View::invalidate), 12);
}

TEST(Slots, ofGraphic)
{
    EXPECT_EQ(slotOf(&Graphic::serialize), 3);
    EXPECT_EQ(slotOf(&Graphic::setScale), 5);
    EXPECT_EQ(slotOf(&Graphic::setHitMode), 6);
    EXPECT_EQ(slotOf(&Graphic::left), 7);
    EXPECT_EQ(slotOf(&Graphic::top), 8);
    EXPECT_EQ(slotOf(&Graphic::right), 9);
    EXPECT_EQ(slotOf(&Graphic::bottom), 10);
    EXPECT_EQ(slotOf(&Graphic::hitTest), 11);
    EXPECT_EQ(slotOf(&Graphic::fitInto), 12);
    EXPECT_EQ(slotOf(&Graphic::changed), 13);
    EXPECT_EQ(slotOf(&Graphic::draw), 14);
    EXPECT_EQ(slotOf(&Graphic::realize), 15);
    EXPECT_EQ(slotOf(&Graphic::unrealize), 16);
    EXPECT_EQ(slotOf(&Graphic::drawsPixels), 17);
    EXPECT_EQ(slotOf(&Graphic::moveToward), 18);
}

TEST(Slots, ofStage) // no destructor among them
{
    using test::tableEntry;
    EXPECT_EQ(tableEntry(&Stage::onStart), 0);
    EXPECT_EQ(tableEntry(&Stage::onReleased), 1);
    EXPECT_EQ(tableEntry(&Stage::onStarted), 2);
    EXPECT_EQ(tableEntry(&Stage::onReleasing), 3);
    EXPECT_EQ(tableEntry(&Stage::frame), 4);
    EXPECT_EQ(tableEntry(&Stage::hook5), 5);
    EXPECT_EQ(tableEntry(&Stage::onInput), 6);
}

} // namespace
} // namespace kez
