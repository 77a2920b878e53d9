// SPDX-License-Identifier: MIT
#include "display_window.h"
#include "surface.h"

#include "winbase.h"
#include "winuser.h"

#include <new>

const IID IID_IUnknown { 0x00000000, 0x0000, 0x0000, { 0xC0, 0, 0, 0, 0, 0, 0, 0x46 } };
const IID IID_IDirectDraw { 0x6C14DB80, 0xA733, 0x11CE,
    { 0xA5, 0x21, 0x00, 0x20, 0xAF, 0x0B, 0xE5, 0x60 } };
const IID IID_IDirectDrawSurface { 0x6C14DB81, 0xA733, 0x11CE,
    { 0xA5, 0x21, 0x00, 0x20, 0xAF, 0x0B, 0xE5, 0x60 } };

namespace kez::winapi {

namespace {

constexpr DWORD largestSide = 8192;
constexpr DWORD frameMs = 16; // About one picture of a display at 60 hertz.

class DirectDraw final : public DirectDrawBase {
public:
    HRESULT CreateSurface(
        LPDDSURFACEDESC description, LPDIRECTDRAWSURFACE* surface, IUnknown* outer) override;

    HRESULT FlipToGDISurface() override { return DD_OK; }

    HRESULT GetDisplayMode(LPDDSURFACEDESC description) override;
    HRESULT RestoreDisplayMode() override;
    HRESULT SetCooperativeLevel(HWND window, DWORD flags) override;
    HRESULT SetDisplayMode(DWORD width, DWORD height, DWORD bits) override;
    HRESULT WaitForVerticalBlank(DWORD flags, HANDLE event) override;

private:
    ~DirectDraw() override = default;
    static HRESULT createPrimary(const DDSURFACEDESC& description, LPDIRECTDRAWSURFACE* surface);
    static HRESULT createOffScreen(const DDSURFACEDESC& description, LPDIRECTDRAWSURFACE* surface);

