// SPDX-License-Identifier: MIT
/// A surface locked as a whole, until the object goes.
#pragma once

#include <windows.h>

#include <ddraw.h>

#include <cstddef>
#include <cstdint>
#include <utility>

namespace kez {

class SurfaceLock {
public:
    SurfaceLock() = default; ///< Of no surface.

    /// Waits until the surface is free. `isToBeRepeated` sees the result of every attempt and may
    /// restore a surface that was lost; when it is done with, the lock tells whether it holds.
    template <typename Repeat>
    SurfaceLock(IDirectDrawSurface& surface, DWORD flags, Repeat&& isToBeRepeated)
    {
        HRESULT result = DD_OK;
        do {
            description_ = {};
            description_.dwSize = sizeof description_;
            result = surface.Lock(nullptr, &description_, DDLOCK_WAIT | flags, nullptr);
        } while (isToBeRepeated(result));
        if (result == DD_OK)
            surface_ = &surface;
    }

    SurfaceLock(SurfaceLock&& other) noexcept
        : surface_(std::exchange(other.surface_, nullptr))
        , description_(other.description_)
    {
    }

    SurfaceLock& operator=(SurfaceLock&& other) noexcept
    {
        std::swap(surface_, other.surface_);
        std::swap(description_, other.description_);
        return *this;
    }

    ~SurfaceLock()
    {
        if (surface_ != nullptr)
            surface_->Unlock(nullptr);
    }

    explicit operator bool() const { return surface_ != nullptr; }

    [[nodiscard]] const DDSURFACEDESC& description() const { return description_; }

    [[nodiscard]] int width() const { return static_cast<int>(description_.dwWidth); }

    [[nodiscard]] int height() const { return static_cast<int>(description_.dwHeight); }

    [[nodiscard]] std::uint8_t* row(int y) const ///< 0 is the top one.
    {
        return static_cast<std::uint8_t*>(description_.lpSurface)
            + static_cast<std::ptrdiff_t>(description_.lPitch) * y;
    }

private:
    IDirectDrawSurface* surface_ = nullptr;
    DDSURFACEDESC description_ {};
};

} // namespace kez
