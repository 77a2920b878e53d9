// SPDX-License-Identifier: MIT
/// A surface that stands in for a real one and fails on command: as a surface that is lost, or
/// locked by somebody else, or of another machine's making. Everything else it passes on. A real
/// surface cannot copy from a stand-in: where the secondary is one, let the primary be one too.
#pragma once

#include "support/never_called.h"

#include <windows.h>

#include <ddraw.h>

#include <array>
#include <cstddef>
#include <set>

namespace kez::test {

class FailingSurface final : public IDirectDrawSurface {
public:
    enum Call { LockCall, GetDCCall, BltFastCall, RestoreCall, IsLostCall, PixelFormatCall, Calls };

    /// The real surface is borrowed.
    explicit FailingSurface(IDirectDrawSurface* real)
        : real_(real)
    {
        standIns().insert(this);
    }

    ~FailingSurface() { standIns().erase(this); }

    FailingSurface(const FailingSurface&) = delete;
    FailingSurface& operator=(const FailingSurface&) = delete;

    static constexpr int forEver = -1;

    /// The next `count` calls fail with `result` and do nothing.
    void fail(Call call, HRESULT result, int count = forEver) { plans_[call] = { result, count }; }

    /// Lock, GetDC and BltFast report the surface lost until Restore succeeds.
    void lose() { lost_ = true; }

    /// From now on Lock gives this memory (the caller's) with rows of `pitchBytes`.
    void lendMemory(void* memory, LONG pitchBytes)
    {
        memory_ = memory;
        pitchBytes_ = pitchBytes;
    }

    /// The size that Lock tells; 0 × 0 for the real one.
    void claimSize(DWORD width, DWORD height)
    {
        claimedWidth_ = width;
        claimedHeight_ = height;
    }

    /// The format that GetPixelFormat tells, whatever the real one is.
    void claimFormat(const DDPIXELFORMAT& format) { claimedFormat_ = format; }

    /// From now on BltFast succeeds and copies nothing.
    void copyNothing() { copiesNothing_ = true; }

    [[nodiscard]] int calls(Call call) const { return counts_[call]; }

    [[nodiscard]] int locksHeld() const { return locksHeld_; }

    [[nodiscard]] int contextsHeld() const { return contextsHeld_; }

    void forgetCalls() { counts_ = {}; }

    HRESULT STDMETHODCALLTYPE Lock(
        LPRECT area, LPDDSURFACEDESC description, DWORD flags, HANDLE event) override
    {
        HRESULT result = begin(LockCall);
        if (result == DD_OK)
            result = real_->Lock(area, description, flags, event);
        if (result != DD_OK)
            return result;
        ++locksHeld_;
        if (memory_ != nullptr) {
            description->lpSurface = memory_;
            description->lPitch = pitchBytes_;
        }
        if (claimedWidth_ != 0) {
            description->dwWidth = claimedWidth_;
            description->dwHeight = claimedHeight_;
        }
        return DD_OK;
    }

    HRESULT STDMETHODCALLTYPE Unlock(LPVOID pixels) override
    {
        --locksHeld_;
        return real_->Unlock(pixels);
    }

    HRESULT STDMETHODCALLTYPE GetDC(HDC* context) override
    {
        HRESULT result = begin(GetDCCall);
        if (result == DD_OK)
            result = real_->GetDC(context);
        contextsHeld_ += result == DD_OK ? 1 : 0;
        return result;
    }

    HRESULT STDMETHODCALLTYPE ReleaseDC(HDC context) override
    {
        --contextsHeld_;
        return real_->ReleaseDC(context);
    }

    HRESULT STDMETHODCALLTYPE BltFast(
        DWORD x, DWORD y, LPDIRECTDRAWSURFACE source, LPRECT area, DWORD flags) override
    {
        const HRESULT result = begin(BltFastCall);
        if (copiesNothing_ && result == DD_OK)
            return DD_OK;
        return result == DD_OK ? real_->BltFast(x, y, realOf(source), area, flags) : result;
    }

    HRESULT STDMETHODCALLTYPE Restore() override
    {
        const HRESULT result = begin(RestoreCall);
        if (result != DD_OK)
            return result;
        lost_ = false;
        return real_->Restore();
    }

    HRESULT STDMETHODCALLTYPE IsLost() override
    {
        const HRESULT result = begin(IsLostCall);
        return result == DD_OK ? real_->IsLost() : result;
    }

    HRESULT STDMETHODCALLTYPE GetPixelFormat(LPDDPIXELFORMAT format) override
    {
        const HRESULT result = begin(PixelFormatCall);
        if (result != DD_OK || claimedFormat_.dwSize == 0)
            return result == DD_OK ? real_->GetPixelFormat(format) : result;
        *format = claimedFormat_;
        return DD_OK;
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, LPVOID*) override { return E_NOINTERFACE; }

    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }

