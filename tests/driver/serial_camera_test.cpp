// SPDX-License-Identifier: MIT
#include "control_kernel.h"
#include "numbered_source.h"
#include "raw_form.h"
#include "serial_camera.h"

#include <windows.h>

#include <mmsystem.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <atomic>

namespace kez::driver {
namespace {

using Result = SerialCamera::Result;
using test::NumberedSource;

class SerialCameraTest : public testing::Test {
protected:
    SerialCameraTest()
    {
        camera.setPace(0);
        camera.useSource(std::make_shared<NumberedSource>(2));
    }

    Result uploadLines(int count)
    {
        Result result = MVI_OK;
        for (int i = 0; i < count && result == MVI_OK; ++i) {
            result = camera.uploadLine(line.data(), rawLineBytes);
            if (i < rawLines)
                std::copy(line.begin(), line.end(), raw.begin() + i * rawLineBytes);
        }
        return result;
    }

    int index()
    {
        unsigned char read = 255;
        EXPECT_EQ(camera.imageIndex(&read), MVI_OK);
        return read;
    }

    SerialCamera camera;
    int lines = 0;
    int bytes = 0;
    MVIGRABINFO info {};
    std::array<unsigned char, rawLineBytes> line {};
    std::array<unsigned char, MVI_RAW_BYTES> raw {};
};

TEST_F(SerialCameraTest, isOnItsPortOnly)
{
    EXPECT_EQ(camera.open("COM2"), MVI_CAMERA_NOT_PRESENT);
    EXPECT_EQ(camera.open("COM4"), MVI_CAMERA_NOT_PRESENT);
    EXPECT_EQ(camera.open("LPT1"), MVI_BAD_PARM);
    EXPECT_EQ(camera.open(""), MVI_BAD_PARM);
    EXPECT_EQ(camera.open(nullptr), MVI_NULL_POINTER);
    EXPECT_EQ(camera.open("com1"), MVI_OK);
    EXPECT_EQ(camera.open("COM1"), MVI_OK);
    EXPECT_EQ(index(), 2);
    camera.setPlugged(false);
    EXPECT_EQ(camera.open("COM1"), MVI_CAMERA_NOT_PRESENT);
    camera.setPlugged(true);
    camera.useSource(nullptr);
    EXPECT_EQ(camera.open("COM1"), MVI_CAMERA_NOT_PRESENT);
}

TEST_F(SerialCameraTest, everyCommandNeedsAnOpenCameraOnItsCable)
{
    unsigned char read = 0;
    char version[MVI_VERSION_BYTES];
    const auto all = [&] {
        return std::array { camera.firmwareVersion(version), camera.imageIndex(&read),
            camera.resetCounter(0), camera.sync(), camera.beginUpload(&lines, &bytes),
            camera.uploadLine(line.data(), rawLineBytes), camera.uploadInfo(&info), camera.grab(),
            camera.grabResult(), camera.buzz() };
    };
    EXPECT_THAT(all(), testing::Each(MVI_COMMS_NOT_OPEN));
    ASSERT_EQ(camera.open("COM1"), MVI_OK);
    camera.setPlugged(false);
    EXPECT_THAT(all(), testing::Each(MVI_COMMS_TIMEOUT));
    EXPECT_EQ(camera.close(), MVI_OK);
    EXPECT_EQ(camera.close(), MVI_OK);
    EXPECT_THAT(all(), testing::Each(MVI_COMMS_NOT_OPEN));
}

TEST_F(SerialCameraTest, refusesWrongArguments)
{
    ASSERT_EQ(camera.open("COM1"), MVI_OK);
    EXPECT_EQ(camera.imageIndex(nullptr), MVI_NULL_POINTER);
    EXPECT_EQ(camera.firmwareVersion(nullptr), MVI_NULL_POINTER);
    EXPECT_EQ(camera.beginUpload(nullptr, &bytes), MVI_NULL_POINTER);
    EXPECT_EQ(camera.uploadLine(nullptr, rawLineBytes), MVI_NULL_POINTER);
    EXPECT_EQ(camera.uploadInfo(nullptr), MVI_NULL_POINTER);
    EXPECT_EQ(camera.resetCounter(-1), MVI_BAD_PARM);
    EXPECT_EQ(camera.resetCounter(7), MVI_BAD_PARM);
    EXPECT_EQ(camera.uploadLine(line.data(), rawLineBytes - 1), MVI_BUFFER_TOO_SMALL);
    EXPECT_EQ(camera.uploadLine(line.data(), -1), MVI_BUFFER_TOO_SMALL);
}

TEST_F(SerialCameraTest, anUploadIsBeginLinesAndInfo)
{
    ASSERT_EQ(camera.open("COM1"), MVI_OK);
    EXPECT_EQ(camera.uploadLine(line.data(), rawLineBytes), MVI_IMAGE_NULL);
    EXPECT_EQ(camera.uploadInfo(&info), MVI_IMAGE_NULL);
    ASSERT_EQ(camera.resetCounter(1), MVI_OK);
    ASSERT_EQ(camera.beginUpload(&lines, &bytes), MVI_OK);
    EXPECT_EQ(lines * bytes, MVI_RAW_BYTES);
    EXPECT_EQ(uploadLines(lines), MVI_OK);
    EXPECT_EQ(NumberedSource::numberOf(raw), 2);
    EXPECT_EQ(uploadLines(1), MVI_COMMS_BAD_PACKET);
    EXPECT_EQ(camera.uploadInfo(&info), MVI_OK);
    EXPECT_EQ(info.place, 1u);
    EXPECT_EQ(info.exposed, 1u);
    EXPECT_EQ(info.lineCount * info.lineBytes, 20336u);
    ASSERT_EQ(camera.beginUpload(&lines, &bytes), MVI_OK);
    EXPECT_EQ(uploadLines(lines - 1), MVI_OK);
    EXPECT_EQ(camera.uploadInfo(&info), MVI_COMMS_BAD_PACKET);
    ASSERT_EQ(camera.resetCounter(5), MVI_OK); // nothing was ever there
    ASSERT_EQ(camera.beginUpload(&lines, &bytes), MVI_OK);
    EXPECT_EQ(uploadLines(lines), MVI_OK);
    EXPECT_EQ(camera.uploadInfo(&info), MVI_OK);
    EXPECT_EQ(info.exposed, 0u);
    ASSERT_EQ(camera.resetCounter(6), MVI_OK);
    EXPECT_EQ(camera.beginUpload(&lines, &bytes), MVI_IMAGE_NULL);
}

TEST_F(SerialCameraTest, aFullCameraTakesNoMore)
{
    ASSERT_EQ(camera.open("COM1"), MVI_OK);
    for (int i = 0; i < 4; ++i)
        EXPECT_TRUE(camera.pressButton());
    EXPECT_FALSE(camera.pressButton());
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(camera.sync(), MVI_OK);
    EXPECT_EQ(index(), 6);
    EXPECT_FALSE(camera.pressButton());
    EXPECT_EQ(camera.grab(), MVI_CAMERA_FULL);
    EXPECT_EQ(camera.grabResult(), MVI_CAMERA_FULL);
}

TEST_F(SerialCameraTest, aGrabPutsAPictureAtTheCounter)
{
    ASSERT_EQ(camera.open("COM1"), MVI_OK);
    EXPECT_EQ(camera.grabResult(), MVI_ERROR);
    EXPECT_EQ(camera.grab(), MVI_OK);
    EXPECT_EQ(camera.grabResult(), MVI_OK);
    EXPECT_EQ(index(), 3);
    ASSERT_TRUE(camera.setFault("bad-exposure", 1));
    EXPECT_EQ(camera.grab(), MVI_OK);
    EXPECT_EQ(camera.grabResult(), MVI_CAMERA_BAD_EXPOSURE);
    EXPECT_EQ(index(), 3);
}

struct FaultCase {
    const char* name;
    Result result;
};

TEST_F(SerialCameraTest, misbehavesAsOftenAsItIsTold)
{
    ASSERT_EQ(camera.open("COM1"), MVI_OK);
    const FaultCase cases[] = { { "busy", MVI_CAMERA_BUSY }, { "refusing", MVI_COMMS_NAK },
        { "silent", MVI_COMMS_TIMEOUT } };
    for (const FaultCase& fault : cases) {
        ASSERT_TRUE(camera.setFault(fault.name, 2));
        EXPECT_EQ(camera.sync(), fault.result);
        EXPECT_EQ(camera.buzz(), fault.result);
        EXPECT_EQ(camera.sync(), MVI_OK);
        ASSERT_TRUE(camera.setFault(fault.name, -1));
        for (int i = 0; i < 10; ++i)
            EXPECT_EQ(camera.sync(), fault.result);
        ASSERT_TRUE(camera.setFault(fault.name, 0));
        EXPECT_EQ(camera.sync(), MVI_OK);
    }
    EXPECT_FALSE(camera.setFault("melting", 1));
    ASSERT_TRUE(camera.setFault("unplugged", 2));
    EXPECT_EQ(camera.sync(), MVI_OK);
    EXPECT_EQ(camera.sync(), MVI_OK);
    EXPECT_EQ(camera.sync(), MVI_COMMS_TIMEOUT);
    camera.setPlugged(true);
    EXPECT_EQ(camera.sync(), MVI_OK);
}

TEST_F(SerialCameraTest, liesAboutItsLinesOnRequest)
{
    ASSERT_EQ(camera.open("COM1"), MVI_OK);
    ASSERT_EQ(camera.resetCounter(0), MVI_OK);
    ASSERT_TRUE(camera.setFault("too-many-lines", 1));
    EXPECT_EQ(camera.beginUpload(&lines, &bytes), MVI_OK);
    EXPECT_EQ(lines, 20'000);
    EXPECT_EQ(uploadLines(lines), MVI_COMMS_BAD_PACKET); // a host that believes it
    ASSERT_TRUE(camera.setFault("negative-lines", 1));
    EXPECT_EQ(camera.beginUpload(&lines, &bytes), MVI_OK);
    EXPECT_LT(lines, 0);
    EXPECT_EQ(camera.uploadInfo(&info), MVI_COMMS_BAD_PACKET);
    ASSERT_TRUE(camera.setFault("long-lines", 1));
    EXPECT_EQ(camera.beginUpload(&lines, &bytes), MVI_OK);
    EXPECT_GT(lines * bytes, MVI_RAW_BYTES);
    EXPECT_EQ(camera.beginUpload(&lines, &bytes), MVI_OK);
    EXPECT_EQ(lines * bytes, MVI_RAW_BYTES);
}

TEST_F(SerialCameraTest, takesTheLinesTime)
{
    winapi::useScriptClock(0);
    camera.setPace(1000);
    ASSERT_EQ(camera.open("COM1"), MVI_OK);
    ASSERT_EQ(camera.resetCounter(0), MVI_OK);
    const DWORD before = timeGetTime();
    ASSERT_EQ(camera.beginUpload(&lines, &bytes), MVI_OK);
    EXPECT_EQ(uploadLines(lines), MVI_OK);
    EXPECT_EQ(camera.uploadInfo(&info), MVI_OK);
    EXPECT_NEAR(timeGetTime() - before, 1200.0, 100.0);
    // While a picture is written the camera is busy, and then no longer.
    EXPECT_TRUE(camera.pressButton());
    EXPECT_EQ(camera.sync(), MVI_CAMERA_BUSY);
    unsigned char read = 0;
    EXPECT_EQ(camera.imageIndex(&read), MVI_CAMERA_BUSY);
    Sleep(400);
    EXPECT_EQ(camera.sync(), MVI_OK);
    winapi::useRealClock();
}

struct Storm {
    SerialCamera* camera;
    std::atomic<bool> ends = false;
};

DWORD WINAPI callAll(LPVOID passed)
{
    Storm& storm = *static_cast<Storm*>(passed);
    SerialCamera& camera = *storm.camera;
    std::array<unsigned char, rawLineBytes> line {};
    MVIGRABINFO info;
    unsigned char read = 0;
    int lines = 0;
    int bytes = 0;
    while (!storm.ends) {
        camera.open("COM1");
        camera.sync();
        camera.imageIndex(&read);
        camera.resetCounter(read % 6);
        camera.beginUpload(&lines, &bytes);
        for (int i = 0; i < 10; ++i)
            camera.uploadLine(line.data(), rawLineBytes);
        camera.uploadInfo(&info);
        camera.grab();
        camera.grabResult();
    }
    return 0;
}

TEST_F(SerialCameraTest, mayBeCalledFromSeveralThreads)
{
    // What comes of it is chance; the thread sanitizer sees whether it was sound.
    Storm storm { &camera };
    HANDLE threads[2];
    for (HANDLE& thread : threads)
        thread = CreateThread(nullptr, 0, callAll, &storm, 0, nullptr);
    for (int i = 0; i < 300; ++i) {
        static_cast<void>(camera.pressButton());
        camera.setPlugged(i % 5 != 0);
        static_cast<void>(camera.setFault("busy", 1));
        camera.setPace(0);
        if (i % 20 == 0)
            camera.useSource(std::make_shared<NumberedSource>(2));
        camera.close();
    }
    storm.ends = true;
    for (const HANDLE thread : threads) {
        EXPECT_EQ(WaitForSingleObject(thread, INFINITE), WAIT_OBJECT_0);
        CloseHandle(thread);
    }
}

} // namespace
} // namespace kez::driver
