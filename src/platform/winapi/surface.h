// SPDX-License-Identifier: MIT
/// A picture in memory that is locked for its pixels, drawn on with a device context, or copied.
/// Rows start at multiples of eight bytes, so a row may be longer than its pixels.
#pragma once

#include "display_mode.h"
#include "unsupported.h"

#include <vector>

namespace kez::winapi {

class Surface final : public SurfaceBase {
public:
    /// Cleared to zero. The primary surface registers itself with the display.
    Surface(int width, int height, const PixelFormat& format, DWORD caps);

    HRESULT BltFast(
        DWORD x, DWORD y, LPDIRECTDRAWSURFACE source, LPRECT sourceArea, DWORD flags) override;
    HRESULT GetCaps(LPDDSCAPS caps) override;
    HRESULT GetDC(HDC* context) override;
    HRESULT GetPixelFormat(LPDDPIXELFORMAT format) override;
    HRESULT GetSurfaceDesc(LPDDSURFACEDESC description) override;
    HRESULT IsLost() override;
    HRESULT Lock(LPRECT area, LPDDSURFACEDESC description, DWORD flags, HANDLE event) override;
    HRESULT ReleaseDC(HDC context) override;
    HRESULT Restore() override;
    HRESULT Unlock(LPVOID pixels) override;

    [[nodiscard]] bool isPrimary() const { return (caps_ & DDSCAPS_PRIMARYSURFACE) != 0; }

    [[nodiscard]] PixelView view();

    void lose() { lost_ = true; } ///< Until `Restore`.

    void changed(); ///< Shows the picture if this is the primary surface.

    static int live; ///< Surfaces that exist.

private:
    ~Surface() override;
    [[nodiscard]] HRESULT usable() const; ///< May a blit touch the pixels?

    [[nodiscard]] RECT whole() const { return { 0, 0, width_, height_ }; }

    [[nodiscard]] bool contains(const RECT& area) const;
    void describe(DDSURFACEDESC& description) const;
    void copyRows(const RECT& area, Surface& source, const RECT& sourceArea);

    int width_;
    int height_;
    int pitch_;
    PixelFormat format_;
    DWORD caps_;
    std::vector<BYTE> pixels_;
    bool lost_ = false;
    bool locked_ = false;
    HDC context_ = nullptr;
};

} // namespace kez::winapi
