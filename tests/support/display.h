// SPDX-License-Identifier: MIT
/// A display as a host without a screen makes it: a DirectDraw object and two surfaces of 640 × 480
/// in one display format, which serve as primary and secondary. And a way to read a surface's
/// pixels.
#pragma once

#include <windows.h>

#include <ddraw.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>

namespace kez::test {

inline std::uint32_t pixelAt(IDirectDrawSurface& surface, int x, int y)
{
    DDSURFACEDESC description = {};
    description.dwSize = sizeof description;
    if (surface.Lock(nullptr, &description, DDLOCK_WAIT, nullptr) != DD_OK) {
        ADD_FAILURE() << "The surface cannot be locked.";
        return 0;
    }
    const auto bytes = description.ddpfPixelFormat.dwRGBBitCount / 8;
    const auto* row = static_cast<const std::uint8_t*>(description.lpSurface)
        + static_cast<std::ptrdiff_t>(y) * description.lPitch;
    std::uint32_t pixel = 0;
    std::memcpy(&pixel, row + static_cast<std::ptrdiff_t>(x) * bytes, bytes);
    surface.Unlock(nullptr);
    return pixel;
}

/// The usual format of a depth: 565, or eight bits a channel; red highest.
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

class Display {
public:
    explicit Display(int bits)
        : format_(formatOf(bits))
    {
        EXPECT_EQ(DirectDrawCreate(nullptr, &directDraw, nullptr), DD_OK);
        EXPECT_EQ(directDraw->SetCooperativeLevel(nullptr, DDSCL_NORMAL), DD_OK);
        primary = createSurface(640, 480);
        secondary = createSurface(640, 480);
    }

    ~Display()
    {
        secondary->Release();
        primary->Release();
        directDraw->Release();
    }

    Display(const Display&) = delete;
    Display& operator=(const Display&) = delete;

    /// A surface of the display's format; the caller releases it.
    IDirectDrawSurface* createSurface(DWORD width, DWORD height)
    {
        DDSURFACEDESC wanted = {};
        wanted.dwSize = sizeof wanted;
        wanted.dwFlags = DDSD_CAPS | DDSD_WIDTH | DDSD_HEIGHT | DDSD_PIXELFORMAT;
        wanted.dwWidth = width;
        wanted.dwHeight = height;
        wanted.ddsCaps.dwCaps = DDSCAPS_OFFSCREENPLAIN | DDSCAPS_SYSTEMMEMORY;
        wanted.ddpfPixelFormat = format_;
        IDirectDrawSurface* surface = nullptr;
        EXPECT_EQ(directDraw->CreateSurface(&wanted, &surface, nullptr), DD_OK);
        return surface;
    }

    IDirectDraw* directDraw = nullptr;
    IDirectDrawSurface* primary = nullptr;
    IDirectDrawSurface* secondary = nullptr;

private:
    DDPIXELFORMAT format_;
};

} // namespace kez::test
