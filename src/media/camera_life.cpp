// SPDX-License-Identifier: MIT
// The one link and its driver, from the first call to the end.
#include "media/camera.h"

#include "core/diagnostics.h"
#include "core/flags.h"
#include "platform/library_life.h"

#include <cstdlib>
#include <new>

namespace kez {

namespace {

constexpr DWORD endWaitMs = 2000;

std::atomic<bool>& exists()
{
    static std::atomic<bool> built { false };
    return built;
}

/// At unload the link ends, unless `Kez::release` has ended it, while the library's code is still
/// there. Where the program ends with the worker killed, the driver is in nobody knows what state.
struct AtUnload {
    ~AtUnload()
    {
        if (!platform::isAloneAtTheEnd())
            camera().shutDown();
    }
} atUnload;

} // namespace

Camera& camera()
{
    // Never destroyed, for a worker may still run; and no memory of the heap's, which nobody would
    // give back.
    alignas(Camera) static std::byte place[sizeof(Camera)];
    static Camera& only = *new (place) Camera;
    return only;
}

Camera::Camera()
{
    if (exists().exchange(true)) {
        reportError("More than one INSTANCE of Camera CLASS is not allowed!");
        std::exit(19);
    }
}

void Camera::loadDriver()
{
    if (driver_.openCamera == nullptr)
        driver_ = loadCameraDriver();
}

void Camera::setDriver(const CameraDriver& driver)
{
    driver_ = driver;
}

void Camera::shutDown()
{
    giveUp();
    if (!awaitWorker()) {
        debugPrint("Camera: the driver does not return; it stays as it is.");
        return;
    }
    if (driver_.closeCamera != nullptr)
        driver_.closeCamera();
    unloadCameraDriver(driver_);
}

// A worker whose command has ended only has the library to let go. It is not waited for while the
// library is being unloaded, when it may be the worker itself that does this. One that was waited
// for in vain before has no handle any more, and may still be in the driver.
bool Camera::awaitWorker()
{
    if (worker_ == nullptr)
        return isIdle();
    const bool ended
        = (quitting && isIdle()) || WaitForSingleObject(worker_, endWaitMs) == WAIT_OBJECT_0;
    CloseHandle(worker_);
    worker_ = nullptr;
    return ended;
}

} // namespace kez
