// SPDX-License-Identifier: MIT
/// A display as a host without a screen makes it: a DirectDraw object and two surfaces of 640 × 480
/// in one display format, which serve as primary and secondary. And a way to read a surface's
/// pixels.
#pragma once

#include "support/locked_surface.h"
#include "support/surfaces.h"

#include <windows.h>

#include <ddraw.h>

#include <gtest/gtest.h>

#include <cstdint>

namespace kez::test {

inline std::uint32_t pixelAt(IDirectDrawSurface& surface, int x, int y)
{
    return Locked(&surface).pixel(x, y);
}

class Display {
public:
    explicit Display(int bits)
        : bits_(bits)
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
        IDirectDrawSurface* const surface = makeSurface(*directDraw, bits_, width, height);
        EXPECT_NE(surface, nullptr);
        return surface;
    }

    IDirectDraw* directDraw = nullptr;
    IDirectDrawSurface* primary = nullptr;
    IDirectDrawSurface* secondary = nullptr;

private:
    int bits_;
};

} // namespace kez::test
