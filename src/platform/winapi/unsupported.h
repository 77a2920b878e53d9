// SPDX-License-Identifier: MIT
/// The methods of DirectDraw's interfaces that nobody here needs: overlays, flipping, palettes,
/// clippers, colour keys, enumerations. They all answer DDERR_UNSUPPORTED.
#pragma once

#include "com_object.h"
#include "ddraw.h"

namespace kez::winapi {

class DirectDrawBase : public ComObject<IDirectDraw, &IID_IDirectDraw> {
public:
    HRESULT Compact() override { return DDERR_UNSUPPORTED; }

    HRESULT CreateClipper(DWORD, LPDIRECTDRAWCLIPPER*, IUnknown*) override
    {
        return DDERR_UNSUPPORTED;
    }

    HRESULT CreatePalette(DWORD, LPPALETTEENTRY, LPDIRECTDRAWPALETTE*, IUnknown*) override
    {
        return DDERR_UNSUPPORTED;
    }

    HRESULT DuplicateSurface(LPDIRECTDRAWSURFACE, LPDIRECTDRAWSURFACE*) override
    {
        return DDERR_UNSUPPORTED;
    }

    HRESULT EnumDisplayModes(DWORD, LPDDSURFACEDESC, LPVOID, LPDDENUMMODESCALLBACK) override
    {
        return DDERR_UNSUPPORTED;
    }

    HRESULT EnumSurfaces(DWORD, LPDDSURFACEDESC, LPVOID, LPDDENUMSURFACESCALLBACK) override
    {
        return DDERR_UNSUPPORTED;
    }

    HRESULT GetCaps(LPDDCAPS, LPDDCAPS) override { return DDERR_UNSUPPORTED; }

    HRESULT GetFourCCCodes(LPDWORD, LPDWORD) override { return DDERR_UNSUPPORTED; }

    HRESULT GetGDISurface(LPDIRECTDRAWSURFACE*) override { return DDERR_UNSUPPORTED; }

    HRESULT GetMonitorFrequency(LPDWORD) override { return DDERR_UNSUPPORTED; }

    HRESULT GetScanLine(LPDWORD) override { return DDERR_UNSUPPORTED; }

    HRESULT GetVerticalBlankStatus(BOOL*) override { return DDERR_UNSUPPORTED; }

    HRESULT Initialize(GUID*) override { return DDERR_ALREADYINITIALIZED; }
};

class SurfaceBase : public ComObject<IDirectDrawSurface, &IID_IDirectDrawSurface> {
public:
    HRESULT AddAttachedSurface(LPDIRECTDRAWSURFACE) override { return DDERR_UNSUPPORTED; }

    HRESULT AddOverlayDirtyRect(LPRECT) override { return DDERR_UNSUPPORTED; }

    HRESULT Blt(LPRECT, LPDIRECTDRAWSURFACE, LPRECT, DWORD, LPDDBLTFX) override
    {
        return DDERR_UNSUPPORTED;
    }

    HRESULT BltBatch(LPDDBLTBATCH, DWORD, DWORD) override { return DDERR_UNSUPPORTED; }

    HRESULT DeleteAttachedSurface(DWORD, LPDIRECTDRAWSURFACE) override { return DDERR_UNSUPPORTED; }

    HRESULT EnumAttachedSurfaces(LPVOID, LPDDENUMSURFACESCALLBACK) override
    {
        return DDERR_UNSUPPORTED;
    }

    HRESULT EnumOverlayZOrders(DWORD, LPVOID, LPDDENUMSURFACESCALLBACK) override
    {
        return DDERR_UNSUPPORTED;
    }

    HRESULT Flip(LPDIRECTDRAWSURFACE, DWORD) override { return DDERR_UNSUPPORTED; }

    HRESULT GetAttachedSurface(LPDDSCAPS, LPDIRECTDRAWSURFACE*) override
    {
        return DDERR_UNSUPPORTED;
    }

    HRESULT GetBltStatus(DWORD) override { return DDERR_UNSUPPORTED; }

    HRESULT GetClipper(LPDIRECTDRAWCLIPPER*) override { return DDERR_UNSUPPORTED; }

    HRESULT GetColorKey(DWORD, LPDDCOLORKEY) override { return DDERR_UNSUPPORTED; }

    HRESULT GetFlipStatus(DWORD) override { return DDERR_UNSUPPORTED; }

    HRESULT GetOverlayPosition(LPLONG, LPLONG) override { return DDERR_UNSUPPORTED; }

    HRESULT GetPalette(LPDIRECTDRAWPALETTE*) override { return DDERR_UNSUPPORTED; }

    HRESULT Initialize(LPDIRECTDRAW, LPDDSURFACEDESC) override { return DDERR_ALREADYINITIALIZED; }

    HRESULT SetClipper(LPDIRECTDRAWCLIPPER) override { return DDERR_UNSUPPORTED; }

    HRESULT SetColorKey(DWORD, LPDDCOLORKEY) override { return DDERR_UNSUPPORTED; }

    HRESULT SetOverlayPosition(LONG, LONG) override { return DDERR_UNSUPPORTED; }

    HRESULT SetPalette(LPDIRECTDRAWPALETTE) override { return DDERR_UNSUPPORTED; }

    HRESULT UpdateOverlay(LPRECT, LPDIRECTDRAWSURFACE, LPRECT, DWORD, LPDDOVERLAYFX) override
    {
        return DDERR_UNSUPPORTED;
    }

    HRESULT UpdateOverlayDisplay(DWORD) override { return DDERR_UNSUPPORTED; }

    HRESULT UpdateOverlayZOrder(DWORD, LPDIRECTDRAWSURFACE) override { return DDERR_UNSUPPORTED; }
};

} // namespace kez::winapi
