// SPDX-License-Identifier: MIT
#include "control.h"

#include "device_context.h"
#include "surface.h"
#include "window.h"

namespace kez::winapi {

LiveObjects liveObjects()
{
    return { Surface::live, contexts().count(), ownGdiObjects(), windows().count() };
}

} // namespace kez::winapi
