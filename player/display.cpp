// SPDX-License-Identifier: MIT
#include "display.h"

#include "host_window.h"
#include "surface_pixels.h"

#include <array>

namespace kez::player {

namespace {

constexpr std::array<DWORD, 3> masks565 { 0xF800, 0x07E0, 0x001F };
constexpr std::array<DWORD, 3> masks888 { 0xFF0000, 0x00FF00, 0x0000FF };

DDPIXELFORMAT formatOfDepth(int bits)
{
    const auto& masks = bits == 16 ? masks565 : masks888;
    DDPIXELFORMAT format {};
    format.dwSize = sizeof(format);
    format.dwFlags = DDPF_RGB;
    format.dwRGBBitCount = static_cast<DWORD>(bits);
    format.dwRBitMask = masks[0];
    format.dwGBitMask = masks[1];
    format.dwBBitMask = masks[2];
    return format;
}

constexpr RECT wholePicture { 0, 0, HostWindow::width, HostWindow::height };

DWORD levelFor(DisplayPlace place)
{
    return place == DisplayPlace::FullScreen ? DDSCL_EXCLUSIVE | DDSCL_FULLSCREEN : DDSCL_NORMAL;
}

ComPointer<IDirectDrawSurface> makeSurface(IDirectDraw& directDraw, DDSURFACEDESC& description)
{
    description.dwSize = sizeof(description);
    IDirectDrawSurface* surface = nullptr;
    if (directDraw.CreateSurface(&description, &surface, nullptr) != DD_OK)
        return nullptr;
    return ComPointer<IDirectDrawSurface>(surface);
}

} // namespace

Display::Display(HWND window, int bitsPerPixel, DisplayPlace place)
    : bitsPerPixel_(bitsPerPixel)
{
    IDirectDraw* directDraw = nullptr;
    if (DirectDrawCreate(nullptr, &directDraw, nullptr) != DD_OK) {
        problem_ = "DirectDraw is not there";
        return;
    }
    directDraw_.reset(directDraw);
    if (directDraw->SetCooperativeLevel(window, levelFor(place)) != DD_OK) {
        problem_ = "the screen cannot be had";
        return;
    }
    const bool isSeen = place != DisplayPlace::OffScreen && setMode();
    primary_ = isSeen ? makePrimary() : makeOffScreen(bitsPerPixel);
    secondary_ = makeOffScreen(bitsPerPixel);
    if (primary_ == nullptr || secondary_ == nullptr) {
        secondary_.reset();
        problem_ = "no surfaces of " + std::to_string(bitsPerPixel) + " bits can be made";
    }
}

bool Display::setMode()
{
    const auto bits = static_cast<DWORD>(bitsPerPixel_);
    if (directDraw_->SetDisplayMode(HostWindow::width, HostWindow::height, bits) == DD_OK)
        return true;
    problem_ = "The display offers no 640 x 480 at " + std::to_string(bits)
        + " bits, so the picture stays off the screen; try another --depth";
    return false;
}

ComPointer<IDirectDrawSurface> Display::makePrimary() const
{
    DDSURFACEDESC description {};
    description.dwFlags = DDSD_CAPS;
    description.ddsCaps.dwCaps = DDSCAPS_PRIMARYSURFACE;
    return makeSurface(*directDraw_, description);
}

ComPointer<IDirectDrawSurface> Display::makeOffScreen(int bits) const
{
    DDSURFACEDESC description {};
    description.dwFlags = DDSD_CAPS | DDSD_WIDTH | DDSD_HEIGHT | DDSD_PIXELFORMAT;
    description.ddsCaps.dwCaps = DDSCAPS_OFFSCREENPLAIN | DDSCAPS_SYSTEMMEMORY;
    description.dwWidth = HostWindow::width;
    description.dwHeight = HostWindow::height;
    description.ddpfPixelFormat = formatOfDepth(bits);
    return makeSurface(*directDraw_, description);
}

ComPointer<IDirectDrawSurface> Display::makePaper() const
{
    return makeOffScreen(32);
}

void Display::show(const Picture& picture)
{
    if (writeSurface(*secondary_, picture))
        bringToScreen(*secondary_);
}

void Display::bringToScreen(IDirectDrawSurface& surface)
{
    RECT whole = wholePicture;
    if (primary_->BltFast(0, 0, &surface, &whole, DDBLTFAST_WAIT) == DDERR_SURFACELOST
        && primary_->Restore() == DD_OK)
        primary_->BltFast(0, 0, &surface, &whole, DDBLTFAST_WAIT);
}

bool Display::makeStage(const std::string& artwork)
{
    bubble_.emplace(artwork);
    captioned_ = makeOffScreen(bitsPerPixel_);
    if (captioned_ != nullptr)
        stage_ = makeOffScreen(bitsPerPixel_);
    return stage_ != nullptr;
}

void Display::showStage(const std::string& caption)
{
    if (stage_ == nullptr)
        return;
    RECT whole = wholePicture;
    if (caption.empty() || captioned_->BltFast(0, 0, stage_.get(), &whole, DDBLTFAST_WAIT) != DD_OK)
        return bringToScreen(*stage_);
    bubble_->draw(*captioned_, caption);
    bringToScreen(*captioned_);
}

std::optional<Picture> Display::shown() const
{
    return readSurface(*primary_);
}

} // namespace kez::player
