// SPDX-License-Identifier: MIT
// The host thread's side of the link: its pace, its events and the commands it starts. What the
// workers do is in camera_commands.cpp.
#include "media/camera.h"

#include "core/diagnostics.h"
#include "core/flags.h"
#include "core/string.h"
#include "platform/library_life.h"

namespace kez {

void Camera::start(Callback callback, void* context)
{
    stopping_ = false;
    callback_ = callback;
    context_ = context;
    beginConnection();
}

// A refused connection is made up for by `tick`.
void Camera::beginConnection()
{
    reconnect_ = !issue(Connect);
}

void Camera::stop()
{
    giveUp();
    while (inUploadCall_)
        Sleep(20);
    connected_ = false;
    found_ = false;
    ready_ = false;
    firstAttempt_ = true;
}

void Camera::giveUp()
{
    resetTransfer();
    stopping_ = true;
}

bool Camera::issue(int command, std::uint32_t first, std::uint32_t second)
{
    if (grabPending_ || (command == Poll && currentCommand_ == Poll))
        return false;
    while (currentCommand_ == Poll) {
        waiting_ = true;
        Sleep(20);
    }
    waiting_ = false;
    if (!isIdle())
        return false;
    loadDriver();
    completedCommand_ = NoCommand;
    argument1_ = first;
    argument2_ = second;
    currentCommand_ = command;
    return startWorker();
}

bool Camera::startWorker()
{
    if (worker_ != nullptr)
        CloseHandle(worker_); // of the last command, which has ended
    DWORD id = 0;
    platform::holdLibrary();
    worker_ = CreateThread(nullptr, 0, work, this, 0, &id);
    if (worker_ != nullptr)
        return true;
    reportLastError("Camera: no thread for command %d.", currentCommand_.load());
    platform::letLibraryGo();
    currentCommand_ = NoCommand;
    return false;
}

void Camera::tick()
{
    if (ticking_.test_and_set())
        return;
    step();
    ticking_.clear();
}

void Camera::step()
{
    if (reconnect_) {
        if (isIdle()) { // the worker that lost the camera may not have ended yet
            reinitialise();
            beginConnection();
        }
    } else if (grabPending_) {
        askForGrab();
    } else if (isIdle() && !isDownloading() && pictureCount_ != 0) {
        abortUpload_ = false;
        downloadMode_ = downloadCounted;
    } else {
        takeCompleted();
    }
}

void Camera::askForGrab()
{
    switch (lastResult_ = driver_.grabResult()) {
    case CameraOk:
        grabPending_ = false;
        break;
    case CameraBadExposure:
        grabPending_ = false;
        notify(BadExposure);
        break;
    case CameraBusy:
        record(driver_.syncCamera()); // the next tick asks again; this thread does not wait
        break;
    default:
        grabPending_ = false;
        notify(Lost);
        stop();
        reconnect_ = true;
    }
}

void Camera::takeCompleted()
{
    if (taking_.test_and_set())
        return;
    const bool busy = !isIdle();
    const int completed = busy ? NoCommand : completedCommand_.exchange(NoCommand);
    taking_.clear();

    if (busy)
        return;
    if (completed == NoCommand)
        issue(Poll);
    else if (completed != Connect)
        dispatch();
    else if (!found_)
        beginConnection();
}

bool Camera::requestDownloadAll()
{
    if (isDownloading())
        return false;
    abortUpload_ = false;
    int expected = noDownload;
    return downloadMode_.compare_exchange_strong(expected, downloadAllPlaces);
}

std::uint8_t* Camera::enlarge(std::uint8_t* destination, std::uint8_t* source)
{
    loadDriver();
    const std::uint32_t result
        = driver_.enlargeImage(source != nullptr ? source : picture_.data(), destination);
    return record(result) ? destination : nullptr;
}

void Camera::probePorts()
{
    for (Flag& allowed : portAllowed_)
        allowed = true;
}

void Camera::allowPort(int port, bool allowed)
{
    portAllowed_.at(static_cast<std::size_t>(port)) = allowed;
}

void Camera::reportError(const char* message) const
{
    const CameraResultText result = describeCameraResult(lastResult_);
    String caption;
    caption.format("%s %s %s", message != nullptr ? message : "", "", result.name);
    MessageBoxA(GetFocus(), result.text, caption.c_str(), MB_OK);
}

void Camera::reinitialise()
{
    for (Flag* flag :
        { &found_, &ready_, &connected_, &repeatGrab_, &nextGrab_, &stopping_, &inUploadCall_,
            &reconnect_, &eraseRequest_, &abortUpload_, &grabPending_, &uploading_, &waiting_ })
        *flag = false;
    pictureCount_ = 0;
    downloadMode_ = noDownload;
    currentCommand_ = NoCommand;
    completedCommand_ = NoCommand;
    pendingNotification_ = Nothing;
    firstAttempt_ = true;
}

bool Camera::record(std::uint32_t result)
{
    lastResult_ = result;
    return result == CameraOk;
}

void Camera::resetTransfer()
{
    if (currentCommand_ == UploadLatest)
        abortUpload_ = true;
    grabPending_ = false;
    downloadMode_ = noDownload;
    repeatGrab_ = false;
    nextGrab_ = false;
}

void Camera::notify(int notification)
{
    switch (notification) {
    case Ready:
        resetTransfer();
        ready_ = true;
        break;
    case Lost:
        resetTransfer();
        pictureCount_ = 0;
        ready_ = false;
        break;
    case CountChanged:
        grabPending_ = false;
        break;
    default:
        break;
    }
    pendingNotification_ = notification;
}

void Camera::dispatch()
{
    if (stopping_)
        return;
    const int notification = pendingNotification_;
    if (const Callback callback = callback_) {
        if (notification >= Ready && notification <= 3)
            callback(*this, CountChanged, context_);
        if (notification != Nothing)
            callback(*this, notification, context_);
    }
    if (notification == PictureUploaded && (repeatGrab_ || nextGrab_)) {
        abortUpload_ = false;
        issue(GrabNext, grabArgument_, 32);
    }
}

} // namespace kez