    ULONG STDMETHODCALLTYPE Release() override { return 1; }

    HRESULT STDMETHODCALLTYPE GetSurfaceDesc(LPDDSURFACEDESC description) override
    {
        return real_->GetSurfaceDesc(description);
    }

    HRESULT STDMETHODCALLTYPE GetCaps(LPDDSCAPS caps) override { return real_->GetCaps(caps); }

    KEZ_NEVER_CALLED(Blt, LPRECT, LPDIRECTDRAWSURFACE, LPRECT, DWORD, LPDDBLTFX);
    KEZ_NEVER_CALLED(AddAttachedSurface, LPDIRECTDRAWSURFACE);
    KEZ_NEVER_CALLED(AddOverlayDirtyRect, LPRECT);
    KEZ_NEVER_CALLED(BltBatch, LPDDBLTBATCH, DWORD, DWORD);
    KEZ_NEVER_CALLED(DeleteAttachedSurface, DWORD, LPDIRECTDRAWSURFACE);
    KEZ_NEVER_CALLED(EnumAttachedSurfaces, LPVOID, LPDDENUMSURFACESCALLBACK);
    KEZ_NEVER_CALLED(EnumOverlayZOrders, DWORD, LPVOID, LPDDENUMSURFACESCALLBACK);
    KEZ_NEVER_CALLED(Flip, LPDIRECTDRAWSURFACE, DWORD);
    KEZ_NEVER_CALLED(GetAttachedSurface, LPDDSCAPS, LPDIRECTDRAWSURFACE*);
    KEZ_NEVER_CALLED(GetBltStatus, DWORD);
    KEZ_NEVER_CALLED(GetClipper, LPDIRECTDRAWCLIPPER*);
    KEZ_NEVER_CALLED(GetColorKey, DWORD, LPDDCOLORKEY);
    KEZ_NEVER_CALLED(GetFlipStatus, DWORD);
    KEZ_NEVER_CALLED(GetOverlayPosition, LPLONG, LPLONG);
    KEZ_NEVER_CALLED(GetPalette, LPDIRECTDRAWPALETTE*);
    KEZ_NEVER_CALLED(Initialize, LPDIRECTDRAW, LPDDSURFACEDESC);
    KEZ_NEVER_CALLED(SetClipper, LPDIRECTDRAWCLIPPER);
    KEZ_NEVER_CALLED(SetColorKey, DWORD, LPDDCOLORKEY);
    KEZ_NEVER_CALLED(SetOverlayPosition, LONG, LONG);
    KEZ_NEVER_CALLED(SetPalette, LPDIRECTDRAWPALETTE);
    KEZ_NEVER_CALLED(UpdateOverlay, LPRECT, LPDIRECTDRAWSURFACE, LPRECT, DWORD, LPDDOVERLAYFX);
    KEZ_NEVER_CALLED(UpdateOverlayDisplay, DWORD);
    KEZ_NEVER_CALLED(UpdateOverlayZOrder, DWORD, LPDIRECTDRAWSURFACE);

private:
    struct Plan {
        HRESULT result = DD_OK;
        int count = 0;
    };

    static std::set<IDirectDrawSurface*>& standIns()
    {
        static std::set<IDirectDrawSurface*> living;
        return living;
    }

    // A real surface knows real surfaces only.
    static IDirectDrawSurface* realOf(IDirectDrawSurface* surface)
    {
        return standIns().count(surface) != 0 ? static_cast<FailingSurface*>(surface)->real_
                                              : surface;
    }

    HRESULT begin(Call call)
    {
        ++counts_[call];
        Plan& plan = plans_[call];
        if (plan.count != 0) {
            plan.count -= plan.count > 0 ? 1 : 0;
            return plan.result;
        }
        const bool needsMemory
            = call == LockCall || call == GetDCCall || call == BltFastCall || call == IsLostCall;
        return lost_ && needsMemory ? DDERR_SURFACELOST : DD_OK;
    }

    IDirectDrawSurface* real_;
    std::array<Plan, Calls> plans_ = {};
    std::array<int, Calls> counts_ = {};
    bool lost_ = false;
    bool copiesNothing_ = false;
    void* memory_ = nullptr;
    LONG pitchBytes_ = 0;
    DWORD claimedWidth_ = 0;
    DWORD claimedHeight_ = 0;
    DDPIXELFORMAT claimedFormat_ = {};
    int locksHeld_ = 0;
    int contextsHeld_ = 0;
};

} // namespace kez::test
