// SPDX-License-Identifier: MIT
/// DirectDraw, version 1: a display mode, the primary surface and surfaces in system memory.
/// Methods that this implementation does not support answer DDERR_UNSUPPORTED.
#pragma once

#include "windef.h"

#include "ddraw_errors.h"
#include "unknwn.h"

struct IDirectDraw;
struct IDirectDrawSurface;
struct IDirectDrawPalette;
struct IDirectDrawClipper;
using LPDIRECTDRAW = IDirectDraw*;
using LPDIRECTDRAWSURFACE = IDirectDrawSurface*;
using LPDIRECTDRAWPALETTE = IDirectDrawPalette*;
using LPDIRECTDRAWCLIPPER = IDirectDrawClipper*;

extern const IID IID_IDirectDraw;
extern const IID IID_IDirectDrawSurface;

#define DDSCL_FULLSCREEN 0x00000001u
#define DDSCL_ALLOWREBOOT 0x00000002u
#define DDSCL_NOWINDOWCHANGES 0x00000004u
#define DDSCL_NORMAL 0x00000008u
#define DDSCL_EXCLUSIVE 0x00000010u

#define DDSD_CAPS 0x00000001u
#define DDSD_HEIGHT 0x00000002u
#define DDSD_WIDTH 0x00000004u
#define DDSD_PITCH 0x00000008u
#define DDSD_BACKBUFFERCOUNT 0x00000020u
#define DDSD_LPSURFACE 0x00000800u
#define DDSD_PIXELFORMAT 0x00001000u

#define DDSCAPS_BACKBUFFER 0x00000004u
#define DDSCAPS_COMPLEX 0x00000008u
#define DDSCAPS_FLIP 0x00000010u
#define DDSCAPS_OFFSCREENPLAIN 0x00000040u
#define DDSCAPS_PRIMARYSURFACE 0x00000200u
#define DDSCAPS_SYSTEMMEMORY 0x00000800u
#define DDSCAPS_VIDEOMEMORY 0x00004000u
#define DDSCAPS_VISIBLE 0x00008000u
#define DDSCAPS_OWNDC 0x00040000u

#define DDPF_ALPHAPIXELS 0x00000001u
#define DDPF_PALETTEINDEXED8 0x00000020u
#define DDPF_RGB 0x00000040u

#define DDLOCK_SURFACEMEMORYPTR 0x00000000u
#define DDLOCK_WAIT 0x00000001u
#define DDLOCK_READONLY 0x00000010u
#define DDLOCK_WRITEONLY 0x00000020u

#define DDBLTFAST_NOCOLORKEY 0x00000000u
#define DDBLTFAST_SRCCOLORKEY 0x00000001u
#define DDBLTFAST_DESTCOLORKEY 0x00000002u
#define DDBLTFAST_WAIT 0x00000010u

#define DDBLT_ASYNC 0x00000200u
#define DDBLT_COLORFILL 0x00000400u
#define DDBLT_ROP 0x00020000u
#define DDBLT_WAIT 0x01000000u

#define DDWAITVB_BLOCKBEGIN 0x00000001u
#define DDWAITVB_BLOCKEND 0x00000004u

struct DDCOLORKEY {
    DWORD dwColorSpaceLowValue;
    DWORD dwColorSpaceHighValue;
};

using LPDDCOLORKEY = DDCOLORKEY*;

struct DDSCAPS {
    DWORD dwCaps;
};

using LPDDSCAPS = DDSCAPS*;

struct DDPIXELFORMAT {
    DWORD dwSize;
    DWORD dwFlags;
    DWORD dwFourCC;
    DWORD dwRGBBitCount;
    DWORD dwRBitMask;
    DWORD dwGBitMask;
    DWORD dwBBitMask;
    DWORD dwRGBAlphaBitMask;
};

using LPDDPIXELFORMAT = DDPIXELFORMAT*;

