// SPDX-License-Identifier: MIT
// What hosts may do that the link does not; what the link does is in camera_link_test.cpp.
#include "camera_memory.h"

#include <gtest/gtest.h>

namespace kez::driver {
namespace {

/// A memory whose pictures bear a number each.
struct Numbered {
    CameraMemory memory;
    int taken = 0;

    void take()
    {
        RawPicture raw {};
        raw[0] = static_cast<std::uint8_t>(++taken);
        memory.take(std::make_shared<const RawPicture>(raw));
    }

    int fetch(int place)
    {
        memory.moveCounter(place);
        EXPECT_EQ(memory.readCounter(), place);
        memory.markFetched(place);
        const RawPointer raw = memory.at(place);
        return raw == nullptr ? 0 : (*raw)[0];
    }

    void moveTo(int place)
    {
        memory.moveCounter(place);
        EXPECT_EQ(memory.readCounter(), place);
    }
};

TEST(CameraMemory, aHostThatLooksAfterAnUploadHasNotFinished)
{
    Numbered camera;
    camera.take();
    camera.take();
    EXPECT_EQ(camera.memory.readCounter(), 2);
    camera.moveTo(0);
    EXPECT_EQ(camera.fetch(0), 1);
    EXPECT_EQ(camera.memory.readCounter(), 0);
    EXPECT_EQ(camera.memory.room(), 5) << "the second picture was erased";
    camera.take();
    EXPECT_EQ(camera.memory.readCounter(), 0);
}

TEST(CameraMemory, neverHoldsMoreThanSixThatWait)
{
    Numbered camera;
    for (int i = 0; i < 4; ++i)
        camera.take();
    EXPECT_EQ(camera.memory.readCounter(), 4);
    camera.moveTo(0);
    camera.take();
    camera.take();
    EXPECT_TRUE(camera.memory.isFull());
    EXPECT_EQ(camera.fetch(0), 1);
    EXPECT_EQ(camera.memory.room(), 1);
    camera.take();
    EXPECT_TRUE(camera.memory.isFull());
}

TEST(CameraMemory, takesNoneWhileAHostLeavesTheCounterAtSix)
{
    CameraMemory memory;
    memory.moveCounter(6);
    EXPECT_FALSE(memory.isFull()); // so far it is only the host's word
    EXPECT_EQ(memory.readCounter() + memory.readCounter(), 12);
    EXPECT_TRUE(memory.isFull());
}

TEST(CameraMemory, aPictureByTheHostsCommandLiesAtTheCounterAtOnce)
{
    Numbered camera;
    camera.take(); // unreported
    camera.moveTo(0);
    camera.memory.takeAtCounter(std::make_shared<const RawPicture>(RawPicture { 99 }));
    EXPECT_EQ((*camera.memory.at(0))[0], 99);
    EXPECT_EQ(camera.memory.readCounter(), 2);
    EXPECT_EQ(camera.fetch(0), 99);
    EXPECT_EQ(camera.fetch(1), 1);
}

} // namespace
} // namespace kez::driver
