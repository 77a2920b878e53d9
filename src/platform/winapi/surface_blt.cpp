// SPDX-License-Identifier: MIT
/// Copies between surfaces.
#include "surface.h"

#include <cstring>

namespace kez::winapi {

HRESULT Surface::BltFast(
    DWORD x, DWORD y, LPDIRECTDRAWSURFACE source, LPRECT sourceArea, DWORD flags)
{
    auto* from = static_cast<Surface*>(source);
    if (from == nullptr
        || (flags & ~(DDBLTFAST_WAIT | DDBLTFAST_SRCCOLORKEY | DDBLTFAST_DESTCOLORKEY)) != 0)
        return DDERR_INVALIDPARAMS;
    const RECT taken = sourceArea != nullptr ? *sourceArea : from->whole();
    if (!from->contains(taken))
        return DDERR_INVALIDRECT;
    const auto right = static_cast<std::int64_t>(x) + taken.right - taken.left;
    const auto bottom = static_cast<std::int64_t>(y) + taken.bottom - taken.top;
    if (right > width_ || bottom > height_)
        return DDERR_INVALIDRECT;
    if ((flags & (DDBLTFAST_SRCCOLORKEY | DDBLTFAST_DESTCOLORKEY)) != 0)
        return DDERR_UNSUPPORTED;
    for (const Surface* surface : { this, from }) {
        if (const HRESULT result = surface->usable(); result != DD_OK)
            return result;
    }
    // The places of the colours must agree; whether the fourth byte is called alpha does not
    // matter.
    const DDPIXELFORMAT here = format_.description();
    const DDPIXELFORMAT there = from->format_.description();
    if (here.dwRGBBitCount != there.dwRGBBitCount || here.dwRBitMask != there.dwRBitMask
        || here.dwGBitMask != there.dwGBitMask || here.dwBBitMask != there.dwBBitMask)
        return DDERR_INVALIDPIXELFORMAT;
    copyRows({ static_cast<LONG>(x), static_cast<LONG>(y), static_cast<LONG>(right),
                 static_cast<LONG>(bottom) },
        *from, taken);
    changed();
    return DD_OK;
}

// A surface may be copied onto itself, so rows are taken from the side that is not yet overwritten.
void Surface::copyRows(const RECT& area, Surface& source, const RECT& sourceArea)
{
    const auto bytes = static_cast<std::size_t>((area.right - area.left) * format_.bytes());
    const int rows = area.bottom - area.top;
    const bool upwards = &source == this && area.top > sourceArea.top;
    const PixelView to = view();
    const PixelView from = source.view();
    for (int i = 0; i < rows; ++i) {
        const int row = upwards ? rows - 1 - i : i;
        std::memmove(to.at(area.left, area.top + row),
            from.at(sourceArea.left, sourceArea.top + row), bytes);
    }
}

} // namespace kez::winapi
