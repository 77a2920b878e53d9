// SPDX-License-Identifier: MIT
// The camera against a host that fetches as hosts do: it watches the counter, moves it to 0, to
// each place before that place's upload, and to 0 again. Whenever pictures are taken, every one
// must arrive, and none twice.
#include "numbered_source.h"
#include "serial_camera.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>
#include <vector>

namespace kez::driver {
namespace {

using test::NumberedSource;

class Host {
public:
    /// `between` runs before every call to the camera: the moments at which somebody presses the
    /// button.
    Host(SerialCamera& camera, std::function<void()> between)
        : camera_(camera)
        , between_(std::move(between))
    {
    }

    bool connect()
    {
        unsigned char index = 0;
        char version[MVI_VERSION_BYTES];
        call([&] { return camera_.close(); });
        const bool connected = call([&] { return camera_.open("COM1"); }) == MVI_OK
            && call([&] { return camera_.firmwareVersion(version); }) == MVI_OK
            && call([&] { return camera_.imageIndex(&index); }) == MVI_OK;
        count_ = index;
        mode_ = 0;
        return connected;
    }

    void poll()
    {
        if (mode_ == 0 && count_ != 0)
            mode_ = -1;
        sync();
        if (std::exchange(eraseWanted_, false)) {
            mode_ = 0;
            moveCounter(0);
            count_ = 0;
        } else if (mode_ != 0) {
            downloadStep();
        } else {
            unsigned char index = 0;
            if (call([&] { return camera_.imageIndex(&index); }) == MVI_OK)
                count_ = index;
        }
    }

    void fetchAllSix() { mode_ = -2; }

    void erase() { eraseWanted_ = true; }

    std::vector<int> fetched; ///< The numbers of the pictures that came.

private:
    std::uint32_t call(const std::function<std::uint32_t()>& function)
    {
        between_();
        return function();
    }

    void sync()
    {
        while (call([&] { return camera_.sync(); }) == MVI_CAMERA_BUSY) { }
    }

    bool moveCounter(int target)
    {
        const auto persist = [this](const std::function<std::uint32_t()>& function) {
            std::uint32_t result = MVI_CAMERA_BUSY;
            while ((result = call(function)) == MVI_CAMERA_BUSY)
                sync();
            return result;
        };
        unsigned char index = 255;
        while (index != target)
            if (persist([&] { return camera_.resetCounter(target); }) != MVI_OK
                || persist([&] { return camera_.imageIndex(&index); }) != MVI_OK)
                return false;
        return true;
    }

    void downloadStep()
    {
        if (mode_ == -2) {
            if (!moveCounter(6))
                return;
            count_ = 6;
            mode_ = -1;
        } else if (mode_ == -1) {
            mode_ = count_;
            moveCounter(0);
            count_ = 0;
        } else if (count_ != 6 && count_ < mode_) {
            if (moveCounter(count_) && upload())
                ++count_;
        } else {
            moveCounter(0);
            count_ = 0;
            mode_ = 0;
        }
    }

    bool upload()
    {
        std::array<unsigned char, MVI_RAW_BYTES> raw;
        int lines = 0;
        int bytes = 0;
        if (call([&] { return camera_.beginUpload(&lines, &bytes); }) != MVI_OK)
            return false;
        for (int line = 0; line < lines; ++line)
            if (call([&] { return camera_.uploadLine(raw.data() + line * bytes, bytes); })
                != MVI_OK)
                return false;
        MVIGRABINFO info;
        if (call([&] { return camera_.uploadInfo(&info); }) != MVI_OK)
            return false;
        fetched.push_back(NumberedSource::numberOf(raw));
        return true;
    }

    SerialCamera& camera_;
    std::function<void()> between_;
    int count_ = 0;
    int mode_ = 0;
    bool eraseWanted_ = false;
};

std::vector<int> upTo(int last)
{
    std::vector<int> numbers;
    for (int i = 1; i <= last; ++i)
        numbers.push_back(i);
    return numbers;
}

struct Session {
    SerialCamera camera;
    std::shared_ptr<NumberedSource> source;

    explicit Session(int atStart)
        : source(std::make_shared<NumberedSource>(atStart))
    {
        camera.setPace(0);
        camera.useSource(source);
    }
};

TEST(LinkModel, aPressAtEveryMomentArrivesOnce)
{
    // Two pictures at the start make about 280 calls, most of them for lines, of which every ninth
    // will do. The third picture is pressed before each in turn.
    for (int moment = 0; moment<300; moment += moment> 20 && moment < 260 ? 9 : 1) {
        Session run(2);
        int calls = 0;
        Host host(run.camera, [&] {
            if (calls++ == moment) {
                EXPECT_TRUE(run.camera.pressButton());
            }
        });
        ASSERT_TRUE(host.connect());
        for (int i = 0; i < 20; ++i)
            host.poll();
        while (calls <= moment)
            host.poll();
        for (int i = 0; i < 10; ++i)
            host.poll();
        EXPECT_EQ(host.fetched, upTo(3)) << moment;
    }
}

TEST(LinkModel, manyPressesAllArriveInTheirOrder)
{
    unsigned random = 7;
    for (int round = 0; round < 3; ++round) {
        Session run(3);
        int pressed = 3;
        Host host(run.camera, [&] {
            random = random * 1664525 + 1013904223;
            if (pressed < 40 && (random >> 16) % 90 == 0 && run.camera.pressButton())
                ++pressed;
        });
        ASSERT_TRUE(host.connect());
        for (int i = 0; i < 400; ++i)
            host.poll();
        EXPECT_EQ(pressed, 40);
        EXPECT_EQ(host.fetched, upTo(pressed)) << round;
    }
}

TEST(LinkModel, fetchingAllSixLosesNoPictureTakenMeanwhile)
{
    for (int moment = 0; moment < 25; moment += 3) {
        Session run(1);
        int polls = 0;
        Host host(run.camera, [] {});
        ASSERT_TRUE(host.connect());
        for (; polls < 6; ++polls)
            host.poll();
        ASSERT_EQ(host.fetched, upTo(1));
        host.fetchAllSix();
        for (; polls < 40; ++polls) {
            if (polls - 6 == moment) {
                EXPECT_TRUE(run.camera.pressButton());
            }
            host.poll();
        }
        EXPECT_EQ(std::ranges::count(host.fetched, 2), 1) << moment;
        // The first picture comes again, unless the second was put over it before all began.
        EXPECT_EQ(std::ranges::count(host.fetched, 1), moment == 0 ? 1 : 2) << moment;
    }
}

TEST(LinkModel, anUnpluggedCableLosesNothing)
{
    for (int calls = 1; calls < 500; calls += 23) {
        Session run(4);
        Host host(run.camera, [] {});
        ASSERT_TRUE(run.camera.setFault("unplugged", calls));
        bool connected = host.connect();
        while (connected && run.camera.sync() == MVI_OK)
            host.poll();
        run.camera.setPlugged(true);
        ASSERT_TRUE(host.connect());
        for (int i = 0; i < 12; ++i)
            host.poll();
        EXPECT_EQ(host.fetched, upTo(4)) << calls;
    }
}

TEST(LinkModel, erasingForgetsWhatWasReported)
{
    Session run(5);
    Host host(run.camera, [] {});
    ASSERT_TRUE(host.connect());
    host.erase();
    for (int i = 0; i < 5; ++i)
        host.poll();
    EXPECT_TRUE(run.camera.pressButton());
    for (int i = 0; i < 8; ++i)
        host.poll();
    EXPECT_EQ(host.fetched, std::vector<int>({ 6 }));
}

} // namespace
} // namespace kez::driver
