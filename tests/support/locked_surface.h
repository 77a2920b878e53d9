// SPDX-License-Identifier: MIT
/// A surface's pixels, read and written one by one.
#pragma once

#include <windows.h>

#include <ddraw.h>

#include <gtest/gtest.h>

#include <cstring>

namespace kez::test {

/// The surface locked for as long as the object lives.
class Locked {
public:
    explicit Locked(IDirectDrawSurface* surface)
        : surface_(surface)
    {
        surface_->AddRef();
        description_.dwSize = sizeof description_;
        EXPECT_EQ(surface_->Lock(nullptr, &description_, DDLOCK_WAIT, nullptr), DD_OK);
    }

    ~Locked()
    {
        surface_->Unlock(nullptr);
        surface_->Release();
    }

    Locked(const Locked&) = delete;
    Locked& operator=(const Locked&) = delete;

    [[nodiscard]] int pitch() const { return description_.lPitch; }

    [[nodiscard]] BYTE* at(int x, int y) const
    {
        return static_cast<BYTE*>(description_.lpSurface) + y * pitch() + x * bytes();
    }

    [[nodiscard]] DWORD pixel(int x, int y) const
    {
        DWORD value = 0;
        std::memcpy(&value, at(x, y), static_cast<std::size_t>(bytes()));
        return value;
    }

    void setPixel(int x, int y, DWORD value) const
    {
        std::memcpy(at(x, y), &value, static_cast<std::size_t>(bytes()));
    }

private:
    [[nodiscard]] int bytes() const
    {
        return static_cast<int>(description_.ddpfPixelFormat.dwRGBBitCount / 8);
    }

    IDirectDrawSurface* surface_;
    DDSURFACEDESC description_ {};
};

} // namespace kez::test
