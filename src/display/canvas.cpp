// SPDX-License-Identifier: MIT
#include "display/canvas.h"

#include "core/diagnostics.h"
#include "display/graphic.h"
#include "display/screen.h"

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
    DDSURFACEDESC description = {};
    if (!lockSurface(surface, DDLOCK_WAIT, description))
        return nullptr;
    if (description.lpSurface != nullptr && hasGaplessRows(description))
        return static_cast<CanvasPixel*>(description.lpSurface);
    surface.Unlock(nullptr);
    return nullptr;
}

HDC takeDeviceContext(IDirectDrawSurface& surface)
{
    HDC context = nullptr;
    HRESULT result = DD_OK;
    do
        result = surface.GetDC(&context);
    while (screen().checkResult(result));
    if (result != DD_OK)
        return nullptr;
    SetViewportOrgEx(context, target.width / 2 - target.x, target.height / 2 - target.y, nullptr);
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
        target.deviceContext = takeDeviceContext(*target.surface);
}

void closeTarget()
{
    if (target.deviceContext != nullptr)
        target.surface->ReleaseDC(target.deviceContext);
    else if (target.pixels != nullptr && target.surface != nullptr)
        target.surface->Unlock(nullptr);
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
