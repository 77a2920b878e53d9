// SPDX-License-Identifier: MIT
#include "host/scenes.h"

#include "activity/camera_screen.h"
#include "activity/photo_book.h"

namespace kez {

Scene& sceneFor(Kez::Module module)
{
    if (module == Kez::camera)
        return cameraScreen();
    return photoBook();
}

} // namespace kez
