// SPDX-License-Identifier: MIT
#include "display/screen.h"

#include "core/diagnostics.h"
#include "display/canvas.h"
#include "display/memory_surface.h"
#include "display/present_conversion.h"
#include "display/stage.h"

#include <algorithm>

namespace kez {

namespace {

// A surface that is lost more often than this in a row will not come back within the frame.
constexpr int mostLosses = 16;

constexpr LONG gaplessPitch = Stage::width * static_cast<LONG>(sizeof(CanvasPixel));

// A description that leaves a size out stands for the size that the host promised.
int sizeOr(DWORD described, int promised)
{
    return described != 0 ? static_cast<int>(std::min<DWORD>(described, 0x7FFF)) : promised;
}

PixelRows rowsOf(const DDSURFACEDESC& description)
{
    return { .bytes = static_cast<std::uint8_t*>(description.lpSurface),
        .pitchBytes = static_cast<std::ptrdiff_t>(description.lPitch),
        .width = std::min(sizeOr(description.dwWidth, Stage::width), Stage::width),
        .height = std::min(sizeOr(description.dwHeight, Stage::height), Stage::height) };
}

void restore(IDirectDrawSurface* surface)
{
    if (surface != nullptr)
        surface->Restore();
}

} // namespace

void Screen::attach(IDirectDraw* directDraw, IDirectDrawSurface* primary,
    IDirectDrawSurface* secondary, int bitsPerPixel)
{
    detach();
    directDraw_ = directDraw;
    primary_ = primary;
    secondary_ = secondary;
    bitsPerPixel_ = bitsPerPixel;
    if (primary == nullptr || secondary == nullptr) {
        debugPrint("The host gave no %s surface; nothing can be shown.",
            primary == nullptr ? "primary" : "secondary");
        return;
    }
    readPixelFormat();
    const bool direct = bitsPerPixel_ == 32 && secondaryCanBeCanvas();
    if (!direct)
        createPicture();
    setTarget(direct ? secondary_ : picture_, 0, 0, Stage::width, Stage::height);
}

void Screen::readPixelFormat()
{
    DDPIXELFORMAT format = {};
    format.dwSize = sizeof format;
    const HRESULT result = secondary_->GetPixelFormat(&format);
    if (result != DD_OK) {
        abortReport(result, "GetPixelFormat");
        format = {};
    }
    const int actual = static_cast<int>(format.dwRGBBitCount);
    if (actual != 0 && actual != bitsPerPixel_) {
        debugPrint("The host says %d bits a pixel, but its secondary surface has %d.",
            bitsPerPixel_, actual);
        bitsPerPixel_ = actual;
    }
    if (bitsPerPixel_ != 16 && bitsPerPixel_ != 24 && bitsPerPixel_ != 32)
        debugPrint(
            "A display of %d bits a pixel is not supported; nothing can be shown.", bitsPerPixel_);
    if (bitsPerPixel_ == 16 && result == DD_OK)
        layout_ = DisplayLayout::fromMasks(format.dwRBitMask, format.dwGBitMask, format.dwBBitMask);
}

bool Screen::secondaryCanBeCanvas()
{
    const SurfaceLock lock = lockSurface(*secondary_, 0);
    if (!lock)
        return false;
    const PixelRows rows = rowsOf(lock.description());
    return lock.description().lPitch == gaplessPitch && rows.width == Stage::width
        && rows.height == Stage::height;
}

void Screen::createPicture()
{
    if (directDraw_ == nullptr) {
        debugPrint("The host gave no DirectDraw object; nothing can be drawn.");
        return;
    }
    picture_ = createMemorySurface(*directDraw_, Stage::width, Stage::height, 32);
}

void Screen::present()
{
    if (primary_ == nullptr || secondary_ == nullptr)
        return;
    if (picture_ != nullptr)
        convert();
    copyToPrimary();
}

void Screen::convert()
{
    const SurfaceLock source = lockSurface(*picture_, DDLOCK_READONLY);
    if (!source)
        return;
    const SurfaceLock target = lockSurface(*secondary_, DDLOCK_WRITEONLY);
    if (target)
        convertPicture(
            rowsOf(source.description()), rowsOf(target.description()), bitsPerPixel_, layout_);
}

void Screen::copyToPrimary()
{
    RECT whole = { 0, 0, Stage::width, Stage::height };
    HRESULT result = DD_OK;
    do
        result = primary_->BltFast(0, 0, secondary_, &whole, DDBLTFAST_WAIT);
    while (checkResult(result));
}

void Screen::detach()
{
    if (picture_ != nullptr)
        picture_->Release();
    *this = Screen();
    setTarget(nullptr, 0, 0, 0, 0);
}

bool Screen::checkResult(HRESULT result)
{
    if (result != DDERR_SURFACELOST)
        losses_ = 0;
    if (result == DD_OK)
        return false;
    if (result != DDERR_SURFACELOST) {
        debugPrint("Screen thread locked by another process.");
        return false;
    }
    restore(primary_);
    restore(secondary_);
    restore(picture_);
    if (++losses_ < mostLosses)
        return true;
    losses_ = 0;
    debugPrint("A surface stays lost although it was restored; this frame goes without it.");
    return false;
}

Screen& screen()
{
    static Screen only;
    return only;
}

SurfaceLock lockSurface(IDirectDrawSurface& surface, DWORD flags)
{
    return { surface, flags, [](HRESULT result) { return screen().checkResult(result); } };
}

HDC takeDeviceContext(IDirectDrawSurface& surface)
{
    HDC context = nullptr;
    HRESULT result = DD_OK;
    do
        result = surface.GetDC(&context);
    while (screen().checkResult(result));
    return result == DD_OK ? context : nullptr;
}

void abortReport(HRESULT result, const char* operation)
{
    reportLastError("Abort %s:\n%s", operation, directDrawErrorText(result).c_str());
}

} // namespace kez
