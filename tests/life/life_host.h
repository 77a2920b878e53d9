// SPDX-License-Identifier: MIT
/// A host's things for one run of the library: a window, DirectDraw with two surfaces off the
/// screen, DirectSound.
#pragma once

#include <windows.h>

#include <mmsystem.h>

#include <ddraw.h>
#include <dsound.h>

namespace kez::life {

/// What the library makes from a host's DirectX objects: a surface and sounds, or nothing.
enum class Made { SurfaceAndSounds, Nothing };

class LifeHost {
public:
    explicit LifeHost(Made made);
    ~LifeHost();
    LifeHost(const LifeHost&) = delete;
    LifeHost& operator=(const LifeHost&) = delete;

    explicit operator bool() const { return primary != nullptr && secondary != nullptr; }

    void deliverMessages() const;

    /// The window's procedure is the host's own, and nobody else holds a use of the objects.
    [[nodiscard]] bool isItsOwn() const;

    int depth; ///< With 32 bits the library needs no surface of its own.
    HWND window = nullptr;
    IDirectSound* sound = nullptr; ///< Null also where there is no device.
    IDirectDraw* directDraw = nullptr;
    IDirectDrawSurface* primary = nullptr;
    IDirectDrawSurface* secondary = nullptr;
};

} // namespace kez::life
