// SPDX-License-Identifier: MIT
#include "serial_camera.h"

#include "raw_form.h"

#include <windows.h>

#include <mmsystem.h>

#include <algorithm>
#include <utility>

namespace kez::driver {

namespace {

// Milliseconds.
constexpr unsigned silenceTime = 250; // until a command without an answer is given up
constexpr unsigned writeTime = 400; // until a picture is in its place

} // namespace

// What the camera makes of a call. With the lock held.
SerialCamera::Result SerialCamera::decide()
{
    if (!open_)
        return MVI_COMMS_NOT_OPEN;
    if (faults_.cablePulled())
        plugged_ = false;
    if (!isConnected() || faults_.happens(Fault::Silent))
        return MVI_COMMS_TIMEOUT;
    if (faults_.happens(Fault::Refusing))
        return MVI_COMMS_NAK;
    if (faults_.happens(Fault::Busy) || isWriting())
        return MVI_CAMERA_BUSY;
    return MVI_OK;
}

// One call over the line: its answer, once the time for it has passed.
SerialCamera::Result SerialCamera::converse(unsigned milliseconds)
{
    Result result = MVI_OK;
    {
        const std::lock_guard guard(lock_);
        result = decide();
    }
    if (result != MVI_COMMS_NOT_OPEN)
        passTime(result == MVI_COMMS_TIMEOUT ? silenceTime : milliseconds);
    return result;
}

void SerialCamera::passTime(unsigned milliseconds) const
{
    unsigned pace = 0;
    {
        const std::lock_guard guard(lock_);
        pace = pace_;
    }
    if (milliseconds * pace != 0)
        Sleep(std::max(milliseconds * pace / 1000, 1u));
}

// A picture that comes during an upload is written after it: a busy camera would make the host
// begin the upload anew.
bool SerialCamera::isWriting()
{
    if (writing_ && static_cast<std::int32_t>(writtenAt_ - timeGetTime()) <= 0)
        writing_ = false;
    return writing_ && !upload_.runs;
}

// Lets the source take a picture, if it has one and there is room.
bool SerialCamera::takePicture(Shutter shutter, Goes where)
{
    std::shared_ptr<PictureSource> source;
    {
        const std::lock_guard guard(lock_);
        if (!isConnected() || memory_.isFull())
            return false;
        source = source_;
    }
    const std::unique_lock working(sourceLock_, std::try_to_lock);
    if (!working.owns_lock())
        return false;
    const std::optional<Picture> picture = source->next(timeGetTime(), shutter);
    if (!picture)
        return false;
    auto raw = std::make_shared<const RawPicture>(expose(*picture));
    const std::lock_guard guard(lock_);
    if (source != source_ || memory_.isFull())
        return false; // the source was exchanged meanwhile
    if (where == Goes::ToTheCounter)
        memory_.takeAtCounter(std::move(raw));
    else
        memory_.take(std::move(raw));
    writing_ = pace_ != 0;
    writtenAt_ = timeGetTime() + writeTime * pace_ / 1000;
    return true;
}

void SerialCamera::useSource(std::shared_ptr<PictureSource> source)
{
    const std::lock_guard guard(lock_);
    source_ = std::move(source);
    memory_ = {};
    upload_ = {};
    presses_ = 0;
    started_ = false;
    writing_ = false;
    grabbed_ = MVI_ERROR;
    open_ = false; // what is in the camera at the start comes with the opening
}

bool SerialCamera::hasSource() const
{
    const std::lock_guard guard(lock_);
    return source_ != nullptr;
}

bool SerialCamera::pressButton()
{
    const std::lock_guard guard(lock_);
    if (presses_ >= memory_.room())
        return false;
    ++presses_;
    return true;
}

void SerialCamera::setPlugged(bool plugged)
{
    const std::lock_guard guard(lock_);
    plugged_ = plugged;
}

void SerialCamera::setPace(unsigned perMille)
{
    const std::lock_guard guard(lock_);
    pace_ = perMille;
}

bool SerialCamera::setFault(std::string_view name, int count)
{
    const std::lock_guard guard(lock_);
    return faults_.set(name, count);
}

} // namespace kez::driver
