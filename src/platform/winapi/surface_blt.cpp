// SPDX-License-Identifier: MIT
/// Copies between surfaces and fills.
#include "surface.h"

#include <cstring>

namespace kez::winapi {

namespace {

constexpr DWORD bltFlags = DDBLT_ASYNC | DDBLT_COLORFILL | DDBLT_WAIT;

bool sameSize(const RECT& a, const RECT& b)
{
    return a.right - a.left == b.right - b.left && a.bottom - a.top == b.bottom - b.top;
}

} // namespace

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
    return copy({ static_cast<LONG>(x), static_cast<LONG>(y), static_cast<LONG>(right),
                    static_cast<LONG>(bottom) },
        *from, taken);
}

HRESULT Surface::Blt(
    LPRECT area, LPDIRECTDRAWSURFACE source, LPRECT sourceArea, DWORD flags, LPDDBLTFX effects)
{
    const RECT painted = area != nullptr ? *area : whole();
    if (!contains(painted))
        return DDERR_INVALIDRECT;
    if ((flags & ~bltFlags) != 0)
        return DDERR_UNSUPPORTED;
    if ((flags & DDBLT_COLORFILL) != 0)
        return fill(painted, effects);
    auto* from = static_cast<Surface*>(source);
    if (from == nullptr)
        return DDERR_INVALIDPARAMS;
    const RECT taken = sourceArea != nullptr ? *sourceArea : from->whole();
    return from->contains(taken) ? copy(painted, *from, taken) : DDERR_INVALIDRECT;
}

HRESULT Surface::fill(const RECT& area, const DDBLTFX* effects)
{
    if (effects == nullptr || effects->dwSize != sizeof(DDBLTFX))
        return DDERR_INVALIDPARAMS;
    if (const HRESULT result = accessible(Call::Blt); result != DD_OK)
        return result;
    if (const HRESULT result = usable(); result != DD_OK)
        return result;
    for (int y = area.top; y < area.bottom; ++y) {
        for (int x = area.left; x < area.right; ++x)
            format_.write(view().at(x, y), effects->dwFillColor);
    }
    changed();
    return DD_OK;
}

HRESULT Surface::copy(const RECT& area, Surface& source, const RECT& sourceArea)
{
    if (const HRESULT result = accessible(Call::Blt); result != DD_OK)
        return result;
    for (const Surface* surface : { this, &source }) {
        if (const HRESULT result = surface->usable(); result != DD_OK)
            return result;
    }
    // The places of the colours must agree; whether the fourth byte is called alpha does not
    // matter.
    const DDPIXELFORMAT here = format_.description();
    const DDPIXELFORMAT there = source.format_.description();
    if (here.dwRGBBitCount != there.dwRGBBitCount || here.dwRBitMask != there.dwRBitMask
        || here.dwGBitMask != there.dwGBitMask || here.dwBBitMask != there.dwBBitMask)
        return DDERR_INVALIDPIXELFORMAT;
    if (sameSize(area, sourceArea))
        copyRows(area, source, sourceArea);
    else
        stretch(area, source, sourceArea);
    changed();
    return DD_OK;
}

// A surface may be copied onto itself, so rows are taken from the side that is not yet overwritten.
void Surface::copyRows(const RECT& area, const Surface& source, const RECT& sourceArea)
{
    const auto bytes = static_cast<std::size_t>((area.right - area.left) * format_.bytes());
    const int rows = area.bottom - area.top;
    const bool upwards = &source == this && area.top > sourceArea.top;
    const PixelView to = view();
    const PixelView from = const_cast<Surface&>(source).view();
    for (int i = 0; i < rows; ++i) {
        const int row = upwards ? rows - 1 - i : i;
        std::memmove(to.at(area.left, area.top + row),
            from.at(sourceArea.left, sourceArea.top + row), bytes);
    }
}

void Surface::stretch(const RECT& area, Surface& source, const RECT& sourceArea)
{
    const std::vector<BYTE> before = source.pixels_;
    PixelView from = source.view();
    from.pixels = const_cast<BYTE*>(before.data());
    const PixelView to = view();
    const std::int64_t width = area.right - area.left;
    const std::int64_t height = area.bottom - area.top;
    for (int y = 0; y < height; ++y) {
        const std::int64_t row = y * std::int64_t { sourceArea.bottom - sourceArea.top } / height;
        for (int x = 0; x < width; ++x) {
            const std::int64_t column
                = x * std::int64_t { sourceArea.right - sourceArea.left } / width;
            const BYTE* pixel = from.at(
                sourceArea.left + static_cast<int>(column), sourceArea.top + static_cast<int>(row));
            format_.write(to.at(area.left + x, area.top + y), format_.read(pixel));
        }
    }
}

} // namespace kez::winapi