struct DDSURFACEDESC {
    DWORD dwSize;
    DWORD dwFlags;
    DWORD dwHeight;
    DWORD dwWidth;
    LONG lPitch;
    DWORD dwBackBufferCount;
    DWORD dwRefreshRate;
    DWORD dwAlphaBitDepth;
    DWORD dwReserved;
    LPVOID lpSurface;
    DDCOLORKEY ddckCKDestOverlay;
    DDCOLORKEY ddckCKDestBlt;
    DDCOLORKEY ddckCKSrcOverlay;
    DDCOLORKEY ddckCKSrcBlt;
    DDPIXELFORMAT ddpfPixelFormat;
    DDSCAPS ddsCaps;
};

using LPDDSURFACEDESC = DDSURFACEDESC*;

struct DDBLTFX {
    DWORD dwSize;
    DWORD dwDDFX;
    DWORD dwROP;
    DWORD dwDDROP;
    DWORD dwRotationAngle;
    DWORD dwZBufferOpCode;
    DWORD dwZBufferLow;
    DWORD dwZBufferHigh;
    DWORD dwZBufferBaseDest;
    DWORD dwZDestConstBitDepth;
    DWORD dwZDestConst;
    DWORD dwZSrcConstBitDepth;
    DWORD dwZSrcConst;
    DWORD dwAlphaEdgeBlendBitDepth;
    DWORD dwAlphaEdgeBlend;
    DWORD dwReserved;
    DWORD dwAlphaDestConstBitDepth;
    DWORD dwAlphaDestConst;
    DWORD dwAlphaSrcConstBitDepth;
    DWORD dwAlphaSrcConst;
    DWORD dwFillColor;
    DDCOLORKEY ddckDestColorkey;
    DDCOLORKEY ddckSrcColorkey;
};

using LPDDBLTFX = DDBLTFX*;

struct DDCAPS;
struct DDBLTBATCH;
struct DDOVERLAYFX;
using LPDDCAPS = DDCAPS*;
using LPDDBLTBATCH = DDBLTBATCH*;
using LPDDOVERLAYFX = DDOVERLAYFX*;
struct PALETTEENTRY;
using LPPALETTEENTRY = PALETTEENTRY*;

using LPDDENUMMODESCALLBACK = HRESULT (*)(LPDDSURFACEDESC, LPVOID);
using LPDDENUMSURFACESCALLBACK = HRESULT (*)(LPDIRECTDRAWSURFACE, LPDDSURFACEDESC, LPVOID);

struct IDirectDraw : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE Compact() = 0;
    virtual HRESULT STDMETHODCALLTYPE CreateClipper(DWORD, LPDIRECTDRAWCLIPPER*, IUnknown*) = 0;
    virtual HRESULT STDMETHODCALLTYPE CreatePalette(
        DWORD, LPPALETTEENTRY, LPDIRECTDRAWPALETTE*, IUnknown*)
        = 0;
    virtual HRESULT STDMETHODCALLTYPE CreateSurface(
        LPDDSURFACEDESC description, LPDIRECTDRAWSURFACE* surface, IUnknown* outer)
        = 0;
    virtual HRESULT STDMETHODCALLTYPE DuplicateSurface(LPDIRECTDRAWSURFACE, LPDIRECTDRAWSURFACE*)
        = 0;
    virtual HRESULT STDMETHODCALLTYPE EnumDisplayModes(
        DWORD, LPDDSURFACEDESC, LPVOID, LPDDENUMMODESCALLBACK)
        = 0;
    virtual HRESULT STDMETHODCALLTYPE EnumSurfaces(
        DWORD, LPDDSURFACEDESC, LPVOID, LPDDENUMSURFACESCALLBACK)
        = 0;
    virtual HRESULT STDMETHODCALLTYPE FlipToGDISurface() = 0;
    virtual HRESULT STDMETHODCALLTYPE GetCaps(LPDDCAPS, LPDDCAPS) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetDisplayMode(LPDDSURFACEDESC description) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetFourCCCodes(LPDWORD, LPDWORD) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetGDISurface(LPDIRECTDRAWSURFACE*) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetMonitorFrequency(LPDWORD) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetScanLine(LPDWORD) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetVerticalBlankStatus(BOOL*) = 0;
    virtual HRESULT STDMETHODCALLTYPE Initialize(GUID*) = 0;
    virtual HRESULT STDMETHODCALLTYPE RestoreDisplayMode() = 0;
    virtual HRESULT STDMETHODCALLTYPE SetCooperativeLevel(HWND window, DWORD flags) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetDisplayMode(DWORD width, DWORD height, DWORD bits) = 0;
    virtual HRESULT STDMETHODCALLTYPE WaitForVerticalBlank(DWORD flags, HANDLE event) = 0;
};

