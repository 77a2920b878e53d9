// SPDX-License-Identifier: MIT
#include "display/memory_surface.h"

#include "display/screen.h"

namespace kez {

IDirectDrawSurface* createMemorySurface(
    IDirectDraw& directDraw, int width, int height, int bitsPerPixel)
{
    DDSURFACEDESC wanted = {};
    wanted.dwSize = sizeof wanted;
    wanted.dwFlags = DDSD_CAPS | DDSD_HEIGHT | DDSD_WIDTH | DDSD_PIXELFORMAT;
    wanted.dwWidth = static_cast<DWORD>(width);
    wanted.dwHeight = static_cast<DWORD>(height);
    wanted.ddsCaps.dwCaps = DDSCAPS_OFFSCREENPLAIN | DDSCAPS_SYSTEMMEMORY | DDSCAPS_OWNDC;
    wanted.ddpfPixelFormat.dwSize = sizeof wanted.ddpfPixelFormat;
    wanted.ddpfPixelFormat.dwFlags = DDPF_RGB;
    wanted.ddpfPixelFormat.dwRGBBitCount = static_cast<DWORD>(bitsPerPixel);
    wanted.ddpfPixelFormat.dwRBitMask = 0x00FF0000;
    wanted.ddpfPixelFormat.dwGBitMask = 0x0000FF00;
    wanted.ddpfPixelFormat.dwBBitMask = 0x000000FF;
    wanted.ddpfPixelFormat.dwRGBAlphaBitMask = bitsPerPixel == 32 ? 0xFF000000 : 0;
    IDirectDrawSurface* surface = nullptr;
    const HRESULT result = directDraw.CreateSurface(&wanted, &surface, nullptr);
    if (result == DD_OK)
        return surface;
    abortReport(result, "CreateSurface");
    return nullptr;
}

} // namespace kez
