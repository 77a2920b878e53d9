// SPDX-License-Identifier: MIT
#include "surface.h"

#include "device_context.h"
#include "display_window.h"

#include <algorithm>

namespace kez::winapi {

namespace {

constexpr int rowAlignment = 8;

int pitchOf(int width, const PixelFormat& format)
{
    const int bytes = width * format.bytes();
    return (bytes + rowAlignment - 1) / rowAlignment * rowAlignment;
}

} // namespace

int Surface::live = 0;

Surface::Surface(int width, int height, const PixelFormat& format, DWORD caps)
    : width_(width)
    , height_(height)
    , pitch_(pitchOf(width, format))
    , format_(format)
    , caps_(caps)
    , pixels_(static_cast<std::size_t>(pitch_) * static_cast<std::size_t>(height))
{
    ++live;
    if (isPrimary())
        display().primary = this;
}

Surface::~Surface()
{
    --live;
    if (display().primary == this)
        display().primary = nullptr;
    if (context_ != nullptr)
        closeContext(context_);
}

PixelView Surface::view()
{
    return { pixels_.data(), pitch_, width_, height_, &format_ };
}

HRESULT Surface::usable() const
{
    if (lost_)
        return DDERR_SURFACELOST;
    return locked_ || context_ != nullptr ? DDERR_SURFACEBUSY : DD_OK;
}

bool Surface::contains(const RECT& area) const
{
    return area.left >= 0 && area.top >= 0 && area.left < area.right && area.top < area.bottom
        && area.right <= width_ && area.bottom <= height_;
}

void Surface::changed()
{
    if (display().primary == this)
        showPicture();
}

void Surface::describe(DDSURFACEDESC& description) const
{
    description = {};
    description.dwSize = sizeof description;
    description.dwFlags = DDSD_CAPS | DDSD_HEIGHT | DDSD_WIDTH | DDSD_PITCH | DDSD_PIXELFORMAT;
    description.dwHeight = static_cast<DWORD>(height_);
    description.dwWidth = static_cast<DWORD>(width_);
    description.lPitch = pitch_;
    description.ddpfPixelFormat = format_.description();
    description.ddsCaps.dwCaps = caps_;
}

HRESULT Surface::GetCaps(LPDDSCAPS caps)
{
    if (caps == nullptr)
        return DDERR_INVALIDPARAMS;
    caps->dwCaps = caps_;
    return DD_OK;
}

HRESULT Surface::GetPixelFormat(LPDDPIXELFORMAT format)
{
    if (format == nullptr || format->dwSize != sizeof(DDPIXELFORMAT))
        return DDERR_INVALIDPARAMS;
    *format = format_.description();
    return DD_OK;
}

HRESULT Surface::GetSurfaceDesc(LPDDSURFACEDESC description)
{
    if (description == nullptr || description->dwSize != sizeof(DDSURFACEDESC))
        return DDERR_INVALIDPARAMS;
    describe(*description);
    return DD_OK;
}

HRESULT Surface::IsLost()
{
    return lost_ ? DDERR_SURFACELOST : DD_OK;
}

HRESULT Surface::Lock(LPRECT area, LPDDSURFACEDESC description, DWORD, HANDLE event)
{
    if (description == nullptr || description->dwSize != sizeof(DDSURFACEDESC) || event != nullptr
        || (area != nullptr && !contains(*area)))
        return DDERR_INVALIDPARAMS;
    if (const HRESULT result = usable(); result != DD_OK)
        return result;
    locked_ = true;
    describe(*description);
    description->dwFlags |= DDSD_LPSURFACE;
    description->lpSurface = area != nullptr ? view().at(area->left, area->top) : pixels_.data();
    return DD_OK;
}

HRESULT Surface::Unlock(LPVOID)
{
    if (!locked_)
        return DDERR_NOTLOCKED;
    locked_ = false;
    changed();
    return DD_OK;
}

HRESULT Surface::GetDC(HDC* context)
{
    if (context == nullptr)
        return DDERR_INVALIDPARAMS;
    *context = nullptr;
    if (lost_)
        return DDERR_SURFACELOST;
    if (context_ != nullptr)
        return DDERR_DCALREADYCREATED;
    if (locked_)
        return DDERR_SURFACEBUSY;
    context_ = openSurfaceContext(*this);
    *context = context_;
    return DD_OK;
}

HRESULT Surface::ReleaseDC(HDC context)
{
    if (context_ == nullptr)
        return DDERR_NODC;
    if (context != context_)
        return DDERR_INVALIDPARAMS;
    closeContext(context_);
    context_ = nullptr;
    changed();
    return DD_OK;
}

HRESULT Surface::Restore()
{
    if (!lost_)
        return DD_OK;
    const DisplayMode& mode = display().mode;
    if (isPrimary()
        && (width_ != mode.width || height_ != mode.height || !(format_ == mode.format)))
        return DDERR_WRONGMODE;
    lost_ = false;
    std::ranges::fill(pixels_, BYTE { 0 });
    return DD_OK;
}

} // namespace kez::winapi
