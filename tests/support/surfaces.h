// SPDX-License-Identifier: MIT
/// Surfaces as a host makes them: in the system's memory, in the usual formats.
#pragma once

#include <windows.h>

#include <ddraw.h>

namespace kez::test {

inline DDPIXELFORMAT rgbFormat(DWORD bits, DWORD red, DWORD green, DWORD blue)
{
    DDPIXELFORMAT format = {};
    format.dwSize = sizeof format;
    format.dwFlags = DDPF_RGB;
    format.dwRGBBitCount = bits;
    format.dwRBitMask = red;
    format.dwGBitMask = green;
    format.dwBBitMask = blue;
    return format;
}

/// The usual format of 16, 24 or 32 bits a pixel: 565, or eight bits a channel; red highest.
inline DDPIXELFORMAT formatOf(int bits)
{
    return bits == 16 ? rgbFormat(16, 0xF800, 0x07E0, 0x001F)
                      : rgbFormat(static_cast<DWORD>(bits), 0xFF0000, 0x00FF00, 0x0000FF);
}

/// Width and height in pixels. The caller releases what is made.
inline HRESULT makeSurface(IDirectDraw& directDraw, const DDPIXELFORMAT& format, DWORD width,
    DWORD height, IDirectDrawSurface*& surface)
{
    DDSURFACEDESC wanted = {};
    wanted.dwSize = sizeof wanted;
    wanted.dwFlags = DDSD_CAPS | DDSD_WIDTH | DDSD_HEIGHT | DDSD_PIXELFORMAT;
    wanted.dwWidth = width;
    wanted.dwHeight = height;
    wanted.ddsCaps.dwCaps = DDSCAPS_OFFSCREENPLAIN | DDSCAPS_SYSTEMMEMORY;
    wanted.ddpfPixelFormat = format;
    return directDraw.CreateSurface(&wanted, &surface, nullptr);
}

/// The same in a usual format; null when it is refused.
inline IDirectDrawSurface* makeSurface(
    IDirectDraw& directDraw, int bits, DWORD width = 640, DWORD height = 480)
{
    IDirectDrawSurface* surface = nullptr;
    makeSurface(directDraw, formatOf(bits), width, height, surface);
    return surface;
}

} // namespace kez::test
