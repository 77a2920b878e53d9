// SPDX-License-Identifier: MIT
// What the link's workers do: one command each, talking to the camera through the driver.
#include "media/camera.h"

#include "core/diagnostics.h"
#include "platform/library_life.h"

#include <algorithm>

namespace kez {

namespace {

constexpr DWORD busyWaitMs = 20;

} // namespace

DWORD WINAPI Camera::work(void* camera)
{
    static_cast<Camera*>(camera)->execute();
    platform::endHoldingThread();
}

void Camera::execute()
{
    const int command = currentCommand_;
    sync();
    notify(Nothing);
    runCommand(command);
    completedCommand_ = command;
    currentCommand_ = NoCommand;
}

void Camera::runCommand(int command)
{
    switch (command) {
    case Connect:
        return connect();
    case UploadLatest:
        if (setImageCounter(-1))
            upload();
        return;
    case Poll:
        return poll();
    case Buzz:
        record(driver_.soundBuzzer(static_cast<int>(argument1_), static_cast<int>(argument2_)));
        return;
    case SetCounter:
        resetTransfer();
        if (setImageCounter(static_cast<int>(argument1_)))
            notify(CountChanged);
        return;
    case GrabRepeat:
        repeatGrab_ = true;
        return pictureCount_ == places ? resetTransfer() : startGrab();
    case GrabNext:
        nextGrab_ = true;
        [[fallthrough]];
    case Grab:
        setImageCounter(0);
        pictureCount_ = 0;
        return startGrab();
    case DownloadStep:
        return downloadStep();
    default:
        debugPrint("Camera: there is no command %d.", command);
    }
}

void Camera::startGrab()
{
    grabArgument_ = argument1_;
    record(driver_.grabImage(static_cast<int>(argument1_), static_cast<int>(argument2_)));
    grabPending_ = true;
}

// Without limit while the camera is busy, unless the host wants the link to itself.
bool Camera::sync()
{
    while (!record(driver_.syncCamera()) && lastResult_ == CameraBusy && !yields())
        Sleep(busyWaitMs);
    return lastResult_ == CameraOk;
}

// After a call that found the camera busy.
void Camera::pause()
{
    Sleep(busyWaitMs);
    sync();
}

void Camera::connect()
{
    static constexpr const char* names[] = { "COM1", "COM2", "COM3", "COM4" };
    for (std::size_t port = 0; port < portAllowed_.size(); ++port) {
        if (!portAllowed_[port])
            continue;
        found_ = tryPort(names[port]);
        if (found_ || stopping_)
            return;
    }
}

bool Camera::tryPort(const char* name)
{
    if (stopping_)
        return false;
    driver_.closeCamera();
    if (stopping_)
        return false;
    const std::uint32_t opened = driver_.openCamera(name);
    if (stopping_ || opened != CameraOk)
        return false;
    if (checkConnection())
        return true;
    if (!stopping_)
        driver_.closeCamera();
    return false;
}

bool Camera::checkConnection()
{
    if (connected_)
        return true;
    unsigned char index = 0;
    const bool answers = readIdentity(index);
    if (stopping_)
        return false;
    connected_ = answers;
    if (firstAttempt_.exchange(false) && !answers) {
        notify(Lost);
        dispatch();
    }
    if (answers) {
        pictureCount_ = index;
        notify(Ready);
        dispatch();
    }
    return answers;
}

// All three questions have been answered.
bool Camera::readIdentity(unsigned char& index)
{
    return driver_.getDriverVersion(driverVersion_.data()) == CameraOk && !stopping_
        && driver_.getFirmwareVersion(firmwareVersion_.data()) == CameraOk && !stopping_
        && driver_.getImageIndex(&index) == CameraOk && !stopping_;
}

void Camera::poll()
{
    if (yields())
        return; // what the camera said is no longer asked for
    const bool answers = lastResult_ == CameraOk;
    if (ready_ && answers) {
        pollReady();
    } else if (ready_) {
        notify(Lost);
        stop();
        reconnect_ = true;
    } else if (answers) {
        unsigned char index = 0;
        if (record(driver_.getImageIndex(&index))) {
            pictureCount_ = index;
            notify(Ready);
        }
    } else if (pictureCount_ != 0) {
        pictureCount_ = 0;
        notify(CountChanged);
    }
}

void Camera::pollReady()
{
    if (eraseRequest_) {
        resetTransfer();
        eraseRequest_ = false;
        setImageCounter(0);
        pictureCount_ = 0;
    } else if (isDownloading()) {
        downloadStep();
    } else {
        watchCounter();
    }
}

void Camera::watchCounter()
{
    unsigned char index = 0;
    if (!record(driver_.getImageIndex(&index)) || index == (pictureCount_ & 255))
        return;
    pictureCount_ = index;
    notify(CountChanged);
}

bool Camera::setImageCounter(int target)
{
    if (target < 0)
        target = std::max(static_cast<int>(pictureCount_.load()) - 1, 0);
    unsigned char index = 255;
    const auto untilNotBusy = [this](auto call) {
        while (!record(call()) && lastResult_ == CameraBusy && !yields())
            pause();
        return lastResult_ == CameraOk;
    };
    lastResult_ = CameraOk;
    while (lastResult_ == CameraOk && index != target && !yields()) {
        const bool reset = untilNotBusy([&] { return driver_.resetImageCounter(target); });
        if (reset && untilNotBusy([&] { return driver_.getImageIndex(&index); }) && index != target)
            Sleep(busyWaitMs);
    }
    return lastResult_ == CameraOk && index == target;
}

} // namespace kez
