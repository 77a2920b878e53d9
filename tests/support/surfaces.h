// SPDX-License-Identifier: MIT
/// Surfaces as a host makes them: in the system's memory, in the usual formats.
#pragma once

#include <windows.h>

#include <ddraw.h>

namespace kez::test {

/// The usual format of 16, 24 or 32 bits a pixel: 565, or eight bits a channel; red highest.
inline DDPIXELFORMAT formatOf(int bits)
{
    DDPIXELFORMAT format = {};
    format.dwSize = sizeof format;
    format.dwFlags = DDPF_RGB;
    format.dwRGBBitCount = static_cast<DWORD>(bits);
    format.dwRBitMask = bits == 16 ? 0xF800 : 0xFF0000;
    format.dwGBitMask = bits == 16 ? 0x07E0 : 0x00FF00;
    format.dwBBitMask = bits == 16 ? 0x001F : 0x0000FF;
    return format;
}

/// Width and height in pixels. The caller releases it; null when it is refused.
inline IDirectDrawSurface* makeSurface(
    IDirectDraw& directDraw, int bits, DWORD width = 640, DWORD height = 480)
{
    DDSURFACEDESC wanted = {};
    wanted.dwSize = sizeof wanted;
    wanted.dwFlags = DDSD_CAPS | DDSD_WIDTH | DDSD_HEIGHT | DDSD_PIXELFORMAT;
    wanted.dwWidth = width;
    wanted.dwHeight = height;
    wanted.ddsCaps.dwCaps = DDSCAPS_OFFSCREENPLAIN | DDSCAPS_SYSTEMMEMORY;
    wanted.ddpfPixelFormat = formatOf(bits);
    IDirectDrawSurface* surface = nullptr;
    directDraw.CreateSurface(&wanted, &surface, nullptr);
    return surface;
}

} // namespace kez::test
