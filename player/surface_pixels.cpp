// SPDX-License-Identifier: MIT
#include "surface_pixels.h"

#include "display/surface_lock.h"

#include <algorithm>
#include <bit>
#include <utility>

namespace kez::player {

namespace {

// A surface that was lost is restored, once.
SurfaceLock lockRestored(IDirectDrawSurface& surface, DWORD flags)
{
    bool wasRestored = false;
    return { surface, flags, [&](HRESULT result) {
                return result == DDERR_SURFACELOST && !std::exchange(wasRestored, true)
                    && surface.Restore() == DD_OK;
            } };
}

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
    const SurfaceLock lock = lockRestored(surface, DDLOCK_READONLY);
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
    const SurfaceLock lock = lockRestored(surface, 0);
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
