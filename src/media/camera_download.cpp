// SPDX-License-Identifier: MIT
// How pictures come over: a download takes one place after the other, one picture per poll.
#include "media/camera.h"

#include "core/diagnostics.h"

#include <algorithm>

namespace kez {

namespace {

constexpr std::uint32_t uploadAborted = 0x0FFF1234;
constexpr std::size_t grabInfoBytes = 24;

} // namespace

// Downloading --------------------------------------------------------------------------------
//
// A picture that the camera takes during a download goes where the download has left the counter:
// into the place fetched last. Before it moves the counter away from that place, a step therefore
// looks whether it is still there; if not, it fetches again from that place on.

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
    unsigned char index = static_cast<unsigned char>(pictureCount_.load());
    if (index != places && !record(driver_.getImageIndex(&index))) // a full camera takes no more
        return;
    pictureCount_ = index;
    if (index == 0)
        return resetTransfer();
    expectedIndex_ = index;
    if (!moveCounter(0) && expectedIndex_ != 0)
        return;
    rescues_ = 0;
    downloadMode_ = index;
    pictureCount_ = 0;
}

void Camera::downloadNext(unsigned total)
{
    if (fetchedSinceMove_ && !lookForNewPictures(total))
        return;
    const unsigned place = pictureCount_;
    if (place == places || place >= total)
        finishDownload();
    else if (moveCounter(place) && upload())
        pictureCount_ = place + 1;
}

void Camera::finishDownload()
{
    if (!moveCounter(0) && expectedIndex_ != 0)
        return; // the next poll tries again; from 0 on it would see new pictures by itself
    pictureCount_ = 0;
    resetTransfer();
    notify(CountChanged);
}

bool Camera::lookForNewPictures(unsigned& total)
{
    unsigned char index = 0;
    if (!record(driver_.getImageIndex(&index)))
        return false;
    // No more than once for each place: a counter that moves by itself must not keep us for ever.
    if (index > expectedIndex_ && rescues_ < static_cast<int>(places)) {
        ++rescues_;
        pictureCount_ = std::min(pictureCount_.load(), expectedIndex_);
        total = std::max<unsigned>(total, index);
        downloadMode_ = static_cast<int>(total);
    }
    expectedIndex_ = index;
    return true;
}

// One attempt: a camera that is busy may be taking a picture, so the next step looks first.
bool Camera::moveCounter(unsigned place)
{
    if (!record(driver_.resetImageCounter(static_cast<int>(place))))
        return false;
    unsigned char index = 255;
    const bool read = record(driver_.getImageIndex(&index));
    const bool moved = !read || index != expectedIndex_ || index == place;
    if (moved) {
        expectedIndex_ = place;
        fetchedSinceMove_ = false;
    }
    return read && index == place;
}

// Uploading ----------------------------------------------------------------------------------

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
    fetchedSinceMove_ = true;
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
