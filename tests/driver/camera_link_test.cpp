// SPDX-License-Identifier: MIT
// The link (media/camera.h) and the camera, each as it is, with a driver between them that only
// lets the test act before every call. Whenever pictures are taken, every one must arrive, and none
// twice.
#include "media/camera.h"

#include "control_kernel.h"
#include "numbered_source.h"
#include "qxdcdll.h"
#include "the_camera.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <numeric>
#include <vector>

namespace kez::driver {
namespace {

using test::NumberedSource;

// On the link's worker. An answer other than 0 is the call's, which does not reach the camera.
std::function<std::uint32_t()> beforeCall;

template <auto function, class... Arguments>
constexpr auto watched(std::uint32_t (*)(Arguments...))
{
    return +[](Arguments... arguments) {
        const std::uint32_t failure = beforeCall();
        return failure != MVI_OK ? failure : function(arguments...);
    };
}

#define WATCHED(function) watched<function>(function)

constexpr CameraDriver watchedDriver {
    .openCamera = WATCHED(MviOpenCamera),
    .closeCamera = WATCHED(MviCloseCamera),
    .getDriverVersion = WATCHED(MviGetDLLVersion),
    .getFirmwareVersion = WATCHED(MviGetFirmwareVersion),
    .getImageIndex = WATCHED(MviGetImageIndex),
    .resetImageCounter = WATCHED(MviResetImageCounter),
    .syncCamera = WATCHED(MviSyncCamera),
    .beginUpload = WATCHED(MviBeginUploadImage),
    .uploadLine = WATCHED(MviUploadImageLine),
    .uploadInfo = WATCHED(MviUploadImageInfo),
    .colourizeImage = WATCHED(MviColourizeImage),
};

std::vector<int> upTo(int last)
{
    std::vector<int> numbers(static_cast<std::size_t>(last));
    std::iota(numbers.begin(), numbers.end(), 1);
    return numbers;
}

class CameraLinkToTheDriver : public testing::Test {
protected:
    void SetUp() override { winapi::useScriptClock(0); } // nobody waits while the link sleeps

    void TearDown() override
    {
        link.stop();
        settle();
        link.setDriver({});
        winapi::useRealClock();
    }

    // A camera that has taken some pictures, and a link that knows nothing of it.
    void begin(int atStart)
    {
        settle();
        link.reinitialise();
        link.setDriver(watchedDriver);
        theCamera().setPace(0);
        theCamera().setPlugged(true);
        theCamera().useSource(std::make_shared<NumberedSource>(atStart));
        calls = 0;
        atCall(-1, [] { return MVI_OK; });
        arrived.clear();
    }

    void atCall(int moment, std::function<std::uint32_t()> action)
    {
        beforeCall = [this, moment, action] { return calls++ == moment ? action() : MVI_OK; };
    }

    void connect()
    {
        link.start(hear, this);
        settle();
    }

    void settle()
    {
        while (!link.isIdle())
            Sleep(1);
    }

    void tick(int times)
    {
        for (; times > 0; --times) {
            link.tick();
            settle();
        }
    }

    static int hear(Camera& camera, int notification, void* context)
    {
        if (notification == Camera::PictureUploaded)
            static_cast<CameraLinkToTheDriver*>(context)->arrived.push_back(
                NumberedSource::numberIn(std::span<const std::uint8_t, MVI_PICTURE_BYTES>(
                    camera.image(), MVI_PICTURE_BYTES)));
        return 0;
    }

    Camera& link = camera();
    std::vector<int> arrived;
    int calls = 0;
};

// Two pictures at the start make about 280 calls, most of them for lines, of which every ninth will
// do.
int momentAfter(int moment)
{
    return moment + (moment > 20 && moment < 260 ? 9 : 1);
}

TEST_F(CameraLinkToTheDriver, bringsAPictureThatIsTakenAtAnyMomentOnce)
{
    for (int moment = 0; moment < 300; moment = momentAfter(moment)) {
        begin(2);
        atCall(moment, [] {
            EXPECT_TRUE(theCamera().pressButton());
            return MVI_OK;
        });
        connect();
        while (calls <= moment)
            tick(1);
        tick(40);
        ASSERT_EQ(arrived, upTo(3)) << moment;
        EXPECT_EQ(link.pictureCount(), 0u);
    }
}

TEST_F(CameraLinkToTheDriver, bringsManyInTheirOrder)
{
    begin(3);
    unsigned random = 7;
    int taken = 3;
    beforeCall = [&] {
        random = random * 1664525 + 1013904223;
        if (taken < 50 && (random >> 16) % 90 == 0 && theCamera().pressButton())
            ++taken;
        return MVI_OK;
    };
    connect();
    tick(800);
    EXPECT_EQ(taken, 50);
    EXPECT_EQ(arrived, upTo(50));
}

TEST_F(CameraLinkToTheDriver, losesNothingTakenWhileAllSixPlacesComeAgain)
{
    for (int moment = 0; moment < 25; moment += 3) {
        SCOPED_TRACE(moment);
        begin(1);
        connect();
        tick(12);
        ASSERT_EQ(arrived, upTo(1));
        ASSERT_TRUE(link.requestDownloadAll());
        tick(moment);
        EXPECT_TRUE(theCamera().pressButton());
        tick(60);
        EXPECT_EQ(std::ranges::count(arrived, 2), 1);
        // The first picture comes again, unless the second was put over it before all began.
        EXPECT_EQ(std::ranges::count(arrived, 1), moment == 0 ? 1 : 2);
    }
}

TEST_F(CameraLinkToTheDriver, losesNothingWhenTheCableIsPulledInAnyCall)
{
    for (int call = 1; call < 500; call += 23) {
        begin(4);
        ASSERT_TRUE(theCamera().setFault("unplugged", call));
        connect();
        tick(40);
        theCamera().setPlugged(true);
        tick(40);
        ASSERT_EQ(arrived, upTo(4)) << call;
    }
}

TEST_F(CameraLinkToTheDriver, comesThroughTheFailureOfAnyCall)
{
    for (const std::uint32_t failure : { MVI_COMMS_NAK, MVI_CAMERA_BUSY, MVI_COMMS_TIMEOUT })
        for (int moment = 0; moment < 300; moment = momentAfter(moment)) {
            begin(2);
            atCall(moment, [failure] { return failure; });
            connect();
            tick(30);
            ASSERT_EQ(arrived, upTo(2)) << std::hex << failure << " in call " << std::dec << moment;
        }
}

TEST_F(CameraLinkToTheDriver, forgetsWhatIsErased)
{
    begin(5);
    connect();
    link.requestErase();
    tick(10);
    EXPECT_TRUE(theCamera().pressButton());
    tick(20);
    EXPECT_EQ(arrived, std::vector<int>({ 6 }));
}

} // namespace
} // namespace kez::driver
