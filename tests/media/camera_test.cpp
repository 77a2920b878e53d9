// SPDX-License-Identifier: MIT
// That no picture is lost is tested with the camera itself: driver/camera_link_test.cpp.
#include "media/camera.h"

#include "control_kernel.h"
#include "media/fake_camera.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>

using namespace kez;
using namespace kez::test;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;

namespace {

// The clock of the tests jumps while the threads sleep; the last suite runs in real time.
class CameraLink : public testing::Test {
protected:
    void SetUp() override
    {
        winapi::useScriptClock(1000);
        begin();
    }

    void TearDown() override
    {
        link.stop();
        settle();
        fake.afterCall = nullptr; // it refers to the test, and the link still closes the camera
        winapi::useRealClock();
    }

    void begin()
    {
        settle();
        link.reinitialise();
        fake = FakeCamera();
        link.setDriver(fakeDriver());
        for (int port = 0; port < 4; ++port)
            link.allowPort(port, true);
        heard.clear();
        arrived.clear();
    }

    void settle()
    {
        while (!link.isIdle())
            Sleep(1);
    }

    void tick(int times = 1)
    {
        for (; times > 0; --times) {
            link.tick();
            settle();
        }
    }

    void connect()
    {
        link.start(hear, this);
        settle();
    }

    // As the camera screen does.
    static int hear(Camera& camera, int notification, void* context)
    {
        auto& test = *static_cast<CameraLink*>(context);
        test.heard.push_back(notification);
        if (notification != Camera::PictureUploaded || camera.isUploading())
            return 0;
        test.arrived.push_back(camera.image()[0]);
        if (!camera.isDownloading())
            camera.issue(Camera::SetCounter, 0);
        return 0;
    }

