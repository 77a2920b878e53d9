// SPDX-License-Identifier: MIT
/// The module between `Kez::initialize` and `Kez::release`.
#pragma once

#include <windows.h>

#include <mmsystem.h> // before dsound.h, which needs its wave formats

#include <dsound.h>

#include <string>

namespace kez::player {

class Display;

class OpenModule {
public:
    /// Lends it the window, the sound (null: none) and the display's surfaces; it keeps its
    /// pictures below `data`.
    OpenModule(HWND window, IDirectSound* sound, const Display& display, const std::string& data);
    ~OpenModule();
    OpenModule(const OpenModule&) = delete;
    OpenModule& operator=(const OpenModule&) = delete;
};

} // namespace kez::player
