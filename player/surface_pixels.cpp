// SPDX-License-Identifier: MIT
#include "surface_pixels.h"

#include <algorithm>
#include <bit>

namespace kez::player {
namespace {

// Keeps a surface locked and unlocks it on every way out.
class SurfaceLock {
public:
    SurfaceLock(IDirectDrawSurface& surface, DWORD flags)
        : surface_(surface)
    {
        description_.dwSize = sizeof(description_);
        HRESULT result = surface.Lock(nullptr, &description_, DDLOCK_WAIT | flags, nullptr);
        if (result == DDERR_SURFACELOST && surface.Restore() == DD_OK)
            result = surface.Lock(nullptr, &description_, DDLOCK_WAIT | flags, nullptr);
        locked_ = result == DD_OK;
    }

    ~SurfaceLock()
    {
        if (locked_)
            surface_.Unlock(nullptr);
    }

    SurfaceLock(const SurfaceLock&) = delete;
    SurfaceLock& operator=(const SurfaceLock&) = delete;

    explicit operator bool() const { return locked_; }

    [[nodiscard]] int width() const { return static_cast<int>(description_.dwWidth); }

    [[nodiscard]] int height() const { return static_cast<int>(description_.dwHeight); }

    [[nodiscard]] BYTE* row(int y) const
    {
        return static_cast<BYTE*>(description_.lpSurface)
            + std::ptrdiff_t { description_.lPitch } * y;
    }

private:
    IDirectDrawSurface& surface_;
    DDSURFACEDESC description_ {};
    bool locked_ = false;
};

// One colour channel of a surface's pixels, widened to and narrowed from eight bits.
class Channel {
public:
    explicit Channel(DWORD mask)
        : shift_(mask == 0 ? 0 : std::countr_zero(mask))
        , largest_(mask >> shift_)
    {
    }

    [[nodiscard]] DWORD widen(DWORD pixel) const
    {
        const DWORD value = (pixel >> shift_) & largest_;
        return largest_ == 0 ? 0 : (value * 255 + largest_ / 2) / largest_;
    }

    [[nodiscard]] DWORD narrow(DWORD byte) const { return byte * (largest_ + 1) / 256 << shift_; }

private:
    int shift_;
    DWORD largest_;
};

struct PixelFormat {
    int bytes;
    Channel red;
    Channel green;
    Channel blue;

    [[nodiscard]] DWORD toPicture(DWORD pixel) const
    {
        return 0xFF000000u | red.widen(pixel) << 16 | green.widen(pixel) << 8 | blue.widen(pixel);
    }

    [[nodiscard]] DWORD toSurface(DWORD pixel) const
    {
        return red.narrow(pixel >> 16 & 0xFF) | green.narrow(pixel >> 8 & 0xFF)
            | blue.narrow(pixel & 0xFF);
    }
};

std::optional<PixelFormat> formatOf(IDirectDrawSurface& surface)
{
    DDPIXELFORMAT format {};
    format.dwSize = sizeof(format);
    if (surface.GetPixelFormat(&format) != DD_OK || format.dwRGBBitCount < 16)
        return std::nullopt;
    return PixelFormat { static_cast<int>(format.dwRGBBitCount / 8), Channel(format.dwRBitMask),
        Channel(format.dwGBitMask), Channel(format.dwBBitMask) };
}

DWORD load(const BYTE* at, int bytes)
{
    DWORD pixel = 0;
    for (int i = 0; i < bytes; ++i)
        pixel |= DWORD { at[i] } << 8 * i;
    return pixel;
}

void store(BYTE* at, int bytes, DWORD pixel)
{
    for (int i = 0; i < bytes; ++i)
        at[i] = static_cast<BYTE>(pixel >> 8 * i);
}

} // namespace

std::optional<Picture> readSurface(IDirectDrawSurface& surface)
{
    const auto format = formatOf(surface);
    const SurfaceLock lock(surface, DDLOCK_READONLY);
    if (!format || !lock)
        return std::nullopt;
    Picture picture = blankPicture(lock.width(), lock.height(), 0);
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x) {
            const BYTE* at = lock.row(y) + std::ptrdiff_t { format->bytes } * x;
            picture.at(x, y) = format->toPicture(load(at, format->bytes));
        }
    }
    return picture;
}

bool writeSurface(IDirectDrawSurface& surface, const Picture& picture)
{
    const auto format = formatOf(surface);
    const SurfaceLock lock(surface, 0);
    if (!format || !lock)
        return false;
    for (int y = 0; y < std::min(picture.height, lock.height()); ++y) {
        for (int x = 0; x < std::min(picture.width, lock.width()); ++x) {
            BYTE* at = lock.row(y) + std::ptrdiff_t { format->bytes } * x;
            store(at, format->bytes, format->toSurface(picture.at(x, y)));
        }
    }
    return true;
}

} // namespace kez::player
