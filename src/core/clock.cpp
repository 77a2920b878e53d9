// SPDX-License-Identifier: MIT
#include "core/clock.h"

#include <windows.h>

#include <mmsystem.h>

namespace kez {

void takeFrameTime()
{
    const std::uint32_t now = timeGetTime();
    const std::uint32_t elapsed = now - frameTime;
    frameTime = now;
    if (elapsed != 0)
        framesPerSecond = 1000 / elapsed;
}

} // namespace kez
