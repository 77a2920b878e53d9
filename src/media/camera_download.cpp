// SPDX-License-Identifier: MIT
// How pictures come over: a download takes one place after the other, one picture per poll.
#include "media/camera.h"

#include "core/diagnostics.h"

namespace kez {

namespace {

constexpr std::uint32_t uploadAborted = 0x0FFF1234;
constexpr std::size_t grabInfoBytes = 24;

} // namespace

// A step whose counter could not be moved is taken again by the next poll.
void Camera::downloadStep()
{
    const int mode = downloadMode_;
    if (mode == downloadCounted) {
        beginDownload();
    } else if (mode > 0) {
        downloadNext(static_cast<unsigned>(mode));
    } else if (mode == downloadAllPlaces && setImageCounter(places)) {
        pictureCount_ = places;
        downloadMode_ = downloadCounted;
    }
}

void Camera::beginDownload()
{
    const unsigned count = pictureCount_;
    if (count == 0)
        return resetTransfer();
    if (!setImageCounter(0))
        return;
    downloadMode_ = static_cast<int>(count);
    pictureCount_ = 0;
}

void Camera::downloadNext(unsigned total)
{
    const unsigned place = pictureCount_;
    if (place == places || place >= total)
        finishDownload();
    else if (setImageCounter(static_cast<int>(place)) && upload())
        pictureCount_ = place + 1;
}

void Camera::finishDownload()
{
    if (!setImageCounter(0))
        return;
    pictureCount_ = 0;
    resetTransfer();
    notify(CountChanged);
}

bool Camera::upload()
{
    for (;;) {
        inUploadCall_ = true; // before the look at `stopping_`: `stop` looks the other way round
        const std::uint32_t result = stopping_ ? uploadAborted : uploadPicture();
        lastResult_ = result;
        inUploadCall_ = false;
        if (stopping_)
            return false;
        if (result == CameraOk)
            break;
        if (result != CameraBusy)
            return false;
        pause();
        if (yields())
            return false;
    }
    notify(PictureUploaded);
    return true;
}

std::uint32_t Camera::uploadPicture()
{
    uploading_ = true;
    std::array<std::uint8_t, rawBytes> raw {};
    std::uint32_t result = uploadLines(raw.data());
    if (result == CameraOk)
        result = driver_.colourizeImage(raw.data(), picture_.data());
    uploading_ = false;
    return result;
}

std::uint32_t Camera::uploadLines(std::uint8_t* raw)
{
    int lineCount = 0;
    int lineBytes = 0;
    if (const auto result = driver_.beginUpload(&lineCount, &lineBytes); result != CameraOk)
        return result;
    if (lineCount <= 0 || lineBytes <= 0
        || static_cast<std::size_t>(lineCount) > rawBytes / static_cast<std::size_t>(lineBytes)) {
        debugPrint("Camera: a picture of %d lines of %d bytes is refused.", lineCount, lineBytes);
        return CameraError;
    }
    if (const auto result = uploadRaw(raw, lineCount, lineBytes); result != CameraOk)
        return result;
    alignas(std::max_align_t) std::array<std::uint8_t, grabInfoBytes> info {};
    return driver_.uploadInfo(reinterpret_cast<MVIGRABINFO*>(info.data()));
}

std::uint32_t Camera::uploadRaw(std::uint8_t* raw, int lineCount, int lineBytes)
{
    for (int line = 0; line < lineCount; ++line) {
        if (abortUpload_.exchange(false)) {
            reconnect_ = true;
            return uploadAborted;
        }
        if (stopping_)
            return uploadAborted;
        const auto result = driver_.uploadLine(raw + line * lineBytes, lineBytes);
        if (result != CameraOk)
            return result;
    }
    return CameraOk;
}

} // namespace kez