    bool hasLevel_ = false;
};

HRESULT DirectDraw::CreateSurface(
    LPDDSURFACEDESC description, LPDIRECTDRAWSURFACE* surface, IUnknown* outer)
{
    if (outer != nullptr)
        return CLASS_E_NOAGGREGATION;
    if (surface == nullptr)
        return DDERR_INVALIDPARAMS;
    *surface = nullptr;
    if (description == nullptr || description->dwSize != sizeof(DDSURFACEDESC))
        return DDERR_INVALIDPARAMS;
    if (!hasLevel_)
        return DDERR_NOCOOPERATIVELEVELSET;
    const DWORD caps
        = (description->dwFlags & DDSD_CAPS) != 0 ? description->ddsCaps.dwCaps : DWORD { 0 };
    if ((caps & (DDSCAPS_COMPLEX | DDSCAPS_FLIP | DDSCAPS_BACKBUFFER)) != 0)
        return DDERR_NOFLIPHW;
    return (caps & DDSCAPS_PRIMARYSURFACE) != 0 ? createPrimary(*description, surface)
                                                : createOffScreen(*description, surface);
}

HRESULT DirectDraw::createPrimary(const DDSURFACEDESC& description, LPDIRECTDRAWSURFACE* surface)
{
    if ((description.dwFlags & (DDSD_WIDTH | DDSD_HEIGHT | DDSD_PIXELFORMAT)) != 0)
        return DDERR_INVALIDPARAMS;
    if ((description.ddsCaps.dwCaps & DDSCAPS_OFFSCREENPLAIN) != 0)
        return DDERR_INVALIDCAPS;
    if (display().primary != nullptr)
        return DDERR_PRIMARYSURFACEALREADYEXISTS;
    const DisplayMode& mode = display().mode;
    *surface = new (std::nothrow)
        Surface(mode.width, mode.height, mode.format, description.ddsCaps.dwCaps | DDSCAPS_VISIBLE);
    return *surface != nullptr ? DD_OK : DDERR_OUTOFMEMORY;
}

HRESULT DirectDraw::createOffScreen(const DDSURFACEDESC& description, LPDIRECTDRAWSURFACE* surface)
{
    constexpr DWORD size = DDSD_WIDTH | DDSD_HEIGHT;
    if ((description.dwFlags & size) != size || description.dwWidth == 0
        || description.dwHeight == 0)
        return DDERR_INVALIDPARAMS;
    if (description.dwWidth > largestSide)
        return DDERR_TOOBIGWIDTH;
    if (description.dwHeight > largestSide)
        return DDERR_TOOBIGHEIGHT;
    std::optional<PixelFormat> format = display().mode.format;
    if ((description.dwFlags & DDSD_PIXELFORMAT) != 0)
        format = PixelFormat::from(description.ddpfPixelFormat);
    if (!format)
        return DDERR_INVALIDPIXELFORMAT;
    const DWORD asked = (description.dwFlags & DDSD_CAPS) != 0 ? description.ddsCaps.dwCaps : 0;
    const DWORD caps
        = (asked & ~DDSCAPS_VIDEOMEMORY) | DDSCAPS_OFFSCREENPLAIN | DDSCAPS_SYSTEMMEMORY;
    *surface = new (std::nothrow) Surface(static_cast<int>(description.dwWidth),
        static_cast<int>(description.dwHeight), *format, caps);
    return *surface != nullptr ? DD_OK : DDERR_OUTOFMEMORY;
}

HRESULT DirectDraw::GetDisplayMode(LPDDSURFACEDESC description)
{
    if (description == nullptr || description->dwSize != sizeof(DDSURFACEDESC))
        return DDERR_INVALIDPARAMS;
    const DisplayMode& mode = display().mode;
    *description = {};
    description->dwSize = sizeof(DDSURFACEDESC);
    description->dwFlags = DDSD_HEIGHT | DDSD_WIDTH | DDSD_PITCH | DDSD_PIXELFORMAT;
    description->dwHeight = static_cast<DWORD>(mode.height);
    description->dwWidth = static_cast<DWORD>(mode.width);
    description->lPitch = mode.width * mode.format.bytes();
    description->ddpfPixelFormat = mode.format.description();
    return DD_OK;
}

HRESULT DirectDraw::RestoreDisplayMode()
{
    display().setMode(DisplayMode {});
    return DD_OK;
}

HRESULT DirectDraw::SetCooperativeLevel(HWND window, DWORD flags)
{
    const bool exclusive = (flags & DDSCL_EXCLUSIVE) != 0;
    const bool fullScreen = (flags & DDSCL_FULLSCREEN) != 0;
    if (exclusive != fullScreen || exclusive == ((flags & DDSCL_NORMAL) != 0))
        return DDERR_INVALIDPARAMS;
    if (exclusive && IsWindow(window) == FALSE)
        return DDERR_INVALIDPARAMS;
    hasLevel_ = true;
    setFullScreen(exclusive);
    return DD_OK;
}

HRESULT DirectDraw::SetDisplayMode(DWORD width, DWORD height, DWORD bits)
{
    if (!hasLevel_)
        return DDERR_NOCOOPERATIVELEVELSET;
    if (width == 0 || height == 0 || width > largestSide || height > largestSide
        || (bits != 16 && bits != 24 && bits != 32))
        return DDERR_INVALIDMODE;
    display().setMode(
        { static_cast<int>(width), static_cast<int>(height), PixelFormat::ofDepth(bits) });
    return DD_OK;
}

HRESULT DirectDraw::WaitForVerticalBlank(DWORD flags, HANDLE)
{
    if (flags != DDWAITVB_BLOCKBEGIN && flags != DDWAITVB_BLOCKEND)
        return DDERR_UNSUPPORTED;
    Sleep(frameMs);
    return DD_OK;
}

} // namespace

} // namespace kez::winapi

HRESULT WINAPI DirectDrawCreate(GUID* device, LPDIRECTDRAW* directDraw, IUnknown* outer)
{
    if (outer != nullptr)
        return CLASS_E_NOAGGREGATION;
    if (directDraw == nullptr)
        return DDERR_INVALIDPARAMS;
    *directDraw = nullptr;
    if (device != nullptr)
        return DDERR_INVALIDDIRECTDRAWGUID;
    *directDraw = new (std::nothrow) kez::winapi::DirectDraw;
    return *directDraw != nullptr ? DD_OK : DDERR_OUTOFMEMORY;
}
