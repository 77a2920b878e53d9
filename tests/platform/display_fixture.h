// SPDX-License-Identifier: MIT
/// A display in a mode of the test's choice, and surfaces on it.
#pragma once

#include "support/locked_surface.h"
#include "support/surfaces.h"

#include <windows.h>

#include <control.h>
#include <ddraw.h>

#include <gtest/gtest.h>

namespace kez::test {

inline const DDPIXELFORMAT format32 = formatOf(32);

class DisplayTest : public ::testing::Test {
protected:
    DisplayTest()
    {
        EXPECT_EQ(DirectDrawCreate(nullptr, &directDraw, nullptr), DD_OK);
        EXPECT_EQ(directDraw->SetCooperativeLevel(nullptr, DDSCL_NORMAL), DD_OK);
    }

    ~DisplayTest() override
    {
        directDraw->RestoreDisplayMode();
        directDraw->Release();
        EXPECT_EQ(winapi::liveObjects(), before);
    }

    IDirectDrawSurface* makePrimary() const
    {
        DDSURFACEDESC description {};
        description.dwSize = sizeof description;
        description.dwFlags = DDSD_CAPS;
        description.ddsCaps.dwCaps = DDSCAPS_PRIMARYSURFACE;
        IDirectDrawSurface* surface = nullptr;
        EXPECT_EQ(directDraw->CreateSurface(&description, &surface, nullptr), DD_OK);
        return surface;
    }

    IDirectDrawSurface* makeSurface(
        int width, int height, const DDPIXELFORMAT& format, HRESULT expected = DD_OK) const
    {
        IDirectDrawSurface* surface = nullptr;
        EXPECT_EQ(test::makeSurface(*directDraw, format, static_cast<DWORD>(width),
                      static_cast<DWORD>(height), surface),
            expected);
        return surface;
    }

    winapi::LiveObjects before = winapi::liveObjects();
    IDirectDraw* directDraw = nullptr;
};

} // namespace kez::test
