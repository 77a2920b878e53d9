// SPDX-License-Identifier: MIT
#include "host/scenes.h"

#include "activity/camera_screen.h"

namespace kez {

Scene& sceneFor(Kez::Module /*module*/)
{
    return cameraScreen();
}

} // namespace kez
