// SPDX-License-Identifier: MIT
/// A surface that stands in for a real one and fails on command: as a surface that is lost, or
/// locked by somebody else, or of another machine's making. Everything else it passes on. A real
/// surface cannot copy from a stand-in: where the secondary is one, let the primary be one too.
#pragma once

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

    HRESULT STDMETHODCALLTYPE Blt(
        LPRECT to, LPDIRECTDRAWSURFACE source, LPRECT from, DWORD flags, LPDDBLTFX effects) override
    {
        return real_->Blt(to, realOf(source), from, flags, effects);
    }

    // What the module never calls.
    HRESULT STDMETHODCALLTYPE AddAttachedSurface(LPDIRECTDRAWSURFACE) override { return no; }

    HRESULT STDMETHODCALLTYPE AddOverlayDirtyRect(LPRECT) override { return no; }

    HRESULT STDMETHODCALLTYPE BltBatch(LPDDBLTBATCH, DWORD, DWORD) override { return no; }

    HRESULT STDMETHODCALLTYPE DeleteAttachedSurface(DWORD, LPDIRECTDRAWSURFACE) override
    {
        return no;
    }

    HRESULT STDMETHODCALLTYPE EnumAttachedSurfaces(LPVOID, LPDDENUMSURFACESCALLBACK) override
    {
        return no;
    }

    HRESULT STDMETHODCALLTYPE EnumOverlayZOrders(DWORD, LPVOID, LPDDENUMSURFACESCALLBACK) override
    {
        return no;
    }

    HRESULT STDMETHODCALLTYPE Flip(LPDIRECTDRAWSURFACE, DWORD) override { return no; }

    HRESULT STDMETHODCALLTYPE GetAttachedSurface(LPDDSCAPS, LPDIRECTDRAWSURFACE*) override
    {
        return no;
    }

    HRESULT STDMETHODCALLTYPE GetBltStatus(DWORD) override { return no; }

    HRESULT STDMETHODCALLTYPE GetClipper(LPDIRECTDRAWCLIPPER*) override { return no; }

    HRESULT STDMETHODCALLTYPE GetColorKey(DWORD, LPDDCOLORKEY) override { return no; }

    HRESULT STDMETHODCALLTYPE GetFlipStatus(DWORD) override { return no; }

    HRESULT STDMETHODCALLTYPE GetOverlayPosition(LPLONG, LPLONG) override { return no; }

    HRESULT STDMETHODCALLTYPE GetPalette(LPDIRECTDRAWPALETTE*) override { return no; }

    HRESULT STDMETHODCALLTYPE Initialize(LPDIRECTDRAW, LPDDSURFACEDESC) override { return no; }

    HRESULT STDMETHODCALLTYPE SetClipper(LPDIRECTDRAWCLIPPER) override { return no; }

    HRESULT STDMETHODCALLTYPE SetColorKey(DWORD, LPDDCOLORKEY) override { return no; }

    HRESULT STDMETHODCALLTYPE SetOverlayPosition(LONG, LONG) override { return no; }

    HRESULT STDMETHODCALLTYPE SetPalette(LPDIRECTDRAWPALETTE) override { return no; }

    HRESULT STDMETHODCALLTYPE UpdateOverlay(
        LPRECT, LPDIRECTDRAWSURFACE, LPRECT, DWORD, LPDDOVERLAYFX) override
    {
        return no;
    }

    HRESULT STDMETHODCALLTYPE UpdateOverlayDisplay(DWORD) override { return no; }

    HRESULT STDMETHODCALLTYPE UpdateOverlayZOrder(DWORD, LPDIRECTDRAWSURFACE) override
    {
        return no;
    }

private:
    struct Plan {
        HRESULT result = DD_OK;
        int count = 0;
    };

    static inline const HRESULT no = DDERR_UNSUPPORTED;

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
