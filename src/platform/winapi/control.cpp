// SPDX-License-Identifier: MIT
#include "control.h"

#include "device_context.h"
#include "surface.h"
#include "window.h"

namespace kez::winapi {

void loseSurface(IDirectDrawSurface* surface)
{
    static_cast<Surface*>(surface)->lose();
}

void refuseNext(IDirectDrawSurface* surface, Call call, HRESULT result, int count)
{
    static_cast<Surface*>(surface)->refuse(call, result, count);
}

bool useDisplayFormat(const DDPIXELFORMAT& description)
{
    const std::optional<PixelFormat> format = PixelFormat::from(description);
    if (format)
        Display::useMasks(*format);
    return format.has_value();
}

void useUsualDisplayFormats()
{
    Display::useUsualMasks();
}

LiveObjects liveObjects()
{
    return { Surface::live, contexts().count(), ownGdiObjects(), windows().count() };
}

} // namespace kez::winapi