    Camera& link = camera();
    FakeCamera& fake = fakeCamera();
    std::vector<int> heard;
    std::vector<int> arrived;
};

constexpr int lost = Camera::Lost, ready = Camera::Ready, count = Camera::CountChanged,
              picture = Camera::PictureUploaded;

TEST_F(CameraLink, fetchesThePicturesThatAreThereAtConnection)
{
    fake.take(3);
    connect();
    EXPECT_TRUE(link.isReady());
    EXPECT_EQ(link.pictureCount(), 3u);
    EXPECT_STREQ(link.driverVersion(), "sixteen bytes...");
    tick(40);
    EXPECT_THAT(arrived, ElementsAre(1, 2, 3));
    EXPECT_THAT(heard, ElementsAre(count, ready, picture, picture, picture, count));
    EXPECT_THAT(fake.resets, ElementsAre(0, 0, 1, 2, 0));
    EXPECT_EQ(link.pictureCount(), 0u);
    EXPECT_FALSE(link.isDownloading());
}

TEST_F(CameraLink, fetchesWhatIsTakenLater)
{
    connect();
    tick(6);
    fake.take();
    tick(20);
    fake.take(2);
    tick(30);
    EXPECT_THAT(arrived, ElementsAre(1, 2, 3));
    EXPECT_THAT(
        heard, ElementsAre(count, ready, count, picture, count, count, picture, picture, count));
}

TEST_F(CameraLink, fetchesAllSixPlacesOnRequest)
{
    fake.take(6);
    fake.counter = 2; // the other four were fetched before
    connect();
    EXPECT_TRUE(link.requestDownloadAll());
    EXPECT_FALSE(link.requestDownloadAll());
    tick(60);
    EXPECT_THAT(arrived, ElementsAre(1, 2, 3, 4, 5, 6));
    EXPECT_EQ(fake.counter, 0);
    EXPECT_TRUE(link.requestDownloadAll());
}

TEST_F(CameraLink, erasesWithoutANotification)
{
    fake.take(2);
    connect();
    link.requestErase();
    heard.clear();
    tick(10);
    EXPECT_EQ(fake.counter, 0);
    EXPECT_EQ(link.pictureCount(), 0u);
    EXPECT_THAT(arrived, IsEmpty());
    EXPECT_THAT(heard, IsEmpty());
}

TEST_F(CameraLink, triesTheAllowedPortsInOrder)
{
    fake.portsOpen = false;
    link.allowPort(1, false);
    connect();
    EXPECT_THAT(fake.opened, ElementsAre("COM1", "COM3", "COM4"));
    for (int port = 0; port < 4; ++port)
        link.allowPort(port, false);
    tick(3);
    EXPECT_EQ(fake.opened.size(), 3u);
    link.probePorts();
    fake.portsOpen = true;
    tick(3);
    EXPECT_EQ(fake.opened.back(), "COM1");
    EXPECT_TRUE(link.isReady());
}

TEST_F(CameraLink, tellsOnceThatThereIsNoCamera)
{
    fake.plugged = false;
    connect();
    tick(20);
    EXPECT_THAT(heard, ElementsAre(count, lost));
    fake.plugged = true;
    tick(20);
    EXPECT_THAT(heard, ElementsAre(count, lost, count, ready));
}

TEST_F(CameraLink, tellsOfALossWithTheFirstReconnectionThatFails)
{
    connect();
    tick(6);
    fake.plugged = false;
    heard.clear();
    tick(2); // the poll fails, the link begins anew
    EXPECT_FALSE(link.isReady());
    tick(20);
    EXPECT_THAT(heard, ElementsAre(count, lost)); // heard with the context of `start`
    fake.plugged = true;
    fake.take();
    tick(30);
    EXPECT_THAT(heard, ElementsAre(count, lost, count, ready, picture, count));
}

TEST_F(CameraLink, fetchesTheLatestAloneOnRequest)
{
    fake.take(3);
    connect();
    ASSERT_TRUE(link.issue(Camera::UploadLatest));
    settle();
    tick(2);
    EXPECT_THAT(arrived, ElementsAre(3));
}

TEST_F(CameraLink, believesNoCounterBeyondItsPlaces)
{
    fake.take(6);
    fake.counter = 200;
    connect();
    tick(80);
    EXPECT_THAT(arrived, ElementsAre(1, 2, 3, 4, 5, 6));
    EXPECT_FALSE(link.isDownloading());
}

TEST_F(CameraLink, triesAnUploadAgainAtOnceThatFindsTheCameraBusy)
{
    fake.take();
    fake.afterCall = [&](int call) {
        if (fake.resets.size() == 2 && fake.failures.empty())
            fake.failures[call + 2] = CameraBusy; // the upload's beginning
    };
    connect();
    tick(20);
    EXPECT_THAT(arrived, ElementsAre(1));
    EXPECT_THAT(fake.resets, ElementsAre(0, 0, 0)) << "not from the counter on";
}

TEST_F(CameraLink, movesTheCounterUntilItStandsThere)
{
    connect();
    tick(4);
    fake.failures[fake.calls + 2] = CameraBusy; // behind the question whether the camera is there
    fake.afterCall = [&](int) {
        if (fake.resets.size() == 1)
            fake.counter = 3; // somebody presses the button
    };
    ASSERT_TRUE(link.issue(Camera::SetCounter, 1));
    settle();
    fake.afterCall = nullptr;
    EXPECT_EQ(fake.counter, 1);
    EXPECT_THAT(fake.resets, ElementsAre(1, 1));
}

TEST_F(CameraLink, waitsForACameraThatIsBusyEveryOtherTime)
{
    fake.take(3);
    for (int call = 1; call < 2000; call += 2)
        fake.failures[call] = CameraBusy;
    fake.failures.erase(1); // the ports open at once
    connect();
    tick(200);
    EXPECT_THAT(arrived, IsSupersetOf({ 1, 2, 3 }));
}

TEST_F(CameraLink, canBeStoppedAndStartedWhileTheCameraIsBusyForEver)
{
    connect();
    tick(4);
    fake.busyCalls = 1 << 30;
    while (link.isIdle())
        link.tick();
    Sleep(200);
    ASSERT_FALSE(link.isIdle()); // the poll waits
    link.stop();
    link.start(hear, this);
    Sleep(200);
    link.stop();
    settle();
    fake.busyCalls = 0;
    connect();
    EXPECT_TRUE(link.isReady());
}

// A release waits in vain; when the program ends, the worker is still in the driver.
TEST_F(CameraLink, leavesADriverAloneThatDoesNotReturn)
{
    fake.take();
    fake.lineMs = 10000;
    connect();
    while (!link.isUploading()) {
        link.tick();
        Sleep(1);
    }
    const int calls = fake.calls;
    link.shutDown();
    link.shutDown();
    EXPECT_EQ(fake.calls, calls);
    settle();
    link.shutDown();
    EXPECT_EQ(fake.calls, calls + 2); // the line has come over, and the camera was closed
}

TEST_F(CameraLink, refusesPicturesThatDoNotFit)
{
    constexpr int most = static_cast<int>(Camera::rawBytes);
    const std::pair<int, int> lies[] = { { most + 1, 1 }, { 1, most + 1 }, { 143, 143 }, { -1, -1 },
        { -4, 100 }, { 4, -100 }, { 0, 100 }, { 4, 0 }, { 1 << 16, 1 << 16 },
        { INT32_MAX, INT32_MAX }, { INT32_MIN, INT32_MIN } };
    for (const auto& [lines, bytes] : lies) {
        SCOPED_TRACE(testing::Message() << lines << " lines of " << bytes);
        begin();
        fake.take();
        fake.lineCount = lines;
        fake.lineBytes = bytes;
        connect();
        tick(20);
        EXPECT_THAT(arrived, IsEmpty());
        EXPECT_FALSE(link.isUploading());
        fake.lineCount = 1;
        fake.lineBytes = most;
        tick(20);
        EXPECT_THAT(arrived, ElementsAre(1));
    }
}

TEST_F(CameraLink, runsOneCommandAtATime)
{
    connect();
    tick(4);
    fake.busyCalls = 3;
    ASSERT_TRUE(link.issue(Camera::Poll));
    EXPECT_FALSE(link.issue(Camera::Poll));
    EXPECT_TRUE(link.issue(Camera::Buzz, 1, 2)); // waits for the poll
    EXPECT_FALSE(link.issue(Camera::SetCounter, 0));
    settle();
    ASSERT_TRUE(link.issue(Camera::Grab, 5, 6));
    settle();
    EXPECT_FALSE(link.issue(Camera::Buzz, 1, 2)); // until the grab's result is known
    tick();
    EXPECT_TRUE(link.issue(Camera::Buzz, 1, 2));
}

TEST_F(CameraLink, reportsABadExposure)
{
    connect();
    tick(4);
    heard.clear();
    fake.grabAnswer = CameraBusy;
    ASSERT_TRUE(link.issue(Camera::Grab, 5, 6));
    settle();
    tick(3);
    EXPECT_THAT(heard, IsEmpty());
    fake.grabAnswer = CameraBadExposure;
    tick(3);
    EXPECT_THAT(heard, ElementsAre(Camera::BadExposure));
    EXPECT_TRUE(link.isReady());
}

TEST_F(CameraLink, enlargesTheLatestPictureOrAnother)
{
    fake.take();
    connect();
    tick(20);
    std::uint8_t enlarged = 0;
    std::uint8_t other = 77;
    EXPECT_EQ(link.enlarge(&enlarged, nullptr), &enlarged);
    EXPECT_EQ(enlarged, 1);
    EXPECT_EQ(link.enlarge(&enlarged, &other), &enlarged);
    EXPECT_EQ(enlarged, 77);
    fake.failures[fake.calls + 1] = CameraImageEnlargeFail;
    EXPECT_EQ(link.enlarge(&enlarged, nullptr), nullptr);
    EXPECT_EQ(link.lastResult(), CameraImageEnlargeFail);
}

// What runs here really runs at the same time; it is for the thread sanitizer.
class CameraLinkInRealTime : public CameraLink {
protected:
    void SetUp() override { begin(); }
};

TEST_F(CameraLinkInRealTime, handsPicturesOver)
{
    fake.take(5);
    link.start(hear, this);
    for (int i = 0; i < 2000 && (arrived.size() < 5 || link.isDownloading()); ++i) {
        link.tick();
        Sleep(1);
    }
    EXPECT_THAT(arrived, ElementsAre(1, 2, 3, 4, 5));
}

TEST_F(CameraLinkInRealTime, stopsAndStartsAtAnyMoment)
{
    fake.take(5);
    for (int round = 0; round < 50; ++round) {
        link.start(hear, this);
        for (int i = 0; i < round; ++i) {
            link.tick();
            Sleep(0);
        }
        link.stop();
        EXPECT_FALSE(link.isUploading());
    }
    settle();
    arrived.clear();
    fake.take(6);
    connect();
    link.requestDownloadAll();
    tick(60);
    EXPECT_THAT(arrived, testing::SizeIs(testing::Ge(6u)));
}

TEST(CameraDriver, isWholeAlsoWithoutALibrary)
{
    const CameraDriver driver = loadCameraDriver();
    EXPECT_NE(driver.openCamera, nullptr);
    EXPECT_NE(driver.soundBuzzer, nullptr);
}

TEST(CameraResult, isNamedAsTheDriverDoes)
{
    EXPECT_STREQ(describeCameraResult(0xFFFF0024).name, "MVI_COMMS_BAD_PACKET");
    EXPECT_STREQ(describeCameraResult(0xFFFF0024).text, "STX or ETX not found where expected");
    EXPECT_STREQ(describeCameraResult(0xFFFF0034).name, "MVI_IMAGE_BGRMV_FAIL");
    EXPECT_STREQ(describeCameraResult(0).name, "UNKNOWN");
    EXPECT_STREQ(describeCameraResult(0xFFFF0003).text, "");
}

TEST(CameraDeathTest, thereIsOnlyOne)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    camera();
    EXPECT_EXIT(new Camera, testing::ExitedWithCode(19), "");
}

} // namespace