struct IDirectDrawSurface : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE AddAttachedSurface(LPDIRECTDRAWSURFACE) = 0;
    virtual HRESULT STDMETHODCALLTYPE AddOverlayDirtyRect(LPRECT) = 0;
    virtual HRESULT STDMETHODCALLTYPE Blt(
        LPRECT area, LPDIRECTDRAWSURFACE source, LPRECT sourceArea, DWORD flags, LPDDBLTFX effects)
        = 0;
    virtual HRESULT STDMETHODCALLTYPE BltBatch(LPDDBLTBATCH, DWORD, DWORD) = 0;
    virtual HRESULT STDMETHODCALLTYPE BltFast(
        DWORD x, DWORD y, LPDIRECTDRAWSURFACE source, LPRECT sourceArea, DWORD flags)
        = 0;
    virtual HRESULT STDMETHODCALLTYPE DeleteAttachedSurface(DWORD, LPDIRECTDRAWSURFACE) = 0;
    virtual HRESULT STDMETHODCALLTYPE EnumAttachedSurfaces(LPVOID, LPDDENUMSURFACESCALLBACK) = 0;
    virtual HRESULT STDMETHODCALLTYPE EnumOverlayZOrders(DWORD, LPVOID, LPDDENUMSURFACESCALLBACK)
        = 0;
    virtual HRESULT STDMETHODCALLTYPE Flip(LPDIRECTDRAWSURFACE, DWORD) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetAttachedSurface(LPDDSCAPS, LPDIRECTDRAWSURFACE*) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetBltStatus(DWORD) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetCaps(LPDDSCAPS caps) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetClipper(LPDIRECTDRAWCLIPPER*) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetColorKey(DWORD, LPDDCOLORKEY) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetDC(HDC* context) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetFlipStatus(DWORD) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetOverlayPosition(LPLONG, LPLONG) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetPalette(LPDIRECTDRAWPALETTE*) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetPixelFormat(LPDDPIXELFORMAT format) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetSurfaceDesc(LPDDSURFACEDESC description) = 0;
    virtual HRESULT STDMETHODCALLTYPE Initialize(LPDIRECTDRAW, LPDDSURFACEDESC) = 0;
    virtual HRESULT STDMETHODCALLTYPE IsLost() = 0;
    virtual HRESULT STDMETHODCALLTYPE Lock(
        LPRECT area, LPDDSURFACEDESC description, DWORD flags, HANDLE event)
        = 0;
    virtual HRESULT STDMETHODCALLTYPE ReleaseDC(HDC context) = 0;
    virtual HRESULT STDMETHODCALLTYPE Restore() = 0;
    virtual HRESULT STDMETHODCALLTYPE SetClipper(LPDIRECTDRAWCLIPPER) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetColorKey(DWORD, LPDDCOLORKEY) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetOverlayPosition(LONG, LONG) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetPalette(LPDIRECTDRAWPALETTE) = 0;
    virtual HRESULT STDMETHODCALLTYPE Unlock(LPVOID pixels) = 0;
    virtual HRESULT STDMETHODCALLTYPE UpdateOverlay(
        LPRECT, LPDIRECTDRAWSURFACE, LPRECT, DWORD, LPDDOVERLAYFX)
        = 0;
    virtual HRESULT STDMETHODCALLTYPE UpdateOverlayDisplay(DWORD) = 0;
    virtual HRESULT STDMETHODCALLTYPE UpdateOverlayZOrder(DWORD, LPDIRECTDRAWSURFACE) = 0;
};

/// The device is null: there is one display. The caller releases the object.
extern "C" HRESULT WINAPI DirectDrawCreate(GUID* device, LPDIRECTDRAW* directDraw, IUnknown* outer);
