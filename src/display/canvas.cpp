// SPDX-License-Identifier: MIT
#include "display/canvas.h"

#include "core/diagnostics.h"
#include "display/graphic.h"
#include "display/screen.h"

#include <utility>

namespace kez {

namespace {

/// What everything is drawn into: a surface, or a `MemoryCanvas`'s own pixels.
struct Target {
    IDirectDrawSurface* surface = nullptr;
    CanvasPixel* memory = nullptr;
    CanvasPixel* pixels = nullptr; ///< While open in pixel mode.
    HDC deviceContext = nullptr; ///< While open in GDI mode.
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
};

Target target;
SurfaceLock targetLock; // while the surface is open in pixel mode
bool pitchReported = false;

bool hasGaplessRows(const DDSURFACEDESC& description)
{
    const bool gapless = static_cast<long>(description.lPitch)
        == static_cast<long>(target.width) * static_cast<long>(sizeof(CanvasPixel));
    if (!gapless && !pitchReported)
        debugPrint("The canvas has rows of %ld bytes for %d pixels; nothing can be drawn into it.",
            static_cast<long>(description.lPitch), target.width);
    pitchReported = !gapless;
    return gapless;
}

CanvasPixel* lockPixels(IDirectDrawSurface& surface)
{
    SurfaceLock lock = lockSurface(surface, 0);
    void* const pixels = lock ? lock.description().lpSurface : nullptr;
    if (pixels == nullptr || !hasGaplessRows(lock.description()))
        return nullptr;
    targetLock = std::move(lock);
    return static_cast<CanvasPixel*>(pixels);
}

HDC takeStageContext(IDirectDrawSurface& surface)
{
    const HDC context = takeDeviceContext(surface);
    if (context != nullptr)
        SetViewportOrgEx(
            context, target.width / 2 - target.x, target.height / 2 - target.y, nullptr);
    return context;
}

bool isOpen()
{
    return target.pixels != nullptr || target.deviceContext != nullptr;
}

} // namespace

void setTarget(IDirectDrawSurface* surface, int x, int y, int width, int height)
{
    target = { .surface = surface, .x = x, .y = y, .width = width, .height = height };
}

void openTarget()
{
    if (target.memory != nullptr)
        target.pixels = pixelMode ? target.memory : nullptr;
    else if (target.surface == nullptr)
        return;
    else if (pixelMode)
        target.pixels = lockPixels(*target.surface);
    else
        target.deviceContext = takeStageContext(*target.surface);
}

void closeTarget()
{
    if (target.deviceContext != nullptr)
        target.surface->ReleaseDC(target.deviceContext);
    else if (target.surface != nullptr)
        targetLock = {};
    target.pixels = nullptr;
    target.deviceContext = nullptr;
}

CanvasPixels targetPixels()
{
    return { target.pixels, target.width, target.height };
}

HDC targetDeviceContext()
{
    return target.deviceContext;
}

IDirectDrawSurface* targetSurface()
{
    return target.surface;
}

void drawItem(Graphic& item)
{
    if (!item.visible)
        return;
    const bool wanted = item.drawsPixels();
    if (wanted != pixelMode) {
        closeTarget();
        pixelMode = wanted;
        openTarget();
    }
    if (isOpen())
        item.draw();
}

struct MemoryCanvas::Previous {
    Target target;
    bool pixelMode;
};

MemoryCanvas::MemoryCanvas(CanvasPixel* pixels, int width, int height)
    : previous_(std::make_unique<Previous>(Previous { target, pixelMode }))
{
    target = { .memory = pixels, .pixels = pixels, .width = width, .height = height };
    pixelMode = true;
}

MemoryCanvas::~MemoryCanvas()
{
    target = previous_->target;
    pixelMode = previous_->pixelMode;
}

} // namespace kez
