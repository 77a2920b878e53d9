// SPDX-License-Identifier: MIT
#include "open_module.h"

#include "colours.h"
#include "display.h"

#include "host/kez.h"

namespace kez::player {

OpenModule::OpenModule(
    HWND window, IDirectSound* sound, const Display& display, const std::string& data)
{
    Kez::initialize(window, sound, display.directDraw(), display.primary(), display.secondary(),
        display.bitsPerPixel(), data.c_str(), selectedFrame, labelText, emptyCell, bookFrame);
    Kez::initializeCamera();
    Kez::open();
}

OpenModule::~OpenModule()
{
    Kez::release();
}

} // namespace kez::player
