// SPDX-License-Identifier: MIT
#include "raw_form.h"
#include "sample_picture.h"
#include "serial_camera.h"

#include "platform/path_names.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace kez::driver {

namespace {

// Milliseconds on a line of 115,200 baud: a picture takes 1.2 seconds.
constexpr unsigned openTime = 120;
constexpr unsigned commandTime = 6;
constexpr unsigned lineTime = 10;

constexpr char firmware[MVI_VERSION_BYTES] = "kez camera 1.0";

bool isPort(const char* name)
{
    for (const char* const port : { "COM1", "COM2", "COM3", "COM4" })
        if (files::sameName(name, port))
            return true;
    return false;
}

constexpr const char* cameraPort = "COM1";

} // namespace

SerialCamera::Result SerialCamera::open(const char* port)
{
    if (port == nullptr)
        return MVI_NULL_POINTER;
    if (!isPort(port))
        return MVI_BAD_PARM;
    int atStart = 0;
    {
        const std::lock_guard guard(lock_);
        open_ = isConnected() && files::sameName(port, cameraPort);
        if (open_ && !std::exchange(started_, true))
            atStart = source_->atStart();
    }
    for (; atStart > 0; --atStart)
        if (!takePicture(Shutter::Waiting, Goes::InTurn))
            break;
    passTime(openTime);
    const std::lock_guard guard(lock_);
    memory_.hangUp();
    upload_ = {};
    writing_ = false;
    return open_ ? MVI_OK : MVI_CAMERA_NOT_PRESENT;
}

SerialCamera::Result SerialCamera::close()
{
    const std::lock_guard guard(lock_);
    if (std::exchange(open_, false))
        memory_.hangUp();
    upload_ = {};
    return MVI_OK;
}

SerialCamera::Result SerialCamera::firmwareVersion(char* version)
{
    if (version == nullptr)
        return MVI_NULL_POINTER;
    const Result result = converse(commandTime);
    if (result == MVI_OK)
        std::memcpy(version, firmware, sizeof firmware);
    return result;
}

SerialCamera::Result SerialCamera::imageIndex(unsigned char* index)
{
    if (index == nullptr)
        return MVI_NULL_POINTER;
    const Result result = converse(commandTime);
    if (result != MVI_OK)
        return result;
    const std::lock_guard guard(lock_);
    *index = static_cast<unsigned char>(memory_.readCounter());
    return MVI_OK;
}

SerialCamera::Result SerialCamera::resetCounter(int place)
{
    if (place < 0 || place > CameraMemory::places)
        return MVI_BAD_PARM;
    const Result result = converse(commandTime);
    if (result != MVI_OK)
        return result;
    const std::lock_guard guard(lock_);
    memory_.moveCounter(place);
    upload_ = {};
    return MVI_OK;
}

SerialCamera::Result SerialCamera::sync()
{
    const Result result = converse(commandTime);
    if (result != MVI_OK)
        return result;
    bool pressed = false;
    {
        const std::lock_guard guard(lock_);
        pressed = presses_ > 0;
    }
    const bool taken = takePicture(pressed ? Shutter::Pressed : Shutter::Waiting, Goes::InTurn);
    const std::lock_guard guard(lock_);
    // A press is over also when there was nothing to take a picture of.
    if (pressed && presses_ > 0)
        --presses_;
    return taken && isWriting() ? MVI_CAMERA_BUSY : MVI_OK;
}

void SerialCamera::lie(int& lineCount, int& lineBytes)
{
    if (faults_.happens(Fault::TooManyLines))
        lineCount = 20'000;
    if (faults_.happens(Fault::NegativeLines))
        lineCount = -rawLines;
    if (faults_.happens(Fault::LongLines))
        lineBytes = 40'000;
}

SerialCamera::Result SerialCamera::beginUpload(int* lineCount, int* lineBytes)
{
    if (lineCount == nullptr || lineBytes == nullptr)
        return MVI_NULL_POINTER;
    const Result result = converse(commandTime);
    if (result != MVI_OK)
        return result;
    const std::lock_guard guard(lock_);
    const int place = memory_.counter();
    if (place >= CameraMemory::places)
        return MVI_IMAGE_NULL;
    upload_ = { true, place, 0, memory_.at(place) };
    *lineCount = rawLines;
    *lineBytes = rawLineBytes;
    lie(*lineCount, *lineBytes);
    return MVI_OK;
}

SerialCamera::Result SerialCamera::uploadLine(unsigned char* line, int lineBytes)
{
    if (line == nullptr)
        return MVI_NULL_POINTER;
    if (lineBytes < rawLineBytes)
        return MVI_BUFFER_TOO_SMALL;
    const Result result = converse(lineTime);
    if (result != MVI_OK)
        return result;
    const std::lock_guard guard(lock_);
    if (!upload_.runs)
        return MVI_IMAGE_NULL;
    if (upload_.nextLine >= rawLines)
        return MVI_COMMS_BAD_PACKET;
    const std::ptrdiff_t from = std::ptrdiff_t { rawLineBytes } * upload_.nextLine++;
    static const RawPicture sample = expose(samplePicture());
    const RawPicture& raw = upload_.raw != nullptr ? *upload_.raw : sample;
    std::copy_n(raw.begin() + from, rawLineBytes, line);
    return MVI_OK;
}

SerialCamera::Result SerialCamera::uploadInfo(MVIGRABINFO* info)
{
    if (info == nullptr)
        return MVI_NULL_POINTER;
    const Result result = converse(commandTime);
    if (result != MVI_OK)
        return result;
    const std::lock_guard guard(lock_);
    const Upload upload = std::exchange(upload_, {});
    if (!upload.runs)
        return MVI_IMAGE_NULL;
    if (upload.nextLine != rawLines)
        return MVI_COMMS_BAD_PACKET;
    memory_.markFetched(upload.place);
    *info = { static_cast<std::uint32_t>(upload.place), upload.raw != nullptr, rawLines,
        rawLineBytes, pictureWidth, pictureHeight };
    return MVI_OK;
}

SerialCamera::Result SerialCamera::grab()
{
    const Result result = converse(commandTime);
    if (result != MVI_OK)
        return result;
    {
        const std::lock_guard guard(lock_);
        if (memory_.isFull())
            return grabbed_ = MVI_CAMERA_FULL;
        grabbed_ = MVI_CAMERA_BAD_EXPOSURE; // also when there is nothing to take a picture of
        if (faults_.happens(Fault::BadExposure))
            return MVI_OK;
    }
    const bool taken = takePicture(Shutter::Pressed, Goes::ToTheCounter);
    const std::lock_guard guard(lock_);
    if (taken)
        grabbed_ = MVI_OK;
    return MVI_OK;
}

SerialCamera::Result SerialCamera::grabResult()
{
    const Result result = converse(commandTime);
    if (result != MVI_OK)
        return result;
    const std::lock_guard guard(lock_);
    return grabbed_;
}

SerialCamera::Result SerialCamera::buzz()
{
    return converse(commandTime);
}

} // namespace kez::driver
